#include "app/BeginFlow.h"
#include "app/ProgramStart.h"
#include "support/Files.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedPrompts.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Mood = "[TITLE]Mood[/TITLE][Q]How are you?[A]Well[v=1][/A][/Q]";
const QByteArray NoQuestions = "[TITLE]Empty[/TITLE]";
const QByteArray NotClosed = "[TITLE]Mood[/TITLE][Q]How are you?";

} // namespace

class tst_beginflow : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void Begin_AnyFile_TakesTheWayThatItsContentSays_data();
    void Begin_AnyFile_TakesTheWayThatItsContentSays();
    void Begin_TestActsByItself_AsksUntilAllowed_data();
    void Begin_TestActsByItself_AsksUntilAllowed();
    void EnsureWorkingDirectory_Gone_DefaultTakesItsPlace();
    void Begin_AfterAnotherTest_NothingOfItIsLeft();
    void PathOfCommandLine_AnyLine_IsUsedAsItStands_data();
    void PathOfCommandLine_AnyLine_IsUsedAsItStands();
    void LoadSettingsOnce_SecondTime_KeepsWhatWasApplied();

  private:
    QString Put(const QByteArray& content) {
        const QString path = folder_->filePath(QStringLiteral("Some Test.vlm"));
        PutBytes(path, content);
        return path;
    }

    std::unique_ptr<QTemporaryDir> folder_;
    TrustedTests trusted_;
};

void tst_beginflow::init() { folder_ = std::make_unique<QTemporaryDir>(); }

void tst_beginflow::Begin_AnyFile_TakesTheWayThatItsContentSays_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("messages");
    QTest::addColumn<QStringList>("calls");
    const QString begin = QStringLiteral("BeginLoadedTest");
    const QString names = QStringLiteral("AskNames(Commencing 'Mood')");

    QTest::newRow("a test") << Mood << QStringList() << QStringList{begin};
    QTest::newRow("asks for the client's name")
        << Mood + "[PROMPT CLIENT NAME]" << QStringList() << QStringList{names, begin};
    QTest::newRow("asks for the tester's name")
        << Mood + "[PROMPT TESTER NAME]" << QStringList() << QStringList{names, begin};
    QTest::newRow("no questions") << NoQuestions + "[PROMPT CLIENT NAME]"
                                  << QStringList{QStringLiteral("The test 'Empty' has no questions.")} << QStringList();
    QTest::newRow("not understood") << NotClosed << QStringList{QStringLiteral("in the file: ")} << QStringList();
    QTest::newRow("binary") << QByteArray("\0\1\2", 3) << QStringList{QStringLiteral("Can't read the test file '")}
                            << QStringList();
    QTest::newRow("missing") << QByteArray() << QStringList{QStringLiteral("Can't read the test file '")}
                             << QStringList();
}

void tst_beginflow::Begin_AnyFile_TakesTheWayThatItsContentSays() {
    QFETCH(QByteArray, content);
    QFETCH(QStringList, messages);
    QFETCH(QStringList, calls);
    Session session;
    RecordingNavigator navigator;
    ScriptedPrompts prompts;
    for (const QString& message : messages)
        prompts.Expect(message).InPart();

    const QString path = content.isEmpty() ? folder_->filePath(QStringLiteral("Nowhere.vlm")) : Put(content);
    BeginFlow flow(session, navigator, prompts, trusted_);
    QCOMPARE(flow.Begin(path), messages.isEmpty());
    QCOMPARE(navigator.Calls, calls);
    for (const QString& shown : prompts.Shown())
        QVERIFY(QDir::fromNativeSeparators(shown).contains(path) || shown.contains(QStringLiteral("'Empty'")));
}

void tst_beginflow::Begin_TestActsByItself_AsksUntilAllowed_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("confined");
    QTest::addColumn<bool>("asksAgain");
    QTest::newRow("allowed") << "Allow for this test" << false << false;
    QTest::newRow("once") << "Only this time" << false << true;
    QTest::newRow("no") << "No" << true << true;
}

void tst_beginflow::Begin_TestActsByItself_AsksUntilAllowed() {
    QFETCH(QString, answer);
    QFETCH(bool, confined);
    Session session;
    RecordingNavigator navigator;
    ScriptedPrompts prompts;
    TrustedTests trusted;
    const QString path = Put(Mood + "[PROMPT CLIENT NAME][OPEN REPORT WHEN COMPLETED]");
    const QString act = QStringLiteral("start the program '");
    prompts.ExpectChoice(act, answer).InPart().Meanwhile([&] { QVERIFY(navigator.Calls.isEmpty()); });
    BeginFlow flow(session, navigator, prompts, trusted);
    QVERIFY(flow.Begin(path));
    QVERIFY(prompts.Shown().value(0).contains(QDir::toNativeSeparators(path)));
    QCOMPARE(session.Test.TestOption(OpenReportWhenCompleted), !confined);
    QFETCH(bool, asksAgain);
    if (asksAgain)
        prompts.ExpectChoice(act, answer).InPart();
    QVERIFY(flow.Begin(path));
    prompts.ExpectChoice(act, answer).InPart(); // a changed test is another one
    QVERIFY(flow.Begin(Put(Mood + "[OPEN REPORT WHEN COMPLETED]")));
}

void tst_beginflow::EnsureWorkingDirectory_Gone_DefaultTakesItsPlace() {
    Settings settings;
    settings.DefaultDirectory = folder_->path();
    const DefaultFolders folders{{}, folder_->filePath(QStringLiteral("usual"))};
    QVERIFY(EnsureWorkingDirectory(settings, folders));
    settings.DefaultDirectory = folder_->filePath(QStringLiteral("gone"));
    const QString message = EnsureWorkingDirectory(settings, folders).Message();
    QVERIFY(message.contains(folder_->filePath(QStringLiteral("gone"))) && message.contains(folders.WorkingDirectory));
    QCOMPARE(settings.DefaultDirectory, folders.WorkingDirectory);
    QVERIFY(EnsureWorkingDirectory(settings, folders));
}

void tst_beginflow::Begin_AfterAnotherTest_NothingOfItIsLeft() {
    Session session;
    RecordingNavigator navigator;
    ScriptedPrompts prompts;
    BeginFlow flow(session, navigator, prompts, trusted_);
    QVERIFY(flow.Begin(
        Put("[Q]Free[QT]3[/QT][SS=1][/Q][SUBSCALES][S]One[/S][/SUBSCALES][AUTOSAVE FILENAME]x[/AUTOSAVE FILENAME]")));
    QCOMPARE(session.Test.QuestionType(1), int(LongAnswer));
    QVERIFY(flow.Begin(Put("[Q]Which?[/Q]")));
    QCOMPARE(session.Test.QuestionType(1), int(TypeUnset));
    QCOMPARE(session.Test.QuestionSubscale(1), 0);
    QCOMPARE(session.Test.AutosaveFileName, QString());
}

void tst_beginflow::PathOfCommandLine_AnyLine_IsUsedAsItStands_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("path");
    const QString here = QStringLiteral("HERE/");
    QTest::newRow("none") << QString() << QString() << QString();
    QTest::newRow("relative") << "a b.vlm"
                              << "a b.vlm" << here + QStringLiteral("a b.vlm");
    QTest::newRow("absolute") << QString() << "/x/a.vlm"
                              << "/x/a.vlm";
    QTest::newRow("missing") << QString() << "gone.vlm" << here + QStringLiteral("gone.vlm");
    QTest::newRow("blanks at its ends") << QString() << " a.vlm " << here + QStringLiteral(" a.vlm ");
    QTest::newRow("in quotes, no such file") << "a b.vlm"
                                             << "\"a b.vlm\"" << here + QStringLiteral("a b.vlm");
#ifndef Q_OS_WIN // where no file's name holds a quote
    QTest::newRow("in quotes, such a file") << "\"a\""
                                            << "\"a\"" << here + QStringLiteral("\"a\"");
#endif
    QTest::newRow("more than one pair") << QString() << "\"a\" \"b\"" << here + QStringLiteral("\"a\" \"b\"");
    QTest::newRow("one quote") << QString() << "\"a.vlm" << here + QStringLiteral("\"a.vlm");
}

void tst_beginflow::PathOfCommandLine_AnyLine_IsUsedAsItStands() {
    QFETCH(QString, file);
    QFETCH(QString, line);
    QFETCH(QString, path);
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder_->path());
    if (!file.isEmpty())
        PutBytes(file, "x");
    const QString found = PathOfCommandLine(line);
    path.replace(QStringLiteral("HERE"), QDir::currentPath());
    QDir::setCurrent(before);
    QCOMPARE(QDir::fromNativeSeparators(found), path);
}

void tst_beginflow::LoadSettingsOnce_SecondTime_KeepsWhatWasApplied() {
    Session session;
    ProgramStart start;
    MemorySettingsStore store;
    const DefaultFolders folders{folder_->path(), folder_->path()};
    store.Values[QStringLiteral("defaultdirectory")] = folder_->path();
    store.Values[QStringLiteral("AdministratorName")] = QStringLiteral("Dr. Stone");
    LoadSettingsOnce(start, session, store, folders);
    QCOMPARE(session.AdministratorName, QStringLiteral("Dr. Stone"));

    session.UserSettings.QuestionPrefix = QStringLiteral("Item ");
    session.AdministratorName = QStringLiteral("Dr. Field");
    LoadSettingsOnce(start, session, store, folders);
    QCOMPARE(session.UserSettings.QuestionPrefix, QStringLiteral("Item "));
    QCOMPARE(session.AdministratorName, QStringLiteral("Dr. Field"));
}

QTEST_GUILESS_MAIN(tst_beginflow)
#include "tst_beginflow.moc"
