#include "taker/ui/AnswerPanel.h"

#include "base/LineBreak.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

constexpr int Buttons = 0;
constexpr int ShortBox = 1;
constexpr int LongBox = 2;

bool IsReturn(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

} // namespace

AnswerPanel::AnswerPanel(const AnswerSizes& sizes, QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 0, 0);
    FrmAnswer_ = {MakeFrame(Buttons, QStringLiteral("Answer from the following options")),
                  MakeFrame(ShortBox, QStringLiteral("Short Answer")),
                  MakeFrame(LongBox, QStringLiteral("Long Answer"))};
    for (QGroupBox* frame : FrmAnswer_)
        column->addWidget(frame, frame == FrmAnswer_[LongBox] ? 1 : 0);
    column->addStretch(0);

    MakeButtons(sizes);
    shortAnswer_ = new QLineEdit;
    shortAnswer_->setMinimumHeight(5 * GridUnit);
    MakeBox(0, shortAnswer_, QStringLiteral("Enter"));
    longAnswer_ = new QPlainTextEdit;
    longAnswer_->setTabChangesFocus(true);
    longAnswer_->setMinimumHeight(8 * GridUnit);
    MakeBox(1, longAnswer_, QStringLiteral("Ctrl+Enter"));
}

QGroupBox* AnswerPanel::MakeFrame(int index, const QString& caption) {
    auto* frame = Named(new QGroupBox(caption), QStringLiteral("FrmAnswer_%1").arg(index));
    frame->setSizePolicy(QSizePolicy::Expanding, index == LongBox ? QSizePolicy::Expanding : QSizePolicy::Maximum);
    SetRoom(*new QVBoxLayout(frame), 1, 1);
    frame->hide();
    return frame;
}

void AnswerPanel::MakeButtons(const AnswerSizes& sizes) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    SetRoom(*column, 0, 0);
    column->setSpacing(GridUnit / 4);
    QFont font = this->font();
    font.setPointSize(sizes.FontSize);
    for (int a = 1; a <= MaxAnswers; ++a) {
        auto* button = Named(new AnswerButton(a), QStringLiteral("Opt_%1").arg(a));
        button->setFont(font);
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
    box->setFont(ScaledFont(1.3));
    box->setAccessibleName(frame->title());
    box->setToolTip(key + QStringLiteral(" accepts the answer"));
    box->installEventFilter(this);

    auto* label = Named(new QPushButton(QStringLiteral("Click here to accept your answer")),
                        QStringLiteral("Label1_%1").arg(index));
    label->setFont(BodyFont());
    label->setMinimumSize(label->sizeHint().width() + 2 * GridUnit, 4 * GridUnit);
    label->setToolTip(key);
    connect(label, &QPushButton::clicked, this, [this, index] { Q_EMIT Label1_Click(index); });
    Label1_[static_cast<size_t>(index)] = label;

    frame->layout()->addWidget(box);
    frame->layout()->addWidget(label);
    frame->layout()->setAlignment(label, Qt::AlignLeft);
}

void AnswerPanel::Show(const Administration& course, const Session& session) {
    const ResponseSet& responses = session.Responses;
    if (course.ShowsMultichoice())
        ShowAnswers(course, session);
    else if (course.ShowsShortAnswer())
        shortAnswer_->setText(responses.ResponseText(course.CurrentQuestion()));
    else if (course.ShowsLongAnswer())
        longAnswer_->setPlainText(responses.ResponseText(course.CurrentQuestion()));
    FrmAnswer_[Buttons]->setVisible(course.ShowsMultichoice());
    FrmAnswer_[ShortBox]->setVisible(course.ShowsShortAnswer());
    FrmAnswer_[LongBox]->setVisible(course.ShowsLongAnswer());
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
            if (!first_ || button->font().bold())
                first_ = button;
        }
        button->setEnabled(offered);
        button->setVisible(offered);
    }
    scroll_->verticalScrollBar()->setValue(0);
}

bool AnswerPanel::TakeFocus() {
    if (FrmAnswer_[Buttons]->isVisibleTo(this) && first_)
        first_->TakeFirstFocus();
    else if (FrmAnswer_[ShortBox]->isVisibleTo(this))
        shortAnswer_->setFocus();
    else if (FrmAnswer_[LongBox]->isVisibleTo(this))
        longAnswer_->setFocus();
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
