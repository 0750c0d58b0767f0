#pragma once

#include "export/workbook/ByteSource.h"
#include "export/workbook/FormulaReach.h"

#include <set>
#include <vector>

/// A worksheet by its name, with its part; without it when it has no formulas.
struct NamedSheet {
    QString Name;
    OpenBytes Open;
};

/// A cell by its row and column.
struct StaleCell {
    int Row = 0;
    int Column = 0;
};

/// What a change of cells makes of the formulas of a workbook. Their results are in the sheets, and spreadsheet
/// programs show them without calculating anew: a sum would miss the new row.
struct StaleResults {
    /// Whether any formula may have another result.
    bool Any = false;
    /// For each sheet, the cells with such results, in their order.
    std::vector<std::vector<StaleCell>> Cells;
};

/// The results that may change when the blocks do, directly or by way of other formulas; some that can't may be among
/// them. The time it takes grows in proportion to the formulas. Throws WorkbookError for a sheet that is no well-formed
/// XML.
StaleResults FindStaleResults(const std::vector<NamedSheet>& sheets, const std::vector<CellBlock>& changed);

/// Whether a sheet may have formulas, found out at little cost.
bool MayHaveFormulas(ByteSource& sheet);
