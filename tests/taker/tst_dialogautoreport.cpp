#include "support/Files.h"
#include "support/RecordingLauncher.h"
#include "support/RecordingNavigator.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "support/WindowDriver.h"
#include "taker/ui/DialogAutoReport.h"

#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Dialog {
    explicit Dialog(const QString& text) {
        session.UserSettings.DefaultDirectory = folder.path();
        session.Test = TestFromText(text);
        session.ReportFilePath = QStringLiteral("Mood.txt");
    }
    void Open() {
        form.emplace(session, prompts);
        window = std::make_unique<DialogAutoReport>(*form, session, chooser, navigator);
        ShowAndActivate(*window);
    }
    QCheckBox& Box(int option) { return Find<QCheckBox>(*window, QStringLiteral("ChkReportOptions_%1").arg(option)); }
    QString Disabled() {
        QStringList disabled;
        for (int i = 1; i <= OptionCount; ++i)
            if (const auto* box = window->findChild<QCheckBox*>(QStringLiteral("ChkReportOptions_%1").arg(i)))
                if (!box->isEnabled())
                    disabled += QString::number(i);
        return disabled.join(u' ');
    }

    QTemporaryDir folder;
    Session session;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    std::optional<AutoReportForm> form;
    std::unique_ptr<DialogAutoReport> window;
};

const QString ChoiceQuestion = QStringLiteral("[Q]One[A]a[v=1][/A][/Q]");
const QString ShortQuestion = QStringLiteral("[Q]Two[QT]2[/QT][/Q]");
const QString LongQuestion = QStringLiteral("[Q]Three[QT]3[/QT][/Q]");
const QString Texts = QStringLiteral("[TITLE]T[/TITLE][INTRODUCTION]I[/INTRODUCTION][INSTRUCTIONS]N[/INSTRUCTIONS]");
const QString Scales = QStringLiteral("[SUBSCALES][S]Ease[/S][/SUBSCALES]");

} // namespace

class tst_dialogautoreport : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }
    void Boxes_Test_EnabledWhereTheyMatter_data();
    void Boxes_Test_EnabledWhereTheyMatter();
    void Open_Session_PathTicksAndNote();
    void Ok_Changes_Taken();
    void Ok_PathThatWontDo_StaysOpen_data();
    void Ok_PathThatWontDo_StaysOpen();
    void Cancel_Ways_NoFile_data();
    void Cancel_Ways_NoFile();
    void Browse_Chosen_PathAndWorkingDirectory();
    void Flow_AppendTickedInDialog_Appends();
    void Flow_EmptyPath_NothingWritten();
    void Flow_ElsewhereBefore_WritesInWorkingDirectory();
};

void tst_dialogautoreport::Boxes_Test_EnabledWhereTheyMatter_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("disabled");
    QTest::newRow("everything") << Texts + Scales + ChoiceQuestion + ShortQuestion + LongQuestion << QString();
    QTest::newRow("no texts") << Scales + ChoiceQuestion + ShortQuestion + LongQuestion << QStringLiteral("1 2 3");
    QTest::newRow("no sub-scales") << Texts + ChoiceQuestion + ShortQuestion + LongQuestion << QStringLiteral("5");
    QTest::newRow("only short answers") << Texts + Scales + ShortQuestion << QStringLiteral("4 5 6 9 13");
    QTest::newRow("only long answers") << Texts + LongQuestion << QStringLiteral("4 5 6 9 12");
    QTest::newRow("only multichoice") << Texts + Scales + ChoiceQuestion << QStringLiteral("12 13");
}

void tst_dialogautoreport::Boxes_Test_EnabledWhereTheyMatter() {
    QFETCH(QString, text);
    Dialog dialog(text);
    if (!text.contains(Texts))
        dialog.session.Test.TestTitle.clear();
    dialog.Open();
    QTEST(dialog.Disabled(), "disabled");
    QCOMPARE(Find<QGroupBox>(*dialog.window, QStringLiteral("FrameScoring")).isEnabled(),
             text.contains(ChoiceQuestion));
}

void tst_dialogautoreport::Open_Session_PathTicksAndNote() {
    Dialog dialog(Texts + ChoiceQuestion + QStringLiteral("[REPORT TITLE][REPORT ANALYSIS][APPEND TO REPORT FILE]"));
    dialog.Open();
    QCOMPARE(Find<QLineEdit>(*dialog.window, QStringLiteral("Text1")).text(), QStringLiteral("Mood.txt"));
    QCOMPARE(dialog.session.ReportFilePath, QStringLiteral("<exit>"));
    QVERIFY(!Find<QLabel>(*dialog.window, QStringLiteral("LblNote")).isVisible());
    QString captions;
    for (const int option : {1, 2, 3, 8, 4, 12, 13, 14, 7, 9, 5, 6, 23, 24}) {
        QCOMPARE(dialog.Box(option).isChecked(), option == 1 || option == 9 || option == 23);
        captions += dialog.Box(option).text() + u'|';
    }
    QCOMPARE(captions,
             QStringLiteral("Report Title|Report Introduction|Report Instructions|Report Date and Time Completed|"
                            "Report Multichoice Answers|Report Short Answers|Report Long Answers|Report Question|"
                            "Report Number of Questions Completed|Report Analysis|Report Sub-scale Scores|"
                            "Report Total Score|Append to File|Open Report When Created|"));
    QVERIFY(!dialog.window->findChild<QCheckBox*>(QStringLiteral("ChkReportOptions_10")));
}

void tst_dialogautoreport::Ok_Changes_Taken() {
    Dialog dialog(Texts + ChoiceQuestion + QStringLiteral("[REPORT SHORT ANSWERS][PROMPT CLIENT NAME][REPORT TITLE]"));
    dialog.Open();
    QVERIFY(!dialog.Box(12).isEnabled());
    Find<QLineEdit>(*dialog.window, QStringLiteral("Text1"))
        .setText(dialog.folder.filePath(QStringLiteral("other.txt")));
    for (const int option : {1, 6, 24})
        Click(*dialog.window, QStringLiteral("ChkReportOptions_%1").arg(option));
    Click(*dialog.window, QStringLiteral("CMDOK"));
    QCOMPARE(dialog.session.ReportFilePath, dialog.folder.filePath(QStringLiteral("other.txt")));
    QStringList set;
    for (int i = 1; i <= OptionCount; ++i)
        if (dialog.session.Test.TestOption(i))
            set += QString::number(i);
    QCOMPARE(set.join(u' '), QStringLiteral("6 10 12 24"));
}

void tst_dialogautoreport::Ok_PathThatWontDo_StaysOpen_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("choice"); // empty for a mere message
    QTest::addColumn<bool>("append");
    QTest::addColumn<bool>("closes");
    const QString exists = QStringLiteral("exists. Replace it, and lose what it holds?");
    QTest::newRow("kept") << "there.txt" << exists << "Cancel" << false << false;
    QTest::newRow("replaced") << "there.txt" << exists << "Replace" << false << true;
    QTest::newRow("appended to") << "there.txt" << QString() << QString() << true << true;
    QTest::newRow("no folder") << "none/r.txt"
                               << "none' doesn't exist." << QString() << true << false;
    QTest::newRow("a folder") << "."
                              << "is a folder." << QString() << false << false;
    QTest::newRow("no name") << " "
                             << "Enter the name of the file" << QString() << false << false;
}

void tst_dialogautoreport::Ok_PathThatWontDo_StaysOpen() {
    QFETCH(QString, path);
    QFETCH(QString, message);
    QFETCH(QString, choice);
    QFETCH(bool, append);
    Dialog dialog(Texts + ChoiceQuestion);
    QDir::setCurrent(dialog.folder.path());
    PutBytes(QStringLiteral("there.txt"), "earlier");
    dialog.Open();
    Find<QLineEdit>(*dialog.window, QStringLiteral("Text1")).setText(path);
    dialog.Box(AppendToReportFile).setChecked(append);
    if (!choice.isEmpty())
        dialog.prompts.ExpectChoice(message, choice).InPart();
    else if (!message.isEmpty())
        dialog.prompts.Expect(message).InPart();
    Click(*dialog.window, QStringLiteral("CMDOK"));
    QTEST(!dialog.window->isVisible(), "closes");
    QCOMPARE(dialog.session.ReportFilePath, dialog.window->isVisible() ? NoReportFile : path);
}

void tst_dialogautoreport::Cancel_Ways_NoFile_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("escape") << 1;
    QTest::newRow("title bar") << 2;
}

void tst_dialogautoreport::Cancel_Ways_NoFile() {
    QFETCH(int, way);
    Dialog dialog(Texts + ChoiceQuestion);
    dialog.Open();
    Click(*dialog.window, QStringLiteral("ChkReportOptions_1"));
    if (way == 0)
        Click(*dialog.window, QStringLiteral("CancelButton"));
    else if (way == 1)
        Press(*dialog.window, Qt::Key_Escape);
    else
        dialog.window->close();
    QVERIFY(!dialog.window->isVisible());
    QCOMPARE(dialog.session.ReportFilePath, QStringLiteral("<exit>"));
    QVERIFY(!dialog.session.Test.TestOption(ReportTitle));
}

void tst_dialogautoreport::Browse_Chosen_PathAndWorkingDirectory() {
    Dialog dialog(Texts + ChoiceQuestion);
    dialog.Open();
    for (const QString& chosen : {QStringLiteral("/else/r.txt"), QString()}) {
        QDir::setCurrent(QDir::rootPath());
        dialog.chooser.ExpectSave(chosen);
        Click(*dialog.window, QStringLiteral("Command1"));
        QCOMPARE(QDir::current(), QDir(dialog.folder.path()));
        QCOMPARE(Find<QLineEdit>(*dialog.window, QStringLiteral("Text1")).text(), QStringLiteral("/else/r.txt"));
    }
    const FileQuestion question = dialog.chooser.Questions().first();
    QCOMPARE(question.Title, QStringLiteral("Select File For Autoreport"));
    QCOMPARE(question.Filter, QStringLiteral("Text Files (*.txt)|*.txt| All Files (*.*)|*.*"));
    QCOMPARE(question.FileName, QStringLiteral("Mood.txt"));
    QCOMPARE(question.DefaultExtension, QStringLiteral(".txt"));
}

namespace {

struct Flow : Dialog {
    Flow() : Dialog(Texts + ChoiceQuestion) {
        QDir::setCurrent(folder.path());
        session.Responses = ResponseSet(1);
    }
    Result Run(const QString& path, const OptionTicks& ticks) {
        AutoReportFlow flow(session, prompts, clock, launcher, navigator);
        return flow.Run([&](AutoReportForm& asked) {
            if (!asked.Accept(path, ticks))
                asked.Cancel();
        });
    }
    QByteArray Content(const QString& name) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    FixedClock clock{QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9))};
    RecordingLauncher launcher;
};

} // namespace

void tst_dialogautoreport::Flow_AppendTickedInDialog_Appends() {
    Flow flow;
    const QString path = QStringLiteral("all.txt");
    const OptionTicks append = {{AppendToReportFile, true}, {ReportTitle, true}};
    QVERIFY(flow.Run(path, append));
    QVERIFY(flow.Run(path, append));
    QCOMPARE(flow.Content(path), QByteArray("T REPORT\r\n\r\n\r\n").repeated(2));
    flow.prompts.ExpectChoice(QStringLiteral("exists. Replace it"), QStringLiteral("Replace")).InPart();
    QVERIFY(flow.Run(path, {{AppendToReportFile, false}}));
    QCOMPARE(flow.Content(path), "T REPORT\r\n\r\n\r\n");
    QVERIFY(flow.session.AutoReportDone && flow.launcher.Starts.isEmpty());
    QCOMPARE(flow.session.Filed.ReportPath, QDir::toNativeSeparators(flow.folder.filePath(path)));
}

void tst_dialogautoreport::Flow_EmptyPath_NothingWritten() {
    Flow flow;
    flow.prompts.Expect(QStringLiteral("Enter the name of the file")).InPart();
    QVERIFY(flow.Run(QString(), {{OpenReportWhenCompleted, true}}));
    QVERIFY(!flow.session.AutoReportDone);
    QVERIFY(QDir(flow.folder.path()).isEmpty());
    QVERIFY(flow.launcher.Starts.isEmpty() && flow.navigator.Calls.isEmpty());
}

void tst_dialogautoreport::Flow_ElsewhereBefore_WritesInWorkingDirectory() {
    Flow flow;
    QVERIFY(flow.session.Test.TestTitle == QStringLiteral("T"));
    QVERIFY(QDir(flow.folder.path()).mkdir(QStringLiteral("sub")));
    QDir::setCurrent(flow.folder.filePath(QStringLiteral("sub")));
    QVERIFY(flow.Run(QStringLiteral("r.txt"), {{OpenReportWhenCompleted, true}}));
    QCOMPARE(QDir::current(), QDir(flow.folder.path()));
    QVERIFY(QFile::exists(flow.folder.filePath(QStringLiteral("r.txt"))));
    QCOMPARE(flow.launcher.Starts.size(), 1);
}

QTEST_MAIN(tst_dialogautoreport)
#include "tst_dialogautoreport.moc"
