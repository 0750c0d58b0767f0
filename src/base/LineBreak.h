#pragma once

#include <QString>

/// Carriage return and line feed, wherever lines are joined.
inline const QString LineBreak = QStringLiteral("\r\n");
