#include "editor/ui/AnswerFrame.h"

#include "editor/QuestionEdits.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

enum Operation { AddButton = 3, DeleteButton = 4, EditButton = 5 };
enum Navigation { BackButton = 2, ForwardButton = 3, ClearButton = 5 };

const QString FrameCaption = QStringLiteral("Answer");

QString TypeCaption(int type) {
    switch (type) {
    case TypeUnset:
        return QStringLiteral("Answer - Template");
    case Multichoice:
        return QStringLiteral("Answer - Multichoice");
    case ShortAnswer:
        return QStringLiteral("Answer - Short Answer");
    case LongAnswer:
        return QStringLiteral("Answer - Long Answer");
    default:
        return FrameCaption;
    }
}

} // namespace

AnswerFrame::AnswerFrame(TestDocument& test, Prompts& boxes)
    : QGroupBox(FrameCaption),
      test_(test),
      boxes_(boxes),
      CmdQuestion_(QStringLiteral("CmdQuestion"), [this](int index) { CmdQuestion_Click(index); }),
      CmdQuestNav_(QStringLiteral("CmdQuestNav"), [this](int index) { CmdQuestNav_Click(index); }) {
    setObjectName(QStringLiteral("FrameAnswer"));
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 1);
    txtanswer_ = Named(new TextBox(TextBox::Form::OneParagraph, 2), QStringLiteral("txtanswer"));
    txtanswer_->setAccessibleName(QStringLiteral("Text of the answer"));
    connect(txtanswer_, &TextBox::Edited, this, &AnswerFrame::UpdateButtons);
    column->addWidget(txtanswer_, 1);
    column->addLayout(MakeValueRow());
    column->addSpacing(GridUnit);
    column->addLayout(MakeButtonRow());
}

QLayout* AnswerFrame::MakeValueRow() {
    txtAnswerVal_ = Named(new NumberBox(boxes_), QStringLiteral("txtAnswerVal"));
    txtAnswerVal_->setFixedWidth(14 * GridUnit);
    connect(txtAnswerVal_, &NumberBox::textChanged, this, &AnswerFrame::UpdateButtons);
    auto* label = new QLabel(QStringLiteral("Value of answer if selected:"));
    label->setBuddy(txtAnswerVal_);
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(label);
    row->addWidget(txtAnswerVal_);
    row->addStretch(1);
    return row;
}

QLayout* AnswerFrame::MakeButtonRow() {
    Frame6_ = Named(new QWidget, QStringLiteral("Frame6"));
    QSizePolicy policy = Frame6_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    Frame6_->setSizePolicy(policy);
    auto* operations = new QHBoxLayout(Frame6_);
    SetRoom(*operations, 0, 1);
    operations->addWidget(CmdQuestion_.Make(AddButton, QStringLiteral("Add"), QStringLiteral("Add answer")));
    operations->addWidget(CmdQuestion_.Make(EditButton, QStringLiteral("Edit"), QStringLiteral("Edit answer")));
    operations->addWidget(CmdQuestion_.Make(DeleteButton, QStringLiteral("Delete"), QStringLiteral("Delete answer")));

    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(Frame6_);
    row->addStretch(1);
    row->addWidget(CmdQuestNav_.Make(BackButton, QStringLiteral("Back"), QStringLiteral("Previous answer")));
    row->addWidget(CmdQuestNav_.Make(ForwardButton, QStringLiteral("Forward"), QStringLiteral("Next answer")));
    row->addWidget(CmdQuestNav_.Make(ClearButton, QStringLiteral("Clear"), QStringLiteral("New answer")));
    return row;
}

void AnswerFrame::ShowQuestion(int question, int type) {
    question_ = question;
    answer_ = qMin(1, OwnAnswerCount(test_, question));
    ShowType(type);
}

void AnswerFrame::ShowType(int type) {
    type_ = type;
    setTitle(TypeCaption(type));
    txtanswer_->setEnabled(HasAnswers());
    txtAnswerVal_->setEnabled(HasAnswers());
    Frame6_->setVisible(HasAnswers());
    CmdQuestNav_.SetEnabled(HasAnswers() && test_.QuestionCount > 0);
    txtanswer_->setPlaceholderText(HasAnswers() && question_ == 0
                                       ? QStringLiteral("Add the question first. Its answers come after it.")
                                       : QString());
    if (HasAnswers())
        ShowAnswer();
    else
        SetBoxes(QString(), QString());
}

bool AnswerFrame::HasAnswers() const { return type_ == Multichoice; }

void AnswerFrame::ShowAnswer() {
    setTitle(AnswerCaption(test_, question_, answer_));
    if (answer_ == 0)
        SetBoxes(QString(), QString());
    else
        SetBoxes(test_.AnswerText(question_, answer_), test_.AnswerValue(question_, answer_).Text());
}

void AnswerFrame::SetBoxes(const QString& text, const QString& value) {
    txtanswer_->SetText(text);
    txtAnswerVal_->setText(value);
    txtAnswerVal_->setCursorPosition(0);
    UpdateButtons();
}

void AnswerFrame::Clear() { SetBoxes(QString(), QStringLiteral("0")); }

void AnswerFrame::GoTo(int answer) {
    answer_ = answer;
    ShowAnswer();
    FocusText();
}

void AnswerFrame::UpdateButtons() {
    const bool valueFits = txtAnswerVal_->text().isEmpty() || txtAnswerVal_->Number();
    CmdQuestion_(AddButton)->setEnabled(question_ > 0 && !txtanswer_->document()->isEmpty() && valueFits);
    CmdQuestion_(EditButton)->setEnabled(answer_ > 0 && valueFits);
    CmdQuestion_(DeleteButton)->setEnabled(answer_ > 0);
}

void AnswerFrame::FocusText() {
    txtanswer_->setFocus(Qt::OtherFocusReason);
    txtanswer_->selectAll();
}

void AnswerFrame::CmdQuestion_Click(int index) {
    if (index == AddButton)
        AddTyped();
    else if (index == EditButton)
        EditShown();
    else
        DeleteShown();
}

void AnswerFrame::AddTyped() {
    if (const Result added = AddAnswer(test_, question_, txtanswer_->Text(), txtAnswerVal_->text()); !added)
        return boxes_.Inform(added.Message());
    answer_ = OwnAnswerCount(test_, question_);
    ShowAnswer();
    FocusText();
    Q_EMIT Changed();
}

void AnswerFrame::EditShown() {
    if (const Result edited = EditAnswer(test_, question_, answer_, txtanswer_->Text(), txtAnswerVal_->text()); !edited)
        return boxes_.Inform(edited.Message());
    ShowAnswer();
    Q_EMIT Changed();
}

void AnswerFrame::DeleteShown() {
    answer_ = DeleteAnswer(test_, question_, answer_);
    ShowAnswer();
    if (answer_ == 0) {
        Clear();
        FocusText();
    }
    Q_EMIT Changed();
}

void AnswerFrame::CmdQuestNav_Click(int index) {
    if (index == BackButton)
        answer_ = AnswerBefore(test_, question_, answer_);
    else if (index == ForwardButton)
        answer_ = AnswerAfter(test_, question_, answer_);
    else
        answer_ = 0;
    ShowAnswer();
    if (index == ClearButton)
        FocusText();
}
