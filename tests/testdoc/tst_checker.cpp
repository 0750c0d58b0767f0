#include "support/Files.h"
#include "testdoc/ScoreReach.h"
#include "testdoc/TestChecker.h"

#include <QTemporaryDir>
#include <QTest>

#include <set>

namespace {

CheckedTest Checked(const QByteArray& bytes) {
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("t.vlm"));
    PutBytes(path, bytes);
    return CheckTestFile(path);
}

QString Words(const CheckedTest& checked) {
    QString words;
    for (const Finding& finding : checked.Findings)
        words += (finding.Level == Severity::Error ? QStringLiteral("error ") : QString()) + finding.Where +
                 QStringLiteral(" @%1:%2 ").arg(finding.Line).arg(finding.Column) + finding.Text + u'\n';
    return words;
}

const QByteArray Title = "[TITLE]T[/TITLE]\r\n";
const QByteArray Question = "[Q]a\r\n[A]No[v=0][/A]\r\n[A]Yes[v=2][/A]\r\n[/Q]\r\n";

} // namespace

class tst_checker : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void CheckTestFile_CleanTest_FindsNothing() {
        const CheckedTest checked = Checked(
            Title +
            "\r\n[INTRODUCTION]One.<P>Two.[/INTRODUCTION]\r\n[SUBSCALES]\r\n[S]Energy\r\n[SIG]0 to 1 =low[/SIG]\r\n"
            "[SIG]2 to 2 =high[/SIG]\r\n[/S]\r\n[/SUBSCALES]\r\n[TOTAL]\r\n[SIG]0 to 4 =x[/SIG]\r\n[/TOTAL]\r\n"
            "[Q]a\r\n[A]No[v=0][/A]\r\n[A]Yes[v=2][/A]\r\n[SS=1]\r\n[/Q]\r\n" +
            Question +
            "[Q]c\r\n[QT]2[/QT]\r\n[/Q]\r\n[REPORT TITLE]\r\n[NAVIGATION BUTTONS]\r\n"
            "[REPORT DIR]C:\\x[/REPORT DIR][EXCEL DIR]y[/EXCEL DIR]");
        QCOMPARE(Words(checked), QString());
        QCOMPARE(checked.Scales.size(), size_t(2));
        QCOMPARE(checked.Scales[0].Name, QStringLiteral("Energy"));
        QCOMPARE(checked.Scales[0].Highest, 2);
        QCOMPARE(checked.Scales[1].Subscale, 0);
        QCOMPARE(checked.Scales[1].Highest, 4);
    }

    void CheckTestFile_OneFlaw_NamesItAndItsPlace_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("finding");
        const auto row = [](const char* name, const QByteArray& content, const char* finding) {
            QTest::newRow(name) << content << QString::fromUtf8(finding);
        };
        const auto total = [](const QByteArray& ranges) {
            return Title + "[TOTAL]" + ranges + "[/TOTAL]\r\n" + Question;
        };
        row("unreachable", total("[SIG]0 to 2 =a[/SIG][SIG]3 to 9 =b[/SIG]"),
            "range 2 of the total @2:28 no score can reach the range 3 to 9; the scores run from 0 to 2");
        row("never that score", total("[SIG]0 to 0 =a[/SIG][SIG]1 to 1 =b[/SIG][SIG]2 to 2 =c[/SIG]"),
            "range 2 of the total @2:28 no score can reach the range 1");
        row("overlap", total("[SIG]0 to 1 =a[/SIG]\r\n[SIG]1 to 2 =b[/SIG]"),
            "range 2 of the total @3:1 the range overlaps range 1: the score 1 brings both texts");
        row("overlap of many", total(QByteArray("[SIG]1 to 2 =a[/SIG]").repeated(5)),
            "range 5 of the total @2:88 the range overlaps range 1: the score 1 to 2 brings both texts; it overlaps 3 "
            "more ranges");
        row("gap", total("[SIG]0 to 0 =a[/SIG][SIG]2 to 2 =b[/SIG]"),
            "there is a gap: no range of the total covers the score 1 (no score is there just now)");
        row("gap above", total("[SIG]0 to 1 =a[/SIG]"), "there is a gap: no range of the total covers the score 2\n");
        row("low above high", total("[SIG]0 to 2 =a[/SIG][SIG]2 to 1 =b[/SIG]"),
            "range 2 of the total @2:28 the low bound 2 is above the high bound 1");
        row("no such sub-scale", Title + "[Q]a[A]x[v=1][/A][SS=3][/Q]",
            "question 1 @2:1 the question belongs to the sub-scale 3, which doesn't exist (there are 0)");
        row("idle sub-scale", Title + "[SUBSCALES][S]E[/S][/SUBSCALES]" + Question,
            "sub-scale 1 'E' @2:12 no question belongs to the sub-scale");
        row("same name", Title + "[SUBSCALES][S]E[/S][S]E[/S][/SUBSCALES]" + Question, "sub-scale 1 has the same name");
        row("no answers", Title + "[Q]a[/Q]", "question 1 @2:1 the multichoice question has no answers");
        row("question 201", Title + QByteArray("[Q]a[A]x[v=1][/A][/Q]").repeated(200) + "[Q]b[/Q]",
            "the multichoice question has no answers");
        row("empty answer", Title + "[Q]a[A]x[v=1][/A]\n[A][v=1][/A][/Q]",
            "question 1, answer 2 @3:1 the answer has no text");
        row("option in a question", Title + "[Q]Is [report title] on?[A]x[v=1][/A][/Q]",
            "question 1 @2:7 the text contains [REPORT TITLE], which switches that option on");
        row("option in a text", Title + "[INTRODUCTION]x [Navigation Buttons][/INTRODUCTION]" + Question,
            "introduction @2:1 the text contains [NAVIGATION BUTTONS], which switches that option on");
        row("bracket in a question", Title + "[Q]Is [this] on?[A]x[v=1][/A][/Q]",
            "question 1 @2:7 the question's text ends here, at a square bracket");
        row("bracket in an answer", Title + "[Q]a[A]x] [v=1][/A][/Q]",
            "question 1, answer 1 @2:5 the text contains a square bracket");
        row("script end", Title + "[Q]a</script>[A]x[v=1][/A][/Q]",
            "contains '</script>', which breaks a page whose template takes texts as they are");
        row("quote in the title", "[TITLE]A \"T\"[/TITLE]" + Question, "title @1:1 the text contains a double quote");
        row("backslash", Title + "[Q]a\\[A]x[v=1][/A][/Q]", "the text contains a backslash");
        row("line break in a question", Title + "[Q]a<P>b[A]x[v=1][/A][/Q]", "the text contains a line break");
        row("no title", Question, " @0:0 the test has no title");
        row("stray text", Title + "Remember me!\r\n" + Question,
            " @2:1 the text 'Remember me!' stands outside of all elements and is not read");
        row("misspelt option", Title + Question + "[REPORT TITEL]", "the text '[REPORT TITEL]' stands outside");
        row("repeated", Title + Question + "[TITLE]Again[/TITLE]", " @6:1 the element [TITLE] stands here again");
        row("type 5", Title + "[Q]a[QT]5[/QT][/Q]", "the question has the type 5, which doesn't exist");
        row("type 1", Title + "[TEMPLATE][A]x[v=1][/A][/TEMPLATE][Q]a[QT]1[/QT][/Q]", "the type is '1', and not 2");
        row("type and answers", Title + "[Q]a[A]x[v=1][/A][QT]3[/QT][/Q]", "it is read as multichoice");
        row("lost line end", Title + "[Q]one\r\ntwo\r\n[A]x[v=1][/A][/Q]",
            "question 1 @2:4 a line break inside the text is lost");
        row("lost line end in a paragraph", Title + "[INSTRUCTIONS]one\ntwo[/INSTRUCTIONS]" + Question,
            "<P> stands for a line break");
        row("read twice", Title + "[TOTAL]" + QByteArray(30, 'x') + "[SIG]0 to 2 =a[/SIG][/TOTAL]" + Question,
            "1 total ranges stand in the file, and 2 are read");
        row("list cut short", Title + "[SUBSCALES][S]A[/S][S][/S][S]C[/S][/SUBSCALES]" + Question,
            "3 sub-scales stand in the file, and 1 are read");
        row("overflow", Title + QByteArray("[Q]a[A]x[v=20000][/A][/Q]").repeated(2),
            "the total score can leave -32768 to 32767");
        row("client without a name", Title + Question + "[AUTOSAVE REPORT AS CLIENT]",
            "doesn't ask for the client's name");
        row("nearly full", Title + "[INTRODUCTION]" + QByteArray(30000, 'x') + "[/INTRODUCTION]" + Question,
            "characters; one with more than 32767 can't be read");
        row("two values", Title + "[Q]a[A]x[v=1][v=2][/A][/Q]", "what stands behind the answer's value is not read");
    }
    void CheckTestFile_OneFlaw_NamesItAndItsPlace() {
        QFETCH(QByteArray, content);
        QFETCH(QString, finding);
        const CheckedTest checked = Checked(content);
        QVERIFY2(Words(checked).contains(finding), qPrintable(Words(checked)));
        QVERIFY(!checked.HasErrors());
        QVERIFY(!checked.Scales.empty());
    }

    void CheckTestFile_Unusable_IsAnError_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("text");
        QTest::newRow("no questions") << Title << QStringLiteral("The test 'T' has no questions.");
        QTest::newRow("malformed") << QByteArray("[TITLE]T")
                                   << QStringLiteral("I can't find the [/TITLE]tag in the file: ");
        QTest::newRow("zero byte") << QByteArray("[TITLE]\0[/TITLE]", 16)
                                   << QStringLiteral("Can't read the test file '");
        QTest::newRow("too long") << QByteArray(40000, 'x') << QStringLiteral("Can't read the test file '");
    }
    void CheckTestFile_Unusable_IsAnError() {
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        const CheckedTest checked = Checked(content);
        QVERIFY(checked.HasErrors());
        QVERIFY2(checked.Findings.front().Text.startsWith(text), qPrintable(Words(checked)));
    }

    void ReachableScores_UnansweredQuestions_WidenTheScale() {
        const CheckedTest checked = Checked(
            Title + QByteArray("[Q]a[A]x[v=1][/A][A]y[v=4][/A][A][v=9][/A][/Q]").repeated(3) + "[Q]b[QT]2[/QT][/Q]");
        const ScaleReach& total = checked.Scales.back();
        QCOMPARE(total.Lowest, 3);
        QCOMPARE(total.Highest, 12);
        QCOMPARE(total.LowestWithGaps, 0);
        QCOMPARE(total.HighestWithGaps, 12);
    }

    void ReachableSet_SumsOfManyChoices_AreThoseOfEachWay() {
        const std::vector<std::vector<int>> questions = {{-7, 30, 64}, {0, 1, 63}, {-128, 5}, {65, 200}, {3, 127, 129}};
        ReachableSet set;
        std::set<qint64> sums{0};
        for (const std::vector<int>& values : questions) {
            set.Add(values);
            std::set<qint64> next;
            for (const qint64 sum : sums)
                for (const int value : values)
                    next.insert(sum + value);
            sums = next;
        }
        QCOMPARE(set.Lowest(), *sums.begin());
        QCOMPARE(set.Highest(), *sums.rbegin());
        for (qint64 low = set.Lowest() - 2; low <= set.Highest() + 2; ++low) {
            const auto next = sums.lower_bound(low);
            for (const qint64 high : {low, low + 1, low + 63, low + 64, low + 150})
                QCOMPARE(set.Reaches(low, high), next != sums.end() && *next <= high);
        }
    }

    void ReachableSet_SumsOfChoices_AreExact() {
        ReachableSet set;
        set.Add({0, 5});
        set.Add({-3, 10});
        for (qint64 score = -10; score <= 20; ++score)
            QCOMPARE(set.Reaches(score, score), score == -3 || score == 2 || score == 10 || score == 15);
        QVERIFY(!set.Reaches(3, 9));
        QVERIFY(set.Reaches(3, 10));
        set.Add({-32768, 32767});
        set.Add({-32768, 32767});
        QVERIFY(set.Reaches(-65539, -65539));
        QVERIFY(!set.Reaches(65550, 70000));
    }
};

QTEST_GUILESS_MAIN(tst_checker)
#include "tst_checker.moc"
