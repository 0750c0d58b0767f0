#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text of bytes in an encoding that is known by a name as pages declare it (in lower case, such as "koi8-r").
/// Nothing when the system doesn't know the name or the bytes aren't in that encoding.
std::optional<QString> DecodeNamed(const QByteArray& bytes, const QString& name);

/// The text in such an encoding. Nothing when the system doesn't know the name or a character doesn't fit.
std::optional<QByteArray> EncodeNamed(const QString& text, const QString& name);
