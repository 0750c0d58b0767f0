#pragma once

#include "base/Failure.h"

#include <QString>

/// How the window of a program that is started opens, where the system lets the caller say so.
enum class WindowState { Normal, Minimized };

/// Starts other programs and does not wait for them.
class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Opens a file with a program: on Windows by the command line program + " " + path, in which the path stands as it
    /// is; elsewhere the path is the one argument.
    virtual Result Open(const QString& program, const QString& path, WindowState window = WindowState::Normal) = 0;
};
