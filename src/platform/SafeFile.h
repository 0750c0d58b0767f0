#pragma once

#include "base/Failure.h"

#include <QByteArray>
#include <QString>

/// Who may read a file that is made new.
enum class Audience { OwnerOnly, Everybody };

struct WriteManner {
    /// Who may read the file when it is made new.
    Audience Readers = Audience::OwnerOnly;
    /// When writing stops half way, the piece of a new file stays; otherwise it is removed, lest it pass for the whole.
    bool PieceStays = false;
    /// Not empty when content is only the beginning of what was to be written: why there is no more of it. It is
    /// written, and that is a failure with this reason.
    QString StopsBecause = {};
};

struct WriteOutcome {
    /// The file holds the whole content.
    bool Written = false;
    /// Why it doesn't, without a full stop.
    QString Reason;
    /// A sentence that says where the earlier version is; empty when all is done.
    QString Kept;
};

/// As WriteFile, in a manner of its own, and with the pieces of the message.
WriteOutcome WriteFileInManner(const QString& path, const QByteArray& content, const WriteManner& manner);

/// Writes content to the file at path, which is made or replaced. An earlier version is first copied beside it, the
/// new content is written, flushed to the disk and read back, and only then does the copy go. Links are followed, and
/// an existing file keeps its permissions. On failure the message names the file and the reason, and says under which
/// name the earlier version is, or that it wasn't touched.
Result WriteFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly);

/// Writes content behind what the file at path holds, and makes it when it isn't there. What stood there is never
/// touched; when writing fails the file is cut back to its earlier length. The message is as for WriteFile.
Result AppendToFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly);
