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
    column->addWidget(txtanswer_, 1);
    column->addLayout(MakeValueRow());
    column->addSpacing(GridUnit);
    column->addLayout(MakeButtonRow());

    form_ = new BoxForm(test_, TestPlace::Answer, {txtanswer_, txtAnswerVal_});
    form_->setParent(this);
    connect(form_, &BoxForm::ContentsChanged, this, &AnswerFrame::UpdateButtons);
    connect(form_, &BoxForm::Edited, this, &AnswerFrame::Typed);
    connect(form_, &BoxForm::StoredInTest, this, [this] {
        ShowCaption();
        UpdateButtons();
        Q_EMIT Changed();
    });
}

QLayout* AnswerFrame::MakeValueRow() {
    txtAnswerVal_ = Named(new NumberBox(boxes_), QStringLiteral("txtAnswerVal"));
    txtAnswerVal_->setFixedWidth(14 * GridUnit);
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
    form_->Show({TestPlace::Answer, question, 0});
    ShowType(type);
}

void AnswerFrame::TakeQuestion(int question, int type) {
    if (!form_->IsChanged())
        return ShowQuestion(question, type);
    form_->TakeAsTyped({TestPlace::Answer, question, 0});
    ShowCaption();
    UpdateButtons();
}

void AnswerFrame::ShowType(int type) {
    type_ = type;
    setTitle(TypeCaption(type));
    txtanswer_->setEnabled(HasAnswers());
    txtAnswerVal_->setEnabled(HasAnswers());
    Frame6_->setVisible(HasAnswers());
    CmdQuestNav_.SetEnabled(HasAnswers() && test_.QuestionCount > 0);
    const int question = form_->Place().Index;
    txtanswer_->setPlaceholderText(HasAnswers() && question == 0
                                       ? QStringLiteral("Add the question first. Its answers come after it.")
                                       : QString());
    ShowAnswer(HasAnswers() ? qMin(1, OwnAnswerCount(test_, question)) : 0);
}

bool AnswerFrame::HasAnswers() const { return type_ == Multichoice; }

void AnswerFrame::ShowAnswer(int answer) {
    form_->Show({TestPlace::Answer, form_->Place().Index, answer});
    ShowCaption();
}

void AnswerFrame::ShowCaption() {
    if (HasAnswers())
        setTitle(AnswerCaption(test_, form_->Place().Index, form_->Number()));
}

void AnswerFrame::Clear() {
    EntryBoxes boxes;
    boxes.Number = QStringLiteral("0");
    form_->Show({TestPlace::Answer, form_->Place().Index, 0}, boxes);
}

void AnswerFrame::ShowTyped(const TypedEntry& typed) {
    if (!HasAnswers())
        ShowType(Multichoice);
    form_->ShowTyped(typed);
    ShowCaption();
}

void AnswerFrame::GoTo(int answer) {
    ShowAnswer(answer);
    form_->FocusToTypeOver();
}

void AnswerFrame::UpdateButtons() {
    const bool valueFits = txtAnswerVal_->text().isEmpty() || txtAnswerVal_->Number();
    CmdQuestion_(AddButton)->setEnabled(form_->Place().Index > 0 && !txtanswer_->document()->isEmpty() && valueFits);
    CmdQuestion_(EditButton)->setEnabled(form_->Number() > 0 && valueFits);
    CmdQuestion_(DeleteButton)->setEnabled(form_->Number() > 0);
}

void AnswerFrame::CmdQuestion_Click(int index) {
    if (index == AddButton) {
        // The next one is typed over it.
        if (form_->Add(boxes_))
            form_->FocusToTypeOver();
    } else if (index == EditButton) {
        if (form_->Store(boxes_))
            ShowAnswer(form_->Number());
    } else {
        DeleteShown();
    }
}

void AnswerFrame::DeleteShown() {
    const TestPlace place = form_->Place();
    const int answer = DeleteAnswer(test_, place.Index, place.SubIndex);
    ShowAnswer(answer);
    if (answer == 0) {
        Clear();
        form_->FocusToTypeOver();
    }
    Q_EMIT Changed();
}

void AnswerFrame::CmdQuestNav_Click(int index) {
    if (!Settle())
        return;
    const TestPlace place = form_->Place();
    ShowAnswer(index == BackButton      ? AnswerBefore(test_, place.Index, place.SubIndex)
               : index == ForwardButton ? AnswerAfter(test_, place.Index, place.SubIndex)
                                        : 0);
    if (index == ClearButton)
        form_->FocusToTypeOver();
}
