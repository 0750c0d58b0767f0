#pragma once

#include "base/Failure.h"
#include "taker/Session.h"

/// Appends the results of an administration to a workbook.
class SpreadsheetExporter {
  public:
    virtual ~SpreadsheetExporter() = default;

    /// Exports the session's results. Sets its SpreadsheetExported and SpreadsheetFilePath once they are saved.
    virtual Result Export(Session& session) = 0;
};
