#pragma once

#include "base/Failure.h"

#include <QString>

/// A template past this many bytes is refused without being read.
inline constexpr qint64 MaxTemplateBytes = 16 << 20;

/// The file that a template's path means. A relative path counts from the current directory; when no file is there, the
/// templates that came with the program are looked at: those beside it, in programFolder, and those of an installed
/// one. What is found nowhere stays as it is.
QString FindTemplateFile(const QString& path, const QString& programFolder);

/// Reads a template line by line, each line ended by CR LF, into text. Fails, with the reason alone, when it can't be
/// read; then text stays as it was.
Result ReadTemplateFile(const QString& path, const QString& programFolder, QString& text);
