#include "Program.h"

#include "editor/ui/TextBox.h"

#include <QTextEdit>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

/// Writes a questionnaire as its author does: from the start screen, page by page, with keyboard and mouse.
struct Author : Program {
    Author() { navigator.ShowStartScreen(); }

    frmTestEditor& Editor() { return *navigator.Editor(); }
    void ClickOn(const QString& name) { Click(Editor(), name); }
    void NextPage() { Press(Editor(), Qt::Key_Tab, Qt::ControlModifier); }
    void Write(const QString& name, const QString& text) {
        auto& box = Find<QWidget>(Editor(), name);
        box.setFocus();
        Press(box, Qt::Key_A, Qt::ControlModifier);
        Type(box, text);
    }
    void Tick(std::initializer_list<int> options) {
        for (const int i : options)
            ClickOn(u"ChkReportOptions_%1"_s.arg(i));
    }
    void AddRange(const QString& low, const QString& high, const QString& text) {
        Write(u"txtSubScaleSigLow"_s, low);
        Write(u"txtSubScaleSigHigh"_s, high);
        Write(u"txtSubScaleSig"_s, text);
        ClickOn(u"CmdSubScaleAdd_2"_s);
    }
    void AddTotalRange(const QString& low, const QString& high, const QString& text) {
        Write(u"txtTotLow"_s, low);
        Write(u"txtTotHigh"_s, high);
        Write(u"txtTotText"_s, text);
        ClickOn(u"CmdTotalAdd_0"_s);
    }
    void AddTemplateAnswer(const QString& text, const QString& value) {
        Write(u"txtTemplate"_s, text);
        Write(u"txtValueTemplate"_s, value);
        ClickOn(u"Cmdtemplate_0"_s);
    }
    void AddQuestion(const QString& text, int type, int subscale) {
        Write(u"txtQuestion"_s, text);
        ClickOn(u"ChkQType_%1"_s.arg(type));
        auto& list = Find<QComboBox>(Editor(), u"QuestionSS"_s);
        list.setFocus();
        Press(list, Qt::Key_Home);
        for (int i = 0; i < subscale; ++i)
            Press(list, Qt::Key_Down);
        ClickOn(u"CmdQuestion_0"_s);
    }
    void AddAnswer(const QString& text, const QString& value) {
        Write(u"txtanswer"_s, text);
        Write(u"txtAnswerVal"_s, value);
        ClickOn(u"CmdQuestion_3"_s);
    }

    void WriteAll();
    void TakeIt();
};

void Author::WriteAll() {
    NextPage(); // About Test
    Write(u"txtTitle"_s, u"Restful Evenings – a diary"_s);
    Write(u"txtIntroduction"_s, u"Good evening.\nTake your time."_s);
    Write(u"txtInstructions"_s, u"Answer for today."_s);
    Write(u"txtCompletion"_s, u"Sleep well."_s);
    NextPage(); // Sub-Scales
    Write(u"txtSubScale"_s, u"Calm"_s);
    ClickOn(u"CmdSubScaleAdd_0"_s);
    AddRange(u"0"_s, u"3"_s, u"Restless"_s);
    AddRange(u"4"_s, u"8"_s, u"Calm = good"_s);
    Write(u"txtSubScale"_s, u"Body"_s);
    ClickOn(u"CmdSubScaleAdd_0"_s);
    NextPage(); // Template
    AddTemplateAnswer(u"No"_s, u"0"_s);
    AddTemplateAnswer(u"Yes, quite"_s, u"4"_s);
    NextPage(); // Questions
    AddQuestion(u"Was the evening calm?"_s, 0, 1);
    AddQuestion(u"How warm was the room?"_s, 1, 1);
    AddAnswer(u"Too warm"_s, u"-1"_s);
    AddAnswer(u"Just right"_s, u"4"_s);
    AddQuestion(u"And your feet?"_s, 1, 2); // with the answers of the question before
    ClickOn(u"CmdQuestNav_5"_s);
    AddAnswer(u"Cold"_s, u"0"_s);
    AddQuestion(u"What did you eat?"_s, 2, 0);
    AddQuestion(u"Anything else?"_s, 3, 0);
    NextPage(); // Analysis
    AddTotalRange(u"-1"_s, u"6"_s, u"A short night ahead"_s);
    AddTotalRange(u"7"_s, u"12"_s, u"A good night ahead"_s);
    NextPage(); // Options
    Tick({1, 2, 3, 4, 5, 6, 7, 9, 10, 12, 13, 14});
    ClickOn(u"ChkTestOptions_2"_s);
    NextPage(); // Automation
    Write(u"Text1"_s, u"evenings.txt"_s);
    NextPage(); // Export
    Tick({28, 31});
    Write(u"txtautosavedirectory_2"_s, u"evenings"_s);
}

void Author::TakeIt() {
    DialogDriver names([](QDialog& dialog) {
        Type(Find<QLineEdit>(dialog, u"txtclient_0"_s), u"Ann Lee"_s);
        Press(dialog, Qt::Key_Return);
    });
    Click(*navigator.StartScreen(), u"cmdBeginTest"_s);
    QVERIFY(names.Finished());
    FrmTest& window = *navigator.TestWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto press = [&window](Qt::Key key) { Press(*window.focusWidget(), key); };
    press(Qt::Key_Return);
    press(Qt::Key_2);
    press(Qt::Key_2);
    press(Qt::Key_3);
    Type(*window.focusWidget(), u"Soup"_s);
    press(Qt::Key_Return);
    Type(*window.focusWidget(), u"No."_s);
    Press(*window.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    Click(window, u"CmdReport"_s);
}

} // namespace

class tst_wholeeditor : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void WriteTest_StartScreenToReport_FileAndReportAsExpected();
};

void tst_wholeeditor::WriteTest_StartScreenToReport_FileAndReportAsExpected() {
    Author author;
    Click(*author.navigator.StartScreen(), u"Label7"_s);
    QVERIFY(QTest::qWaitForWindowActive(&author.Editor()));
    author.WriteAll();
    if (QTest::currentTestFailed())
        return;
    author.chooser.ExpectSave(author.folder.filePath(u"Evenings.vlm"_s));
    Choose(author.Editor(), u"mnufilesaveas"_s);
    const QString expected = QStringLiteral(VELLUMO_SOURCE_DIR "/tests/app/data/restful-evenings");
    QCOMPARE(BytesOf(author.folder.filePath(u"Evenings.vlm"_s)), BytesOf(expected + u".vlm"_s));

    author.ClickOn(u"Command2"_s); // the export page is still in view
    QVERIFY(author.navigator.StartScreen()->isVisible());
    author.TakeIt();
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(author.navigator.Reports().size(), 1);
    QCOMPARE(author.navigator.Reports().first()->txtEdit->toPlainText().toUtf8(),
             BytesOf(expected + u"-of-ann-lee.txt"_s).replace("\r\n", "\n"));
}

QTEST_MAIN(tst_wholeeditor)
#include "tst_wholeeditor.moc"
