#pragma once

#include "platform/LockFile.h"

#include <functional>

/// A hidden file beside the one at path, for what Vellumo needs while it writes that one: ".NAME" + ending, or a name
/// made of a hash where that would be too long.
QString HiddenNameBeside(const QString& path, const QString& ending);

/// The file that is meant by path, whatever links lead to it; one that isn't there yet has the path of its folder.
QString TargetOf(const QString& path);

/// Keeps copies of Vellumo, on this and on other machines, from writing the same file at the same time. A lock file
/// beside it says who writes. It goes with the object. One that was left by a program that has ended locks nothing,
/// whatever is in it.
class FileLock {
  public:
    using Outcome = LockFile::Outcome;

    /// For the file at path, which need not be there yet. Links to it are followed.
    explicit FileLock(const QString& path);
    /// For the file at path, by a lock file of another name.
    FileLock(const QString& path, const QString& lockPath);
    ~FileLock();

    /// Waits at most so many milliseconds, and calls whileWaiting many times a second meanwhile, if there is one. It is
    /// impossible when no file can be made beside the one that is to be locked. When the last holder ended while it
    /// wrote over the file in place, the file is what it was before then.
    Outcome Take(int patience = Patience, const std::function<void()>& whileWaiting = {});

    /// Whether somebody has it, or has left something in it.
    bool IsThere() const;
    /// Whether it is taken, and for this file.
    bool IsFor(const QString& path) const;

    /// After Busy: "another Vellumo is writing it", with program, machine and time where they are known.
    QString Holder() const;

    /// What the last holder left in the lock file for the next one; empty when it let go in good order.
    const QByteArray& Note() const { return note_; }
    /// After Impossible: why, without a full stop.
    QString Reason() const { return file_.Reason(); }
    /// Puts a note of one line into the lock file, where it stays when this program ends before it is emptied.
    void SetNote(const QByteArray& note);

    static constexpr int Patience = 10'000;

  private:
    void Describe();

    QString target_;
    LockFile file_;
    bool taken_ = false;
    QByteArray note_;
};
