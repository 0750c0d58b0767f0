#pragma once

#include "base/Failure.h"

#include <QString>

/// How the window of a program that is started opens, where the system lets the caller say so.
enum class WindowState { Normal, Minimized };

/// Starts other programs and does not wait for them.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Opens a file with a program. The path is made absolute, so that no name is taken for an option. On Windows it
    /// follows the program and a blank in the command line, without quotes; elsewhere it is the one argument.
    virtual Result Open(const QString& program, const QString& path, WindowState window = WindowState::Normal) = 0;
};
