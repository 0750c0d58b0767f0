#include "taker/AutoReport.h"

#include "base/LineBreak.h"
#include "platform/Directories.h"
#include "platform/FileNames.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

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

QString FirstFreePath(const QString& name, TakenNumbers* taken) {
    int k = taken ? taken->value(name) : 0;
    const auto path = [&] { return k == 0 ? name + QStringLiteral(".txt") : name + QStringLiteral("(%1).txt").arg(k); };
    while (QFile::exists(path()))
        ++k;
    if (taken)
        taken->insert(name, k);
    return path();
}

/// The earlier reports in a file are looked at only up to this size, lest appending to a long one take ever longer.
constexpr qint64 MaxEarlierBytes = 16 << 20;

bool IsAscii(const QByteArray& bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<uchar>(byte) < 0x80; });
}

/// Appends so that the whole file is in one encoding: a report whose letters don't fit that of the earlier ones brings
/// all of them to UTF-8.
Result AppendReport(const QString& path, const QString& text, const QByteArray& bytes) {
    TextOfFile earlier;
    if (!IsAscii(bytes) && ReadTextFile(path, MaxEarlierBytes, earlier) && !IsAscii(earlier.Bytes)) {
        if (earlier.Encoding != TextEncoding::CodePage)
            return AppendToFile(path, text.toUtf8());
        if (DecodeText(bytes).Encoding != TextEncoding::CodePage)
            return WriteFile(path, (earlier.Text + text).toUtf8());
    }
    return AppendToFile(path, bytes);
}

} // namespace

QString ReportDirectoryFor(const TestDocument& test, const QString& clientName, Prompts& prompts) {
    QString directory = Made(test.ReportDirectory, prompts);
    if (test.TestOption(AutosaveReportDirectoryAsClient))
        directory = Made(WithSeparator(directory) + FileNameOf(clientName), prompts);
    return WithSeparator(directory);
}

QString ReportPathFor(TestDocument& test, const QString& clientName, Prompts& prompts, TakenNumbers* taken) {
    QString name = ReportDirectoryFor(test, clientName, prompts);
    test.AutosaveFileName = test.AutosaveFileName.section(u'.', 0, 0);
    if (!test.AutosaveFileName.isEmpty())
        name += test.AutosaveFileName;
    else if (!test.TestBaseName.isEmpty())
        name += test.TestBaseName;
    else // A path whose first dot stands before the file's name leaves no base name, and ".txt" alone would be hidden.
        name += QFileInfo(test.TestFileName).completeBaseName();
    if (test.TestOption(AutosaveReportAsClient))
        name += u' ' + FileNameOf(clientName);
    return test.TestOption(AppendToReportFile) ? name + QStringLiteral(".txt") : FirstFreePath(name, taken);
}

bool AutoReportAsks(const Session& session) {
    return !session.Test.TestOption(UpdateFilesWithoutPrompting) || session.AutoReportDone;
}

Result WriteReportFile(const QString& path, const QString& text, bool append) {
    const QByteArray bytes = EncodeForLocale(text + LineBreak);
    return append ? AppendReport(path, text + LineBreak, bytes) : WriteFile(path, bytes);
}
