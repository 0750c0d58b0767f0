#pragma once

#include "editor/ui/EditorOptionChecks.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/FieldBox.h"

#include <QPushButton>

/// The page "Export": what a row of results holds and in which workbook it goes, and the way to a web page. Its
/// Changed() is about the texts only; the options speak for themselves.
class ExportTab : public EditorTab {
    Q_OBJECT

  public:
    ExportTab(const EditorParts& parts, EditorOptionChecks& checks);

    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;
    /// Whether there is a test that can be saved as a page.
    void SetHtmlExportEnabled(bool enabled) { CmdSaveHtml_->setEnabled(enabled); }

  Q_SIGNALS:
    void ExportHtmlWanted();

  private:
    QGroupBox* MakeFileNameFrame();
    QGroupBox* MakeDirectoriesFrame();
    QGroupBox* MakeHtmlFrame();

    EditorOptionChecks& ChkReportOptions_;
    FieldBox* txtautosavedirectory1_ = nullptr;
    FieldBox* txtautosavedirectory2_ = nullptr;
    QPushButton* CmdSaveHtml_ = nullptr;
};
