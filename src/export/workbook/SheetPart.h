#pragma once

#include "export/workbook/XmlScanner.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <vector>

/// A cell as it stands in a sheet.
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
    /// Where its element begins, and the offset behind it.
    qsizetype Begin = 0;
    qsizetype End = 0;
};

/// The elements of cells that are to be written, by row and column.
using CellElements = std::map<int, std::map<int, QByteArray>>;

/// One worksheet. Reading finds the rows once; writing puts cells between and in place of the bytes that are there and
/// leaves everything else of the part as it is. Throws WorkbookError for a part that is no worksheet.
class SheetPart {
  public:
    explicit SheetPart(const QByteArray& xml);

    /// The cell, if the sheet has an element for it. Row and column count from 1.
    std::optional<StoredCell> Find(int row, int column) const;
    /// The format that a new cell takes: its row's, its column's, or none (-1).
    int StyleForNew(int row, int column) const;
    /// What stands before the names of the sheet's elements: "" or a namespace prefix with its colon.
    const QByteArray& Prefix() const { return prefix_; }

    const QByteArray& Xml() const { return xml_; }
    /// Leaves out what stands between two offsets of Xml(); outside of cells that are written.
    void Drop(qsizetype begin, qsizetype end) { edits_.push_back({begin, end, {}}); }
    /// The part with these cells, in pieces that refer to this object, which is left at that.
    std::vector<QByteArrayView> WithCells(const CellElements& cells);

  private:
    struct Row {
        int Number = 0;
        qsizetype Begin = 0;
        /// Behind the start tag, and at the end tag; the same for an empty-element tag.
        qsizetype ContentBegin = 0;
        qsizetype ContentEnd = 0;
        bool SelfClosing = false;
    };
    struct ColumnRange {
        int First = 0;
        int Last = 0;
        int Style = -1;
    };
    struct Edit {
        qsizetype Begin = 0;
        qsizetype End = 0;
        QByteArray Text;
    };

    void ReadColumns(XmlScanner& scanner);
    void ReadRows(XmlScanner& scanner);
    const Row* RowAt(int number) const;
    bool NextCell(XmlScanner& scanner, StoredCell& cell, int wanted) const;
    void ReadCell(XmlScanner& scanner, StoredCell& cell) const;

    void InsertRow(int number, const std::map<int, QByteArray>& cells);
    void ChangeRow(const Row& row, const std::map<int, QByteArray>& cells);
    void WidenSpans(const Row& row, int first, int last);
    void WidenDimension(const CellElements& cells);
    void Replace(QByteArrayView part, const QByteArray& text);

    QByteArray xml_;
    QByteArray prefix_;
    std::vector<Row> rows_;
    std::vector<ColumnRange> columns_;
    QByteArrayView dimension_;
    qsizetype dataBegin_ = -1;
    qsizetype dataContentEnd_ = 0;
    bool dataSelfClosing_ = false;
    std::vector<Edit> edits_;
};
