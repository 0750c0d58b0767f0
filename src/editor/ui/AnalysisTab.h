#pragma once

#include "editor/ui/BoxForm.h"
#include "editor/ui/ButtonArray.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/EntryList.h"
#include "editor/ui/NumberBox.h"
#include "editor/ui/TextBox.h"

/// The page "Analysis": the ranges of the total score.
class AnalysisTab : public EditorTab {
    Q_OBJECT

  public:
    explicit AnalysisTab(const EditorParts& parts);

    void RefreshFromTest() override;
    /// TotalRange.
    void GoTo(const TestPlace& place) override;
    std::vector<EntryForm*> Forms() override { return {form_}; }
    void ShowTyped(const TypedEntry& typed) override;

  private:
    /// The places of CmdTotalAdd.
    enum Action { Add, Delete, Edit };

    void MakeControls();
    void CmdTotalAdd_Click(int index);
    void ListTotalAnalysis_Click();
    void TakeStored(const TestPlace& place, bool added);
    void ShowRanges();
    void EnableButtons();

    NumberBox* txtTotLow_ = nullptr;
    NumberBox* txtTotHigh_ = nullptr;
    TextBox* txtTotText_ = nullptr;
    EntryList* ListTotalAnalysis_ = nullptr;
    BoxForm* form_ = nullptr;
    ButtonArray CmdTotalAdd_;
};
