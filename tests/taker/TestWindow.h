#pragma once

#include "support/FakeOfficeProbe.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingLauncher.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "support/WindowDriver.h"
#include "taker/ui/FrmTest.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

/// A test window on a test of that text, with doubles for everything outside, in a working directory of its own.
struct TestWindow {
    explicit TestWindow(const QString& text) {
        QDir::setCurrent(folder.path());
        session.UserSettings.DefaultDirectory = folder.path();
        session.UserSettings.DefaultEditor = QStringLiteral("editor");
        session.UserSettings.QuestionPrefix = QStringLiteral("Q.");
        session.UserSettings.QuestionSuffix = QStringLiteral(" ");
        session.Test = TestFromText(text);
    }
    ~TestWindow() { QDir::setCurrent(QDir::rootPath()); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    void Open(SpreadsheetExporter* exporter = nullptr) {
        window = std::make_unique<FrmTest>(
            TestWindowParts{session, prompts, chooser, clock, launcher, office, navigator, exporter, &store});
        ShowAndActivate(*window);
    }

    /// b back, f forward, s begin or resume, r report, e export, a auto-report, c continue, digits choose, t and l type
    /// and accept a short or long answer, d types into the short one.
    void Do(const QString& steps) {
        for (const QChar step : steps) {
            if (step == u't' || step == u'l') {
                const int box = step == u't' ? 0 : 1;
                Type(Control<QWidget>(QStringLiteral("txtanswer_%1").arg(box)), QStringLiteral("typed"));
                Click(*window, QStringLiteral("Label1_%1").arg(box));
            } else if (step == u'd') {
                Type(Control<QWidget>(QStringLiteral("txtanswer_0")), QStringLiteral("draft"));
            } else if (step.isDigit()) {
                Click(*window, QStringLiteral("Opt_%1").arg(step.digitValue()));
            } else {
                Click(*window, ButtonOf(step));
            }
        }
    }

    static QString ButtonOf(QChar letter) {
        switch (letter.unicode()) {
        case u'b':
            return QStringLiteral("CmdBack");
        case u'f':
            return QStringLiteral("CmdForward");
        case u's':
            return QStringLiteral("CmdBegin");
        case u'r':
            return QStringLiteral("CmdReport");
        case u'e':
            return QStringLiteral("CmdExport");
        case u'c':
            return QStringLiteral("CmdContinue");
        case u'q':
            return QStringLiteral("CmdQuit");
        default:
            return QStringLiteral("auto");
        }
    }

    template <typename Widget> Widget& Control(const QString& name) { return Find<Widget>(*window, name); }
    bool Seen(const QString& name) { return Control<QWidget>(name).isVisible(); }
    QString Caption() { return Control<QGroupBox>(QStringLiteral("framequest")).title(); }
    QString Text() { return Control<QTextEdit>(QStringLiteral("TxtQuest")).toPlainText(); }
    QString Status() { return Control<QLabel>(QStringLiteral("LblStatus")).text(); }
    QString FocusName() { return window->focusWidget() ? window->focusWidget()->objectName() : QString(); }

    QTemporaryDir folder;
    Session session;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    FixedClock clock{QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9))};
    RecordingLauncher launcher;
    FakeOfficeProbe office;
    RecordingNavigator navigator;
    MemorySettingsStore store;
    std::unique_ptr<FrmTest> window;
};
