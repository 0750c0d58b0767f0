#pragma once

#include "export/workbook/XmlScanner.h"

#include <utility>
#include <vector>

/// A row as it is in a sheet: its whole element, and where in it the cells are.
struct SheetRow {
    int Number = 0;
    QByteArrayView Xml;
    /// After the start tag, and at the end tag; the same for an empty-element tag.
    qsizetype ContentBegin = 0;
    qsizetype ContentEnd = 0;
    bool SelfClosing = false;
};

/// Goes through a worksheet, of which one row at a time is in memory. Throws WorkbookError for a part that is no
/// worksheet.
class SheetReader {
  public:
    /// What comes next: an element of the sheet, the beginning of its rows, a row, and the end of the rows.
    enum class Part { Element, Rows, Row, EndOfRows, Finished };

    /// The source outlives the reader.
    explicit SheetReader(ByteSource& source) : scanner_(source) {}

    Part Next();

    /// The row that was found; valid until the reader goes on.
    const SheetRow& Row() const { return row_; }
    /// At what was found: an element's start tag, the rows' start tag, the row, or the rows' end tag.
    XmlScanner& Scanner() { return scanner_; }
    /// Leaves it to the caller to read the element that was found to its end.
    void PassElement() { atElement_ = false; }

  private:
    Part NextElement();
    void ReadRow();

    XmlScanner scanner_;
    SheetRow row_;
    bool inSheet_ = false;
    bool inRows_ = false;
    bool hadRows_ = false;
    /// The element that was found last is still to be passed.
    bool atElement_ = false;
};

/// What has to be known of a sheet to read and to write its cells.
struct SheetOutline {
    struct ColumnRange {
        int First = 0;
        int Last = 0;
        int Style = -1;
    };

    /// What comes before the names of the sheet's elements: "" or a namespace prefix with its colon.
    QByteArray Prefix;
    /// The formats of columns.
    std::vector<ColumnRange> Columns;
    /// The number of the last row; 0 when there is none.
    int LastRow = 0;
    bool MayHaveFormulas = false;
};

/// Goes through the whole sheet, so that what is wrong with it shows at once.
SheetOutline OutlineOf(ByteSource& source);

/// Whether these bytes of a sheet may have formulas, found out at little cost.
bool MayHaveFormulas(QByteArrayView xml);

/// The whole number that the digits give, or another one when they give none that fits.
int ToInt(QByteArrayView digits, int otherwise);
