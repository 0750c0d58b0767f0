#pragma once

#include "base/Failure.h"
#include "taker/Session.h"

/// Appends the results of an administration to a workbook.
class SpreadsheetExporter {
  public:
    virtual ~SpreadsheetExporter() = default;

    /// Exports the session's results. Sets its SpreadsheetExported when it comes to saving, which may still fail.
    virtual Result Export(Session& session) = 0;
};
