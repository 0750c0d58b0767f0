#pragma once

#include "platform/Launcher.h"

class CommandLineLauncher : public Launcher {
  public:
    Result Open(const QString& program, const QString& path, WindowState window) override;
};
