#include "Program.h"

#include "app/ui/AboutBox.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <QtTest>

#include <optional>

namespace {

const QByteArray Mood = "[TITLE]Mood[/TITLE][INTRODUCTION]Hello[/INTRODUCTION][Q]How are you?[A]Well[v=1][/A][/Q]";

struct Started : Program {
    Started() {
        Put(QStringLiteral("Mood.vlm"), Mood);
        navigator.ShowStartScreen();
    }
    void BeginMood() { Click(*navigator.StartScreen(), QStringLiteral("cmdBeginTest")); }
};

int VisibleWindows() {
    int visible = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        visible += widget->isVisible() ? 1 : 0;
    return visible;
}

} // namespace

class tst_navigator : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Begin_FromStartScreen_ReplacesIt();
    void TestWindow_ClosedFromItsTitleBar_BringsTheStartScreenBack();
    void MainMenu_ReportsOpen_ClosesEverything();
    void MainMenu_UnsavedReportCancelled_StaysInTheTest();
    void CommandLine_Test_StartScreenIsNeverShown();
    void CommandLine_BrokenTest_StartScreenComes();
    void BeginLoadedTest_NoQuestions_SaysSo();
    void Edit_FromTestWindow_ReplacesIt();
    void Edit_FileGone_SaysSoAndStays();
    void EditNewTest_AfterAnother_NothingOfItIsLeft();
    void Start_TestLeftUnsaved_IsOffered_data();
    void Start_TestLeftUnsaved_IsOffered();
    void EndProgram_WindowsOpen_HidesAllAndLeaves();
    void AskNames_FromStartScreen_BothNamesAreAskedFor();
    void ClientName_Given_CountsForOneAdministration();
    void GeneralOptions_NameChanged_IsTheNameOfTheRun();
    void GeneralOptions_NameLeftAlone_KeepsTheNameOfThisTest();
    void GeneralOptions_TemplateChanged_IsTheExports();
    void ExportHtml_Always_OpensTheWindowOnTheSettings();
    void Help_NoDialog_UsesOneWindow();
    void Help_FromDialog_IsNotBlockedByIt();
    void About_FromStartScreen_Opens();
};

void tst_navigator::Begin_FromStartScreen_ReplacesIt() {
    Started program;
    program.BeginMood();
    QVERIFY(program.navigator.TestWindow()->isVisible());
    QTRY_VERIFY(!program.navigator.StartScreen());
    QCOMPARE(VisibleWindows(), 1);
}

void tst_navigator::TestWindow_ClosedFromItsTitleBar_BringsTheStartScreenBack() {
    Started program;
    program.BeginMood();
    program.navigator.TestWindow()->close();
    QTRY_VERIFY(!program.navigator.TestWindow());
    QVERIFY(program.navigator.StartScreen()->isVisible());
    QCOMPARE(Find<QListWidget>(*program.navigator.StartScreen(), QStringLiteral("Listselect")).count(), 1);
    QCOMPARE(VisibleWindows(), 1);
}

void tst_navigator::MainMenu_ReportsOpen_ClosesEverything() {
    Started program;
    Click(*program.navigator.StartScreen(), QStringLiteral("CmdIntro_0"));
    program.BeginMood();
    Click(*program.navigator.TestWindow(), QStringLiteral("CmdReport"));
    program.navigator.ShowHelp(HelpTopic::TestWindow);
    QCOMPARE(program.navigator.Reports().size(), 2);
    // The report only: the introduction was merely read.
    program.prompts.Expect(QStringLiteral("Do you Want to Save Changes?"), PromptAnswer::No);
    Choose(*program.navigator.TestWindow(), QStringLiteral("mnuNew"));
    QVERIFY(program.navigator.StartScreen()->isVisible());
    QVERIFY(program.navigator.Reports().isEmpty());
    QCOMPARE(VisibleWindows(), 1);
    QTRY_VERIFY(!program.navigator.Help());
}

void tst_navigator::MainMenu_UnsavedReportCancelled_StaysInTheTest() {
    Started program;
    program.BeginMood();
    Click(*program.navigator.TestWindow(), QStringLiteral("CmdReport"));
    program.prompts.Expect(QStringLiteral("Do you Want to Save Changes?"), PromptAnswer::Cancel);
    Click(*program.navigator.TestWindow(), QStringLiteral("CmdQuit"));
    QVERIFY(program.navigator.TestWindow()->isVisible());
    QCOMPARE(program.navigator.Reports().size(), 1);
    QTRY_VERIFY(!program.navigator.StartScreen());
    // A report that is given up no longer counts as the place of the result.
    QVERIFY(program.session.Filed.Shown);
    program.prompts.Expect(QStringLiteral("Do you Want to Save Changes?"), PromptAnswer::No);
    QVERIFY(program.navigator.Reports().first()->close());
    QVERIFY(!program.session.Filed.Shown);
}

void tst_navigator::CommandLine_Test_StartScreenIsNeverShown() {
    Program program;
    program.Put(QStringLiteral("Mood.vlm"), Mood);
    program.start.CommandLinePath = program.folder.filePath(QStringLiteral("Mood.vlm"));
    program.navigator.ShowStartScreen();
    QVERIFY(program.navigator.TestWindow()->isVisible());
    QCOMPARE(VisibleWindows(), 1);
    program.navigator.TestWindow()->close();
    QVERIFY(program.navigator.StartScreen()->isVisible());
}

void tst_navigator::CommandLine_BrokenTest_StartScreenComes() {
    Program program;
    program.Put(QStringLiteral("Mood.vlm"), Mood + "[Q]");
    program.start.CommandLinePath = program.folder.filePath(QStringLiteral("Mood.vlm"));
    program.prompts.Expect(QStringLiteral(" in the file: ") + QDir::toNativeSeparators(program.start.CommandLinePath))
        .InPart();
    program.navigator.ShowStartScreen();
    QCOMPARE(program.ends, 0);
    QVERIFY(program.navigator.StartScreen()->isVisible());
}

void tst_navigator::BeginLoadedTest_NoQuestions_SaysSo() {
    Program program;
    program.session.Test.TestTitle = QStringLiteral("Bare");
    program.prompts.Expect(QStringLiteral("The test 'Bare' has no questions."));
    QVERIFY(!program.navigator.BeginLoadedTest());
    QVERIFY(!program.navigator.TestWindow());
}

void tst_navigator::Edit_FromTestWindow_ReplacesIt() {
    Started program;
    program.BeginMood();
    Choose(*program.navigator.TestWindow(), QStringLiteral("edittest"));
    QVERIFY(program.navigator.Editor()->isVisible());
    QCOMPARE(program.navigator.Editor()->windowTitle(),
             QStringLiteral("Vellumo Editor - ") +
                 QDir::toNativeSeparators(program.folder.filePath(QStringLiteral("Mood.vlm"))));
    QTRY_COMPARE(VisibleWindows(), 1);
    Click(*program.navigator.Editor(), QStringLiteral("Command2"));
    QVERIFY(program.navigator.StartScreen()->isVisible());
    QTRY_VERIFY(!program.navigator.Editor());
}

void tst_navigator::Edit_FileGone_SaysSoAndStays() {
    Started program;
    QVERIFY(QFile::remove(program.folder.filePath(QStringLiteral("Mood.vlm"))));
    program.prompts.Expect(QStringLiteral("there is no such file")).InPart();
    Click(*program.navigator.StartScreen(), QStringLiteral("CmdEditTest"));
    QVERIFY(program.navigator.StartScreen()->isVisible());
    QVERIFY(!program.navigator.Editor());
}

void tst_navigator::EditNewTest_AfterAnother_NothingOfItIsLeft() {
    Started program;
    program.Put(QStringLiteral("Full.vlm"),
                "[SUBSCALES][S]One[/S][/SUBSCALES][Q]A[QT]3[/QT][/Q][EXCEL DIR]E[/EXCEL DIR]"
                "[AUTOSAVE FILENAME]N[/AUTOSAVE FILENAME]");
    QVERIFY(OpenTest(program.session.Test, program.folder.filePath(QStringLiteral("Full.vlm"))).Ok());
    QVERIFY(program.navigator.EditNewTest());
    QVERIFY(WriteTest(program.session.Test).Text.isEmpty());
    QCOMPARE(program.session.Test.QuestionType(1), 0);
    QCOMPARE(
        Find<QLabel>(*program.navigator.Editor(), QStringLiteral("lblinstructions")).text(),
        QStringLiteral("There is currently no test loaded.\nEdit this test as a new test, or choose 'Open' from the "
                       "file menu.\n\nSelect 'tabs' above to edit test properties."));
    QVERIFY(!Find<QFrame>(*program.navigator.Editor(), QStringLiteral("Frame23")).isVisible());
}

void tst_navigator::Start_TestLeftUnsaved_IsOffered_data() {
    QTest::addColumn<PromptAnswer>("answer");
    QTest::addColumn<bool>("editorOpens");
    QTest::addColumn<bool>("offeredAgain");
    QTest::addColumn<bool>("fileIsNewer");
    QTest::newRow("yes") << PromptAnswer::Yes << true << true << false;
    QTest::newRow("no") << PromptAnswer::No << false << false << true;
    QTest::newRow("not now") << PromptAnswer::Cancel << false << true << true;
}

void tst_navigator::Start_TestLeftUnsaved_IsOffered() {
    QFETCH(const PromptAnswer, answer);
    QFETCH(const bool, editorOpens);
    QFETCH(const bool, offeredAgain);
    Program program;
    program.Put(QStringLiteral("Mood.vlm"), Mood);
    {
        // A run that ended in the middle.
        Recovery crashed(program.kept.path(), program.clock);
        TestDocument test;
        test.TestFileName = program.folder.filePath(QStringLiteral("Mood.vlm"));
        crashed.Begin(test);
        test.TestTitle = QStringLiteral("Half written");
        QVERIFY(crashed.Keep(test).Ok());
    }
    QFETCH(const bool, fileIsNewer);
    if (fileIsNewer)
        program.Put(QStringLiteral("Mood.vlm"), Mood + "\r\n");
    const QString question = QStringLiteral("The test 'Half written' (the file '") +
                             program.folder.filePath(QStringLiteral("Mood.vlm")) +
                             QStringLiteral("') has changes that were not saved when Vellumo ended.");
    program.prompts.Expect(question, answer)
        .InPart()
        .Titled(QStringLiteral("Unsaved Test"))
        .WithButtons(PromptButtons::YesNoCancel);
    program.navigator.Start();
    QCOMPARE(program.prompts.Shown().last().contains(QStringLiteral("The file was changed meanwhile, on ")),
             fileIsNewer);
    QCOMPARE(program.navigator.Editor() != nullptr, editorOpens);
    if (editorOpens) {
        QTRY_COMPARE(VisibleWindows(), 1);
        QCOMPARE(Find<QLineEdit>(*program.navigator.Editor(), QStringLiteral("txtTitle")).text(),
                 QStringLiteral("Half written"));
        // It is in no file: leaving by the title bar asks, and a cancelled question keeps it.
        program.prompts.Expect(QStringLiteral("Do you Want to Save Changes?"), PromptAnswer::Cancel);
        QVERIFY(!program.navigator.Editor()->close());
        program.prompts.Expect(QStringLiteral("Do you Want to Save Changes?"), PromptAnswer::Yes);
        QVERIFY(program.navigator.Editor()->close());
        QCOMPARE(BytesOf(program.folder.filePath(QStringLiteral("Mood.vlm"))),
                 QByteArray("[TITLE]Half written[/TITLE]\r\n\r\n"));
        QVERIFY(!Recovery(program.kept.path(), program.clock).Left());
    } else {
        QVERIFY(program.navigator.StartScreen()->isVisible());
        QCOMPARE(Recovery(program.kept.path(), program.clock).Left().has_value(), offeredAgain);
    }
}

void tst_navigator::EndProgram_WindowsOpen_HidesAllAndLeaves() {
    Started program;
    Click(*program.navigator.StartScreen(), QStringLiteral("CmdIntro_0"));
    program.navigator.ShowHelp(HelpTopic::StartScreen);
    Click(*program.navigator.StartScreen(), QStringLiteral("Label2"));
    QCOMPARE(program.ends, 1);
    QCOMPARE(VisibleWindows(), 0);
}

void tst_navigator::AskNames_FromStartScreen_BothNamesAreAskedFor() {
    Started program;
    program.session.KeptClientName = QStringLiteral("Ann Lee");
    DialogDriver driver([](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Confirm Client & Test Administrator"));
        QCOMPARE(Find<QLineEdit>(dialog, QStringLiteral("txtclient_0")).text(), QStringLiteral("Ann Lee"));
        Find<QLineEdit>(dialog, QStringLiteral("txtclient_1")).setText(QStringLiteral("Dr. Stone"));
        Click(dialog, QStringLiteral("Lblok_0"));
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label1_1"));
    QVERIFY(driver.Finished());
    QCOMPARE(program.session.AdministratorName, QStringLiteral("Dr. Stone"));
}

void tst_navigator::ClientName_Given_CountsForOneAdministration() {
    Started program;
    program.Put(QStringLiteral("Asks.vlm"), "[TITLE]Asks[/TITLE][PROMPT CLIENT NAME][Q]Why?[/Q]");
    // Begins the test, answers the names window with what is typed, Escape for nothing, and returns the client's name.
    const auto begun = [&](int row, const QString& typed, const QString& offered = {}) {
        program.navigator.ShowStartScreen();
        Find<QListWidget>(*program.navigator.StartScreen(), QStringLiteral("Listselect")).setCurrentRow(row);
        std::optional<DialogDriver> names;
        if (row == 0)
            names.emplace([&](QDialog& dialog) {
                auto& box = Find<QLineEdit>(dialog, QStringLiteral("txtclient_0"));
                QCOMPARE(box.text(), offered);
                QVERIFY(!Find<QLineEdit>(dialog, QStringLiteral("txtclient_1")).isEnabled());
                if (!typed.isEmpty())
                    Type(box, typed);
                Press(box, typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            });
        program.BeginMood();
        const bool running = program.navigator.TestWindow() && program.navigator.TestWindow()->isVisible();
        if (running)
            program.navigator.TestWindow()->close();
        return running ? program.session.ClientName : QStringLiteral("(not begun)");
    };
    QCOMPARE(begun(0, QStringLiteral("Ann")), QStringLiteral("Ann"));
    QCOMPARE(begun(1, {}), QString());
    QCOMPARE(begun(0, {}, QStringLiteral("Ann")), QStringLiteral("(not begun)"));
    QCOMPARE(begun(0, QStringLiteral("Eve"), QStringLiteral("Ann")), QStringLiteral("Eve"));

    DialogDriver driver([](QDialog& dialog) {
        Type(Find<QLineEdit>(dialog, QStringLiteral("txtclient_0")), QStringLiteral("Bo"));
        Click(dialog, QStringLiteral("Lblok_0"));
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label1_1"));
    QVERIFY(driver.Finished());
    QCOMPARE(begun(1, {}), QStringLiteral("Bo"));
    QCOMPARE(begun(1, {}), QString());
}

void tst_navigator::GeneralOptions_NameChanged_IsTheNameOfTheRun() {
    Started program;
    DialogDriver driver([](QDialog& dialog) {
        Find<QLineEdit>(dialog, QStringLiteral("TxtTestAdministrator")).setText(QStringLiteral("Dr. Field"));
        Click(dialog, QStringLiteral("OkButton"));
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label5"));
    QCOMPARE(program.session.AdministratorName, QStringLiteral("Dr. Field"));
}

void tst_navigator::GeneralOptions_NameLeftAlone_KeepsTheNameOfThisTest() {
    Started program;
    program.session.AdministratorName = QStringLiteral("Only today");
    DialogDriver driver([](QDialog& dialog) { Click(dialog, QStringLiteral("OkButton")); });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label5"));
    QCOMPARE(program.session.AdministratorName, QStringLiteral("Only today"));
}

void tst_navigator::GeneralOptions_TemplateChanged_IsTheExports() {
    Started program;
    program.session.HtmlNextPage = QStringLiteral("only today");
    DialogDriver driver([](QDialog& dialog) {
        Find<QLineEdit>(dialog, QStringLiteral("txteditor_2")).setText(QStringLiteral("new.vlx"));
        Find<QLineEdit>(dialog, QStringLiteral("txtEmail")).setText(QStringLiteral("new@example.com"));
        Click(dialog, QStringLiteral("OkButton"));
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label5"));
    QCOMPARE(program.session.HtmlTemplatePath, QStringLiteral("new.vlx"));
    QCOMPARE(program.session.HtmlEmailAddress, QStringLiteral("new@example.com"));
    QCOMPARE(program.session.HtmlNextPage, QStringLiteral("only today"));
}

void tst_navigator::ExportHtml_Always_OpensTheWindowOnTheSettings() {
    Program program;
    program.store.Values[QStringLiteral("defaultHTMLTemplate")] = QStringLiteral("T.vlx");
    program.store.Values[QStringLiteral("defaultEmail")] = QStringLiteral("me@example.com");
    program.Put(QStringLiteral("T.vlx"), "[DESCRIPTION]mine[/DESCRIPTION]");
    program.navigator.ShowStartScreen();
    DialogDriver driver([](QDialog& dialog) {
        QCOMPARE(dialog.objectName(), QStringLiteral("DialogHTML"));
        QCOMPARE(Find<QLineEdit>(dialog, QStringLiteral("txtEmail")).text(), QStringLiteral("me@example.com"));
        QCOMPARE(Find<QPlainTextEdit>(dialog, QStringLiteral("txttempdesc")).toPlainText(), QStringLiteral("mine"));
        Click(dialog, QStringLiteral("CancelButton"));
    });
    program.navigator.ExportHtml();
    QVERIFY(driver.Finished());
}

void tst_navigator::Help_NoDialog_UsesOneWindow() {
    Started program;
    program.navigator.ShowHelp(HelpTopic::StartScreen);
    const HelpWindow* first = program.navigator.Help();
    program.navigator.ShowHelp(HelpTopic::Names);
    QCOMPARE(program.navigator.Help(), first);
    QCOMPARE(VisibleWindows(), 2);
}

void tst_navigator::Help_FromDialog_IsNotBlockedByIt() {
    Started program;
    DialogDriver driver([](QDialog& dialog) {
        Press(dialog, Qt::Key_F1);
        auto& help = Find<HelpWindow>(dialog, QStringLiteral("HelpWindow"));
        QTRY_COMPARE(QApplication::activeWindow(), &help);
        Press(help, Qt::Key_Escape);
        QVERIFY(!help.isVisible());
        Click(dialog, QStringLiteral("CancelButton"));
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label5"));
    QVERIFY(driver.Finished());
}

void tst_navigator::About_FromStartScreen_Opens() {
    Started program;
    DialogDriver driver([](QDialog& dialog) {
        QVERIFY(dynamic_cast<AboutBox*>(&dialog));
        Press(dialog, Qt::Key_Return);
    });
    Click(*program.navigator.StartScreen(), QStringLiteral("Label1_0"));
    QVERIFY(driver.Finished());
}

QTEST_MAIN(tst_navigator)
#include "tst_navigator.moc"
