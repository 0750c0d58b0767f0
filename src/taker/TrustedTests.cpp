#include "taker/TrustedTests.h"

#include "platform/Directories.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// The oldest facts are forgotten past this many.
constexpr qsizetype MaxLines = 5000;
constexpr qint64 MaxBytes = 8 << 20;

QString AllowedLine(const QString& hash) { return QStringLiteral("allowed ") + hash; }

QString MadeLine(const QString& hash, const QString& path) {
    const QFileInfo file(path);
    return QStringLiteral("made ") + hash + u' ' +
           (file.exists() ? file.canonicalFilePath() : QDir::cleanPath(file.absoluteFilePath()));
}

} // namespace

TrustedTests::TrustedTests(QString file, QStringList samples) : file_(std::move(file)), samples_(std::move(samples)) {
    Read();
}

bool TrustedTests::IsAllowed(const QString& hash) const {
    return !hash.isEmpty() && (samples_.contains(hash) || lines_.contains(AllowedLine(hash)));
}

Result TrustedTests::Allow(const QString& hash) {
    return hash.isEmpty() || IsAllowed(hash) ? Result::Done() : Note(AllowedLine(hash));
}

bool TrustedTests::Made(const QString& hash, const QString& path) const {
    return !hash.isEmpty() && lines_.contains(MadeLine(hash, path));
}

void TrustedTests::NoteMade(const QString& hash, const QString& path) {
    // What can't be kept only brings the question back.
    if (!hash.isEmpty() && !path.contains(u'\n') && !Made(hash, path))
        (void)Note(MadeLine(hash, path));
}

Result TrustedTests::Note(const QString& line) {
    if (file_.isEmpty()) {
        lines_.append(line);
        return Result::Done();
    }
    MakeDirectory(QFileInfo(file_).path());
    // Locked from the reading to the writing, or what another Vellumo notes in between would be lost.
    FileLock lock(file_);
    const FileLock::Outcome taken = lock.Take();
    Read();
    lines_.append(line);
    lines_.remove(0, qMax(0, lines_.size() - MaxLines));
    if (taken == FileLock::Outcome::Busy)
        return ResultOf(file_, {false, lock.Holder(), QStringLiteral("What it held before was not changed.")});
    return WriteFile(file_, QString(lines_.join(u'\n') + u'\n').toUtf8(), Audience::OwnerOnly,
                     taken == FileLock::Outcome::Taken ? &lock : nullptr);
}

void TrustedTests::Read() {
    TextOfFile file;
    if (file_.isEmpty() || !ReadTextFile(file_, MaxBytes, file))
        return;
    for (const QString& line : QString::fromUtf8(file.Bytes).split(u'\n', Qt::SkipEmptyParts))
        if (!lines_.contains(line))
            lines_.append(line);
}
