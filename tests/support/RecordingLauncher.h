#pragma once

#include "platform/Launcher.h"

#include <QList>

/// Notes what would be started; fails while FailWith holds a message.
class RecordingLauncher : public Launcher {
  public:
    struct Start {
        QString Program;
        QString Path;
        WindowState Window = WindowState::Normal;
        bool operator==(const Start&) const = default;
    };

    Result Open(const QString& program, const QString& path, WindowState window) override {
        Starts.append({program, path, window});
        return FailWith.isEmpty() ? Result::Done() : Result::Failed(FailWith);
    }

    QList<Start> Starts;
    QString FailWith;
};
