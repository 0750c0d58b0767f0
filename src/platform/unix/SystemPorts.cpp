#include "platform/SystemPorts.h"

#include "platform/unix/DetachedLauncher.h"
#include "platform/unix/IniSettingsStore.h"
#include "platform/unix/LibreOfficeWriter.h"
#include "platform/unix/PathOfficeProbe.h"

#include <QStandardPaths>

std::unique_ptr<SettingsStore> MakeUserSettingsStore() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return std::make_unique<IniSettingsStore>(folder + QStringLiteral("/Vellumo/Vellumo.ini"));
}

std::unique_ptr<Launcher> MakeLauncher() { return std::make_unique<DetachedLauncher>(); }

std::unique_ptr<OfficeProbe> MakeOfficeProbe(Prompts&) { return std::make_unique<PathOfficeProbe>(); }

std::unique_ptr<WordProcessor> MakeWordProcessor() { return std::make_unique<LibreOfficeWriter>(); }

QString WorkbookViewerProgram() { return WorkbookViewer(); }
