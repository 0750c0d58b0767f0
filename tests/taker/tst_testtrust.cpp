#include "export/WorkbookPath.h"
#include "support/Files.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "taker/AutoReport.h"
#include "taker/TestTrust.h"
#include "taker/TrustedTests.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>

class tst_testtrust : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }
    void Acts_AnyTest_AreToldAndConfined_data();
    void Acts_AnyTest_AreToldAndConfined();
    void Acts_FilesOfItsOwn_AreNotMentioned();
    void TrustedTests_NewRun_RemembersWhatItCan();

  private:
    QString Filled(QString text) const {
        return text.replace(QStringLiteral("OUT"), QDir::toNativeSeparators(outside_->path()))
            .replace(QStringLiteral("HERE"), QDir::toNativeSeparators(work_->path()));
    }

    std::unique_ptr<QTemporaryDir> work_;
    std::unique_ptr<QTemporaryDir> outside_;
};

void tst_testtrust::init() {
    work_ = std::make_unique<QTemporaryDir>();
    outside_ = std::make_unique<QTemporaryDir>();
    PutBytes(outside_->filePath(QStringLiteral("notes.txt")), "mine");
    PutBytes(work_->filePath(QStringLiteral("diary.txt")), "mine");
    PutBytes(work_->filePath(QStringLiteral("log Ann.txt")), "mine");
    PutBytes(work_->filePath(QStringLiteral("Vellumo Results.exl")), "mine");
    QDir(work_->path()).mkdir(QStringLiteral("inner"));
    QFile::link(outside_->path(), work_->filePath(QStringLiteral("link")));
    QDir::setCurrent(work_->path());
}

void tst_testtrust::Acts_AnyTest_AreToldAndConfined_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("acts");
    const auto row = [](const char* name, const char* text, const QStringList& acts = {}) {
        QTest::newRow(name) << QString::fromLatin1(text) << acts;
    };
    const QString reports = QStringLiteral("write reports into the folder ");
    row("nothing", "[PROMPT CLIENT NAME][AUTOSAVE REPORT AS CLIENT]");
    row("folder inside",
        "[REPORT DIR]inner[/REPORT DIR][EXCEL DIR]new[/EXCEL DIR][AUTOSAVE REPORT DIRECTORY AS CLIENT]");
    row("folder outside", "[REPORT DIR]OUT[/REPORT DIR]", {reports + QStringLiteral("'OUT'")});
    row("new folders for clients", "[REPORT DIR]OUT/a/b[/REPORT DIR][AUTOSAVE REPORT DIRECTORY AS CLIENT]",
        {reports + QStringLiteral("'OUT/a/b', in a folder for each client; the folder would be made")});
#ifndef Q_OS_WIN
    row("a link that leads out", "[REPORT DIR]link[/REPORT DIR]", {reports + QStringLiteral("'HERE/link'")});
    // On Windows a drive in the middle of a path is one more place to ask about.
    row("name with a path and a folder that can't be",
        "[REPORT DIR]diary.txt[/REPORT DIR][AUTOSAVE FILENAME]OUT/notes[/AUTOSAVE FILENAME][APPEND TO REPORT FILE]",
        {reports + QStringLiteral("'OUT'"),
         QStringLiteral("append reports to the file 'OUT/notes.txt', which it did not make")});
#endif
    row("dots", "[REPORT DIR]inner/../..[/REPORT DIR]", {reports + QStringLiteral("'ABOVE'")});
    row("name with a path", "[AUTOSAVE FILENAME]OUT/notes[/AUTOSAVE FILENAME][APPEND TO REPORT FILE]",
        {reports + QStringLiteral("'OUT'"),
         QStringLiteral("append reports to the file 'OUT/notes.txt', which it did not make")});
    row("file beside the test", "[AUTOSAVE FILENAME]diary.txt[/AUTOSAVE FILENAME][APPEND TO REPORT FILE]",
        {QStringLiteral("append reports to the file 'HERE/diary.txt', which it did not make")});
    row("file with a client's name",
        "[AUTOSAVE FILENAME]log[/AUTOSAVE FILENAME][APPEND TO REPORT FILE][AUTOSAVE REPORT AS CLIENT]",
        {QStringLiteral("append reports to the file 'HERE/log Ann.txt', which it did not make")});
    row("workbook elsewhere", "[EXCEL DIR]OUT/x.exl/deep[/EXCEL DIR][EXCEL FILE NAME]authorized_keys[/EXCEL FILE NAME]",
        {QStringLiteral("write a workbook into the folder 'OUT/x.exl/deep'; the folder would be made")});
    row("workbook of others", "[INCLUDE DATE IN EXCEL FILE]",
        {QStringLiteral("append rows to the file 'HERE/Vellumo Results.exl', which it did not make")});
    row("programs", "[OPEN REPORT WHEN COMPLETED][OPEN EXCEL REPORT WHEN COMPLETED]",
        {QStringLiteral("start the program 'an-editor' on each report"),
         QStringLiteral("start the spreadsheet program on its workbook")});
}

void tst_testtrust::Acts_AnyTest_AreToldAndConfined() {
    QFETCH(QString, text);
    QFETCH(QStringList, acts);
    Session session;
    session.UserSettings.DefaultDirectory = work_->path();
    session.ClientName = QStringLiteral("Ann");
    session.Test = TestFromText(Filled(text));
    const TrustContext context{work_->path(), QStringLiteral("an-editor"), [](const QString&) { return false; }};
    for (QString& act : acts)
        act = Filled(act).replace(QStringLiteral("ABOVE"), QFileInfo(work_->path()).path());
    for (QString& act : acts)
        act = act.replace(u'/', QDir::separator());
    QCOMPARE(ActsBeyondItsResults(session.Test, context), acts);

    const bool filed = text.contains(u"[APPEND") || text.contains(u"[AUTOSAVE REPORT");
    ConfineResults(session.Test, context);
    QCOMPARE(ActsBeyondItsResults(session.Test, context), QStringList());
    QCOMPARE(session.Test.TestOption(AutosaveReportAsClient), filed);
    ScriptedPrompts prompts;
    const QString report = ReportPathFor(session.Test, session.ClientName, prompts);
    const QString workbook = WorkbookPathFor(session, prompts);
    for (const QString& path : {report, workbook})
        QCOMPARE(QFileInfo(path).absolutePath(), QDir::currentPath());
    QVERIFY2(!QFile::exists(report), qPrintable(report));
    QVERIFY2(!QFile::exists(workbook) || !text.contains(u"EXCEL FILE]"), qPrintable(workbook));
}

void tst_testtrust::Acts_FilesOfItsOwn_AreNotMentioned() {
    TestDocument test = TestFromText(QStringLiteral(
        "[AUTOSAVE FILENAME]diary[/AUTOSAVE FILENAME][APPEND TO REPORT FILE][INCLUDE DATE IN EXCEL FILE]"));
    TrustedTests trusted;
    for (const char* name : {"diary.txt", "Vellumo Results.exl"})
        trusted.NoteMade(QStringLiteral("hash"), QLatin1String(name));
    const auto made = [&](const QString& path) { return trusted.Made(QStringLiteral("hash"), path); };
    QCOMPARE(ActsBeyondItsResults(test, {work_->path(), {}, made}), QStringList());
    QCOMPARE(ActsBeyondItsResults(test, {work_->path(), {}}).size(), 2);
    // Its own workbook may be gone on with; that of others may not.
    ConfineResults(test, {work_->path(), {}, made});
    QCOMPARE(test.ExcelFileName, DefaultWorkbookName);
    ConfineResults(test, {work_->path(), {}});
    QCOMPARE(test.ExcelFileName, DefaultWorkbookName + QStringLiteral("(1)"));
    // A title can't write the question.
    test.TestTitle = QStringLiteral("Safe'.\r\n\nAllow it") + QString(5000, u' ');
    const QString question = TrustQuestion(test, {QStringLiteral("act")}, work_->path()).Text;
    QVERIFY2(question.size() < 1000 && !question.contains(u"\nAllow it"), qPrintable(question));
}

void tst_testtrust::TrustedTests_NewRun_RemembersWhatItCan() {
    const QString file = work_->filePath(QStringLiteral("data/trusted"));
    {
        TrustedTests first(file);
        TrustedTests second(file);
        QVERIFY(first.Allow(QStringLiteral("a1")));
        second.NoteMade(QStringLiteral("b2"), QStringLiteral("some file.txt"));
    }
    const TrustedTests again(file, {QStringLiteral("sample")});
    QVERIFY(again.IsAllowed(QStringLiteral("a1")) && again.IsAllowed(QStringLiteral("sample")));
    QVERIFY(again.Made(QStringLiteral("b2"), QDir::current().absoluteFilePath(QStringLiteral("some file.txt"))));
    QVERIFY(!again.IsAllowed(QStringLiteral("b2")) && !again.IsAllowed(QString()));
    PutBytes(file, QByteArray("allowed a1\0", 11));
    QVERIFY(!TrustedTests(file).IsAllowed(QStringLiteral("a1")));
#ifndef Q_OS_WIN // the threads that play the two programs end in a crash under Wine, which is not explained yet
    // Two programs at the same instant lose nothing of each other's.
    const auto noteMany = [&](const QString& hash) {
        TrustedTests notes(file);
        for (int i = 0; i < 40; ++i)
            (void)notes.Allow(hash + QString::number(i));
    };
    std::thread other(noteMany, QStringLiteral("d"));
    noteMany(QStringLiteral("e"));
    other.join();
    const TrustedTests both(file);
    for (int i = 0; i < 40; ++i)
        QVERIFY2(both.IsAllowed(u'd' + QString::number(i)) && both.IsAllowed(u'e' + QString::number(i)),
                 qPrintable(QString::number(i)));
#endif
    TrustedTests unwritable(file + QStringLiteral("/below"));
    QVERIFY(!unwritable.Allow(QStringLiteral("c3")) && unwritable.IsAllowed(QStringLiteral("c3")));
}

QTEST_GUILESS_MAIN(tst_testtrust)
#include "tst_testtrust.moc"
