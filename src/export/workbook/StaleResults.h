#pragma once

#include "export/workbook/FormulaReach.h"

#include <QByteArray>

#include <utility>
#include <vector>

/// A worksheet by its name, with its part.
struct NamedSheet {
    QString Name;
    QByteArray Xml;
};

/// What a change of cells makes of the formulas of a workbook. Their results stand in the sheets, and spreadsheet
/// programs show them without calculating anew: a sum would miss the new row.
struct StaleResults {
    /// Whether any formula may have another result.
    bool Any = false;
    /// For each sheet, where the elements of such results begin and the offsets behind them, in order.
    std::vector<std::vector<std::pair<qsizetype, qsizetype>>> Elements;
};

/// The results that may change when the block does, directly or by way of other formulas. Throws WorkbookError for a
/// sheet that is no well-formed XML.
StaleResults FindStaleResults(const std::vector<NamedSheet>& sheets, const CellBlock& changed);

/// Whether a sheet may have formulas, found out at little cost.
bool MayHaveFormulas(const QByteArray& xml);
