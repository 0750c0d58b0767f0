#pragma once

#include "editor/ui/BoxForm.h"
#include "editor/ui/ButtonArray.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/EntryList.h"
#include "editor/ui/NumberBox.h"
#include "editor/ui/TextBox.h"

/// The page on which the answer template is written: the answers that all questions of type Template share.
class TemplateTab : public EditorTab {
    Q_OBJECT

  public:
    explicit TemplateTab(const EditorParts& parts);

    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;
    std::vector<EntryForm*> Forms() override { return {form_}; }
    void ShowTyped(const TypedEntry& typed) override;

  private:
    QWidget* MakeBoxes();
    QLayout* MakeButtonRow();

    void FillList();
    void UpdateButtons();
    void TakeStored(const TestPlace& place, bool added);

    void ListTemplate_Click();
    void Cmdtemplate_Click(int index);
    void AddTyped();
    void DeleteSelected();

    TextBox* txtTemplate_ = nullptr;
    NumberBox* txtValueTemplate_ = nullptr;
    EntryList* ListTemplate_ = nullptr;
    BoxForm* form_ = nullptr;
    /// Add, Delete and Edit are 0 to 2.
    ButtonArray Cmdtemplate_;
};
