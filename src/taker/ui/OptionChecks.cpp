#include "taker/ui/OptionChecks.h"

#include "platform/ui/FramePairs.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QVBoxLayout>

namespace {

QString CaptionOf(OptionFrame frame) {
    switch (frame) {
    case OptionFrame::Prompts:
        return QStringLiteral("Prompts");
    case OptionFrame::General:
        return QStringLiteral("General");
    case OptionFrame::Questions:
        return QStringLiteral("Questions");
    case OptionFrame::Scoring:
        return QStringLiteral("Scoring");
    }
    return {};
}

} // namespace

QCheckBox* OptionChecks::Make(const OptionBox& box) {
    auto* check = Named(new QCheckBox(box.Caption), QStringLiteral("ChkReportOptions_%1").arg(box.Index));
    check->setChecked(test_.TestOption(box.Index));
    check->setEnabled(OptionMatters(test_, box.Index));
    boxes_[box.Index] = check;
    return check;
}

QGroupBox* OptionChecks::MakeFrame(OptionFrame frame, const QList<OptionBox>& boxes) {
    auto* group = Named(new QGroupBox(CaptionOf(frame)), QStringLiteral("Frame") + CaptionOf(frame));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 1);
    for (const OptionBox& box : boxes)
        if (box.Frame == frame)
            column->addWidget(Make(box));
    column->addStretch(1);
    if (frame == OptionFrame::Scoring)
        group->setEnabled(ScoringMatters(test_));
    return group;
}

QWidget* OptionChecks::MakeReportFrames() {
    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    SetRoom(*column, 0, 2);
    column->addWidget(MakeFrame(OptionFrame::General, ReportOptionBoxes()));
    column->addWidget(MakeFrame(OptionFrame::Scoring, ReportOptionBoxes()));
    return new FramePairs({left, MakeFrame(OptionFrame::Questions, ReportOptionBoxes())});
}

OptionTicks OptionChecks::Ticks() const {
    OptionTicks ticks;
    for (const auto& [option, box] : boxes_)
        ticks[option] = box->isChecked();
    return ticks;
}
