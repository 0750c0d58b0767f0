#pragma once

#include "editor/ui/EditorTab.h"
#include "editor/ui/TextBox.h"

#include <QLineEdit>

/// The page "About Test": the test's title and its three long texts, each written to the document as it is typed.
class AboutTestTab : public EditorTab {
    Q_OBJECT

  public:
    explicit AboutTestTab(const EditorParts& parts);

    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;

  private:
    TextBox* MakeTextBox(const QString& name, QString TestDocument::*field);

    QLineEdit* txtTitle_ = nullptr;
    TextBox* txtIntroduction_ = nullptr;
    TextBox* txtInstructions_ = nullptr;
    TextBox* txtCompletion_ = nullptr;
};
