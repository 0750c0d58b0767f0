#pragma once

#include "platform/Launcher.h"

class DetachedLauncher : public Launcher {
  public:
    Result Open(const QString& program, const QString& path, WindowState window) override;
};
