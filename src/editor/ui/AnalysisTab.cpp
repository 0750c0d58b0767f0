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
    connect(txtTotLow_, &QLineEdit::textChanged, this, &AnalysisTab::EnableButtons);
    connect(txtTotHigh_, &QLineEdit::textChanged, this, &AnalysisTab::EnableButtons);
    connect(txtTotText_, &TextBox::Edited, this, &AnalysisTab::EnableButtons);
    connect(ListTotalAnalysis_, &EntryList::ChoiceChanged, this, &AnalysisTab::ListTotalAnalysis_Click);
}

void AnalysisTab::RefreshFromTest() {
    txtTotLow_->clear();
    txtTotHigh_->clear();
    txtTotText_->SetText({});
    ShowRanges();
}

void AnalysisTab::GoTo(const TestPlace& place) {
    ListTotalAnalysis_->Choose(place.SubIndex);
    ListTotalAnalysis_Click();
    FocusToTypeOver(*txtTotLow_);
}

void AnalysisTab::CmdTotalAdd_Click(int index) {
    const int r = ListTotalAnalysis_->Chosen();
    // The entries shown may be those of a test that the document doesn't hold any more.
    if (index != Add && r > Test().TotalRangeCount)
        return RefreshFromTest();
    if (index == Delete) {
        DeleteTotalRange(Test(), r);
    } else {
        // The button is enabled only with both bounds numbers.
        const int low = txtTotLow_->Number().value();
        const int high = txtTotHigh_->Number().value();
        if (index == Edit) {
            EditTotalRange(Test(), r, low, high, txtTotText_->Text());
        } else if (const Result result = AddTotalRange(Test(), low, high, txtTotText_->Text()); !result) {
            Parts().Boxes.Inform(result.Message());
            return;
        }
    }
    ShowRanges();
    if (index == Delete && ListTotalAnalysis_->count() > 0) {
        ListTotalAnalysis_->setFocus(Qt::OtherFocusReason);
    } else {
        txtTotText_->selectAll();
        txtTotHigh_->selectAll();
        FocusToTypeOver(*txtTotLow_);
    }
    Q_EMIT Changed();
}

void AnalysisTab::ListTotalAnalysis_Click() {
    if (const int r = ListTotalAnalysis_->Chosen(); r > 0) {
        txtTotLow_->setText(QString::number(Test().TotalRangeLow(r)));
        txtTotHigh_->setText(QString::number(Test().TotalRangeHigh(r)));
        txtTotText_->SetText(Test().TotalRangeText(r));
    }
    EnableButtons();
}

void AnalysisTab::ShowRanges() {
    QStringList ranges;
    for (int r = 1; r <= Test().TotalRangeCount; ++r)
        ranges.append(TotalRangeItem(Test(), r));
    ListTotalAnalysis_->SetEntries(ranges);
    EnableButtons();
}

void AnalysisTab::EnableButtons() {
    const bool range = ListTotalAnalysis_->Chosen() > 0;
    const bool complete = !txtTotText_->document()->isEmpty() && txtTotLow_->Number() && txtTotHigh_->Number();
    CmdTotalAdd_(Add)->setEnabled(complete);
    CmdTotalAdd_(Edit)->setEnabled(complete && range);
    CmdTotalAdd_(Delete)->setEnabled(range);
}
