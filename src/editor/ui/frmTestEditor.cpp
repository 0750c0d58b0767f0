#include "editor/ui/frmTestEditor.h"

#include "editor/FindingsText.h"
#include "platform/Guarded.h"
#include "platform/ui/GradientBackground.h"
#include "platform/ui/Named.h"
#include "platform/ui/ScrollingPage.h"
#include "platform/ui/Typography.h"
#include "platform/ui/WindowPlacement.h"
#include "testdoc/TestInMemoryChecker.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

const QString ToMainMenu = QStringLiteral("Return To Main Menu");
const QString ToEditorMenu = QStringLiteral("Return To Editor Menu");

constexpr int TwipsPerPixel = 15;
constexpr QSize LeastSize(7995 / TwipsPerPixel, 6825 / TwipsPerPixel);
constexpr QSize UsualSize(92 * GridUnit, 84 * GridUnit);
constexpr QSize SmallestSize(40 * GridUnit, 34 * GridUnit);

// A pause in typing after which the findings are looked for, and the age at which changes are kept as a copy.
constexpr int FindingsPause = 300;
constexpr int CopyAge = 2000;

// More than the widest window shows, and few enough to be measured while someone types.
constexpr int LettersOfHeading = 500;

void FocusFirstControl(QWidget& page) {
    for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain())
        if (page.isAncestorOf(next) && (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabled() &&
            next->isVisibleTo(&page) && !next->focusProxy())
            // Not as the Tab key does: the first letter would replace the whole text.
            return next->setFocus(Qt::OtherFocusReason);
}

/// Flat, as at twice the size on a small screen each line of the page counts.
void SetFlatRoom(QLayout& row) {
    SetRoom(row, 2, 1);
    row.setContentsMargins(2 * GridUnit, GridUnit, 2 * GridUnit, GridUnit);
}

QLayout* WithSideMargins(QWidget* widget) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(2 * GridUnit, 0, 2 * GridUnit, 0);
    row->addWidget(widget);
    return row;
}

} // namespace

frmTestEditor::frmTestEditor(const EditorFileParts& parts) : parts_(parts), file_(parts, *this) {
    setObjectName(QStringLiteral("frmTestEditor"));
    setWindowTitle(QStringLiteral("Vellumo Editor"));
    menus_ = new EditorMenus(*this);
    help_ = new HelpKey(*this, parts_.Ways, HelpTopic::Editor);

    tbsOptions_ = Named(new EditorTabStrip, QStringLiteral("tbsOptions"));
    tbsOptions_->setAccessibleName(QStringLiteral("Pages of the editor"));
    MakePages({parts_.Test, parts_.UserSettings, parts_.Boxes, parts_.Files});
    findings_ = Named(new FindingsLine, QStringLiteral("FindingsLine"));

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(MakeHeading());
    column->addSpacing(GridUnit);
    column->addWidget(tbsOptions_);
    column->addWidget(pages_, 1);
    column->addLayout(WithSideMargins(findings_));
    column->addLayout(MakeButtons());
    setCentralWidget(content);

    ConnectMenus();
    ConnectPages();
    findingsTimer_.setSingleShot(true);
    findingsTimer_.setInterval(FindingsPause);
    copyTimer_.setSingleShot(true);
    copyTimer_.setInterval(CopyAge);
    connect(&findingsTimer_, &QTimer::timeout, this, &frmTestEditor::ShowFindings);
    connect(&copyTimer_, &QTimer::timeout, this, [this] { file_.KeepCopy(); });

    setMinimumSize(SmallestSize);
    resize(UsualSize.expandedTo(LeastSize));
    CentreOnScreen(*this);
}

bool frmTestEditor::Form_Load() { return file_.Load(); }

void frmTestEditor::LoadRecovered(const TypedEntries& typed) { file_.LoadRecovered(typed); }

void frmTestEditor::MakePages(const EditorParts& parts) {
    checks_ = new EditorOptionChecks(parts_.Test);
    checks_->setParent(this);
    subscales_ = new SubscalesTab(parts);
    questions_ = new QuestionsTab(parts);
    export_ = new ExportTab(parts, *checks_);
    picOptions_ = {new AboutTestTab(parts),
                   subscales_,
                   new TemplateTab(parts),
                   questions_,
                   new AnalysisTab(parts),
                   new OptionsTab(parts, *checks_),
                   new AutomationTab(parts, *checks_),
                   export_};

    home_ = Named(new HomeView, QStringLiteral("HomeView"));
    pages_ = new QStackedWidget;
    // The first tab would count as chosen.
    const QSignalBlocker quiet(tbsOptions_);
    for (int i = 0; i < EditorPageCount; ++i) {
        const EditorPageInfo& info = InfoOf(static_cast<EditorPage>(i));
        tbsOptions_->addTab(info.Caption);
        tbsOptions_->setTabToolTip(i, info.ToolTip);
        pages_->addWidget(new ScrollingPage(Named(PageAt(i), QStringLiteral("picOptions_%1").arg(i))));
    }
    pages_->addWidget(home_);
}

QWidget* frmTestEditor::MakeHeading() {
    auto* strip = Named(new GradientBackground, QStringLiteral("Picture1"));
    heading_ = Named(new QLabel, QStringLiteral("Heading"));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setFont(HeadingFont());
    // A long title is cut at the window's edge and never widens it.
    heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* row = new QHBoxLayout(strip);
    SetFlatRoom(*row);
    row->addWidget(heading_, 1);
    saveState_ = Named(new QLabel, QStringLiteral("SaveState"));
    saveState_->setTextFormat(Qt::PlainText);
    row->addWidget(saveState_);
    return strip;
}

QLayout* frmTestEditor::MakeButtons() {
    const auto make = [this](const char* name, const QString& caption, void (frmTestEditor::*handler)()) {
        auto* button = Named(new QPushButton(caption), QLatin1String(name));
        // Return presses it as Space does.
        button->setAutoDefault(true);
        connect(button, &QPushButton::clicked, this, [this, handler] { Guarded([&] { (this->*handler)(); }); });
        return button;
    };
    Command1_ = make("Command1", QStringLiteral("Save Test"), &frmTestEditor::Command1_Click);
    Command2_ = make("Command2", ToMainMenu, &frmTestEditor::Command2_Click);
    Quit_ = make("Quit", QStringLiteral("Quit"), &frmTestEditor::Quit_Click);

    auto* row = new QHBoxLayout;
    SetFlatRoom(*row);
    row->addWidget(Command1_);
    row->addStretch(1);
    row->addWidget(Command2_);
    row->addWidget(Quit_);
    return row;
}

void frmTestEditor::ConnectMenus() {
    const auto on = [this](void (EditorMenus::*signal)(), auto action) {
        connect(menus_, signal, this, [this, action] { Guarded(action); });
    };
    on(&EditorMenus::NewWanted, [this] { file_.New(); });
    on(&EditorMenus::OpenWanted, [this] { file_.Open(); });
    on(&EditorMenus::mnufilesave_Click, [this] { file_.Save(); });
    on(&EditorMenus::mnufilesaveas_Click, [this] { file_.SaveAs(); });
    on(&EditorMenus::savehtml_Click, [this] { ExportHtml(); });
    on(&EditorMenus::quiteditor_Click, [this] { Quit_Click(); });
    on(&EditorMenus::gen_Click, [this] { parts_.Ways.ShowGeneralOptions(); });
    on(&EditorMenus::hlp_Click, [this] { hlp_Click(); });
    on(&EditorMenus::about_Click, [this] { parts_.Ways.ShowAbout(); });
    connect(menus_, &EditorMenus::mnuop_Click, this, [this](int i) { Guarded([&] { file_.OpenListed(i); }); });
}

void frmTestEditor::ConnectPages() {
    connect(tbsOptions_, &EditorTabStrip::Chosen, this,
            [this](int index) { Guarded([&] { tbsOptions_Click(index); }); });
    const auto onKeys = [this](const QKeySequence& keys, int step) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this, step] { Form_KeyDown(step); });
    };
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_Tab), 1);
    onKeys(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), -1);
    onKeys(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), -1);

    for (EditorTab* page : picOptions_) {
        connect(page, &EditorTab::Changed, this, &frmTestEditor::DocumentChanged);
        connect(page, &EditorTab::Typed, this, &frmTestEditor::DocumentChanged);
    }
    connect(checks_, &EditorOptionChecks::Changed, this, &frmTestEditor::DocumentChanged);
    connect(subscales_, &SubscalesTab::SubscalesChanged, this,
            [this] { questions_->FillSubscales(QStringLiteral("<None>")); });
    connect(export_, &ExportTab::ExportHtmlWanted, this, [this] { Guarded([&] { ExportHtml(); }); });
    connect(home_, &HomeView::ExportHtmlWanted, this, [this] { Guarded([&] { ExportHtml(); }); });
    connect(findings_, &FindingsLine::Chosen, this, [this](const TestPlace& place) { Guarded([&] { GoTo(place); }); });
}

void frmTestEditor::Guarded(const std::function<void()>& action) { RunGuarded(parts_.Boxes, action); }

void frmTestEditor::RefreshFromTest() {
    checks_->RefreshFromTest();
    for (EditorTab* page : picOptions_)
        page->RefreshFromTest();
    file_.ListFilesAgain();
    menus_->ShowFiles(file_.FileList());
    ShowTitle(file_.Title());
    ShowFindings();
}

void frmTestEditor::ShowHome(EditorPage lastMoved) {
    home_->Show(file_.HomeMessage(), file_.HasTest());
    menus_->SetHtmlExportEnabled(file_.HasTest());
    export_->SetHtmlExportEnabled(file_.HasTest());
    if (pages_->currentIndex() <= static_cast<int>(lastMoved) || pages_->currentWidget() == home_) {
        pages_->setCurrentWidget(home_);
        tbsOptions_->ShowNone();
        tbsOptions_->setFocus();
        help_->SetTopic(HelpTopic::Editor);
    }
    Command2_->setText(ToMainMenu);
    file_.SetSaved(true);
}

// A page is settled when it is left, so that it is the one in view which has something to settle.
bool frmTestEditor::Settle() {
    for (int i = 0; i < EditorPageCount; ++i)
        if (!PageAt(i)->Settle())
            return false;
    return true;
}

TypedEntries frmTestEditor::Typed() {
    TypedEntries typed;
    for (EditorTab* page : picOptions_)
        for (const EntryForm* form : page->Forms())
            if (form->IsChanged())
                typed.push_back(form->Typed());
    return typed;
}

void frmTestEditor::ShowTyped(const TypedEntries& typed) {
    for (const TypedEntry& entry : typed)
        tbsOptions_->Choose(static_cast<int>(PageOf(entry.Place)));
    // Choosing a page shows the document, so that this comes last.
    for (const TypedEntry& entry : typed)
        PageOfForm(entry.Place)->ShowTyped(entry);
    ShowSaveState(file_.SaveState());
}

void frmTestEditor::tbsOptions_Click(int index) {
    // A question is about the page in view, which then may stay.
    if (const int before = pages_->currentIndex(); before < EditorPageCount)
        tbsOptions_->Show(before);
    if (!Settle())
        return;
    tbsOptions_->Show(index);
    Command2_->setText(ToEditorMenu);
    pages_->setCurrentIndex(index);
    questions_->ShowLastQuestion();
    file_.SetSaved(false);
    const auto page = static_cast<EditorPage>(index);
    tbsOptions_->setProperty("HelpContextID", HelpContextOf(page));
    help_->SetTopic(InfoOf(page).Topic);
    if (!tbsOptions_->IsWalking())
        FocusFirstControl(*PageAt(index));
}

void frmTestEditor::Form_KeyDown(int step) { tbsOptions_->Choose(tbsOptions_->NextTab(step)); }

void frmTestEditor::Command1_Click() {
    if (file_.Save())
        ShowHome(EditorPage::Automation);
}

void frmTestEditor::Command2_Click() {
    if (!Settle())
        return;
    if (Command2_->text() == ToEditorMenu)
        return ShowHome(EditorPage::Export);
    file_.KeepCopy();
    file_.SetSaved(true);
    ShowStartScreenAndClose();
}

void frmTestEditor::Quit_Click() {
    if (!file_.MayLeave(false))
        return;
    file_.SetSaved(true);
    ShowStartScreenAndClose();
}

void frmTestEditor::closeEvent(QCloseEvent* event) {
    if (!leaving_) {
        event->ignore();
        bool proceeds = false;
        Guarded([&] { proceeds = file_.MayLeave(true); });
        if (!proceeds)
            return;
        ShowStartScreen();
        event->accept();
    }
    QMainWindow::closeEvent(event);
}

// The start screen comes first: the program ends with its last window. It reads other tests into the document.
void frmTestEditor::ShowStartScreen() {
    leaving_ = true;
    parts_.Copies.End();
    findingsTimer_.stop();
    copyTimer_.stop();
    parts_.Ways.ShowStartScreen();
}

void frmTestEditor::ShowStartScreenAndClose() {
    ShowStartScreen();
    close();
}

// The key is what opens the help of the page in view, so the menu item sends it.
void frmTestEditor::hlp_Click() {
    QApplication::postEvent(this, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
}

void frmTestEditor::ExportHtml() {
    if (Settle())
        parts_.Ways.ExportHtml();
}

void frmTestEditor::DocumentChanged() {
    findingsTimer_.start();
    if (!copyTimer_.isActive())
        copyTimer_.start();
    ShowHeading();
}

// One line, whatever breaks a title was pasted with.
void frmTestEditor::ShowHeading() { heading_->setText(parts_.Test.TestTitle.left(LettersOfHeading).simplified()); }

void frmTestEditor::ShowFindings() {
    ShowSaveState(file_.SaveState());
    ShowHeading();
    int length = 0;
    const std::vector<Finding> findings = CheckForSaving(parts_.Test, &length);
    findings_->Show(findings, length);
}

void frmTestEditor::GoTo(const TestPlace& place) {
    if (!Settle() || !PlaceExists(place, parts_.Test))
        return;
    const EditorPage page = PageOf(place);
    tbsOptions_->Choose(static_cast<int>(page));
    PageAt(static_cast<int>(page))->GoTo(place);
}
