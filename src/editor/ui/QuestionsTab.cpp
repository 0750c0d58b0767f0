#include "editor/ui/QuestionsTab.h"

#include "editor/EntryEdits.h"
#include "editor/QuestionEdits.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

enum Operation { AddButton = 0, DeleteButton = 1, EditButton = 2 };
enum Navigation { BackButton = 0, ForwardButton = 1, ClearButton = 4 };

/// A drop-down list that leaves the wheel to the page until it has the focus: who scrolls past it must not change it.
class QuietWheelList : public QComboBox {
  public:
    QuietWheelList() { setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

QStringList Items(const QComboBox& list) {
    QStringList items;
    for (int i = 0; i < list.count(); ++i)
        items += list.itemText(i);
    return items;
}

QStringList SubscaleItems(const TestDocument& test, const QString& none) {
    QStringList items{none};
    for (int s = 1; s <= test.SubscaleCount; ++s)
        items += test.SubscaleName(s);
    return items;
}

} // namespace

QuestionsTab::QuestionsTab(const EditorParts& parts)
    : EditorTab(parts),
      CmdQuestion_(QStringLiteral("CmdQuestion"), [this](int index) { CmdQuestion_Click(index); }),
      CmdQuestNav_(QStringLiteral("CmdQuestNav"), [this](int index) { CmdQuestNav_Click(index); }) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(MakeQuestionFrame(), 3);
    FrameAnswer_ = new AnswerFrame(Test(), Parts().Boxes);
    connect(FrameAnswer_, &AnswerFrame::Changed, this, &QuestionsTab::Changed);
    connect(FrameAnswer_, &AnswerFrame::Typed, this, &QuestionsTab::Typed);
    MakeForm();
    column->addWidget(FrameAnswer_, 2);
    RefreshFromTest();
}

QWidget* QuestionsTab::MakeQuestionFrame() {
    FrmQuestion_ = Named(new QGroupBox(QStringLiteral("Question")), QStringLiteral("FrmQuestion"));
    txtQuestion_ = Named(new TextBox(TextBox::Form::OneParagraph, 3), QStringLiteral("txtQuestion"));
    txtQuestion_->setAccessibleName(QStringLiteral("Text of the question"));
    types_ = new QuestionTypeButtons;
    connect(types_, &QuestionTypeButtons::ChkQType_Click, this, &QuestionsTab::ChkQType_Click);

    auto* column = new QVBoxLayout(FrmQuestion_);
    SetRoom(*column, 2, 1);
    column->addWidget(txtQuestion_, 1);
    column->addWidget(types_);
    column->addLayout(MakeSubscaleRow());
    column->addSpacing(GridUnit);
    column->addLayout(MakeButtonRow());
    return FrmQuestion_;
}

QLayout* QuestionsTab::MakeSubscaleRow() {
    QuestionSS_ = Named(new QuietWheelList, QStringLiteral("QuestionSS"));
    // As wide as its row: a long name must not widen the page.
    QuestionSS_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    QuestionSS_->setMinimumContentsLength(16);
    QuestionSS_->addItem(QStringLiteral("<none>"));
    auto* label = new QLabel(QStringLiteral("Sub-scale:"));
    label->setBuddy(QuestionSS_);
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(label);
    row->addWidget(QuestionSS_, 1);
    return row;
}

QLayout* QuestionsTab::MakeButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(CmdQuestion_.Make(AddButton, QStringLiteral("Add"), QStringLiteral("Add question")));
    row->addWidget(CmdQuestion_.Make(EditButton, QStringLiteral("Edit"), QStringLiteral("Edit question")));
    row->addWidget(CmdQuestion_.Make(DeleteButton, QStringLiteral("Delete"), QStringLiteral("Delete question")));
    row->addStretch(1);
    row->addWidget(CmdQuestNav_.Make(BackButton, QStringLiteral("Back"), QStringLiteral("Previous question")));
    // The caption is spelled so on purpose.
    row->addWidget(CmdQuestNav_.Make(ForwardButton, QStringLiteral("Foward"), QStringLiteral("Next question")));
    row->addWidget(CmdQuestNav_.Make(ClearButton, QStringLiteral("Clear"), QStringLiteral("New question")));
    return row;
}

void QuestionsTab::MakeForm() {
    form_ = new BoxForm(Test(), TestPlace::Question,
                        {.Text = txtQuestion_,
                         .ReadMore =
                             [this](EntryBoxes& boxes) {
                                 boxes.Type = type_;
                                 if (const int chosen = QuestionSS_->currentIndex(); chosen >= 0)
                                     boxes.Subscale = chosen;
                             },
                         .ShowMore =
                             [this](const EntryBoxes& boxes) {
                                 type_ = boxes.Type;
                                 types_->Show(type_);
                                 QuestionSS_->setCurrentIndex(boxes.Subscale.value_or(-1));
                             }});
    form_->setParent(this);
    connect(QuestionSS_, &QComboBox::activated, form_, &BoxForm::NoteOtherEdit);
    connect(form_, &BoxForm::ContentsChanged, this, &QuestionsTab::UpdateButtons);
    connect(form_, &BoxForm::Edited, this, &QuestionsTab::Typed);
    connect(form_, &BoxForm::StoredInTest, this, &QuestionsTab::TakeStored);
}

// An answer waits for a question that isn't there yet.
std::vector<EntryForm*> QuestionsTab::Forms() {
    if (FrameAnswer_->Form().Place().Index == 0)
        return {form_, &FrameAnswer_->Form()};
    return {&FrameAnswer_->Form(), form_};
}

void QuestionsTab::RefreshFromTest() {
    type_ = Multichoice;
    FillSubscales(QStringLiteral("<none>"));
    ShowLastQuestion();
}

void QuestionsTab::GoTo(const TestPlace& place) {
    ShowQuestion(place.Index);
    if (place.What == TestPlace::Answer && FrameAnswer_->HasAnswers())
        FrameAnswer_->GoTo(place.SubIndex);
    else
        form_->FocusToTypeOver();
}

void QuestionsTab::ShowTyped(const TypedEntry& typed) {
    const TestPlace& place = typed.Place;
    if (place.What == TestPlace::Question || place.Index != CurrentQuestion())
        ShowQuestion(place.Index);
    if (place.What == TestPlace::Answer)
        return FrameAnswer_->ShowTyped(typed);
    form_->ShowTyped(typed);
    FrameAnswer_->ShowType(type_);
}

void QuestionsTab::ShowLastQuestion() { ShowQuestion(Test().QuestionCount); }

void QuestionsTab::ShowQuestion(int q) {
    q = qBound(0, q, Test().QuestionCount);
    ShowQuestionBoxes(q);
    FrameAnswer_->ShowQuestion(q, type_);
    UpdateButtons();
}

void QuestionsTab::ShowQuestionBoxes(int q) {
    FrmQuestion_->setTitle(QuestionCaption(Test(), q));
    FillSubscales(QuestionSS_->itemText(0));
    types_->SetTemplateEnabled(Test().TemplateAnswerCount > 0);
    const TestPlace place{TestPlace::Question, q, 0};
    EntryBoxes boxes = StoredBoxes(Test(), place);
    if (q == 0)
        boxes.Type = TypeOfNew();
    form_->Show(place, boxes);
}

/// A new question begins with the type that was chosen last, as far as it can be chosen.
int QuestionsTab::TypeOfNew() const {
    const bool chosen = type_ > TypeUnset && type_ <= LongAnswer;
    return chosen || (type_ == TypeUnset && Parts().Test.TemplateAnswerCount > 0) ? type_ : int(Multichoice);
}

void QuestionsTab::FillSubscales(const QString& none) {
    const QStringList items = SubscaleItems(Test(), none);
    if (Items(*QuestionSS_) == items)
        return;
    const bool typed = form_->IsChanged();
    const int before = QuestionSS_->currentIndex();
    const QString chosen = QuestionSS_->currentText();
    QuestionSS_->clear();
    QuestionSS_->addItems(items);
    const bool moved = before > 0 && items.value(before) != chosen;
    QuestionSS_->setCurrentIndex(moved ? qMax(0, static_cast<int>(items.indexOf(chosen, 1))) : before);
    if (!typed)
        form_->TakeAsStored(form_->Place());
}

void QuestionsTab::UpdateButtons() {
    const bool typed = !txtQuestion_->document()->isEmpty();
    CmdQuestion_(AddButton)->setEnabled(typed);
    CmdQuestion_(EditButton)->setEnabled(typed && CurrentQuestion() > 0);
    CmdQuestion_(DeleteButton)->setEnabled(CurrentQuestion() > 0);
    CmdQuestNav_.SetEnabled(Test().QuestionCount > 0);
}

void QuestionsTab::ChkQType_Click(int type) {
    // The one chosen already leaves alone what is typed for an answer.
    if (type == type_)
        return;
    if (!FrameAnswer_->Settle())
        return types_->Show(type_);
    type_ = type;
    FrameAnswer_->ShowType(type);
    form_->NoteOtherEdit();
}

void QuestionsTab::CmdQuestion_Click(int index) {
    if (index == AddButton)
        AddTyped();
    else if (index == EditButton)
        EditShown();
    else
        DeleteShown();
}

void QuestionsTab::AddTyped() {
    if (CurrentQuestion() > 0 && !FrameAnswer_->Settle())
        return;
    // The next one is typed over it.
    if (form_->Add(Parts().Boxes))
        form_->FocusToTypeOver();
}

void QuestionsTab::EditShown() {
    if (FrameAnswer_->Settle() && form_->Store(Parts().Boxes))
        ShowQuestion();
}

void QuestionsTab::DeleteShown() {
    ShowQuestion(DeleteQuestion(Test(), CurrentQuestion()));
    if (CurrentQuestion() == 0)
        form_->FocusToTypeOver();
    Q_EMIT Changed();
}

void QuestionsTab::TakeStored(const TestPlace& place, bool added) {
    if (added) {
        ShowQuestionBoxes(place.Index);
        FrameAnswer_->TakeQuestion(place.Index, type_);
    } else {
        FrameAnswer_->TakeType(type_);
    }
    UpdateButtons();
    Q_EMIT Changed();
}

void QuestionsTab::CmdQuestNav_Click(int index) {
    if (!Settle())
        return;
    const int q = CurrentQuestion();
    ShowQuestion(index == BackButton      ? QuestionBefore(Test(), q)
                 : index == ForwardButton ? QuestionAfter(Test(), q)
                                          : 0);
    if (index == ClearButton) {
        FrameAnswer_->Clear();
        form_->FocusToTypeOver();
    }
}
