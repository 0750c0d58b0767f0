#include "editor/QuestionEdits.h"
#include "editor/TemplateEdits.h"
#include "support/TestText.h"

#include <QTest>

namespace {

/// "Mood 1 ss2 Yes=1 No=0 | Why 2 ss0": text, type, sub-scale and own answers of each question.
QString Shape(const TestDocument& test) {
    QStringList questions;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        QString shape = QStringLiteral("%1 %2 ss%3")
                            .arg(test.QuestionText(q))
                            .arg(test.QuestionType(q))
                            .arg(test.QuestionSubscale(q));
        for (int a = 1; a <= OwnAnswerCount(test, q); ++a)
            shape += u' ' + test.AnswerText(q, a) + u'=' + test.AnswerValue(q, a).Text();
        questions += shape;
    }
    return questions.join(QStringLiteral(" | "));
}

QString TemplateShape(const TestDocument& test) {
    QStringList items;
    for (int i = 1; i <= test.TemplateAnswerCount; ++i)
        items += TemplateItem(test, i);
    return items.join(u'|');
}

TestDocument Mood() {
    return TestFromText(QStringLiteral("[SUBSCALES][S]Energy[/S][S]Calm[/S][/SUBSCALES]"
                                       "[Q]One[A]a[v=1][/A][A]b[v=2][/A][A]c[v=3][/A][SS=2][/Q]"
                                       "[Q]Two[QT]2[/QT][/Q]"
                                       "[Q]Three[SS=1][/Q]"
                                       "[Q]Four[A]y[v=1][/A][A]n[v=0][/A][SS=1][/Q]"));
}
const QString MoodShape = QStringLiteral("One 1 ss2 a=1 b=2 c=3 | Two 2 ss0 | Three 0 ss1 | Four 1 ss1 y=1 n=0");

/// So many short questions, "q1" and so on, of sub-scale 1.
TestDocument ManyQuestions(int count) {
    TestDocument test;
    for (int q = 1; q <= count; ++q)
        Q_UNUSED(AddQuestion(test, 0, {QStringLiteral("q%1").arg(q), 1, ShortAnswer}));
    return test;
}

QuestionBoxes Boxes(const QString& text, int subscale, int type) {
    return {text, subscale < 0 ? std::nullopt : std::optional<int>(subscale), type};
}

constexpr int NothingChosen = -1;

} // namespace

class tst_questionedits : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void AddQuestion_Boxes_AppendedWithCopies_data() {
        QTest::addColumn<int>("previous");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subscale");
        QTest::addColumn<QString>("added");
        const auto row = [](const char* name, int previous, int type, int subscale, const char* added) {
            QTest::newRow(name) << previous << type << subscale << QString::fromLatin1(added);
        };
        row("multichoice after multichoice", 1, Multichoice, 1, "New 1 ss1 a=1 b=2 c=3");
        row("multichoice after short", 2, Multichoice, 1, "New 1 ss1");
        row("multichoice after none", 0, Multichoice, 1, "New 1 ss1");
        row("template after multichoice", 1, TypeUnset, 1, "New 0 ss1");
        row("no sub-scale", 1, Multichoice, 0, "New 1 ss0 a=1 b=2 c=3");
        row("nothing chosen", 1, Multichoice, NothingChosen, "New 1 ss2 a=1 b=2 c=3");
        row("nothing chosen after none", 0, Multichoice, NothingChosen, "New 1 ss0");
        row("short, the one before keeps its sub-scale", 1, ShortAnswer, 2, "New 2 ss2");
        row("long, with the sub-scale of the one before", 4, LongAnswer, NothingChosen, "New 3 ss1");
        row("short after none", 0, ShortAnswer, 2, "New 2 ss2");
    }
    void AddQuestion_Boxes_AppendedWithCopies() {
        QFETCH(int, previous);
        QFETCH(int, type);
        QFETCH(int, subscale);
        QFETCH(QString, added);
        TestDocument test = Mood();
        QVERIFY(AddQuestion(test, previous, Boxes(QStringLiteral("New"), subscale, type)));
        QCOMPARE(Shape(test), MoodShape + QStringLiteral(" | ") + added);
    }

    void EditQuestion_Boxes_Stored_data() {
        QTest::addColumn<int>("question");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("subscale");
        QTest::addColumn<QString>("edited");
        const auto row = [](const char* name, int question, int type, int subscale, const char* edited) {
            QTest::newRow(name) << question << type << subscale << QString::fromLatin1(edited);
        };
        row("text", 1, Multichoice, 1, "New 1 ss1 a=1 b=2 c=3");
        row("nothing chosen", 1, Multichoice, NothingChosen, "New 1 ss2 a=1 b=2 c=3");
        row("multichoice to long", 1, LongAnswer, 1, "New 3 ss0");
        row("multichoice to short", 4, ShortAnswer, NothingChosen, "New 2 ss0");
        row("multichoice to template", 1, TypeUnset, NothingChosen, "New 0 ss2");
        row("template to multichoice", 3, Multichoice, 0, "New 1 ss0");
        row("type of a later version", 1, 7, 1, "New 7 ss1");
    }
    void EditQuestion_Boxes_Stored() {
        QFETCH(int, question);
        QFETCH(int, type);
        QFETCH(int, subscale);
        QFETCH(QString, edited);
        TestDocument test = Mood();
        QVERIFY(EditQuestion(test, question, Boxes(QStringLiteral("New"), subscale, type)));
        QStringList expected = MoodShape.split(QStringLiteral(" | "));
        expected[question - 1] = edited;
        QCOMPARE(Shape(test), expected.join(QStringLiteral(" | ")));
    }

    void DeleteQuestion_AnyPlace_LaterOnesMoveUp_data() {
        QTest::addColumn<int>("question");
        QTest::addColumn<int>("shown");
        for (int q = 1; q <= 4; ++q)
            QTest::newRow(qPrintable(QStringLiteral("question %1").arg(q))) << q << qMin(q, 3);
    }
    void DeleteQuestion_AnyPlace_LaterOnesMoveUp() {
        QFETCH(int, question);
        TestDocument test = Mood();
        QTEST(DeleteQuestion(test, question), "shown");
        QStringList expected = MoodShape.split(QStringLiteral(" | "));
        expected.removeAt(question - 1);
        QCOMPARE(Shape(test), expected.join(QStringLiteral(" | ")));
    }

    void DeleteQuestion_LastRemaining_NoneShown() {
        TestDocument test = ManyQuestions(1);
        QCOMPARE(DeleteQuestion(test, 1), 0);
        QCOMPARE(test.QuestionCount, 0);
    }

    void DeleteQuestion_AcrossAnswerBorder_NoAnswersAbove() {
        TestDocument test = ManyQuestions(MaxQuestions);
        QVERIFY(AddAnswer(test, 200, QStringLiteral("yes"), QStringLiteral("1")));
        AddTemplateAnswer(test, QStringLiteral("the template's"), 7);
        QCOMPARE(DeleteQuestion(test, 3), 3);
        QCOMPARE(test.QuestionCount, 499);
        QCOMPARE(test.QuestionText(199), QStringLiteral("q200"));
        QCOMPARE(test.AnswerCount(199), 1);
        QCOMPARE(test.AnswerText(199, 1), QStringLiteral("yes"));
        QCOMPARE(test.QuestionText(200), QStringLiteral("q201"));
        QCOMPARE(test.AnswerCount(200), 0);
        QCOMPARE(ChosenText(test, 200, 1), QStringLiteral("the template's"));
        QCOMPARE(test.QuestionText(499), QStringLiteral("q500"));
    }

    void Limits_Exceeded_RefusedAndUnchanged_data() {
        QTest::addColumn<int>("questions");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("message");
        QTest::newRow("multichoice as 200th") << 199 << int(Multichoice) << QString();
        QTest::newRow("multichoice as 201st") << 200 << int(Multichoice) << OnlySoManyQuestionsWithAnswers;
        QTest::newRow("short as 201st") << 200 << int(ShortAnswer) << QString();
        QTest::newRow("template as 500th") << 499 << int(TypeUnset) << QString();
        QTest::newRow("long as 501st") << 500 << int(LongAnswer) << OnlySoManyQuestions;
        QTest::newRow("multichoice as 501st") << 500 << int(Multichoice) << OnlySoManyQuestions;
    }
    void Limits_Exceeded_RefusedAndUnchanged() {
        QFETCH(int, questions);
        QFETCH(int, type);
        QFETCH(QString, message);
        TestDocument test = ManyQuestions(questions);
        QCOMPARE(AddQuestion(test, questions, {QStringLiteral("more"), 2, type}).Message(), message);
        QCOMPARE(test.QuestionCount, message.isEmpty() ? questions + 1 : questions);
        if (!message.isEmpty())
            QCOMPARE(test.QuestionSubscale(questions), 1);
    }

    void Limits_AnswersAbove200_RefusedAndUnchanged() {
        TestDocument test = ManyQuestions(201);
        const QString before = Shape(test);
        QCOMPARE(EditQuestion(test, 201, {QStringLiteral("more"), 2, Multichoice}).Message(),
                 OnlySoManyQuestionsWithAnswers);
        QCOMPARE(AddAnswer(test, 201, QStringLiteral("a"), QStringLiteral("1")).Message(),
                 OnlySoManyQuestionsWithAnswers);
        QCOMPARE(Shape(test), before);

        // Such a one can stand in a file; its text stays editable, and it can become another.
        test.QuestionType(201) = Multichoice;
        QVERIFY(EditQuestion(test, 201, {QStringLiteral("text"), 1, Multichoice}));
        QVERIFY(EditQuestion(test, 201, {QStringLiteral("text"), 1, LongAnswer}));
        QCOMPARE(test.QuestionType(201), int(LongAnswer));
    }

    void Navigation_FromEverywhere_Wraps_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("back");
        QTest::addColumn<int>("forward");
        QTest::newRow("none") << 0 << 0 << 0 << 0;
        QTest::newRow("new one") << 3 << 0 << 3 << 1;
        QTest::newRow("first") << 3 << 1 << 3 << 2;
        QTest::newRow("middle") << 3 << 2 << 1 << 3;
        QTest::newRow("last") << 3 << 3 << 2 << 0;
    }
    void Navigation_FromEverywhere_Wraps() {
        QFETCH(int, count);
        QFETCH(int, from);
        TestDocument test = ManyQuestions(count);
        QTEST(QuestionBefore(test, from), "back");
        QTEST(QuestionAfter(test, from), "forward");
        test = ManyQuestions(1);
        for (int a = 1; a <= count; ++a)
            QVERIFY(AddAnswer(test, 1, QStringLiteral("a"), QString()));
        QTEST(AnswerBefore(test, 1, from), "back");
        QTEST(AnswerAfter(test, 1, from), "forward");
    }

    void Captions_Positions_ToTheLetter() {
        const TestDocument test = Mood();
        QCOMPARE(QuestionCaption(test, 2), QStringLiteral("Question 2 of 4"));
        QCOMPARE(QuestionCaption(test, 0), QStringLiteral("New Question (Total = 4)"));
        QCOMPARE(AnswerCaption(test, 1, 3), QStringLiteral("Answer 3 of 3"));
        QCOMPARE(AnswerCaption(test, 2, 0), QStringLiteral("New Answer (Total = 0)"));
        QCOMPARE(AnswerCaption(ManyQuestions(201), 201, 0), QStringLiteral("New Answer (Total = 0)"));
    }

    void AnswerValue_Typed_NumberOrAsItIs_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Value>("kept");
        QTest::newRow("number") << QStringLiteral("7") << Value(7);
        QTest::newRow("rounded") << QStringLiteral("1.5") << Value(2);
        QTest::newRow("signed, with blanks") << QStringLiteral(" -3 ") << Value(-3);
        QTest::newRow("nothing") << QString() << Value();
        QTest::newRow("no number") << QStringLiteral("1e3") << Value(QStringLiteral("1e3"));
    }
    void AnswerValue_Typed_NumberOrAsItIs() {
        QFETCH(QString, typed);
        QFETCH(Value, kept);
        TestDocument test = Mood();
        QVERIFY(AddAnswer(test, 4, QStringLiteral("new"), typed));
        QCOMPARE(test.AnswerCount(4), 3);
        QCOMPARE(test.AnswerText(4, 3), QStringLiteral("new"));
        QVERIFY(test.AnswerValue(4, 3) == kept);
        QVERIFY(EditAnswer(test, 4, 1, QStringLiteral("edited"), typed));
        QCOMPARE(test.AnswerText(4, 1), QStringLiteral("edited"));
        QVERIFY(test.AnswerValue(4, 1) == kept);
    }

    void AddAnswer_Eleventh_RefusedAndUnchanged() {
        TestDocument test = ManyQuestions(1);
        for (int a = 1; a <= MaxAnswers; ++a)
            QVERIFY(AddAnswer(test, 1, QString::number(a), QStringLiteral("1")));
        const QString before = Shape(test);
        QCOMPARE(AddAnswer(test, 1, QStringLiteral("11"), QStringLiteral("1")).Message(), OnlySoManyAnswers);
        QCOMPARE(Shape(test), before);
    }

    void AddAnswer_QuestionOfOtherType_BecomesMultichoice() {
        TestDocument test = Mood();
        QVERIFY(AddAnswer(test, 2, QStringLiteral("new"), QStringLiteral("1")));
        QVERIFY(AddAnswer(test, 3, QStringLiteral("new"), QStringLiteral("1")));
        QCOMPARE(Shape(test), QStringLiteral("One 1 ss2 a=1 b=2 c=3 | Two 1 ss0 new=1 | Three 1 ss1 new=1 | "
                                             "Four 1 ss1 y=1 n=0"));
    }

    void DeleteAnswer_AnyPlace_LaterOnesMoveUp() {
        TestDocument test = Mood();
        QCOMPARE(DeleteAnswer(test, 1, 1), 1);
        QVERIFY(Shape(test).startsWith(QStringLiteral("One 1 ss2 b=2 c=3 |")));
        QCOMPARE(DeleteAnswer(test, 1, 2), 1);
        QVERIFY(Shape(test).startsWith(QStringLiteral("One 1 ss2 b=2 |")));
        QCOMPARE(DeleteAnswer(test, 1, 1), 0);
        QVERIFY(Shape(test).startsWith(QStringLiteral("One 1 ss2 |")));
    }

    void Template_Edits_ListedItems() {
        TestDocument test;
        AddTemplateAnswer(test, QStringLiteral("Agree"), 3);
        AddTemplateAnswer(test, QStringLiteral("Neither"), 0);
        AddTemplateAnswer(test, QStringLiteral("Disagree"), -3);
        QCOMPARE(TemplateShape(test), QStringLiteral("Agree (v=3)|Neither (v=0)|Disagree (v=-3)"));
        EditTemplateAnswer(test, 2, QStringLiteral("Unsure"), 1);
        DeleteTemplateAnswer(test, 1);
        QCOMPARE(TemplateShape(test), QStringLiteral("Unsure (v=1)|Disagree (v=-3)"));
        DeleteTemplateAnswer(test, 2);
        DeleteTemplateAnswer(test, 1);
        QCOMPARE(test.TemplateAnswerCount, 0);
    }

    void Template_Full_AddReplacesTenth_data() {
        QTest::addColumn<int>("answers");
        QTest::addColumn<bool>("full");
        QTest::newRow("nine") << 9 << false;
        QTest::newRow("ten") << 10 << true;
        QTest::newRow("eleven, from a file") << 11 << true;
    }
    void Template_Full_AddReplacesTenth() {
        QFETCH(int, answers);
        TestDocument test;
        test.TemplateAnswerCount = answers;
        test.TemplateAnswerText(9) = QStringLiteral("ninth");
        QTEST(TemplateIsFull(test), "full");
        AddTemplateAnswer(test, QStringLiteral("new"), 5);
        QCOMPARE(test.TemplateAnswerCount, 10);
        QCOMPARE(TemplateItem(test, 9), QStringLiteral("ninth (v=0)"));
        QCOMPARE(TemplateItem(test, 10), QStringLiteral("new (v=5)"));
    }
};

QTEST_APPLESS_MAIN(tst_questionedits)
#include "tst_questionedits.moc"
