#include "Program.h"

#include <QTextEdit>
#include <QtTest>

namespace {

const QString Sample = QStringLiteral("Sleep Week Automatic.vlm");

QByteArray ExpectedReport() {
    return BytesOf(QStringLiteral(VELLUMO_SOURCE_DIR "/tests/app/data/sleep-week-of-ann-lee.txt"));
}

/// Takes the sample as its client does: with the keyboard, with one answer that is put right, and with a click here and
/// there.
struct SleepWeek : Program {
    SleepWeek() {
        Put(Sample, BytesOf(QStringLiteral(VELLUMO_SOURCE_DIR "/samples/") + Sample));
        navigator.ShowStartScreen();
    }

    void Begin(const QString& client) {
        DialogDriver names([client](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Commencing 'Sleep Week'"));
            Type(Find<QLineEdit>(dialog, QStringLiteral("txtclient_0")), client);
            Type(Find<QLineEdit>(dialog, QStringLiteral("txtclient_1")), QStringLiteral("J. Petrov"));
            Press(dialog, Qt::Key_Return);
        });
        Press(Find<QListWidget>(*navigator.StartScreen(), QStringLiteral("Listselect")), Qt::Key_Return);
        QVERIFY(names.Finished());
        QVERIFY(QTest::qWaitForWindowActive(&Window()));
    }

    FrmTest& Window() { return *navigator.TestWindow(); }
    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Press(*Window().focusWidget(), key, modifiers);
    }
    QString Frame() { return Find<QGroupBox>(Window(), QStringLiteral("framequest")).title(); }
    QString Shown() { return Find<QTextEdit>(Window(), QStringLiteral("TxtQuest")).toPlainText(); }

    void AnswerAll() {
        PressKey(Qt::Key_Return); // "Begin Test"
        QCOMPARE(Frame(), QStringLiteral("Question 1 of 16"));
        PressKey(Qt::Key_1);
        QCOMPARE(Frame(), QStringLiteral("Question 2 of 16"));
        Click(Window(), QStringLiteral("CmdBack"));
        QCOMPARE(Frame(), QStringLiteral("Question 1 of 16"));
        Click(Window(), QStringLiteral("Opt_4"));
        for (int q = 2; q <= 13; ++q)
            PressKey(Qt::Key_3);
        QCOMPARE(Frame(), QStringLiteral("Question 14 of 16"));
        PressKey(Qt::Key_2);
        Type(*Window().focusWidget(), QStringLiteral("Half past ten"));
        PressKey(Qt::Key_Return);
        QCOMPARE(Frame(), QStringLiteral("Question 16 of 16"));
        Type(*Window().focusWidget(), QStringLiteral("Rain = calm nights.\nNo coffee."));
        QVERIFY(!QDir(folder.path()).exists(QStringLiteral("Reports")));
        PressKey(Qt::Key_Return, Qt::ControlModifier);
    }
};

} // namespace

class tst_wholetest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void TakeSample_StartScreenToReport_FilesTheExpectedReport();
};

void tst_wholetest::TakeSample_StartScreenToReport_FilesTheExpectedReport() {
    SleepWeek week;
    week.Begin(QStringLiteral("Ann Lee"));
    QVERIFY(week.Shown().startsWith(QStringLiteral("Answer for each night")));
    week.AnswerAll();
    QCOMPARE(week.Frame(), QStringLiteral("Completed"));
    QVERIFY(week.Shown().contains(QStringLiteral("You have completed the 'Sleep Week'.")));
    QVERIFY(week.Shown().endsWith(QStringLiteral("Thank you, that was the week. Sleep well.")));

    const QString path = week.folder.filePath(QStringLiteral("Reports/Ann Lee/Sleep Week Ann Lee.txt"));
    QCOMPARE(BytesOf(path), ExpectedReport() + "\r\n");

    Click(week.Window(), QStringLiteral("CmdReport"));
    QCOMPARE(week.navigator.Reports().size(), 1);
    frmEdit& report = *week.navigator.Reports().first();
    QCOMPARE(report.Caption(), QStringLiteral("Report for Sleep Week"));
    QCOMPARE(report.txtEdit->toPlainText().toUtf8(), ExpectedReport().replace("\r\n", "\n"));

    const QString copy = week.folder.filePath(QStringLiteral("Copy.txt"));
    week.chooser.ExpectSave(copy);
    report.MnuFileSaveAs->trigger();
    QCOMPARE(BytesOf(copy), ExpectedReport() + "\r\n");
    report.MnuFilePrint->trigger();
    QCOMPARE(week.printer.Jobs.size(), 1);

    // Saved, so nothing is asked; and answering the last question again files nothing more.
    week.Window().activateWindow();
    Click(week.Window(), QStringLiteral("CmdBack"));
    QCOMPARE(week.Frame(), QStringLiteral("Question 15 of 16"));
    week.PressKey(Qt::Key_Return);
    week.PressKey(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(BytesOf(path), ExpectedReport() + "\r\n");
    Click(week.Window(), QStringLiteral("CmdQuit"));
    QVERIFY(week.navigator.StartScreen()->isVisible());
    QVERIFY(week.navigator.Reports().isEmpty());
    QCOMPARE(week.ends, 0);
    // The report goes below the one that this test wrote; nobody has to be asked about that.
    week.Begin(QStringLiteral("Ann Lee"));
    QVERIFY(week.Window().isVisible());
}

QTEST_MAIN(tst_wholetest)
#include "tst_wholetest.moc"
