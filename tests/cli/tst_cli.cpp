#include "base/JsonWriter.h"
#include "cli/Tool.h"
#include "support/Files.h"
#include "taker/ResponsesFile.h"
#include "testdoc/TestParser.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Ran {
    int Status = -1;
    QByteArray Out;
    QByteArray Err;
};

const QDateTime Now(QDate(2026, 11, 21), QTime(14, 5, 9));

Ran Run(const QStringList& arguments, QByteArray input = {}, const Settings& settings = {}) {
    Ran ran;
    QBuffer in(&input), out(&ran.Out), err(&ran.Err);
    in.open(QIODevice::ReadOnly);
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    const FixedClock clock(Now);
    Console console{in, out, err, false, clock, settings};
    ran.Status = RunTool(arguments, console);
    return ran;
}

/// Two sub-scales; 1 and 2 multichoice, 3 short, 4 long, 5 from the template and without a text in its second answer.
const QByteArray SmallTest =
    "[TITLE]Small[/TITLE][INSTRUCTIONS]Do it.[/INSTRUCTIONS][COMPLETION MESSAGE]Bye.[/COMPLETION MESSAGE]"
    "[SUBSCALES][S]A, \"first\"[/S][S]B[/S][/SUBSCALES][TEMPLATE][A]T[v=100][/A][A][v=5][/A][/TEMPLATE]"
    "[Q]One[A]a[v=1][/A][A]b[v=2][/A][A]c[v=-7][/A][SS=1][/Q][Q]Two[A]a[v=10][/A][A]b[v=20][/A][SS=2][/Q]"
    "[Q]Three[QT]2[/QT][/Q][Q]Four[QT]3[/QT][/Q][Q]Five[SS=2][/Q]"
    "[REPORT MULTICHOICE QUESTION ANSWERS][REPORT SHORT ANSWERS][REPORT LONG ANSWERS][REPORT TOTAL SCORE]"
    "[PROMPT CLIENT NAME][PROMPT TESTER NAME][REPORT NUMBER OF QUESTIONS COMPLETED]";

QString Cli() { return QStringLiteral(VELLUMO_BIN_DIR "/vellumo-cli"); }
QString Sample(const QString& name) { return QStringLiteral(VELLUMO_SOURCE_DIR "/samples/") + name; }

} // namespace

class tst_cli : public QObject {
    Q_OBJECT

    QTemporaryDir folder_;
    QString test_;

    QString Path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QString Csv(const QByteArray& bytes) const {
        PutBytes(Path("r.csv"), bytes);
        return Path("r.csv");
    }
    Ran Score(const QByteArray& csv, const QStringList& options = {}) const {
        return Run(QStringList{QStringLiteral("score"), test_, Csv(csv)} + options);
    }
    QString TestFile(const char* name, const QByteArray& content) const {
        PutBytes(Path(name), content);
        return Path(name);
    }

  private Q_SLOTS:
    void init() { test_ = TestFile("Small.vlm", SmallTest); }

    void RunTool_WrongCommandLine_ShowsUsage_data() {
        QTest::addColumn<QStringList>("arguments");
        const auto row = [](const char* line) { QTest::newRow(line) << QString::fromLatin1(line).split(u' '); };
        QTest::newRow("nothing") << QStringList();
        for (const char* line : {"html",
                                 "html a b",
                                 "html a --insert-into b",
                                 "html a --before b",
                                 "html a --insert-into b --before",
                                 "html a --insert-into b --before c --after d",
                                 "html a --insert-into b --after c --fragment",
                                 "html a --insert-into b --before=",
                                 "html a --output=",
                                 "save a",
                                 "show",
                                 "show a b",
                                 "score a",
                                 "score a b --workbook",
                                 "score a b --reports",
                                 "report a b --row 0",
                                 "report a b --row x",
                                 "take a --now yesterday",
                                 "take a --client",
                                 "show a --x",
                                 "report a b --break-after-number=1",
                                 "report a b --break-after-number --no-break-after-number"})
            row(line);
    }
    void RunTool_WrongCommandLine_ShowsUsage() {
        QFETCH(QStringList, arguments);
        const Ran ran = Run(arguments);
        QCOMPARE(ran.Status, 2);
        QVERIFY2(ran.Err.contains("Usage: vellumo-cli"), ran.Err.constData());
        QCOMPARE(ran.Out, QByteArray());
    }

    void RunTool_HelpAndVersion_OnEveryCommand() {
        for (const char* name : {"", "show", "check", "take", "report", "score", "html"}) {
            const QStringList command = *name ? QStringList{QString::fromLatin1(name)} : QStringList{};
            const Ran help = Run(command + QStringList{QStringLiteral("--help")});
            QCOMPARE(help.Status, 0);
            QVERIFY(help.Out.startsWith("Usage: vellumo-cli"));
            const Ran version = Run(command + QStringList{QStringLiteral("--version")});
            QCOMPARE(version.Status, 0);
            QCOMPARE(version.Out, QByteArray("vellumo-cli " VELLUMO_VERSION "\n"));
        }
    }

    void RunTool_UnusableTest_ExactMessageAndOne_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("message");
        QTest::newRow("malformed") << QByteArray("[Q]a[A]x[/A][/Q]")
                                   << QStringLiteral(
                                          "I can't find a value assigned to question a[A]x[/A] in the file: %1\n");
        QTest::newRow("too long") << QByteArray(32768, 'x')
                                  << QStringLiteral(
                                         "Can't read the test file '%1': it holds 32768 characters, and a test "
                                         "has at most 32767\n");
    }
    void RunTool_UnusableTest_ExactMessageAndOne() {
        QFETCH(QByteArray, content);
        QFETCH(QString, message);
        const QString path = TestFile("bad.vlm", content);
        const QString csv = Csv("client\n");
        for (const QStringList& arguments :
             {QStringList{QStringLiteral("show"), path}, QStringList{QStringLiteral("take"), path},
              QStringList{QStringLiteral("score"), path, csv}, QStringList{QStringLiteral("report"), path, csv}}) {
            const Ran ran = Run(arguments);
            QCOMPARE(ran.Status, 1);
            QCOMPARE(QString::fromUtf8(ran.Err), message.arg(QDir::toNativeSeparators(path)));
            QCOMPARE(ran.Out, QByteArray());
        }
    }

    void Show_Test_KeepsKeyOrderAndTypes() {
        const Ran ran = Run({QStringLiteral("show"), test_});
        QCOMPARE(ran.Status, 0);
        qsizetype last = 0;
        for (const char* key : {"TestFileName",
                                "TestBaseName",
                                "TestFileLength",
                                "TestTitle",
                                "TestIntroduction",
                                "TestInstructions",
                                "TestCompletionMessage",
                                "SubscaleRangesPresent",
                                "Subscales",
                                "TotalRanges",
                                "TemplateAnswers",
                                "LongestAnswerLength",
                                "MaxAnswerCount",
                                "HasMultichoice",
                                "HasShortAnswer",
                                "HasLongAnswer",
                                "HasLongAnswerQuestions",
                                "QuestionCount",
                                "Questions",
                                "QuestionText",
                                "QuestionType",
                                "QuestionSubscale",
                                "AnswerCount",
                                "Answers",
                                "ReportOnlyWhenDone",
                                "NavigationButtons",
                                "TestOption",
                                "ReportDirectory",
                                "ExcelDirectory",
                                "ExcelFileName",
                                "AutosaveFileName"}) {
            const qsizetype at = ran.Out.indexOf('"' + QByteArray(key) + "\":", last);
            QVERIFY2(at >= last, key);
            last = at;
        }
        const QJsonObject json = QJsonDocument::fromJson(ran.Out).object();
        const auto question = [&](int q) {
            return QJsonDocument(json[QLatin1String("Questions")][q - 1].toObject()).toJson(QJsonDocument::Compact);
        };
        QCOMPARE(question(5),
                 QByteArray(R"({"AnswerCount":0,"Answers":[{"Text":"T","Value":100},{"Text":"","Value":5}],)"
                            R"("QuestionSubscale":2,"QuestionText":"Five","QuestionType":0})"));
        QCOMPARE(json[QLatin1String("Questions")][0][QLatin1String("Answers")].toArray().size(), 3);
        QCOMPARE(json[QLatin1String("TestFileName")].toString(), QDir::toNativeSeparators(test_));
        QCOMPARE(QJsonDocument(json[QLatin1String("TestOption")].toArray()).toJson(QJsonDocument::Compact),
                 QByteArray("[4,6,7,10,11,12,13]"));
    }

    void JsonWriter_HardTexts_AreEscaped() {
        JsonWriter json;
        json.BeginArray();
        json.Text(QStringLiteral("\"\\\n\r\t\x01\x7f"
                                 "é€"));
        json.Text(QString(QChar(0xD83D)) + QChar(0xDE00));
        json.Text(QStringLiteral("a") + QChar(0xD83D));
        json.Text(QString(QChar(0xDE00)) + u'b');
        json.BeginArray();
        json.EndArray();
        json.Null();
        json.EndArray();
        QCOMPARE(json.Json(), QByteArray("[\n  \"\\\"\\\\\\n\\r\\t\\u0001\\u007fé€\",\n  \"😀\",\n  \"a\\ud83d\",\n"
                                         "  \"\\ude00b\",\n  [],\n  null\n]\n"));
    }

    void Save_Samples_TheSameBytes() {
        QDirIterator samples(QStringLiteral(VELLUMO_SOURCE_DIR "/samples"), {QStringLiteral("*.vlm")});
        const QString out = folder_.filePath(QStringLiteral("saved.vlm"));
        int count = 0;
        for (; samples.hasNext(); ++count) {
            const QString sample = samples.next();
            const Ran ran = Run({QStringLiteral("save"), sample, out});
            QCOMPARE(ran.Status, 0);
            QVERIFY(ran.Err.isEmpty() && ran.Out.isEmpty());
            QCOMPARE(BytesOf(out), BytesOf(sample));
        }
        QVERIFY(count > 0);
    }

    void Save_CannotBeWritten_IsOne() {
        const QString out = folder_.filePath(QStringLiteral("no such folder/saved.vlm"));
        const Ran ran = Run({QStringLiteral("save"), test_, out});
        QCOMPARE(ran.Status, 1);
        QVERIFY(ran.Err.startsWith("Test Cannot Be Saved: " + QDir::toNativeSeparators(out).toUtf8()));
    }

    void Save_NotAllIsRead_SaysWhatAndNeverOverIt() {
        const QString out = folder_.filePath(QStringLiteral("less.vlm"));
        const QString from = TestFile("bracket.vlm", "[TITLE]T[/TITLE][Q]Are you [really] well?[/Q]");
        for (const bool overIt : {false, true}) {
            const Ran ran = Run({QStringLiteral("save"), from, overIt ? from : out});
            QCOMPARE(ran.Status, overIt ? 1 : 0);
            QVERIFY2(ran.Err.contains("question 1, line 1: the question's text ends here"), ran.Err.constData());
        }
        QVERIFY(QFile::exists(out) && BytesOf(from).contains("really"));
    }

    void Save_WouldBeAnotherTest_IsOneAndNothingWritten() {
        const QString out = folder_.filePath(QStringLiteral("another.vlm"));
        const Ran ran = Run({QStringLiteral("save"), TestFile("b.vlm", "[TITLE]Is [Q] there?[/TITLE][Q]a[/Q]"), out});
        QCOMPARE(ran.Status, 1);
        QVERIFY2(ran.Err.contains("title: the text contains [Q], which"), ran.Err.constData());
        QVERIFY(!QFile::exists(out));
    }

    void Check_FilesAndFolder_OneLineEach() {
        const Ran good = Run({QStringLiteral("check"), test_});
        QCOMPARE(good.Status, 0);
        const QByteArray path = test_.toUtf8();
        QVERIFY2(good.Out.contains(path + ": warning: question 5, answer 2 (line 1, column "), good.Out.constData());
        QVERIFY2(good.Out.endsWith(
                     path + ": scale 'B': lowest 110, highest 120 (0 to 120 with questions left unanswered)\n" + path +
                     ": total: lowest 103, highest 122 (-7 to 122 with questions left unanswered)\n"),
                 good.Out.constData());

        QTemporaryDir folder;
        PutBytes(folder.filePath(QStringLiteral("b.VLM")), "[TITLE]x");
        PutBytes(folder.filePath(QStringLiteral("a.vlm")), "[Q]one\r\n[A]x[/A]");
        PutBytes(folder.filePath(QStringLiteral("c.txt")), "no test");
        const Ran bad = Run({QStringLiteral("check"), folder.path()});
        QCOMPARE(bad.Status, 1);
        const QList<QByteArray> lines = bad.Out.trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        const QString inFolder = QDir::toNativeSeparators(folder.path() + u'/');
        QVERIFY(lines[0].startsWith((inFolder + QStringLiteral("a.vlm: error: ")).toUtf8()));
        QVERIFY(
            lines[1].startsWith((inFolder + QStringLiteral("b.VLM: error: I can't find the [/TITLE]tag")).toUtf8()));

        const QString asks = folder.filePath(QStringLiteral("asks.vlm"));
        PutBytes(asks, "[Q]one[A]x[v=1][/A][/Q][REPORT DIR]/a/b[/REPORT DIR]");
        QVERIFY(Run({QStringLiteral("check"), asks})
                    .Out.contains(asks.toUtf8() + ": warning: Vellumo asks whether the test may write reports into"));
    }

    void Score_GoodRows_PrintsScores() {
        const Ran ran = Score("\xEF\xBB\xBF"
                              "5,client,2,\"1\",3\r\n"
                              "1,\"Lee, \"\"Ann\"\"\",1, 3 ,x\r\n0,,2,1,\"a\nb\"\n,Zoë,\t,,");
        QCOMPARE(ran.Err, QByteArray());
        QCOMPARE(ran.Status, 0);
        QCOMPARE(
            ran.Out,
            QByteArray("client,total,\"A, \"\"first\"\"\",B\n\"Lee, \"\"Ann\"\"\",103,-7,110\n,21,1,20\nZoë,0,0,0\n"));
    }

    void Score_BadResponses_ListsEverythingAndWritesNothing_data() {
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<QStringList>("errors");
        const auto row = [](const char* name, const QByteArray& csv, const QStringList& errors) {
            QTest::newRow(name) << csv << errors;
        };
        const auto one = [](const char* text) { return QStringList{QString::fromUtf8(text)}; };
        row("empty file", "", one("the file has no header"));
        row("unknown column", "client,6\n", one("header, column '6' (line 1): the column is neither"));
        row("leading zero", "01\n", one("header, column '01' (line 1)"));
        row("repeated", "1,client,1\n", one("header, column '1' (line 1): the column stands there twice"));
        row("no name", "1,,2\n", one("header, column '2' (line 1): the column has no name"));
        row("few and many cells", "1,2\n1\n1,1,1\n\n",
            {QStringLiteral("row 1, column '2' (line 2): the row has 1 cell and the header 2"),
             QStringLiteral("row 2, column '3' (line 3): the row has 3 cells and the header 2"),
             QStringLiteral("row 3, column '2' (line 4): the row has 1 cell and the header 2")});
        row("numbers", "1,2,5\nx,3,\n4,11,-1\n1,1,2\n",
            {QStringLiteral("row 1, column '1' (line 2): 'x' is not the number of an answer"),
             QStringLiteral("row 1, column '2' (line 2): the question has no answer 3"),
             QStringLiteral("row 2, column '1' (line 3): the question has no answer 4"),
             QStringLiteral("row 2, column '2' (line 3): the question has no answer 11"),
             QStringLiteral("row 2, column '5' (line 3): '-1' is not the number of an answer"),
             QStringLiteral("row 3, column '5' (line 4): answer 2 of the question has no text")});
        row("fractions and signs", "1,2\n1.4,+1\n1e0,0x1\n",
            {QStringLiteral("row 1, column '1' (line 2): '1.4' is not the number of an answer"),
             QStringLiteral("row 1, column '2' (line 2): '+1' is not the number of an answer"),
             QStringLiteral("row 2, column '1' (line 3): '1e0' is not the number of an answer"),
             QStringLiteral("row 2, column '2' (line 3): '0x1' is not the number of an answer")});
        row("quotes", "1,3\n1,a\"b\n1,\"a\"b\n1,\"open\n",
            {QStringLiteral("row 1, column '3' (line 2): a double quote stands inside"),
             QStringLiteral("row 2, column '3' (line 3): text stands behind"),
             QStringLiteral("row 3, column '3' (line 4): the closing double quote is missing")});
        row("bytes", QByteArray("client,3\n\xFF,a\0b\n", 15),
            {QStringLiteral("row 1, column 'client' (line 2): the cell is not valid UTF-8"),
             QStringLiteral("row 1, column '3' (line 2): the cell holds a zero byte")});
        row("after a cell of two lines", "3,1\n\"a\r\nb\",1\nx,9\n",
            one("row 2, column '1' (line 4): the question has no answer 9"));
        row("10 MB in a cell", "3,1\n\"" + QByteArray(10 << 20, 'x') + "\",9\n" + QByteArray(2 << 20, 'y') + ",1\n",
            {QStringLiteral("row 1, column '3' (line 2): the cell is longer than 1048576 bytes"),
             QStringLiteral("row 1, column '1' (line 2): the question has no answer 9"),
             QStringLiteral("row 2, column '3' (line 3): the cell is longer than 1048576 bytes")});
    }
    void Score_BadResponses_ListsEverythingAndWritesNothing() {
        QFETCH(QByteArray, csv);
        QFETCH(QStringList, errors);
        for (const char* command : {"score", "report"}) {
            const Ran ran = Run({QString::fromLatin1(command), test_, Csv(csv)});
            QCOMPARE(ran.Status, 1);
            QCOMPARE(ran.Out, QByteArray());
            qsizetype at = 0;
            for (const QString& error : errors) {
                const qsizetype found = ran.Err.indexOf(error.toUtf8(), at);
                QVERIFY2(found >= at, qPrintable(error + u'\n' + QString::fromUtf8(ran.Err)));
                at = found + 1;
            }
            // One line for each, and the sum.
            QCOMPARE(ran.Err.count('\n'), csv.isEmpty() ? 1 : errors.size() + 1);
        }
        QVERIFY(!Score(csv, {QStringLiteral("--reports"), Path("reports")}).Out.size());
        QVERIFY(!QDir(Path("reports")).exists());
    }

    void Score_UnreadableResponses_SaysWhy() {
        for (const QString& path : {Path("nowhere.csv"), folder_.path()}) {
            const Ran ran = Run({QStringLiteral("score"), test_, path});
            QCOMPARE(ran.Status, 1);
            QVERIFY2(ran.Err.startsWith("Can't read the responses file '" + path.toUtf8() + "': "),
                     ran.Err.constData());
        }
    }

    void Score_TotalPast16Bits_NamesTheRow() {
        const QString test = TestFile("Big.vlm", QByteArray("[Q]a[A]x[v=20000][/A][A]y[v=-20000][/A][/Q]").repeated(3));
        const QString csv = Csv("3,2,1\n1,2,1\n1,1,1\n2,2,1\n,2,2\n");
        for (const char* command : {"score", "report"}) {
            const Ran ran = Run({QString::fromLatin1(command), test, csv});
            QCOMPARE(ran.Status, 1);
            QCOMPARE(ran.Out, QByteArray());
            QVERIFY2(ran.Err.contains("row 2, column '2' (line 3): Overflow"), ran.Err.constData());
            QVERIFY(ran.Err.contains("row 4, column '2' (line 5): Overflow"));
            QCOMPARE(ran.Err.count("Overflow"), 2);
        }
    }

    void Score_RandomRows_AgreesWithTheReportsSums() {
        const QString path = Sample(QStringLiteral("Workday Rating.vlm"));
        TestDocument test;
        QVERIFY(OpenTest(test, path));
        QByteArray csv, expected;
        unsigned state = 7;
        for (int row = 0; row <= 300; ++row) {
            ResponseSet responses(test.QuestionCount);
            for (int q = test.QuestionCount; q >= 1; --q) {
                state = state * 1664525u + 1013904223u;
                const int a = IsMultichoice(test, q) ? static_cast<int>((state >> 16) % 6) : 0;
                responses.ResponseChoice(q) = a;
                csv +=
                    (q == test.QuestionCount ? QByteArray() : QByteArray(",")) + QByteArray::number(row == 0 ? q : a);
            }
            csv += '\n';
            if (row == 0)
                continue;
            const Scores scores = ComputeScores(test, responses);
            expected += ',' + QByteArray::number(scores.TotalScore);
            for (size_t s = 1; s < scores.SubscaleScore.size(); ++s)
                expected += ',' + QByteArray::number(scores.SubscaleScore[s]);
            expected += '\n';
        }
        const Ran ran = Run({QStringLiteral("score"), path, Csv(csv)});
        QCOMPARE(ran.Out.mid(ran.Out.indexOf('\n') + 1), expected);
    }

    void CsvReader_CellsAcrossItsBuffer_StayWhole() {
        // Line ends, quotes and multi-byte letters fall on every place of the reader's blocks.
        QByteArray csv = "client,3\r\n", expected = "client,total,\"A, \"\"first\"\"\",B\n";
        for (int i = 0; i < 40000; ++i) {
            const QByteArray name = QByteArray(i % 17, 'n') + "ö\"";
            csv += "\"" + QByteArray(name).replace('"', "\"\"") + "\",\"" + QByteArray(i % 5, '\n') + "\"\r\n";
            expected += "\"" + QByteArray(name).replace('"', "\"\"") + "\",0,0,0\n";
        }
        const Ran ran = Score(csv);
        QCOMPARE(ran.Err, QByteArray());
        QVERIFY(ran.Out == expected);
    }

    void CsvReader_CellOfTheLongestLength_IsTaken() {
        QByteArray csv =
            "client,3\r\n" + QByteArray(1 << 20, 'c') + ",\r\n,\"" + QByteArray((1 << 20) - 2, 'x') + "\"\r\n";
        QCOMPARE(Score(csv).Status, 0);
        QCOMPARE(Score(csv.replace("c,", "cc,")).Status, 1);
    }

    void Samples_ScoreAndReport_AreAsExpected_data() {
        QTest::addColumn<QString>("name");
        for (const QString& file : QDir(Sample({})).entryList({QStringLiteral("*.vlm")}))
            QTest::newRow(qPrintable(file)) << file.chopped(4);
    }
    void Samples_ScoreAndReport_AreAsExpected() {
        QFETCH(QString, name);
        const QString test = Sample(name + QStringLiteral(".vlm"));
        const QString csv = Sample(name + QStringLiteral(".responses.csv"));
        const Ran scored = Run({QStringLiteral("score"), test, csv});
        QCOMPARE(scored.Err, QByteArray());
        QCOMPARE(scored.Out, BytesOf(Sample(QStringLiteral("expected/") + name + QStringLiteral(".score.csv"))));
        QCOMPARE(Run({QStringLiteral("check"), test}).Status, 0);
        const QString report = Sample(QStringLiteral("expected/") + name + QStringLiteral(".report.txt"));
        if (!QFile::exists(report))
            return;
        Settings settings;
        settings.QuestionPrefix = QStringLiteral("Q.");
        settings.QuestionSuffix = QStringLiteral(" ");
        const Ran reported = Run({QStringLiteral("report"), test, csv, QStringLiteral("--row=1")}, {}, settings);
        QCOMPARE(reported.Err, QByteArray());
        QCOMPARE(reported.Out, BytesOf(report));
    }

    void Report_Rows_OneBehindTheOther() {
        const QString csv = Csv("administrator,client,4,3,1\nDr. B,Ann,\"long\nanswer\",,2\n,,,3,\n");
        const QStringList base{QStringLiteral("--prefix"),
                               QStringLiteral("#"),
                               QStringLiteral("report"),
                               test_,
                               csv,
                               QStringLiteral("--suffix=)"),
                               QStringLiteral("--administrator"),
                               QStringLiteral("Me")};
        QStringList arguments = base.mid(2) + base.mid(0, 2);
        const QByteArray first =
            "\r\n FOR ANN\r\n\r\nTest administered by Dr. B\r\n\r\n4 of 5 questions completed.\r\n\r\n"
            "QUESTION RESPONSES:\r\n#1)b\r\n#4)long\nanswer\r\n\r\nQUESTIONS NOT ANSWERED: 2, 3, 5.\r\n\r\n"
            "\r\nCUMULATIVE SCORE= 2\r\n";
        const QByteArray second = "\r\n\r\nTest administered by Me\r\n\r\n3 of 5 questions completed.\r\n\r\n"
                                  "QUESTION RESPONSES:\r\n#3)3\r\n\r\nQUESTIONS NOT ANSWERED: 1, 2, 4, 5.\r\n\r\n"
                                  "\r\nCUMULATIVE SCORE= 0\r\n";
        QCOMPARE(Run(arguments).Out, first + second);
        QCOMPARE(Run(arguments + QStringList{QStringLiteral("--row"), QStringLiteral("2")}).Out, second);
        const Ran beyond = Run(arguments + QStringList{QStringLiteral("--row"), QStringLiteral("3")});
        QCOMPARE(beyond.Status, 1);
        QCOMPARE(beyond.Out, QByteArray());
        QVERIFY(beyond.Err.contains("there is no row 3; the file has 2"));
    }

    void ScoreReports_NamesCountersAndAppending() {
        const QString directory = Path("out/reports");
        const QByteArray csv = "client,1\nAnn/Lee,1\nAnn/Lee,2\n";
        const QString client =
            TestFile("Cl.vlm", SmallTest + "[AUTOSAVE REPORT AS CLIENT][AUTOSAVE REPORT DIRECTORY AS CLIENT]");
        Ran ran = Run({QStringLiteral("score"), client, Csv(csv), QStringLiteral("--reports"), directory});
        QCOMPARE(ran.Err, QByteArray());
        QCOMPARE(ran.Status, 0);
        QCOMPARE(QDir(directory).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("Ann_Lee~19c5fc")});
        QCOMPARE(QDir(directory + QStringLiteral("/Ann_Lee~19c5fc")).entryList(QDir::Files),
                 (QStringList{QStringLiteral("Cl Ann_Lee~19c5fc(1).txt"), QStringLiteral("Cl Ann_Lee~19c5fc.txt")}));
        const QByteArray report = Run({QStringLiteral("report"), client, Csv(csv), QStringLiteral("--row=2")}).Out;
        QCOMPARE(BytesOf(directory + QStringLiteral("/Ann_Lee~19c5fc/Cl Ann_Lee~19c5fc(1).txt")), report + "\r\n");

        const QString append =
            TestFile("Ap.vlm", SmallTest + "[APPEND TO REPORT FILE][AUTOSAVE FILENAME]all.x[/AUTOSAVE FILENAME]");
        ran = Run({QStringLiteral("score"), append, Csv(csv), QStringLiteral("--reports"), directory});
        QCOMPARE(ran.Status, 0);
        const QByteArray first = Run({QStringLiteral("report"), append, Csv(csv), QStringLiteral("--row=1")}).Out;
        const QByteArray second = Run({QStringLiteral("report"), append, Csv(csv), QStringLiteral("--row=2")}).Out;
        QCOMPARE(BytesOf(directory + QStringLiteral("/all.txt")), first + "\r\n" + second + "\r\n");
    }

    void ScoreReports_DirectoryThatCantBeMade_WritesNothing() {
        PutBytes(Path("taken"), "x");
        const Ran ran = Score("1\n1\n", {QStringLiteral("--reports"), Path("taken/in")});
        QCOMPARE(ran.Status, 1);
        QCOMPARE(ran.Err, "Can't make directory: " + Path("taken/in").toUtf8() + '\n');
        QCOMPARE(ran.Out, QByteArray());
    }

    void Take_WholeTest_ReportsOnStandardOutput() {
        const QByteArray input = "2\n1\n::colon\nlong one\n1\n";
        const Ran ran = Run({QStringLiteral("take"), test_, QStringLiteral("--client"), QStringLiteral("Ann"),
                             QStringLiteral("--administrator=Dr. B")},
                            input);
        QCOMPARE(ran.Status, 0);
        const QByteArray csv = "client,administrator,1,2,3,4,5\nAnn,Dr. B,2,1,:colon,long one,1\n";
        QCOMPARE(ran.Out, Run({QStringLiteral("report"), test_, Csv(csv)}).Out);
        qsizetype at = 0;
        for (const char* words : {"INSTRUCTIONS", "Do it.", "Question 1 of 5", "One", "1. a", "2. b", "Question 5 of 5",
                                  "1. T", "Completed", "You have completed the 'Small'.", "Bye."}) {
            at = ran.Err.indexOf(words, at);
            QVERIFY2(at >= 0, words);
        }
        QVERIFY(!ran.Err.contains("2. \n"));
        QVERIFY2(!ran.Err.contains("button"), ran.Err.constData());
    }

    void Take_QuestionThatCantBeAnswered_PassedOver() {
        const QString test = TestFile("Odd.vlm", "[Q]a[A]x[v=1][/A][/Q][Q]b[/Q][Q]c[QT]7[/QT][/Q]"
                                                 "[REPORT NUMBER OF QUESTIONS COMPLETED]");
        const Ran ran = Run({QStringLiteral("take"), test}, "1\n1\n\n\n\n");
        QCOMPARE(ran.Status, 0);
        QCOMPARE(ran.Err.count("This question has no answers to choose from. An empty line goes on"), 2);
        QVERIFY(ran.Err.contains("Completed"));
        QVERIFY(ran.Out.contains("1 of 3 questions completed."));
    }

    void Take_LinesThatAreNoAnswer_AreAskedAgain() {
        const Ran ran = Run({QStringLiteral("take"), test_}, "x\n4\n\n:nonsense\n0\n3\n:quit\n1\n");
        QCOMPARE(ran.Status, 0);
        QVERIFY(ran.Out.contains("1 of 5 questions completed."));
        QVERIFY(ran.Out.contains("CUMULATIVE SCORE= -7"));
        QCOMPARE(ran.Err.count("is not the number of an answer."), 4);
        QCOMPARE(ran.Err.count("':nonsense' is no command."), 1);
    }

    void Take_Navigation_FollowsTheTestsButtons() {
        Ran ran = Run({QStringLiteral("take"), test_}, "1\n:back\n2\n");
        QVERIFY(ran.Err.contains("You can't go there now."));
        QVERIFY(ran.Out.contains("CUMULATIVE SCORE= 21"));

        const QString free = TestFile("Free.vlm", SmallTest + "[NAVIGATION BUTTONS]");
        ran = Run({QStringLiteral("take"), free}, "1\n:back\n3\n:back\n:forward\n:forward\n2\n");
        QVERIFY2(ran.Out.contains("CUMULATIVE SCORE= 13"), ran.Out.constData());
        QCOMPARE(ran.Err.count("You can't go there now."), 1);
    }

    void Take_AfterCompletion_AnswersCanBeChanged() {
        const QString two =
            TestFile("Two.vlm", "[Q]a[A]x[v=1][/A][A]y[v=2][/A][/Q][Q]b[A]x[v=10][/A][/Q][REPORT TOTAL SCORE]");
        const Ran ran = Run({QStringLiteral("take"), two}, "1\n1\n:back\n2\n1\n\n1\n");
        QCOMPARE(ran.Out, QByteArray("\r\n\r\n\r\nCUMULATIVE SCORE= 12\r\n"));
    }

    void Take_ReportCommand_ShowsItOnlyWhenAllowed() {
        Ran ran = Run({QStringLiteral("take"), test_}, "2\n:report\n");
        QCOMPARE(ran.Err.count("CUMULATIVE SCORE= 2"), 1);
        QCOMPARE(ran.Out.count("CUMULATIVE SCORE= 2"), 1);
        const QString done = TestFile("Done.vlm", SmallTest + "[REPORT ONLY WHEN DONE]");
        ran = Run({QStringLiteral("take"), done}, "2\n:report\n");
        QVERIFY(ran.Err.contains("A report can't be made now."));
        QVERIFY(!ran.Err.contains("CUMULATIVE"));
    }

    void Take_ReportPath_WritesOrFallsBack() {
        Ran ran = Run({QStringLiteral("take"), test_, QStringLiteral("--report"), Path("r.txt")}, "1\n");
        QCOMPARE(ran.Status, 0);
        QCOMPARE(ran.Out, QByteArray());
        QVERIFY(BytesOf(Path("r.txt")).endsWith("CUMULATIVE SCORE= 1\r\n"));
        ran = Run({QStringLiteral("take"), test_, QStringLiteral("--report"), Path("no/such/r.txt")}, "1\n");
        QCOMPARE(ran.Status, 1);
        QVERIFY(ran.Out.endsWith("CUMULATIVE SCORE= 1\r\n"));
        QVERIFY2(ran.Err.contains(Path("no/such/r.txt").toUtf8()), ran.Err.constData());
    }

    void Take_NoQuestionsOrOverflow_IsRefused() {
        Ran ran = Run({QStringLiteral("take"), TestFile("No.vlm", "[TITLE]None[/TITLE]")});
        QCOMPARE(ran.Status, 1);
        QCOMPARE(ran.Err, QByteArray("The test 'None' has no questions.\n"));
        ran = Run({QStringLiteral("take"), TestFile("Big.vlm", QByteArray("[Q]a[A]x[v=20000][/A][/Q]").repeated(2))},
                  "1\n1\n");
        QCOMPARE(ran.Status, 1);
        QVERIFY(ran.Err.endsWith("Overflow\n"));
        QCOMPARE(ran.Out, QByteArray());
    }

    void Process_OutputThatCantBeWritten_IsOne() {
        QProcess process;
        if (QSysInfo::productType() == QStringLiteral("windows"))
            QSKIP("No full device here");
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(Cli(), {QStringLiteral("show"), test_});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().startsWith("Can't write to standard output: "));
    }

    void Process_ReaderGoesAway_IsOneAndNoCrash() {
        QProcess process;
        if (QSysInfo::productType() == QStringLiteral("windows"))
            QSKIP("No shell here");
        process.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("{ \"$0\" show \"$1\"; echo $? >&2; } | true; sleep 0.1"),
                       Cli(), Sample(QStringLiteral("Longest Test.vlm"))});
        QVERIFY(process.waitForFinished());
        const QByteArray err = process.readAllStandardError();
        QVERIFY2(err.endsWith("\n1\n") || err == "0\n", err.constData());
    }

    void Process_PlainLocale_PrintsUtf8AndStoresNothing() {
        QTemporaryDir home;
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home.path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(QFileInfo(test_).path());
        PutBytes(Path("Größe.vlm"), "[TITLE]Größe[/TITLE][Q]a[/Q]");
        process.start(Cli(), {QStringLiteral("show"), QStringLiteral("Größe.vlm")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardError(), QByteArray());
        const QByteArray out = process.readAllStandardOutput();
        QVERIFY2(out.contains("\"TestTitle\": \"Größe\""), out.constData());
        QVERIFY(out.contains("Größe.vlm\""));
        QVERIFY(QDir(home.path()).isEmpty());
    }

    void Process_TakeFromAPipe_EndsWithTheInput() {
        QProcess process;
        process.start(Cli(), {QStringLiteral("take"), test_});
        process.write("2\n1");
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardOutput().endsWith("CUMULATIVE SCORE= 12\r\n"));
    }
};

QTEST_GUILESS_MAIN(tst_cli)
#include "tst_cli.moc"
