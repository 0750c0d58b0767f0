#include "export/SystemSpreadsheet.h"

#include "platform/SystemPorts.h"

#ifdef Q_OS_WIN

AttachSpreadsheet SystemSpreadsheet(Launcher*, const std::function<void()>&) { return AttachAutomatedSpreadsheet; }

#else

#include "export/workbook/BuiltInSpreadsheet.h"

AttachSpreadsheet SystemSpreadsheet(Launcher* programs, const std::function<void()>& whileWaiting) {
    return [programs, whileWaiting] {
        return std::make_unique<BuiltInSpreadsheet>(
            BuiltInSpreadsheetParts{programs, programs ? WorkbookViewerProgram() : QString(), whileWaiting});
    };
}

#endif
