#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The text in the encoding of the system's locale; nothing when a character doesn't fit it.
std::optional<QByteArray> EncodeInLocale(const QString& text);
