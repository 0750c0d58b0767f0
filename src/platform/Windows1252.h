#pragma once

#include <QByteArray>
#include <QString>

/// The text of bytes in windows-1252, whose five undefined bytes stand for themselves, so that every byte is one
/// character.
QString DecodeWindows1252(const QByteArray& bytes);

/// The text in windows-1252. Sets fits to false, if it is given, when a character had to be replaced.
QByteArray EncodeWindows1252(const QString& text, bool* fits = nullptr);
