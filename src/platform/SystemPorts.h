#pragma once

#include "platform/Launcher.h"
#include "platform/OfficeProbe.h"
#include "platform/SettingsStore.h"
#include "platform/WordProcessor.h"

#include <memory>

/// This system's own parts behind the interfaces; only the programs' main functions make them.
std::unique_ptr<SettingsStore> MakeUserSettingsStore();
std::unique_ptr<Launcher> MakeLauncher();
std::unique_ptr<OfficeProbe> MakeOfficeProbe();
std::unique_ptr<WordProcessor> MakeWordProcessor();

/// The program that shows a workbook which Vellumo wrote by itself; "" when there is none.
QString WorkbookViewerProgram();
