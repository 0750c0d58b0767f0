#include "platform/ui/Typography.h"
#include "support/Files.h"
#include "taker/AutoReport.h"
#include "taker/TestWindow.h"

#include <QAccessible>
#include <QtTest>

namespace {

const QString Questions = QStringLiteral("[TITLE]Mood[/TITLE]"
                                         "[Q]One[A]a[v=1][/A][A]b & c[v=2][/A][A][v=3][/A][A]d[v=4][/A][/Q]"
                                         "[Q]Two[QT]2[/QT][/Q]"
                                         "[Q]Three[QT]3[/QT][/Q]"
                                         "[Q]Four[A]y[v=1][/A][A]n[v=0][/A][/Q]");
const QString Instructed = Questions + QStringLiteral("[INSTRUCTIONS]Do it<P>well[/INSTRUCTIONS]"
                                                      "[INTRODUCTION]Hello[/INTRODUCTION]");
const QString Buttons = QStringLiteral("[NAVIGATION BUTTONS]");
const QString Locked = QStringLiteral("[DISABLE ALL OPTIONS]");
const QString Silent = QStringLiteral("[UPDATE FILES WITHOUT PROMPTING]");
const QString Append = QStringLiteral("[APPEND TO REPORT FILE]");
const QString AllAnswered = QStringLiteral("1tl1");

class CountingExporter : public SpreadsheetExporter {
  public:
    Result Export(Session& session) override {
        ++Runs;
        session.SpreadsheetExported = FailWith.isEmpty();
        if (FailWith.isEmpty())
            session.SpreadsheetFilePath = Path;
        return FailWith.isEmpty() ? Result::Done() : Result::Failed(FailWith);
    }
    int Runs = 0;
    QString FailWith;
    QString Path;
};

} // namespace

class tst_frmtest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Open_Instructions_TextAloneAndBegin();
    void Open_Sizes_FollowLongestAnswer_data();
    void Open_Sizes_FollowLongestAnswer();
    void Menus_Captions_Exact();
    void Navigation_Clicks_Caption_data();
    void Navigation_Clicks_Caption();
    void Buttons_Options_Visibility_data();
    void Buttons_Options_Visibility();
    void Answers_HiddenEmptyOne_CantBeChosen();
    void Answers_EarlierChoice_AloneBold();
    void Answers_DoubleClick_AnswersOnce();
    void TypedText_NotAccepted_DraftEverywhere_data();
    void TypedText_NotAccepted_DraftEverywhere();
    void Drafts_AtTheEnd_AskedWithTheirNumbers();
    void CannotAnswer_Continue_ByKeyToTheEnd();
    void TypedText_Accepted_KeptWithItsLines();
    void Keyboard_WholeTest_WithoutMouse();
    void Keyboard_HeldOrUnsought_AnswersNothing();
    void Information_Menu_ThenResume();
    void NavigatorItems_Chosen_Called_data();
    void NavigatorItems_Chosen_Called();
    void Leaving_Ways_StartScreen();
    void Leaving_SomethingAtStake_Asks_data();
    void Leaving_SomethingAtStake_Asks();
    void TestOptions_Changed_FromNextQuestion();
    void Report_Pressed_ShownEachTime();
    void Report_TotalTooBig_OverflowAndUsable();
    void Report_Terminate_AsksAndEnds_data();
    void Report_Terminate_AsksAndEnds();
    void Report_TerminateUnsaved_AsksAgain();
    void Speech_Question_ReadWithItsAnswers();
    void TextSize_Keys_AllAndRemembered();
    void Letters_SeenAtOnce_Differ();
    void Completion_LastReanswered_FilesOnce();
    void Export_Outcome_SaysSo();
    void AutoReport_Dialog_FirstAndSecondTime();
    void AutoReport_Cancelled_NothingWritten();
    void AutoReport_FileFails_ShownAndTold_data();
    void AutoReport_FileFails_ShownAndTold();
    void AutoReport_OpenedInEditor_FailureTold();
};

void tst_frmtest::Open_Instructions_TextAloneAndBegin() {
    TestWindow taking(Instructed);
    taking.Open();
    QCOMPARE(taking.window->windowTitle(), QStringLiteral("Mood"));
    QCOMPARE(taking.Caption(), QStringLiteral("INSTRUCTIONS"));
    QCOMPARE(taking.Text(), QStringLiteral("Do it\nwell"));
    QCOMPARE(taking.Control<QPushButton>(QStringLiteral("CmdBegin")).text(), QStringLiteral("&Begin Test"));
    QCOMPARE(taking.FocusName(), QStringLiteral("CmdBegin"));
    for (int frame = 0; frame < 3; ++frame)
        QVERIFY(!taking.Seen(QStringLiteral("FrmAnswer_%1").arg(frame)));

    TestWindow plain(Questions);
    plain.Open();
    QCOMPARE(plain.Caption(), QStringLiteral("Question 1 of 4"));
    QCOMPARE(plain.FocusName(), QStringLiteral("Opt_1"));
}

void tst_frmtest::Open_Sizes_FollowLongestAnswer_data() {
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("answers");
    QTest::addColumn<QList<int>>("expected"); // font, button, frame, window, information
    QTest::newRow("short") << 39 << 4 << QList<int>{12, 33, 151, 342, 241};
    QTest::newRow("longer") << 40 << 4 << QList<int>{10, 33, 151, 342, 241};
    QTest::newRow("long") << 80 << 10 << QList<int>{10, 40, 418, 608, 507};
    QTest::newRow("longest at the least height") << 180 << 10 << QList<int>{10, 45, 468, 658, 557};
    QTest::newRow("longest") << 400 << 1 << QList<int>{10, 58, 76, 268, 167};
    QTest::newRow("no answers") << 0 << 0 << QList<int>{12, 33, 18, 345, 244};
}

void tst_frmtest::Open_Sizes_FollowLongestAnswer() {
    QFETCH(int, length);
    QFETCH(int, answers);
    const AnswerSizes sizes = AnswerSizesFor(length, answers);
    QTEST((QList<int>{sizes.FontSize, sizes.ButtonHeight, sizes.FrameHeight, sizes.WindowHeight,
                      sizes.InformationHeight}),
          "expected");

    const QString answer(qMax(0, length - 5), u'x');
    TestWindow taking(QStringLiteral("[TITLE]T[/TITLE][Q]One[A]%1[v=1][/A][/Q]")
                          .arg(answer.isEmpty() ? QStringLiteral("x") : answer));
    taking.Open();
    const auto& button = taking.Control<QPushButton>(QStringLiteral("Opt_1"));
    QVERIFY(button.font().pointSizeF() >= qMax<double>(sizes.FontSize, BodyFont().pointSizeF()));
    QVERIFY(button.height() >= sizes.ButtonHeight);
}

void tst_frmtest::Menus_Captions_Exact() {
    TestWindow taking(Questions);
    taking.Open();
    QStringList captions;
    for (const QAction* menu : taking.window->menuBar()->actions()) {
        captions += menu->text();
        for (const QAction* item : menu->menu()->actions())
            captions += item->isSeparator() ? QStringLiteral("-") : item->text();
    }
    QCOMPARE(captions.join(u'|'),
             QStringLiteral("&File|&Main Menu|&Edit Current Test|-|&Quit|&Test|Intro&duction|&Instructions|"
                            "&Show Questions|-|Test Client and Adminstrator|&Options|&General Options|&Test Options|-|"
                            "&Larger Text|&Smaller Text|&Usual Size|&Help|Help|&About Vellumo"));

    TestWindow locked(Questions + Locked);
    locked.Open();
    for (const QString& name : {QStringLiteral("mnutest"), QStringLiteral("mnuint"), QStringLiteral("mnuOptions")})
        QVERIFY2(!locked.Control<QMenu>(name).menuAction()->isVisible(), qPrintable(name));
    QVERIFY(locked.Control<QMenu>(QStringLiteral("mnuhelp")).menuAction()->isVisible());
}

void tst_frmtest::Navigation_Clicks_Caption_data() {
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("caption");
    QTest::newRow("answered") << QStringLiteral("4") << QStringLiteral("Question 2 of 4");
    QTest::newRow("back wraps to the furthest") << QStringLiteral("1tbbb") << QStringLiteral("Question 2 of 4");
    QTest::newRow("forward to the first unanswered") << QStringLiteral("1bf") << QStringLiteral("Question 2 of 4");
    QTest::newRow("completed") << AllAnswered << QStringLiteral("Completed");
    QTest::newRow("back after completion") << QStringLiteral("1tl1b") << QStringLiteral("Question 3 of 4");
    QTest::newRow("forward after the last") << QStringLiteral("1tl1bff") << QStringLiteral("Question 1 of 4");
    QTest::newRow("answered again") << QStringLiteral("1tl1bf2") << QStringLiteral("Completed");
}

void tst_frmtest::Navigation_Clicks_Caption() {
    QFETCH(QString, steps);
    TestWindow taking(Questions + Buttons);
    taking.Open();
    taking.Do(steps);
    QTEST(taking.Caption(), "caption");
}

void tst_frmtest::Buttons_Options_Visibility_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("seen"); // of Begin, Back, Forward, Report, Export, Auto-report, Quit
    const QString whenDone = QStringLiteral("[REPORT ONLY WHEN DONE]");
    QTest::newRow("first question") << Buttons << QString() << QStringLiteral("reaq");
    QTest::newRow("second question") << Buttons << QStringLiteral("1") << QStringLiteral("breaq");
    QTest::newRow("back on the first") << Buttons << QStringLiteral("1b") << QStringLiteral("bfreaq");
    QTest::newRow("without navigation") << QString() << QStringLiteral("1") << QStringLiteral("reaq");
    QTest::newRow("without navigation, completed once")
        << QString() << QStringLiteral("1tl1b") << QStringLiteral("breaq");
    QTest::newRow("locked") << Locked << QStringLiteral("1") << QStringLiteral("q");
    QTest::newRow("locked, completed") << Locked << AllAnswered << QStringLiteral("brq");
    QTest::newRow("only when done") << whenDone << QStringLiteral("1") << QStringLiteral("q");
    QTest::newRow("only when done, completed") << whenDone << AllAnswered << QStringLiteral("breaq");
}

void tst_frmtest::Buttons_Options_Visibility() {
    QFETCH(QString, options);
    QFETCH(QString, steps);
    TestWindow taking(Questions + options);
    taking.office.Entries[SpreadsheetKey] = QStringLiteral("Excel.Sheet.8");
    taking.Open();
    taking.Do(steps);
    QString seen;
    for (const QChar letter : QStringLiteral("sbfreaq"))
        if (taking.Seen(TestWindow::ButtonOf(letter)))
            seen += letter;
    QTEST(seen, "seen");
}

void tst_frmtest::Answers_HiddenEmptyOne_CantBeChosen() {
    TestWindow taking(Questions);
    taking.Open();
    QString seen;
    for (int a = 1; a <= MaxAnswers; ++a)
        if (taking.Seen(QStringLiteral("Opt_%1").arg(a)))
            seen += QString::number(a);
    QCOMPARE(seen, QStringLiteral("124"));
    QVERIFY(!taking.Control<QPushButton>(QStringLiteral("Opt_3")).isEnabled());
    QCOMPARE(taking.Control<QPushButton>(QStringLiteral("Opt_2")).text(), QStringLiteral("b & c"));
    Press(*taking.window, Qt::Key_3);
    Press(*taking.window, Qt::Key_5);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 1 of 4"));
    QCOMPARE(taking.session.Responses.FurthestQuestion, 0);
}

void tst_frmtest::Answers_EarlierChoice_AloneBold() {
    TestWindow taking(Questions + Buttons);
    taking.Open();
    taking.Do(QStringLiteral("2b"));
    for (const int a : {1, 2, 4})
        QCOMPARE(taking.Control<QPushButton>(QStringLiteral("Opt_%1").arg(a)).font().bold(), a == 2);
    for (const int a : {1, 2, 4}) {
        QAccessibleInterface* access =
            QAccessible::queryAccessibleInterface(&taking.Control<QPushButton>(QStringLiteral("Opt_%1").arg(a)));
        QCOMPARE(access->role(), QAccessible::RadioButton);
        QVERIFY(access->state().checkable && access->state().checked == (a == 2));
    }
    QCOMPARE(taking.FocusName(), QStringLiteral("Opt_2"));
    taking.Do(QStringLiteral("4b"));
    QVERIFY(!taking.Control<QPushButton>(QStringLiteral("Opt_2")).font().bold());
    QCOMPARE(taking.session.Responses.ResponseChoice(1), 4);
    QCOMPARE(taking.session.Responses.ResponseValue(1), 4);
}

void tst_frmtest::Answers_DoubleClick_AnswersOnce() {
    TestWindow taking(
        QStringLiteral("[TITLE]T[/TITLE][TEMPLATE][A]a[v=1][/A][/TEMPLATE][Q]One[/Q][Q]Two[/Q][Q]Three[/Q]"));
    taking.Open();
    auto& button = taking.Control<QPushButton>(QStringLiteral("Opt_1"));
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::mouseDClick(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 2 of 3"));
    QCOMPARE(taking.session.Responses.ResponseChoice(2), 0);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 3 of 3"));
}

void tst_frmtest::TypedText_NotAccepted_DraftEverywhere_data() {
    QTest::addColumn<QString>("away"); // a menu item, or steps
    for (const char* item : {"mnutestshow_1", "mnutestshow_2", "mnutestshow_3", "mnugeneraloptions"})
        QTest::newRow(item) << item;
    QTest::newRow("back and forward") << "bf";
    QTest::newRow("report") << "r";
}

void tst_frmtest::TypedText_NotAccepted_DraftEverywhere() {
    QFETCH(QString, away);
    TestWindow taking(Instructed + Buttons + QStringLiteral("[REPORT SHORT ANSWERS]"));
    taking.Open();
    taking.Do(QStringLiteral("s1"));
    auto& box = taking.Control<QLineEdit>(QStringLiteral("txtanswer_0"));
    QCOMPARE(taking.FocusName(), box.objectName());
    QVERIFY(!taking.Seen(QStringLiteral("LblDraft_0")));
    Type(box, QStringLiteral("half a"));
    if (away.startsWith(QStringLiteral("mnu")))
        Choose(*taking.window, away);
    else
        taking.Do(away);
    if (taking.Seen(QStringLiteral("CmdBegin")))
        taking.Do(QStringLiteral("s"));
    QCOMPARE(taking.Caption(), QStringLiteral("Question 2 of 4"));
    QCOMPARE(box.text(), QStringLiteral("half a"));
    QVERIFY(taking.Seen(QStringLiteral("LblDraft_0")));
    QCOMPARE(taking.session.Responses.ResponseText(2), QString());
    taking.Do(QStringLiteral("r"));
    QVERIFY(!taking.navigator.ShownTexts.last().contains(QStringLiteral("half a")));
    box.clear();
    QVERIFY(!taking.Seen(QStringLiteral("LblDraft_0")));
}

void tst_frmtest::Drafts_AtTheEnd_AskedWithTheirNumbers() {
    TestWindow taking(Questions + Buttons);
    taking.Open();
    taking.prompts
        .ExpectChoice(QStringLiteral("What was typed for question 2 was not accepted"), QStringLiteral("Accept"))
        .InPart();
    taking.Do(QStringLiteral("1tlbb"));
    taking.Do(QStringLiteral("dff1"));
    QCOMPARE(taking.Caption(), QStringLiteral("Completed"));
    QCOMPARE(taking.session.Responses.ResponseText(2), QStringLiteral("typeddraft"));
    QVERIFY(taking.session.Responses.Drafts.empty());
}

void tst_frmtest::CannotAnswer_Continue_ByKeyToTheEnd() {
    TestWindow taking(QStringLiteral("[TITLE]T[/TITLE][Q]One[A]a[v=1][/A][/Q][Q]Two[QT]7[/QT][/Q][Q]Three[/Q]"));
    taking.Open();
    taking.Do(QStringLiteral("1"));
    QVERIFY(taking.Seen(QStringLiteral("LblCannotAnswer")) && !taking.Seen(QStringLiteral("FrmAnswer_0")));
    QCOMPARE(taking.FocusName(), QStringLiteral("CmdContinue"));
    Press(*taking.window->focusWidget(), Qt::Key_Return);
    QVERIFY(taking.Control<QLabel>(QStringLiteral("LblCannotAnswer"))
                .text()
                .startsWith(QStringLiteral("This question has no answers to choose from.")));
    taking.Do(QStringLiteral("c"));
    QCOMPARE(taking.Caption(), QStringLiteral("Completed"));
}

void tst_frmtest::TypedText_Accepted_KeptWithItsLines() {
    TestWindow taking(Questions + Buttons);
    taking.Open();
    taking.Do(QStringLiteral("1t"));
    auto& box = taking.Control<QPlainTextEdit>(QStringLiteral("txtanswer_1"));
    Type(box, QStringLiteral("Grüße\n2\u00a0lines"));
    QCOMPARE(taking.Caption(), QStringLiteral("Question 3 of 4"));
    Press(box, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(taking.session.Responses.ResponseText(3), QStringLiteral("Grüße\r\n2\u00a0lines"));
    taking.Do(QStringLiteral("b"));
    QCOMPARE(box.toPlainText(), QStringLiteral("Grüße\n2 lines")); // a plain blank is its own
    QCOMPARE(taking.session.Responses.ResponseText(2), QStringLiteral("typed"));
    for (int i = 0; i < 2; ++i)
        QCOMPARE(taking.Control<QPushButton>(QStringLiteral("Label1_%1").arg(i)).text(),
                 QStringLiteral("Click here to accept your answer"));
}

void tst_frmtest::Keyboard_WholeTest_WithoutMouse() {
    TestWindow taking(Instructed + Buttons);
    taking.Open();
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QVERIFY(taking.window->focusWidget());
        Press(*taking.window->focusWidget(), key, modifiers);
    };
    press(Qt::Key_Return);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 1 of 4"));
    press(Qt::Key_4);
    Type(*taking.window->focusWidget(), QStringLiteral("10 of 10\n"));
    Type(*taking.window->focusWidget(), QStringLiteral("long"));
    press(Qt::Key_Tab);
    QCOMPARE(taking.FocusName(), QStringLiteral("Label1_1"));
    press(Qt::Key_Space);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 4 of 4"));
    press(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 3 of 4"));
    press(Qt::Key_Right, Qt::AltModifier);
    press(Qt::Key_Down);
    QCOMPARE(taking.FocusName(), QStringLiteral("Opt_2"));
    press(Qt::Key_Return);
    QCOMPARE(taking.Caption(), QStringLiteral("Completed"));
    QCOMPARE(taking.FocusName(), QStringLiteral("CmdReport"));
    press(Qt::Key_Return);
    QCOMPARE(taking.navigator.Calls, QStringList{QStringLiteral("ShowText(Report for Mood)")});
    QVERIFY(taking.navigator.LastKind == TextKind::Report);
    const ResponseSet& responses = taking.session.Responses;
    QCOMPARE(responses.ResponseChoice(1), 4);
    QCOMPARE(responses.ResponseText(2), QStringLiteral("10 of 10"));
    QCOMPARE(responses.ResponseText(3), QStringLiteral("long"));
    QCOMPARE(responses.ResponseChoice(4), 2);
}

void tst_frmtest::Keyboard_HeldOrUnsought_AnswersNothing() {
    TestWindow taking(Questions + Buttons);
    taking.Open();
    // Return while the first answer has the focus only because the question came up.
    Press(*taking.window->focusWidget(), Qt::Key_Return);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 1 of 4"));
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2}) {
        QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)), true);
        QCoreApplication::sendEvent(taking.window->focusWidget(), &held);
    }
    QCOMPARE(taking.Caption(), QStringLiteral("Question 1 of 4"));
    taking.Do(QStringLiteral("1"));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(taking.window->focusWidget(), &held);
    QCOMPARE(taking.Caption(), QStringLiteral("Question 2 of 4"));

    TestWindow ten(QStringLiteral("[TITLE]T[/TITLE][Q]One%1[/Q][Q]Two[QT]2[/QT][/Q]")
                       .arg(QStringLiteral("[A]a[v=1][/A]").repeated(10)));
    ten.Open();
    Press(*ten.window->focusWidget(), Qt::Key_0);
    QCOMPARE(ten.session.Responses.ResponseChoice(1), 10);
}

void tst_frmtest::Information_Menu_ThenResume() {
    TestWindow taking(Instructed);
    taking.Open();
    taking.Do(QStringLiteral("s1"));
    Choose(*taking.window, QStringLiteral("mnutestshow_1"));
    QCOMPARE(taking.Caption(), QStringLiteral("INTRODUCTION"));
    QCOMPARE(taking.Text(), QStringLiteral("Hello"));
    QVERIFY(!taking.Seen(QStringLiteral("FrmAnswer_1")));
    QCOMPARE(taking.Control<QPushButton>(QStringLiteral("CmdBegin")).text(), QStringLiteral("&Resume Test"));
    Choose(*taking.window, QStringLiteral("mnutestshow_3"));
    QCOMPARE(taking.Caption(), QStringLiteral("Mood- Questions"));
    QVERIFY(
        taking.Text().startsWith(QStringLiteral("Mood\n\nINSTRUCTIONS\n\nDo it\nwell\n\n\nQUESTION 1\nOne\n[ ] a\n")));
    Choose(*taking.window, QStringLiteral("mnutestshow_2"));
    QCOMPARE(taking.Caption(), QStringLiteral("INSTRUCTIONS"));
    taking.Do(QStringLiteral("s"));
    QCOMPARE(taking.Caption(), QStringLiteral("Question 2 of 4"));
    QVERIFY(!taking.Seen(QStringLiteral("CmdBegin")));

    taking.window->mnutestshow_Click(4);
    QCOMPARE(taking.navigator.Calls, QStringList{QStringLiteral("ShowText(Test Information for Mood)")});
    QVERIFY(taking.navigator.LastKind == TextKind::Reading);
    QCOMPARE(taking.navigator.ShownTexts, QStringList{QuestionListing(taking.session.Test)});
}

void tst_frmtest::NavigatorItems_Chosen_Called_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("call");
    QTest::newRow("names") << QStringLiteral("mnuclient")
                           << QStringLiteral("AskNames(Confirm Client & Test Administrator)");
    QTest::newRow("options") << QStringLiteral("mnugeneraloptions") << QStringLiteral("ShowGeneralOptions");
    QTest::newRow("help") << QStringLiteral("hlpy") << QStringLiteral("ShowHelp(TestWindow)");
    QTest::newRow("about") << QStringLiteral("mnuhelpabout") << QStringLiteral("ShowAbout");
}

void tst_frmtest::NavigatorItems_Chosen_Called() {
    QFETCH(QString, item);
    QFETCH(QString, call);
    TestWindow taking(Questions);
    taking.Open();
    Choose(*taking.window, item);
    QCOMPARE(taking.navigator.Calls, QStringList{call});
    QVERIFY(taking.window->isVisible());
    Press(*taking.window->focusWidget(), Qt::Key_F1);
    QCOMPARE(taking.navigator.Calls.last(), QStringLiteral("ShowHelp(TestWindow)"));
}

void tst_frmtest::Leaving_Ways_StartScreen() {
    const auto callsOf = [](const std::function<void(TestWindow&)>& leave) {
        TestWindow taking(Questions);
        taking.Open();
        leave(taking);
        return taking.navigator.Calls.join(u' ') + (taking.window->isVisible() ? QStringLiteral(" open") : QString());
    };
    // The navigator closes the windows itself.
    const auto closing = [](TestWindow& taking) {
        taking.navigator.Meanwhile = [&taking](const QString& call) {
            if (call == QStringLiteral("CloseAllAndShowStartScreen"))
                taking.window->close();
        };
    };
    for (const QString& item : {QStringLiteral("mnuNew"), QStringLiteral("mnuQuit")})
        QCOMPARE(callsOf([&](TestWindow& taking) {
                     closing(taking);
                     Choose(*taking.window, item);
                 }),
                 QStringLiteral("CloseAllAndShowStartScreen"));
    QCOMPARE(callsOf([&](TestWindow& taking) {
                 closing(taking);
                 taking.Do(QStringLiteral("q"));
             }),
             QStringLiteral("CloseAllAndShowStartScreen"));
    QCOMPARE(callsOf([](TestWindow& taking) { taking.window->close(); }), QStringLiteral("ShowStartScreen"));
    QCOMPARE(callsOf([](TestWindow& taking) {
                 taking.navigator.CloseAllAnswer = false;
                 taking.Do(QStringLiteral("q"));
                 taking.window->close();
             }),
             QStringLiteral("CloseAllAndShowStartScreen ShowStartScreen"));
    QCOMPARE(callsOf([](TestWindow& taking) { Choose(*taking.window, QStringLiteral("edittest")); }),
             QStringLiteral("EditTest"));
    QCOMPARE(callsOf([](TestWindow& taking) {
                 taking.navigator.EditAnswer = false;
                 Choose(*taking.window, QStringLiteral("edittest"));
             }),
             QStringLiteral("EditTest open"));
}

void tst_frmtest::Leaving_SomethingAtStake_Asks_data() {
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("asked"); // empty: nothing
    const QString middle = QStringLiteral("If you leave it now, the answers given so far (1 of 4) are lost.");
    const QString result = QStringLiteral("are in no report and in no workbook.");
    QTest::newRow("nothing given") << ""
                                   << "";
    QTest::newRow("middle") << "1" << middle;
    QTest::newRow("middle with a draft") << "1d"
                                         << "typed for question 2 was not accepted and would be lost.";
    QTest::newRow("completed") << "1tl1" << result;
    QTest::newRow("shown") << "1tl1r"
                           << "";
    QTest::newRow("changed after it was shown") << "1tl1rbf2" << result;
    QTest::newRow("shown, then a draft") << "1tl1rbbd"
                                         << "The text typed for question 2";
    QTest::newRow("exported") << "1tl1e"
                              << "";
    QTest::newRow("exported, then changed") << "1tl1ebf2"
                                            << "Answers were changed after they were saved in '/w.exl'.";
}

void tst_frmtest::Leaving_SomethingAtStake_Asks() {
    QFETCH(QString, steps);
    QFETCH(QString, asked);
    CountingExporter exporter;
    exporter.Path = QStringLiteral("/w.exl");
    for (const QString& way : {QStringLiteral("close"), QStringLiteral("mnuNew"), QStringLiteral("mnuQuit"),
                               QStringLiteral("edittest"), QStringLiteral("CmdQuit")}) {
        TestWindow taking(Questions + Buttons);
        taking.office.Entries[SpreadsheetKey] = QStringLiteral("Excel.Sheet.8");
        taking.Open(&exporter);
        taking.Do(steps);
        taking.navigator.Calls.clear();
        const auto leave = [&] {
            if (way == QStringLiteral("close"))
                taking.window->close();
            else if (way.startsWith(u'C'))
                Click(*taking.window, way);
            else
                Choose(*taking.window, way);
        };
        if (!asked.isEmpty()) {
            taking.prompts.ExpectChoice(asked, QStringLiteral("Cancel")).InPart();
            leave();
            QVERIFY(taking.navigator.Calls.isEmpty() && taking.window->isVisible());
            if (asked.contains(QStringLiteral("no report"))) {
                taking.prompts.ExpectChoice(asked, QStringLiteral("Make Report")).InPart();
                leave();
                QCOMPARE(taking.navigator.Calls, QStringList{QStringLiteral("ShowText(Report for Mood)")});
                QVERIFY(taking.window->isVisible());
                taking.navigator.Calls.clear();
            } else {
                taking.prompts.ExpectChoice(asked, QStringLiteral("Discard")).InPart();
            }
        }
        leave();
        QCOMPARE(taking.navigator.Calls.size(), 1);
    }
}

void tst_frmtest::TestOptions_Changed_FromNextQuestion() {
    TestWindow taking(Questions);
    taking.Open();
    taking.Do(QStringLiteral("1"));
    DialogDriver driver([](QDialog& dialog) {
        Click(dialog, QStringLiteral("ChkTestOptions_1"));
        Click(dialog, QStringLiteral("ChkTestOptions_2"));
        Click(dialog, QStringLiteral("OKButton"));
    });
    Choose(*taking.window, QStringLiteral("mnut"));
    QVERIFY(driver.Finished());
    QVERIFY(!taking.Seen(QStringLiteral("CmdBack")) && taking.Seen(QStringLiteral("CmdReport")));
    taking.Do(QStringLiteral("t"));
    QVERIFY(taking.Seen(QStringLiteral("CmdBack")) && !taking.Seen(QStringLiteral("CmdReport")));
}

void tst_frmtest::Report_Pressed_ShownEachTime() {
    TestWindow taking(Questions + QStringLiteral("[REPORT TITLE][REPORT TOTAL SCORE]"));
    taking.Open();
    taking.Do(QStringLiteral("4rr"));
    QCOMPARE(taking.navigator.Calls, QStringList(2, QStringLiteral("ShowText(Report for Mood)")));
    QCOMPARE(taking.navigator.ShownTexts.last(), QStringLiteral("MOOD REPORT\r\n\r\n\r\nCUMULATIVE SCORE= 4\r\n"));
    QVERIFY(!taking.session.AutoReportDone);
}

void tst_frmtest::Report_TotalTooBig_OverflowAndUsable() {
    TestWindow taking(QStringLiteral("[TITLE]T[/TITLE][Q]One[A]a[v=32767][/A][/Q][Q]Two[A]b[v=1][/A][/Q]") + Append +
                      Silent);
    taking.Open();
    taking.prompts.Expect(QStringLiteral("Overflow")); // the automatic report
    taking.Do(QStringLiteral("11"));
    QCOMPARE(taking.Caption(), QStringLiteral("Completed"));
    QVERIFY(QDir(taking.folder.path()).isEmpty());
    taking.prompts.Expect(QStringLiteral("Overflow"));
    taking.Do(QStringLiteral("r"));
    QCOMPARE(taking.navigator.Calls, QStringList());
    taking.Do(QStringLiteral("b"));
    QCOMPARE(taking.Caption(), QStringLiteral("Question 1 of 2"));
}

void tst_frmtest::Report_Terminate_AsksAndEnds_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("answer"); // -1: nothing is asked
    QTest::addColumn<bool>("ends");
    const QString terminate = QStringLiteral("[TERMINATE PROGRAM WHEN TEST COMPLETED]");
    QTest::newRow("without the option") << QString() << -1 << false;
    QTest::newRow("agreed") << terminate << static_cast<int>(PromptAnswer::Ok) << true;
    QTest::newRow("declined") << terminate << static_cast<int>(PromptAnswer::Cancel) << false;
    QTest::newRow("without prompting") << terminate + Silent << -1 << true;
}

void tst_frmtest::Report_TerminateUnsaved_AsksAgain() {
    TestWindow taking(Questions + Silent + QStringLiteral("[TERMINATE PROGRAM WHEN TEST COMPLETED]"));
    taking.Open();
    taking.prompts.ExpectChoice(QStringLiteral("The report on the screen is not saved."), QStringLiteral("Cancel"))
        .InPart();
    taking.Do(QStringLiteral("1r"));
    QVERIFY(!taking.navigator.Calls.contains(QStringLiteral("EndProgram")));
}

void tst_frmtest::Report_Terminate_AsksAndEnds() {
    QFETCH(QString, options);
    QFETCH(int, answer);
    QFETCH(bool, ends);
    TestWindow taking(Questions + options);
    taking.navigator.Meanwhile = [&](const QString& call) {
        if (call == QStringLiteral("EndProgram"))
            taking.window->close();
    };
    taking.Open();
    if (answer >= 0)
        taking.prompts.Expect(QStringLiteral("Report Completed - End Test Now?"), static_cast<PromptAnswer>(answer))
            .WithButtons(PromptButtons::OkCancel);
    taking.Do(QStringLiteral("r"));
    QStringList calls{QStringLiteral("ShowText(Report for Mood)")};
    if (ends)
        calls += QStringLiteral("EndProgram");
    QCOMPARE(taking.navigator.Calls, calls);
    QCOMPARE(taking.window->isVisible(), !ends);
}

void tst_frmtest::Completion_LastReanswered_FilesOnce() {
    CountingExporter exporter;
    exporter.Path = QStringLiteral("/w.exl");
    TestWindow taking(Questions + Append + Silent + Buttons +
                      QStringLiteral("[INCLUDE DATE IN EXCEL FILE][REPORT TOTAL SCORE]"));
    taking.Open(&exporter);
    taking.Do(AllAnswered);
    QCOMPARE(exporter.Runs, 1);
    const QString path = taking.folder.filePath(QStringLiteral("Mood.txt"));
    QCOMPARE(BytesOf(path), "\r\n\r\n\r\nCUMULATIVE SCORE= 2\r\n\r\n");
    QVERIFY(taking.session.AutoReportDone && !taking.session.Responses.SilentReport);
    const QString shown = QDir::toNativeSeparators(path);
    QCOMPARE(taking.Status(),
             QStringLiteral("The report was saved in '%1'\nThe results were added to '/w.exl'").arg(shown));
    taking.Do(QStringLiteral("bf2"));
    QCOMPARE(taking.Caption(), QStringLiteral("Completed"));
    QCOMPARE(taking.Status(),
             QStringLiteral("The report in '%1' holds earlier answers. 'Auto-Report' writes a new one.\n"
                            "The row in '/w.exl' holds earlier answers. 'Export' adds a new one.")
                 .arg(shown));
    QCOMPARE(exporter.Runs, 1);
    QCOMPARE(BytesOf(path), "\r\n\r\n\r\nCUMULATIVE SCORE= 2\r\n\r\n");
    QCOMPARE(taking.navigator.Calls, QStringList());
}

void tst_frmtest::Export_Outcome_SaysSo() {
    const QString message = QStringLiteral("The spreadsheet export is not part of this version of Vellumo yet.");
    TestWindow taking(Questions + QStringLiteral("[INCLUDE DATE IN EXCEL FILE]"));
    taking.Open();
    taking.prompts.Expect(message);
    taking.Do(QStringLiteral("e"));
    QVERIFY(!taking.Seen(QStringLiteral("LblStatus")));
    taking.Do(AllAnswered);
    QCOMPARE(taking.Status(), message);
    QVERIFY(taking.Seen(QStringLiteral("LblStatus")) && !taking.session.SpreadsheetExported);

    CountingExporter failing;
    failing.FailWith = QStringLiteral("No room");
    TestWindow failed(Questions + QStringLiteral("[INCLUDE DATE IN EXCEL FILE]"));
    failed.Open(&failing);
    failed.Do(AllAnswered);
    QCOMPARE(failed.Status(), QStringLiteral("No room"));

    CountingExporter exporter;
    exporter.Path = QStringLiteral("/w.exl");
    TestWindow halfway(Questions +
                       QStringLiteral("[SUBSCALES][S]Ease[/S][/SUBSCALES][INCLUDE TOTAL SCORE IN EXCEL FILE]"
                                      "[INCLUDE SUB-SCALES IN EXCEL FILE]"));
    halfway.Open(&exporter);
    halfway.Do(QStringLiteral("1e"));
    QCOMPARE(halfway.Status(), QStringLiteral("The results were added to '/w.exl'\n"
                                              "Scores of the row that are not complete: total answered 1 of 2"));
}

void tst_frmtest::AutoReport_Dialog_FirstAndSecondTime() {
    TestWindow taking(Questions + Silent + QStringLiteral("[AUTOSAVE REPORT AS CLIENT]"));
    taking.session.ClientName = QStringLiteral("Ann Lee");
    taking.Open();
    taking.Do(AllAnswered);
    QVERIFY(QFile::exists(taking.folder.filePath(QStringLiteral("Mood Ann Lee.txt"))));

    // The name is corrected afterwards.
    taking.session.ClientName = QStringLiteral("Anna Lee");
    Choose(*taking.window, QStringLiteral("mnuclient"));
    QVERIFY2(taking.Status().endsWith(u"is for the client's earlier name. 'Auto-Report' writes a new one."),
             qPrintable(taking.Status()));
    taking.prompts.ExpectChoice(QStringLiteral("The client's name was changed"), QStringLiteral("Cancel")).InPart();
    taking.Do(QStringLiteral("q"));
    taking.session.ClientName = QStringLiteral("Ann Lee");

    DialogDriver driver([](QDialog& dialog) {
        QVERIFY(Find<QLabel>(dialog, QStringLiteral("LblNote")).isVisible());
        QCOMPARE(Find<QLineEdit>(dialog, QStringLiteral("Text1")).text(), QStringLiteral("Mood Ann Lee(1).txt"));
        Click(dialog, QStringLiteral("ChkReportOptions_1"));
        Click(dialog, QStringLiteral("CMDOK"));
    });
    taking.Do(QStringLiteral("a"));
    QVERIFY(driver.Finished());
    QCOMPARE(BytesOf(taking.folder.filePath(QStringLiteral("Mood Ann Lee(1).txt"))), "MOOD REPORT\r\n\r\n\r\n");
}

void tst_frmtest::AutoReport_Cancelled_NothingWritten() {
    TestWindow taking(Questions);
    taking.Open();
    DialogDriver driver([](QDialog& dialog) { Press(dialog, Qt::Key_Escape); });
    taking.Do(QStringLiteral("a"));
    QVERIFY(driver.Finished());
    QVERIFY(QDir(taking.folder.path()).isEmpty());
    QVERIFY(!taking.session.AutoReportDone && !taking.session.ReportText.isEmpty());
    QCOMPARE(taking.session.ReportFilePath, NoReportFile);
}

void tst_frmtest::AutoReport_FileFails_ShownAndTold_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("read-only folder") << QStringLiteral("/proc/r.txt");
    QTest::newRow("full disk") << QStringLiteral("/dev/full");
}

void tst_frmtest::AutoReport_FileFails_ShownAndTold() {
    QFETCH(QString, path);
    TestWindow taking(Questions + QStringLiteral("[REPORT TITLE][REPORT DIR]blocked/x[/REPORT DIR]"));
    PutBytes(taking.folder.filePath(QStringLiteral("blocked")), "a file");
    taking.Open();
    taking.prompts.Expect(QStringLiteral("Can't make directory: blocked/x"));
    DialogDriver driver([&](QDialog& dialog) {
        QCOMPARE(Find<QLineEdit>(dialog, QStringLiteral("Text1")).text(), QStringLiteral("Mood.txt"));
        Find<QLineEdit>(dialog, QStringLiteral("Text1")).setText(path);
        Click(dialog, QStringLiteral("CMDOK"));
    });
    taking.Do(QStringLiteral("a"));
    QVERIFY(driver.Finished());
    QCOMPARE(taking.navigator.Calls, QStringList{QStringLiteral("ShowText(Report for Mood)")});
    QCOMPARE(taking.navigator.ShownTexts, QStringList{QStringLiteral("MOOD REPORT\r\n\r\n")});
    QVERIFY(taking.Seen(QStringLiteral("LblStatus")));
    QVERIFY2(taking.Status().contains(path), qPrintable(taking.Status()));
    QVERIFY(taking.launcher.Starts.isEmpty());
    taking.Do(QStringLiteral("1"));
    QCOMPARE(taking.Caption(), QStringLiteral("Question 2 of 4"));
    QVERIFY(taking.Seen(QStringLiteral("LblStatus")));
}

void tst_frmtest::AutoReport_OpenedInEditor_FailureTold() {
    TestWindow taking(Questions + Silent + Append + QStringLiteral("[OPEN REPORT WHEN COMPLETED]"));
    taking.launcher.FailWith = QStringLiteral("Can't start editor");
    taking.Open();
    taking.Do(AllAnswered);
    QCOMPARE(taking.launcher.Starts,
             (QList<RecordingLauncher::Start>{{QStringLiteral("editor"), QStringLiteral("Mood.txt")}}));
    QVERIFY(taking.Status().startsWith(QStringLiteral("Can't start editor\nThe report was saved in '")));
    QVERIFY(taking.navigator.ShownTexts.isEmpty());
}

void tst_frmtest::Speech_Question_ReadWithItsAnswers() {
    TestWindow taking(Questions + Buttons);
    taking.Open();
    const auto heard = [&] {
        const QAccessibleInterface* focus = QAccessible::queryAccessibleInterface(taking.window->focusWidget());
        return focus->text(QAccessible::Name) + u'|' + focus->text(QAccessible::Description) + u'|' +
               focus->parent()->text(QAccessible::Name);
    };
    QCOMPARE(heard().section(u'|', 0, 1), QStringLiteral("a|Question 1 of 4: One. Answer 1"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&taking.Control<QWidget>(QStringLiteral("FrmAnswer_0")))
                 ->text(QAccessible::Name),
             QStringLiteral("Question 1 of 4: One"));
    Press(*taking.window->focusWidget(), Qt::Key_Down);
    QCOMPARE(heard().section(u'|', 0, 1), QStringLiteral("b & c|Answer 2"));

    // As assistive technology presses it.
    QAccessible::queryAccessibleInterface(taking.window->focusWidget())
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
    QTRY_COMPARE(taking.session.Responses.ResponseChoice(1), 2);
    QCOMPARE(heard(), QStringLiteral("Short Answer|Question 2 of 4: Two|Question 2 of 4: Two"));
    taking.Do(QStringLiteral("d"));
    QVERIFY(heard().contains(QStringLiteral("Not accepted yet")));

    auto& status = taking.Control<QLabel>(QStringLiteral("LblStatus"));
    taking.session.Filed.ReportPath = QStringLiteral("/r.txt");
    taking.Do(QStringLiteral("b"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&status)->text(QAccessible::Name), taking.Status());
    QVERIFY(status.textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
    QVERIFY(status.focusPolicy() & Qt::TabFocus);
}

void tst_frmtest::TextSize_Keys_AllAndRemembered() {
    const QString ten =
        QStringLiteral("[A]%1[v=1][/A]").arg(QStringLiteral("quite a long answer ").repeated(12)).repeated(10);
    const QString text = QStringLiteral("[TITLE]T[/TITLE][Q]One%1[/Q][Q]Two[QT]3[/QT][/Q]").arg(ten) + Locked;
    TestWindow taking(text);
    taking.Open();
    const auto size = [&](const QString& name) { return taking.Control<QWidget>(name).font().pointSizeF(); };
    const QStringList read = {QStringLiteral("TxtQuest"),  QStringLiteral("Opt_1"),   QStringLiteral("framequest"),
                              QStringLiteral("CmdBegin"),  QStringLiteral("CmdBack"), QStringLiteral("txtanswer_1"),
                              QStringLiteral("LblStatus"), QStringLiteral("Label1_1")};
    QList<qreal> usual;
    for (const QString& name : read)
        usual += size(name);
    for (int i = 0; i < 20; ++i)
        Press(*taking.window->focusWidget(), Qt::Key_Plus, Qt::ControlModifier);
    for (qsizetype i = 0; i < read.size(); ++i)
        QVERIFY2(size(read[i]) > 2 * usual[i] && size(read[i]) < 3 * usual[i], qPrintable(read[i]));
    QCOMPARE(taking.store.Values.value(QStringLiteral("ReadingSize")), QStringLiteral("250"));

    // Every answer comes into view as the keys get to it.
    QTRY_VERIFY(taking.window->layout()->isEnabled());
    for (int a = 2; a <= 10; ++a) {
        Press(*taking.window->focusWidget(), Qt::Key_Down);
        QCOMPARE(taking.FocusName(), QStringLiteral("Opt_%1").arg(a));
        QVERIFY(!taking.window->focusWidget()->visibleRegion().isEmpty());
    }

    TestWindow next(text);
    next.store.Values = taking.store.Values;
    next.Open();
    QCOMPARE(next.Control<QWidget>(QStringLiteral("TxtQuest")).font().pointSizeF(), size(QStringLiteral("TxtQuest")));
    QWheelEvent turn({5, 5}, next.window->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::ControlModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(next.Control<QTextEdit>(QStringLiteral("TxtQuest")).viewport(), &turn);
    QCOMPARE(next.store.Values.value(QStringLiteral("ReadingSize")), QStringLiteral("200"));
    Press(*next.window, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(next.Control<QWidget>(QStringLiteral("Opt_1")).font().pointSizeF(), usual[1]);
    for (int i = 0; i < 20; ++i)
        Press(*next.window, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(next.Control<QWidget>(QStringLiteral("Opt_1")).font().pointSizeF() >= BodyFont().pointSizeF());

    TestWindow broken(text);
    broken.store.Values[QStringLiteral("ReadingSize")] = QStringLiteral("huge");
    broken.Open();
    QCOMPARE(broken.Control<QWidget>(QStringLiteral("Opt_1")).font().pointSizeF(), usual[1]);
}

void tst_frmtest::Letters_SeenAtOnce_Differ() {
    for (const QString& options : {Buttons, Buttons + Locked}) {
        TestWindow taking(Instructed + options);
        taking.office.Entries[SpreadsheetKey] = QStringLiteral("Excel.Sheet.8");
        taking.Open();
        const auto differ = [&] {
            QStringList letters;
            for (const QAction* menu : taking.window->menuBar()->actions())
                if (menu->isVisible())
                    letters += QKeySequence::mnemonic(menu->text()).toString();
            for (const auto* button : taking.window->findChildren<QPushButton*>())
                if (button->isVisible() && !button->objectName().startsWith(QStringLiteral("Opt_")))
                    letters += QKeySequence::mnemonic(button->text()).toString();
            letters.removeAll(QString());
            return letters.removeDuplicates() == 0;
        };
        QVERIFY(differ());
        taking.Do(QStringLiteral("s1t"));
        QVERIFY(differ());
        if (options == Buttons)
            Choose(*taking.window, QStringLiteral("mnutestshow_1"));
        QVERIFY(differ());
    }
    TestWindow plain(Questions);
    plain.Open();
    for (const int item : {1, 2})
        QVERIFY(!plain.Control<QAction>(QStringLiteral("mnutestshow_%1").arg(item)).isVisible());
}

QTEST_MAIN(tst_frmtest)
#include "tst_frmtest.moc"
