#include "editor/ui/AutomationTab.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

AutomationTab::AutomationTab(const EditorParts& parts, EditorOptionChecks& checks)
    : EditorTab(parts), ChkReportOptions_(checks) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(ChkReportOptions_.MakeFrame(EditorOptionFrame::Automation));
    column->addWidget(ChkReportOptions_.MakeFrame(EditorOptionFrame::AutomaticReporting, MakeFields()));
    column->addStretch(1);
    RefreshFromTest();
}

QLayout* AutomationTab::MakeFields() {
    txtautosavedirectory0_ = Named(new FieldBox(Test().ReportDirectory), QStringLiteral("txtautosavedirectory_0"));
    Text1_ = Named(new FieldBox(Test().AutosaveFileName), QStringLiteral("Text1"));
    for (const FieldBox* box : {txtautosavedirectory0_, Text1_})
        connect(box, &FieldBox::Changed, this, &AutomationTab::Changed);
    auto* fields = new QVBoxLayout;
    fields->setSpacing(GridUnit);
    fields->addLayout(MakeFieldRow(QStringLiteral("Base directory for reports"), txtautosavedirectory0_,
                                   MakeDirectoryButton(Parts(), txtautosavedirectory0_, QStringLiteral("Command3_0"))));
    fields->addLayout(MakeFieldRow(QStringLiteral("Specify a file name:"), Text1_));
    return fields;
}

void AutomationTab::RefreshFromTest() {
    ChkReportOptions_.RefreshFromTest();
    txtautosavedirectory0_->RefreshFromTest();
    Text1_->RefreshFromTest();
}

void AutomationTab::GoTo(const TestPlace& place) {
    (place.What == TestPlace::ReportDirectory ? txtautosavedirectory0_ : Text1_)->FocusToTypeOver();
}
