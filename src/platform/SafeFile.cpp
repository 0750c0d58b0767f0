#include "platform/SafeFile.h"

#include "platform/FlushToDisk.h"
#include "platform/NameRefusal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

Result Failed(const QString& path, const QString& reason, const QString& kept) {
    return Result::Failed(QStringLiteral("Can't write the file '") + path + QStringLiteral("': ") + reason +
                          QStringLiteral(". ") + kept);
}

QString ReasonOf(const QFile& file) {
    if (file.error() == QFileDevice::NoError)
        return QStringLiteral("the disk did not take it");
    // Windows ends its reasons with a full stop, other systems don't.
    const QString reason = file.errorString();
    return reason.endsWith(u'.') ? reason.chopped(1) : reason;
}

void CloseToOthers(QFile& file) { file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner); }

/// For an unbuffered file. A disk that fills up takes a piece first, and says why not the rest only when it is asked
/// for that.
bool WriteAll(QFile& file, const QByteArray& content) {
    qint64 done = 0;
    while (done < content.size()) {
        const qint64 taken = file.write(content.constData() + done, content.size() - done);
        if (taken <= 0)
            return false;
        done += taken;
    }
    return true;
}

bool Put(QFile& file, const QByteArray& content) { return WriteAll(file, content) && FlushToDisk(file); }

bool Holds(const QString& path, qint64 position, const QByteArray& content) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(position) && file.readAll() == content;
}

QString FreeNameBeside(const QString& path) {
    QString name = path + QStringLiteral(".earlier");
    for (int k = 1; QFileInfo(name).isSymLink() || QFile::exists(name); ++k)
        name = path + QStringLiteral(".earlier(%1)").arg(k);
    return name;
}

/// Copies the file at path to copyPath, flushed, with the same permissions; removes a copy that failed. The reason,
/// empty when it went well.
QString CopyAside(const QString& path, const QString& copyPath) {
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        return ReasonOf(source);
    QFile copy(copyPath);
    if (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return QStringLiteral("its earlier version can't be set aside as '") + copyPath + QStringLiteral("': ") +
               ReasonOf(copy);
    bool copied = true;
    while (copied && !source.atEnd()) {
        const QByteArray block = source.read(1 << 20);
        copied = source.error() == QFileDevice::NoError && WriteAll(copy, block);
    }
    copied = copied && FlushToDisk(copy);
    if (copied) {
        copy.setPermissions(source.permissions());
        return {};
    }
    const QString reason = QStringLiteral("its earlier version can't be set aside: ") +
                           ReasonOf(source.error() != QFileDevice::NoError ? source : copy);
    copy.close();
    QFile::remove(copyPath);
    return reason;
}

Result WriteNew(const QString& path, const QByteArray& content, Audience audience, bool isNew) {
    QFile file(path);
    const auto permissions = audience == Audience::OwnerOnly ? QFileDevice::ReadOwner | QFileDevice::WriteOwner
                                                             : QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                                   QFileDevice::ReadGroup | QFileDevice::ReadOther;
    // Unbuffered, so that a full disk is told by the write that meets it.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered, permissions))
        return Result::Failed(QFileInfo(path).dir().exists() ? ReasonOf(file)
                                                             : QStringLiteral("there is no such folder"));
    if (isNew && audience == Audience::OwnerOnly)
        CloseToOthers(file);
    if (!Put(file, content))
        return Result::Failed(ReasonOf(file));
    file.close();
    const QFileInfo info(path);
    if (info.isFile() && !Holds(path, 0, content))
        return Result::Failed(QStringLiteral("what was read back differs from what was written"));
    return Result::Done();
}

} // namespace

WriteOutcome WriteFileInManner(const QString& path, const QByteArray& content, const WriteManner& manner) {
    const QFileInfo info(path);
    if (info.isDir())
        return {false, QStringLiteral("it is a directory"), QStringLiteral("Nothing was changed.")};
    if (const QString reason = NameRefusal(path); !reason.isEmpty())
        return {false, reason, QStringLiteral("Nothing was changed.")};
    const QString unchanged = QStringLiteral("The earlier version was not changed.");
    const bool isNew = !info.exists();
    const bool replaces = info.isFile();
    // The copy lies beside the file itself, also when the path is a link to it.
    const QString copy = replaces ? FreeNameBeside(QDir::toNativeSeparators(info.canonicalFilePath())) : QString();
    if (replaces) {
        QFile target(path);
        if (!target.open(QIODevice::ReadWrite))
            return {false, ReasonOf(target), unchanged};
        target.close();
        if (const QString reason = CopyAside(path, copy); !reason.isEmpty())
            return {false, reason, unchanged};
    }

    const Result written = WriteNew(path, content, manner.Readers, isNew);
    if (!written && isNew && !manner.PieceStays)
        QFile::remove(info.isSymLink() ? info.symLinkTarget() : path);
    if (!written || !manner.StopsBecause.isEmpty())
        return {false, written ? manner.StopsBecause : written.Message(),
                replaces ? QStringLiteral("The earlier version is in '") + copy + QStringLiteral("'.")
                         : QStringLiteral("There was no earlier version.")};
    if (replaces && !QFile::remove(copy))
        return {true,
                {},
                QStringLiteral("its earlier version stays in '") + copy + QStringLiteral("', which can't be removed.")};
    return {true, {}, {}};
}

Result WriteFile(const QString& path, const QByteArray& content, Audience audience) {
    const WriteOutcome outcome = WriteFileInManner(path, content, {audience});
    if (!outcome.Written)
        return Failed(path, outcome.Reason, outcome.Kept);
    if (!outcome.Kept.isEmpty())
        return Result::Failed(QStringLiteral("The file '") + path + QStringLiteral("' was written, but ") +
                              outcome.Kept);
    return Result::Done();
}

Result AppendToFile(const QString& path, const QByteArray& content, Audience audience) {
    const QFileInfo info(path);
    if (!info.exists() || !info.isFile() || !NameRefusal(path).isEmpty())
        return WriteFile(path, content, audience);

    const QString unchanged = QStringLiteral("What it held before was not changed.");
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        return Failed(path, ReasonOf(file), unchanged);
    const qint64 earlierLength = file.size();
    QString reason;
    if (!file.seek(earlierLength) || !Put(file, content))
        reason = ReasonOf(file);
    else if (!Holds(path, earlierLength, content))
        reason = QStringLiteral("what was read back differs from what was written");
    if (reason.isEmpty())
        return Result::Done();

    if (file.resize(earlierLength))
        return Failed(path, reason, unchanged);
    return Failed(path, reason,
                  QStringLiteral("What it held before is still there, its first %1 bytes.").arg(earlierLength));
}
