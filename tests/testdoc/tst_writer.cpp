#include "cli/Shared.h"
#include "editor/TestSnapshot.h"
#include "platform/TextFile.h"
#include "support/Files.h"
#include "support/SmallDisk.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(TestDocument&)>;

TestDocument Changed(const Change& change) {
    TestDocument test;
    change(test);
    return test;
}

/// Documents as a person could write them whose texts hold nothing that a reader loses.
class Generator {
  public:
    explicit Generator(quint32 seed) : random_(seed) {}

    TestDocument Make() {
        TestDocument test;
        test.TestTitle = Text(1);
        test.TestIntroduction = Paragraphs();
        test.TestInstructions = Paragraphs();
        test.TestCompletionMessage = Paragraphs();
        test.SubscaleCount = Below(8);
        for (int s = 1; s <= test.SubscaleCount; ++s) {
            test.SubscaleName(s) = Text(1);
            test.SubscaleRangeCount(s) = Below(4);
            for (int r = 1; r <= test.SubscaleRangeCount(s); ++r) {
                test.SubscaleRangeLow(s, r) = Number();
                test.SubscaleRangeHigh(s, r) = Number();
                test.SubscaleRangeText(s, r) = Text(0);
                test.SubscaleRangesPresent = true;
            }
        }
        test.TotalRangeCount = Below(4);
        for (int r = 1; r <= test.TotalRangeCount; ++r) {
            test.TotalRangeLow(r) = Number();
            test.TotalRangeHigh(r) = Number();
            test.TotalRangeText(r) = Text(0);
        }
        test.TemplateAnswerCount = Below(MaxAnswers + 1);
        for (int i = 1; i <= test.TemplateAnswerCount; ++i) {
            test.TemplateAnswerText(i) = Text(0);
            test.TemplateAnswerValue(i) = Number();
        }
        test.QuestionCount = Below(12);
        for (int q = 1; q <= test.QuestionCount; ++q)
            MakeQuestion(test, q);
        test.ReportOnlyWhenDone = Below(2) == 1;
        test.NavigationButtons = Below(2) == 1;
        for (int i = 1; i <= OptionCount; ++i)
            test.TestOption(i) = Below(2) == 1;
        for (QString* path : {&test.ReportDirectory, &test.ExcelDirectory, &test.ExcelFileName, &test.AutosaveFileName})
            *path = Text(0);
        return test;
    }

  private:
    int Below(int bound) { return static_cast<int>(random_.bounded(bound)); }
    int Number() { return Below(65536) - 32768; }

    QString Text(int least) {
        // No "<" and ">", which could make a mark, and no square brackets.
        static const QString letters = u"abc XYZ 0189 =,.;:-_/\\\"'&()€éüŸ“” to TO ŁЖ漢 "_s;
        QString text;
        for (int length = least + Below(20); text.size() < length;)
            text += letters[Below(static_cast<int>(letters.size()))];
        return text;
    }

    QString Paragraphs() {
        QString text = Text(0);
        for (int more = Below(3); more > 0; --more)
            text += u"\r\n"_s + Text(0);
        return text;
    }

    void MakeQuestion(TestDocument& test, int q) {
        test.QuestionText(q) = Text(0);
        test.QuestionType(q) = Below(4);
        test.QuestionSubscale(q) = Below(test.SubscaleCount + 1);
        if (test.QuestionType(q) == Multichoice) {
            test.AnswerCount(q) = 1 + Below(MaxAnswers);
            for (int a = 1; a <= test.AnswerCount(q); ++a) {
                test.AnswerText(q, a) = Text(0);
                test.AnswerValue(q, a) = Number();
            }
        }
    }

    QRandomGenerator random_;
};

} // namespace

class tst_writer : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void WriteTest_Document_Text_data();
    void WriteTest_Document_Text();
    void WriteTest_AnswersAbove200_StopsBehindTheFirstLine();
    void SaveTestFile_GeneratedDocuments_ReadBackTheSame();
    void SaveTestFile_OneAnswerOf500Questions_OneLineDiffers();
    void SaveTestFile_Letters_Encoding_data();
    void SaveTestFile_Letters_Encoding();
    void SaveTestFile_DiskFullAtEachByte_NothingLost();
    void SaveTestFile_WouldBeAnotherTest_NothingWritten_data();
    void SaveTestFile_WouldBeAnotherTest_NothingWritten();
    void SaveTestFile_TextsFullOfBrackets_SameOrRefused();

  private:
    QTemporaryDir folder_;
};

void tst_writer::WriteTest_Document_Text_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const Change& change, const QString& text) {
        QTest::newRow(name) << change << QString(text).replace(u"\n"_s, u"\r\n"_s);
    };
    row("nothing", [](TestDocument&) {}, {});
    row(
        "the whole layout",
        [](TestDocument& test) {
            test.TestTitle = u"Mood"_s;
            test.TestIntroduction = u"First paragraph.\r\nSecond paragraph."_s;
            test.SubscaleCount = 1;
            test.SubscaleName(1) = u"Energy"_s;
            test.SubscaleRangeCount(1) = 2;
            test.SubscaleRangeLow(1, 1) = 0;
            test.SubscaleRangeHigh(1, 1) = 3;
            test.SubscaleRangeText(1, 1) = u"Low"_s;
            test.SubscaleRangeLow(1, 2) = Value(u"4"_s);
            test.SubscaleRangeHigh(1, 2) = Value(u" 8 or so"_s);
            test.SubscaleRangeText(1, 2) = u"High"_s;
            test.TotalRangeCount = 1;
            test.TotalRangeLow(1) = -5;
            test.TotalRangeHigh(1) = 8;
            test.TotalRangeText(1) = u"Total range"_s;
            test.TemplateAnswerCount = 2;
            test.TemplateAnswerText(1) = u"No"_s;
            test.TemplateAnswerText(2) = u"Yes"_s;
            test.TemplateAnswerValue(2) = 1;
            test.QuestionCount = 2;
            test.QuestionText(1) = u"Do you sleep well?"_s;
            test.QuestionType(1) = Multichoice;
            test.QuestionSubscale(1) = 1;
            test.AnswerCount(1) = 2;
            test.AnswerText(1, 1) = u"No"_s;
            test.AnswerValue(1, 1) = 0;
            test.AnswerText(1, 2) = u"Yes"_s;
            test.AnswerValue(1, 2) = Value();
            test.AnswerText(1, 3) = u"left over"_s;
            test.QuestionText(2) = u"What do you eat?"_s;
            test.QuestionType(2) = ShortAnswer;
            test.ReportOnlyWhenDone = test.NavigationButtons = true;
            test.TestOption(1) = test.TestOption(31) = true;
            test.ReportDirectory = u"C:\\R"_s;
            test.ExcelDirectory = u"E"_s;
            test.ExcelFileName = u"N"_s;
            test.AutosaveFileName = u"A"_s;
        },
        u"[TITLE]Mood[/TITLE]\n\n[INTRODUCTION]First paragraph.<P>Second paragraph.[/INTRODUCTION]\n\n"
        "[SUBSCALES]\n[S]Energy\n[SIG]0 to 3 =Low[/SIG]\n[SIG]4 to  8 or so =High[/SIG]\n[/S]\n[/SUBSCALES]\n\n"
        "[TOTAL]\n[SIG]-5 to 8 =Total range[/SIG]\n[/TOTAL]\n\n[TEMPLATE]\n[A]No[v=0][/A]\n[A]Yes[v=1][/A]\n"
        "[/TEMPLATE]\n\n[Q]Do you sleep well?\n[A]No[v=0][/A]\n[A]Yes[v=][/A]\n[SS=1]\n[/Q]\n"
        "[Q]What do you eat?\n[QT]2[/QT]\n[/Q]\n[REPORT ONLY WHEN DONE]\n[NAVIGATION BUTTONS]\n[REPORT TITLE]\n"
        "[INCLUDE TOTAL SCORE IN EXCEL FILE]\n[REPORT DIR]C:\\R[/REPORT DIR]\n[EXCEL DIR]E[/EXCEL DIR]\n"
        "[EXCEL FILE NAME]N[/EXCEL FILE NAME]\n[AUTOSAVE FILENAME]A[/AUTOSAVE FILENAME]\n"_s);
    row(
        "types that never were, breaks that stay, a sub-scale that isn't there",
        [](TestDocument& test) {
            test.TestTitle = u"Two\r\nlines"_s;
            test.TestInstructions = u"A\nB\rC"_s;
            test.TestCompletionMessage = u"\r\n"_s;
            test.QuestionCount = 4;
            test.QuestionText(1) = u"Unset\r\n[v=3]"_s;
            test.QuestionType(2) = Multichoice;
            test.QuestionType(3) = 7;
            test.QuestionSubscale(3) = 9;
            test.QuestionType(4) = -2;
            test.QuestionSubscale(4) = -1;
        },
        u"[TITLE]Two\n"
        "lines[/TITLE]\n\n[INSTRUCTIONS]A\x01"
        "B\x02"
        "C[/INSTRUCTIONS]\n\n[COMPLETION MESSAGE]<P>[/COMPLETION MESSAGE]\n\n[Q]Unset\n[v=3]\n[/Q]\n[Q]\n[/Q]\n"
        "[Q]\n[QT]7[/QT]\n[SS=9]\n[/Q]\n[Q]\n[/Q]\n"_s);
}

void tst_writer::WriteTest_Document_Text() {
    QFETCH(const Change, change);
    QFETCH(QString, text);
    // Breaks of another kind than CR LF are no line breaks to the writer.
    text.replace(QChar(1), u'\n').replace(QChar(2), u'\r');
    const WrittenTest written = WriteTest(Changed(change));
    QCOMPARE(written.Text, text);
    QVERIFY(written.StopsBecause.isEmpty());
}

void tst_writer::WriteTest_AnswersAbove200_StopsBehindTheFirstLine() {
    TestDocument test;
    test.QuestionCount = 300;
    test.QuestionText(201) = u"Which?"_s;
    test.QuestionType(201) = Multichoice;
    const WrittenTest written = WriteTest(test);
    QVERIFY(written.Text.endsWith(u"[/Q]\r\n[Q]Which?\r\n"_s));
    QCOMPARE(written.Text.count(u"[Q]"_s), 201);
    QVERIFY(written.StopsBecause.contains(u"question 201"_s));
}

void tst_writer::SaveTestFile_GeneratedDocuments_ReadBackTheSame() {
    const QString path = folder_.filePath(u"generated.vlm"_s);
    for (quint32 seed = 1; seed <= 300; ++seed) {
        TestDocument test = Generator(seed).Make();
        test.TestFileName = path;
        test.TestBaseName = u"generated"_s;
        // Flushing is slow, and replacing a file flushes thrice.
        if (seed % 10 != 0)
            QFile::remove(path);
        const SaveOutcome saved = SaveTestFile(test);
        QVERIFY2(saved.Written && saved.OpensAgain && saved.Message.isEmpty(), qPrintable(saved.Message));
        const QByteArray bytes = BytesOf(path);

        TestDocument again;
        QVERIFY(OpenTest(again, path).Ok());
        QVERIFY2(ToSnapshot(again) == ToSnapshot(test), qPrintable(u"document %1"_s.arg(seed)));
        QVERIFY(EncodeTestText(WriteTest(again).Text) == bytes);
    }
    QCOMPARE(QDir(folder_.path()).entryList(QDir::Files), QStringList{u"generated.vlm"_s});
}

void tst_writer::SaveTestFile_OneAnswerOf500Questions_OneLineDiffers() {
    const QString path = folder_.filePath(u"long.vlm"_s);
    TestDocument test;
    test.TestFileName = path;
    test.TestTitle = u"Long"_s;
    test.QuestionCount = MaxQuestions;
    for (int q = 1; q <= MaxQuestions; ++q) {
        test.QuestionText(q) = u"Question %1é"_s.arg(q);
        test.QuestionType(q) = q <= 200 ? Multichoice : ShortAnswer;
        if (q > 200)
            continue;
        test.AnswerCount(q) = 2;
        test.AnswerText(q, 1) = u"No"_s;
        test.AnswerText(q, 2) = u"Yes"_s;
        test.AnswerValue(q, 1) = 0;
        test.AnswerValue(q, 2) = 1;
    }
    QVERIFY(SaveTestFile(test).OpensAgain);
    const QList<QByteArray> before = BytesOf(path).split('\n');
    TestDocument opened;
    QVERIFY(OpenTest(opened, path).Ok());
    opened.AnswerText(117, 2) = u"Often"_s;
    QVERIFY(SaveTestFile(opened).OpensAgain);
    QVERIFY(opened.TestFileText.isEmpty()); // it no longer describes the document
    const QList<QByteArray> after = BytesOf(path).split('\n');
    QCOMPARE(after.size(), before.size());
    QStringList changed;
    for (qsizetype i = 0; i < after.size(); ++i)
        if (after[i] != before[i])
            changed.append(QString::fromLatin1(before[i] + " > " + after[i]).remove(u'\r'));
    QCOMPARE(changed, QStringList{u"[A]Yes[v=1][/A] > [A]Often[v=1][/A]"_s});
}

void tst_writer::SaveTestFile_Letters_Encoding_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("fits the code page") << u"Äx€"_s << QByteArray("[TITLE]\xC4x\x80[/TITLE]\r\n\r\n");
    QTest::newRow("doesn't fit") << u"Łódź"_s
                                 << QByteArray("[TITLE]\xC5\x81\xC3\xB3"
                                               "d\xC5\xBA[/TITLE]\r\n\r\n");
    QTest::newRow("would be taken for UTF-8") << u"Ã©"_s << QByteArray("[TITLE]\xC3\x83\xC2\xA9[/TITLE]\r\n\r\n");
}

void tst_writer::SaveTestFile_Letters_Encoding() {
    QFETCH(const QString, title);
    QFETCH(const QByteArray, bytes);
    TestDocument test;
    test.TestFileName = folder_.filePath(u"letters.vlm"_s);
    test.TestTitle = title;
    QVERIFY(SaveTestFile(test).OpensAgain);
    QCOMPARE(BytesOf(test.TestFileName), bytes);
    TestDocument again;
    QVERIFY(OpenTest(again, test.TestFileName).Ok());
    QCOMPARE(again.TestTitle, title);
}

void tst_writer::SaveTestFile_DiskFullAtEachByte_NothingLost() {
    if (!SmallDisk::IsPossible)
        QSKIP("No disk can be made small here");
    const QString path = folder_.filePath(u"full.vlm"_s);
    const QByteArray earlier("[TITLE]Earlier[/TITLE]\r\n\r\n");
    TestDocument test = Generator(7).Make();
    test.TestFileName = path;
    const QByteArray snapshot = ToSnapshot(test);
    const qsizetype length = EncodeTestText(WriteTest(test).Text)->size();
    for (const bool replaces : {true, false})
        for (qsizetype full = 0; full < length; full += full < 40 ? 1 : 13) {
            for (const QString& name : QDir(folder_.path()).entryList({u"full.vlm*"_s}))
                QFile::remove(folder_.filePath(name));
            if (replaces)
                PutBytes(path, earlier);
            SaveOutcome saved;
            {
                const SmallDisk disk(full);
                saved = SaveTestFile(test);
            }
            QVERIFY(!saved.Written);
            QVERIFY2(saved.Message.startsWith(TestCannotBeSaved + u": "_s + path + u": "_s), qPrintable(saved.Message));
            QCOMPARE(ToSnapshot(test), snapshot);
            if (!replaces) {
                QVERIFY(!QFileInfo::exists(path));
                continue;
            }
            QCOMPARE(BytesOf(path), earlier);
            QCOMPARE(QDir(folder_.path()).entryList({u"full.vlm*"_s}), QStringList{u"full.vlm"_s});
        }
}

void tst_writer::SaveTestFile_WouldBeAnotherTest_NothingWritten_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const Change& change, const QString& reason) {
        QTest::newRow(name) << change << reason;
    };
    // "[TITLE]" and "[/TITLE]" are 15 characters.
    row(
        "one character too long", [](TestDocument& test) { test.TestTitle = QString(32753, u'x'); },
        u"the test is 1 characters too long to be opened again"_s);
    row(
        "an answer without a value",
        [](TestDocument& test) {
            test.QuestionCount = 1;
            test.QuestionType(1) = Multichoice;
            test.AnswerCount(1) = 1;
            test.AnswerText(1, 1) = u"Yes"_s;
        },
        u"question 1, answer 1: the value is empty"_s);
    row(
        "a byte that no text has", [](TestDocument& test) { test.TestTitle = u"a\0b"_s; },
        u"title: the text holds the control character 0x00"_s);
    row(
        "half a character", [](TestDocument& test) { test.TestTitle = QChar(0xD83D); }, u"half of a character"_s);
    row(
        "answers above question 200",
        [](TestDocument& test) {
            test.QuestionCount = 250;
            test.QuestionType(230) = Multichoice;
        },
        u"question 230: only questions 1 to 200"_s);
    row(
        "a question in the title", [](TestDocument& test) { test.TestTitle = u"Is [q] there?"_s; },
        u"title: the text contains [q], which"_s);
    row(
        "a question in a range",
        [](TestDocument& test) {
            test.TotalRangeCount = 1;
            test.TotalRangeText(1) = u"[Q]x[/Q]"_s;
        },
        u"range 1 of the total: the text contains [Q], which"_s);
}

void tst_writer::SaveTestFile_WouldBeAnotherTest_NothingWritten() {
    QFETCH(const Change, change);
    QFETCH(const QString, reason);
    TestDocument test = Changed(change);
    test.TestFileName = folder_.filePath(u"refused.vlm"_s);
    PutBytes(test.TestFileName, "earlier");
    const SaveOutcome saved = SaveTestFile(test);
    QVERIFY(!saved.Written && !saved.OpensAgain);
    QVERIFY2(saved.Message.startsWith(TestCannotBeSaved + u": "_s + test.TestFileName + u": "_s) &&
                 saved.Message.contains(reason) && saved.Message.endsWith(u". Nothing was written."_s),
             qPrintable(saved.Message));
    QCOMPARE(BytesOf(test.TestFileName), QByteArray("earlier"));
}

/// Texts made of pieces of the format, put together at random.
void tst_writer::SaveTestFile_TextsFullOfBrackets_SameOrRefused() {
    static const QStringList pieces{u"["_s,          u"]"_s,       u"[/"_s,       u"Q]"_s,         u"[Q]"_s,
                                    u"[/Q]"_s,       u"[A]"_s,     u"[/A]"_s,     u"[v=3]"_s,      u"[SS=1]"_s,
                                    u"[QT]2[/QT]"_s, u"[S]"_s,     u"[/S]"_s,     u"[SIG]"_s,      u"1 to 2 ="_s,
                                    u"[/SIG]"_s,     u"[TITLE]"_s, u"[/title]"_s, u"[TEMPLATE]"_s, u"[/TOTAL]"_s,
                                    u"<P>"_s,        u"<"_s,       u"\r\n"_s,     u"\n"_s,         u"[report title]"_s,
                                    u"a"_s,          u"é"_s,       u" "_s};
    const QString path = folder_.filePath(u"brackets.vlm"_s);
    int written = 0;
    for (quint32 seed = 1; seed <= 150; ++seed) {
        TestDocument test = Generator(seed).Make();
        QRandomGenerator random(seed);
        QString text;
        for (int i = 0; i <= random.bounded(3); ++i)
            text += pieces[random.bounded(int(pieces.size()))];
        std::vector<QString*> places{&test.TestTitle,
                                     &test.TestIntroduction,
                                     &test.TestCompletionMessage,
                                     &test.SubscaleName(1),
                                     &test.SubscaleRangeText(1, 1),
                                     &test.TotalRangeText(1),
                                     &test.TemplateAnswerText(1),
                                     &test.QuestionText(1),
                                     &test.AnswerText(1, 1),
                                     &test.AutosaveFileName};
        places[size_t(random.bounded(int(places.size())))]->insert(0, text);
        QFile::remove(path);
        test.TestFileName = path;
        const SaveOutcome saved = SaveTestFile(test);
        QCOMPARE(QFile::exists(path), saved.Written);
        if (!saved.Written)
            continue;
        ++written;
        TestDocument again;
        QVERIFY(OpenTest(again, path).Ok());
        // Line breaks aside, which the format keeps in three texts only.
        const auto words = [](const TestDocument& document) {
            return JsonOf(document).replace("\\r", "").replace("\\n", "").replace("<P>", "");
        };
        static_cast<TestSummary&>(test) = again;
        test.TestFileLength = again.TestFileLength;
        test.TestBaseName = again.TestBaseName;
        QVERIFY2(words(again) == words(test), qPrintable(u"document %1: %2"_s.arg(seed).arg(text)));
    }
    QVERIFY2(written > 30 && written < 120, qPrintable(QString::number(written)));
}

QTEST_GUILESS_MAIN(tst_writer)
#include "tst_writer.moc"
