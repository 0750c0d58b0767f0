#include "editor/ui/AnalysisTab.h"

#include "editor/TotalRangeEdits.h"
#include "editor/ui/RangeFrame.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QVBoxLayout>

namespace {

constexpr int VisibleLines = 8;
constexpr int TextLines = 3;

} // namespace

AnalysisTab::AnalysisTab(const EditorParts& parts)
    : EditorTab(parts), CmdTotalAdd_(QStringLiteral("CmdTotalAdd"), [this](int index) { CmdTotalAdd_Click(index); }) {
    MakeControls();
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(MakeRangeFrame(QStringLiteral("Total Score Analysis"),
                                     {QStringLiteral("Total score range"),
                                      QStringLiteral("reports text "),
                                      txtTotLow_,
                                      txtTotHigh_,
                                      txtTotText_,
                                      {CmdTotalAdd_(Add), CmdTotalAdd_(Edit), CmdTotalAdd_(Delete)},
                                      ListTotalAnalysis_}));
    RefreshFromTest();
}

void AnalysisTab::MakeControls() {
    txtTotLow_ = Named(new NumberBox(Parts().Boxes), QStringLiteral("txtTotLow"));
    txtTotHigh_ = Named(new NumberBox(Parts().Boxes), QStringLiteral("txtTotHigh"));
    txtTotText_ = Named(new TextBox(TextBox::Form::OneParagraph, TextLines), QStringLiteral("txtTotText"));
    ListTotalAnalysis_ = Named(new EntryList(VisibleLines), QStringLiteral("ListTotalAnalysis"));
    const QStringList captions{QStringLiteral("Add"), QStringLiteral("Delete"), QStringLiteral("Edit")};
    for (int i = 0; i < captions.size(); ++i)
        CmdTotalAdd_.Make(i, captions[i], captions[i] + QStringLiteral(" range"));
    form_ = new BoxForm(Test(), TestPlace::TotalRange, {txtTotText_, txtTotLow_, txtTotHigh_});
    form_->setParent(this);
    connect(form_, &BoxForm::ContentsChanged, this, &AnalysisTab::EnableButtons);
    connect(form_, &BoxForm::Edited, this, &AnalysisTab::Typed);
    connect(form_, &BoxForm::StoredInTest, this, &AnalysisTab::TakeStored);
    connect(ListTotalAnalysis_, &EntryList::ChoiceChanged, this, &AnalysisTab::ListTotalAnalysis_Click);
}

void AnalysisTab::RefreshFromTest() {
    ShowRanges();
    form_->Show({TestPlace::TotalRange, 0, 0});
}

void AnalysisTab::GoTo(const TestPlace& place) {
    ListTotalAnalysis_->Choose(place.SubIndex);
    form_->Show(place);
    FocusToTypeOver(*txtTotLow_);
}

void AnalysisTab::ShowTyped(const TypedEntry& typed) {
    ListTotalAnalysis_->Choose(typed.Place.SubIndex);
    form_->ShowTyped(typed);
}

void AnalysisTab::CmdTotalAdd_Click(int index) {
    const int r = form_->Number();
    if (index == Delete) {
        DeleteTotalRange(Test(), r);
        Q_EMIT Changed();
    } else if (!(index == Add ? form_->Add(Parts().Boxes) : form_->Store(Parts().Boxes))) {
        return;
    }
    // None is chosen then, and the boxes are ready for the next one.
    ShowRanges();
    form_->TakeAsStored({TestPlace::TotalRange, 0, 0});
    EnableButtons();
    if (index == Delete && ListTotalAnalysis_->count() > 0)
        ListTotalAnalysis_->setFocus(Qt::OtherFocusReason);
    else
        form_->FocusToTypeOver();
}

void AnalysisTab::ListTotalAnalysis_Click() {
    const int r = ListTotalAnalysis_->Chosen();
    if (!Settle())
        return ListTotalAnalysis_->Choose(form_->Number());
    if (r > 0)
        form_->Show({TestPlace::TotalRange, 0, r});
    else
        form_->TakeAsStored({TestPlace::TotalRange, 0, 0});
    EnableButtons();
}

void AnalysisTab::TakeStored(const TestPlace& place, bool added) {
    const QString item = TotalRangeItem(Test(), place.SubIndex);
    if (added)
        ListTotalAnalysis_->AppendEntry(item);
    else
        ListTotalAnalysis_->SetEntry(place.SubIndex, item);
    Q_EMIT Changed();
}

void AnalysisTab::ShowRanges() {
    QStringList ranges;
    for (int r = 1; r <= Test().TotalRangeCount; ++r)
        ranges.append(TotalRangeItem(Test(), r));
    ListTotalAnalysis_->SetEntries(ranges);
}

void AnalysisTab::EnableButtons() {
    const bool range = form_->Number() > 0;
    const bool complete = !txtTotText_->document()->isEmpty() && txtTotLow_->Number() && txtTotHigh_->Number();
    CmdTotalAdd_(Add)->setEnabled(complete);
    CmdTotalAdd_(Edit)->setEnabled(complete && range);
    CmdTotalAdd_(Delete)->setEnabled(range);
}
