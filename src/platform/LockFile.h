#pragma once

#include <QByteArray>
#include <QString>

/// A file that one program at a time can hold, by the system's own locks: they end with their program, however it ends.
/// What the file holds is for people and for the next holder; it locks nothing.
class LockFile {
  public:
    enum class Outcome { Taken, Busy, Impossible };

    explicit LockFile(QString path) : path_(std::move(path)) {}
    ~LockFile();
    LockFile(const LockFile&) = delete;
    LockFile& operator=(const LockFile&) = delete;

    /// Tries once. It is impossible when no such file can be made. A file system that knows no locks takes any number.
    Outcome Take();
    /// Lets go of it and removes the file, unless it is to stay for the next holder.
    void LetGo(bool fileStays);

    /// What the file holds now, also while another has it.
    QByteArray Content() const;
    /// For the holder: another content in one step. A failure is of no consequence.
    void SetContent(const QByteArray& content);

    /// After Impossible: why, without a full stop.
    QString Reason() const { return reason_; }
    const QString& Path() const { return path_; }

  private:
    QString path_;
    QString reason_;
    qint64 handle_ = -1;
};
