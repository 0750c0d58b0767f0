#pragma once

#include "export/workbook/SheetReader.h"

#include <map>
#include <optional>
#include <set>

/// A cell as it is in a sheet.
struct StoredCell {
    int Column = 0;
    /// Index of its format, from 0; -1 when it has none of its own.
    int Style = -1;
    bool HasFormula = false;
    /// The type as the sheet names it: "n" number, "s" index of a shared text, "inlineStr", "str" result of a formula,
    /// "b" truth value, "e" error, "d" date.
    QByteArray Type;
    QString Value;
    /// Whether it holds anything.
    bool HasValue = false;
};

/// The cell whose element this is.
StoredCell CellOf(QByteArrayView element);

/// The elements of the cells of one row that are to be written, by column.
using RowElements = std::map<int, QByteArray>;

/// The element of a row with these cells put between and in place of those that it has, and without the results of the
/// formulas in some columns; everything else of it stays as it is. Prefix is that of the sheet's elements.
QByteArray WithCells(const SheetRow& row, const RowElements& cells, const std::set<int>& staleColumns,
                     const QByteArray& prefix);
/// The element of a new row.
QByteArray NewRow(int number, const RowElements& cells, const QByteArray& prefix);

/// Reads single cells of a sheet. Going down the rows is fast; going back up begins at the first row again.
class SheetCells {
  public:
    /// The outline outlives this.
    SheetCells(OpenBytes sheet, const SheetOutline& outline) : open_(std::move(sheet)), outline_(outline) {}

    /// The cell, if the sheet has an element for it. Row and column count from 1.
    std::optional<StoredCell> Find(int row, int column);
    /// The format that a new cell takes: its row's, its column's, or none (-1).
    int StyleForNew(int row, int column);

  private:
    struct Spot {
        int Column = 0;
        qsizetype Begin = 0;
        qsizetype End = 0;
    };

    bool GoTo(int row);
    bool FindNextSpot();

    OpenBytes open_;
    const SheetOutline& outline_;
    std::unique_ptr<ByteSource> source_;
    std::unique_ptr<SheetReader> reader_;
    /// The row that the reader is at, and the one before it that the sheet has.
    int row_ = 0;
    int before_ = 0;
    /// The cells of the row that were found so far, by the scanner that finds the next one.
    std::vector<Spot> spots_;
    std::unique_ptr<XmlScanner> cells_;
};
