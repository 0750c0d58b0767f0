#include "editor/ui/SubscalesTab.h"

#include "editor/ui/RangeFrame.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QGridLayout>

#include <limits>

namespace {

constexpr int VisibleLines = 4;
constexpr int TextLines = 2;

/// A box that never cuts what is pasted.
QLineEdit* MakeBox(const QString& name) {
    auto* box = Named(new QLineEdit, name);
    box->setMaxLength(std::numeric_limits<int>::max());
    return box;
}

} // namespace

SubscalesTab::SubscalesTab(const EditorParts& parts)
    : EditorTab(parts),
      CmdSubScaleAdd_(QStringLiteral("CmdSubScaleAdd"), [this](int index) { CmdSubScaleAdd_Click(index); }) {
    MakeControls();
    MakeForms();
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(MakeNameFrame(), 2);
    column->addWidget(MakeAnalysisFrame(), 3);
    RefreshFromTest();
}

void SubscalesTab::MakeControls() {
    txtSubScale_ = MakeBox(QStringLiteral("txtSubScale"));
    txtSubScaleSigLow_ = MakeBox(QStringLiteral("txtSubScaleSigLow"));
    txtSubScaleSigHigh_ = MakeBox(QStringLiteral("txtSubScaleSigHigh"));
    txtSubScaleSig_ = Named(new TextBox(TextBox::Form::OneParagraph, TextLines), QStringLiteral("txtSubScaleSig"));
    ListSubScale_ = Named(new EntryList(VisibleLines), QStringLiteral("ListSubScale"));
    ListSubScaleSig_ = Named(new EntryList(VisibleLines), QStringLiteral("ListSubScaleSig"));

    const QString add = QStringLiteral("Add");
    const QString remove = QStringLiteral("Delete");
    const QString edit = QStringLiteral("Edit");
    const QStringList captions{add, remove, add, remove, edit, edit, QStringLiteral("Clear")};
    for (int i = 0; i < captions.size(); ++i) {
        const bool ofNames = i == Add || i == Delete || i == Edit;
        const QString what = ofNames ? QStringLiteral(" sub-scale") : QStringLiteral(" range");
        CmdSubScaleAdd_.Make(i, captions[i], captions[i] + what);
    }
    connect(ListSubScale_, &EntryList::ChoiceChanged, this, &SubscalesTab::ListSubScale_Click);
    connect(ListSubScaleSig_, &EntryList::ChoiceChanged, this, &SubscalesTab::ListSubScaleSig_Click);
}

QGroupBox* SubscalesTab::MakeNameFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Sub-scale Name"));
    auto* grid = new QGridLayout(frame);
    SetRoom(*grid, 2, 1);
    grid->setColumnStretch(0, 1);
    txtSubScale_->setAccessibleName(frame->title());
    ListSubScale_->setAccessibleName(QStringLiteral("Sub-Scales"));
    int place = 0;
    grid->addWidget(txtSubScale_, 0, place);
    for (const Action action : {Add, Edit, Delete})
        grid->addWidget(CmdSubScaleAdd_(action), 0, ++place);
    grid->addWidget(ListSubScale_, 1, 0, 1, place + 1);
    grid->setRowStretch(1, 1);
    return frame;
}

QGroupBox* SubscalesTab::MakeAnalysisFrame() {
    return MakeRangeFrame(QStringLiteral("Sub-Scale Analysis"),
                          {QStringLiteral("Sub-scale score range "),
                           QStringLiteral("reports text"),
                           txtSubScaleSigLow_,
                           txtSubScaleSigHigh_,
                           txtSubScaleSig_,
                           {CmdSubScaleAdd_(AddRange), CmdSubScaleAdd_(EditRange), CmdSubScaleAdd_(DeleteRange),
                            CmdSubScaleAdd_(ClearRange)},
                           ListSubScaleSig_});
}

void SubscalesTab::MakeForms() {
    names_ = new BoxForm(Test(), TestPlace::Subscale, {txtSubScale_});
    ranges_ = new BoxForm(Test(), TestPlace::SubscaleRange, {txtSubScaleSig_, txtSubScaleSigLow_, txtSubScaleSigHigh_});
    for (BoxForm* form : {names_, ranges_}) {
        form->setParent(this);
        connect(form, &BoxForm::ContentsChanged, this, &SubscalesTab::EnableButtons);
        connect(form, &BoxForm::Edited, this, &SubscalesTab::Typed);
    }
    connect(names_, &BoxForm::StoredInTest, this, &SubscalesTab::TakeStoredName);
    connect(ranges_, &BoxForm::StoredInTest, this, &SubscalesTab::TakeStoredRange);
}

// A range waits for a sub-scale that isn't there yet.
std::vector<EntryForm*> SubscalesTab::Forms() {
    if (ranges_->Place().Index == 0)
        return {names_, ranges_};
    return {ranges_, names_};
}

void SubscalesTab::RefreshFromTest() {
    ShowNames();
    ShowSubscale(0);
}

void SubscalesTab::GoTo(const TestPlace& place) {
    ListSubScale_->Choose(place.Index);
    ShowSubscale(place.Index);
    if (place.What != TestPlace::SubscaleRange) {
        FocusToTypeOver(*txtSubScale_);
        return;
    }
    ListSubScaleSig_->Choose(place.SubIndex);
    ShowRange(place.SubIndex);
    FocusToTypeOver(*txtSubScaleSigLow_);
}

void SubscalesTab::ShowTyped(const TypedEntry& typed) {
    const TestPlace& place = typed.Place;
    if (place.What == TestPlace::Subscale || place.Index != names_->Number()) {
        ListSubScale_->Choose(place.Index);
        ShowSubscale(place.Index);
    }
    if (place.What == TestPlace::Subscale)
        return names_->ShowTyped(typed);
    ListSubScaleSig_->Choose(place.SubIndex);
    ranges_->ShowTyped(typed);
}

void SubscalesTab::CmdSubScaleAdd_Click(int index) {
    const auto action = static_cast<Action>(index);
    if (!Perform(action))
        return;
    FocusAfter(action);
    if (action != Add && action != Edit)
        Q_EMIT SubscalesChanged();
}

// A range that was typed before there was a sub-scale for it goes with the one that is added.
bool SubscalesTab::Perform(Action action) {
    Prompts& prompts = Parts().Boxes;
    switch (action) {
    case Add:
        return (names_->Number() == 0 || ranges_->Settle(prompts)) && names_->Add(prompts);
    case Edit:
        return names_->Store(prompts);
    case Delete:
        DeleteSubscale(Test(), names_->Number());
        ShowNames();
        names_->TakeAsStored({TestPlace::Subscale, 0, 0});
        break;
    case AddRange:
        if (!ranges_->Add(prompts))
            return false;
        break;
    case EditRange:
        if (!ranges_->Store(prompts))
            return false;
        break;
    case DeleteRange:
        DeleteSubscaleRange(Test(), names_->Number(), ranges_->Number());
        break;
    case ClearRange:
        if (!ranges_->Settle(prompts))
            return false;
        break;
    }
    ShowRanges();
    if (action == Delete || action == DeleteRange)
        Q_EMIT Changed();
    return true;
}

// To where the person goes on: to the name or range that is typed next, and after a deletion to what is left.
void SubscalesTab::FocusAfter(Action action) {
    if (action == Delete && ListSubScale_->count() > 0)
        ListSubScale_->setFocus(Qt::OtherFocusReason);
    else if (action == DeleteRange && ListSubScaleSig_->count() > 0)
        ListSubScaleSig_->setFocus(Qt::OtherFocusReason);
    else if (action == Add || action == Edit || action == Delete)
        FocusToTypeOver(*txtSubScale_);
    else
        FocusToTypeOver(*txtSubScaleSigLow_);
}

void SubscalesTab::ListSubScale_Click() {
    const int s = ListSubScale_->Chosen();
    const bool settled = Settle();
    ListSubScale_->Choose(settled ? s : names_->Number());
    if (settled)
        ShowSubscale(s);
}

void SubscalesTab::ListSubScaleSig_Click() {
    const int r = ListSubScaleSig_->Chosen();
    if (!ranges_->Settle(Parts().Boxes))
        return ListSubScaleSig_->Choose(ranges_->Number());
    ShowRange(r);
}

/// s: 0 for a new one.
void SubscalesTab::ShowSubscale(int s) {
    names_->Show({TestPlace::Subscale, s, 0});
    ShowRanges();
}

/// r: 0 for a new one.
void SubscalesTab::ShowRange(int r) {
    const TestPlace place{TestPlace::SubscaleRange, names_->Number(), r};
    if (r > 0)
        ranges_->Show(place);
    else
        ranges_->TakeAsStored(place);
    EnableButtons();
}

void SubscalesTab::ShowNames() {
    QStringList names;
    for (int s = 1; s <= Test().SubscaleCount; ++s)
        names.append(Test().SubscaleName(s));
    ListSubScale_->SetEntries(names);
}

void SubscalesTab::ShowRanges() {
    const int s = names_->Number();
    QStringList items;
    for (int r = 1; s > 0 && r <= Test().SubscaleRangeCount(s); ++r)
        items.append(SubscaleRangeItem(Test(), s, r));
    ListSubScaleSig_->SetEntries(items);
    ranges_->Show({TestPlace::SubscaleRange, s, 0});
}

void SubscalesTab::TakeStoredName(const TestPlace& place, bool added) {
    if (added) {
        ListSubScale_->AppendEntry(txtSubScale_->text());
        ListSubScale_->Choose(place.Index);
        if (ranges_->IsChanged())
            ranges_->TakeAsTyped({TestPlace::SubscaleRange, place.Index, 0});
        else
            ShowRanges();
    } else {
        ListSubScale_->SetEntry(place.Index, txtSubScale_->text());
    }
    EnableButtons();
    Q_EMIT Changed();
    Q_EMIT SubscalesChanged();
}

void SubscalesTab::TakeStoredRange(const TestPlace& place, bool added) {
    const QString item = SubscaleRangeItem(Test(), place.Index, place.SubIndex);
    if (added)
        ListSubScaleSig_->AppendEntry(item);
    else
        ListSubScaleSig_->SetEntry(place.SubIndex, item);
    EnableButtons();
    Q_EMIT Changed();
}

void SubscalesTab::EnableButtons() {
    const bool subscale = names_->Number() > 0;
    const bool name = !txtSubScale_->text().isEmpty();
    CmdSubScaleAdd_(Add)->setEnabled(name);
    CmdSubScaleAdd_(Edit)->setEnabled(name && subscale);
    CmdSubScaleAdd_(Delete)->setEnabled(subscale);

    const bool range = ranges_->Number() > 0;
    const int filled = !txtSubScaleSigLow_->text().isEmpty() + !txtSubScaleSigHigh_->text().isEmpty() +
                       !txtSubScaleSig_->document()->isEmpty();
    CmdSubScaleAdd_(AddRange)->setEnabled(subscale && filled == 3);
    CmdSubScaleAdd_(EditRange)->setEnabled(subscale && range && filled == 3);
    CmdSubScaleAdd_(DeleteRange)->setEnabled(range);
    CmdSubScaleAdd_(ClearRange)->setEnabled(filled > 0);
}
