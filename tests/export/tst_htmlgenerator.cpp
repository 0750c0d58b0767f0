#include "export/HtmlGenerator.h"
#include "export/HtmlTemplate.h"
#include "support/Files.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Two sub-scales of 2 and 3 ranges, two total ranges; a template; questions of every kind.
const QString Test = QStringLiteral(
    "[TITLE]Mum's \"day\"[/TITLE][INTRODUCTION]One<P>Two[/INTRODUCTION][INSTRUCTIONS]Do 'it'[/INSTRUCTIONS]"
    "[COMPLETION MESSAGE]Bye<P><P>Bye[/COMPLETION MESSAGE]"
    "[SUBSCALES][S]Mum's[SIG]-3 to 1 =it's low[/SIG][SIG]2 to 4 =high[/SIG][/S]"
    "[S]Mood[SIG]0 to 1 =a[/SIG][SIG]2 to 3 =b[/SIG][SIG]4 to 5 =c[/SIG][/S][/SUBSCALES]"
    "[TOTAL][SIG]-2 to 3 =don't[/SIG][SIG]4 to 9 =do[/SIG][/TOTAL]"
    "[TEMPLATE][A]No[v=0][/A][A]Yes[v=1][/A][/TEMPLATE]"
    "[Q]What's up?[A]a[v=1][/A][A]b[v=-2][/A][SS=1][/Q][Q]From the template[/Q][Q]Short[QT]2[/QT][SS=2][/Q]"
    "[Q]Long[QT]3[/QT][/Q]");

struct Generation {
    Generation() { session.Test = TestFromText(Test); }

    /// The page made with a template of this text.
    QString Page(const QString& templateText) {
        session.HtmlTemplatePath = folder.filePath(QStringLiteral("T.vlx"));
        PutBytes(session.HtmlTemplatePath, templateText.toUtf8());
        const Result result = GenerateHtml(session, prompts, {});
        failed = !result;
        return session.GeneratedHtml;
    }
    /// Questions of an unknown type leave nothing in a page, not even line breaks.
    void HideQuestions() { session.Test.QuestionType.Fill(9); }
    /// What becomes of a text in the header.
    QString Filled(const QString& text) {
        HideQuestions();
        return Page(QStringLiteral("[HEADER]") + text + QStringLiteral("[/HEADER]"));
    }

    void ExpectTemplateMessage() {
        prompts.Expect(QStringLiteral("Error loading HTML template file: ") + session.HtmlTemplatePath)
            .WithButtons(PromptButtons::Ok);
    }

    QTemporaryDir folder;
    Session session;
    ScriptedPrompts prompts;
    bool failed = false;
};

/// A text with "|" in the place of each line break.
QString Bars(QString text) { return text.replace(QStringLiteral("\r\n"), QStringLiteral("|")); }

} // namespace

class tst_htmlgenerator : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void GenerateHtml_WholeTemplateTag_FilledInHeader_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("filled");
        const auto row = [](const char* text, const char* filled) {
            QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(filled);
        };
        row("[TEST TITLE]", "Mum's \"day\"");
        row("[Test Title]", "[Test Title]");
        row("[INSTRUCTIONS]", "Do 'it'");
        row("[INTRODUCTION]", "One<P>Two");
        row("[COMPLETION MESSAGE]", "Bye<P><P>Bye");
        row("[EMAIL]", "me@example.com");
        row("[NEXT PAGE]", "next.html");
        row("[LANGUAGE]", "de-AT");
        row("[TOTAL NUMBER OF QUESTIONS]", "4");
        row("[TOTAL NUMBER OF SUBSCALES]", "2");
        row("[TOTAL NUMBER OF ANALYSIS]", "2");
        row("[TOTAL NUMBER OF SUBSCALE ANALYSIS]", "5");
        row("[SUBSCALE TEXT ARRAY]", "'Mum\\'s','Mood'");
        row("[QUESTION TEXT ARRAY]", "'What\\'s up?','From the template','Short','Long'");
        row("[QUESTION SUBSCALE ARRAY]", "1,0,2,0");
        row("[EMAIL][EMAIL] [NEXT PAGE]", "me@example.comme@example.com next.html");
        row("[EM[EMAIL]AIL]", "[EMme@example.comAIL]");
        row("[QUESTION NO][ANSWER]", "[QUESTION NO][ANSWER]");
        row("[UNKNOWN]", "[UNKNOWN]");
        row("[TOTAL ANALYSIS]([ANALYSIS NUMBER] [ANALYSIS LOW] [ANALYSIS HIGH] [ANALYSIS TEXT])[/TOTAL ANALYSIS]!",
            "(1 -2 3 don\\'t)(2 4 9 do)!");
        row("[SUBSCALE ANALYSIS][ANALYSIS NUMBER]/[ANALYSIS SUBSCALE TYPE]/[ANALYSIS LOW]/[ANALYSIS HIGH]/"
            "[ANALYSIS TEXT];[/SUBSCALE ANALYSIS]",
            "1/1/-3/1/it\\'s low;2/1/2/4/high;3/2/0/1/a;4/2/2/3/b;5/2/4/5/c;");
        row("[TOTAL ANALYSIS]x[/TOTAL ANALYSIS]-[TOTAL ANALYSIS]x[/TOTAL ANALYSIS]", "xx-xx");
        row("[TOTAL ANALYSIS]x[/TOTAL ANALYSIS]-[TOTAL ANALYSIS]y[/TOTAL ANALYSIS]",
            "xx-[TOTAL ANALYSIS]y[/TOTAL ANALYSIS]");
        row("[total analysis]x[/total analysis]", "[total analysis]x[/total analysis]");
        row("[TOTAL ANALYSIS][/TOTAL ANALYSIS]", "[TOTAL ANALYSIS][/TOTAL ANALYSIS]");
        row("[TOTAL ANALYSIS][ANALYSIS SUBSCALE TYPE][/TOTAL ANALYSIS]",
            "[ANALYSIS SUBSCALE TYPE][ANALYSIS SUBSCALE TYPE]");
    }
    void GenerateHtml_WholeTemplateTag_FilledInHeader() {
        QFETCH(QString, text);
        Generation generation;
        generation.session.HtmlEmailAddress = QStringLiteral("me@example.com");
        generation.session.HtmlNextPage = QStringLiteral("next.html");
        generation.session.HtmlLanguage = QStringLiteral("de-AT");
        QTEST(Bars(generation.Filled(text)), "filled");
    }

    void GenerateHtml_EmptyTexts_LeaveTheirTags() {
        Generation generation;
        generation.session.Test = TestFromText(QStringLiteral("[Q]x[/Q]"));
        const QString texts = QStringLiteral("[INSTRUCTIONS][INTRODUCTION][COMPLETION MESSAGE]");
        QCOMPARE(generation.Filled(texts), texts);
        QCOMPARE(generation.Filled(QStringLiteral("[TEST TITLE]<[EMAIL][SUBSCALE TEXT ARRAY]>"
                                                  "[TOTAL ANALYSIS]x[/TOTAL ANALYSIS]"
                                                  "[SUBSCALE ANALYSIS]x[/SUBSCALE ANALYSIS]"
                                                  "[TOTAL NUMBER OF SUBSCALE ANALYSIS]")),
                 QStringLiteral("Untitled<>0"));
    }

    void GenerateHtml_WholeTemplate_ExactPage() {
        Generation generation;
        const QString page = generation.Page(
            QStringLiteral("outside\n[DESCRIPTION]d[/DESCRIPTION]\n[header]H[TEST TITLE]\n[/Header]\n"
                           "[MULTICHOICE]before[Q]Q[QUESTION NO] [QUESTION TEXT]<[ANSWER]|[ANSWER VALUE]>[/Q]between\n"
                           "[A]A[QUESTION NO] [ANSWER]=[ANSWER VALUE][/A]end[/A]\n[/MULTICHOICE]\n"
                           "[SHORT ANSWER]S[QUESTION NO] [QUESTION TEXT]<[ANSWER]>\r\n[/SHORT ANSWER]\n"
                           "[LONG ANSWER]L[QUESTION TEXT][EMAIL][/LONG ANSWER][FOOTER]F\rF[/FOOTER]"));
        QCOMPARE(Bars(page), QStringLiteral("HMum's \"day\"|"
                                            "Q1 What's up?<|>|A1 a=1|A1 b=-2|end[/A]|||"
                                            "Q2 From the template<|>|A2 No=0|A2 Yes=1|end[/A]|||"
                                            "S3 Short<>|||LLong||F|F"));
    }

    void GenerateHtml_Lines_EachEndsWithCrLf_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("header");
        QTest::newRow("line feeds") << QByteArray("[HEADER]a\nb\n\n[/HEADER]") << QStringLiteral("a|b||");
        QTest::newRow("all kinds") << QByteArray("[HEADER]a\rb\r\nc\n[/HEADER]\n") << QStringLiteral("a|b|c|");
        QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF[HEADER]\xC3\xA4[/HEADER]") << QStringLiteral("ä");
        QTest::newRow("code page") << QByteArray("[HEADER]\x93\xE4[/HEADER]") << QStringLiteral("“ä");
    }
    void GenerateHtml_Lines_EachEndsWithCrLf() {
        QFETCH(QByteArray, bytes);
        Generation generation;
        generation.session.HtmlTemplatePath = generation.folder.filePath(QStringLiteral("T.vlx"));
        PutBytes(generation.session.HtmlTemplatePath, bytes);
        generation.HideQuestions();
        QVERIFY(GenerateHtml(generation.session, generation.prompts, {}).Ok());
        QTEST(Bars(generation.session.GeneratedHtml), "header");
    }

    void GenerateHtml_KindsOfQuestions_TheirParts() {
        Generation generation;
        TestDocument& test = generation.session.Test;
        test.QuestionCount = 5;
        test.QuestionType(5) = 4;
        // Without answers of its own it is a template question, as the test window and a saved file have it.
        test.QuestionType(2) = Multichoice;
        test.AnswerValue(1, 1) = Value(QStringLiteral("2,5"));
        QCOMPARE(
            Bars(generation.Page(QStringLiteral("[MULTICHOICE][Q]q[QUESTION NO][/Q][A][ANSWER VALUE][/A][/MULTICHOICE]"
                                                "[SHORT ANSWER]s[/SHORT ANSWER]"))),
            QStringLiteral("q1|2,5|-2|||q2|0|1|||s||||"));
    }

    void GenerateHtml_NoAnswerEnd_KeepsTheClosingPart() {
        Generation generation;
        generation.session.Test = TestFromText(QStringLiteral("[Q]x[A]y[v=1][/A][/Q]"));
        const QString without = QStringLiteral("[MULTICHOICE][Q]q[/Q][a]a[/a]e[/MULTICHOICE]");
        QCOMPARE(Bars(generation.Page(without)), QStringLiteral("q|a|||"));
        QCOMPARE(Bars(generation.Page(QStringLiteral("[MULTICHOICE][Q]q[/Q][A]a[/A]end[/MULTICHOICE]"))),
                 QStringLiteral("q|a|end||"));
        QCOMPARE(Bars(generation.Page(without)), QStringLiteral("q|a|end||"));
    }

    void GenerateHtml_NoClosingTag_BothMessages_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("tag");
        QTest::newRow("header") << "[HEADER]x"
                                << "[/HEADER]";
        QTest::newRow("block") << "[HEADER][Subscale Analysis][/HEADER]"
                               << "[/SUBSCALE ANALYSIS]";
        QTest::newRow("answer") << "[MULTICHOICE][A][/MULTICHOICE][/A]"
                                << "[/A]";
    }
    void GenerateHtml_NoClosingTag_BothMessages() {
        QFETCH(QString, text);
        QFETCH(QString, tag);
        Generation generation;
        generation.session.GeneratedHtml = QStringLiteral("old");
        generation.session.HtmlTemplatePath = generation.folder.filePath(QStringLiteral("T.vlx"));
        generation.prompts.Expect(QStringLiteral("I can't find the ") + tag + QStringLiteral("tag in the file: ") +
                                  generation.session.HtmlTemplatePath);
        generation.ExpectTemplateMessage();
        QCOMPARE(generation.Page(text), QString());
        QVERIFY(generation.failed);
    }

    void GenerateHtml_UnusableTemplate_OneMessage_data() {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"missing", "folder", "no name", "no text", "past the limit"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void GenerateHtml_UnusableTemplate_OneMessage() {
        QFETCH(QString, kind);
        Generation generation;
        QString& path = generation.session.HtmlTemplatePath;
        path = generation.folder.filePath(QStringLiteral("T.vlx"));
        if (kind == QStringLiteral("folder"))
            path = generation.folder.path();
        else if (kind == QStringLiteral("no name"))
            path.clear();
        else if (kind == QStringLiteral("no text"))
            PutBytes(path, QByteArray("[HEADER]\0[/HEADER]", 18));
        else if (kind == QStringLiteral("past the limit"))
            PutBytes(path, "[HEADER][/HEADER]" + QByteArray(50 << 20, 'x'));
        generation.session.GeneratedHtml = QStringLiteral("old");
        generation.ExpectTemplateMessage();
        QVERIFY(!GenerateHtml(generation.session, generation.prompts, {}).Ok());
        QCOMPARE(generation.session.GeneratedHtml, QString());
    }

    void GenerateHtml_ValueWithItsOwnTag_FailsAtOnce_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("fails");
        QTest::newRow("e-mail") << "[HEADER][EMAIL][/HEADER]" << true;
        QTest::newRow("e-mail that isn't used") << "[HEADER]x[/HEADER]" << false;
        QTest::newRow("question") << "[MULTICHOICE][Q][QUESTION TEXT][/Q][/MULTICHOICE]" << true;
        QTest::newRow("range") << "[TOTAL ANALYSIS][ANALYSIS TEXT][/TOTAL ANALYSIS]" << true;
        QTest::newRow("another's tag") << "[HEADER][NEXT PAGE][/HEADER]" << false;
    }
    void GenerateHtml_ValueWithItsOwnTag_FailsAtOnce() {
        QFETCH(QString, text);
        QFETCH(bool, fails);
        Generation generation;
        generation.session.HtmlEmailAddress = QStringLiteral("a[EMAIL]b");
        generation.session.HtmlNextPage = QStringLiteral("[EMAIL]");
        generation.session.Test.QuestionText(1) = QStringLiteral("[QUESTION TEXT]");
        generation.session.Test.TotalRangeText(2) = QStringLiteral("[ANALYSIS TEXT]");
        generation.session.HtmlTemplatePath = generation.folder.filePath(QStringLiteral("T.vlx"));
        if (fails)
            generation.ExpectTemplateMessage();
        generation.Page(text);
        QCOMPARE(generation.failed, fails);
    }

    void GenerateHtml_PastTheLastOwnAnswers_TheTemplates() {
        for (const int type : {TypeUnset, Multichoice}) {
            Generation generation;
            generation.HideQuestions();
            generation.session.Test.QuestionCount = MaxQuestionsWithAnswers + 1;
            generation.session.Test.QuestionType(MaxQuestionsWithAnswers + 1) = type;
            QCOMPARE(Bars(generation.Page(QStringLiteral("[MULTICHOICE][A][ANSWER][/A][/MULTICHOICE]"))),
                     QStringLiteral("|No|Yes|||"));
        }
    }

    void GenerateHtml_PageThatWouldFillTheMemory_Fails() {
        Generation generation;
        generation.session.HtmlEmailAddress = QString(100'000, u'x');
        generation.session.HtmlTemplatePath = generation.folder.filePath(QStringLiteral("T.vlx"));
        generation.ExpectTemplateMessage();
        generation.Filled(QStringLiteral("[EMAIL]").repeated(100'000));
        QVERIFY(generation.failed);
    }

    void TestData_HostileTexts_AreEscaped() {
        Generation generation;
        generation.session.Test = TestFromText(QStringLiteral(
            "[SUBSCALES][S]M[SIG]0 to 1 =a[/SIG][/S][/SUBSCALES][TOTAL][SIG]-2 to 3 =b[/SIG][/TOTAL]"
            "[TEMPLATE][A]No[v=0][/A][/TEMPLATE][Q]own[A]y[v=2][/A][SS=1][/Q][Q]template's[/Q][Q]s[QT]2[/QT][/Q]"));
        generation.session.Test.TestTitle =
            QStringLiteral("</a>\"'&`[EMAIL]\\\r\n\u2028\u00e4") + QChar(0) + QChar(0xd800);
        generation.session.Test.SubscaleRangeHigh(1, 1) = Value(QStringLiteral("x"));
        generation.session.HtmlNextPage = QStringLiteral("[TEST DATA]");
        generation.session.HtmlLanguage = QStringLiteral("de");
        QCOMPARE(
            generation.Page(QStringLiteral("[HEADER][TEST DATA][/HEADER]")).trimmed(),
            QStringLiteral(
                R"({"title":"\u003c/a\u003e\u0022\u0027\u0026\u0060\u005bEMAIL\u005d\u005c\r\n\u2028\u00e4\u0000\ud800",)"
                R"("introduction":"","instructions":"","completionMessage":"","email":"","nextPage":"\u005bTEST DATA\u005d",)"
                R"("language":"de","subscales":[{"name":"M","ranges":[{"low":"0","high":"x","text":"a"}]}],)"
                R"("totalRanges":[{"low":"-2","high":"3","text":"b"}],"questions":[)"
                R"({"kind":"choice","text":"own","subscale":1,"answers":[{"text":"y","value":"2"}]},)"
                R"({"kind":"choice","text":"template\u0027s","subscale":0,"answers":[{"text":"No","value":"0"}]},)"
                R"({"kind":"short","text":"s","subscale":0,"answers":[]}]})"));
    }

    void FillTag_PiecesThatMakeTheTagAnew_AreFilledToo() {
        QString text = QStringLiteral("[EM[EM[EMAIL]AIL]AIL]x");
        FillTag(text, QStringLiteral("[EMAIL]"), QString());
        QCOMPARE(text, QStringLiteral("x"));
    }

    void ExpandQuestionPart_Tags_InTheirOrder() {
        TestDocument test = TestFromText(Test);
        test.QuestionText(1) = QStringLiteral("[ANSWER][QUESTION NO]");
        test.AnswerText(1, 1) = QStringLiteral("[ANSWER VALUE][QUESTION TEXT]");
        QCOMPARE(ExpandQuestionPart(test, QStringLiteral("[QUESTION NO]:[QUESTION TEXT]"), 1, 1),
                 QStringLiteral("1:1[QUESTION TEXT][QUESTION NO]"));
        QCOMPARE(ExpandQuestionPart(test, QStringLiteral("<[ANSWER][ANSWER VALUE]>"), 1, 0), QStringLiteral("<>"));
        QCOMPARE(ExpandQuestionPart(test, QStringLiteral("[ANSWER]"), 1, 3), QString());
    }

    void GenerateHtml_RelativePath_FromHereOrBesideTheProgram() {
        Generation generation;
        generation.HideQuestions();
        const QDir here(generation.folder.path());
        QVERIFY(here.mkpath(QStringLiteral("work")) && here.mkpath(QStringLiteral("bin")) &&
                here.mkpath(QStringLiteral("share/vellumo/templates")));
        const QString program = here.filePath(QStringLiteral("bin"));
        QDir::setCurrent(here.filePath(QStringLiteral("work")));
        generation.session.HtmlTemplatePath = QStringLiteral("T.vlx");
        generation.ExpectTemplateMessage();
        QVERIFY(!GenerateHtml(generation.session, generation.prompts, program).Ok());
        for (const char* place : {"share/vellumo/templates", "bin", "work"}) {
            const QString name = QString::fromLatin1(place);
            PutBytes(here.filePath(name + QStringLiteral("/T.vlx")), "[HEADER]" + name.toUtf8() + "[/HEADER]");
            QVERIFY(GenerateHtml(generation.session, generation.prompts, program).Ok());
            QCOMPARE(generation.session.GeneratedHtml, name);
        }
        QDir::setCurrent(QDir::rootPath());
    }
};

QTEST_GUILESS_MAIN(tst_htmlgenerator)
#include "tst_htmlgenerator.moc"
