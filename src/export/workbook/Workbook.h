#pragma once

#include "export/workbook/PackageMap.h"
#include "export/workbook/SharedStrings.h"
#include "export/workbook/SheetPart.h"
#include "export/workbook/StaleResults.h"
#include "export/workbook/Styles.h"
#include "platform/SpreadsheetApplication.h"

/// A workbook in memory: the cells of its active sheet, and the package around it, of which only what was written
/// changes.
class Workbook {
  public:
    /// A new, empty workbook with one sheet.
    Workbook();
    /// The workbook with these bytes. Throws WorkbookError when they can't be read as one.
    explicit Workbook(const QByteArray& bytes);

    /// Throws WorkbookError when the cell can't be read.
    CellValue Cell(int row, int column);
    /// Throws SpreadsheetError for a cell outside the sheet, a text that is too long, a date that doesn't fit, and a
    /// cell with a formula, which is its user's.
    void SetCell(int row, int column, const CellValue& value);

    /// The bytes of the workbook with all that was set, which must be something. It can't be used any further.
    QByteArray Pack();

  private:
    CellBlock Written() const;
    void DropStaleResults(std::vector<NamedSheet>& sheets, std::vector<QByteArray>& kept);
    Styles& Formats();
    CellValue Meaning(const StoredCell& cell);
    int StyleFor(int row, int column, const CellValue& value, const std::optional<StoredCell>& there);

    ZipPackage package_;
    PackageMap map_;
    SheetPart sheet_;
    std::optional<SharedStrings> sharedStrings_;
    std::optional<Styles> styles_;
    std::map<int, std::map<int, CellValue>> written_;
    CellElements elements_;
};
