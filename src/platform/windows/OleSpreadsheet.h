#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/windows/Automation.h"

/// The spreadsheet application, driven by automation. A file that is there and that it couldn't open is never replaced.
/// An instance that was started for the purpose, was never made visible and isn't needed any longer ends by itself.
class OleSpreadsheet : public SpreadsheetApplication {
  public:
    /// Attaches to the running application, or starts it. Throws SpreadsheetError when it can't be had.
    OleSpreadsheet();

    void OpenWorkbook(const QString& path) override;
    void AddWorkbook() override;
    CellValue Cells(int row, int column) override;
    bool HasFormula(int row, int column) override;
    void SetCells(int row, int column, const CellValue& value) override;
    void SaveActiveWorkbookAs(const QString& path) override;
    void SaveActiveWorkbook() override;
    void SetVisible(bool visible) override;
    void SetUserControl(bool userControl) override;
    void Quit() override;

  private:
    // Before the application, so that it outlives it.
    ComApartment com_;
    AutomationObject application_;
    /// What couldn't be opened last, and why.
    QString refusedPath_;
    QString refusal_;
};

/// The text as it is handed to a cell: with an apostrophe before it, which the application takes off, when it would be
/// understood as something else than itself (a formula, a number, a date, a truth value, an error).
QString AsCellText(const QString& text);
