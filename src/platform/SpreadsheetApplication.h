#pragma once

#include "base/Failure.h"

#include <QDate>
#include <QString>

#include <functional>
#include <memory>
#include <variant>

/// What a cell holds: nothing, a number, a text (which stays a text, whatever it looks like) or a date.
using CellValue = std::variant<std::monostate, double, QString, QDate>;

/// What a spreadsheet application refuses, by number; Message() is its description.
class SpreadsheetError : public Failure {
  public:
    SpreadsheetError(int number, const QString& description) : Failure(description), number_(number) {}

    int Number() const { return number_; }

  private:
    int number_;
};

/// The number of "the workbook is open elsewhere".
inline constexpr int WorkbookOpenElsewhere = 462;
/// The number of "another Vellumo is writing the workbook".
inline constexpr int WorkbookHeldByVellumo = 463;
/// The number of "the workbook was saved, but", as the description says.
inline constexpr int WorkbookSavedBut = 464;
/// What the user is told where there is no such application.
inline const QString SpreadsheetNotInstalled = QStringLiteral("Excel does not appear to be installed");
/// The number of everything that has none of its own.
inline constexpr int SpreadsheetFailure = 1004;

/// The spreadsheet application, by the members that the export needs of it. Each of them throws SpreadsheetError. An
/// application that isn't needed any longer is destroyed; without Quit that leaves the workbook to its user.
class SpreadsheetApplication {
  public:
    virtual ~SpreadsheetApplication() = default;

    /// Workbooks.Open: makes the workbook at path the active one, and its active sheet the one that Cells speaks of.
    virtual void OpenWorkbook(const QString& path) = 0;
    /// Workbooks.Add: makes a new, empty workbook the active one.
    virtual void AddWorkbook() = 0;

    /// Cells(row, column) of the active sheet, both from 1. An empty text empties a cell.
    virtual CellValue Cells(int row, int column) = 0;
    /// Cells(row, column).HasFormula.
    virtual bool HasFormula(int row, int column) = 0;
    virtual void SetCells(int row, int column, const CellValue& value) = 0;

    /// ActiveWorkbook.SaveAs and ActiveWorkbook.Save.
    virtual void SaveActiveWorkbookAs(const QString& path) = 0;
    virtual void SaveActiveWorkbook() = 0;

    virtual void SetVisible(bool visible) = 0;
    virtual void SetUserControl(bool userControl) = 0;
    virtual void Quit() = 0;
};

/// Attaches to a running instance of the application or, when there is none, makes one.
using AttachSpreadsheet = std::function<std::unique_ptr<SpreadsheetApplication>()>;
