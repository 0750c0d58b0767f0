#include "platform/CodePage.h"
#include "platform/TextFile.h"
#include "support/Files.h"
#include "support/TestText.h"
#include "taker/AutoReport.h"

#include <QtTest>

namespace {

class RecordedPrompts : public Prompts {
  public:
    PromptAnswer Ask(const Prompt& prompt) override {
        Texts += prompt.Text;
        return PromptAnswer::Ok;
    }
    int Choose(const ChoicePrompt& prompt) override { return prompt.Escape; }
    QStringList Texts;
};

} // namespace

class tst_autoreportpath : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void ReportPathFor_Options_Path_data();
    void ReportPathFor_Options_Path();
    void ReportPathFor_NameTaken_NumberUnlessAppending();
    void ReportPathFor_DirectoryCantBeMade_MessageAndCurrentDirectory();
    void WriteReportFile_Modes_Content();
    void WriteReportFile_OtherLettersBehind_OneEncoding_data();
    void WriteReportFile_OtherLettersBehind_OneEncoding();

  private:
    std::unique_ptr<QTemporaryDir> folder_;
    RecordedPrompts prompts_;
};

void tst_autoreportpath::init() {
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(folder_->path()));
    prompts_.Texts.clear();
}

void tst_autoreportpath::ReportPathFor_Options_Path_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("client");
    QTest::addColumn<QString>("path");
    const QString directory = QStringLiteral("[REPORT DIR]Reports[/REPORT DIR]");
    const QString asClient = QStringLiteral("[AUTOSAVE REPORT AS CLIENT]");
    const QString inClient = QStringLiteral("[AUTOSAVE REPORT DIRECTORY AS CLIENT]");
    const QString named = QStringLiteral("[AUTOSAVE FILENAME]results.a.txt[/AUTOSAVE FILENAME]");
    const QString ann = QStringLiteral("Ann Lee");
    QTest::newRow("neither directory nor client") << QString() << QString() << QStringLiteral("Mood.txt");
    QTest::newRow("directory and name of the client")
        << directory + asClient + inClient << ann << QStringLiteral("Reports/Ann Lee/Mood Ann Lee.txt");
    QTest::newRow("client directory alone") << inClient << ann << QStringLiteral("Ann Lee/Mood.txt");
    QTest::newRow("autosave name before its first dot")
        << directory + named << ann << QStringLiteral("Reports/results.txt");
    QTest::newRow("autosave name and client") << named + asClient << ann << QStringLiteral("results Ann Lee.txt");
    QTest::newRow("a name that would leave the folder")
        << directory + asClient + inClient << QStringLiteral("../../x")
        << QStringLiteral("Reports/.._.._x~9cdf6a/Mood .._.._x~9cdf6a.txt");
    QTest::newRow("a name with forbidden characters")
        << asClient << QStringLiteral("a/b:c*?") << QStringLiteral("Mood a_b_c__~968a1d.txt");
    QTest::newRow("a name of dots") << inClient << QStringLiteral("..") << QStringLiteral("__~5ec1f7/Mood.txt");
    QTest::newRow("letters of all scripts stay")
        << asClient << QStringLiteral("Zoë 李") << QStringLiteral("Mood Zoë 李.txt");
    QTest::newRow("no client in a client directory")
        << directory + inClient << QString() << QStringLiteral("Reports/Mood.txt");
}

void tst_autoreportpath::ReportPathFor_Options_Path() {
    QFETCH(QString, text);
    QFETCH(QString, client);
    TestDocument test = TestFromText(text);
    const QString path = ReportPathFor(test, client, prompts_);
    QTEST(QDir::fromNativeSeparators(path), "path");
    QCOMPARE(prompts_.Texts, QStringList());
    QVERIFY(WriteReportFile(path, QStringLiteral("x"), false));
    QVERIFY(!folder_->filePath(path).isEmpty() && QFile::exists(folder_->filePath(path)));
}

void tst_autoreportpath::ReportPathFor_NameTaken_NumberUnlessAppending() {
    TestDocument test = TestFromText(QString());
    for (const char* expected : {"Mood.txt", "Mood(1).txt", "Mood(2).txt"}) {
        const QString path = ReportPathFor(test, QString(), prompts_);
        QCOMPARE(path, QString::fromLatin1(expected));
        QVERIFY(WriteReportFile(path, QString(), false));
    }
    test.TestOption(AppendToReportFile) = true;
    QCOMPARE(ReportPathFor(test, QString(), prompts_), QStringLiteral("Mood.txt"));
}

void tst_autoreportpath::ReportPathFor_DirectoryCantBeMade_MessageAndCurrentDirectory() {
    QFile blocker(QStringLiteral("Reports"));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    TestDocument test = TestFromText(QStringLiteral("[REPORT DIR]Reports/deep[/REPORT DIR]"));
    QCOMPARE(ReportPathFor(test, QString(), prompts_), QStringLiteral("Mood.txt"));
    QCOMPARE(prompts_.Texts, QStringList{QStringLiteral("Can't make directory: Reports/deep")});
}

void tst_autoreportpath::WriteReportFile_Modes_Content() {
    const auto content = [] {
        QFile file(QStringLiteral("r.txt"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    };
    QVERIFY(WriteReportFile(QStringLiteral("r.txt"), QStringLiteral("One\r\n"), false));
    QCOMPARE(content(), "One\r\n\r\n");
    QVERIFY(WriteReportFile(QStringLiteral("r.txt"), QStringLiteral("Zwölf"), true));
    QCOMPARE(content(), "One\r\n\r\n" + EncodeForLocale(QStringLiteral("Zwölf\r\n")));
    QVERIFY(WriteReportFile(QStringLiteral("r.txt"), QStringLiteral("New"), false));
    QCOMPARE(content(), "New\r\n");
    QVERIFY(!WriteReportFile(QStringLiteral("no such folder/x"), QStringLiteral("x"), false));
}

void tst_autoreportpath::WriteReportFile_OtherLettersBehind_OneEncoding_data() {
    QTest::addColumn<QByteArray>("earlier");
    QTest::addColumn<QString>("report");
    QTest::addColumn<QByteArray>("whole");
    const QByteArray single = EncodeCodePage(QStringLiteral("Größe\r\n"));
    QTest::newRow("beyond the code page") << single << QStringLiteral("李") << QByteArray("Größe\r\n李\r\n");
    QTest::newRow("behind UTF-8") << QByteArray("李\r\n") << QStringLiteral("Größe") << QByteArray("李\r\nGröße\r\n");
    QTest::newRow("plain letters") << single << QStringLiteral("plain") << single + "plain\r\n";
}

void tst_autoreportpath::WriteReportFile_OtherLettersBehind_OneEncoding() {
    QFETCH(QByteArray, earlier);
    PutBytes(QStringLiteral("r.txt"), earlier);
    QFETCH(QString, report);
    QVERIFY(WriteReportFile(QStringLiteral("r.txt"), report, true));
    QTEST(BytesOf(QStringLiteral("r.txt")), "whole");
}

QTEST_GUILESS_MAIN(tst_autoreportpath)
#include "tst_autoreportpath.moc"
