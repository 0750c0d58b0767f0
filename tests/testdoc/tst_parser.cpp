#include "support/Files.h"
#include "testdoc/TestParser.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString Path = QStringLiteral("/tests/Mood.vlm");

/// Loads the text as the content of a file that was read.
void Load(TestDocument& test, const QString& text) {
    test.TestFileName = Path;
    test.TestFileText = text;
    test.TestFileLength = static_cast<int>(text.size());
    LoadTest(test);
}

TestDocument Loaded(const QString& text) {
    TestDocument test;
    Load(test, text);
    return test;
}

/// What the program would show for a file with this content; "" when it loads.
QString ParseMessage(const QString& text) {
    try {
        Loaded(text);
    } catch (const ParseError& error) {
        return error.Message();
    }
    return {};
}

QString Answers(const TestDocument& test, int q, int count) {
    QStringList answers;
    for (int a = 1; a <= count; ++a)
        answers << ChosenText(test, q, a) + u':' + ChosenValue(test, q, a).Text();
    return answers.join(u'|');
}

} // namespace

class tst_parser : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void ReadTestFile_LineEndsAndMarks_JoinsAndBreaks_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QStringLiteral("ab");
        QTest::newRow("lone LF") << QByteArray("a\n\nb") << QStringLiteral("ab");
        QTest::newRow("lone CR") << QByteArray("a\rb") << QStringLiteral("ab");
        QTest::newRow("both marks") << QByteArray("a<P>b<p>c") << QStringLiteral("a\r\nb\r\nc");
        QTest::newRow("mark across lines") << QByteArray("a<\r\nP>b") << QStringLiteral("a\r\nb");
        QTest::newRow("no mark with a blank") << QByteArray("a<P >b</P>") << QStringLiteral("a<P >b</P>");
        QTest::newRow("code page") << QByteArray("Gr\xF6\xDF"
                                                 "e \x80")
                                   << QStringLiteral("Größe €");
        QTest::newRow("UTF-8") << QByteArray("Größe") << QStringLiteral("Größe");
        QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF"
                                                       "abc")
                                         << QStringLiteral("abc");
        QTest::newRow("empty") << QByteArray() << QString();
    }
    void ReadTestFile_LineEndsAndMarks_JoinsAndBreaks() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("t.vlm"));
        PutBytes(path, bytes);
        TestDocument test;
        QVERIFY(ReadTestFile(test, path));
        QCOMPARE(test.TestFileText, text);
        QCOMPARE(test.TestFileLength, static_cast<int>(text.size()));
        QCOMPARE(test.TestFileName, path);
    }

    void ReadTestFile_LengthAtTheBound_ReadsOrRefuses() {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("t.vlm"));
        TestDocument test;
        PutBytes(path, QByteArray(32767, 'x') + "\r\n");
        QVERIFY(ReadTestFile(test, path));
        PutBytes(path, QByteArray(32768, 'x'));
        const Result refused = ReadTestFile(test, path);
        QVERIFY(!refused);
        QVERIFY2(refused.Message().contains(QStringLiteral("32768")), qPrintable(refused.Message()));
        QCOMPARE(test.TestFileLength, 32767);
    }

    void ReadTestFile_Unreadable_SaysWhy_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << QStringLiteral("nowhere.vlm");
        QTest::newRow("directory") << QStringLiteral("folder");
        QTest::newRow("zero bytes") << QStringLiteral("zero.vlm");
        QTest::newRow("huge") << QStringLiteral("huge.vlm");
    }
    void ReadTestFile_Unreadable_SaysWhy() {
        QFETCH(QString, name);
        QTemporaryDir folder;
        QDir(folder.path()).mkdir(QStringLiteral("folder"));
        PutBytes(folder.filePath(QStringLiteral("zero.vlm")), QByteArray("[TITLE]\0[/TITLE]", 16));
        PutBytes(folder.filePath(QStringLiteral("huge.vlm")), QByteArray(50 << 20, 'x'));
        TestDocument test;
        const QString path = folder.filePath(name);
        const Result result = OpenTest(test, path);
        QVERIFY(!result);
        QVERIFY2(
            result.Message().startsWith(QStringLiteral("Can't read the test file '") + path + QStringLiteral("': ")),
            qPrintable(result.Message()));
    }

    void LoadTest_BaseName_CutsAtTheFirstPoint_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << QStringLiteral("/t/anx.vlm") << QStringLiteral("anx");
        QTest::newRow("point in a folder") << QStringLiteral("/My.Tests/anx.vlm") << QStringLiteral("My");
        QTest::newRow("several points") << QStringLiteral("/t/a.b.vlm") << QStringLiteral("a");
        QTest::newRow("no point") << QStringLiteral("/t/anx") << QStringLiteral("before");
    }
    void LoadTest_BaseName_CutsAtTheFirstPoint() {
        QFETCH(QString, path);
        QFETCH(QString, name);
        TestDocument test;
        test.TestBaseName = QStringLiteral("before");
        test.TestFileName = path;
        LoadTest(test);
        QCOMPARE(test.TestBaseName, name);
    }

    void LoadTest_NoTags_IsUntitledAndEmpty() {
        const TestDocument test = Loaded(QStringLiteral("just some words"));
        QCOMPARE(test.TestTitle, QStringLiteral("Untitled"));
        QCOMPARE(test.TestIntroduction, QString());
        QCOMPARE(test.SubscaleCount + test.TotalRangeCount + test.TemplateAnswerCount + test.QuestionCount, 0);
        for (int i = 1; i <= OptionCount; ++i)
            QVERIFY(!test.TestOption(i));
    }

    void LoadTest_TopLevelElements_AnyOrderAndCase() {
        const TestDocument test = Loaded(QStringLiteral(
            "[excel dir]E[/EXCEL DIR][instructions]Do\r\nit[/Instructions][Completion Message]Bye[/completion message]"
            "[Introduction]Hi[/INTRODUCTION][tItLe]Mood[/TITLE][TITLE]Second[/TITLE][REPORT DIR]R[/REPORT DIR]"
            "[EXCEL FILE NAME]X[/EXCEL FILE NAME][AUTOSAVE FILENAME]A[/AUTOSAVE FILENAME]"));
        QCOMPARE(test.TestTitle, QStringLiteral("Mood"));
        QCOMPARE(test.TestIntroduction, QStringLiteral("Hi"));
        QCOMPARE(test.TestInstructions, QStringLiteral("Do\r\nit"));
        QCOMPARE(test.TestCompletionMessage, QStringLiteral("Bye"));
        QCOMPARE(test.ReportDirectory + test.ExcelDirectory + test.ExcelFileName + test.AutosaveFileName,
                 QStringLiteral("REXA"));
    }

    void LoadTest_Options_AreFoundAnywhereInAnyCase() {
        for (int i = 1; i <= OptionCount; ++i) {
            const QString tag = OptionTags()[static_cast<size_t>(i - 1)];
            const TestDocument test =
                Loaded(QStringLiteral("[Q]Do you like ") + tag.toLower() + QStringLiteral("?[/Q]"));
            for (int other = 1; other <= OptionCount; ++other)
                QCOMPARE(test.TestOption(other), other == i);
        }
        const TestDocument test = Loaded(QStringLiteral("[report only when done][Navigation Buttons]"));
        QVERIFY(test.ReportOnlyWhenDone && test.NavigationButtons);
    }

    void LoadTest_Ranges_SplitAtToAndEquals_data() {
        QTest::addColumn<QString>("content");
        QTest::addColumn<int>("low");
        QTest::addColumn<int>("high");
        QTest::addColumn<QString>("text");
        QTest::newRow("as written") << QStringLiteral("0 to 10 =Within") << 0 << 10 << QStringLiteral("Within");
        QTest::newRow("by hand") << QStringLiteral("5 TO 9=Mild") << 5 << 9 << QStringLiteral("Mild");
        QTest::newRow("negative") << QStringLiteral("-5To-1 = a") << -5 << -1 << QStringLiteral(" a");
        QTest::newRow("text with marks") << QStringLiteral("1 to 2 =3 to 4 = b") << 1 << 2
                                         << QStringLiteral("3 to 4 = b");
        QTest::newRow("halves to even") << QStringLiteral("0.5 to 2.5 =") << 0 << 2 << QString();
        QTest::newRow("low above high") << QStringLiteral("9 to 1 =x") << 9 << 1 << QStringLiteral("x");
    }
    void LoadTest_Ranges_SplitAtToAndEquals() {
        QFETCH(QString, content);
        QFETCH(int, low);
        QFETCH(int, high);
        QFETCH(QString, text);
        const QString range = QStringLiteral("[SIG]") + content + QStringLiteral("[/SIG]");
        const TestDocument test =
            Loaded(QStringLiteral("[SUBSCALES][S]E") + range + QStringLiteral("[/S][/SUBSCALES][TOTAL]") + range +
                   QStringLiteral("[/TOTAL]"));
        QCOMPARE(test.SubscaleName(1), QStringLiteral("E"));
        QVERIFY(test.SubscaleRangesPresent);
        QCOMPARE(test.SubscaleRangeCount(1), 1);
        QCOMPARE(test.SubscaleRangeLow(1, 1), Value(low));
        QCOMPARE(test.SubscaleRangeHigh(1, 1), Value(high));
        QCOMPARE(test.SubscaleRangeText(1, 1), text);
        QCOMPARE(test.TotalRangeCount, 1);
        QCOMPARE(test.TotalRangeLow(1), low);
        QCOMPARE(test.TotalRangeHigh(1), high);
        QCOMPARE(test.TotalRangeText(1), text);
    }

    void LoadTest_TextBeforeSubscales_ReadsOneTwiceBeyondTheStep_data() {
        QTest::addColumn<QString>("between");
        QTest::addColumn<QString>("names");
        // Each search begins 7 behind the length of the element before it, counted from the last beginning and not from
        // where that element stood; "Alpha" takes 12 characters and "Beta" 11.
        QTest::newRow("none") << QString() << QStringLiteral("Alpha,Beta");
        QTest::newRow("10 characters") << QString(10, u'x') << QStringLiteral("Alpha,Beta");
        QTest::newRow("11 characters") << QString(11, u'x') << QStringLiteral("Alpha,Beta,Beta");
        QTest::newRow("12 characters") << QString(12, u'x') << QStringLiteral("Alpha,Alpha,Beta");
    }
    void LoadTest_TextBeforeSubscales_ReadsOneTwiceBeyondTheStep() {
        QFETCH(QString, between);
        QFETCH(QString, names);
        const TestDocument test =
            Loaded(QStringLiteral("[SUBSCALES]") + between + QStringLiteral("[S]Alpha[/S][S]Beta[/S][/SUBSCALES]"));
        QStringList read;
        for (int s = 1; s <= test.SubscaleCount; ++s)
            read << test.SubscaleName(s);
        QCOMPARE(read.join(u','), names);
    }

    void LoadTest_TextBeforeRangesAndTemplateAnswers_StepsByTheLength() {
        const auto total = [](int extra) {
            return Loaded(QStringLiteral("[TOTAL]") + QString(extra, u'x') +
                          QStringLiteral("[SIG]0 to 1 =a[/SIG][SIG]2 to 3 =b[/SIG][/TOTAL]"))
                .TotalRangeCount;
        };
        QCOMPARE(total(19), 2); // 8 characters in the range and a step of 11
        QCOMPARE(total(20), 3);
        const auto answers = [](int extra) {
            return Loaded(QStringLiteral("[TEMPLATE]") + QString(extra, u'x') +
                          QStringLiteral("[A]No[v=0][/A][A]Yes[v=1][/A][/TEMPLATE]"))
                .TemplateAnswerCount;
        };
        QCOMPARE(answers(13), 2); // 7 characters in the answer and a step of 7
        QCOMPARE(answers(14), 3);
    }

    void LoadTest_EmptySubscale_EndsTheList() {
        const TestDocument test = Loaded(QStringLiteral("[SUBSCALES][S]A[/S][S][/S][S]C[/S][/SUBSCALES]"));
        QCOMPARE(test.SubscaleCount, 1);
    }

    void LoadTest_Questions_TypeTextAndAnswers_data() {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subscale");
        QTest::addColumn<QString>("answers");
        const QString name = QStringLiteral("Name?");
        QTest::newRow("text alone") << name << name << 0 << 0 << QString();
        QTest::newRow("short") << QStringLiteral("Name?[QT]2[/QT]") << name << 2 << 0 << QString();
        QTest::newRow("long, lower case") << QStringLiteral("Name?[qt] 3 [/qt]") << name << 3 << 0 << QString();
        QTest::newRow("answers") << QStringLiteral("Name?[A]a[v=3][/A][a]b[V= -4 ][/a]") << name << 1 << 0
                                 << QStringLiteral("a:3|b:-4");
        QTest::newRow("answers and type")
            << QStringLiteral("Name?[A]a[v=1][/A][QT]2[/QT]") << name << 1 << 0 << QStringLiteral("a:1");
        QTest::newRow("text between answers") << QStringLiteral("Name?[A]a[v=1][/A] and a good deal [A]b[v=2][/A]")
                                              << name << 1 << 0 << QStringLiteral("a:1|b:2");
        QTest::newRow("fraction") << QStringLiteral("Name?[A]a[v=1.5][/A][A]b[v=2.5][/A]") << name << 1 << 0
                                  << QStringLiteral("a:2|b:2");
        QTest::newRow("empty answer text")
            << QStringLiteral("Name?[A][v=9][/A]") << name << 1 << 0 << QStringLiteral(":9");
        QTest::newRow("sub-scale that isn't there") << QStringLiteral("Name?[ss=3]") << name << 0 << 3 << QString();
        QTest::newRow("bracket in the text")
            << QStringLiteral("Na[me]?") << QStringLiteral("Na") << 0 << 0 << QString();
    }
    void LoadTest_Questions_TypeTextAndAnswers() {
        QFETCH(QString, content);
        QFETCH(QString, text);
        QFETCH(int, type);
        QFETCH(int, subscale);
        QFETCH(QString, answers);
        const TestDocument test = Loaded(QStringLiteral("[q]") + content + QStringLiteral("[/q]"));
        QCOMPARE(test.QuestionCount, 1);
        QCOMPARE(test.QuestionText(1), text);
        QCOMPARE(test.QuestionType(1), type);
        QCOMPARE(test.QuestionSubscale(1), subscale);
        QCOMPARE(Answers(test, 1, test.AnswerCount(1)), answers);
        QCOMPARE(test.HasMultichoice, type < 2);
        QCOMPARE(test.HasShortAnswer, type == 2);
        QCOMPARE(test.HasLongAnswer, type == 3);
        QCOMPARE(test.HasLongAnswerQuestions, type == 3);
    }

    void LoadTest_LongTypeWithAnswers_LeavesOnlyTheSecondFlag() {
        const TestDocument test = Loaded(QStringLiteral("[Q]x[QT]3[/QT][A]a[v=1][/A][/Q]"));
        QVERIFY(test.HasLongAnswerQuestions);
        QVERIFY(!test.HasLongAnswer);
        QVERIFY(test.HasMultichoice);
    }

    void LoadTest_NestedQuestion_CountsBothAndReadsTheInner() {
        // The first element ends at the first closing tag, and the count goes by the opening ones.
        const TestDocument test = Loaded(QStringLiteral("[Q]outer[Q]inner[/Q][/Q][Q]last[/Q]"));
        QCOMPARE(test.QuestionCount, 3);
        QCOMPARE(test.QuestionText(1), QStringLiteral("outer"));
        QCOMPARE(test.QuestionText(2), QStringLiteral("last"));
    }

    void LoadTest_EmptyQuestion_StillSteps() {
        const TestDocument test = Loaded(QStringLiteral("[Q][/Q][Q]b[/Q]"));
        QCOMPARE(test.QuestionText(1), QString());
        QCOMPARE(test.QuestionText(2), QStringLiteral("b"));
    }

    void LoadTest_Template_OfferedWithoutCountOrType() {
        const TestDocument test = Loaded(QStringLiteral("[TEMPLATE][A]No[v=0][/A][A]Yes, always[v=1][/A][/TEMPLATE]"
                                                        "[Q]a[/Q][Q]b[A]x[v=7][/A][/Q][Q]c[QT]2[/QT][/Q]"));
        QCOMPARE(Answers(test, 1, 2), QStringLiteral("No:0|Yes, always:1"));
        QCOMPARE(test.AnswerCount(1), 0);
        QCOMPARE(test.QuestionType(1), 0);
        QCOMPARE(Answers(test, 2, 2), QStringLiteral("x:7|:"));
        QCOMPARE(Answers(test, 3, 2), QStringLiteral("No:0|Yes, always:1"));
        QCOMPARE(test.QuestionType(3), 2);
        QCOMPARE(test.MaxAnswerCount, 2);
        QCOMPARE(test.LongestAnswerLength, static_cast<int>(qstrlen("Yes, always[v=1]")));
    }

    void LoadTest_Malformed_NamesElementAndFile_data() {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const char* content, const char* message) {
            QTest::newRow(name) << QString::fromLatin1(content) << QString::fromLatin1(message);
        };
        row("title open", "[Title]x", "I can't find the [/TITLE]tag");
        row("question open", "[Q]a[/Q][q]b", "I can't find the [/Q]tag");
        row("answer open", "[Q]a[A]x[v=1][/Q]", "I can't find the [/A]tag");
        row("type open", "[Q]a[QT]2[/Q]", "I can't find the [/QT]tag");
        row("range open", "[TOTAL][SIG]0 to 1 =x[/TOTAL]", "I can't find the [/SIG]tag");
        row("path open", "[REPORT DIR]x", "I can't find the [/REPORT DIR]tag");
        row("subscale range", "[SUBSCALES][S]a[SIG]0 to 1[/SIG][/S][/SUBSCALES]",
            "I can't find a range in subscale significance values");
        row("total range", "[TOTAL][SIG]0 to 1[/SIG][/TOTAL]", "I can't find a range in total significance values");
        row("template", "[TEMPLATE][A]x[/A][/TEMPLATE]", "I can't find a template value");
        row("answer", "[Q]a[A]x[/A][SS=1][/Q]", "I can't find a value assigned to question a[A]x[/A][SS=1]");
        row("word as value", "[Q]a[A]x[v=ten][/A][/Q]", "'ten' is not a whole number from -32768 to 32767");
        row("large value", "[Q]a[A]x[v=32768][/A][/Q]", "'32768' is not a whole number from -32768 to 32767");
        row("exponent", "[TOTAL][SIG]1e2 to 3 =x[/SIG][/TOTAL]", "'1e2 ' is not a whole number from -32768 to 32767");
        row("empty value", "[Q]a[A]x[v=][/A][/Q]", "'' is not a whole number from -32768 to 32767");
        row("word as type", "[Q]a[QT]x[/QT][/Q]", "'x' is not a whole number from -32768 to 32767");
    }
    void LoadTest_Malformed_NamesElementAndFile() {
        QFETCH(QString, content);
        QFETCH(QString, message);
        QCOMPARE(ParseMessage(content), message + QStringLiteral(" in the file: ") + Path);
    }

    void LoadTest_HalfMarkers_QuoteTheElement_data() {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("quoted");
        QTest::newRow("value") << QStringLiteral("[Q]a[A]x[v=1[/A][/Q]") << QStringLiteral("x[v=1");
        QTest::newRow("no TO") << QStringLiteral("[TOTAL][SIG]1-3=x[/SIG][/TOTAL]") << QStringLiteral("1-3=x");
        QTest::newRow("TO behind =") << QStringLiteral("[TOTAL][SIG]1=to[/SIG][/TOTAL]") << QStringLiteral("1=to");
        QTest::newRow("sub-scale") << QStringLiteral("[Q]a[SS=1[/Q]") << QStringLiteral("a[SS=1");
    }
    void LoadTest_HalfMarkers_QuoteTheElement() {
        QFETCH(QString, content);
        QFETCH(QString, quoted);
        const QString message = ParseMessage(content);
        QVERIFY2(message.contains(u'\'' + quoted + u'\''), qPrintable(message));
        QVERIFY2(message.endsWith(QStringLiteral(" in the file: ") + Path), qPrintable(message));
    }

    void LoadTest_Bounds_HoldOrFail_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("piece");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("bound");
        QTest::addColumn<QString>("message");
        const QString range = QStringLiteral("[SIG]0 to 1 =x[/SIG]");
        QTest::newRow("questions") << QString() << QStringLiteral("[Q]a[/Q]") << QString() << 500
                                   << QStringLiteral("More than 500 questions");
        QTest::newRow("sub-scales") << QStringLiteral("[SUBSCALES]") << QStringLiteral("[S]a[/S]")
                                    << QStringLiteral("[/SUBSCALES]") << 50
                                    << QStringLiteral("More than 50 sub-scales");
        QTest::newRow("ranges") << QStringLiteral("[SUBSCALES][S]a") << range << QStringLiteral("[/S][/SUBSCALES]")
                                << 50 << QStringLiteral("More than 50 ranges");
        QTest::newRow("total ranges") << QStringLiteral("[TOTAL]") << range << QStringLiteral("[/TOTAL]") << 50
                                      << QStringLiteral("More than 50 ranges");
        QTest::newRow("answers") << QStringLiteral("[Q]a") << QStringLiteral("[A]x[v=1][/A]") << QStringLiteral("[/Q]")
                                 << 10 << QStringLiteral("More than 10 answers");
        QTest::newRow("template") << QStringLiteral("[TEMPLATE]") << QStringLiteral("[A]x[v=1][/A]")
                                  << QStringLiteral("[/TEMPLATE]") << 11
                                  << QStringLiteral("More than 11 template answers");
        QTest::newRow("template in a question")
            << QStringLiteral("[Q]a[/Q][TEMPLATE]") << QStringLiteral("[A]x[v=1][/A]") << QStringLiteral("[/TEMPLATE]")
            << 10 << QStringLiteral("More than 10 answers");
    }
    void LoadTest_Bounds_HoldOrFail() {
        QFETCH(QString, before);
        QFETCH(QString, piece);
        QFETCH(QString, after);
        QFETCH(int, bound);
        QFETCH(QString, message);
        QCOMPARE(ParseMessage(before + piece.repeated(bound) + after), QString());
        QCOMPARE(ParseMessage(before + piece.repeated(bound + 1) + after),
                 message + QStringLiteral(" in the file: ") + Path);
    }

    void LoadTest_AnsweredQuestion201_Fails() {
        const QString answered = QStringLiteral("[Q]a[A]x[v=1][/A][/Q]");
        const QString plain = QStringLiteral("[Q]a[/Q]");
        QCOMPARE(ParseMessage(answered.repeated(200) + plain.repeated(300)), QString());
        const QString message = ParseMessage(plain.repeated(200) + answered);
        QVERIFY2(message.startsWith(QStringLiteral("More than 200 questions")), qPrintable(message));
    }

    void ClearTest_ThenLoad_KeepsWhatQuestionsHadBefore() {
        TestDocument test;
        Load(test, QStringLiteral("[SUBSCALES][S]E[SIG]0 to 1 =x[/SIG][/S][/SUBSCALES][EXCEL DIR]E[/EXCEL DIR]"
                                  "[REPORT DIR]R[/REPORT DIR][REPORT TITLE][Q]a[QT]3[/QT][SS=1][/Q]"
                                  "[Q]b[A]x[v=5][/A][/Q]"));
        ClearTest(test);
        QCOMPARE(test.SubscaleCount + test.QuestionCount + test.MaxAnswerCount, 0);
        QCOMPARE(test.SubscaleRangeLow(1, 1), Value());
        QCOMPARE(test.SubscaleName(1), QStringLiteral("E"));
        QCOMPARE(test.ExcelDirectory, QStringLiteral("E"));
        QCOMPARE(test.ReportDirectory, QString());
        QVERIFY(!test.TestOption(ReportTitle) && !test.HasLongAnswer && !test.SubscaleRangesPresent);

        Load(test, QStringLiteral("[Q]new a[/Q][Q]new b[/Q]"));
        QCOMPARE(test.QuestionType(1), 3);
        QCOMPARE(test.QuestionSubscale(1), 1);
        QVERIFY(test.HasLongAnswer);
        QCOMPARE(test.AnswerCount(2), 1);
        QCOMPARE(Answers(test, 2, 1), QStringLiteral("x:5"));
    }

    void OpenTest_AfterAnotherTest_InheritsNothing() {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("t.vlm"));
        TestDocument test;
        Load(test, QStringLiteral("[Q]a[QT]3[/QT][SS=1][/Q]"));
        PutBytes(path, "[Q]new[/Q]");
        QVERIFY(OpenTest(test, path));
        QCOMPARE(test.QuestionType(1), 0);
        QCOMPARE(test.QuestionSubscale(1), 0);
    }

    void LoadTitleAndTexts_BrokenQuestions_DoNotMatter() {
        TestDocument test;
        test.TestFileName = Path;
        test.TestFileText = QStringLiteral("[TITLE]Mood[/TITLE][Q]open");
        LoadTitleAndTexts(test);
        QCOMPARE(test.TestTitle, QStringLiteral("Mood"));
    }
};

QTEST_GUILESS_MAIN(tst_parser)
#include "tst_parser.moc"
