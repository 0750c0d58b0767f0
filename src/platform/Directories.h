#pragma once

#include <QString>
#include <QStringList>

/// Makes path the current directory. Failures are ignored.
void ChangeDirectory(const QString& path);

/// Creates the directory, with the directories above it. Failures (it exists, no rights) are ignored.
/// Client data lies in it: it is made for its owner alone.
void MakeDirectory(const QString& path);

bool DirectoryExists(const QString& path);

/// The regular files in the current directory whose names match a wildcard such as "*.vlm", without regard to case, in
/// the order of their names.
QStringList ListFiles(const QString& wildcard);
