#include "editor/Recovery.h"

#include "editor/TestSnapshot.h"
#include "platform/Directories.h"
#include "platform/SafeFile.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace {

const QString NoCopy = QStringLiteral("No copy of the unsaved changes can be kept");
const QString Extension = QStringLiteral(".recovery");
/// The longest test of the longest texts stays far below it.
constexpr qint64 LongestCopy = 64 << 20;

/// The lock of a copy, by the name that earlier versions of the program use, too.
QString LockOf(const QString& path) { return path + QStringLiteral(".lock"); }

/// Null when another program has it.
std::unique_ptr<FileLock> LockedCopy(const QString& path) {
    auto lock = std::make_unique<FileLock>(path, LockOf(path));
    return lock->Take(0) == FileLock::Outcome::Taken ? std::move(lock) : nullptr;
}

QByteArray CopyOf(const QByteArray& snapshot, const std::optional<QByteArray>& fileThen, const QDateTime& now) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << now << snapshot;
    if (fileThen)
        stream << *fileThen;
    return bytes;
}

void RemoveFiles(const QString& path) {
    QFile::remove(path);
    // Left by an earlier version that ended while it wrote; the next copy under this name must not pass for it.
    QFile::remove(path + QStringLiteral(".earlier"));
}

bool ReadCopy(const QString& path, RecoveredTest& copy) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > LongestCopy)
        return false;
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_6_0);
    QByteArray snapshot;
    stream >> copy.KeptAt >> snapshot;
    if (!stream.atEnd())
        stream >> copy.FileThen.emplace();
    return stream.status() == QDataStream::Ok && FromSnapshot(snapshot, copy.Test, copy.Typed);
}

bool IsSameTest(const QString& fileName, const QString& other) {
    if (!QDir::isAbsolutePath(fileName) || !QDir::isAbsolutePath(other))
        return !QDir::isAbsolutePath(fileName) && !QDir::isAbsolutePath(other);
    return fileName == other || QFileInfo(fileName) == QFileInfo(other);
}

} // namespace

QByteArray FileDigest(const QString& path) {
    QFile file(path);
    QCryptographicHash digest(QCryptographicHash::Sha256);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !digest.addData(&file))
        return {};
    return digest.result();
}

void Recovery::Begin(const TestDocument& test) {
    LetGo();
    editing_ = true;
    inFile_ = ToSnapshot(test);
    kept_.clear();
    fileThen_ = FileDigest(test.TestFileName);
}

void Recovery::End() {
    LetGo();
    editing_ = false;
}

bool Recovery::GoOnWith(const RecoveredTest& left) {
    auto own = earlier_.extract(left.Path);
    auto lock = own.empty() ? LockedCopy(left.Path) : std::move(own.mapped());
    if (!lock)
        return false;
    LetGo();
    editing_ = true;
    // Nothing is known of the file, so any state of the document is a change.
    inFile_.clear();
    kept_ = ToSnapshot(left.Test, left.Typed);
    fileThen_ = left.FileThen;
    path_ = left.Path;
    lock_ = std::move(lock);
    return true;
}

bool Recovery::HasChanges(const TestDocument& test, const TypedEntries& typed) const {
    return ToSnapshot(test, typed) != inFile_;
}

Result Recovery::Keep(const TestDocument& test, const TypedEntries& typed) {
    if (folder_.isEmpty() || !editing_)
        return Result::Done();
    const QByteArray snapshot = ToSnapshot(test, typed);
    if (snapshot == kept_)
        return Result::Done();
    if (snapshot == inFile_) {
        RemoveCopy();
        return Result::Done();
    }
    if (const QString reason = path_.isEmpty() ? TakeFreePlace() : QString(); !reason.isEmpty())
        return Result::Failed(NoCopy + QStringLiteral(" in the folder '") + folder_ + QStringLiteral("': ") + reason +
                              u'.');
    if (const Result written = WriteFile(path_, CopyOf(snapshot, fileThen_, time_.Now())); !written)
        return Result::Failed(NoCopy + QStringLiteral(". ") + written.Message());
    kept_ = snapshot;
    return Result::Done();
}

void Recovery::Drop(const TestDocument& test) {
    RemoveCopy();
    inFile_ = ToSnapshot(test);
}

std::vector<RecoveredTest> Recovery::AllLeft(bool inThisRunToo) const {
    std::vector<RecoveredTest> all;
    if (folder_.isEmpty())
        return all;
    const QDir folder(folder_);
    for (const QString& name : folder.entryList({u'*' + Extension}, QDir::Files, QDir::Name)) {
        RecoveredTest copy;
        copy.Path = folder.filePath(name);
        copy.InThisRun = inThisRunToo && earlier_.contains(copy.Path);
        const auto lock = copy.InThisRun ? nullptr : LockedCopy(copy.Path);
        // An earlier version that ended while it wrote the copy has left the one before beside it.
        if ((!copy.InThisRun && !lock) ||
            (!ReadCopy(copy.Path, copy) && !ReadCopy(copy.Path + QStringLiteral(".earlier"), copy)))
            continue;
        all.push_back(std::move(copy));
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const RecoveredTest& one, const RecoveredTest& other) { return one.KeptAt < other.KeptAt; });
    return all;
}

std::optional<RecoveredTest> Recovery::Left() const {
    const std::vector<RecoveredTest> all = AllLeft(false);
    return all.empty() ? std::nullopt : std::optional(all.front());
}

std::optional<RecoveredTest> Recovery::LeftOf(const QString& fileName) const {
    std::optional<RecoveredTest> newest;
    for (RecoveredTest& left : AllLeft(true))
        if (IsSameTest(left.Test.TestFileName, fileName))
            newest = std::move(left);
    return newest;
}

void Recovery::Discard(const RecoveredTest& left) {
    RemoveFiles(left.Path);
    earlier_.erase(left.Path);
}

void Recovery::RemoveCopy() {
    if (!path_.isEmpty())
        RemoveFiles(path_);
    kept_.clear();
}

/// Why there is none, without a full stop; empty when there is.
QString Recovery::TakeFreePlace() {
    MakeDirectory(folder_);
    constexpr int mostPlaces = 1000;
    for (int k = 1; k <= mostPlaces; ++k) {
        const QString path = QDir(folder_).filePath(QStringLiteral("test-%1").arg(k) + Extension);
        auto lock = std::make_unique<FileLock>(path, LockOf(path));
        const FileLock::Outcome taken = lock->Take(0);
        if (taken == FileLock::Outcome::Impossible)
            return lock->Reason();
        if (taken == FileLock::Outcome::Busy || QFile::exists(path))
            continue;
        path_ = path;
        lock_ = std::move(lock);
        return {};
    }
    return QStringLiteral("%1 copies are there already").arg(mostPlaces);
}

void Recovery::LetGo() {
    if (!path_.isEmpty() && QFile::exists(path_) && lock_)
        earlier_[path_] = std::move(lock_);
    lock_.reset();
    path_.clear();
}
