#pragma once

#include "base/Failure.h"
#include "taker/Session.h"

/// Appends the results of an administration to a workbook.
class SpreadsheetExporter {
  public:
    virtual ~SpreadsheetExporter() = default;

    /// Exports the session's results and sets its SpreadsheetExported once they are in the workbook.
    virtual Result Export(Session& session) = 0;
};
