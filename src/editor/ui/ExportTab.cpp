#include "editor/ui/ExportTab.h"

#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

ExportTab::ExportTab(const EditorParts& parts, EditorOptionChecks& checks)
    : EditorTab(parts), ChkReportOptions_(checks) {
    auto* columns = new QHBoxLayout(this);
    SetRoom(*columns, 2, 2);
    auto* left = new QVBoxLayout;
    left->setSpacing(2 * GridUnit);
    left->addWidget(ChkReportOptions_.MakeFrame(EditorOptionFrame::IncludeInExport));
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->setSpacing(2 * GridUnit);
    right->addWidget(MakeFileNameFrame());
    right->addWidget(MakeDirectoriesFrame());
    right->addWidget(MakeHtmlFrame());
    right->addStretch(1);
    columns->addLayout(left, 2);
    columns->addLayout(right, 3);
    RefreshFromTest();
}

QGroupBox* ExportTab::MakeFileNameFrame() {
    txtautosavedirectory2_ = Named(new FieldBox(Test().ExcelFileName), QStringLiteral("txtautosavedirectory_2"));
    connect(txtautosavedirectory2_, &FieldBox::Changed, this, &ExportTab::Changed);
    return ChkReportOptions_.MakeFrame(
        EditorOptionFrame::FileName,
        MakeFieldRow(QStringLiteral("Specify an Excel file name:"), txtautosavedirectory2_));
}

QGroupBox* ExportTab::MakeDirectoriesFrame() {
    txtautosavedirectory1_ = Named(new FieldBox(Test().ExcelDirectory), QStringLiteral("txtautosavedirectory_1"));
    connect(txtautosavedirectory1_, &FieldBox::Changed, this, &ExportTab::Changed);
    return ChkReportOptions_.MakeFrame(
        EditorOptionFrame::Directories,
        MakeFieldRow(QStringLiteral("Directory for reports"), txtautosavedirectory1_,
                     MakeDirectoryButton(Parts(), txtautosavedirectory1_, QStringLiteral("Command3_1"))));
}

QGroupBox* ExportTab::MakeHtmlFrame() {
    auto* frame = new QGroupBox;
    auto* line = new QHBoxLayout(frame);
    SetRoom(*line, 2, 1);
    CmdSaveHtml_ = Named(new QPushButton(QStringLiteral("Save Test As WWW Page")), QStringLiteral("CmdSaveHtml"));
    CmdSaveHtml_->setAutoDefault(true);
    CmdSaveHtml_->setMinimumWidth(CmdSaveHtml_->sizeHint().width() + 2 * GridUnit);
    connect(CmdSaveHtml_, &QPushButton::clicked, this, &ExportTab::ExportHtmlWanted);
    line->addWidget(CmdSaveHtml_);
    line->addStretch(1);
    return frame;
}

void ExportTab::RefreshFromTest() {
    ChkReportOptions_.RefreshFromTest();
    txtautosavedirectory1_->RefreshFromTest();
    txtautosavedirectory2_->RefreshFromTest();
}

void ExportTab::GoTo(const TestPlace& place) {
    (place.What == TestPlace::ExcelDirectory ? txtautosavedirectory1_ : txtautosavedirectory2_)->FocusToTypeOver();
}
