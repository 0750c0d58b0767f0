#include "platform/SafeFile.h"

#include "platform/InPlace.h"
#include "platform/NameRefusal.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace {

const QString Unchanged = QStringLiteral("The earlier version was not changed.");
const QString UnchangedBefore = QStringLiteral("What it held before was not changed.");
const QString NothingThere = QStringLiteral("There was no earlier version.");

Result Failed(const QString& path, const QString& reason, const QString& kept) {
    return ResultOf(path, {false, reason, kept});
}

/// What is in the system's folders of devices and of open files isn't replaced, whatever it leads to.
bool LeadsToDevice(const QString& path) {
    QFileInfo info(path);
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        const QString name = QDir::cleanPath(info.absoluteFilePath());
        if ((name.startsWith(QStringLiteral("/dev/")) && !name.startsWith(QStringLiteral("/dev/shm/"))) ||
            name.startsWith(QStringLiteral("/proc/")))
            return true;
        if (!info.isSymLink())
            break;
        info.setFile(info.symLinkTarget());
    }
    return info.exists() && !info.isFile();
}

/// Nothing to be renamed: devices, pipes.
WriteOutcome WriteStraight(const QString& path, const QByteArray& content, const WriteManner& manner) {
    DiskFile file(path, QFileInfo::exists(path) ? DiskFile::Way::Straight : DiskFile::Way::StraightToNew,
                  manner.Readers);
    if (!file.IsOpen() || !file.Write(content) || !file.Flush() || !file.Close())
        return {false, file.Reason(), NothingThere};
    return {true, {}, {}};
}

/// One attempt to bring content to target, which is no link, by way of a new file beside it.
class Replacing {
  public:
    Replacing(const QString& target, const QByteArray& content, const WriteManner& manner, FileLock* lock)
        : target_(target), content_(content), manner_(manner), lock_(lock), isNew_(!QFileInfo::exists(target)) {
        fresh_ = FreshNameFor(target);
        // Under the lock nobody else has this name, so what has it was left by a program that ended.
        if (!lock || (QFileInfo::exists(fresh_) && !QFile::remove(fresh_)))
            fresh_ += u'-' + QString::number(QCoreApplication::applicationPid());
    }

    WriteOutcome Run();

  private:
    WriteOutcome Stopped(const QString& reason) const { return {false, reason, isNew_ ? NothingThere : Unchanged}; }
    QString WriteFresh();
    WriteOutcome MoveToTarget();

    QString target_;
    const QByteArray& content_;
    const WriteManner& manner_;
    FileLock* lock_;
    bool isNew_;
    QString fresh_;
    bool accessKept_ = true;
    bool freshIsOwn_ = false;
};

WriteOutcome Replacing::Run() {
    if (!isNew_ && manner_.MustBeNew)
        return {false, QStringLiteral("there is a file of that name"), Unchanged, true};
    if (!isNew_) {
        // Whoever may not write it may not replace it, although the folder would allow it.
        const DiskFile target(target_, DiskFile::Way::InPlace);
        if (!target.IsOpen())
            return Stopped(target.Reason());
    }
    if (const QString reason = WriteFresh(); !reason.isEmpty()) {
        if (freshIsOwn_)
            QFile::remove(fresh_);
        return Stopped(reason);
    }
    const WriteOutcome outcome = accessKept_ ? MoveToTarget() : WriteInPlace(target_, fresh_, content_, lock_);
    // What is written over the file in part is put back by the help of the new file.
    if (!outcome.Written && !(lock_ && IsWrittenOver(lock_->Note())))
        QFile::remove(fresh_);
    return outcome;
}

/// Why the new file doesn't hold the content on the disk; empty when it does.
QString Replacing::WriteFresh() {
    DiskFile file(fresh_, DiskFile::Way::New, manner_.Readers);
    if (!file.IsOpen()) {
        if (!QFileInfo(target_).dir().exists())
            return QStringLiteral("there is no such folder");
        return isNew_ ? file.Reason() : QStringLiteral("no new file can be made in its folder: ") + file.Reason();
    }
    freshIsOwn_ = true;
    if (!file.Write(content_) || !file.Flush())
        return file.Reason();
    if (file.Size() != content_.size() || !Holds(file, 0, content_))
        return ReadBackDiffers;
    if (!isNew_)
        accessKept_ = file.TakeAccessOf(target_);
    return file.Close() ? QString() : file.Reason();
}

WriteOutcome Replacing::MoveToTarget() {
    QString reason;
    switch (MoveFileTo(fresh_, target_, !isNew_, reason)) {
    case Moved::Done:
        return {true, {}, {}};
    case Moved::NameTaken:
        return {false, QStringLiteral("another program has made a file of that name"), Unchanged, true};
    case Moved::NotAllowed:
        return WriteInPlace(target_, fresh_, content_, lock_);
    case Moved::Failed:
        break;
    }
    return Stopped(reason);
}

/// The caller's lock, or one of its own. Without a lock where none can be made: then nothing else can be made either,
/// or the system keeps no locks.
class LockWhileWriting {
  public:
    LockWhileWriting(const QString& path, const FileLock* held) {
        if (held)
            return;
        lock_.emplace(path);
        outcome_ = lock_->Take();
    }
    bool IsBusy() const { return outcome_ == FileLock::Outcome::Busy; }
    QString Reason() const { return lock_->Holder(); }
    FileLock* Lock() { return lock_ && outcome_ == FileLock::Outcome::Taken ? &*lock_ : nullptr; }

  private:
    std::optional<FileLock> lock_;
    FileLock::Outcome outcome_ = FileLock::Outcome::Taken;
};

const QByteArray Appending = "append";
const QByteArray CutOff = "cut off";

QByteArray NoteOf(qint64 from, qint64 length) {
    return Appending + ' ' + QByteArray::number(from) + ' ' + QByteArray::number(length);
}

/// Appends to the open file. The reason why not is empty when it went well.
QString Append(DiskFile& file, const QByteArray& content, FileLock* lock, QString& kept) {
    const QByteArray earlierNote = lock ? lock->Note() : QByteArray();
    const qint64 before = file.Size();
    if (lock)
        lock->SetNote(NoteOf(before, content.size()));
    const bool written = file.Write(content) && file.Flush();
    const bool inOnePiece = file.WrittenTo() - file.WrittenFrom() == content.size();
    QString reason = file.Reason();
    if (written && inOnePiece && Holds(file, file.WrittenFrom(), content)) {
        if (lock)
            lock->SetNote({});
        return {};
    }
    if (reason.isEmpty())
        reason = inOnePiece ? ReadBackDiffers : QStringLiteral("another program wrote to it at the same time");
    // What was written is cut off only as long as it is the end of the file, and all of it is one's own.
    const qint64 from = file.WrittenFrom();
    const qint64 taken = file.WrittenTo() - from;
    const bool nothing = taken == 0;
    const bool own = !nothing && taken <= content.size() && file.Size() == file.WrittenTo() &&
                     file.Read(from, taken) == content.first(taken);
    if (nothing || (own && file.CutTo(from))) {
        kept = UnchangedBefore;
        if (lock)
            lock->SetNote(earlierNote);
    } else {
        kept = UnchangedBefore + QStringLiteral(" A part of the new text is in it.");
        if (lock)
            lock->SetNote(CutOff);
    }
    return reason;
}

} // namespace

Result ResultOf(const QString& path, const WriteOutcome& outcome) {
    if (outcome.Written)
        return Result::Done();
    return Result::Failed(QStringLiteral("Can't write the file '") + path + QStringLiteral("': ") + outcome.Reason +
                          QStringLiteral(". ") + outcome.Kept);
}

WriteOutcome WriteFileInManner(const QString& path, const QByteArray& content, const WriteManner& manner) {
    const QFileInfo info(path);
    if (info.isDir())
        return {false, QStringLiteral("it is a directory"), QStringLiteral("Nothing was changed.")};
    if (const QString reason = NameRefusal(path); !reason.isEmpty())
        return {false, reason, QStringLiteral("Nothing was changed.")};
    if (LeadsToDevice(path))
        return WriteStraight(path, content, manner);
    const QString target = TargetOf(path);
    LockWhileWriting own(target, manner.Held);
    if (own.IsBusy())
        return {false, own.Reason(), info.exists() ? Unchanged : NothingThere};
    FileLock* lock = manner.Held ? manner.Held : own.Lock();
    const WriteOutcome outcome = Replacing(QDir::toNativeSeparators(target), content, manner, lock).Run();
    if (outcome.Written && lock && !lock->Note().isEmpty() && !IsWrittenOver(lock->Note()))
        lock->SetNote({}); // whatever was cut off before is gone
    return outcome;
}

Result WriteFile(const QString& path, const QByteArray& content, Audience audience, FileLock* held) {
    WriteManner manner{audience};
    manner.Held = held;
    return ResultOf(path, WriteFileInManner(path, content, manner));
}

Result AppendToFile(const QString& path, const QByteArray& content, Audience audience, FileLock* held) {
    if (QFileInfo(path).isDir() || !NameRefusal(path).isEmpty() || LeadsToDevice(path))
        return WriteFile(path, content, audience);
    LockWhileWriting own(path, held);
    if (own.IsBusy())
        return Failed(path, own.Reason(), UnchangedBefore);
    FileLock* lock = held ? held : own.Lock();

    constexpr int attempts = 5;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (!QFileInfo::exists(path)) {
            WriteManner manner{audience};
            manner.MustBeNew = true;
            manner.Held = lock;
            const WriteOutcome outcome = WriteFileInManner(path, content, manner);
            if (outcome.NameTaken)
                continue;
            return ResultOf(path, outcome);
        }
        DiskFile file(path, DiskFile::Way::AtEnd);
        if (!file.IsOpen())
            return Failed(path, file.Reason(), UnchangedBefore);
        QString kept;
        if (const QString reason = Append(file, content, lock, kept); !reason.isEmpty())
            return Failed(path, reason, kept);
        // A program that doesn't know of the lock may have replaced the file; then the text is in one that is gone.
        if (file.IsAt(path))
            return Result::Done();
    }
    return Failed(path, QStringLiteral("another program replaces it again and again"), UnchangedBefore);
}

bool EndsCutOff(const FileLock& lock, const QString& path) {
    if (lock.Note() == CutOff)
        return true;
    const QList<QByteArray> words = lock.Note().split(' ');
    if (words.size() != 3 || words[0] != Appending)
        return false;
    const qint64 from = words[1].toLongLong();
    const qint64 size = QFileInfo(path).size();
    return size > from && size < from + words[2].toLongLong();
}
