#pragma once

#include <QString>

/// Why the file of that path's name couldn't hold anything on this system, without a full stop; empty when it can.
/// Windows takes such a name without a word, and then the bytes go to a device, or into a stream that no folder shows.
QString NameRefusal(const QString& path);
