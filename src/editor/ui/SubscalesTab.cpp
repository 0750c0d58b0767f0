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
    for (const QLineEdit* box : {txtSubScale_, txtSubScaleSigLow_, txtSubScaleSigHigh_})
        connect(box, &QLineEdit::textChanged, this, &SubscalesTab::EnableButtons);
    connect(txtSubScaleSig_, &TextBox::Edited, this, &SubscalesTab::EnableButtons);
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

void SubscalesTab::RefreshFromTest() {
    txtSubScale_->clear();
    ShowNames();
    ShowRanges();
}

void SubscalesTab::GoTo(const TestPlace& place) {
    ListSubScale_->Choose(place.Index);
    ListSubScale_Click();
    if (place.What != TestPlace::SubscaleRange) {
        FocusToTypeOver(*txtSubScale_);
        return;
    }
    ListSubScaleSig_->Choose(place.SubIndex);
    ListSubScaleSig_Click();
    FocusToTypeOver(*txtSubScaleSigLow_);
}

void SubscalesTab::CmdSubScaleAdd_Click(int index) {
    const auto action = static_cast<Action>(index);
    // The entries shown may be those of a test that the document doesn't hold any more.
    if (ListSubScale_->count() != Test().SubscaleCount) {
        ShowNames();
        if (action != Add)
            return RefreshFromTest();
    }
    if (const Result result = Perform(action); !result) {
        Parts().Boxes.Inform(result.Message());
        return;
    }
    ShowRanges();
    FocusAfter(action);
    if (action != ClearRange)
        Q_EMIT Changed();
    Q_EMIT SubscalesChanged();
}

Result SubscalesTab::Perform(Action action) {
    const int s = ListSubScale_->Chosen();
    const int r = ListSubScaleSig_->Chosen();
    switch (action) {
    case Add:
        return AddNamed();
    case Edit:
        RenameSubscale(Test(), s, txtSubScale_->text());
        ListSubScale_->item(s - 1)->setText(txtSubScale_->text());
        break;
    case Delete:
        DeleteSubscale(Test(), s);
        ShowNames();
        break;
    case AddRange:
        return AddSubscaleRange(Test(), s, TypedRange());
    case EditRange:
        EditSubscaleRange(Test(), s, r, TypedRange());
        break;
    case DeleteRange:
        DeleteSubscaleRange(Test(), s, r);
        break;
    case ClearRange:
        break;
    }
    return Result::Done();
}

Result SubscalesTab::AddNamed() {
    const Result result = AddSubscale(Test(), txtSubScale_->text());
    if (result) {
        ListSubScale_->AppendEntry(txtSubScale_->text());
        ListSubScale_->Choose(Test().SubscaleCount);
    }
    return result;
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
    if (const int s = ListSubScale_->Chosen(); s > 0)
        txtSubScale_->setText(Test().SubscaleName(s));
    ShowRanges();
}

void SubscalesTab::ListSubScaleSig_Click() {
    const int s = ListSubScale_->Chosen();
    if (const int r = ListSubScaleSig_->Chosen(); r > 0) {
        txtSubScaleSigLow_->setText(Test().SubscaleRangeLow(s, r).Text());
        txtSubScaleSigHigh_->setText(Test().SubscaleRangeHigh(s, r).Text());
        txtSubScaleSig_->SetText(Test().SubscaleRangeText(s, r));
    }
    EnableButtons();
}

void SubscalesTab::ShowNames() {
    QStringList names;
    for (int s = 1; s <= Test().SubscaleCount; ++s)
        names.append(Test().SubscaleName(s));
    ListSubScale_->SetEntries(names);
}

void SubscalesTab::ShowRanges() {
    txtSubScaleSigLow_->clear();
    txtSubScaleSigHigh_->clear();
    txtSubScaleSig_->SetText({});
    QStringList ranges;
    if (const int s = ListSubScale_->Chosen(); s > 0)
        for (int r = 1; r <= Test().SubscaleRangeCount(s); ++r)
            ranges.append(SubscaleRangeItem(Test(), s, r));
    ListSubScaleSig_->SetEntries(ranges);
    EnableButtons();
}

void SubscalesTab::EnableButtons() {
    const bool subscale = ListSubScale_->Chosen() > 0;
    const bool name = !txtSubScale_->text().isEmpty();
    CmdSubScaleAdd_(Add)->setEnabled(name);
    CmdSubScaleAdd_(Edit)->setEnabled(name && subscale);
    CmdSubScaleAdd_(Delete)->setEnabled(subscale);

    const bool range = ListSubScaleSig_->Chosen() > 0;
    const int filled = !txtSubScaleSigLow_->text().isEmpty() + !txtSubScaleSigHigh_->text().isEmpty() +
                       !txtSubScaleSig_->document()->isEmpty();
    CmdSubScaleAdd_(AddRange)->setEnabled(subscale && filled == 3);
    CmdSubScaleAdd_(EditRange)->setEnabled(subscale && range && filled == 3);
    CmdSubScaleAdd_(DeleteRange)->setEnabled(range);
    CmdSubScaleAdd_(ClearRange)->setEnabled(filled > 0);
}

RangeBoxes SubscalesTab::TypedRange() const {
    return {txtSubScaleSigLow_->text(), txtSubScaleSigHigh_->text(), txtSubScaleSig_->Text()};
}
