#pragma once

#include "cli/Output.h"
#include "cli/Shared.h"
#include "taker/ResponsesFile.h"

/// Reads a whole file of responses and hands every row to "each" while all is good. Everything that is wrong is told on
/// standard error; a Failure is thrown then, so that nothing is written. Returns the number of rows.
qint64 ReadResponses(QFile& file, const TestDocument& test, ResponsesReader::Texts texts, Console& console,
                     const std::function<void(const ResponsesReader&)>& each);

/// The report of the reader's current row. A row without an administrator takes that of the context.
QString ReportOfRow(const ResponsesReader& reader, const TestDocument& test, const ReportContext& context);
