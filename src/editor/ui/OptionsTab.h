#pragma once

#include "editor/ui/EditorOptionChecks.h"
#include "editor/ui/EditorTab.h"

/// The page "Options": what the text report holds, and how the test behaves. Its Changed() is about the test's
/// behaviour only; the report's options speak for themselves.
class OptionsTab : public EditorTab {
    Q_OBJECT

  public:
    OptionsTab(const EditorParts& parts, EditorOptionChecks& checks);

    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;

  private:
    QGroupBox* MakeReportOptions();
    QGroupBox* MakeTestOptions();
    void ChkTestOptions_Click(int i);

    EditorOptionChecks& ChkReportOptions_;
    std::array<QCheckBox*, 2> ChkTestOptions_{};
};
