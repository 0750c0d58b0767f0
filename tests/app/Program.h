#pragma once

#include "app/ui/AppNavigator.h"
#include "support/FakeClipboard.h"
#include "support/FakeOfficeProbe.h"
#include "support/FakeWordProcessor.h"
#include "support/Files.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingLauncher.h"
#include "support/RecordingPrinter.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QTemporaryDir>

/// The whole desktop program with real windows and a scripted outside, on a working directory of its own.
struct Program {
    Program() {
        store.Values[QStringLiteral("defaultdirectory")] = folder.path();
        store.Values[QStringLiteral("globaloptionQuestionPrefix")] = QStringLiteral("Q.");
        store.Values[QStringLiteral("globaloptionQuestionSuffix")] = QStringLiteral(" ");
        store.Values[QStringLiteral("NamePersist")] = QStringLiteral("True");
    }
    // The folder can't be removed while it is the current one.
    ~Program() { QDir::setCurrent(QDir::rootPath()); }

    void Put(const QString& name, const QByteArray& content) { PutBytes(folder.filePath(name), content); }

    QTemporaryDir folder;
    /// Where copies of unsaved tests are kept.
    QTemporaryDir kept;
    Session session;
    ProgramStart start;
    MemorySettingsStore store;
    DefaultFolders folders{folder.path(), folder.path()};
    FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(14, 5, 9))};
    RecordingLauncher launcher;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    RecordingPrinter printer;
    FakeClipboard clipboard;
    FakeOfficeProbe office;
    FakeWordProcessor word;
    int ends = 0;
    AppNavigator navigator{{session, start, store, folders, clock, launcher,
                            ReportPorts{prompts, chooser, printer, clipboard, office, word}, [this] { ++ends; },
                            kept.path()}};
};
