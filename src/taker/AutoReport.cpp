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

const QString Extension = QStringLiteral(".txt");

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
    const auto path = [&] { return k == 0 ? name + Extension : name + u'(' + QString::number(k) + u')' + Extension; };
    while (QFile::exists(path()))
        ++k;
    if (taken)
        taken->insert(name, k);
    return path();
}

/// The earlier reports in a file are looked at only up to this size, lest appending to a long one take ever longer.
constexpr qint64 MaxEarlierBytes = 16 << 20;

const QString CutOffLine = QStringLiteral("[The report above was cut off: Vellumo ended while writing it.]");
const QString NoEndLine = QStringLiteral("[The text above doesn't end with a line break: it may have been cut off.]");

bool IsAscii(const QByteArray& bytes) {
    return std::ranges::all_of(bytes, [](char byte) { return static_cast<uchar>(byte) < 0x80; });
}

/// How many bytes at the end are the beginning of a letter of UTF-8 that isn't complete.
qsizetype BytesOfHalfLetter(const QByteArray& bytes) {
    for (qsizetype back = 1; back <= qMin<qsizetype>(3, bytes.size()); ++back) {
        const auto byte = static_cast<uchar>(bytes[bytes.size() - back]);
        const qsizetype length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        if (length > 1)
            return length > back ? back : 0;
        if (byte < 0x80)
            return 0;
    }
    return 0;
}

/// A letter that was cut in its middle would turn all the letters of a UTF-8 file into others.
Result DropHalfLetter(const QString& path, FileLock* lock) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Result::Done(); // appending says why
    const QByteArray bytes = file.readAll();
    const qsizetype half = BytesOfHalfLetter(bytes);
    if (half == 0)
        return Result::Done();
    const QByteArray whole = bytes.chopped(half);
    const bool isUtf8 = IsAscii(whole) ? EncodeForLocale(QStringLiteral("\u00E9")).size() > 1
                                       : DecodeText(whole).Encoding != TextEncoding::CodePage;
    return isUtf8 ? WriteFile(path, whole, Audience::OwnerOnly, lock) : Result::Done();
}

/// Ends a report that a program didn't live to write completely, so that the next one begins on a line of its own.
Result CompleteCutOff(const QString& path, FileLock* lock) {
    const bool cutOff = lock && EndsCutOff(*lock, path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return Result::Done();
    file.seek(file.size() - 1);
    QByteArray last = file.read(1);
    file.close();
    if (!cutOff && last == "\n")
        return Result::Done();
    if (cutOff) {
        if (const Result dropped = DropHalfLetter(path, lock); !dropped)
            return dropped;
    }
    const QString lineEnd = last == "\r" ? QStringLiteral("\n") : last == "\n" ? QString() : LineBreak;
    return AppendToFile(path, (lineEnd + (cutOff ? CutOffLine : NoEndLine) + LineBreak).toLatin1(), Audience::OwnerOnly,
                        lock);
}

/// Appends so that the whole file is in one encoding: a report whose letters don't fit that of the earlier ones brings
/// all of them to UTF-8. Nobody else writes the file from the first look at it to the last byte.
Result AppendReport(const QString& path, const QString& text, const QByteArray& bytes) {
    if (const QFileInfo info(path); info.exists() && !info.isFile())
        return AppendToFile(path, bytes);
    FileLock lock(path);
    const FileLock::Outcome taken = lock.Take();
    if (taken == FileLock::Outcome::Busy)
        return ResultOf(path, {false, lock.Holder(), QStringLiteral("What it held before was not changed.")});
    FileLock* held = taken == FileLock::Outcome::Taken ? &lock : nullptr;
    if (const Result completed = CompleteCutOff(path, held); !completed)
        return completed;
    TextOfFile earlier;
    if (!IsAscii(bytes) && ReadTextFile(path, MaxEarlierBytes, earlier) && !IsAscii(earlier.Bytes)) {
        if (earlier.Encoding != TextEncoding::CodePage)
            return AppendToFile(path, text.toUtf8(), Audience::OwnerOnly, held);
        if (DecodeText(bytes).Encoding != TextEncoding::CodePage)
            return WriteFile(path, (earlier.Text + text).toUtf8(), Audience::OwnerOnly, held);
    }
    return AppendToFile(path, bytes, Audience::OwnerOnly, held);
}

} // namespace

QString ReportDirectoryFor(const TestDocument& test, const QString& clientName, Prompts& prompts) {
    QString directory = Made(test.ReportDirectory, prompts);
    if (test.TestOption(AutosaveReportDirectoryAsClient))
        directory = Made(PathForPerson(WithSeparator(directory), {}, clientName, {}), prompts);
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
        name = PathForPerson(name, QStringLiteral(" "), clientName, Extension).chopped(Extension.size());
    return test.TestOption(AppendToReportFile) ? name + Extension : FirstFreePath(name, taken);
}

bool AutoReportAsks(const Session& session) {
    return !session.Test.TestOption(UpdateFilesWithoutPrompting) || session.AutoReportDone;
}

Result WriteReportFile(const QString& path, const QString& text, bool append) {
    const QByteArray bytes = EncodeForLocale(text + LineBreak);
    return append ? AppendReport(path, text + LineBreak, bytes) : WriteFile(path, bytes);
}

Result WriteNewReportFile(QString& path, const QString& text, const std::function<QString()>& nextPath) {
    WriteManner manner;
    manner.MustBeNew = true;
    const QByteArray bytes = EncodeForLocale(text + LineBreak);
    for (;;) {
        const WriteOutcome outcome = WriteFileInManner(path, bytes, manner);
        const QString next = outcome.NameTaken ? nextPath() : path;
        if (next == path)
            return ResultOf(path, outcome);
        path = next;
    }
}
