#include "taker/ui/FrmTest.h"

#include "platform/Guarded.h"
#include "platform/ui/GradientBackground.h"
#include "platform/ui/HelpKey.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "taker/Leaving.h"
#include "taker/ui/ControlWheel.h"
#include "taker/ui/DialogAutoReport.h"
#include "taker/ui/Mnemonics.h"
#include "taker/ui/WrappingRow.h"
#include "taker/ui/frmOptionsTest.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QShortcut>

namespace {

QString WithoutMnemonic(QString caption) { return caption.replace(u'&', QStringLiteral("&&")); }

void ClickIfSeen(QPushButton& button) {
    if (button.isVisible())
        button.click();
}

/// The answer that a key chooses, 1 to 10; 0 for a key that chooses none.
int AnswerOfKey(const QKeyEvent& key) {
    const QString text = key.text();
    const bool alone = !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (!alone || key.isAutoRepeat() || text.size() != 1 || text[0] < u'0' || text[0] > u'9')
        return 0;
    return text[0] == u'0' ? MaxAnswers : text[0].digitValue();
}

} // namespace

FrmTest::FrmTest(const TestWindowParts& parts, QWidget* parent)
    : QMainWindow(parent),
      parts_(parts),
      sizes_(AnswerSizesFor(SummaryOf(parts.TheSession.Test).LongestAnswerLength,
                            SummaryOf(parts.TheSession.Test).MaxAnswerCount)),
      course_(parts.TheSession),
      filing_(
          {parts.TheSession, parts.ThePrompts, parts.TheClock, parts.TheLauncher, parts.TheNavigator, parts.Exporter},
          [this](AutoReportForm& form) {
              DialogAutoReport(form, parts_.TheSession, parts_.TheFileChooser, parts_.TheNavigator, this).exec();
          }),
      readingSize_(parts.Store,
                   ReadingSize::LargestOn(screen()->availableSize().width(), screen()->availableSize().height())) {
    setObjectName(QStringLiteral("FrmTest"));
    menus_ = new TestMenus(*menuBar());
    ConnectMenus();
    new HelpKey(*this, parts_.TheNavigator, HelpTopic::TestWindow);

    answers_ = new AnswerPanel(sizes_);
    connect(answers_, &AnswerPanel::Opt_Click, this, &FrmTest::Opt_Click);
    connect(answers_, &AnswerPanel::Label1_Click, this, &FrmTest::Label1_Click);
    connect(answers_, &AnswerPanel::txtanswer_Change, this, &FrmTest::txtanswer_Change);
    connect(answers_, &AnswerPanel::CmdContinue_Click, this, &FrmTest::CmdContinue_Click);
    LblStatus_ = new StatusLine;

    auto* background = new GradientBackground;
    auto* column = new QVBoxLayout(background);
    SetRoom(*column, 2, 1);
    column->addWidget(MakeQuestionFrame());
    column->addWidget(answers_, 1);
    column->addSpacing(GridUnit);
    column->addLayout(MakeButtonRow());
    column->addWidget(LblStatus_);
    setCentralWidget(background);
    new ControlWheel(*this, [this](int direction) { ChangeReadingSize(direction); });
    ApplyReadingSize();
    Form_Load();
}

void FrmTest::Form_Load() {
    const TestDocument& test = parts_.TheSession.Test;
    course_.SetSpreadsheetInstalled(parts_.TheOfficeProbe.ApplicationInstalled(SpreadsheetKey, QString()));
    menus_->SetOptionsVisible(course_.MenusVisible());
    menus_->OfferTexts(!test.TestIntroduction.isEmpty(), !test.TestInstructions.isEmpty());
    setWindowTitle(test.TestTitle);
    ShowPage();

    // The answers' height is given for a window without menus and status; the rest asks for its own.
    const int chrome = menuBar()->sizeHint().height() + 12 * GridUnit;
    resize(110 * GridUnit, qMax(70 * GridUnit, sizes_.WindowHeight + chrome));
    CentreOnScreen(*this);
}

QWidget* FrmTest::MakeQuestionFrame() {
    framequest_ = Named(new QGroupBox, QStringLiteral("framequest"));
    TxtQuest_ = Named(new QuestionWindow(sizes_.QuestionHeight), QStringLiteral("TxtQuest"));
    CmdBegin_ = MakeButton(QStringLiteral("CmdBegin"), QString(), &FrmTest::CmdBegin_Click);
    auto* column = new QVBoxLayout(framequest_);
    SetRoom(*column, 1, 1);
    column->addWidget(TxtQuest_);
    column->addWidget(CmdBegin_, 0, Qt::AlignHCenter);
    return framequest_;
}

QLayout* FrmTest::MakeButtonRow() {
    auto* row = new WrappingRow;
    CmdBack_ = MakeButton(QStringLiteral("CmdBack"), QStringLiteral("&Back"), &FrmTest::CmdBack_Click);
    CmdForward_ = MakeButton(QStringLiteral("CmdForward"), QStringLiteral("&Forward"), &FrmTest::CmdForward_Click);
    auto_ = MakeButton(QStringLiteral("auto"), QStringLiteral("&Auto-Report"), &FrmTest::auto_Click);
    CmdExport_ = MakeButton(QStringLiteral("CmdExport"), QStringLiteral("&Export"), &FrmTest::CmdExport_Click);
    CmdReport_ = MakeButton(QStringLiteral("CmdReport"), QStringLiteral("&Report"), &FrmTest::CmdReport_Click);
    CmdQuit_ = MakeButton(QStringLiteral("CmdQuit"), QStringLiteral("&Quit"), &FrmTest::mnuNew_Click);
    for (QPushButton* button : {CmdBack_, CmdForward_})
        row->addWidget(button);
    new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this, [this] { ClickIfSeen(*CmdBack_); });
    new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Right), this, [this] { ClickIfSeen(*CmdForward_); });
    row->AddGap();
    for (QPushButton* button : {auto_, CmdExport_, CmdReport_, CmdQuit_})
        row->addWidget(button);
    return row;
}

QPushButton* FrmTest::MakeButton(const QString& name, const QString& caption, void (FrmTest::*handler)()) {
    auto* button = Named(new QPushButton(caption), name);
    connect(button, &QPushButton::clicked, this, handler);
    return button;
}

void FrmTest::ConnectMenus() {
    Navigator& navigator = parts_.TheNavigator;
    connect(menus_, &TestMenus::mnuNew_Click, this, &FrmTest::mnuNew_Click);
    connect(menus_, &TestMenus::mnuQuit_Click, this, &FrmTest::mnuNew_Click);
    connect(menus_, &TestMenus::edittest_Click, this, &FrmTest::edittest_Click);
    connect(menus_, &TestMenus::mnutestshow_Click, this, &FrmTest::mnutestshow_Click);
    connect(menus_, &TestMenus::mnut_Click, this, &FrmTest::mnut_Click);
    connect(menus_, &TestMenus::mnusize_Click, this, &FrmTest::ChangeReadingSize);
    addActions(menus_->SizeItems());
    connect(menus_, &TestMenus::mnuclient_Click, this, [this, &navigator] {
        navigator.AskNames(QStringLiteral("Confirm Client & Test Administrator"));
        ShowStatus();
    });
    connect(menus_, &TestMenus::mnugeneraloptions_Click, this, [&navigator] { navigator.ShowGeneralOptions(); });
    connect(menus_, &TestMenus::hlpy_Click, this, [&navigator] { navigator.ShowHelp(HelpTopic::TestWindow); });
    connect(menus_, &TestMenus::mnuhelpabout_Click, this, [&navigator] { navigator.ShowAbout(); });
}

// Showing and answering

void FrmTest::Step(const std::function<void()>& step) {
    RunGuarded(parts_.ThePrompts, [&] {
        step();
        ShowPage();
    });
}

void FrmTest::ShowPage() {
    const bool question = course_.Page() == TestPage::Question;
    // What goes, goes first: the window would grow to hold both.
    if (!question)
        answers_->hide();
    ShowButtons();
    framequest_->setTitle(WithoutMnemonic(course_.FrameCaption()));
    if (question)
        TxtQuest_->ShowQuestion(course_.PageText());
    else
        TxtQuest_->ShowInformation(course_.PageText(),
                                   course_.Page() == TestPage::Completed ? Qt::AlignHCenter : Qt::AlignLeft);
    // What is shown takes the room: the answers below a question, the text alone otherwise.
    framequest_->setSizePolicy(QSizePolicy::Expanding, question ? QSizePolicy::Maximum : QSizePolicy::Expanding);
    answers_->Show(course_, parts_.TheSession);
    answers_->setVisible(question);
    ShowStatus();
    if (course_.BeginVisible())
        CmdBegin_->setFocus();
    else if (!answers_->TakeFocus())
        CmdReport_->setFocus();
}

void FrmTest::ShowButtons() {
    CmdBegin_->setVisible(course_.BeginVisible());
    CmdBack_->setVisible(course_.BackVisible());
    CmdForward_->setVisible(course_.ForwardVisible());
    auto_->setVisible(course_.AutoReportVisible());
    CmdExport_->setVisible(course_.ExportVisible());
    CmdReport_->setVisible(course_.ReportVisible());
    GiveCaptions(*menuBar(), {{CmdBegin_, {course_.BeginCaption()}},
                              {CmdBack_, {QStringLiteral("&Back"), QStringLiteral("Bac&k")}},
                              {CmdForward_, {QStringLiteral("&Forward"), QStringLiteral("For&ward")}},
                              {auto_, {QStringLiteral("&Auto-Report")}},
                              {CmdExport_, {QStringLiteral("&Export")}},
                              {CmdReport_, {QStringLiteral("&Report"), QStringLiteral("Re&port")}},
                              {CmdQuit_, {QStringLiteral("&Quit")}}});
}

void FrmTest::Opt_Click(int index) {
    bool chosen = false;
    Step([&] { chosen = course_.Choose(index); });
    if (chosen)
        RunCompletion();
}

void FrmTest::Label1_Click(int index) {
    Step([&] { course_.AcceptText(answers_->TypedText(index)); });
    RunCompletion();
}

void FrmTest::txtanswer_Change(int index) {
    course_.TakeDraft(answers_->TypedText(index));
    answers_->ShowDraft(course_.ShowsDraft());
}

void FrmTest::CmdContinue_Click() {
    Step([this] { course_.Continue(); });
    RunCompletion();
}

void FrmTest::CmdBegin_Click() {
    Step([this] { course_.Begin(); });
}

void FrmTest::CmdBack_Click() {
    Step([this] { course_.Back(); });
}

void FrmTest::CmdForward_Click() {
    Step([this] { course_.Forward(); });
}

void FrmTest::mnutestshow_Click(int index) {
    const TestDocument& test = parts_.TheSession.Test;
    if (index == 4)
        parts_.TheNavigator.ShowText(QuestionListing(test), QStringLiteral("Test Information for ") + test.TestTitle);
    else
        Step([this, index] {
            if (index == 1)
                course_.ShowIntroduction();
            else if (index == 2)
                course_.ShowInstructions();
            else
                course_.ShowQuestionListing();
        });
}

void FrmTest::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const bool roomy = width() >= 80 * GridUnit && height() >= 60 * GridUnit;
    SetRoom(*centralWidget()->layout(), roomy ? 2 : 1, 1);
}

void FrmTest::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (const int answer = AnswerOfKey(*event); answer != 0 && course_.ShowsMultichoice()) {
        Opt_Click(answer);
    } else if (auto* button = qobject_cast<QPushButton*>(focusWidget()); isReturn && button && !event->isAutoRepeat()) {
        const auto* answerButton = dynamic_cast<AnswerButton*>(button);
        if (!answerButton || answerButton->TakesReturn())
            button->click();
    } else if (event->key() == Qt::Key_PageDown || event->key() == Qt::Key_PageUp) {
        answers_->ScrollByPage(event->key() == Qt::Key_PageDown ? 1 : -1);
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

// Reports and leaving

void FrmTest::RunCompletion() {
    if (course_.WaitsForDecision()) {
        const DraftsDecision decision = AskAboutDrafts(parts_.TheSession, parts_.ThePrompts);
        Step([&] { course_.Decide(decision); });
    }
    if (course_.Page() != TestPage::Completed)
        return;
    filing_.Complete(course_);
    ShowStatus();
}

void FrmTest::auto_Click() {
    ClearStatus();
    filing_.AutoReport();
    ShowStatus();
}

void FrmTest::CmdExport_Click() {
    ClearStatus();
    filing_.Export();
    ShowStatus();
}

void FrmTest::CmdReport_Click() {
    ClearStatus();
    // The report may end the program, and this window with it; then no start screen comes.
    const QPointer<FrmTest> alive(this);
    leaving_ = true;
    ReportFlow flow(parts_.TheSession, parts_.ThePrompts, parts_.TheClock, parts_.TheNavigator);
    const ReportOutcome outcome = flow.Run();
    if (alive)
        leaving_ = outcome == ReportOutcome::ProgramEnds;
}

void FrmTest::ShowStatus() { LblStatus_->Show(filing_.Lines()); }

void FrmTest::ClearStatus() {
    filing_.ForgetFailures();
    ShowStatus();
}

bool FrmTest::MayLeave() {
    const LeaveAnswer answer = AskToLeave(parts_.TheSession, parts_.ThePrompts);
    if (answer == LeaveAnswer::MakeReport)
        CmdReport_Click();
    return answer == LeaveAnswer::Leave;
}

void FrmTest::mnuNew_Click() {
    if (!MayLeave())
        return;
    const QPointer<FrmTest> alive(this);
    leaving_ = true;
    if (!parts_.TheNavigator.CloseAllAndShowStartScreen() && alive)
        leaving_ = false;
}

void FrmTest::edittest_Click() {
    if (!MayLeave())
        return;
    leaving_ = parts_.TheNavigator.EditTest();
    if (leaving_)
        close();
}

void FrmTest::mnut_Click() { frmOptionsTest(parts_.TheSession.Test, parts_.TheNavigator, this).exec(); }

// Whoever closes the window on the way to somewhere else has said so.
void FrmTest::closeEvent(QCloseEvent* event) {
    if (!leaving_ && !MayLeave())
        return event->ignore();
    if (!leaving_)
        parts_.TheNavigator.ShowStartScreen();
    leaving_ = true;
    QMainWindow::closeEvent(event);
}

// The size of what is read

void FrmTest::ChangeReadingSize(int direction) {
    if (direction == 0)
        readingSize_.Reset();
    else
        readingSize_.Step(direction);
    ApplyReadingSize();
}

void FrmTest::ApplyReadingSize() {
    const double scale = readingSize_.Percent() / 100.0;
    centralWidget()->setFont(ScaledFont(scale));
    TxtQuest_->setFont(ScaledFont(1.5 * scale));
    CmdBegin_->setFont(ScaledFont(1.3 * scale));
    answers_->SetReadingSize(readingSize_.Percent());
    for (QPushButton* button : {CmdBegin_, CmdBack_, CmdForward_, auto_, CmdExport_, CmdReport_, CmdQuit_}) {
        // The style's own least width would make the row too wide for a small screen.
        const QFontMetrics metrics(button->font());
        const bool begins = button == CmdBegin_;
        button->setMinimumSize(begins ? 20 * GridUnit : metrics.horizontalAdvance(button->text()) + 2 * GridUnit,
                               qMax((begins ? 5 : 4) * GridUnit, metrics.height() + GridUnit));
    }
    TxtQuest_->updateGeometry();
}
