#include "taker/ui/AnswerPanel.h"

#include "base/LineBreak.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"
#include "taker/Answers.h"
#include "taker/ui/WrappingRow.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

constexpr int Buttons = 0;
constexpr int ShortBox = 1;
constexpr int LongBox = 2;
constexpr int NoAnswer = 3;
constexpr double BoxScale = 1.3;

/// Takes the focus for a new question. A box that had it for the one before loses it first, so that the new question
/// is read out.
void FocusAnew(QWidget& box) {
    box.clearFocus();
    box.setFocus();
}

/// Takes the room that is left, and asks for little.
class LongAnswerBox : public QPlainTextEdit {
  public:
    QSize sizeHint() const override { return {QPlainTextEdit::sizeHint().width(), minimumHeight()}; }
};

bool IsReturn(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

} // namespace

AnswerPanel::AnswerPanel(const AnswerSizes& sizes, QWidget* parent) : QWidget(parent), sizes_(sizes) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 0, 0);
    FrmAnswer_ = {MakeFrame(Buttons, QStringLiteral("Answer from the following options")),
                  MakeFrame(ShortBox, QStringLiteral("Short Answer")),
                  MakeFrame(LongBox, QStringLiteral("Long Answer")), MakeFrame(NoAnswer, QStringLiteral("No Answer"))};
    for (QGroupBox* frame : FrmAnswer_)
        column->addWidget(frame, frame == FrmAnswer_[LongBox] ? 1 : 0);
    column->addStretch(0);

    MakeButtons(sizes);
    shortAnswer_ = new QLineEdit;
    shortAnswer_->setMinimumHeight(5 * GridUnit);
    MakeBox(0, shortAnswer_, QStringLiteral("Enter"));
    longAnswer_ = new LongAnswerBox;
    longAnswer_->setTabChangesFocus(true);
    longAnswer_->setMinimumHeight(8 * GridUnit);
    MakeBox(1, longAnswer_, QStringLiteral("Ctrl+Enter"));
    MakeContinue();
    const auto typed = [this](int index) {
        if (!filling_)
            Q_EMIT txtanswer_Change(index);
    };
    connect(shortAnswer_, &QLineEdit::textChanged, this, [typed] { typed(0); });
    connect(longAnswer_, &QPlainTextEdit::textChanged, this, [typed] { typed(1); });
}

QGroupBox* AnswerPanel::MakeFrame(int index, const QString& caption) {
    auto* frame = Named(new QGroupBox(caption), QStringLiteral("FrmAnswer_%1").arg(index));
    // Buttons that scroll take no more room than they need; the others grow with their texts.
    const QSizePolicy::Policy heights[] = {QSizePolicy::Maximum, QSizePolicy::Preferred, QSizePolicy::Expanding,
                                           QSizePolicy::Preferred};
    frame->setSizePolicy(QSizePolicy::Expanding, heights[index]);
    SetRoom(*new QVBoxLayout(frame), 1, 1);
    frame->hide();
    return frame;
}

void AnswerPanel::MakeButtons(const AnswerSizes& sizes) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    SetRoom(*column, 0, 0);
    column->setSpacing(GridUnit / 4);
    for (int a = 1; a <= MaxAnswers; ++a) {
        auto* button = Named(new AnswerButton(a), QStringLiteral("Opt_%1").arg(a));
        button->installEventFilter(this);
        button->setMinimumHeight(sizes.ButtonHeight);
        button->hide();
        connect(button, &QPushButton::clicked, this, [this, a] { Q_EMIT Opt_Click(a); });
        Opt_[static_cast<size_t>(a - 1)] = button;
        column->addWidget(button);
    }
    column->addStretch(1);
    scroll_ = new FittingScrollArea(content);
    FrmAnswer_[Buttons]->layout()->addWidget(scroll_);
}

void AnswerPanel::MakeBox(int index, QWidget* box, const QString& key) {
    QGroupBox* frame = FrmAnswer_[static_cast<size_t>(index + 1)];
    Named(box, QStringLiteral("txtanswer_%1").arg(index));
    box->setAccessibleName(frame->title());
    box->setToolTip(key + QStringLiteral(" accepts the answer"));
    box->installEventFilter(this);

    auto* label = Named(new QPushButton(QStringLiteral("Click here to accept your answer")),
                        QStringLiteral("Label1_%1").arg(index));
    label->setToolTip(key);
    connect(label, &QPushButton::clicked, this, [this, index] { Q_EMIT Label1_Click(index); });
    Label1_[static_cast<size_t>(index)] = label;

    auto* draft = Named(new QLabel(QStringLiteral("Not accepted yet")), QStringLiteral("LblDraft_%1").arg(index));
    draft->setForegroundRole(QPalette::WindowText);
    LblDraft_[static_cast<size_t>(index)] = draft;

    auto* row = new WrappingRow;
    row->addWidget(label);
    row->addWidget(draft);
    auto* column = static_cast<QVBoxLayout*>(frame->layout());
    column->addWidget(box);
    column->addLayout(row);
}

void AnswerPanel::MakeContinue() {
    LblCannotAnswer_ = Named(new QLabel, QStringLiteral("LblCannotAnswer"));
    LblCannotAnswer_->setWordWrap(true);
    LblCannotAnswer_->setTextFormat(Qt::PlainText);
    CmdContinue_ = Named(new QPushButton(QStringLiteral("&Continue")), QStringLiteral("CmdContinue"));
    connect(CmdContinue_, &QPushButton::clicked, this, &AnswerPanel::CmdContinue_Click);
    auto* row = new WrappingRow;
    row->addWidget(CmdContinue_);
    auto* column = static_cast<QVBoxLayout*>(FrmAnswer_[NoAnswer]->layout());
    column->addWidget(LblCannotAnswer_);
    column->addLayout(row);
}

void AnswerPanel::SetReadingSize(int percent) {
    const double scale = percent / 100.0;
    QFont answers = font();
    answers.setPointSizeF(sizes_.FontSize * scale);
    const QFont body = BodyFont();
    if (QFontMetrics(answers).height() < QFontMetrics(body).height())
        answers = QFontMetrics(ScaledFont(1.15 * scale)).height() < QFontMetrics(body).height()
                      ? body
                      : ScaledFont(1.15 * scale);
    for (AnswerButton* button : Opt_) {
        answers.setBold(button->Chosen());
        button->setFont(answers);
        button->updateGeometry();
    }
    shortAnswer_->setFont(ScaledFont(BoxScale * scale));
    shortAnswer_->setMinimumHeight(qMax(5 * GridUnit, QFontMetrics(shortAnswer_->font()).height() + 2 * GridUnit));
    longAnswer_->setFont(ScaledFont(BoxScale * scale));
    for (QPushButton* button : {Label1_[0], Label1_[1], CmdContinue_}) {
        button->setFont(ScaledFont(1.15 * scale));
        const QFontMetrics metrics(button->font());
        button->setMinimumSize(metrics.horizontalAdvance(button->text()) + 4 * GridUnit,
                               qMax(4 * GridUnit, metrics.height() + GridUnit));
    }
    for (QLabel* label : {LblDraft_[0], LblDraft_[1], LblCannotAnswer_}) {
        label->setFont(ScaledFont(1.15 * scale));
        label->setMinimumHeight(label == LblCannotAnswer_ ? 0 : Label1_[0]->minimumHeight());
    }
}

void AnswerPanel::ScrollByPage(int direction) {
    QScrollBar& bar = *scroll_->verticalScrollBar();
    bar.setValue(bar.value() + direction * bar.pageStep());
}

void AnswerPanel::Show(const Administration& course, const Session& session) {
    spokenQuestion_ = course.FrameCaption() + QStringLiteral(": ") + course.PageText();
    if (course.ShowsMultichoice())
        ShowAnswers(course, session);
    else if (course.ShowsShortAnswer() || course.ShowsLongAnswer())
        ShowTyped(course, session);
    LblCannotAnswer_->setText(course.CannotAnswer() +
                              QStringLiteral(" 'Continue' goes on; the question counts as not answered."));
    const std::array<bool, 4> shown{course.ShowsMultichoice(), course.ShowsShortAnswer(), course.ShowsLongAnswer(),
                                    !course.CannotAnswer().isEmpty()};
    // What goes, goes first: the window would grow to hold both.
    for (const bool visible : {false, true})
        for (size_t i = 0; i < shown.size(); ++i)
            if (shown[i] == visible)
                FrmAnswer_[i]->setVisible(visible);
    if (QGroupBox* frame = ShownFrame())
        frame->setAccessibleName(spokenQuestion_);
}

void AnswerPanel::ShowTyped(const Administration& course, const Session& session) {
    const QScopedValueRollback<bool> filling(filling_, true);
    const QString& typed = ::TypedText(session.Responses, course.CurrentQuestion());
    if (course.ShowsShortAnswer()) {
        shortAnswer_->setText(typed);
    } else if (TypedText(1) != typed) {
        longAnswer_->setPlainText(typed);
        longAnswer_->moveCursor(QTextCursor::End);
    }
    ShowDraft(course.ShowsDraft());
}

void AnswerPanel::ShowDraft(bool draft) {
    for (QLabel* label : LblDraft_)
        label->setVisible(draft);
    const QString description = draft ? spokenQuestion_ + QStringLiteral(". Not accepted yet") : spokenQuestion_;
    shortAnswer_->setAccessibleDescription(description);
    longAnswer_->setAccessibleDescription(description);
}

QGroupBox* AnswerPanel::ShownFrame() const {
    for (QGroupBox* frame : FrmAnswer_)
        if (frame->isVisibleTo(this))
            return frame;
    return nullptr;
}

void AnswerPanel::ShowAnswers(const Administration& course, const Session& session) {
    const int q = course.CurrentQuestion();
    first_ = nullptr;
    for (int a = 1; a <= MaxAnswers; ++a) {
        AnswerButton* button = Opt_[static_cast<size_t>(a - 1)];
        const bool offered = course.AnswerOffered(a);
        if (offered) {
            button->SetAnswer(ChosenText(session.Test, q, a));
            button->SetChosen(a == session.Responses.ResponseChoice(q));
            if (!first_ || button->Chosen())
                first_ = button;
        }
        button->setEnabled(offered);
        button->setVisible(offered);
    }
    scroll_->verticalScrollBar()->setValue(0);
}

bool AnswerPanel::TakeFocus() {
    const QGroupBox* frame = ShownFrame();
    if (frame == FrmAnswer_[Buttons] && first_)
        first_->TakeFirstFocus(spokenQuestion_);
    else if (frame == FrmAnswer_[ShortBox])
        FocusAnew(*shortAnswer_);
    else if (frame == FrmAnswer_[LongBox])
        FocusAnew(*longAnswer_);
    else if (frame == FrmAnswer_[NoAnswer])
        FocusAnew(*CmdContinue_);
    else
        return false;
    return true;
}

QString AnswerPanel::TypedText(int i) const {
    // The raw text, because the plain one has lost the blanks that don't break.
    QString text = i == 0 ? shortAnswer_->text() : longAnswer_->document()->toRawText();
    text.replace(LineBreak, QStringLiteral("\n"));
    for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
        text.replace(lineEnd, u'\n');
    return text.replace(u'\n', LineBreak);
}

// A key held down comes again and again, and would run through the questions behind this one.
bool AnswerPanel::eventFilter(QObject* watched, QEvent* event) {
    auto* answer = qobject_cast<AnswerButton*>(watched);
    if (answer && event->type() == QEvent::FocusIn)
        scroll_->ensureWidgetVisible(answer, 0, 0);
    if (answer)
        return QWidget::eventFilter(watched, event);
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<const QKeyEvent*>(event);
    if (!IsReturn(key->key()))
        return QWidget::eventFilter(watched, event);
    const bool isShort = watched == shortAnswer_;
    const Qt::KeyboardModifiers modifiers = key->modifiers() & ~Qt::KeypadModifier;
    const bool accepts =
        isShort ? modifiers == Qt::NoModifier || modifiers == Qt::ControlModifier : modifiers == Qt::ControlModifier;
    if (!accepts)
        return QWidget::eventFilter(watched, event);
    if (!key->isAutoRepeat())
        Q_EMIT Label1_Click(isShort ? 0 : 1);
    return true;
}
