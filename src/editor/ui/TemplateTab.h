#pragma once

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

  private:
    QWidget* MakeBoxes();
    QLayout* MakeButtonRow();

    /// The answer that is selected, 0 for none.
    int Selected() const;
    void FillList();
    void EmptyBoxes();
    void UpdateButtons();

    void ListTemplate_Click();
    void Cmdtemplate_Click(int index);
    void AddTyped();
    void EditSelected();
    void DeleteSelected();

    TextBox* txtTemplate_ = nullptr;
    NumberBox* txtValueTemplate_ = nullptr;
    EntryList* ListTemplate_ = nullptr;
    /// Add, Delete and Edit are 0 to 2.
    ButtonArray Cmdtemplate_;
};
