#pragma once

#include "export/workbook/PackageMap.h"
#include "export/workbook/SharedStrings.h"
#include "export/workbook/SheetRewriter.h"
#include "export/workbook/Styles.h"
#include "platform/SpreadsheetApplication.h"

/// A workbook: the cells of its active sheet, and the package around it, of which only what was written changes. Its
/// sheets pass through memory in pieces.
class Workbook {
  public:
    /// A new, empty workbook with one sheet.
    Workbook();
    /// The workbook in these bytes, or in an open device of known size. Throws WorkbookError when they can't be read as
    /// one.
    explicit Workbook(const QByteArray& bytes);
    explicit Workbook(std::unique_ptr<QIODevice> device);

    /// Throws WorkbookError when the cell can't be read.
    CellValue Cell(int row, int column);
    bool HasFormula(int row, int column);
    /// Throws SpreadsheetError for a cell outside the sheet, a text that is too long, a date that doesn't fit, and a
    /// cell with a formula, which is its user's.
    void SetCell(int row, int column, const CellValue& value);

    /// The bytes of the workbook with all that was set, which must be something. It can't be used any further.
    QByteArray Pack();

  private:
    void Take();
    OpenBytes Opened(const QString& part, qint64 size);
    void FindStale(std::vector<SheetChanges>& changes);
    Styles& Formats();
    CellValue Meaning(const StoredCell& cell);
    int StyleFor(int row, int column, const CellValue& value, const std::optional<StoredCell>& there);

    ZipPackage package_;
    PackageMap map_;
    qint64 sheetSize_ = 0;
    SheetOutline outline_;
    /// Reads the sheet from its beginning.
    OpenBytes sheet_;
    std::optional<SheetCells> cells_;
    std::optional<SharedStrings> sharedStrings_;
    std::optional<Styles> styles_;
    WrittenCells written_;
};
