#pragma once

#include "platform/SafeFile.h"

/// Writes content over what the file at target holds, where no other file can have its name. A copy of the earlier
/// version, "NAME.earlier", is beside it meanwhile. The lock, if there is one, notes what is going on, so that the next
/// one who takes it puts the earlier version back when this program ends in the middle. Fresh is a file that holds the
/// content, too; it goes when all is done.
WriteOutcome WriteInPlace(const QString& target, const QString& fresh, const QByteArray& content, FileLock* lock);

/// The hidden file beside target that holds what is to be written.
QString FreshNameFor(const QString& target);

/// Whether the note of a lock says that its file was being written over in place.
bool IsWrittenOver(const QByteArray& note);

/// Makes the file at target what it was before, when a program that noted that ended while it wrote over it; unless
/// somebody has changed it since. False when that failed, so that it has to be tried again.
bool PutBackEarlier(const QString& target, const QByteArray& note);

/// For those who read the file at path without its lock: waits for whoever writes it, and puts back what a program
/// left that ended while it wrote over the file.
void AwaitWriter(const QString& path);

inline const QString ReadBackDiffers = QStringLiteral("what was read back differs from what was written");

/// Whether the file holds content from a position on.
bool Holds(const DiskFile& file, qint64 position, const QByteArray& content);
