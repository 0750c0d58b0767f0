#pragma once

#include "export/ResultRows.h"

/// The row of the heads; the data begin in it too when nothing at all is exported.
inline constexpr int HeadsRow = 3;

/// The sheet of a workbook in which results are collected: which column takes which result, and which row comes next.
/// Failures throw SpreadsheetError, with the column's head in the message where there is one.
class ResultSheet {
  public:
    /// Speaks of the application's active sheet.
    ResultSheet(SpreadsheetApplication& application, const TestDocument& test, const QString& questionPrefix,
                const QString& questionSuffix);

    /// Writes title and heads into a new workbook.
    void Begin();
    /// Finds the columns of the workbook at path, which is open. Where its third row holds the expected heads in their
    /// places, columns are taken as they come. Otherwise each result goes under its own head, and heads that are
    /// missing are added at the right end. A head that is there twice is refused, before anything is written.
    void Find(const QString& path);
    /// Writes one row. A cell of it that would stay empty becomes 0; cells of other columns are left alone.
    void Append(const ResultsOfOne& results);

    /// What Find did with heads that it did not expect, as a sentence for the user; empty when they were as expected.
    const QString& Note() const { return note_; }

  private:
    struct Head {
        int Column = 0;
        QString Text;
    };

    void ReadHeads();
    bool AreInPlace() const;
    void CheckTellable(const QString& path) const;
    void FindPlaces(const QString& path);
    int PlaceOf(const QString& head, const QString& path) const;
    void AddMissing(const QString& path);
    int RightEnd(int count);
    bool IsEmpty(int row, int column) {
        return std::holds_alternative<std::monostate>(application_.Cells(row, column));
    }
    int FreeRow(int from);
    void Set(int row, size_t index, const CellValue& value);

    SpreadsheetApplication& application_;
    const TestDocument& test_;
    std::vector<ResultColumn> columns_;
    /// The sheet's column of each of them; 0 for one that is missing.
    std::vector<int> places_;
    /// The heads that the sheet has, from the left.
    std::vector<Head> heads_;
    /// The columns of the heads that this export doesn't fill.
    std::vector<int> otherColumns_;
    QString note_;
    int row_ = 0;
};
