#include "app/Program.h"
#include "export/ui/DialogExport.h"
#include "export/ui/QtExportWindows.h"
#include "support/RecordingNavigator.h"
#include "support/TestText.h"

#include <QGroupBox>
#include <QtTest>

namespace {

const QString Choice = QStringLiteral("[Q]One[A]a[v=1][/A][/Q]");
const QString Short = QStringLiteral("[Q]Two[QT]2[/QT][/Q]");
const QString Long = QStringLiteral("[Q]Three[QT]3[/QT][/Q]");
const QString Scales = QStringLiteral("[SUBSCALES][S]Ease[/S][/SUBSCALES]");

struct Dialog {
    explicit Dialog(const QString& text) {
        session.UserSettings.DefaultDirectory = folder.path();
        session.Test = TestFromText(text);
    }
    ~Dialog() { QDir::setCurrent(QDir::rootPath()); }
    void Open() {
        form.emplace(session, exportFileName);
        window = std::make_unique<DialogExport>(*form, chooser, navigator);
        ShowAndActivate(*window);
    }
    QCheckBox& Box(int option) { return Find<QCheckBox>(*window, QStringLiteral("ChkReportOptions_%1").arg(option)); }
    QLineEdit& Text1() { return Find<QLineEdit>(*window, QStringLiteral("Text1")); }

    QTemporaryDir folder;
    Session session;
    QString exportFileName = QStringLiteral("r.exl");
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    std::optional<ExportForm> form;
    std::unique_ptr<DialogExport> window;
};

constexpr std::array<int, 8> BoxesInOrder = {31, 25, 26, 27, 28, 29, 30, 22};

} // namespace

class tst_exportwindows : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }
    void Boxes_Test_EnabledWhereTheyMatter_data();
    void Boxes_Test_EnabledWhereTheyMatter();
    void Open_Session_PathTicksAndNote();
    void Ok_Changes_TakenInMemory();
    void Cancel_Ways_Exit_data();
    void Cancel_Ways_Exit();
    void Browse_Chosen_PathAndWorkingDirectory();
    void Keys_F1AndTab_HelpAndEveryControl();
    void Steps_Shown_CaptionAndNoWayOut();
};

void tst_exportwindows::Boxes_Test_EnabledWhereTheyMatter_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("disabled");
    QTest::newRow("everything") << Scales + Choice + Short + Long << QString();
    QTest::newRow("no sub-scales") << Choice + Short + Long << "30";
    QTest::newRow("only choices") << Scales + Choice << "26 27";
    QTest::newRow("only short") << Scales + Short << "31 25 27";
    QTest::newRow("only long") << Scales + Long << "31 25 26";
}

void tst_exportwindows::Boxes_Test_EnabledWhereTheyMatter() {
    QFETCH(QString, text);
    Dialog dialog(text);
    dialog.Open();
    QStringList disabled;
    for (const int option : BoxesInOrder)
        if (!dialog.Box(option).isEnabled())
            disabled.append(QString::number(option));
    QTEST(disabled.join(u' '), "disabled");
}

void tst_exportwindows::Open_Session_PathTicksAndNote() {
    Dialog dialog(Scales + Choice + QStringLiteral("[INCLUDE DATE IN EXCEL FILE][OPEN EXCEL REPORT WHEN COMPLETED]"));
    dialog.Open();
    QCOMPARE(dialog.window->windowTitle(), QStringLiteral("Export Test Results"));
    QCOMPARE(dialog.Text1().text(), QStringLiteral("r.exl"));
    QCOMPARE(dialog.exportFileName, QStringLiteral("exit"));
    QVERIFY(!Find<QLabel>(*dialog.window, QStringLiteral("Label2")).isVisible());
    QString captions;
    for (const int option : BoxesInOrder) {
        QCOMPARE(dialog.Box(option).isChecked(), option == 29 || option == 22);
        captions += dialog.Box(option).text() + u'|';
    }
    QCOMPARE(captions, QStringLiteral("Total Score|Multichoice Answers|Short Answers|Long Answers|Client Name|"
                                      "Date of Test|Sub-scales|Open Report When Created|"));
    QCOMPARE(Find<QGroupBox>(*dialog.window, QStringLiteral("FrameInclude")).title(),
             QStringLiteral("Include In Export"));

    dialog.session.SpreadsheetExported = true;
    dialog.Open();
    QVERIFY(Find<QLabel>(*dialog.window, QStringLiteral("Label2")).isVisible());
    GrabToPng(*dialog.window, QStringLiteral("DialogExport"));
}

void tst_exportwindows::Ok_Changes_TakenInMemory() {
    Dialog dialog(Choice + QStringLiteral("[INCLUDE DATE IN EXCEL FILE][INCLUDE SHORT ANSWERS IN EXCEL FILE]"
                                          "[REPORT TITLE]"));
    dialog.Open();
    dialog.Text1().setText(QStringLiteral("other.exl"));
    for (const int option : {31, 29, 22})
        Click(*dialog.window, QStringLiteral("ChkReportOptions_%1").arg(option));
    Click(*dialog.window, QStringLiteral("OKButton"));
    QCOMPARE(dialog.exportFileName, QStringLiteral("other.exl"));
    QString set;
    for (int option = 1; option <= OptionCount; ++option)
        if (dialog.session.Test.TestOption(option))
            set += QString::number(option) + u' ';
    QCOMPARE(set, QStringLiteral("1 22 26 31 "));
    QVERIFY(!dialog.window->isVisible());
}

void tst_exportwindows::Cancel_Ways_Exit_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("title bar") << 2;
}

void tst_exportwindows::Cancel_Ways_Exit() {
    QFETCH(int, way);
    Dialog dialog(Choice);
    dialog.Open();
    Click(*dialog.window, QStringLiteral("ChkReportOptions_31"));
    if (way == 0)
        Click(*dialog.window, QStringLiteral("CancelButton"));
    else if (way == 1)
        Press(*dialog.window, Qt::Key_Escape);
    else
        dialog.window->close();
    QVERIFY(!dialog.window->isVisible());
    QCOMPARE(dialog.exportFileName, QStringLiteral("exit"));
    QVERIFY(!dialog.session.Test.TestOption(31));
}

void tst_exportwindows::Browse_Chosen_PathAndWorkingDirectory() {
    Dialog dialog(Choice);
    dialog.Open();
    dialog.chooser.ExpectOpen(QStringLiteral("/far/away.exl"));
    Click(*dialog.window, QStringLiteral("Command1"));
    QCOMPARE(dialog.Text1().text(), QStringLiteral("/far/away.exl"));
    QCOMPARE(QDir::currentPath(), QDir(dialog.folder.path()).canonicalPath());
    const FileQuestion& question = dialog.chooser.Questions().first();
    QCOMPARE(question.Title, QStringLiteral("Find An Excel File For Export"));
    QCOMPARE(question.Filter, QStringLiteral("Excel Files (*.exl)|*.exl| All Files (*.*)|*.*"));
    dialog.chooser.ExpectOpen(QString());
    Click(*dialog.window, QStringLiteral("Command1"));
    QCOMPARE(dialog.Text1().text(), QStringLiteral("/far/away.exl"));
}

void tst_exportwindows::Keys_F1AndTab_HelpAndEveryControl() {
    Dialog dialog(Scales + Choice + Short + Long);
    dialog.Open();
    Press(*dialog.window->focusWidget(), Qt::Key_F1);
    QCOMPARE(dialog.navigator.Calls, QStringList{QStringLiteral("ShowHelp(SpreadsheetExport)")});
    QStringList order;
    for (int i = 0; i < 12; ++i) {
        order.append(
            dialog.window->focusWidget()->objectName().replace(QStringLiteral("ChkReportOptions_"), QString()));
        Press(*dialog.window->focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order.join(u' '), QStringLiteral("Text1 Command1 31 25 26 27 28 29 30 22 OKButton CancelButton"));
}

void tst_exportwindows::Steps_Shown_CaptionAndNoWayOut() {
    ScriptedFileChooser chooser;
    RecordingNavigator navigator;
    QtExportWindows windows(chooser, navigator);
    windows.ShowStep(QStringLiteral("Opening Excel for Export"));
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    QVERIFY(dialog);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Please Wait"));
    auto& label = Find<QLabel>(*dialog, QStringLiteral("Label1"));
    QCOMPARE(label.text(), QStringLiteral("Opening Excel for Export"));
    windows.ShowStep(QStringLiteral("Saving /a/") + QString(200, u'b') + QStringLiteral("/c.exl"));
    QCOMPARE(label.accessibleName(), QStringLiteral("Saving /a/") + QString(200, u'b') + QStringLiteral("/c.exl"));
    QVERIFY(dialog->width() < 600);
    QCOMPARE(QApplication::activeModalWidget(), dialog);
    Press(*dialog, Qt::Key_Escape);
    dialog->close();
    QVERIFY(dialog->isVisible());
    windows.ShowStep(QStringLiteral("Saving /home/ann/Documents/Results/Ann Lee/Mood Diary of a Week Ann Lee.exl"));
    GrabToPng(*dialog, QStringLiteral("DialogExcel"));
    windows.CloseSteps();
    QVERIFY(!QApplication::activeModalWidget());
    windows.AskNames();
    QCOMPARE(navigator.Calls, QStringList{QStringLiteral("AskNames()")});
}

QTEST_MAIN(tst_exportwindows)
#include "tst_exportwindows.moc"
