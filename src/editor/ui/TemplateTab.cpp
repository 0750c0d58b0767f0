#include "editor/ui/TemplateTab.h"

#include "editor/QuestionEdits.h"
#include "editor/TemplateEdits.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

enum Operation { AddButton = 0, DeleteButton = 1, EditButton = 2 };

QLabel* MakeLabel(const QString& caption, QWidget* box) {
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    box->setAccessibleName(caption);
    return label;
}

} // namespace

TemplateTab::TemplateTab(const EditorParts& parts)
    : EditorTab(parts), Cmdtemplate_(QStringLiteral("Cmdtemplate"), [this](int index) { Cmdtemplate_Click(index); }) {
    auto* group = new QGroupBox(QStringLiteral("Answer Template"));
    auto* inside = new QVBoxLayout(group);
    SetRoom(*inside, 2, 1);
    inside->addWidget(MakeBoxes());
    inside->addSpacing(GridUnit);
    inside->addLayout(MakeButtonRow());
    inside->addSpacing(GridUnit);
    form_ = new BoxForm(Test(), TestPlace::TemplateAnswer, {txtTemplate_, txtValueTemplate_});
    form_->setParent(this);
    connect(form_, &BoxForm::ContentsChanged, this, &TemplateTab::UpdateButtons);
    connect(form_, &BoxForm::Edited, this, &TemplateTab::Typed);
    connect(form_, &BoxForm::StoredInTest, this, &TemplateTab::TakeStored);
    ListTemplate_ = Named(new EntryList(MaxAnswers), QStringLiteral("ListTemplate"));
    ListTemplate_->setAccessibleName(QStringLiteral("Answers of the template"));
    connect(ListTemplate_, &EntryList::ChoiceChanged, this, &TemplateTab::ListTemplate_Click);
    inside->addWidget(ListTemplate_, 1);

    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(group);
    RefreshFromTest();
}

QWidget* TemplateTab::MakeBoxes() {
    txtTemplate_ = Named(new TextBox(TextBox::Form::OneParagraph, 3), QStringLiteral("txtTemplate"));
    // The room is the list's.
    txtTemplate_->setFixedHeight(txtTemplate_->minimumHeight());
    txtValueTemplate_ = Named(new NumberBox(Parts().Boxes), QStringLiteral("txtValueTemplate"));
    txtValueTemplate_->setFixedWidth(14 * GridUnit);

    auto* boxes = new QWidget;
    boxes->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* grid = new QGridLayout(boxes);
    SetRoom(*grid, 0, 1);
    grid->addWidget(MakeLabel(QStringLiteral("Answer:"), txtTemplate_), 0, 0, Qt::AlignTop);
    grid->addWidget(txtTemplate_, 0, 1);
    grid->addWidget(MakeLabel(QStringLiteral("Value of answer if selected:"), txtValueTemplate_), 1, 0);
    grid->addWidget(txtValueTemplate_, 1, 1, Qt::AlignLeft);
    grid->setColumnStretch(1, 1);
    return boxes;
}

QLayout* TemplateTab::MakeButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(GridUnit);
    row->addWidget(Cmdtemplate_.Make(AddButton, QStringLiteral("Add"), QStringLiteral("Add answer to the template")));
    row->addWidget(Cmdtemplate_.Make(EditButton, QStringLiteral("Edit"), QStringLiteral("Edit selected answer")));
    row->addWidget(Cmdtemplate_.Make(DeleteButton, QStringLiteral("Delete"), QStringLiteral("Delete selected answer")));
    row->addStretch(1);
    return row;
}

void TemplateTab::RefreshFromTest() {
    FillList();
    form_->Show({TestPlace::TemplateAnswer, 0, 0});
}

void TemplateTab::GoTo(const TestPlace& place) {
    ListTemplate_->Choose(place.SubIndex);
    form_->Show(place);
    form_->FocusToTypeOver();
}

void TemplateTab::ShowTyped(const TypedEntry& typed) {
    ListTemplate_->Choose(typed.Place.SubIndex);
    form_->ShowTyped(typed);
}

void TemplateTab::FillList() {
    QStringList items;
    for (int i = 1; i <= Test().TemplateAnswerCount; ++i)
        items.append(TemplateItem(Test(), i));
    ListTemplate_->SetEntries(items);
}

void TemplateTab::UpdateButtons() {
    const bool complete = !txtTemplate_->document()->isEmpty() && txtValueTemplate_->Number();
    const bool selected = form_->Number() > 0;
    Cmdtemplate_(AddButton)->setEnabled(complete);
    Cmdtemplate_(EditButton)->setEnabled(complete && selected);
    Cmdtemplate_(DeleteButton)->setEnabled(selected);
}

void TemplateTab::ListTemplate_Click() {
    const int i = ListTemplate_->Chosen();
    if (!Settle())
        return ListTemplate_->Choose(form_->Number());
    if (i > 0)
        form_->Show({TestPlace::TemplateAnswer, 0, i});
    else
        form_->TakeAsStored({TestPlace::TemplateAnswer, 0, 0});
    UpdateButtons();
}

void TemplateTab::Cmdtemplate_Click(int index) {
    if (index == AddButton)
        AddTyped();
    else if (index == DeleteButton)
        DeleteSelected();
    else
        (void)form_->Store(Parts().Boxes);
}

void TemplateTab::TakeStored(const TestPlace& place, bool added) {
    if (added)
        ListTemplate_->AppendEntry(TemplateItem(Test(), place.SubIndex));
    else
        ListTemplate_->SetEntry(place.SubIndex, TemplateItem(Test(), place.SubIndex));
    Q_EMIT Changed();
}

void TemplateTab::AddTyped() {
    // The message doesn't stop the store, and stands before it.
    if (TemplateIsFull(Test()))
        Parts().Boxes.Inform(OnlySoManyAnswers);
    AddTemplateAnswer(Test(), txtTemplate_->Text(), *txtValueTemplate_->Number());
    RefreshFromTest();
    txtTemplate_->setFocus(Qt::OtherFocusReason);
    Q_EMIT Changed();
}

void TemplateTab::DeleteSelected() {
    const int i = form_->Number();
    DeleteTemplateAnswer(Test(), i);
    RefreshFromTest();
    Q_EMIT Changed();
    if (Test().TemplateAnswerCount == 0)
        return txtTemplate_->setFocus(Qt::OtherFocusReason);
    // The next one is at hand for the arrow keys and the space bar, and not yet selected.
    ListTemplate_->setCurrentRow(qMin(i, Test().TemplateAnswerCount) - 1, QItemSelectionModel::NoUpdate);
    ListTemplate_->setFocus(Qt::OtherFocusReason);
}
