#include "editor/EditorWindow.h"
#include "editor/FindingsText.h"
#include "support/SmallDisk.h"
#include "testdoc/TestParser.h"

#include <QClipboard>
#include <QGroupBox>
#include <QMenuBar>

class tst_frmtesteditor : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Window_Controls_Captions() {
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
        QCOMPARE(editor.navigator.Calls, (QStringList{u"ShowGeneralOptions"_s, u"ShowAbout"_s, u"ExportHtml"_s,
                                                      u"ExportHtml"_s, u"ExportHtml"_s}));
    }

    void Form_Load_File_HomeViewOfIt() {
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

    void Form_Load_BrokenFile_SaysWhyAndStays() {
        Editor editor;
        PutBytes(editor.Path(u"broken.vlm"_s), "[TITLE]Mood");
        editor.prompts.Expect(u"I can't find the [/TITLE]tag in the file: "_s + editor.Path(u"broken.vlm"_s));
        editor.test.TestFileName = u"broken.vlm"_s;
        QVERIFY(!editor.OpenAgain());
        QCOMPARE(editor.navigator.Calls, QStringList());
        QCOMPARE(editor.test.TestTitle, u"Mood"_s);
    }

    void Tabs_EachByClickAndKey_PageHelpAndQuestion() {
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
            // The keyboard goes on in the page, also from the tabs, which the home view gives it to.
            QVERIFY(editor.The<QWidget>(u"picOptions_%1"_s.arg(page - 1)).isAncestorOf(editor.window->focusWidget()));
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

    void Home_Keys_FirstTabAndButtons() {
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

    void Heading_TitleOfManyLines_OneLine() {
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

    void Home_FromEachPage_WhatStaysInView() {
        // The last two pages stay in view over a home view that New and Save As bring, the last one over that of Save
        // Test.
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

    void About_Typing_WritesTheDocumentAtOnce() {
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

    void Close_AfterATab_Asks_data() {
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

    void Close_AfterATab_Asks() {
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

    void NewOpenList_Cancel_GoOnAllTheSame() {
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

    void Open_NothingComesOfIt_TestStays_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("message");
        QTest::addColumn<bool>("listed");
        QTest::newRow("cancelled") << QString() << QString() << false;
        QTest::newRow("too long") << u"long.vlm"_s << u"40000 characters"_s << false;
        QTest::newRow("broken") << u"broken.vlm"_s << u"I can't find the [/TITLE]tag in the file: "_s << false;
        QTest::newRow("broken, from the list")
            << u"broken.vlm"_s << u"I can't find the [/TITLE]tag in the file: "_s << true;
    }

    void Open_NothingComesOfIt_TestStays() {
        QFETCH(const QString, file);
        QFETCH(const QString, message);
        QFETCH(const bool, listed);
        Editor editor;
        PutBytes(editor.Path(u"long.vlm"_s), QByteArray(40000, 'x'));
        PutBytes(editor.Path(u"broken.vlm"_s), "[TITLE]Mood");
        editor.window->close();
        QVERIFY(editor.OpenAgain());
        editor.ChooseTab(0);
        editor.TypeTitle(u"!"_s);
        editor.ExpectQuestion(PromptAnswer::No);
        if (!message.isEmpty())
            editor.prompts.Expect(message).InPart();
        if (!listed)
            editor.chooser.ExpectOpen(file.isEmpty() ? file : editor.Path(file));
        editor.ChooseItem(listed ? u"mnuop_1"_s : u"mnufile_2"_s);
        QCOMPARE(editor.prompts.Shown().last().contains(editor.Path(file)), !file.isEmpty());
        QCOMPARE(editor.test.TestTitle, u"Mood!"_s);
        QCOMPARE(editor.test.TestFileName, editor.Path(u"mood.vlm"_s));
        QCOMPARE(editor.test.QuestionCount, 1);
        QCOMPARE(editor.PageInView(), 1);
        QTRY_COMPARE(editor.State(), u"Not saved"_s);
        // "No" was about what would have come.
        editor.ExpectQuestion(PromptAnswer::Cancel);
        QVERIFY(!editor.window->close());
        editor.window.reset();
        editor.copies.reset();
        QVERIFY(editor.CopyIsLeft());
    }

    void New_AfterAnotherTest_PagesBeginAfresh() {
        Editor editor(u"mood.vlm"_s, "[TITLE]T[/TITLE][TOTAL][SIG]0 to 5 =Low[/SIG][/TOTAL]"
                                     "[TEMPLATE][A]Yes[v=1][/A][/TEMPLATE][Q]How?[QT]3[/QT][/Q]");
        editor.ChooseTab(3);
        QVERIFY(editor.The<QPushButton>(u"ChkQType_0"_s).isEnabled());
        QVERIFY(editor.The<QPushButton>(u"ChkQType_3"_s).isChecked());
        editor.ChooseTab(4);
        editor.The<QListWidget>(u"ListTotalAnalysis"_s).setCurrentRow(0);
        editor.ExpectQuestion(PromptAnswer::No);
        editor.ChooseItem(u"mnufile_1"_s);
        editor.ChooseTab(4);
        QCOMPARE(editor.The<QLineEdit>(u"txtTotHigh"_s).text(), QString());
        editor.ChooseTab(3);
        QVERIFY(editor.The<QPushButton>(u"ChkQType_1"_s).isChecked());
        QVERIFY(!editor.The<QPushButton>(u"ChkQType_0"_s).isEnabled());
        // The first answer of the template is enough.
        editor.ChooseTab(2);
        Type(editor.The<TextBox>(u"txtTemplate"_s), u"Yes"_s);
        Type(editor.The<QLineEdit>(u"txtValueTemplate"_s), u"1"_s);
        editor.ClickOn(u"Cmdtemplate_0"_s);
        editor.ChooseTab(3);
        QVERIFY(editor.The<QPushButton>(u"ChkQType_0"_s).isEnabled());
    }

    void Save_Untitled_IntoTheCurrentDirectory() {
        Editor editor;
        editor.ChooseItem(u"mnufile_1"_s);
        editor.ChooseTab(0);
        editor.TypeTitle(u"New"_s);
        editor.ChooseItem(u"mnufilesave"_s);
        QCOMPARE(BytesOf(editor.Path(u"untitled.vlm"_s)), QByteArray("[TITLE]New[/TITLE]\r\n\r\n"));
        QCOMPARE(editor.PageInView(), 1);
        QVERIFY(editor.window->close());
    }

    void Save_NotAllWasRead_AsksBeforeItIsLost() {
        const QByteArray file = "[TITLE]Mood[/TITLE]\r\n\r\n[Q]Are you [really] well?\r\n[/Q]\r\n[TITEL]Moods[/TITEL]\r\n";
        Editor editor(u"mood.vlm"_s, file);
        for (const QString& choice : {u"Cancel"_s, u"Replace"_s}) {
            editor.prompts.ExpectChoice(u"question 1, line 3: the question's text ends here"_s, choice).InPart();
            editor.ChooseItem(u"mnufilesave"_s);
            QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)) == file, choice == u"Cancel"_s);
        }
        editor.ChooseItem(u"mnufilesave"_s);
    }

    void Save_FileIsAnothers_IsNotReplaced_data() {
        QTest::addColumn<bool>("isNew");
        QTest::addColumn<QString>("choice");
        QTest::addColumn<bool>("leaves");
        QTest::newRow("new test") << true << QString() << false;
        QTest::newRow("changed elsewhere, save as") << false << u"Save As"_s << false;
        QTest::newRow("changed elsewhere, cancel") << false << u"Cancel"_s << false;
        QTest::newRow("changed elsewhere, replace") << false << u"Replace"_s << false;
        QTest::newRow("changed elsewhere, left and gone on with") << false << u"Cancel"_s << true;
    }

    void Save_FileIsAnothers_IsNotReplaced() {
        QFETCH(const bool, isNew);
        QFETCH(const QString, choice);
        QFETCH(const bool, leaves);
        Editor editor;
        if (isNew)
            editor.ChooseItem(u"mnufile_1"_s);
        editor.ChooseTab(0);
        editor.TypeTitle(u"Mine"_s);
        const QString path = editor.Path(isNew ? u"untitled.vlm"_s : u"mood.vlm"_s);
        const QByteArray others = "[TITLE]Another's[/TITLE]";
        PutBytes(path, others);
        if (leaves) {
            editor.ClickOn(u"Command2"_s);
            editor.ClickOn(u"Command2"_s);
            editor.prompts.Expect(u"The file was changed meanwhile, on "_s, PromptAnswer::Yes).InPart();
            QVERIFY(editor.OpenAgain());
        }
        // A new test's place is where it was begun, whatever the current directory is by now.
        QDir::setCurrent(editor.kept.path());
        if (!isNew)
            editor.prompts.ExpectChoice(u"was changed by another program"_s, choice).InPart();
        const bool asks = isNew || choice == u"Save As"_s;
        if (asks)
            editor.chooser.ExpectSave(editor.Path(u"mine.vlm"_s));
        editor.ChooseItem(u"mnufilesave"_s);
        QCOMPARE(BytesOf(path) == others, choice != u"Replace"_s);
        QCOMPARE(QFile::exists(editor.Path(u"mine.vlm"_s)), asks);
        QTRY_COMPARE(editor.State(), choice == u"Cancel"_s ? u"Not saved"_s : u"Saved"_s);
        // What one has written oneself is no other's.
        if (choice != u"Cancel"_s)
            editor.ChooseItem(u"mnufilesave"_s);
    }

    void Save_NoName_AsksForOne() {
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

    void Save_Fails_TestAndQuestionStay() {
        if (!SmallDisk::IsPossible)
            QSKIP("No disk can be made small here");
        Editor editor;
        editor.ChooseTab(0);
        editor.TypeTitle(u" is too long for this disk, with all these letters and some more of them"_s);
        {
            const SmallDisk disk(90);
            const QString message = u"Test Cannot Be Saved: "_s + editor.Path(u"mood.vlm"_s);
            editor.prompts.Expect(message).InPart();
            // This disk is too full for a copy of the changes, too, which is told once.
            editor.prompts.Expect(u"Can't write the file '"_s + editor.kept.path()).InPart();
            editor.ClickOn(u"Command1"_s);
            QCOMPARE(editor.PageInView(), 1);
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

    void Save_TooLong_SaysByHowMuchAndStays() {
        Editor editor;
        editor.ChooseTab(0);
        editor.test.TestIntroduction = QString(33000, u'x');
        editor.ExpectQuestion(PromptAnswer::Yes);
        editor.prompts.Expect(u"characters too long to be opened again. Nothing was written."_s).InPart();
        editor.ClickOn(u"Quit"_s);
        QVERIFY(editor.window->isVisible());
        // A refused name isn't kept, as Save would go on under it.
        editor.prompts.Expect(u"Test Cannot Be Saved: "_s + editor.Path(u"other.vlm"_s)).InPart();
        editor.chooser.ExpectSave(editor.Path(u"other.vlm"_s));
        editor.ChooseItem(u"mnufilesaveas"_s);
        QCOMPARE(editor.test.TestFileName, editor.Path(u"mood.vlm"_s));
        QCOMPARE(editor.window->windowTitle(), u"Vellumo Editor - "_s + editor.Path(u"mood.vlm"_s));
        QCOMPARE(BytesOf(editor.Path(u"mood.vlm"_s)), Mood);
        QCOMPARE(editor.test.TestIntroduction.size(), 33000);
        editor.ExpectQuestion(PromptAnswer::Cancel);
        QVERIFY(!editor.window->close());
        editor.copies.reset();
        QVERIFY(editor.CopyIsLeft());
    }

    void Leave_UnsavedChanges_CopyIsKept_data() {
        QTest::addColumn<QString>("leave");
        QTest::addColumn<bool>("copyIsKept");
        QTest::newRow("to the main menu, unasked") << u"main menu"_s << true;
        QTest::newRow("No") << u"no"_s << false;
        QTest::newRow("saved") << u"save"_s << false;
        QTest::newRow("the program crashes") << u"crash"_s << true;
    }

    void Leave_UnsavedChanges_CopyIsKept() {
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

    void SaveState_OnAnyWay_TellsWhatIsSo() {
        Editor editor;
        QCOMPARE(editor.State(), u"Saved"_s);
        editor.ChooseTab(0);
        editor.TypeTitle(u"!"_s);
        QTRY_COMPARE(editor.State(), u"Not saved"_s);
        // The home view settles the question before leaving, but not this.
        editor.ClickOn(u"Command2"_s);
        QCOMPARE(editor.State(), u"Not saved"_s);
        editor.ChooseItem(u"mnufilesave"_s);
        QCOMPARE(editor.State(), u"Saved"_s);
        editor.ChooseTab(0);
        Press(editor.The<QLineEdit>(u"txtTitle"_s), Qt::Key_End);
        editor.TypeTitle(u"?"_s);
        QTRY_COMPARE(editor.State(), u"Not saved"_s);
        Press(editor.The<QLineEdit>(u"txtTitle"_s), Qt::Key_Backspace);
        QTRY_COMPARE(editor.State(), u"Saved"_s);
        editor.ExpectQuestion(PromptAnswer::No);
        editor.ChooseItem(u"mnufile_1"_s);
        QCOMPARE(editor.State(), QString());
    }

    void FileList_TwelveFiles_FirstTen() {
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

    void Findings_Chosen_LeadToThePage() {
        Editor editor;
        auto& line = editor.The<FindingsLine>(u"FindingsLine"_s);
        struct Way {
            TestPlace Place;
            int Page;
            QString Box;
        };
        for (const Way& way : {Way{{TestPlace::CompletionMessage, 0, 0}, 1, u"txtCompletion"_s},
                               Way{{TestPlace::ReportDirectory, 0, 0}, 7, u"txtautosavedirectory_0"_s},
                               Way{{TestPlace::AutosaveFileName, 0, 0}, 7, u"Text1"_s},
                               Way{{TestPlace::ExcelDirectory, 0, 0}, 8, u"txtautosavedirectory_1"_s},
                               Way{{TestPlace::ExcelFileName, 0, 0}, 8, u"txtautosavedirectory_2"_s},
                               Way{{TestPlace::Answer, 1, 1}, 4, u"txtanswer"_s}}) {
            Q_EMIT line.Chosen(way.Place);
            QCOMPARE(editor.PageInView(), way.Page);
            QVERIFY2(editor.The<QWidget>(way.Box).hasFocus(), qPrintable(way.Box));
        }
        Q_EMIT line.Chosen({TestPlace::TotalRange, 0, 1}); // gone meanwhile
        QCOMPARE(editor.PageInView(), 4);
        // What is typed is looked at in a pause.
        editor.ChooseTab(0);
        editor.TypeTitle(u"[q]"_s);
        QTRY_VERIFY(Find<QPushButton>(line, u"FindingsSummary"_s).accessibleName().contains(u"[q]"_s));
    }
};

QTEST_MAIN(tst_frmtesteditor)
#include "tst_frmtesteditor.moc"
