#pragma once

#include "export/workbook/Workbook.h"
#include "export/workbook/WorkbookLock.h"
#include "platform/Launcher.h"

#include <QDateTime>

#include <optional>

/// What the built-in spreadsheet works with.
struct BuiltInSpreadsheetParts {
    /// Shows a saved workbook; nothing is shown without it.
    Launcher* Programs = nullptr;
    QString Viewer;
    /// Called many times a second while another copy of Vellumo has the workbook, so that windows stay painted.
    std::function<void()> WhileWaiting;
    int PatienceMilliseconds = 10'000;
};

/// Stands in for the spreadsheet application where there is none to be driven: reads and writes workbooks by itself. A
/// workbook is locked from its opening to the end of its saving, also one that isn't there yet. What exists and can't
/// be read as a workbook is never replaced. Being made visible shows what was saved, in a program of the user's.
class BuiltInSpreadsheet : public SpreadsheetApplication {
  public:
    explicit BuiltInSpreadsheet(BuiltInSpreadsheetParts parts) : parts_(std::move(parts)) {}

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
    void TakeLock(const QString& path);
    void Write();
    Workbook& Active();
    template <typename Step> auto Reading(Step step);

    BuiltInSpreadsheetParts parts_;
    std::optional<WorkbookLock> lock_;
    std::unique_ptr<Workbook> workbook_;
    bool changed_ = false;
    /// Of the active workbook; empty for a new one.
    QString path_;
    /// When the workbook was read, how large the file was and when it was changed last.
    qint64 sizeRead_ = 0;
    QDateTime changeRead_;
    /// What couldn't be opened last, and why.
    QString refusedPath_;
    QString refusal_;
    QString savedPath_;
};
