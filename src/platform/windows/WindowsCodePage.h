#pragma once

#include <QByteArray>
#include <QString>

/// The text of bytes in a code page by its number; a byte that it doesn't have becomes some other character.
QString DecodeInPage(const QByteArray& bytes, unsigned page);

/// The text in a code page by its number. Sets fits to false, if it is given, when a character had to be replaced.
QByteArray EncodeInPage(const QString& text, unsigned page, bool* fits = nullptr);
