#pragma once

#include "base/Failure.h"

#include <QString>

/// Starts other programs and does not wait for them.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Opens a file with a program: one command line on Windows, the path as one argument elsewhere.
    virtual Result Open(const QString& program, const QString& path) = 0;
};
