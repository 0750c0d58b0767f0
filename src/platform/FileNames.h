#pragma once

#include <QString>

/// A person's name as a file or directory name: every letter is kept, but a character that a file system forbids or
/// that would lead to another folder (separators, : * ? " < > |, control characters, trailing dots and blanks, a name
/// of dots only) becomes "_", one for one, on every system alike.
QString FileNameOf(const QString& personName);

/// The separator between directories on this system.
extern const QChar DirectorySeparator;

/// Whether the path ends in a directory separator ("\" and "/" both count on Windows).
bool EndsInSeparator(const QString& path);
