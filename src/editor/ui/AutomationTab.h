#pragma once

#include "editor/ui/EditorOptionChecks.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/FieldBox.h"

/// The page "Automation": reports that are saved without anyone's help. Its Changed() is about the texts only; the
/// options speak for themselves.
class AutomationTab : public EditorTab {
    Q_OBJECT

  public:
    AutomationTab(const EditorParts& parts, EditorOptionChecks& checks);

    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;

  private:
    QLayout* MakeFields();

    EditorOptionChecks& ChkReportOptions_;
    FieldBox* txtautosavedirectory0_ = nullptr;
    FieldBox* Text1_ = nullptr;
};
