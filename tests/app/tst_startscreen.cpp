#include "app/ui/Loading_Test.h"
#include "support/Files.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Mood = "[TITLE]Mood[/TITLE][INTRODUCTION]Hello[/INTRODUCTION][INSTRUCTIONS]Choose[/INSTRUCTIONS]"
                        "[Q]How are you?[A]Well[v=1][/A][/Q]";
const QByteArray Quiz = "[TITLE]Quiz[/TITLE][Q]Why?[QT]2[/QT][/Q]";

/// A start screen on a folder with these test files.
struct Screen {
    explicit Screen(const QMap<QString, QByteArray>& files) {
        for (auto file = files.begin(); file != files.end(); ++file)
            PutBytes(folder.filePath(file.key()), file.value());
        folders = {folder.path(), folder.path()};
        store.Values[QStringLiteral("defaultdirectory")] = folder.path();
        window = std::make_unique<Loading_Test>(
            StartScreenParts{session, start, store, folders, prompts, chooser, navigator, trusted});
    }
    ~Screen() { QDir::setCurrent(QDir::rootPath()); }

    void Load() {
        window->Form_Load();
        ShowAndActivate(*window);
    }
    bool Visible(const char* name) { return Find<QWidget>(*window, QLatin1String(name)).isVisible(); }
    QListWidget& List() { return Find<QListWidget>(*window, QStringLiteral("Listselect")); }
    void Push(const char* name) { Click(*window, QLatin1String(name)); }
    QString LastCall() const { return navigator.Calls.isEmpty() ? QString() : navigator.Calls.last(); }

    QTemporaryDir folder;
    Session session;
    ProgramStart start;
    MemorySettingsStore store;
    DefaultFolders folders;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    TrustedTests trusted;
    std::unique_ptr<Loading_Test> window;
};

const QMap<QString, QByteArray> Both = {{QStringLiteral("Mood.vlm"), Mood}, {QStringLiteral("Quiz.vlm"), Quiz}};

} // namespace

class tst_startscreen : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Load_TestsInFolder_ListsThemAndSelectsTheFirst();
    void Load_EmptyFolder_ShowsTheExplanation();
    void Load_Always_ShowsTheCaptionsAsTheyStand();
    void Load_BrokenTest_IsListedAndStopsNothing();
    void Load_Again_KeepsTheSelection_data();
    void Load_Again_KeepsTheSelection();
    void Select_OtherTitle_ShowsItsParts();
    void Select_SameTitles_OpensTheFileAtThatPlace();
    void CmdIntro_EachPart_ShowsItsText();
    void Begin_ButtonDoubleClickOrReturn_BeginsAndCloses_data();
    void Begin_ButtonDoubleClickOrReturn_BeginsAndCloses();
    void Begin_NoQuestions_StaysOpenOnTheSelectedTest();
    void CommandLine_File_BeginsOnceInARun();
    void CommandLine_UnreadableFile_StaysOpen();
    void Browse_File_BeginsAfterTheNames();
    void Browse_Cancelled_ChangesNothing();
    void Options_OtherFolder_ListsItsTests();
    void Options_FolderBecomesEmpty_ShowsTheExplanation();
    void Links_EachOne_GoesItsWay_data();
    void Links_EachOne_GoesItsWay();
    void Picture_EachRegion_PassesTheClickOn_data();
    void Picture_EachRegion_PassesTheClickOn();
    void Edit_NoEditor_StaysOpen();
    void Keyboard_Tab_ReachesEveryControl();
};

void tst_startscreen::Load_TestsInFolder_ListsThemAndSelectsTheFirst() {
    Screen screen(Both);
    screen.Load();
    QCOMPARE(screen.List().count(), 2);
    QCOMPARE(screen.List().currentRow(), 0);
    QCOMPARE(screen.List().currentItem()->text(), QStringLiteral("Mood"));
    QCOMPARE(screen.window->SelectedTestPath(), QStringLiteral("Mood.vlm"));
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(screen.folder.path()).canonicalPath());
    for (const char* name : {"Listselect", "Lblinstruct", "cmdBeginTest", "CmdIntro_0", "CmdIntro_1", "CmdIntro_2"})
        QVERIFY2(screen.Visible(name), name);
    QVERIFY(!screen.Visible("lblalt"));
}

void tst_startscreen::Load_EmptyFolder_ShowsTheExplanation() {
    Screen screen({});
    screen.Load();
    for (const char* name : {"Listselect", "Lblinstruct", "cmdBeginTest", "CmdIntro_0", "CmdIntro_1", "CmdIntro_2"})
        QVERIFY2(!screen.Visible(name), name);
    QVERIFY(screen.Visible("lblalt"));
    QVERIFY(
        Find<QLabel>(*screen.window, QStringLiteral("lblalt"))
            .text()
            .startsWith(QStringLiteral("There are no valid 'Vellumo' files in the 'Vellumo' default directory. Select "
                                       "'Browse' to look in another directory or select 'Edit Test' to create")));
    screen.Push("CmdEditTest");
    QCOMPARE(screen.LastCall(), QStringLiteral("EditNewTest"));
}

void tst_startscreen::Load_Always_ShowsTheCaptionsAsTheyStand() {
    Screen screen(Both);
    screen.Load();
    QCOMPARE(screen.window->windowTitle(), QStringLiteral("Vellumo - Version 1.0"));
    const QMap<QString, QString> captions = {
        {QStringLiteral("cmdBeginTest"), QStringLiteral("&Begin Test")},
        {QStringLiteral("CmdEditTest"), QStringLiteral("Edit Test")},
        {QStringLiteral("CmdIntro_0"), QStringLiteral("Test Introduction")},
        {QStringLiteral("CmdIntro_1"), QStringLiteral("Test Instructions")},
        {QStringLiteral("CmdIntro_2"), QStringLiteral("Test Questions")},
        {QStringLiteral("Label1_0"), QStringLiteral("About")},
        {QStringLiteral("Label1_1"), QStringLiteral("Client && Tester")},
        {QStringLiteral("Label2"), QStringLiteral("Quit")},
        {QStringLiteral("Label3"), QStringLiteral("Browse")},
        {QStringLiteral("Label5"), QStringLiteral("Options")},
        {QStringLiteral("Label7"), QStringLiteral("Editor")},
    };
    for (auto caption = captions.begin(); caption != captions.end(); ++caption)
        QCOMPARE(Find<QPushButton>(*screen.window, caption.key()).text(), caption.value());
    QCOMPARE(Find<QLabel>(*screen.window, QStringLiteral("Lblinstruct")).text(), QStringLiteral("Press [F1] for help"));
    Press(*screen.window, Qt::Key_F1);
    QCOMPARE(screen.LastCall(), QStringLiteral("ShowHelp(StartScreen)"));
}

void tst_startscreen::Load_BrokenTest_IsListedAndStopsNothing() {
    Screen screen({{QStringLiteral("Broken.vlm"), "[TITLE]Mood"}, {QStringLiteral("Quiz.vlm"), Quiz}});
    screen.Load();
    const QString reason = QStringLiteral(" in the file: ");
    QVERIFY(screen.List().item(0)->text().startsWith(QStringLiteral("Broken.vlm: ")));
    QVERIFY(Find<QLabel>(*screen.window, QStringLiteral("lblSelectedFile")).text().contains(reason));
    QVERIFY(!screen.Visible("CmdIntro_2"));
    for (const char* way : {"cmdBeginTest", "Label3"}) {
        const QString path = screen.folder.filePath(QStringLiteral("Broken.vlm"));
        if (way == QByteArray("Label3"))
            screen.chooser.ExpectOpen(path);
        screen.prompts.Expect(reason + QDir::toNativeSeparators(path)).InPart();
        screen.Push(way);
        QVERIFY(screen.window->isVisible());
    }
    QVERIFY(screen.navigator.Calls.isEmpty());
    Press(screen.List(), Qt::Key_Down);
    screen.Push("cmdBeginTest");
    QCOMPARE(screen.LastCall(), QStringLiteral("BeginLoadedTest"));
}

void tst_startscreen::Load_Again_KeepsTheSelection_data() {
    QTest::addColumn<QString>("inMemory");
    QTest::addColumn<QString>("selected");
    QTest::newRow("a new test was edited") << ""
                                           << "Quiz";
    QTest::newRow("that test was taken") << "Quiz.vlm"
                                         << "Quiz";
    QTest::newRow("another one was edited") << "HERE/Mood.vlm"
                                            << "Mood";
    QTest::newRow("one of another folder was taken") << "/elsewhere/Mood.vlm"
                                                     << "Quiz";
}

void tst_startscreen::Load_Again_KeepsTheSelection() {
    QFETCH(QString, inMemory);
    Screen screen(Both);
    screen.Load();
    screen.List().setCurrentRow(1);
    screen.Push("Label5");
    QCOMPARE(screen.List().currentItem()->text(), QStringLiteral("Quiz"));
    screen.session.Test.TestFileName = inMemory.replace(QStringLiteral("HERE"), QDir::currentPath());
    Loading_Test again({screen.session, screen.start, screen.store, screen.folders, screen.prompts, screen.chooser,
                        screen.navigator, screen.trusted});
    again.Form_Load();
    QTEST(Find<QListWidget>(again, QStringLiteral("Listselect")).currentItem()->text(), "selected");
}

void tst_startscreen::Select_OtherTitle_ShowsItsParts() {
    Screen screen(Both);
    screen.Load();
    Press(screen.List(), Qt::Key_Down);
    QCOMPARE(screen.window->SelectedTestPath(), QStringLiteral("Quiz.vlm"));
    QVERIFY(!screen.Visible("CmdIntro_0"));
    QVERIFY(!screen.Visible("CmdIntro_1"));
    QVERIFY(screen.Visible("CmdIntro_2"));
    QCOMPARE(Find<QLabel>(*screen.window, QStringLiteral("lblSelectedTitle")).text(), QStringLiteral("Quiz"));
}

void tst_startscreen::Select_SameTitles_OpensTheFileAtThatPlace() {
    Screen screen({{QStringLiteral("A.vlm"), Mood}, {QStringLiteral("B.vlm"), Mood}});
    screen.Load();
    QCOMPARE(screen.List().count(), 2);
    screen.List().setCurrentRow(1);
    screen.Push("cmdBeginTest");
    QCOMPARE(screen.session.Test.TestFileName, QStringLiteral("B.vlm"));
}

void tst_startscreen::CmdIntro_EachPart_ShowsItsText() {
    Screen screen(Both);
    screen.Load();
    for (const char* name : {"CmdIntro_0", "CmdIntro_1", "CmdIntro_2"})
        screen.Push(name);
    QCOMPARE(screen.navigator.Calls, QStringList({QStringLiteral("ShowText(Mood - Introduction)"),
                                                  QStringLiteral("ShowText(Mood - Instructions)"),
                                                  QStringLiteral("ShowText(Mood - Questions)")}));
    QCOMPARE(screen.navigator.ShownTexts,
             QStringList({QStringLiteral("Hello"), QStringLiteral("Choose"),
                          QStringLiteral("INSTRUCTIONS\r\nChoose\r\nQUESTION 1\r\nHow are you?\r\n[ ] Well\r\n\r\n")}));
}

void tst_startscreen::Begin_ButtonDoubleClickOrReturn_BeginsAndCloses_data() {
    QTest::addColumn<QString>("way");
    for (const char* way : {"button", "return on the button", "double click", "return"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_startscreen::Begin_ButtonDoubleClickOrReturn_BeginsAndCloses() {
    QFETCH(QString, way);
    Screen screen(Both);
    screen.Load();
    screen.List().setCurrentRow(1);
    if (way == QStringLiteral("button"))
        screen.Push("cmdBeginTest");
    else if (way == QStringLiteral("return on the button"))
        Press(Find<QWidget>(*screen.window, QStringLiteral("cmdBeginTest")), Qt::Key_Return);
    else if (way == QStringLiteral("return"))
        Press(screen.List(), Qt::Key_Return);
    else {
        const QPoint row = screen.List().visualItemRect(screen.List().item(1)).center();
        QTest::mouseClick(screen.List().viewport(), Qt::LeftButton, Qt::NoModifier, row);
        QTest::mouseDClick(screen.List().viewport(), Qt::LeftButton, Qt::NoModifier, row);
    }
    QCOMPARE(screen.navigator.Calls, QStringList{QStringLiteral("BeginLoadedTest")});
    QCOMPARE(screen.session.Test.QuestionCount, 1);
    QCOMPARE(screen.session.Test.TestTitle, QStringLiteral("Quiz"));
    QVERIFY(!screen.window->isVisible());
}

void tst_startscreen::Begin_NoQuestions_StaysOpenOnTheSelectedTest() {
    Screen screen({{QStringLiteral("Bare.vlm"), "[TITLE]Bare[/TITLE][INTRODUCTION]Hello[/INTRODUCTION]"}});
    screen.Load();
    screen.prompts.Expect(QStringLiteral("The test 'Bare' has no questions."));
    screen.Push("cmdBeginTest");
    QVERIFY(screen.window->isVisible());
    screen.Push("CmdIntro_0");
    QCOMPARE(screen.navigator.ShownTexts, QStringList{QStringLiteral("Hello")});
}

void tst_startscreen::CommandLine_File_BeginsOnceInARun() {
    Screen screen(Both);
    screen.start.CommandLinePath = screen.folder.filePath(QStringLiteral("Quiz.vlm"));
    screen.window->Form_Load();
    QVERIFY(screen.window->BeginFromCommandLine());
    QCOMPARE(screen.session.Test.TestTitle, QStringLiteral("Quiz"));
    QVERIFY(screen.start.StartedFromCommandLine);

    Loading_Test again({screen.session, screen.start, screen.store, screen.folders, screen.prompts, screen.chooser,
                        screen.navigator, screen.trusted});
    again.Form_Load();
    QVERIFY(!again.BeginFromCommandLine());
    QCOMPARE(screen.navigator.Calls, QStringList{QStringLiteral("BeginLoadedTest")});
}

void tst_startscreen::CommandLine_UnreadableFile_StaysOpen() {
    Screen screen(Both);
    screen.start.CommandLinePath = screen.folder.filePath(QStringLiteral("Gone.vlm"));
    screen.prompts.Expect(QStringLiteral("Can't read the test file '%1': ").arg(screen.start.CommandLinePath)).InPart();
    screen.window->Form_Load();
    QVERIFY(!screen.window->BeginFromCommandLine());
    QCOMPARE(screen.window->SelectedTestPath(), QStringLiteral("Mood.vlm"));
    QVERIFY(screen.navigator.Calls.isEmpty());
}

void tst_startscreen::Browse_File_BeginsAfterTheNames() {
    Screen screen(Both);
    QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath(QStringLiteral("Far.vlm"));
    PutBytes(path, Mood + "[PROMPT CLIENT NAME]");
    screen.Load();
    screen.chooser.ExpectOpen(path);
    screen.Push("Label3");
    QCOMPARE(screen.chooser.Questions().value(0).Filter,
             QStringLiteral("Test Files (*.vlm)|*.vlm| All Files (*.*)|*.*"));
    QCOMPARE(screen.navigator.Calls,
             QStringList({QStringLiteral("AskNames(Commencing 'Mood')"), QStringLiteral("BeginLoadedTest")}));
    QCOMPARE(screen.session.Test.TestFileName, path);
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(screen.folder.path()).canonicalPath());
    QVERIFY(!screen.window->isVisible());
}

void tst_startscreen::Browse_Cancelled_ChangesNothing() {
    Screen screen(Both);
    screen.Load();
    screen.List().setCurrentRow(1);
    screen.chooser.ExpectOpen({});
    screen.Push("Label3");
    QVERIFY(screen.window->isVisible());
    QCOMPARE(screen.List().currentRow(), 1);
    QCOMPARE(screen.session.Test.TestTitle, QStringLiteral("Quiz"));
}

void tst_startscreen::Options_OtherFolder_ListsItsTests() {
    Screen screen(Both);
    QTemporaryDir elsewhere;
    PutBytes(elsewhere.filePath(QStringLiteral("Far.vlm")), "[TITLE]Far[/TITLE]");
    screen.Load();
    screen.navigator.Meanwhile = [&](const QString&) {
        screen.session.UserSettings.DefaultDirectory = elsewhere.path();
    };
    screen.Push("Label5");
    QCOMPARE(screen.LastCall(), QStringLiteral("ShowGeneralOptions"));
    QCOMPARE(screen.List().count(), 1);
    QCOMPARE(screen.List().currentItem()->text(), QStringLiteral("Far"));
    QVERIFY(!screen.Visible("CmdIntro_0"));
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(elsewhere.path()).canonicalPath());
}

void tst_startscreen::Options_FolderBecomesEmpty_ShowsTheExplanation() {
    Screen screen(Both);
    QTemporaryDir empty;
    screen.Load();
    screen.navigator.Meanwhile = [&](const QString&) { screen.session.UserSettings.DefaultDirectory = empty.path(); };
    screen.Push("Label5");
    QVERIFY(screen.Visible("lblalt"));
    QVERIFY(!screen.Visible("cmdBeginTest"));
    QVERIFY(!screen.Visible("CmdIntro_2"));
    QCOMPARE(screen.window->SelectedTestPath(), QString());
}

void tst_startscreen::Links_EachOne_GoesItsWay_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("call");
    QTest::addColumn<bool>("closes");
    QTest::newRow("About") << "Label1_0"
                           << "ShowAbout" << false;
    QTest::newRow("Client & Tester") << "Label1_1"
                                     << "AskNames()" << false;
    QTest::newRow("Quit") << "Label2"
                          << "EndProgram" << false;
    QTest::newRow("Editor") << "Label7"
                            << "EditNewTest" << true;
    QTest::newRow("Edit Test") << "CmdEditTest"
                               << "EditTest" << true;
}

void tst_startscreen::Links_EachOne_GoesItsWay() {
    QFETCH(QString, name);
    Screen screen(Both);
    screen.Load();
    Click(*screen.window, name);
    QTEST(screen.LastCall(), "call");
    QFETCH(bool, closes);
    QCOMPARE(screen.window->isVisible(), !closes);

    if (!closes) {
        Press(Find<QWidget>(*screen.window, name), Qt::Key_Return);
        QCOMPARE(screen.navigator.Calls.size(), 2);
    }
    if (name == QStringLiteral("Label7"))
        QCOMPARE(screen.session.Test.TestTitle, QString());
    if (name == QStringLiteral("CmdEditTest"))
        QCOMPARE(screen.session.Test.TestTitle, QStringLiteral("Mood"));
}

void tst_startscreen::Picture_EachRegion_PassesTheClickOn_data() {
    QTest::addColumn<int>("region");
    QTest::addColumn<QString>("call");
    QTest::newRow("Editor") << 0 << "EditNewTest";
    QTest::newRow("Browse") << 1 << QString();
    QTest::newRow("Options") << 2 << "ShowGeneralOptions";
}

void tst_startscreen::Picture_EachRegion_PassesTheClickOn() {
    QFETCH(int, region);
    Screen screen(Both);
    screen.Load();
    auto& picture = Find<PictureMenu>(*screen.window, QStringLiteral("Picture1"));
    if (region == 1)
        screen.chooser.ExpectOpen({});
    QTest::mouseClick(&picture, Qt::LeftButton, Qt::NoModifier,
                      picture.RectOf(static_cast<PictureMenu::Region>(region)).center().toPoint());
    QTEST(screen.LastCall(), "call");
    QCOMPARE(screen.chooser.Questions().size(), region == 1 ? 1 : 0);
}

void tst_startscreen::Edit_NoEditor_StaysOpen() {
    Screen screen(Both);
    screen.navigator.EditAnswer = false;
    screen.Load();
    for (const char* name : {"Label7", "CmdEditTest"}) {
        screen.Push(name);
        QVERIFY(screen.window->isVisible());
        QCOMPARE(screen.session.Test.TestTitle, QStringLiteral("Mood"));
    }
}

void tst_startscreen::Keyboard_Tab_ReachesEveryControl() {
    Screen screen(Both);
    screen.Load();
    QSet<QString> reached;
    for (int i = 0; i < 30; ++i) {
        reached.insert(screen.window->focusWidget()->objectName());
        QTest::keyClick(screen.window->focusWidget(), Qt::Key_Tab);
    }
    for (const char* name : {"Listselect", "CmdIntro_0", "CmdIntro_1", "CmdIntro_2", "CmdEditTest", "cmdBeginTest",
                             "Label1_0", "Label1_1", "Label2", "Label3", "Label5", "Label7"})
        QVERIFY2(reached.contains(QLatin1String(name)), name);
}

QTEST_MAIN(tst_startscreen)
#include "tst_startscreen.moc"
