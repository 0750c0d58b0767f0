#include "editor/ui/TemplateTab.h"

#include "editor/QuestionEdits.h"
#include "editor/TemplateEdits.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>
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
    connect(txtTemplate_, &TextBox::Edited, this, &TemplateTab::UpdateButtons);
    txtValueTemplate_ = Named(new NumberBox(Parts().Boxes), QStringLiteral("txtValueTemplate"));
    txtValueTemplate_->setFixedWidth(14 * GridUnit);
    connect(txtValueTemplate_, &NumberBox::textChanged, this, &TemplateTab::UpdateButtons);

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
    EmptyBoxes();
    FillList();
}

void TemplateTab::GoTo(const TestPlace& place) {
    ListTemplate_->setCurrentRow(place.SubIndex - 1);
    txtTemplate_->setFocus(Qt::OtherFocusReason);
    txtTemplate_->selectAll();
}

int TemplateTab::Selected() const {
    const QList<QListWidgetItem*> selected = ListTemplate_->selectedItems();
    return selected.isEmpty() ? 0 : ListTemplate_->row(selected.first()) + 1;
}

void TemplateTab::FillList() {
    const QSignalBlocker quiet(ListTemplate_);
    ListTemplate_->clear();
    for (int i = 1; i <= Test().TemplateAnswerCount; ++i)
        ListTemplate_->addItem(TemplateItem(Test(), i));
    UpdateButtons();
}

void TemplateTab::EmptyBoxes() {
    txtTemplate_->SetText(QString());
    txtValueTemplate_->clear();
}

void TemplateTab::UpdateButtons() {
    const bool complete = !txtTemplate_->document()->isEmpty() && txtValueTemplate_->Number();
    Cmdtemplate_(AddButton)->setEnabled(complete);
    Cmdtemplate_(EditButton)->setEnabled(complete && Selected() > 0);
    Cmdtemplate_(DeleteButton)->setEnabled(Selected() > 0);
}

void TemplateTab::ListTemplate_Click() {
    if (const int i = Selected(); i > 0) {
        txtTemplate_->SetText(Test().TemplateAnswerText(i));
        txtValueTemplate_->setText(QString::number(Test().TemplateAnswerValue(i)));
    }
    UpdateButtons();
}

void TemplateTab::Cmdtemplate_Click(int index) {
    // The entries shown may be those of a test that the document doesn't hold any more.
    if (index != AddButton && Selected() > Test().TemplateAnswerCount)
        return RefreshFromTest();
    if (index == AddButton)
        AddTyped();
    else if (index == EditButton)
        EditSelected();
    else
        DeleteSelected();
    Q_EMIT Changed();
}

void TemplateTab::AddTyped() {
    // The message doesn't stop the store, and stands before it.
    if (TemplateIsFull(Test()))
        Parts().Boxes.Inform(OnlySoManyAnswers);
    AddTemplateAnswer(Test(), txtTemplate_->Text(), *txtValueTemplate_->Number());
    EmptyBoxes();
    FillList();
    txtTemplate_->setFocus(Qt::OtherFocusReason);
}

void TemplateTab::EditSelected() {
    const int i = Selected();
    EditTemplateAnswer(Test(), i, txtTemplate_->Text(), *txtValueTemplate_->Number());
    FillList();
    ListTemplate_->setCurrentRow(i - 1);
}

void TemplateTab::DeleteSelected() {
    const int i = Selected();
    DeleteTemplateAnswer(Test(), i);
    EmptyBoxes();
    FillList();
    if (Test().TemplateAnswerCount == 0)
        return txtTemplate_->setFocus(Qt::OtherFocusReason);
    // The next one is at hand for the arrow keys and the space bar, and not yet selected.
    ListTemplate_->setCurrentRow(qMin(i, Test().TemplateAnswerCount) - 1, QItemSelectionModel::NoUpdate);
    ListTemplate_->setFocus(Qt::OtherFocusReason);
}
