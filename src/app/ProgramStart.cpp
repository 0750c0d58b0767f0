#include "app/ProgramStart.h"

#include "testdoc/TestParser.h"

#include <QFileInfo>

void LoadSettingsOnce(ProgramStart& start, Session& session, SettingsStore& store, const DefaultFolders& folders) {
    if (start.SettingsLoaded)
        return;
    if (LoadSettings(session.UserSettings, store, folders))
        PrepareWorkingDirectory(folders, start.Known);
    session.AdministratorName = session.UserSettings.AdministratorName;
    TakeHtmlSettings(session);
    start.SettingsLoaded = true;
}

QString PathOfCommandLine(const QString& commandLine) {
    if (commandLine.isEmpty())
        return {};
    const QString path = AbsolutePath(commandLine);
    const bool wrapped = commandLine.size() > 2 && commandLine.count(u'"') == 2 && commandLine.startsWith(u'"') &&
                         commandLine.endsWith(u'"');
    if (wrapped && !QFileInfo::exists(path))
        return AbsolutePath(commandLine.mid(1, commandLine.size() - 2));
    return path;
}
