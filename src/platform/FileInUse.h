#pragma once

#include <QString>

/// Whether another program holds a lock on the file, or on a part of it. False when that can't be found out.
bool IsLockedByAnotherProgram(const QString& path);
