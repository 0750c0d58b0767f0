#pragma once

#include "editor/ui/frmTestEditor.h"
#include "support/Files.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

inline const QByteArray Mood = "[TITLE]Mood[/TITLE]\r\n\r\n[Q]How are you?\r\n[A]Well[v=1][/A]\r\n[/Q]\r\n";

/// The editor's window on a folder of its own that is the current one, with a scripted outside.
struct Editor {
    explicit Editor(const QString& file = u"mood.vlm"_s, const QByteArray& content = Mood) {
        settings.DefaultDirectory = folder.path();
        QDir::setCurrent(folder.path());
        PutBytes(folder.filePath(u"mood.vlm"_s), content);
        test.TestFileName = file;
        loaded = OpenAgain();
    }
    ~Editor() { QDir::setCurrent(QDir::rootPath()); }

    /// A new window on the test that the document names.
    bool OpenAgain() {
        window = std::make_unique<frmTestEditor>(EditorFileParts{test, settings, prompts, chooser, navigator, *copies});
        const bool opened = window->Form_Load();
        if (opened)
            ShowAndActivate(*window);
        return opened;
    }

    template <typename Control> Control& The(const QString& name) { return Find<Control>(*window, name); }
    void ClickOn(const QString& name) { Click(*window, name); }
    void ChooseItem(const QString& name) { Choose(*window, name); }
    void ChooseTab(int index) {
        auto& tabs = The<EditorTabStrip>(u"tbsOptions"_s);
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
    }
    QString State() { return The<QLabel>(u"SaveState"_s).text(); }
    void TypeTitle(const QString& text) { Type(The<QLineEdit>(u"txtTitle"_s), text); }
    QString Home() { return The<QLabel>(u"lblinstructions"_s).text(); }
    QString Command2() { return The<QPushButton>(u"Command2"_s).text(); }
    bool HomeIsSeen() { return The<QLabel>(u"lblinstructions"_s).isVisible(); }
    /// The number of the page in view, from 1; 0 on the home view.
    int PageInView() {
        for (int i = 0; i < EditorPageCount; ++i)
            if (The<QWidget>(u"picOptions_%1"_s.arg(i)).isVisible())
                return i + 1;
        return 0;
    }
    ExpectedPrompt& ExpectQuestion(PromptAnswer answer) {
        return prompts.Expect(u"Do you Want to Save Changes?"_s, answer)
            .Titled(u"Confirm"_s)
            .WithButtons(PromptButtons::YesNoCancel)
            .WithIcon(PromptIcon::Question);
    }
    QString Path(const QString& name) const { return QDir::toNativeSeparators(folder.filePath(name)); }
    bool CopyIsLeft() { return Recovery(kept.path(), clock).Left().has_value(); }

    QTemporaryDir folder;
    QTemporaryDir kept;
    FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(14, 5))};
    TestDocument test;
    Settings settings;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    std::unique_ptr<Recovery> copies = std::make_unique<Recovery>(kept.path(), clock);
    std::unique_ptr<frmTestEditor> window;
    bool loaded = false;
};
