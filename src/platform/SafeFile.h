#pragma once

#include "base/Failure.h"
#include "platform/DiskFile.h"
#include "platform/FileLock.h"

struct WriteManner {
    /// Who may read the file when it is made new.
    Audience Readers = Audience::OwnerOnly;
    /// Nothing may be there yet; see NameTaken.
    bool MustBeNew = false;
    /// The file's lock, when the caller has it already.
    FileLock* Held = nullptr;
};

struct WriteOutcome {
    /// The file holds the whole content.
    bool Written = false;
    /// Why it doesn't, without a full stop.
    QString Reason;
    /// A sentence that says where the earlier version is; empty when all is done.
    QString Kept;
    /// It had to be new, and there is something of that name.
    bool NameTaken = false;
};

/// As WriteFile, in a manner of its own, and with the pieces of the message.
WriteOutcome WriteFileInManner(const QString& path, const QByteArray& content, const WriteManner& manner);

/// The outcome as a message: "Can't write the file 'path': reason. What was kept."
Result ResultOf(const QString& path, const WriteOutcome& outcome);

/// Writes content to the file at path, which is made or replaced, under its lock. The content goes to a new file beside
/// it, which is flushed to the disk, read back and then renamed, so that at any moment there is either the earlier
/// version or the new one under the name. Links are followed; permissions, owner and group stay as they are. Other hard
/// links of the file keep the earlier version. On failure the message names the file and the reason, and the earlier
/// version is what it was.
///
/// Where the system lets the file be written but not be replaced, a copy of the earlier version stays beside it until
/// the new one is complete; where no file can be made beside it, it is left alone.
Result WriteFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly,
                 FileLock* held = nullptr);

/// Writes content to the end of what the file at path holds, under its lock, and makes it when it isn't there. What it
/// held is never touched, nor what other programs put there at the same time; when writing fails, the piece that was
/// written is cut off again, as long as it is the end of the file. The message is as for WriteFile.
Result AppendToFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly,
                    FileLock* held = nullptr);

/// Whether the last text that was appended under this lock is there in part only, since its program ended while it
/// wrote.
bool EndsCutOff(const FileLock& lock, const QString& path);
