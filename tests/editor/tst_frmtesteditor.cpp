#include "editor/FindingsText.h"
#include "editor/ui/frmTestEditor.h"
#include "support/Files.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/SmallDisk.h"
#include "support/WindowDriver.h"
#include "testdoc/TestParser.h"

#include <QClipboard>
#include <QGroupBox>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Mood = "[TITLE]Mood[/TITLE]\r\n\r\n[Q]How are you?\r\n[A]Well[v=1][/A]\r\n[/Q]\r\n";
const QString SaveQuestion = u"Do you Want to Save Changes?"_s;

/// The editor's window on a folder of its own that is the current one, with a scripted outside.
struct Editor {
    explicit Editor(const QString& file = u"mood.vlm"_s) {
        settings.DefaultDirectory = folder.path();
        QDir::setCurrent(folder.path());
        PutBytes(folder.filePath(u"mood.vlm"_s), Mood);
        test.TestFileName = file;
        window = std::make_unique<frmTestEditor>(EditorFileParts{test, settings, prompts, chooser, navigator, *copies});
        loaded = window->Form_Load();
        if (loaded)
            ShowAndActivate(*window);
    }
    ~Editor() { QDir::setCurrent(QDir::rootPath()); }

    template <typename Control> Control& The(const QString& name) { return Find<Control>(*window, name); }
    void ClickOn(const QString& name) { Click(*window, name); }
    void ChooseItem(const QString& name) { Choose(*window, name); }
    void ChooseTab(int index) {
        auto& tabs = The<EditorTabStrip>(u"tbsOptions"_s);
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
    }
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
        return prompts.Expect(SaveQuestion, answer)
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

} // namespace

class tst_frmtesteditor : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Window_Controls_Captions();
    void Form_Load_File_HomeViewOfIt();
    void Form_Load_BrokenFile_EndsTheProgram();
    void Tabs_EachByClickAndKey_PageHelpAndQuestion();
    void Home_Keys_FirstTabAndButtons();
    void Heading_TitleOfManyLines_OneLine();
    void Home_FromEachPage_WhatStaysInView();
    void About_Typing_WritesTheDocumentAtOnce();
    void Close_AfterATab_Asks_data();
    void Close_AfterATab_Asks();
    void NewOpenList_Cancel_GoOnAllTheSame();
    void Open_DialogCancelled_DocumentClearedControlsStay();
    void Open_DialogCancelled_EntriesShownCannotBeDeleted();
    void Open_Unreadable_NoNameIsLeft();
    void Save_Untitled_IntoTheCurrentDirectory();
    void Save_NoName_AsksForOne();
    void Save_Fails_TestAndQuestionStay();
    void Save_TooLong_SaysByHowMuchAndStays();
    void Leave_UnsavedChanges_CopyIsKept_data();
    void Leave_UnsavedChanges_CopyIsKept();
    void SaveState_OnAnyWay_TellsWhatIsSo();
    void FileList_TwelveFiles_FirstTen();
    void Findings_Chosen_LeadToThePage();
};

void tst_frmtesteditor::Window_Controls_Captions() {
    Editor editor;
    const auto captions = [&](const QString& menu) {
        QStringList items;
        for (const QAction* top : editor.window->menuBar()->actions())
            if (top->text() == menu)
                for (const QAction* item : top->menu()->actions())
                    if (item->isVisible())
                        items.append(item->isSeparator() ? u"-"_s : item->text());
        return items;
    };
    QCOMPARE(captions(u"&File"_s), (QStringList{u"&New Test"_s, u"&Open Test"_s, u"&Save Test"_s, u"Save &As"_s,
                                                u"Save as &html"_s, u"-"_s, u"&1 mood.vlm"_s, u"-"_s, u"&Quit"_s}));
    QCOMPARE(captions(u"&Options"_s), QStringList{u"&General Options"_s});
    QCOMPARE(captions(u"&Help"_s), (QStringList{u"Help"_s, u"&About Vellumo"_s}));
    QStringList tabs;
    for (int i = 0; i < EditorPageCount; ++i)
        tabs.append(editor.The<EditorTabStrip>(u"tbsOptions"_s).tabText(i));
    QCOMPARE(tabs, (QStringList{u"About Test"_s, u"Sub-Scales"_s, u"Template"_s, u"Questions"_s, u"Analysis"_s,
                                u"Options"_s, u"Automation"_s, u"Export"_s}));
    QCOMPARE(editor.The<EditorTabStrip>(u"tbsOptions"_s).tabToolTip(0), u"General information about test"_s);
    QCOMPARE(editor.The<QPushButton>(u"Command1"_s).text(), u"Save Test"_s);
    QCOMPARE(editor.The<QPushButton>(u"Quit"_s).text(), u"Quit"_s);
    editor.ChooseItem(u"gen"_s);
    editor.ChooseItem(u"about"_s);
    editor.ChooseItem(u"savehtml"_s);
    editor.ClickOn(u"Label10"_s);
    editor.ClickOn(u"Picture2"_s);
    QCOMPARE(editor.navigator.Calls,
             (QStringList{u"ShowGeneralOptions"_s, u"ShowAbout"_s, u"ExportHtml"_s, u"ExportHtml"_s, u"ExportHtml"_s}));
}

void tst_frmtesteditor::Form_Load_File_HomeViewOfIt() {
    Editor editor;
    QVERIFY(editor.loaded);
    QCOMPARE(editor.Home(), u"The current test is '"_s + editor.Path(u"mood.vlm"_s) +
                                u"'\n\nSelect 'tabs' above to edit test properties."_s);
    QCOMPARE(editor.window->windowTitle(), u"Vellumo Editor - "_s + editor.Path(u"mood.vlm"_s));
    QCOMPARE(editor.Command2(), u"Return To Main Menu"_s);
    QVERIFY(editor.The<QFrame>(u"Frame23"_s).isVisible());
    QVERIFY(editor.The<QAction>(u"savehtml"_s).isEnabled());
    // Nothing to save yet.
    QVERIFY(editor.window->close());
    QCOMPARE(editor.navigator.Calls, QStringList{u"ShowStartScreen"_s});
}

void tst_frmtesteditor::Form_Load_BrokenFile_EndsTheProgram() {
    Editor editor;
    PutBytes(editor.Path(u"broken.vlm"_s), "[TITLE]Mood");
    editor.prompts.Expect(u"I can't find the [/TITLE]tag in the file: "_s + editor.Path(u"broken.vlm"_s))
        .WithIcon(PromptIcon::Critical);
    editor.window.reset();
    editor.test.TestFileName = u"broken.vlm"_s;
    frmTestEditor window(
        {editor.test, editor.settings, editor.prompts, editor.chooser, editor.navigator, *editor.copies});
    QVERIFY(!window.Form_Load());
    QCOMPARE(editor.navigator.Calls, QStringList{u"EndProgram"_s});
}

void tst_frmtesteditor::Tabs_EachByClickAndKey_PageHelpAndQuestion() {
    static const QStringList topics{u"EditorAboutTest"_s,  u"EditorSubscales"_s, u"EditorTemplate"_s,
                                    u"EditorQuestions"_s,  u"EditorAnalysis"_s,  u"EditorOptions"_s,
                                    u"EditorAutomation"_s, u"EditorExport"_s};
    Editor editor;
    const auto check = [&](int page) {
        QCOMPARE(editor.PageInView(), page);
        QCOMPARE(editor.Command2(), u"Return To Editor Menu"_s);
        QCOMPARE(editor.The<EditorTabStrip>(u"tbsOptions"_s).property("HelpContextID").toInt(), 4001 + page);
        QCOMPARE(editor.The<QGroupBox>(u"FrmQuestion"_s).title(), u"Question 1 of 1"_s);
        editor.ChooseItem(u"hlp"_s);
        QCoreApplication::processEvents();
        QCOMPARE(editor.navigator.Calls.takeLast(), u"ShowHelp(%1)"_s.arg(topics[page - 1]));
    };
    for (int page = 1; page <= EditorPageCount; ++page) {
        editor.ChooseTab(page - 1);
        check(page);
        // The same tab again counts, too: it leads back from the home view.
        editor.ClickOn(u"Command2"_s);
        QCOMPARE(editor.PageInView(), 0);
        editor.ChooseTab(page - 1);
        check(page);
    }
    for (int page = 1; page <= EditorPageCount; ++page) { // from the last tab round to the first
        Press(*editor.window, Qt::Key_Tab, Qt::ControlModifier);
        check(page);
        // The keyboard goes on in the page.
        QVERIFY(editor.The<QWidget>(u"picOptions_%1"_s.arg(page - 1)).isAncestorOf(editor.window->focusWidget()));
    }
}

void tst_frmtesteditor::Home_Keys_FirstTabAndButtons() {
    Editor byArrow;
    Press(byArrow.The<EditorTabStrip>(u"tbsOptions"_s), Qt::Key_Right);
    QCOMPARE(byArrow.PageInView(), 1);
    Press(byArrow.The<EditorTabStrip>(u"tbsOptions"_s), Qt::Key_Right);
    QCOMPARE(byArrow.PageInView(), 2);
    Press(byArrow.The<QPushButton>(u"Command2"_s), Qt::Key_Return);
    QCOMPARE(byArrow.PageInView(), 0);

    Editor byShortcut;
    Press(byShortcut.The<EditorTabStrip>(u"tbsOptions"_s), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(byShortcut.window->focusWidget(), &byShortcut.The<QWidget>(u"txtTitle"_s));
}

void tst_frmtesteditor::Heading_TitleOfManyLines_OneLine() {
    Editor editor;
    auto& heading = editor.The<QLabel>(u"Heading"_s);
    const int height = heading.height();
    editor.ChooseTab(0);
    QApplication::clipboard()->setText(u"First line\nsecond line\n"_s.repeated(100));
    editor.The<QLineEdit>(u"txtTitle"_s).selectAll();
    editor.The<QLineEdit>(u"txtTitle"_s).paste();
    QCoreApplication::processEvents();
    QVERIFY(heading.text().startsWith(u"First line second line"_s));
    QCOMPARE(heading.height(), height);
}

void tst_frmtesteditor::Home_FromEachPage_WhatStaysInView() {
    // The last two pages stay in view over a home view that New and Save As bring, the last one over that of Save Test.
    for (int page = 1; page <= EditorPageCount; ++page) {
        Editor editor;
        editor.ChooseTab(page - 1);
        editor.ClickOn(u"Command1"_s);
        QCOMPARE(editor.PageInView(), page == 8 ? 8 : 0);
        QCOMPARE(editor.Command2(), u"Return To Main Menu"_s);

        editor.ChooseTab(page - 1);
        editor.ExpectQuestion(PromptAnswer::No);
        editor.ChooseItem(u"mnufile_1"_s);
        QCOMPARE(editor.PageInView(), page > 6 ? page : 0);

        editor.ChooseTab(page - 1);
        editor.ClickOn(u"Command2"_s);
        QVERIFY(editor.HomeIsSeen());
    }
}

void tst_frmtesteditor::About_Typing_WritesTheDocumentAtOnce() {
    Editor editor;
    editor.ChooseTab(0);
    editor.TypeTitle(u"!"_s);
    QCOMPARE(editor.test.TestTitle, u"Mood!"_s);
    Type(editor.The<TextBox>(u"txtIntroduction"_s), u"A\nB"_s);
    QCOMPARE(editor.test.TestIntroduction, u"A\r\nB"_s);
    Type(editor.The<TextBox>(u"txtInstructions"_s), u"I"_s);
    Type(editor.The<TextBox>(u"txtCompletion"_s), u"é"_s);
    QCOMPARE(editor.test.TestInstructions, u"I"_s);
    QCOMPARE(editor.test.TestCompletionMessage, u"é"_s);
    // What is pasted is never cut.
    QApplication::clipboard()->setText(QString(40000, u'x'));
    editor.The<QLineEdit>(u"txtTitle"_s).paste();
    QCOMPARE(editor.test.TestTitle.size(), 40005);
}

void tst_frmtesteditor::Close_AfterATab_Asks_data() {
    QTest::addColumn<PromptAnswer>("answer");
    QTest::addColumn<QString>("by");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("title bar, yes") << PromptAnswer::Yes << QString() << true << true;
    QTest::newRow("title bar, no") << PromptAnswer::No << QString() << true << false;
    QTest::newRow("title bar, cancel") << PromptAnswer::Cancel << QString() << false << false;
    QTest::newRow("Quit, yes") << PromptAnswer::Yes << u"Quit"_s << true << true;
    QTest::newRow("Quit, cancel") << PromptAnswer::Cancel << u"Quit"_s << true << false;
}

void tst_frmtesteditor::Close_AfterATab_Asks() {
    QFETCH(const PromptAnswer, answer);
    QFETCH(const QString, by);
    QFETCH(const bool, closes);
    QFETCH(const bool, saves);
    Editor editor;
    editor.ChooseTab(4);
    if (saves)
        editor.test.TestTitle = u"Changed"_s;
    editor.ExpectQuestion(answer);
    if (by.isEmpty())
        editor.window->close();
    else
        editor.ClickOn(by);
    QCOMPARE(!editor.window->isVisible(), closes);
    QCOMPARE(editor.navigator.Calls, closes ? QStringList{u"ShowStartScreen"_s} : QStringList());
    QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)).contains("Changed"), saves);
}

void tst_frmtesteditor::NewOpenList_Cancel_GoOnAllTheSame() {
    Editor editor;
    PutBytes(editor.Path(u"other.vlm"_s), "[TITLE]Other[/TITLE]");
    editor.ChooseTab(0);
    editor.ExpectQuestion(PromptAnswer::Cancel);
    editor.ChooseItem(u"mnufile_1"_s);
    QCOMPARE(editor.window->windowTitle(), u"Vellumo Editor - untitled.vlm"_s);
    QVERIFY(editor.test.TestTitle.isEmpty());

    editor.ChooseTab(0);
    editor.ExpectQuestion(PromptAnswer::Cancel);
    editor.chooser.ExpectOpen(editor.Path(u"mood.vlm"_s));
    editor.ChooseItem(u"mnufile_2"_s);
    QCOMPARE(editor.test.TestTitle, u"Mood"_s);
    QCOMPARE(editor.chooser.Questions().last().Filter, u"Test Files (*.vlm)|*.vlm| All Files (*.*)|*.*"_s);

    editor.ChooseTab(0);
    editor.ExpectQuestion(PromptAnswer::Cancel);
    editor.ChooseItem(u"mnuop_2"_s);
    QCOMPARE(editor.The<QLineEdit>(u"txtTitle"_s).text(), u"Other"_s);
    QCOMPARE(QDir::currentPath(), editor.folder.path());
}

void tst_frmtesteditor::Open_DialogCancelled_DocumentClearedControlsStay() {
    Editor editor;
    editor.chooser.ExpectOpen({});
    editor.ChooseItem(u"mnufile_2"_s);
    QVERIFY(editor.test.TestFileName.isEmpty());
    QCOMPARE(editor.test.QuestionCount, 0);
    QCOMPARE(editor.The<QLineEdit>(u"txtTitle"_s).text(), u"Mood"_s);
    QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)), Mood);
    QCOMPARE(editor.The<QLabel>(u"FindingsLength"_s).text(), LengthUsedText(0));
    QCOMPARE(editor.The<QLabel>(u"Heading"_s).text(), QString());
}

void tst_frmtesteditor::Open_DialogCancelled_EntriesShownCannotBeDeleted() {
    struct Entries {
        int Tab;
        QString List;
        QString Delete;
    };
    for (const Entries& one :
         {Entries{1, u"ListSubScale"_s, u"CmdSubScaleAdd_1"_s}, Entries{2, u"ListTemplate"_s, u"Cmdtemplate_1"_s},
          Entries{4, u"ListTotalAnalysis"_s, u"CmdTotalAdd_1"_s}}) {
        Editor editor;
        PutBytes(editor.Path(u"scales.vlm"_s), "[TITLE]Scales[/TITLE]\r\n[SUBSCALES]\r\n[S]One\r\n[/S]\r\n[/SUBSCALES]"
                                               "\r\n[TOTAL]\r\n[SIG]0 to 5 =Low[/SIG]\r\n[/TOTAL]\r\n[TEMPLATE]\r\n"
                                               "[A]Yes[v=1][/A]\r\n[/TEMPLATE]\r\n[Q]How?\r\n[/Q]\r\n");
        editor.chooser.ExpectOpen(editor.Path(u"scales.vlm"_s));
        editor.ChooseItem(u"mnufile_2"_s);
        editor.chooser.ExpectOpen({});
        editor.ChooseItem(u"mnufile_2"_s);
        editor.ChooseTab(one.Tab);
        auto& list = editor.The<QListWidget>(one.List);
        QCOMPARE(list.count(), 1);
        list.setCurrentRow(0);
        editor.ClickOn(one.Delete);
        QCOMPARE(list.count(), 0);
        QCOMPARE(editor.test.SubscaleCount, 0);
        QCOMPARE(editor.test.TotalRangeCount, 0);
        QCOMPARE(editor.test.TemplateAnswerCount, 0);
    }
}

void tst_frmtesteditor::Open_Unreadable_NoNameIsLeft() {
    Editor editor;
    PutBytes(editor.Path(u"long.vlm"_s), QByteArray(40000, 'x'));
    editor.chooser.ExpectOpen(editor.Path(u"long.vlm"_s));
    editor.prompts.Expect(u"40000 characters"_s).InPart();
    editor.ChooseItem(u"mnufile_2"_s);
    QVERIFY(editor.Home().startsWith(u"There is currently no test loaded."_s));
    QVERIFY(!editor.The<QAction>(u"savehtml"_s).isEnabled());
}

void tst_frmtesteditor::Save_Untitled_IntoTheCurrentDirectory() {
    Editor editor;
    editor.ChooseItem(u"mnufile_1"_s);
    editor.ChooseTab(0);
    editor.TypeTitle(u"New"_s);
    editor.ChooseItem(u"mnufilesave"_s);
    QCOMPARE(BytesOf(editor.Path(u"untitled.vlm"_s)), QByteArray("[TITLE]New[/TITLE]\r\n\r\n"));
    QCOMPARE(editor.PageInView(), 1);
    QVERIFY(editor.window->close());
}

void tst_frmtesteditor::Save_NoName_AsksForOne() {
    Editor editor{QString()};
    editor.ChooseTab(0);
    editor.TypeTitle(u"New"_s);
    editor.chooser.ExpectSave({});
    editor.ChooseItem(u"mnufilesaveas"_s);

    editor.chooser.ExpectSave({});
    editor.prompts.Expect(u"Test Cannot Be Saved"_s);
    editor.ChooseItem(u"mnufilesave"_s);
    QCOMPARE(editor.PageInView(), 1);

    editor.ExpectQuestion(PromptAnswer::Yes);
    editor.chooser.ExpectSave({});
    QVERIFY(!editor.window->close());
    QCOMPARE(editor.test.TestTitle, u"New"_s);

    editor.chooser.ExpectSave(editor.Path(u"new.vlm"_s));
    editor.ClickOn(u"Command1"_s);
    const FileQuestion& question = editor.chooser.Questions().last();
    QCOMPARE(question.Filter, u"Text Files (*.vlm)|*.vlm| All Files (*.*)|*.*"_s);
    QCOMPARE(question.DefaultExtension, u".vlm"_s);
    QVERIFY(question.FileName.isEmpty());
    QCOMPARE(editor.window->windowTitle(), u"Vellumo Editor - "_s + editor.Path(u"new.vlm"_s));
    QVERIFY(editor.HomeIsSeen());
    QVERIFY(editor.The<QFrame>(u"Frame23"_s).isVisible());
    QVERIFY(editor.window->close());
}

void tst_frmtesteditor::Save_Fails_TestAndQuestionStay() {
    if (!SmallDisk::IsPossible)
        QSKIP("No disk can be made small here");
    Editor editor;
    editor.ChooseTab(0);
    editor.TypeTitle(u" is too long for this disk, with all these letters and some more of them"_s);
    {
        const SmallDisk disk(90);
        const QString message = u"Test Cannot Be Saved: "_s + editor.Path(u"mood.vlm"_s);
        editor.prompts.Expect(message).InPart();
        editor.ClickOn(u"Command1"_s);
        QCOMPARE(editor.PageInView(), 1);
        // This disk is too full for a copy of the changes, too, which is told once.
        editor.prompts.Expect(u"No copy of the unsaved changes can be kept"_s).InPart();
        // Whoever wants to save must not lose the test to what comes next.
        for (const QString& item : {u"mnufile_1"_s, u"mnufile_2"_s, u"mnuop_1"_s, u"quiteditor"_s}) {
            editor.ExpectQuestion(PromptAnswer::Yes);
            editor.prompts.Expect(message).InPart();
            editor.ChooseItem(item);
            QVERIFY(editor.test.TestTitle.startsWith(u"Mood is too long"_s));
            QVERIFY(editor.window->isVisible());
        }
        editor.ExpectQuestion(PromptAnswer::Yes);
        editor.prompts.Expect(message).InPart();
        QVERIFY(!editor.window->close());
    }
    QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)), Mood);
    editor.ClickOn(u"Command1"_s);
    QVERIFY(BytesOf(editor.Path(u"mood.vlm"_s)).startsWith("[TITLE]Mood is too long for this disk"));
    QVERIFY(editor.window->close());
}

void tst_frmtesteditor::Save_TooLong_SaysByHowMuchAndStays() {
    Editor editor;
    editor.ChooseTab(0);
    editor.test.TestIntroduction = QString(33000, u'x');
    editor.ExpectQuestion(PromptAnswer::Yes);
    editor.prompts.Expect(u"characters too long to be opened again. Nothing was written."_s).InPart();
    editor.ClickOn(u"Quit"_s);
    QVERIFY(editor.window->isVisible());
    QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)), Mood);
    QCOMPARE(editor.test.TestIntroduction.size(), 33000);
    editor.ExpectQuestion(PromptAnswer::Cancel);
    QVERIFY(!editor.window->close());
    editor.copies.reset();
    QVERIFY(editor.CopyIsLeft());
}

void tst_frmtesteditor::Leave_UnsavedChanges_CopyIsKept_data() {
    QTest::addColumn<QString>("leave");
    QTest::addColumn<bool>("copyIsKept");
    QTest::newRow("to the main menu, unasked") << u"main menu"_s << true;
    QTest::newRow("No") << u"no"_s << false;
    QTest::newRow("saved") << u"save"_s << false;
    QTest::newRow("the program crashes") << u"crash"_s << true;
}

void tst_frmtesteditor::Leave_UnsavedChanges_CopyIsKept() {
    QFETCH(const QString, leave);
    QFETCH(const bool, copyIsKept);
    Editor editor;
    editor.ChooseTab(0);
    editor.TypeTitle(u"!"_s);
    if (leave == u"main menu"_s) {
        editor.ClickOn(u"Command2"_s);
        editor.ClickOn(u"Command2"_s);
        QCOMPARE(editor.navigator.Calls, QStringList{u"ShowStartScreen"_s});
        // The start screen reads other tests into the document.
        editor.test.TestTitle = u"Of the list"_s;
        QVERIFY(editor.copies->Keep(editor.test).Ok());
    } else if (leave == u"no"_s) {
        editor.ExpectQuestion(PromptAnswer::No);
        editor.ClickOn(u"Quit"_s);
    } else if (leave == u"save"_s) {
        editor.ClickOn(u"Command1"_s);
    } else {
        QTRY_VERIFY_WITH_TIMEOUT(!QDir(editor.kept.path()).isEmpty(), 10000);
    }
    QVERIFY(!editor.CopyIsLeft()); // its program is still there
    editor.window.reset();
    editor.copies.reset();
    QCOMPARE(editor.CopyIsLeft(), copyIsKept);
    if (copyIsKept)
        QCOMPARE(Recovery(editor.kept.path(), editor.clock).Left()->Test.TestTitle, u"Mood!"_s);
}

void tst_frmtesteditor::SaveState_OnAnyWay_TellsWhatIsSo() {
    Editor editor;
    const auto state = [&] { return editor.The<QLabel>(u"SaveState"_s).text(); };
    QCOMPARE(state(), u"Saved"_s);
    editor.ChooseTab(0);
    editor.TypeTitle(u"!"_s);
    QTRY_COMPARE(state(), u"Not saved"_s);
    // The home view settles the question before leaving, but not this.
    editor.ClickOn(u"Command2"_s);
    QCOMPARE(state(), u"Not saved"_s);
    editor.ChooseItem(u"mnufilesave"_s);
    QCOMPARE(state(), u"Saved"_s);
    editor.ChooseTab(0);
    Press(editor.The<QLineEdit>(u"txtTitle"_s), Qt::Key_End);
    editor.TypeTitle(u"?"_s);
    QTRY_COMPARE(state(), u"Not saved"_s);
    Press(editor.The<QLineEdit>(u"txtTitle"_s), Qt::Key_Backspace);
    QTRY_COMPARE(state(), u"Saved"_s);
    editor.ExpectQuestion(PromptAnswer::No);
    editor.ChooseItem(u"mnufile_1"_s);
    QCOMPARE(state(), QString());
}

void tst_frmtesteditor::FileList_TwelveFiles_FirstTen() {
    Editor editor;
    for (int i = 10; i <= 20; ++i)
        PutBytes(editor.Path(u"a&b %1.vlm"_s.arg(i)), "[TITLE]T[/TITLE]");
    editor.ChooseItem(u"mnufile_1"_s);
    QCOMPARE(editor.The<QAction>(u"mnuop_1"_s).text(), u"&1 a&&b 10.vlm"_s);
    QCOMPARE(editor.The<QAction>(u"mnuop_9"_s).text(), u"&9 a&&b 18.vlm"_s);
    QCOMPARE(editor.The<QAction>(u"mnuop_10"_s).text(), u"10 a&&b 19.vlm"_s);
    QVERIFY(!editor.The<QAction>(u"mnuop_0"_s).isVisible());
    editor.ChooseItem(u"mnuop_10"_s);
    QCOMPARE(editor.test.TestFileName, editor.Path(u"a&b 19.vlm"_s));
    // The list is that of its folder, also where another one has become the current one.
    QDir::setCurrent(editor.kept.path());
    editor.ChooseItem(u"mnuop_1"_s);
    QCOMPARE(editor.test.TestFileName, editor.Path(u"a&b 10.vlm"_s));
}

void tst_frmtesteditor::Findings_Chosen_LeadToThePage() {
    Editor editor;
    auto& line = editor.The<FindingsLine>(u"FindingsLine"_s);
    Q_EMIT line.Chosen({TestPlace::CompletionMessage, 0, 0});
    QCOMPARE(editor.PageInView(), 1);
    QVERIFY(editor.The<TextBox>(u"txtCompletion"_s).hasFocus());
    Q_EMIT line.Chosen({TestPlace::Question, 1, 0});
    QCOMPARE(editor.PageInView(), 4);
    Q_EMIT line.Chosen({TestPlace::TotalRange, 0, 1}); // gone meanwhile
    QCOMPARE(editor.PageInView(), 4);
    // What is typed is looked at in a pause.
    editor.ChooseTab(0);
    editor.TypeTitle(u"["_s);
    QTRY_VERIFY(Find<QPushButton>(line, u"FindingsSummary"_s).accessibleName().contains(u"square bracket"_s));
}

QTEST_MAIN(tst_frmtesteditor)
#include "tst_frmtesteditor.moc"
