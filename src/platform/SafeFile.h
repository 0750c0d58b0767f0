#pragma once

#include "base/Failure.h"

#include <QByteArray>
#include <QString>

/// Who may read a file that is made new.
enum class Audience { OwnerOnly, Everybody };

/// Writes content to the file at path, which is made or replaced. An earlier version is first copied beside it, the
/// new content is written, flushed to the disk and read back, and only then does the copy go. Links are followed, and
/// an existing file keeps its permissions. On failure the message names the file and the reason, and says under which
/// name the earlier version is, or that it wasn't touched.
Result WriteFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly);

/// Writes content behind what the file at path holds, and makes it when it isn't there. What stood there is never
/// touched; when writing fails the file is cut back to its earlier length. The message is as for WriteFile.
Result AppendToFile(const QString& path, const QByteArray& content, Audience audience = Audience::OwnerOnly);
