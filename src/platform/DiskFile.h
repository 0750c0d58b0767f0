#pragma once

#include <QByteArray>
#include <QString>

/// Who may read a file that is made new.
enum class Audience { OwnerOnly, Everybody };

/// A file that is being written, close to the system: nothing is buffered, and each step says why it failed. The first
/// step that fails decides the reason.
class DiskFile {
  public:
    enum class Way {
        New,          ///< made; fails when there is anything of that name, a link included
        AtEnd,        ///< whatever is written goes to the end, wherever that is by then
        InPlace,      ///< over what the file holds, from its beginning; nothing is cut off
        Straight,     ///< for devices and pipes, and what leads to them; to the end of what has one
        StraightToNew ///< the same where there was nothing
    };

    DiskFile(const QString& path, Way way, Audience readers = Audience::OwnerOnly);
    ~DiskFile();
    DiskFile(const DiskFile&) = delete;
    DiskFile& operator=(const DiskFile&) = delete;

    bool IsOpen() const { return handle_ != -1; }
    /// Another program keeps it from being opened now, which may be over in a moment.
    bool IsHeld() const { return held_; }
    /// Writes all of it. A disk that fills up may take a piece first.
    bool Write(const QByteArray& content);
    /// Hands what was written to the disk; what has no disk behind it counts as flushed.
    bool Flush();
    bool CutTo(qint64 size);
    bool Close();

    qint64 Size() const;
    /// So many bytes from a position on, or fewer when there are no more.
    QByteArray Read(qint64 position, qint64 length) const;
    /// The file at path is still this one: nobody has replaced or removed it.
    bool IsAt(const QString& path) const;
    /// Gives a new file the permissions, owner and group of the one at path. False when that would lock somebody out
    /// or let somebody in.
    bool TakeAccessOf(const QString& path);

    /// Where the bytes of the last Write begin, and where they end. Between them there may be bytes of others when
    /// they are further apart than what was written.
    qint64 WrittenFrom() const { return from_; }
    qint64 WrittenTo() const { return to_; }

    /// Why the first step failed that did, without a full stop.
    QString Reason() const { return reason_; }

  private:
    bool Failed();

    QString path_;
    qint64 handle_ = -1;
    bool appends_ = false;
    bool held_ = false;
    qint64 from_ = 0;
    qint64 to_ = 0;
    QString reason_;
};

enum class Moved {
    Done,
    NameTaken,  ///< there is something of that name, and it was left alone
    NotAllowed, ///< the folder or the system doesn't let it be replaced, although it could be written
    Failed
};

/// Renames the file at from to the name to, in one step that either happens or doesn't, and flushes the folder. What
/// had that name is gone then if it may be replaced. A reason goes to reason, if there is one.
Moved MoveFileTo(const QString& from, const QString& to, bool mayReplace, QString& reason);

/// Why the last call of the system failed, without a full stop; a full disk is called that.
QString LastSystemReason();
