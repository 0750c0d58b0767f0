#include "editor/ui/QuestionsTab.h"

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
    column->addWidget(FrameAnswer_, 2);
    RefreshFromTest();
}

QWidget* QuestionsTab::MakeQuestionFrame() {
    FrmQuestion_ = Named(new QGroupBox(QStringLiteral("Question")), QStringLiteral("FrmQuestion"));
    txtQuestion_ = Named(new TextBox(TextBox::Form::OneParagraph, 3), QStringLiteral("txtQuestion"));
    txtQuestion_->setAccessibleName(QStringLiteral("Text of the question"));
    connect(txtQuestion_, &TextBox::Edited, this, &QuestionsTab::UpdateButtons);
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

void QuestionsTab::RefreshFromTest() {
    FillSubscales(QStringLiteral("<none>"));
    ShowQuestion();
}

void QuestionsTab::GoTo(const TestPlace& place) {
    current_ = place.Index;
    ShowQuestion();
    if (place.What == TestPlace::Answer && FrameAnswer_->HasAnswers())
        FrameAnswer_->GoTo(place.SubIndex);
    else
        FocusText();
}

void QuestionsTab::ShowLastQuestion() {
    current_ = Test().QuestionCount;
    ShowQuestion();
}

void QuestionsTab::ShowQuestion() {
    const TestDocument& test = Test();
    current_ = qBound(0, current_, test.QuestionCount);
    FrmQuestion_->setTitle(QuestionCaption(test, current_));
    txtQuestion_->SetText(current_ == 0 ? QString() : test.QuestionText(current_));
    FillSubscales(QuestionSS_->itemText(0));
    // A number that no sub-scale has leaves nothing chosen, so that it isn't lost.
    const int subscale = current_ == 0 ? 0 : test.QuestionSubscale(current_);
    QuestionSS_->setCurrentIndex(subscale >= 0 && subscale <= test.SubscaleCount ? subscale : -1);
    type_ = TypeToShow();
    types_->SetTemplateEnabled(test.TemplateAnswerCount > 0);
    types_->Show(type_);
    FrameAnswer_->ShowQuestion(current_, type_);
    UpdateButtons();
}

/// A new question begins with the type that was chosen last, as far as it can be chosen.
int QuestionsTab::TypeToShow() const {
    const TestDocument& test = Parts().Test;
    if (current_ > 0)
        return test.QuestionType(current_);
    const bool chosen = type_ > TypeUnset && type_ <= LongAnswer;
    return chosen || (type_ == TypeUnset && test.TemplateAnswerCount > 0) ? type_ : int(Multichoice);
}

void QuestionsTab::FillSubscales(const QString& none) {
    const QStringList items = SubscaleItems(Test(), none);
    if (Items(*QuestionSS_) == items)
        return;
    const int before = QuestionSS_->currentIndex();
    const QString chosen = QuestionSS_->currentText();
    QuestionSS_->clear();
    QuestionSS_->addItems(items);
    const bool moved = before > 0 && items.value(before) != chosen;
    QuestionSS_->setCurrentIndex(moved ? qMax(0, static_cast<int>(items.indexOf(chosen, 1))) : before);
}

void QuestionsTab::UpdateButtons() {
    const bool typed = !txtQuestion_->document()->isEmpty();
    CmdQuestion_(AddButton)->setEnabled(typed);
    CmdQuestion_(EditButton)->setEnabled(typed && current_ > 0);
    CmdQuestion_(DeleteButton)->setEnabled(current_ > 0);
    CmdQuestNav_.SetEnabled(Test().QuestionCount > 0);
}

QuestionBoxes QuestionsTab::Boxes() const {
    const int chosen = QuestionSS_->currentIndex();
    return {txtQuestion_->Text(), chosen < 0 ? std::nullopt : std::optional<int>(chosen), type_};
}

void QuestionsTab::FocusText() {
    txtQuestion_->setFocus(Qt::OtherFocusReason);
    txtQuestion_->selectAll();
}

void QuestionsTab::ChkQType_Click(int type) {
    // The one chosen already leaves alone what is typed for an answer.
    if (type == type_)
        return;
    type_ = type;
    FrameAnswer_->ShowType(type);
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
    if (const Result added = AddQuestion(Test(), current_, Boxes()); !added)
        return Parts().Boxes.Inform(added.Message());
    ShowLastQuestion();
    FocusText();
    Q_EMIT Changed();
}

void QuestionsTab::EditShown() {
    if (const Result edited = EditQuestion(Test(), current_, Boxes()); !edited)
        return Parts().Boxes.Inform(edited.Message());
    ShowQuestion();
    Q_EMIT Changed();
}

void QuestionsTab::DeleteShown() {
    current_ = DeleteQuestion(Test(), current_);
    ShowQuestion();
    if (current_ == 0)
        FocusText();
    Q_EMIT Changed();
}

void QuestionsTab::CmdQuestNav_Click(int index) {
    if (index == ClearButton) {
        current_ = 0;
        ShowQuestion();
        FrameAnswer_->Clear();
        return FocusText();
    }
    current_ = index == BackButton ? QuestionBefore(Test(), current_) : QuestionAfter(Test(), current_);
    ShowQuestion();
}
