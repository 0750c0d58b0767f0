#pragma once

#include <QString>
#include <QStringView>

/// The text in single quotes, as messages quote what they found. Past 200 characters the middle is left out, so that
/// a message about a huge text stays readable.
QString Quoted(QStringView text);

/// Upper case of the letters a to z only; every other character stays. Tags are ASCII, and so the result has the
/// same length and positions as the text.
QString AsciiUpper(QStringView text);

/// The text line by line, each line ended by CR LF, the last one too. A line may end with CR LF, LF or CR; a text that
/// ends with a line end has no empty line behind it, and an empty text has no line at all.
QString WithLineBreaks(QString text);
