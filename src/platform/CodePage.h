#pragma once

#include <QByteArray>
#include <QString>

/// The text of bytes in the code page: the system's ANSI code page on Windows, windows-1252 elsewhere.
QString DecodeCodePage(const QByteArray& bytes);

/// The text in the code page. Sets fits to false, if it is given, when a character had to be replaced.
QByteArray EncodeCodePage(const QString& text, bool* fits = nullptr);
