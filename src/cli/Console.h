#pragma once

#include "platform/Clock.h"
#include "settings/Settings.h"

#include <QIODevice>

/// What the tool talks to: its three streams, the clock, the settings, which it never writes, and its folder.
struct Console {
    QIODevice& In;
    QIODevice& Out;
    QIODevice& Err;
    /// Progress is shown only where a person sees it and it doesn't end in a file.
    bool ErrIsTerminal = false;
    const Clock& Time;
    Settings UserSettings;
    /// The folder that holds the program, with the templates beside it.
    QString ProgramFolder = {};
};

enum ExitStatus { Done = 0, Unusable = 1, WrongUsage = 2 };

/// Writes a message and a line feed to standard error.
void Say(Console& console, const QString& message);
