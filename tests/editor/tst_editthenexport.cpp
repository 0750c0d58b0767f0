#include "app/TestList.h"
#include "cli/Shared.h"
#include "editor/QuestionEdits.h"
#include "editor/SubscaleEdits.h"
#include "editor/TemplateEdits.h"
#include "editor/TotalRangeEdits.h"
#include "export/HtmlGenerator.h"
#include "support/ScriptedPrompts.h"
#include "taker/Administration.h"
#include "taker/Scoring.h"
#include "testdoc/TestChecker.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <QTest>

namespace {

using Edit = void (*)(TestDocument&);

const QString Path = QStringLiteral("/tests/Mood.vlm");

/// Questions 1 multichoice, 2 and 3 the template's, 4 short; two sub-scales, ranges of both kinds.
TestDocument NewTest() {
    TestDocument test;
    test.TestFileName = Path;
    test.TestBaseName = test.TestTitle = QStringLiteral("Mood");
    for (const char* name : {"Energy", "Calm"})
        Q_UNUSED(AddSubscale(test, QLatin1String(name)));
    Q_UNUSED(AddSubscaleRange(test, 1, {QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("low")}));
    Q_UNUSED(AddTotalRange(test, 0, 9, QStringLiteral("all")));
    AddTemplateAnswer(test, QStringLiteral("Never"), 0);
    AddTemplateAnswer(test, QStringLiteral("Often"), 3);
    Q_UNUSED(AddQuestion(test, 0, {QStringLiteral("One"), 1, Multichoice}));
    Q_UNUSED(AddAnswer(test, 1, QStringLiteral("a"), QStringLiteral("1")));
    Q_UNUSED(AddAnswer(test, 1, QStringLiteral("b"), QStringLiteral("2")));
    Q_UNUSED(AddQuestion(test, 1, {QStringLiteral("Two"), 2, TypeUnset}));
    Q_UNUSED(AddQuestion(test, 2, {QStringLiteral("Three"), 1, TypeUnset}));
    Q_UNUSED(AddQuestion(test, 3, {QStringLiteral("Four"), 0, ShortAnswer}));
    return test;
}

TestDocument SavedAndRead(const TestDocument& test) {
    TestDocument read;
    read.TestFileName = Path;
    read.TestFileText = TextWhenRead(WriteTest(test).Text);
    LoadTest(read);
    return read;
}

QString Page(const TestDocument& test) {
    Session session;
    session.Test = test;
    session.HtmlTemplatePath = QStringLiteral(VELLUMO_SOURCE_DIR "/templates/HTML Template.vlx");
    ScriptedPrompts prompts;
    return GenerateHtml(session, prompts, {}) ? session.GeneratedHtml : QString();
}

/// What "show" would print, whatever it was that had been read before the edits.
QString Json(TestDocument test) {
    test.TestFileLength = 0;
    static_cast<TestSummary&>(test) = SummaryOf(test);
    // The file has no word for a multichoice question that has no answers yet.
    for (int q = 1; q <= test.QuestionCount; ++q)
        if (test.QuestionType(q) == Multichoice && OwnAnswerCount(test, q) == 0)
            test.QuestionType(q) = TypeUnset;
    return QString::fromUtf8(JsonOf(test));
}

/// The listings, and the scores when answer a is chosen everywhere, for each a.
QString ListedAndScored(const TestDocument& test) {
    QString text = QuestionListing(test) + TextOfPart(test, TestPart::Questions);
    for (int a = 0; a <= MaxAnswers; ++a) {
        ResponseSet responses(test.QuestionCount);
        for (int q = 1; q <= test.QuestionCount; ++q)
            responses.ResponseChoice(q) = a;
        const Scores scores = ComputeScores(test, responses);
        text += QString::number(scores.TotalScore) + SubscaleAnalysis(test, scores) + TotalAnalysis(test, scores);
    }
    for (const ScaleReach& scale : ReachableScores(test))
        text += QStringLiteral("|%1 %2").arg(scale.LowestWithGaps).arg(scale.Highest);
    return text;
}

QuestionBoxes Boxes(int type) { return {QStringLiteral("new"), 1, type}; }

} // namespace

Q_DECLARE_METATYPE(Edit)

class tst_editthenexport : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void EveryEdit_BeforeSaving_ShowsWhatTheFileWill_data() {
        QTest::addColumn<Edit>("edit");
        const auto row = [](const char* name, Edit edit) { QTest::newRow(name) << edit; };
        row("nothing", [](TestDocument&) {});
        row("template answer added", [](TestDocument& t) { AddTemplateAnswer(t, QStringLiteral("Always"), 9); });
        row("template value changed", [](TestDocument& t) { EditTemplateAnswer(t, 2, QStringLiteral("Often"), 30); });
        row("template answer deleted", [](TestDocument& t) { DeleteTemplateAnswer(t, 1); });
        row("template emptied", [](TestDocument& t) { DeleteTemplateAnswer(t, 1), DeleteTemplateAnswer(t, 1); });
        row("template question added", [](TestDocument& t) { Q_UNUSED(AddQuestion(t, 4, Boxes(TypeUnset))); });
        row("multichoice question added", [](TestDocument& t) { Q_UNUSED(AddQuestion(t, 1, Boxes(Multichoice))); });
        row("the same without answers", [](TestDocument& t) { Q_UNUSED(AddQuestion(t, 4, Boxes(Multichoice))); });
        row("short question added", [](TestDocument& t) { Q_UNUSED(AddQuestion(t, 1, Boxes(ShortAnswer))); });
        row("long question added", [](TestDocument& t) { Q_UNUSED(AddQuestion(t, 1, Boxes(LongAnswer))); });
        row("multichoice to template", [](TestDocument& t) { Q_UNUSED(EditQuestion(t, 1, Boxes(TypeUnset))); });
        row("multichoice to short", [](TestDocument& t) { Q_UNUSED(EditQuestion(t, 1, Boxes(ShortAnswer))); });
        row("template to multichoice", [](TestDocument& t) { Q_UNUSED(EditQuestion(t, 2, Boxes(Multichoice))); });
        row("template to long", [](TestDocument& t) { Q_UNUSED(EditQuestion(t, 2, Boxes(LongAnswer))); });
        row("short to template", [](TestDocument& t) { Q_UNUSED(EditQuestion(t, 4, Boxes(TypeUnset))); });
        row("own question deleted", [](TestDocument& t) { DeleteQuestion(t, 1); });
        row("template question deleted", [](TestDocument& t) { DeleteQuestion(t, 2); });
        row("answer added",
            [](TestDocument& t) { Q_UNUSED(AddAnswer(t, 1, QStringLiteral("c"), QStringLiteral("-5"))); });
        row("answer of its own for a template question",
            [](TestDocument& t) { Q_UNUSED(AddAnswer(t, 3, QStringLiteral("c"), QStringLiteral("7"))); });
        row("answer edited", [](TestDocument& t) {
            Q_UNUSED(EditAnswer(t, 1, 2, QStringLiteral("a long answer"), QStringLiteral("20")));
        });
        row("answer deleted", [](TestDocument& t) { DeleteAnswer(t, 1, 1); });
        row("last answers deleted", [](TestDocument& t) { DeleteAnswer(t, 1, 2), DeleteAnswer(t, 1, 1); });
        row("sub-scale added", [](TestDocument& t) { Q_UNUSED(AddSubscale(t, QStringLiteral("Sleep"))); });
        row("sub-scale renamed", [](TestDocument& t) { RenameSubscale(t, 1, QStringLiteral("Sleep")); });
        row("sub-scale deleted", [](TestDocument& t) { DeleteSubscale(t, 1); });
        row("range added", [](TestDocument& t) {
            Q_UNUSED(AddSubscaleRange(t, 2, {QStringLiteral("1"), QStringLiteral("9"), QStringLiteral("x")}));
        });
        row("range edited", [](TestDocument& t) {
            EditSubscaleRange(t, 1, 1, {QStringLiteral("-1"), QStringLiteral(" 2"), QStringLiteral("x")});
        });
        row("range deleted", [](TestDocument& t) { DeleteSubscaleRange(t, 1, 1); });
        row("total range added", [](TestDocument& t) { Q_UNUSED(AddTotalRange(t, 2, 5, QStringLiteral("x"))); });
        row("total range edited", [](TestDocument& t) { EditTotalRange(t, 1, 2, 5, QStringLiteral("x")); });
        row("total range deleted", [](TestDocument& t) { DeleteTotalRange(t, 1); });
        row("options and texts", [](TestDocument& t) {
            t.TestOption(ReportTitle) = t.NavigationButtons = true;
            t.TestInstructions = QStringLiteral("Do\r\nit");
            t.ExcelFileName = QStringLiteral("book");
        });
    }
    void EveryEdit_BeforeSaving_ShowsWhatTheFileWill() {
        QFETCH(Edit, edit);
        for (TestDocument test : {NewTest(), SavedAndRead(NewTest())}) {
            const QString before = Json(test);
            edit(test);
            QCOMPARE(Json(test) == before, qstrcmp(QTest::currentDataTag(), "nothing") == 0);
            const TestDocument read = SavedAndRead(test);
            QVERIFY(!Page(test).isEmpty());
            QCOMPARE(Page(test), Page(read));
            QCOMPARE(ListedAndScored(test), ListedAndScored(read));
            QCOMPARE(Json(test), Json(read));
            QVERIFY(SummaryOf(test) == static_cast<const TestSummary&>(read));
        }
    }
};

QTEST_GUILESS_MAIN(tst_editthenexport)
#include "tst_editthenexport.moc"
