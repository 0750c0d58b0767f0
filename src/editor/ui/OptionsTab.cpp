#include "editor/ui/OptionsTab.h"

#include "platform/ui/Choosing.h"
#include "platform/ui/FramePairs.h"
#include "platform/ui/Named.h"
#include "platform/ui/Typography.h"

#include <QVBoxLayout>

OptionsTab::OptionsTab(const EditorParts& parts, EditorOptionChecks& checks)
    : EditorTab(parts), ChkReportOptions_(checks) {
    auto* column = new QVBoxLayout(this);
    SetRoom(*column, 2, 2);
    column->addWidget(MakeReportOptions());
    column->addWidget(MakeTestOptions());
    column->addStretch(1);
    RefreshFromTest();
}

QGroupBox* OptionsTab::MakeReportOptions() {
    auto* group = new QGroupBox(QStringLiteral("Report Options"));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 2);
    QList<QWidget*> frames;
    for (const auto frame : {EditorOptionFrame::General, EditorOptionFrame::Questions, EditorOptionFrame::Scoring,
                             EditorOptionFrame::Prompts})
        frames.append(ChkReportOptions_.MakeFrame(frame));
    column->addWidget(new FramePairs(frames));
    return group;
}

QGroupBox* OptionsTab::MakeTestOptions() {
    auto* group = new QGroupBox(QStringLiteral("Test Options"));
    auto* column = new QVBoxLayout(group);
    SetRoom(*column, 2, 1);
    const std::array<QString, 2> captions = {QStringLiteral("Allow Reporting Only When Test Completed"),
                                             QStringLiteral("Allow Navigation Buttons")};
    for (size_t i = 0; i < captions.size(); ++i) {
        ChkTestOptions_[i] = Named(new QCheckBox(captions[i]), QStringLiteral("ChkTestOptions_%1").arg(i + 1));
        connect(ChkTestOptions_[i], &QCheckBox::toggled, this,
                [this, i] { ChkTestOptions_Click(static_cast<int>(i) + 1); });
        column->addWidget(ChkTestOptions_[i]);
    }
    return group;
}

void OptionsTab::RefreshFromTest() {
    ChkReportOptions_.RefreshFromTest();
    ShowTicked(*ChkTestOptions_[0], Test().ReportOnlyWhenDone);
    ShowTicked(*ChkTestOptions_[1], Test().NavigationButtons);
}

void OptionsTab::GoTo(const TestPlace&) { ChkReportOptions_.Box(ReportTitle)->setFocus(Qt::OtherFocusReason); }

void OptionsTab::ChkTestOptions_Click(int i) {
    (i == 1 ? Test().ReportOnlyWhenDone : Test().NavigationButtons) =
        ChkTestOptions_[static_cast<size_t>(i - 1)]->isChecked();
    Q_EMIT Changed();
}
