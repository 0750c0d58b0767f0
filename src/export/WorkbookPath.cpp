#include "export/WorkbookPath.h"

#include "platform/Directories.h"
#include "platform/FileNames.h"

#include <QFileInfo>

namespace {

bool CanBeEntered(const QString& folder) { return DirectoryExists(folder) && QFileInfo(folder).isExecutable(); }

/// The folder, made when it is missing; "" when it can't be.
QString Entered(const QString& folder, Prompts& prompts) {
    if (folder.isEmpty() || CanBeEntered(folder))
        return folder;
    MakeDirectory(folder);
    if (CanBeEntered(folder))
        return folder;
    prompts.Inform(QStringLiteral("Can't make directory: ") + folder);
    return {};
}

QString WithSeparator(const QString& folder) {
    return folder.isEmpty() || EndsInSeparator(folder) ? folder : folder + DirectorySeparator;
}

} // namespace

QString WorkbookPathFor(Session& session, Prompts& prompts) {
    TestDocument& test = session.Test;
    const QString& client = session.ClientName;
    // Folders that are no whole paths lie in the working directory.
    ChangeDirectory(session.UserSettings.DefaultDirectory);
    QString folder = Entered(test.ExcelDirectory, prompts);
    if (test.TestOption(AutosaveExcelDirectoryAsClient) && !client.isEmpty())
        folder = Entered(PathForPerson(WithSeparator(folder), {}, client, {}), prompts);
    if (folder.isEmpty())
        folder = session.UserSettings.DefaultDirectory;

    test.ExcelFileName = test.ExcelFileName.section(u'.', 0, 0);
    QString path = WithSeparator(folder) + (test.ExcelFileName.isEmpty() ? DefaultWorkbookName : test.ExcelFileName);
    if (test.TestOption(AutosaveExcelReportAsClient) && !client.isEmpty())
        path = PathForPerson(path, QStringLiteral(" "), client, WorkbookExtension).chopped(WorkbookExtension.size());
    return path.endsWith(WorkbookExtension) ? path : path + WorkbookExtension;
}
