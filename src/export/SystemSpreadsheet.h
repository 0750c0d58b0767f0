#pragma once

#include "platform/Launcher.h"
#include "platform/SpreadsheetApplication.h"

/// How this system's spreadsheet is reached: by automation of the application on Windows, and elsewhere by Vellumo's
/// own engine, which shows a saved workbook with programs, when given, and calls whileWaiting many times a second while
/// another copy of Vellumo has the workbook.
AttachSpreadsheet SystemSpreadsheet(Launcher* programs = nullptr, const std::function<void()>& whileWaiting = {});
