#include "base/LineBreak.h"
#include "support/TestText.h"
#include "taker/Report.h"
#include "taker/Scoring.h"

#include <QtTest>

namespace {

const QString Scale = QStringLiteral(
    "[TITLE]Mood[/TITLE][INTRODUCTION]Intro[/INTRODUCTION][INSTRUCTIONS]Do it[/INSTRUCTIONS]"
    "[SUBSCALES][S]Energy[SIG]0 to 3 =Low[/SIG][SIG]3 to 8 =High[/SIG][/S][S]Idle[SIG]5 to 6 =Never[/SIG][/S]"
    "[/SUBSCALES]"
    "[Q]Sleep?[A]No[v=0][/A][A]Yes[v=3][/A][A]Much[v=-4][/A][SS=1][/Q]"
    "[Q]Eat?[QT]2[/QT][/Q]"
    "[Q]Walk?[A]Never[v=0][/A][A]Often[v=5][/A][SS=7][/Q]"
    "[Q]Tell more[QT]3[/QT][/Q]");
const QString Ranges =
    QStringLiteral("[TOTAL][SIG]0 to 3 =Calm[/SIG][SIG]3 to 9 =Busy[/SIG][SIG]8 to 8 =Exactly[/SIG][/TOTAL]");

struct Given {
    QString ClientName = {}, AdministratorName = {};
    int First = 0, Third = 0;
    QString Second = {}, Fourth = {};
    bool BreakAfterNumber = false;
};

QString Report(const QString& text, const Given& given) {
    const TestDocument test = TestFromText(text);
    ResponseSet responses(test.QuestionCount);
    responses.ResponseChoice(1) = given.First;
    responses.ResponseChoice(3) = given.Third;
    responses.ResponseText(2) = given.Second;
    responses.ResponseText(4) = given.Fourth;
    responses.FurthestQuestion = !given.Fourth.isEmpty() ? 4 : given.Third != 0 ? 3 : 0;
    ReportContext context{given.ClientName,    given.AdministratorName, QStringLiteral("Q"),
                          QStringLiteral(")"), given.BreakAfterNumber,  {{2026, 11, 21}, {14, 5, 9}}};
    return BuildReport(test, responses, context);
}

QString Lines(const QStringList& lines) { return lines.join(LineBreak); }

} // namespace

class tst_report : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void BuildReport_Options_ExactText_data();
    void BuildReport_Options_ExactText();
    void BuildReport_TotalPast16Bits_Overflow_data();
    void BuildReport_TotalPast16Bits_Overflow();
    void InRange_Bounds_Inclusive_data();
    void InRange_Bounds_Inclusive();
    void SubscaleAnalysis_BoundAsTyped_SaysSo();
    void ReportTime_Locale_SecondsAndNoZone();
};

void tst_report::BuildReport_Options_ExactText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<Given>("given");
    QTest::addColumn<QString>("expected");

    const QString e;
    QTest::newRow("all flags off") << Scale << Given{} << Lines({e, e, e});
    QTest::newRow("total ranges without the analysis option, none matching")
        << Scale + QStringLiteral("[TOTAL][SIG]1 to 2 =x[/SIG][/TOTAL]") << Given{}
        << Lines({e, e, e, QStringLiteral("ANALYSIS OF TOTAL SCORE:"), QStringLiteral("none"), e, e});
    QTest::newRow("overlapping total ranges, lower number first")
        << Scale + Ranges << Given{.First = 2, .Third = 2}
        << Lines({e, e, e, QStringLiteral("ANALYSIS OF TOTAL SCORE:"), QStringLiteral("Busy"),
                  QStringLiteral("Exactly"), e, e, e});
    QTest::newRow("a bound belongs to both ranges") << Scale + Ranges << Given{.First = 2}
                                                    << Lines({e, e, e, QStringLiteral("ANALYSIS OF TOTAL SCORE:"),
                                                              QStringLiteral("Calm"), QStringLiteral("Busy"), e, e, e});
    QTest::newRow("names without their prompts stay out")
        << Scale << Given{.ClientName = QStringLiteral("Ann"), .AdministratorName = QStringLiteral("Bo")}
        << Lines({e, e, e});
    QTest::newRow("head")
        << Scale + QStringLiteral("[REPORT TITLE][PROMPT CLIENT NAME][PROMPT TESTER NAME][REPORT INTRODUCTION]"
                                  "[REPORT INSTRUCTIONS][REPORT NUMBER OF QUESTIONS COMPLETED]")
        << Given{.ClientName = QStringLiteral("Ann Lee"), .AdministratorName = QStringLiteral("Bo"), .Third = 1}
        << Lines({QStringLiteral("MOOD REPORT"), QStringLiteral(" FOR ANN LEE"), e,
                  QStringLiteral("Test administered by Bo"), e, QStringLiteral("INTRODUCTION"), e,
                  QStringLiteral("Intro"), e, QStringLiteral("INSTRUCTIONS"), e, QStringLiteral("Do it"), e,
                  QStringLiteral("3 of 4 questions completed."), e, e});
    QTest::newRow("date and time") << Scale + QStringLiteral("[REPORT DATE AND TIME COMPLETED]") << Given{}
                                   << Lines({e, e, e, QStringLiteral("TEST COMPLETED: 14:05:09   21 Nov 2026"), e, e});
    QTest::newRow("unanswered typed questions are listed with the multichoice answers")
        << Scale + QStringLiteral("[REPORT MULTICHOICE QUESTION ANSWERS]") << Given{.Third = 2}
        << Lines({e, e, QStringLiteral("QUESTION RESPONSES:"), QStringLiteral("Q3)Often"), e,
                  QStringLiteral("QUESTIONS NOT ANSWERED: 1, 2, 4."), e, e});
    QTest::newRow("typed answers alone, with the questions")
        << Scale + QStringLiteral("[REPORT SHORT ANSWERS][REPORT LONG ANSWERS][REPORT QUESTIONS]")
        << Given{.First = 1, .Second = QStringLiteral("Soup"), .Fourth = QStringLiteral("All\r\nwell")}
        << Lines({e, e, QStringLiteral("Q2)Eat? =  Soup"), QStringLiteral("Q4)Tell more =  All"),
                  QStringLiteral("well"), e});
    QTest::newRow("all answered, a line break after the number")
        << Scale + QStringLiteral("[REPORT MULTICHOICE QUESTION ANSWERS][REPORT QUESTIONS]")
        << Given{.First = 1,
                 .Third = 2,
                 .Second = QStringLiteral("x"),
                 .Fourth = QStringLiteral("y"),
                 .BreakAfterNumber = true}
        << Lines({e, e, QStringLiteral("QUESTION RESPONSES:"), QStringLiteral("Q1)"), QStringLiteral("Sleep? =  No"),
                  QStringLiteral("Q3)"), QStringLiteral("Walk? =  Often"), e});
    QTest::newRow("scores; a sub-scale that doesn't exist counts in the total only")
        << Scale + QStringLiteral("[REPORT SUBSCALES][REPORT TOTAL SCORE]") << Given{.First = 3, .Third = 2}
        << Lines({e, e, e, QStringLiteral("SUBSCALE SCORES"), QStringLiteral("Energy: -4"), QStringLiteral("Idle: 0"),
                  e, QStringLiteral("CUMULATIVE SCORE= 1"), e});
    QTest::newRow("sub-scale analysis, all matching ranges")
        << Scale + QStringLiteral("[REPORT ANALYSIS]") << Given{.First = 2}
        << Lines({e, e, e, QStringLiteral("ANALYSIS OF SUBSCALES:"), QStringLiteral("Energy = Low"),
                  QStringLiteral("Energy = High"), e, e});
    QTest::newRow("sub-scale analysis, no range")
        << Scale + QStringLiteral("[REPORT ANALYSIS]") << Given{.First = 3}
        << Lines({e, e, e, QStringLiteral("ANALYSIS OF SUBSCALES:"), QStringLiteral("none"), e, e});
}

void tst_report::BuildReport_Options_ExactText() {
    QFETCH(QString, text);
    QFETCH(Given, given);
    QFETCH(QString, expected);
    QCOMPARE(Report(text, given), expected);
}

void tst_report::BuildReport_TotalPast16Bits_Overflow_data() {
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("overflows");
    QTest::newRow("largest") << 32767 << 1 << false;
    QTest::newRow("one more") << 16384 << 2 << true;
    QTest::newRow("smallest") << -16384 << 2 << false;
    QTest::newRow("below") << -16384 << 3 << true;
}

void tst_report::BuildReport_TotalPast16Bits_Overflow() {
    QFETCH(int, value);
    QFETCH(int, count);
    QFETCH(bool, overflows);
    const TestDocument test = TestFromText(QStringLiteral("[Q]?[A]x[v=%1][/A][/Q]").arg(value).repeated(count));
    ResponseSet responses(count);
    for (int q = 1; q <= count; ++q)
        responses.ResponseChoice(q) = 1;
    if (overflows)
        QVERIFY_EXCEPTION_THROWN(BuildReport(test, responses, {}), OverflowError);
    else
        QCOMPARE(ComputeScores(test, responses).TotalScore, value * count);
}

void tst_report::InRange_Bounds_Inclusive_data() {
    QTest::addColumn<int>("score");
    QTest::addColumn<int>("low");
    QTest::addColumn<int>("high");
    QTest::addColumn<bool>("inside");
    QTest::newRow("low") << 3 << 3 << 9 << true;
    QTest::newRow("high") << 9 << 3 << 9 << true;
    QTest::newRow("below") << 2 << 3 << 9 << false;
    QTest::newRow("above") << 10 << 3 << 9 << false;
    QTest::newRow("at the ends of 16 bits") << 32767 << -32768 << 32767 << true;
    QTest::newRow("turned round") << 5 << 9 << 3 << false;
}

void tst_report::InRange_Bounds_Inclusive() {
    QFETCH(int, score);
    QFETCH(int, low);
    QFETCH(int, high);
    QTEST(InRange(score, low, high), "inside");
}

void tst_report::SubscaleAnalysis_BoundAsTyped_SaysSo() {
    TestDocument test = TestFromText(Scale);
    test.SubscaleRangeLow(1, 1) = Value(QStringLiteral("many"));
    const QString analysis = SubscaleAnalysis(test, ComputeScores(test, ResponseSet(test.QuestionCount)));
    QVERIFY2(analysis.contains(QStringLiteral("'many'")), qPrintable(analysis));
}

void tst_report::ReportTime_Locale_SecondsAndNoZone() {
    const QString time = ReportTime({{2026, 1, 2}, {3, 4, 5}});
    QCOMPARE(time, QStringLiteral("03:04:05"));
}

QTEST_GUILESS_MAIN(tst_report)
#include "tst_report.moc"
