#include "app/ProgramStart.h"

#include "platform/Directories.h"
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

Result EnsureWorkingDirectory(Settings& settings, const DefaultFolders& folders) {
    const Result usable = CheckWorkingDirectory(settings.DefaultDirectory);
    if (usable)
        return usable;
    QString message = usable.Message() + QStringLiteral(".\n\n");
    MakeDirectory(folders.WorkingDirectory);
    if (CheckWorkingDirectory(folders.WorkingDirectory)) {
        settings.DefaultDirectory = folders.WorkingDirectory;
        message +=
            QStringLiteral("Until Vellumo is started again, or another one is chosen in Options, tests are listed "
                           "from '") +
            folders.WorkingDirectory + QStringLiteral("' and results are written there.");
    } else {
        message += QStringLiteral("Choose another one in Options.");
    }
    return Result::Failed(message);
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
