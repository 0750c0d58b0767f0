#pragma once

#include "base/Failure.h"
#include "taker/Session.h"

/// The name of a workbook of a test that names none.
inline const QString DefaultWorkbookName = QStringLiteral("Vellumo Results");
inline const QString WorkbookExtension = QStringLiteral(".exl");

/// Appends the results of an administration to a workbook.
class SpreadsheetExporter {
  public:
    virtual ~SpreadsheetExporter() = default;

    /// Exports the session's results. Sets its SpreadsheetExported and SpreadsheetFilePath once they are saved.
    virtual Result Export(Session& session) = 0;
};
