#pragma once

#include "editor/SubscaleEdits.h"
#include "editor/ui/BoxForm.h"
#include "editor/ui/ButtonArray.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/EntryList.h"
#include "editor/ui/TextBox.h"

#include <QGroupBox>
#include <QLineEdit>

/// The page "Sub-Scales": the sub-scales and, for each, the ranges of its score.
class SubscalesTab : public EditorTab {
    Q_OBJECT

  public:
    explicit SubscalesTab(const EditorParts& parts);

    void RefreshFromTest() override;
    /// Subscale and SubscaleRange.
    void GoTo(const TestPlace& place) override;
    std::vector<EntryForm*> Forms() override;
    void ShowTyped(const TypedEntry& typed) override;

  Q_SIGNALS:
    /// A button has done its work: whoever lists the sub-scales lists them again.
    void SubscalesChanged();

  private:
    /// The places of CmdSubScaleAdd.
    enum Action { Add, Delete, AddRange, DeleteRange, Edit, EditRange, ClearRange };

    void MakeControls();
    QGroupBox* MakeNameFrame();
    QGroupBox* MakeAnalysisFrame();

    void MakeForms();

    void CmdSubScaleAdd_Click(int index);
    void ListSubScale_Click();
    void ListSubScaleSig_Click();

    bool Perform(Action action);
    void FocusAfter(Action action);
    void ShowSubscale(int s);
    void ShowRange(int r);
    void ShowNames();
    void ShowRanges();
    void TakeStoredName(const TestPlace& place, bool added);
    void TakeStoredRange(const TestPlace& place, bool added);
    void EnableButtons();

    QLineEdit* txtSubScale_ = nullptr;
    EntryList* ListSubScale_ = nullptr;
    ButtonArray CmdSubScaleAdd_;
    QLineEdit* txtSubScaleSigLow_ = nullptr;
    QLineEdit* txtSubScaleSigHigh_ = nullptr;
    TextBox* txtSubScaleSig_ = nullptr;
    EntryList* ListSubScaleSig_ = nullptr;
    BoxForm* names_ = nullptr;
    BoxForm* ranges_ = nullptr;
};
