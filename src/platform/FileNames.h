#pragma once

#include <QString>

/// A person's name as a file or directory name. Every letter is kept, but a character that a file system forbids or
/// that would lead to another folder (separators, : * ? " < > |, control characters, trailing dots and blanks, a name
/// of dots only) becomes "_", one for one, on every system alike. Where something was replaced, and where a name is
/// too long for a file or would be a device's on some system, "~" and six digits made of the whole name follow, so that
/// different names have different files. A name without any of that is its own file name.
QString FileNameOf(const QString& personName);

/// The path folder + before + the file name of the person + after. Where the system takes it for the same as that of
/// another name, since it makes no difference between capital and small letters, the digits follow here, too.
QString PathForPerson(const QString& folder, const QString& before, const QString& personName, const QString& after);

/// The separator between directories on this system.
extern const QChar DirectorySeparator;

/// Whether the path ends in a directory separator ("\" and "/" both count on Windows).
bool EndsInSeparator(const QString& path);
