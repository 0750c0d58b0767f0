#pragma once

#include "platform/Launcher.h"
#include "platform/OfficeProbe.h"
#include "platform/Prompts.h"
#include "platform/SettingsStore.h"
#include "platform/SpreadsheetApplication.h"
#include "platform/WordProcessor.h"

#include <memory>

/// This system's own parts behind the interfaces; only the programs' main functions make them.
std::unique_ptr<SettingsStore> MakeUserSettingsStore();
std::unique_ptr<Launcher> MakeLauncher();
/// A failure of the system that it tells, it tells with the prompts.
std::unique_ptr<OfficeProbe> MakeOfficeProbe(Prompts& prompts);
std::unique_ptr<WordProcessor> MakeWordProcessor();

#ifdef Q_OS_WIN
/// Attaches to the spreadsheet application by automation, or starts it. Throws SpreadsheetError when it can't be had.
std::unique_ptr<SpreadsheetApplication> AttachAutomatedSpreadsheet();
#else
/// The program that shows a workbook which Vellumo wrote by itself; "" when there is none.
QString WorkbookViewerProgram();
#endif
