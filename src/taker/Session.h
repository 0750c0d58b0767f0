#pragma once

#include "settings/Settings.h"
#include "taker/ResponseSet.h"
#include "testdoc/TestDocument.h"

/// Everything that one run of the program holds: the one test, the settings, the current administration, and the values
/// that live as long as the run. Made once by the program and handed on by reference.
struct Session {
    TestDocument Test;
    Settings UserSettings;
    ResponseSet Responses;

    QString ClientName;
    QString AdministratorName;
    bool NamesCancelled = false;

    QString ReportText;
    QString ReportFilePath;
    bool AutoReportDone = false;
    bool SpreadsheetExported = false;
};
