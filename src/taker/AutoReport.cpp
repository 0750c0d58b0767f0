#include "taker/AutoReport.h"

#include "base/LineBreak.h"
#include "platform/Directories.h"
#include "platform/FileNames.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"

#include <QFile>

namespace {

QString Made(const QString& directory, Prompts& prompts) {
    if (directory.isEmpty() || DirectoryExists(directory))
        return directory;
    MakeDirectory(directory);
    if (DirectoryExists(directory))
        return directory;
    prompts.Inform(QStringLiteral("Can't make directory: ") + directory);
    return {};
}

QString WithSeparator(const QString& directory) {
    return directory.isEmpty() || EndsInSeparator(directory) ? directory : directory + DirectorySeparator;
}

QString FirstFreePath(const QString& name) {
    QString path = name + QStringLiteral(".txt");
    for (int k = 1; QFile::exists(path); ++k)
        path = name + u'(' + QString::number(k) + QStringLiteral(").txt");
    return path;
}

} // namespace

QString ReportDirectoryFor(const TestDocument& test, const QString& clientName, Prompts& prompts) {
    QString directory = Made(test.ReportDirectory, prompts);
    if (test.TestOption(AutosaveReportDirectoryAsClient))
        directory = Made(WithSeparator(directory) + FileNameOf(clientName), prompts);
    return WithSeparator(directory);
}

QString ReportPathFor(TestDocument& test, const QString& clientName, Prompts& prompts) {
    QString name = ReportDirectoryFor(test, clientName, prompts);
    if (!test.AutosaveFileName.isEmpty()) {
        test.AutosaveFileName = test.AutosaveFileName.section(u'.', 0, 0);
        name += test.AutosaveFileName;
    } else {
        name += test.TestBaseName;
    }
    if (test.TestOption(AutosaveReportAsClient))
        name += u' ' + FileNameOf(clientName);
    return test.TestOption(AppendToReportFile) ? name + QStringLiteral(".txt") : FirstFreePath(name);
}

bool AutoReportAsks(const Session& session) {
    return !session.Test.TestOption(UpdateFilesWithoutPrompting) || session.AutoReportDone;
}

Result WriteReportFile(const QString& path, const QString& text, bool append) {
    const QByteArray bytes = EncodeForLocale(text + LineBreak);
    return append ? AppendToFile(path, bytes) : WriteFile(path, bytes);
}
