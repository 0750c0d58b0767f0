#include "testdoc/TestInMemoryChecker.h"
#include "testdoc/TestParser.h"

#include <QDir>
#include <QTest>

namespace {

using Change = std::function<void(TestDocument&)>;

/// A test without a flaw: two sub-scales, a template, questions of all kinds.
TestDocument Sound() {
    TestDocument test;
    test.TestTitle = QStringLiteral("T");
    test.TestIntroduction = QStringLiteral("One.\r\nTwo.");
    test.SubscaleCount = 2;
    for (int s = 1; s <= 2; ++s) {
        test.SubscaleName(s) = s == 1 ? QStringLiteral("Energy") : QStringLiteral("Calm");
        test.SubscaleRangeCount(s) = 1;
        test.SubscaleRangeLow(s, 1) = Value(QStringLiteral("0"));
        test.SubscaleRangeHigh(s, 1) = 2;
        test.SubscaleRangeText(s, 1) = QStringLiteral("all");
    }
    test.TotalRangeCount = 1;
    test.TotalRangeLow(1) = 0;
    test.TotalRangeHigh(1) = 4;
    test.TotalRangeText(1) = QStringLiteral("all");
    test.TemplateAnswerCount = 2;
    for (int i = 1; i <= 2; ++i) {
        test.TemplateAnswerText(i) = i == 1 ? QStringLiteral("No") : QStringLiteral("Yes");
        test.TemplateAnswerValue(i) = 2 * (i - 1);
    }
    test.QuestionCount = 4;
    for (int q = 1; q <= 4; ++q)
        test.QuestionText(q) = QStringLiteral("Question %1?").arg(q);
    test.QuestionType(1) = Multichoice;
    test.AnswerCount(1) = 2;
    for (int a = 1; a <= 2; ++a) {
        test.AnswerText(1, a) = QStringLiteral("Answer %1").arg(a);
        test.AnswerValue(1, a) = 2 * (a - 1);
    }
    test.QuestionSubscale(1) = 1;
    test.QuestionSubscale(2) = 2;
    test.QuestionType(3) = ShortAnswer;
    test.QuestionType(4) = LongAnswer;
    test.TestOption(ReportDateAndTime) = true;
    return test;
}

QString Words(const std::vector<Finding>& findings) {
    QString words;
    for (const Finding& finding : findings)
        words += (finding.Level == Severity::Error ? QStringLiteral("error ") : QStringLiteral("warning ")) +
                 finding.Where + QStringLiteral(": ") + finding.Text + u'\n';
    return words;
}

/// A test of more questions, each with the template's answers.
void Lengthen(TestDocument& test, int questions) {
    test.TotalRangeHigh(1) = 2 * questions;
    for (int q = test.QuestionCount + 1; q <= questions; ++q)
        test.QuestionText(q) = QStringLiteral("Q%1").arg(q);
    test.QuestionType(3) = test.QuestionType(4) = TypeUnset;
    test.QuestionCount = questions;
}

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_checkforsaving : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void CheckForSaving_SoundTest_FindsNothing() {
        int length = 0;
        QCOMPARE(Words(CheckForSaving(Sound(), &length)), QString());
        QVERIFY(length > 300 && length < 600);
    }

    void CheckForSaving_LeftoverAnswers_AreNotLookedAt() {
        TestDocument test = Sound();
        test.AnswerText(1, 3) = QStringLiteral("gone [x]");
        test.AnswerValue(1, 3) = Value(QStringLiteral("x"));
        test.AnswerText(2, 5) = test.AnswerText(3, 1) = QStringLiteral("gone");
        QCOMPARE(Words(CheckForSaving(test)), QString());
    }

    void CheckForSaving_OneFlaw_IsAllThatIsTold_data();
    void CheckForSaving_OneFlaw_IsAllThatIsTold();
    void CheckForSaving_SeveralFlaws_AllComeToLight();
    void CheckForSaving_TooLong_SaysByHowMuch_data();
    void CheckForSaving_TooLong_SaysByHowMuch();
    void CheckForSaving_FindingHasThePlaceThatItNames();
    void CheckForSaving_Sample_IsWhatTheCheckOfTheFileSays_data();
    void CheckForSaving_Sample_IsWhatTheCheckOfTheFileSays();
};

void tst_checkforsaving::CheckForSaving_OneFlaw_IsAllThatIsTold_data() {
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("findings");
    const auto row = [](const char* name, const Change& change, const char* findings) {
        QTest::newRow(name) << change << QString::fromUtf8(findings);
    };
    const auto text = [](const char* words) { return QString::fromUtf8(words); };
    const auto typed = [](const char* words) { return Value(QString::fromUtf8(words)); };

    row(
        "no title", [=](auto& t) { t.TestTitle.clear(); },
        "warning title: the test has no title and is listed as 'Untitled'\n");
    row(
        "no questions", [=](auto& t) { t.QuestionCount = t.SubscaleCount = t.TotalRangeCount = 0; },
        "error : The test 'T' has no questions.\n");
    row(
        "line break in the title", [=](auto& t) { t.TestTitle = text("One\r\nTwo"); },
        "warning title: 'One<line break>Two' is read back as 'OneTwo'\n");
    row(
        "line break in a question", [=](auto& t) { t.QuestionText(1) = text("One\nTwo"); },
        "warning question 1: 'One<line break>Two' is read back as 'OneTwo'\n");
    row(
        "half a line break in the introduction", [=](auto& t) { t.TestIntroduction = text("One\nTwo"); },
        "warning introduction: 'One<line break>Two' is read back as 'OneTwo'\n");
    row(
        "mark typed in the title", [=](auto& t) { t.TestTitle = text("a<p>b"); },
        "error title: the text contains <p>, which a reader takes for a part of the file: 'a<p>b' is read back as "
        "'a<line break>b'\n"
        "warning title: the text contains '<p>b', which breaks a page whose template takes texts as they are unless it "
        "is meant as markup\n");
    row(
        "option that is off, in a text",
        [=](auto& t) { t.TestInstructions = text("See [1] and [navigation buttons]."); },
        "error instructions: the text contains [navigation buttons], which a reader takes for a part of the file: the "
        "option [NAVIGATION BUTTONS] is on when the test is read back\n");
    row(
        "option that is on, in a text",
        [=](auto& t) {
            t.TestInstructions = text("[navigation buttons]");
            t.NavigationButtons = true;
        },
        "warning instructions: the text contains [NAVIGATION BUTTONS], which switches that option on\n");
    row(
        "mark typed in the introduction", [=](auto& t) { t.TestIntroduction = text("a<P> b"); },
        "warning introduction: 'a<P> b' is read back as 'a<line break> b'\n"
        "warning introduction: the text contains '<P> b', which breaks a page whose template takes texts as they "
        "are unless it is meant as "
        "markup\n");
    row(
        "bracket in a question", [=](auto& t) { t.QuestionText(2) = text("Is [this] on?"); },
        "error question 2: the text contains [this], which a reader takes for a part of the file: 'Is [this] on?' is "
        "read back as 'Is '\n");
    row(
        "bracket in an answer", [=](auto& t) { t.AnswerText(1, 2) = text("x]"); },
        "warning question 1, answer 2: the text contains a square bracket, which the reader may take for a tag\n");
    row(
        "value typed into an answer", [=](auto& t) { t.AnswerText(1, 2) = text("x[V=9]"); },
        "error question 1, answer 2: the text contains [V=9], which a reader takes for a part of the file: the value 2 "
        "is read back as 9\n");
    row(
        "answer's end in an answer", [=](auto& t) { t.AnswerText(1, 2) = text("x[/A]"); },
        "error question 1, answer 2: the text contains [/A], which a reader takes for a part of the file: a file with "
        "this can't be opened again: I can't find a value assigned to question Question 1?[A]Answer "
        "1[v=0][/A][A]x[/A][v=2][/A][SS=1]\n");
    row(
        "harmless tag in the introduction", [=](auto& t) { t.TestIntroduction = text("see [subscales]"); },
        "warning introduction: the text contains a square bracket, which the reader may take for a tag\n");
    row(
        "tag whose end is missing",
        [=](auto& t) {
            t.TestIntroduction = text("see [Template]");
            t.TemplateAnswerCount = 0;
            t.QuestionCount = 1;
            t.QuestionSubscale(1) = t.SubscaleCount = t.TotalRangeCount = 0;
        },
        "error introduction: the text contains [Template], which a reader takes for a part of the file: a file with "
        "this can't be opened again: I can't find the [/TEMPLATE] tag\n");
    row(
        "question in a text", [=](auto& t) { t.TestCompletionMessage = text("[Q]more[/Q]"); },
        "error completion message: the text contains [Q], which a reader takes for a part of the file: question 1: "
        "'Question 1?' is read back as 'more'\n");
    row(
        "nameless sub-scale ends the list",
        [=](auto& t) {
            t.SubscaleName(1).clear();
            t.SubscaleRangeCount(1) = 0;
        },
        "error sub-scale 1 '': the test has 2 sub-scales, and 0 are read back\nwarning sub-scale 1 '': the sub-scale "
        "has no name\n");
    row(
        "range's end in a range", [=](auto& t) { t.TotalRangeText(1) = text("all[/SIG]"); },
        "error range 1 of the total: the text contains [/SIG], which a reader takes for a part of the file: "
        "'all[/SIG]' "
        "is read back as 'all'\n");
    row(
        "option in a path", [=](auto& t) { t.ReportDirectory = text("/a[report title]"); },
        "error directory for reports: the text contains [report title], which a reader takes for a part of the file: "
        "the "
        "option [REPORT TITLE] is on when the test is read back\n");
    row(
        "option in a question", [=](auto& t) { t.QuestionText(2) = text("a [report title]"); },
        "error question 2: the text contains [report title], which a reader takes for a part of the file: 'a [report "
        "title]' is read back as 'a '\n");
    row(
        "bracket in a path", [=](auto& t) { t.ExcelDirectory = text("/a[/excel dir]/b"); },
        "error directory for workbooks: the text contains [/excel dir], which a reader takes for a part of the file: "
        "'/a[/excel dir]/b' is read back as '/a'\n");
    row(
        "line break in a file name", [=](auto& t) { t.AutosaveFileName = text("a\nb"); },
        "error report's file name: 'a<line break>b' is read back as 'ab'\n");
    row(
        "empty value", [=](auto& t) { t.AnswerValue(1, 1) = Value(); },
        "error question 1, answer 1: the value is empty, and a file with it can't be opened again\n");
    row(
        "value with an exponent", [=](auto& t) { t.AnswerValue(1, 1) = typed("1e3"); },
        "error question 1, answer 1: the value '1e3' is no whole number from -32768 to 32767, and a file with it can't "
        "be opened again\n");
    row(
        "value of another script", [=](auto& t) { t.AnswerValue(1, 1) = typed("٣"); },
        "error question 1, answer 1: the value '٣' is no whole number from -32768 to 32767, and a file with it can't "
        "be "
        "opened again\n");
    row(
        "value too large", [=](auto& t) { t.AnswerValue(1, 1) = typed("99999"); },
        "error question 1, answer 1: the value '99999' is no whole number from -32768 to 32767, and a file with it "
        "can't be opened again\n");
    row(
        "bound that is no number", [=](auto& t) { t.SubscaleRangeLow(2, 1) = typed("few"); },
        "error range 1 of the sub-scale 'Calm': the low bound 'few' is no whole number from -32768 to 32767, and a "
        "file "
        "with it can't be opened again\n");
    row(
        "empty bound", [=](auto& t) { t.SubscaleRangeHigh(2, 1) = typed(""); },
        "error range 1 of the sub-scale 'Calm': the high bound is empty, and a file with it can't be opened again\n");
    row(
        "bound with a fraction", [=](auto& t) { t.SubscaleRangeLow(2, 1) = typed("0.4"); },
        "warning range 1 of the sub-scale 'Calm': the low bound 0.4 is read back as 0\n");
    row(
        "bound with blanks and sign", [=](auto& t) { t.SubscaleRangeHigh(2, 1) = typed(" +2 "); }, "");
    row(
        "gap", [=](auto& t) { t.TotalRangeHigh(1) = 3; },
        "warning range 1 of the total: there is a gap: no range of the total covers the score 4\n");
    row(
        "question with no answers", [=](auto& t) { t.AnswerCount(1) = 0; },
        "warning question 1: the multichoice question has no answers of its own, and becomes a template question when "
        "the file is read\n");
    row(
        "question with no answers, no template",
        [=](auto& t) {
            t.AnswerCount(1) = t.TemplateAnswerCount = 0;
            t.QuestionSubscale(1) = t.QuestionSubscale(2) = 0;
            t.QuestionType(2) = ShortAnswer;
            t.SubscaleCount = t.TotalRangeCount = 0;
        },
        "warning question 1: the multichoice question has no answers to choose from, so that nobody gets past it\n");
    row(
        "control character", [=](auto& t) { t.TestIntroduction = QString(QChar(7)); },
        "error introduction: the text holds the control character 0x07, and a file with it can't be opened again\n");
    row(
        "half a character", [=](auto& t) { t.TestTitle = QString(QChar(0xD83D)); },
        "error title: the text holds half of a character, which no file can keep: the test can't be saved\n");
    row(
        "whole character of two halves", [=](auto& t) { t.TestTitle = text("\xF0\x9F\x98\x80"); }, "");
    row(
        "multichoice question above 200",
        [=](auto& t) {
            Lengthen(t, 203);
            t.QuestionType(201) = t.QuestionType(203) = Multichoice;
        },
        "error question 201: only questions 1 to 200 can be of the type multichoice\n"
        "error question 203: only questions 1 to 200 can be of the type multichoice\n");
    row(
        "type that doesn't exist", [=](auto& t) { t.QuestionType(3) = -1; },
        "error question 3: the type -1 is read back as 0\nwarning question 3: the question has the type -1, which "
        "doesn't exist, and can't be answered\n");
}

void tst_checkforsaving::CheckForSaving_OneFlaw_IsAllThatIsTold() {
    QFETCH(Change, change);
    TestDocument test = Sound();
    change(test);
    const QString words = Words(CheckForSaving(test));
    QFETCH(QString, findings);
    QVERIFY2(words == findings, qPrintable(words));
}

void tst_checkforsaving::CheckForSaving_SeveralFlaws_AllComeToLight() {
    TestDocument test = Sound();
    test.AnswerValue(1, 1) = Value();
    test.SubscaleRangeLow(1, 1) = Value(QStringLiteral("x"));
    test.TestTitle = QStringLiteral("a\nb");
    const QString words = Words(CheckForSaving(test));
    QVERIFY(words.contains(QStringLiteral("the value is empty")));
    QVERIFY(words.contains(QStringLiteral("the low bound 'x'")));
    QVERIFY(words.contains(QStringLiteral("'a<line break>b' is read back as 'ab'")));
}

void tst_checkforsaving::CheckForSaving_TooLong_SaysByHowMuch_data() {
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("findings");
    QTest::newRow("below") << 29999 << QString();
    QTest::newRow("nearly full") << 30000
                                 << QStringLiteral(
                                        "warning : the file holds 30000 characters; one with more than 32767 "
                                        "can't be read\n");
    QTest::newRow("full") << 32767
                          << QStringLiteral("warning : the file holds 32767 characters; one with more than 32767 "
                                            "can't be read\n");
    QTest::newRow("too long") << 32768
                              << QStringLiteral("error : the test is 1 characters too long to be opened again\n");
    QTest::newRow("far too long") << 300000
                                  << QStringLiteral("error : the test is 267233 characters too long to be opened "
                                                    "again\n");
}

void tst_checkforsaving::CheckForSaving_TooLong_SaysByHowMuch() {
    QFETCH(int, length);
    TestDocument test = Sound();
    int now = 0;
    CheckForSaving(test, &now);
    test.TestIntroduction += QString(length - now, u'x');
    QTEST(Words(CheckForSaving(test, &now)), "findings");
    QCOMPARE(now, length);
}

void tst_checkforsaving::CheckForSaving_FindingHasThePlaceThatItNames() {
    TestDocument test = Sound();
    test.AnswerValue(1, 2) = Value();
    test.SubscaleRangeLow(2, 1) = Value();
    test.AutosaveFileName = QStringLiteral("a\nb");
    const std::vector<Finding> findings = CheckForSaving(test);
    QCOMPARE(findings.size(), size_t(3));
    QVERIFY((findings[0].Place == TestPlace{TestPlace::SubscaleRange, 2, 1}));
    QVERIFY((findings[1].Place == TestPlace{TestPlace::Answer, 1, 2}));
    QVERIFY((findings[2].Place == TestPlace{TestPlace::AutosaveFileName, 0, 0}));
}

void tst_checkforsaving::CheckForSaving_Sample_IsWhatTheCheckOfTheFileSays_data() {
    QTest::addColumn<QString>("path");
    const QDir samples(QStringLiteral(VELLUMO_SOURCE_DIR "/samples"));
    for (const QString& name : samples.entryList({QStringLiteral("*.vlm")}, QDir::Files))
        QTest::newRow(qPrintable(name)) << samples.filePath(name);
}

void tst_checkforsaving::CheckForSaving_Sample_IsWhatTheCheckOfTheFileSays() {
    QFETCH(QString, path);
    TestDocument test;
    QVERIFY(OpenTest(test, path));
    QCOMPARE(Words(CheckForSaving(test)), Words(CheckTestFile(path).Findings));
}

QTEST_GUILESS_MAIN(tst_checkforsaving)
#include "tst_checkforsaving.moc"
