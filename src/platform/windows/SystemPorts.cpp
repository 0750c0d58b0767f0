#include "platform/SystemPorts.h"

#include "platform/windows/CommandLineLauncher.h"
#include "platform/windows/OleSpreadsheet.h"
#include "platform/windows/OleWordProcessor.h"
#include "platform/windows/RegistryOfficeProbe.h"
#include "platform/windows/RegistrySettingsStore.h"

std::unique_ptr<SettingsStore> MakeUserSettingsStore() { return std::make_unique<RegistrySettingsStore>(); }

std::unique_ptr<Launcher> MakeLauncher() { return std::make_unique<CommandLineLauncher>(); }

std::unique_ptr<OfficeProbe> MakeOfficeProbe(Prompts& prompts) {
    return std::make_unique<RegistryOfficeProbe>(prompts);
}

std::unique_ptr<WordProcessor> MakeWordProcessor() { return std::make_unique<OleWordProcessor>(); }

std::unique_ptr<SpreadsheetApplication> AttachAutomatedSpreadsheet() { return std::make_unique<OleSpreadsheet>(); }
