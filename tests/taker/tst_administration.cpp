#include "support/TestText.h"
#include "taker/Administration.h"
#include "taker/Scoring.h"

#include <QtTest>

namespace {

const QString Three = QStringLiteral("[TITLE]Mood[/TITLE]"
                                     "[Q]One[A]a[v=1][/A][A]b[v=2][/A][A][v=3][/A][A]d[v=4][/A][/Q]"
                                     "[Q]Two[QT]2[/QT][/Q]"
                                     "[Q]Three[A]a[v=1][/A][A]b[v=2][/A][/Q]");
const QString WithButtons = QStringLiteral("[NAVIGATION BUTTONS]");

struct Taking {
    explicit Taking(const QString& text) {
        session.Test = TestFromText(text);
        course.emplace(session);
    }
    // b back, f forward, digits choose, t types, d leaves a draft, c continues.
    void Do(const QString& steps) {
        for (const QChar step : steps) {
            if (step == u'b')
                course->Back();
            else if (step == u'f')
                course->Forward();
            else if (step == u't')
                course->AcceptText(QStringLiteral("typed"));
            else if (step == u'd')
                course->TakeDraft(QStringLiteral("draft"));
            else if (step == u'c')
                QVERIFY(course->Continue());
            else
                course->Choose(step.digitValue());
        }
    }

    Session session;
    std::optional<Administration> course;
};

} // namespace

class tst_administration : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Navigation_Steps_Position_data();
    void Navigation_Steps_Position();
    void CannotAnswer_Continue_NotAnswered_data();
    void CannotAnswer_Continue_NotAnswered();
    void Drafts_Completion_AskedOnce();
    void Completeness_Scales_CountTheirQuestions();
    void Load_Texts_FirstPage();
    void Choose_HiddenAnswer_Refused();
    void Choose_Answer_Recorded();
    void Buttons_Options_Visibility_data();
    void Buttons_Options_Visibility();
    void CompletedPage_Buttons_OnlyThoseThere();
    void Completion_Options_WhatRunsByItself_data();
    void Completion_Options_WhatRunsByItself();
    void QuestionListing_Test_ExactText();
    void CanBegin_NoQuestions_Refused();
};

void tst_administration::Navigation_Steps_Position_data() {
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("furthest");
    QTest::newRow("begin") << QString() << QStringLiteral("Question 1 of 3") << 0;
    QTest::newRow("one answer") << QStringLiteral("1") << QStringLiteral("Question 2 of 3") << 1;
    QTest::newRow("back") << QStringLiteral("1b") << QStringLiteral("Question 1 of 3") << 1;
    QTest::newRow("back wraps to the furthest") << QStringLiteral("1tbbb") << QStringLiteral("Question 2 of 3") << 2;
    QTest::newRow("forward ends at the first unanswered")
        << QStringLiteral("1bff") << QStringLiteral("Question 2 of 3") << 1;
    QTest::newRow("completed") << QStringLiteral("1t2") << QStringLiteral("Completed") << 3;
    QTest::newRow("forward wraps after the last") << QStringLiteral("1t2f") << QStringLiteral("Question 1 of 3") << 3;
    QTest::newRow("back from completed") << QStringLiteral("1t2b") << QStringLiteral("Question 2 of 3") << 3;
    QTest::newRow("completed again") << QStringLiteral("1t2bt1") << QStringLiteral("Completed") << 3;
    QTest::newRow("an earlier answer changed goes on")
        << QStringLiteral("1t2bb2") << QStringLiteral("Question 2 of 3") << 3;
}

void tst_administration::Navigation_Steps_Position() {
    QFETCH(QString, steps);
    Taking taking(Three + WithButtons);
    taking.Do(steps);
    QTEST(taking.course->FrameCaption(), "caption");
    QTEST(taking.session.Responses.FurthestQuestion, "furthest");
}

void tst_administration::CannotAnswer_Continue_NotAnswered_data() {
    QTest::addColumn<QString>("questions"); // a: answers, x: none that can be chosen, 7: a type that doesn't exist
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("furthest");
    QTest::newRow("first") << "xa"
                           << "c"
                           << "Question 2 of 2" << 0;
    QTest::newRow("back to it and on") << "xa"
                                       << "cbc"
                                       << "Question 2 of 2" << 0;
    QTest::newRow("between") << "a7a"
                             << "1c1"
                             << "Completed" << 3;
    QTest::newRow("forward doesn't pass it") << "axa"
                                             << "1cbbf"
                                             << "Question 2 of 3" << 1;
    QTest::newRow("last completes") << "ax"
                                    << "1c"
                                    << "Completed" << 1;
    QTest::newRow("nothing else") << "x7"
                                  << "cc"
                                  << "Completed" << 0;
    QTest::newRow("back from the end") << "ax"
                                       << "1cbfc"
                                       << "Completed" << 1;
}

void tst_administration::CannotAnswer_Continue_NotAnswered() {
    QFETCH(QString, questions);
    QFETCH(QString, steps);
    QString text;
    for (const QChar kind : questions)
        text += QStringLiteral("[Q]q%1[/Q]")
                    .arg(kind == u'a'   ? QStringLiteral("[A]a[v=1][/A]")
                         : kind == u'x' ? QString()
                                        : QStringLiteral("[QT]7[/QT]"));
    Taking taking(text + WithButtons);
    taking.Do(steps);
    QTEST(taking.course->FrameCaption(), "caption");
    QTEST(taking.session.Responses.FurthestQuestion, "furthest");
    QCOMPARE(taking.course->CannotAnswer().isEmpty(),
             taking.course->Page() == TestPage::Completed || questions[taking.course->CurrentQuestion() - 1] == u'a');
}

void tst_administration::Drafts_Completion_AskedOnce() {
    const auto after = [](DraftsDecision decision, const QString& steps) {
        Taking taking(Three + WithButtons);
        taking.Do(QStringLiteral("1tbdf2"));
        const ResponseSet& responses = taking.session.Responses;
        if (!taking.course->WaitsForDecision() || responses.TestCompleted)
            return QStringLiteral("completed without a question");
        taking.course->Decide(decision);
        taking.Do(steps);
        return taking.course->FrameCaption() + u' ' + responses.ResponseText(2) + u' ' +
               QString::number(responses.Drafts.size()) +
               (taking.course->WaitsForDecision() ? QStringLiteral(" waits") : QString());
    };
    QCOMPARE(after(DraftsDecision::Accept, QString()), QStringLiteral("Completed draft 0"));
    QCOMPARE(after(DraftsDecision::GoBack, QString()), QStringLiteral("Question 2 of 3 typed 1"));
    QCOMPARE(after(DraftsDecision::Leave, QString()), QStringLiteral("Completed typed 1"));
    QCOMPARE(after(DraftsDecision::Leave, QStringLiteral("bf1")), QStringLiteral("Completed typed 1"));
    QCOMPARE(after(DraftsDecision::GoBack, QStringLiteral("f1")), QStringLiteral("Question 3 of 3 typed 1 waits"));
    QCOMPARE(after(DraftsDecision::GoBack, QStringLiteral("t1")), QStringLiteral("Completed typed 0"));
}

void tst_administration::Completeness_Scales_CountTheirQuestions() {
    Taking taking(QStringLiteral("[SUBSCALES][S]Ease[/S][S]None[/S][/SUBSCALES]"
                                 "[Q]1[A]a[v=1][/A][SS=1][/Q][Q]2[A]a[v=0][/A][SS=1][/Q]"
                                 "[Q]3[QT]2[/QT][/Q][Q]4[/Q][Q]5[A]a[v=1][/A][/Q]"));
    taking.Do(QStringLiteral("1"));
    const auto scales = CompletenessOf(taking.session.Test, taking.session.Responses);
    QCOMPARE(scales.size(), size_t(3));
    QCOMPARE(scales[0].Text(), QStringLiteral("answered 1 of 3"));
    QCOMPARE(scales[1].Text(), QStringLiteral("answered 1 of 2"));
    QCOMPARE(scales[2].Text(), QString());
    taking.Do(QStringLiteral("1tc1"));
    QVERIFY(!CompletenessOf(taking.session.Test, taking.session.Responses)[0].Incomplete());
}

void tst_administration::Load_Texts_FirstPage() {
    Taking plain(Three);
    QCOMPARE(plain.course->Page(), TestPage::Question);
    QVERIFY(!plain.course->BeginVisible());

    Taking instructed(Three + QStringLiteral("[INSTRUCTIONS]Do[/INSTRUCTIONS]"));
    QCOMPARE(instructed.course->FrameCaption(), QStringLiteral("INSTRUCTIONS"));
    QCOMPARE(instructed.course->PageText(), QStringLiteral("Do"));
    QVERIFY(instructed.course->BeginVisible());
    QCOMPARE(instructed.course->BeginCaption(), QStringLiteral("&Begin Test"));
    instructed.course->Begin();
    instructed.Do(QStringLiteral("1"));
    instructed.course->ShowIntroduction();
    QCOMPARE(instructed.course->BeginCaption(), QStringLiteral("&Resume Test"));
    instructed.course->Begin();
    QCOMPARE(instructed.course->FrameCaption(), QStringLiteral("Question 2 of 3"));
}

void tst_administration::Choose_HiddenAnswer_Refused() {
    Taking taking(Three);
    for (const int a : {0, 3, 5, 11}) {
        QVERIFY(!taking.course->Choose(a));
        QCOMPARE(taking.course->CurrentQuestion(), 1);
    }
    QVERIFY(taking.course->AnswerOffered(4));
    taking.Do(QStringLiteral("1"));
    QVERIFY2(!taking.course->Choose(1), "a typed question has no buttons");
}

void tst_administration::Choose_Answer_Recorded() {
    Taking taking(Three);
    taking.Do(QStringLiteral("4t"));
    QCOMPARE(taking.session.Responses.ResponseChoice(1), 4);
    QCOMPARE(taking.session.Responses.ResponseValue(1), 4);
    QCOMPARE(taking.session.Responses.ResponseText(2), QStringLiteral("typed"));
}

void tst_administration::Buttons_Options_Visibility_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("steps");
    // Back, Forward, Report, Export, Auto-report, in capitals where they are seen.
    QTest::addColumn<QString>("seen");
    const QString nav = WithButtons;
    const QString locked = QStringLiteral("[DISABLE ALL OPTIONS]");
    const QString whenDone = QStringLiteral("[REPORT ONLY WHEN DONE]");
    QTest::newRow("first question") << nav << QString() << QStringLiteral("bfREA");
    QTest::newRow("second question") << nav << QStringLiteral("1") << QStringLiteral("BfREA");
    QTest::newRow("back again") << nav << QStringLiteral("1b") << QStringLiteral("BFREA");
    QTest::newRow("without navigation") << QString() << QStringLiteral("1") << QStringLiteral("bfREA");
    QTest::newRow("without navigation, after completion")
        << QString() << QStringLiteral("1t2b") << QStringLiteral("BfREA");
    QTest::newRow("completed") << nav << QStringLiteral("1t2") << QStringLiteral("BFREA");
    QTest::newRow("locked") << locked << QStringLiteral("1") << QStringLiteral("bfrea");
    QTest::newRow("locked, completed") << locked << QStringLiteral("1t2") << QStringLiteral("BfRea");
    QTest::newRow("only when done") << whenDone << QStringLiteral("1") << QStringLiteral("bfrea");
    QTest::newRow("only when done, completed") << whenDone << QStringLiteral("1t2") << QStringLiteral("BfREA");
}

void tst_administration::Buttons_Options_Visibility() {
    QFETCH(QString, options);
    QFETCH(QString, steps);
    Taking taking(Three + options);
    taking.course->SetSpreadsheetInstalled(true);
    taking.Do(steps);
    const auto seen = [](char16_t letter, bool visible) { return visible ? QChar(letter) : QChar(letter).toLower(); };
    const Administration& course = *taking.course;
    QTEST(QString(seen(u'B', course.BackVisible())) + seen(u'F', course.ForwardVisible()) +
              seen(u'R', course.ReportVisible()) + seen(u'E', course.ExportVisible()) +
              seen(u'A', course.AutoReportVisible()),
          "seen");
}

void tst_administration::CompletedPage_Buttons_OnlyThoseThere() {
    const QString done =
        QStringLiteral("You have completed the 'Mood'.\r\nClick the 'Report' button to create a report, "
                       "or use the ");
    const QString view = QStringLiteral(" to view and edit your responses.");
    const QString message = QStringLiteral("[COMPLETION MESSAGE]Thanks<P>a lot[/COMPLETION MESSAGE]");
    for (const auto& [options, buttons] : {std::pair(QString(), QStringLiteral("'Back' button")),
                                           std::pair(WithButtons, QStringLiteral("'Back' and 'Forward' buttons"))}) {
        Taking taking(Three + message + options);
        taking.Do(QStringLiteral("1t1"));
        QCOMPARE(taking.course->ForwardVisible(), !options.isEmpty());
        QCOMPARE(taking.course->PageText(), done + buttons + view + QStringLiteral("\r\nThanks\r\na lot"));
    }
}

void tst_administration::Completion_Options_WhatRunsByItself_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<bool>("exports");
    QTest::addColumn<bool>("reports");
    QTest::newRow("none") << QString() << false << false;
    QTest::newRow("prompting off alone") << QStringLiteral("[UPDATE FILES WITHOUT PROMPTING]") << false << false;
    QTest::newRow("report as client") << QStringLiteral("[AUTOSAVE REPORT AS CLIENT]") << false << true;
    QTest::newRow("directory as client") << QStringLiteral("[AUTOSAVE REPORT DIRECTORY AS CLIENT]") << false << true;
    QTest::newRow("append") << QStringLiteral("[APPEND TO REPORT FILE]") << false << true;
    QTest::newRow("workbook name") << QStringLiteral("[EXCEL FILE NAME]x[/EXCEL FILE NAME]") << true << false;
    QTest::newRow("include date") << QStringLiteral("[INCLUDE DATE IN EXCEL FILE]") << true << false;
    QTest::newRow("open workbook alone") << QStringLiteral("[OPEN EXCEL REPORT WHEN COMPLETED]") << false << false;
}

void tst_administration::Completion_Options_WhatRunsByItself() {
    QFETCH(QString, options);
    Taking taking(Three + options);
    taking.Do(QStringLiteral("1t1"));
    QTEST(taking.course->WantsSpreadsheetExport(), "exports");
    QTEST(taking.course->WantsAutoReport(), "reports");
    taking.session.AutoReportDone = taking.session.SpreadsheetExported = true;
    QVERIFY(!taking.course->WantsSpreadsheetExport() && !taking.course->WantsAutoReport());
}

void tst_administration::QuestionListing_Test_ExactText() {
    const TestDocument test = TestFromText(Three + QStringLiteral("[INSTRUCTIONS]Do[/INSTRUCTIONS]"));
    QCOMPARE(QuestionListing(test),
             QStringLiteral("Mood\r\n\r\nINSTRUCTIONS\r\n\r\nDo\r\n\r\n\r\n"
                            "QUESTION 1\r\nOne\r\n[ ] a\r\n[ ] b\r\n[ ] d\r\n\r\n"
                            "QUESTION 2\r\nTwo\r\n\r\nQUESTION 3\r\nThree\r\n[ ] a\r\n[ ] b\r\n\r\n"));
}

void tst_administration::CanBegin_NoQuestions_Refused() {
    QCOMPARE(CanBegin(TestFromText(QStringLiteral("[TITLE]Mood[/TITLE]"))).Message(),
             QStringLiteral("The test 'Mood' has no questions."));
    QVERIFY(CanBegin(TestFromText(Three)));
}

QTEST_GUILESS_MAIN(tst_administration)
#include "tst_administration.moc"
