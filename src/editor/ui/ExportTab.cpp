#include "editor/ui/ExportTab.h"

#include "platform/ui/FramePairs.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

namespace {

/// The frames below each other, no higher than they are.
QWidget* Stacked(std::initializer_list<QWidget*> frames) {
    auto* stack = new QWidget;
    auto* column = new QVBoxLayout(stack);
    SetRoom(*column, 0, 2);
    for (QWidget* frame : frames)
        column->addWidget(frame);
    column->addStretch(1);
    return stack;
}

} // namespace

ExportTab::ExportTab(const EditorParts& parts, EditorOptionChecks& checks)
    : EditorTab(parts), ChkReportOptions_(checks) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(new FramePairs({Stacked({ChkReportOptions_.MakeFrame(EditorOptionFrame::IncludeInExport)}),
                                      Stacked({MakeFileNameFrame(), MakeDirectoriesFrame(), MakeHtmlFrame()})},
                                     2, 3));
    column->addStretch(1);
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
    frame->setAccessibleName(QStringLiteral("WWW page"));
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
