#pragma once

#include <QFile>

/// Hands what was written to the disk. False, with the reason in the file's errorString where there is one, when
/// that fails; a device that has no disk behind it counts as flushed.
bool FlushToDisk(QFile& file);
