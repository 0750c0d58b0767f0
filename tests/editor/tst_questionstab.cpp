#include "editor/EditorPage.h"
#include "editor/ui/QuestionsTab.h"

#include <QComboBox>
#include <QtTest>

namespace {

using namespace Qt::StringLiterals;

const QString Mood = QStringLiteral("[SUBSCALES][S]Energy[/S][S]Calm[/S][/SUBSCALES]"
                                    "[TEMPLATE][A]Never[v=0][/A][A]Often[v=1][/A][/TEMPLATE]"
                                    "[Q]One[A]a[v=1][/A][A]b[v=2][/A][A]c[v=3][/A][SS=2][/Q]"
                                    "[Q]Two[SS=1][/Q]"
                                    "[Q]Three[QT]2[/QT][/Q]"
                                    "[Q]Four[QT]3[/QT][SS=7][/Q]");
const QString OneQuestion = QStringLiteral("[Q]One[A]a[v=1][/A][/Q]");

const QString AddQuestionButton = QStringLiteral("CmdQuestion_0");
const QString DeleteQuestionButton = QStringLiteral("CmdQuestion_1");
const QString EditQuestionButton = QStringLiteral("CmdQuestion_2");
const QString AddAnswerButton = QStringLiteral("CmdQuestion_3");
const QString DeleteAnswerButton = QStringLiteral("CmdQuestion_4");
const QString EditAnswerButton = QStringLiteral("CmdQuestion_5");

struct Page : EditorPage<QuestionsTab> {
    using EditorPage::EditorPage;

    void Show(int question) { page.GoTo({TestPlace::Question, question, 0}); }
    QString QuestionTitle() { return Caption(QStringLiteral("FrmQuestion")); }
    QString AnswerTitle() { return Caption(QStringLiteral("FrameAnswer")); }
    QString Subscale() { return Find<QComboBox>(page, QStringLiteral("QuestionSS")).currentText(); }
    /// The answer boxes as they stand: "text=value".
    QString AnswerBoxes() { return Text(QStringLiteral("txtanswer")) + u'=' + Text(QStringLiteral("txtAnswerVal")); }
    QString Types() {
        QString chosen;
        for (int i = 0; i < 4; ++i)
            if (Find<QPushButton>(page, TypeButton(i)).isChecked())
                chosen += QString::number(i);
        return chosen;
    }
    static QString TypeButton(int type) { return QStringLiteral("ChkQType_%1").arg(type); }
    /// The numbers of those buttons of an array that are enabled.
    QString EnabledOf(const QString& array, std::initializer_list<int> indices) {
        QString enabled;
        for (const int i : indices)
            if (Enabled(QStringLiteral("%1_%2").arg(array).arg(i)))
                enabled += QString::number(i);
        return enabled;
    }
    QString Operations() { return EnabledOf(QStringLiteral("CmdQuestion"), {0, 1, 2, 3, 4, 5}); }
    QString Navigation() { return EnabledOf(QStringLiteral("CmdQuestNav"), {0, 1, 2, 3, 4, 5}); }
};

TestDocument ManyQuestions(int count) {
    TestDocument test;
    for (int q = 1; q <= count; ++q)
        Q_UNUSED(AddQuestion(test, 0, {QStringLiteral("q%1").arg(q), 0, ShortAnswer}));
    return test;
}

} // namespace

class tst_questionstab : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void ShowQuestion_EachKind_BoxesAndButtons_data() {
        QTest::addColumn<int>("question");
        QTest::addColumn<QStringList>("shown"); // caption, text, sub-scale, type, caption of the answer, its boxes
        QTest::addColumn<QString>("operations");
        QTest::addColumn<QString>("navigation");
        QTest::addColumn<bool>("answerButtons");
        QTest::newRow("multichoice") << 1 << QStringList{u"Question 1 of 4"_s, u"One"_s, u"Calm"_s, u"1"_s,
                                                         u"Answer 1 of 3"_s,   u"a=1"_s}
                                     << u"012345"_s << u"012345"_s << true;
        QTest::newRow("template") << 2 << QStringList{u"Question 2 of 4"_s,   u"Two"_s, u"Energy"_s, u"0"_s,
                                                      u"Answer - Template"_s, u"="_s}
                                  << u"012"_s << u"014"_s << false;
        QTest::newRow("short") << 3 << QStringList{u"Question 3 of 4"_s,       u"Three"_s, u"<none>"_s, u"2"_s,
                                                   u"Answer - Short Answer"_s, u"="_s}
                               << u"012"_s << u"014"_s << false;
        QTest::newRow("long, of a sub-scale that isn't there")
            << 4 << QStringList{u"Question 4 of 4"_s, u"Four"_s, QString(), u"3"_s, u"Answer - Long Answer"_s, u"="_s}
            << u"012"_s << u"014"_s << false;
    }
    void ShowQuestion_EachKind_BoxesAndButtons() {
        QFETCH(int, question);
        Page page(Mood);
        page.Show(question);
        QTEST((QStringList{page.QuestionTitle(), page.Text(u"txtQuestion"_s), page.Subscale(), page.Types(),
                           page.AnswerTitle(), page.AnswerBoxes()}),
              "shown");
        QTEST(page.Operations(), "operations");
        QTEST(page.Navigation(), "navigation");
        QTEST(page.Seen(u"Frame6"_s), "answerButtons");
        QTEST(page.Enabled(u"txtanswer"_s), "answerButtons");
        QTEST(page.Enabled(u"txtAnswerVal"_s), "answerButtons");
        QCOMPARE(page.changes.count(), 0);
    }

    void Captions_Buttons_ToTheLetter() {
        Page page(Mood);
        const auto captions = [&page](const QString& array, std::initializer_list<int> indices) {
            QStringList texts;
            for (const int i : indices)
                texts += Find<QPushButton>(page.page, QStringLiteral("%1_%2").arg(array).arg(i)).text();
            return texts.join(u'|');
        };
        QCOMPARE(captions(u"ChkQType"_s, {0, 1, 2, 3}), u"Template|Multichoice|Short Answer|Long Answer"_s);
        QCOMPARE(captions(u"CmdQuestion"_s, {0, 1, 2, 3, 4, 5}), u"Add|Delete|Edit|Add|Delete|Edit"_s);
        QCOMPARE(captions(u"CmdQuestNav"_s, {0, 1, 2, 3, 4, 5}), u"Back|Foward|Back|Forward|Clear|Clear"_s);
    }

    void Navigation_Questions_WrapsAndClears() {
        Page page(Mood);
        page.page.ShowLastQuestion();
        QCOMPARE(page.QuestionTitle(), u"Question 4 of 4"_s);
        page.ClickOn(u"CmdQuestNav_1"_s);
        QCOMPARE(page.QuestionTitle(), u"New Question (Total = 4)"_s);
        QCOMPARE(page.Text(u"txtQuestion"_s), QString());
        QCOMPARE(page.Subscale(), u"<none>"_s);
        page.ClickOn(u"CmdQuestNav_1"_s);
        QCOMPARE(page.QuestionTitle(), u"Question 1 of 4"_s);
        page.ClickOn(u"CmdQuestNav_4"_s);
        QCOMPARE(page.QuestionTitle(), u"New Question (Total = 4)"_s);
        QCOMPARE(page.AnswerTitle(), u"New Answer (Total = 0)"_s);
        QCOMPARE(page.AnswerBoxes(), u"=0"_s);
        QCOMPARE(page.Operations(), QString());
        QCOMPARE(page.FocusName(), u"txtQuestion"_s);
        page.ClickOn(u"CmdQuestNav_0"_s);
        QCOMPARE(page.page.CurrentQuestion(), 4);
        page.Show(1);
        page.ClickOn(u"CmdQuestNav_0"_s);
        QCOMPARE(page.page.CurrentQuestion(), 4);
        QCOMPARE(page.changes.count(), 0);
    }

    void Navigation_Answers_WrapsAndClears() {
        Page page(Mood);
        page.Show(1);
        page.ClickOn(u"CmdQuestNav_2"_s);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 3 of 3c=3"_s);
        page.ClickOn(u"CmdQuestNav_3"_s);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"New Answer (Total = 3)="_s);
        QCOMPARE(page.Operations(), u"012"_s);
        page.ClickOn(u"CmdQuestNav_3"_s);
        QCOMPARE(page.AnswerTitle(), u"Answer 1 of 3"_s);
        page.ClickOn(u"CmdQuestNav_5"_s);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"New Answer (Total = 3)="_s);
        QCOMPARE(page.FocusName(), u"txtanswer"_s);
    }

    void EmptyTest_Opened_NothingToDoButWrite() {
        Page page{QString()};
        QCOMPARE(page.QuestionTitle(), u"New Question (Total = 0)"_s);
        QCOMPARE(page.AnswerTitle(), u"New Answer (Total = 0)"_s);
        QCOMPARE(page.Operations() + page.Navigation(), QString());
        QCOMPARE(page.Types(), u"1"_s);
        QVERIFY(!page.Enabled(Page::TypeButton(0)));
        page.Write(u"txtanswer"_s, u"yes"_s);
        page.Write(u"txtQuestion"_s, u"How?"_s);
        QCOMPARE(page.Operations(), u"0"_s);
    }

    void AddQuestion_Written_ShownAndReadyForTheNext() {
        Page page(Mood);
        page.Show(1);
        page.Write(u"txtQuestion"_s, u"Five"_s);
        page.ClickOn(AddQuestionButton);
        QCOMPARE(page.test.QuestionCount, 5);
        QCOMPARE(page.test.AnswerCount(5), 3);
        QCOMPARE(page.QuestionTitle() + page.AnswerTitle(), u"Question 5 of 5Answer 1 of 3"_s);
        QCOMPARE(page.FocusName(), u"txtQuestion"_s);
        QCOMPARE(page.changes.count(), 1);
        // Its text is selected: typing on begins the next one.
        Type(*page.page.focusWidget(), u"Six"_s);
        page.ClickOn(Page::TypeButton(3));
        page.ClickOn(AddQuestionButton);
        QCOMPARE(page.test.QuestionText(6), u"Six"_s);
        QCOMPARE(page.test.QuestionType(6), int(LongAnswer));
        QCOMPARE(page.test.QuestionSubscale(5), 2);
        QCOMPARE(page.test.QuestionSubscale(6), 2);
        QCOMPARE(page.AnswerTitle(), u"Answer - Long Answer"_s);
    }

    void EditQuestion_TypeChosen_StoredOnlyThen() {
        Page page(Mood);
        page.Show(1);
        page.ClickOn(Page::TypeButton(3));
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer - Long Answer="_s);
        QVERIFY(!page.Seen(u"Frame6"_s));
        QCOMPARE(page.Navigation(), u"014"_s);
        QCOMPARE(page.test.QuestionType(1), int(Multichoice));
        page.ClickOn(Page::TypeButton(1));
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 1 of 3a=1"_s);
        page.ClickOn(Page::TypeButton(3));
        page.ClickOn(EditQuestionButton);
        QCOMPARE(page.test.QuestionType(1), int(LongAnswer));
        QCOMPARE(page.test.AnswerCount(1), 0);
        QCOMPARE(page.Subscale(), u"<none>"_s);
        QCOMPARE(page.changes.count(), 1);
    }

    void EditQuestion_UnknownSubscale_KeptUntilOneIsChosen() {
        Page page(Mood);
        page.Show(4);
        page.ClickOn(Page::TypeButton(0));
        page.ClickOn(EditQuestionButton);
        QCOMPARE(page.test.QuestionSubscale(4), 7);
        auto& list = Find<QComboBox>(page.page, u"QuestionSS"_s);
        list.setFocus();
        Press(list, Qt::Key_Home);
        Press(list, Qt::Key_Down);
        page.ClickOn(EditQuestionButton);
        QCOMPARE(page.test.QuestionSubscale(4), 1);
    }

    void DeleteQuestion_DownToNone_NavigationEnds() {
        Page page(OneQuestion + QStringLiteral("[Q]Two[A]b[v=1][/A][/Q]"));
        page.Show(1);
        page.ClickOn(DeleteQuestionButton);
        QCOMPARE(page.QuestionTitle() + page.Text(u"txtQuestion"_s), u"Question 1 of 1Two"_s);
        page.ClickOn(DeleteQuestionButton);
        QCOMPARE(page.test.QuestionCount, 0);
        QCOMPARE(page.QuestionTitle() + page.Text(u"txtQuestion"_s), u"New Question (Total = 0)"_s);
        QCOMPARE(page.Navigation() + page.Operations(), QString());
        QCOMPARE(page.FocusName(), u"txtQuestion"_s);
        QCOMPARE(page.changes.count(), 2);
    }

    void Answers_AddEditDelete_InDocumentAndBoxes() {
        Page page(OneQuestion);
        page.Show(1);
        page.Write(u"txtanswer"_s, u"b"_s);
        page.Write(u"txtAnswerVal"_s, u"1.5"_s);
        page.ClickOn(AddAnswerButton);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 2 of 2b=2"_s);
        QCOMPARE(page.FocusName(), u"txtanswer"_s);
        Type(*page.page.focusWidget(), u"bb"_s);
        page.ClickOn(EditAnswerButton);
        QCOMPARE(page.test.AnswerText(1, 2), u"bb"_s);
        page.Write(u"txtAnswerVal"_s, QString());
        page.ClickOn(EditAnswerButton);
        QVERIFY(page.test.AnswerValue(1, 2).IsEmpty());
        QCOMPARE(page.changes.count(), 3);

        page.ClickOn(u"CmdQuestNav_2"_s);
        page.ClickOn(DeleteAnswerButton);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 1 of 1bb="_s);
        page.ClickOn(DeleteAnswerButton);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"New Answer (Total = 0)=0"_s);
        QCOMPARE(page.test.AnswerCount(1), 0);
        QVERIFY(!page.Enabled(DeleteAnswerButton));
        QCOMPARE(page.changes.count(), 5);
    }

    void AddAnswer_TypeChosenNotStored_NothingLost() {
        Page page(Mood);
        page.Show(3);
        page.ClickOn(Page::TypeButton(1));
        page.Write(u"txtanswer"_s, u"yes"_s);
        page.ClickOn(AddAnswerButton);
        QCOMPARE(page.test.QuestionType(3), int(Multichoice));
        page.Show(3);
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 1 of 1yes="_s);
    }

    void Typing_Boxes_EnableButtons_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("operations");
        QTest::newRow("no question") << u"txtQuestion"_s << QString() << u"1345"_s;
        QTest::newRow("question") << u"txtQuestion"_s << u"x"_s << u"012345"_s;
        QTest::newRow("no answer") << u"txtanswer"_s << QString() << u"01245"_s;
        QTest::newRow("answer") << u"txtanswer"_s << u"x"_s << u"012345"_s;
        QTest::newRow("no value") << u"txtAnswerVal"_s << QString() << u"012345"_s;
        QTest::newRow("value") << u"txtAnswerVal"_s << u"-3"_s << u"012345"_s;
        QTest::newRow("unfinished value") << u"txtAnswerVal"_s << u"-"_s << u"0124"_s;
        QTest::newRow("blanks") << u"txtAnswerVal"_s << u" "_s << u"0124"_s;
    }
    void Typing_Boxes_EnableButtons() {
        QFETCH(QString, box);
        QFETCH(QString, text);
        Page page(OneQuestion);
        page.Show(1);
        page.Write(box, text);
        QTEST(page.Operations(), "operations");
        QCOMPARE(page.changes.count(), 0);
    }

    void InvalidValue_Typed_ToldAndUnchanged() {
        Page page(OneQuestion);
        page.Show(1);
        page.prompts.Expect(u"Not a valid value"_s);
        page.Write(u"txtAnswerVal"_s, u"x"_s);
        page.prompts.Verify();
        QCOMPARE(page.Operations(), u"0124"_s);
        QCOMPARE(page.FocusName(), u"txtAnswerVal"_s);
        Type(*page.page.focusWidget(), u"4"_s);
        QCOMPARE(page.Operations(), u"012345"_s);
        QCOMPARE(page.test.AnswerValue(1, 1).Number(), 1);
    }

    void Limits_Reached_ToldAndUnchanged_data() {
        QTest::addColumn<int>("questions");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("message");
        QTest::newRow("500") << 500 << int(ShortAnswer) << OnlySoManyQuestions;
        QTest::newRow("200") << 200 << int(Multichoice) << OnlySoManyQuestionsWithAnswers;
    }
    void Limits_Reached_ToldAndUnchanged() {
        QFETCH(int, questions);
        QFETCH(int, type);
        QFETCH(QString, message);
        Page page(ManyQuestions(questions));
        page.page.ShowLastQuestion();
        page.ClickOn(Page::TypeButton(type));
        page.prompts.Expect(message);
        page.ClickOn(AddQuestionButton);
        page.prompts.Verify();
        QCOMPARE(page.test.QuestionCount, questions);
        QCOMPARE(page.Text(u"txtQuestion"_s), QStringLiteral("q%1").arg(questions));
        QCOMPARE(page.changes.count(), 0);
    }

    void Limits_AnswersRefused_ToldAndUnchanged() {
        Page page(ManyQuestions(201));
        page.page.ShowLastQuestion();
        page.ClickOn(Page::TypeButton(1));
        page.prompts.Expect(OnlySoManyQuestionsWithAnswers);
        page.ClickOn(EditQuestionButton);
        page.Write(u"txtanswer"_s, u"a"_s);
        page.prompts.Expect(OnlySoManyQuestionsWithAnswers);
        page.ClickOn(AddAnswerButton);
        page.prompts.Verify();
        QCOMPARE(page.test.QuestionType(201), int(ShortAnswer));
        QCOMPARE(page.Text(u"txtanswer"_s), u"a"_s);

        page.Show(200);
        page.ClickOn(Page::TypeButton(1));
        page.Write(u"txtanswer"_s, u"a"_s);
        for (int a = 1; a <= MaxAnswers; ++a)
            page.ClickOn(AddAnswerButton);
        page.prompts.Expect(OnlySoManyAnswers);
        page.ClickOn(AddAnswerButton);
        QCOMPARE(page.test.AnswerCount(200), 10);
        QCOMPARE(page.changes.count(), 10);
    }

    void Types_Keyboard_ChooseAndSkipDisabled() {
        Page page(OneQuestion);
        page.Show(1);
        auto& box = Find<QWidget>(page.page, u"txtQuestion"_s);
        Press(box, Qt::Key_Tab);
        QCOMPARE(page.FocusName(), Page::TypeButton(1));
        Press(*page.page.focusWidget(), Qt::Key_Right);
        QCOMPARE(page.Types() + page.AnswerTitle(), u"2Answer - Short Answer"_s);
        Press(*page.page.focusWidget(), Qt::Key_Right);
        Press(*page.page.focusWidget(), Qt::Key_Right);
        QCOMPARE(page.Types() + page.AnswerTitle(), u"1Answer 1 of 1"_s);
        QCOMPARE(page.FocusName(), Page::TypeButton(1));
        Press(*page.page.focusWidget(), Qt::Key_Left);
        QCOMPARE(page.Types(), u"3"_s);
    }

    void Types_ChosenAlready_TypedAnswerStays() {
        Page page(OneQuestion);
        page.Show(1);
        page.Write(u"txtanswer"_s, u"typed"_s);
        page.ClickOn(Page::TypeButton(1));
        QCOMPARE(page.AnswerBoxes(), u"typed=1"_s);
    }

    void Types_TemplateTakenAway_StillShownAndReachable() {
        Page page(Mood);
        page.Show(2);
        QVERIFY(page.Enabled(Page::TypeButton(0)));
        page.test.TemplateAnswerCount = 0;
        page.page.ShowQuestion();
        QVERIFY(!page.Enabled(Page::TypeButton(0)));
        QCOMPARE(page.Types(), u"0"_s);
        Press(Find<QWidget>(page.page, u"txtQuestion"_s), Qt::Key_Tab);
        QCOMPARE(page.FocusName(), Page::TypeButton(1));
        // A new question can't be of that type.
        page.ClickOn(u"CmdQuestNav_4"_s);
        QCOMPARE(page.Types(), u"1"_s);
    }

    void Types_Unknown_NoneChosenAndKept() {
        Page page(QStringLiteral("[Q]One[QT]7[/QT][/Q]"));
        page.Show(1);
        QCOMPARE(page.Types() + page.AnswerTitle(), u"Answer"_s);
        page.Write(u"txtQuestion"_s, u"Other"_s);
        page.ClickOn(EditQuestionButton);
        QCOMPARE(page.test.QuestionType(1), 7);
        QCOMPARE(page.test.QuestionText(1), u"Other"_s);
    }

    void Subscales_Changed_ListFollows() {
        Page page(Mood);
        page.Show(1);
        auto& list = Find<QComboBox>(page.page, u"QuestionSS"_s);
        QCOMPARE(list.itemText(0), u"<none>"_s);
        page.test.SubscaleName(1) = u"Calm"_s;
        page.test.SubscaleCount = 1;
        page.page.FillSubscales(u"<None>"_s);
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.itemText(0), u"<None>"_s);
        QCOMPARE(page.Subscale(), u"Calm"_s);
        page.test.SubscaleName(1) = u"Peace"_s;
        page.page.ShowQuestion();
        QCOMPARE(list.itemText(0) + list.itemText(1), u"<None>Peace"_s);
        page.page.RefreshFromTest();
        QCOMPARE(list.itemText(0), u"<none>"_s);
        QCOMPARE(page.page.CurrentQuestion(), 4);
    }

    void GoTo_Places_ShownWithFocus() {
        Page page(Mood);
        page.page.GoTo({TestPlace::Answer, 1, 2});
        QCOMPARE(page.AnswerTitle() + page.AnswerBoxes(), u"Answer 2 of 3b=2"_s);
        QCOMPARE(page.FocusName(), u"txtanswer"_s);
        page.page.GoTo({TestPlace::Question, 3, 0});
        QCOMPARE(page.QuestionTitle(), u"Question 3 of 4"_s);
        QCOMPARE(page.FocusName(), u"txtQuestion"_s);
        page.test.QuestionCount = 2;
        page.page.RefreshFromTest();
        QCOMPARE(page.QuestionTitle(), u"Question 2 of 2"_s);
    }

    void Keyboard_WholeQuestion_WithoutMouse() {
        Page page{QString()};
        auto& first = Find<QWidget>(page.page, u"txtQuestion"_s);
        first.setFocus();
        Type(first, u"How are you?\n"_s); // Return goes on to the types
        const auto tabTo = [&page](const QString& name) {
            for (int i = 0; i < 20 && page.FocusName() != name; ++i)
                Press(*page.page.focusWidget(), Qt::Key_Tab);
            QCOMPARE(page.FocusName(), name);
        };
        tabTo(AddQuestionButton);
        Press(*page.page.focusWidget(), Qt::Key_Space);
        for (const QString& answer : {u"well"_s, u"ill"_s}) {
            tabTo(u"txtanswer"_s);
            Type(*page.page.focusWidget(), answer + u'\n');
            Type(*page.page.focusWidget(), u"1"_s);
            tabTo(AddAnswerButton);
            Press(*page.page.focusWidget(), Qt::Key_Space);
        }
        QCOMPARE(page.test.QuestionText(1), u"How are you?"_s);
        QCOMPARE(page.test.AnswerText(1, 2), u"ill"_s);
        QCOMPARE(page.test.AnswerCount(1), 2);
    }

    void Wheel_OverTheSubscales_TurnsThemOnlyWithTheFocus() {
        Page page(Mood);
        page.Show(1);
        auto& list = Find<QComboBox>(page.page, u"QuestionSS"_s);
        const auto turn = [&] {
            QWheelEvent wheel(list.rect().center(), list.mapToGlobal(list.rect().center()), {}, {0, 120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(&list, &wheel);
        };
        turn();
        QCOMPARE(page.Subscale(), u"Calm"_s);
        list.setFocus();
        turn();
        QCOMPARE(page.Subscale(), u"Energy"_s);
    }
};

QTEST_MAIN(tst_questionstab)
#include "tst_questionstab.moc"
