#include "support/RecordingNavigator.h"
#include "support/TestText.h"
#include "support/WindowDriver.h"
#include "taker/ui/frmOptionsTest.h"

#include <QtTest>

namespace {

const QString Everything = QStringLiteral("[TITLE]T[/TITLE][INTRODUCTION]I[/INTRODUCTION][INSTRUCTIONS]N[/INSTRUCTIONS]"
                                          "[SUBSCALES][S]Ease[/S][/SUBSCALES]"
                                          "[Q]One[A]a[v=1][/A][/Q][Q]Two[QT]2[/QT][/Q][Q]Three[QT]3[/QT][/Q]");

struct OptionsWindow {
    explicit OptionsWindow(const QString& text) : test(TestFromText(text)), window(test, navigator) {
        ShowAndActivate(window);
    }
    QString SetOptions() const {
        QStringList set;
        for (int i = 1; i <= OptionCount; ++i)
            if (test.TestOption(i))
                set += QString::number(i);
        return set.join(u' ') + (test.ReportOnlyWhenDone ? QStringLiteral(" done") : QString()) +
               (test.NavigationButtons ? QStringLiteral(" navigation") : QString());
    }

    TestDocument test;
    RecordingNavigator navigator;
    frmOptionsTest window;
};

} // namespace

class tst_frmoptionstest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Open_Test_TicksAndCaptions();
    void Boxes_Test_EnabledWhereTheyMatter_data();
    void Boxes_Test_EnabledWhereTheyMatter();
    void Ok_Ticks_Taken();
    void Ok_DisabledBox_KeepsItsState();
    void Cancel_Ticks_NothingChanges();
};

void tst_frmoptionstest::Open_Test_TicksAndCaptions() {
    OptionsWindow options(Everything + QStringLiteral("[NAVIGATION BUTTONS][REPORT TITLE][PROMPT TESTER NAME]"));
    QCOMPARE(options.window.windowTitle(), QStringLiteral("Test Options"));
    for (int i = 1; i <= 14; ++i)
        QCOMPARE(Find<QCheckBox>(options.window, QStringLiteral("ChkReportOptions_%1").arg(i)).isChecked(),
                 i == 1 || i == 11);
    QVERIFY(!options.window.findChild<QCheckBox*>(QStringLiteral("ChkReportOptions_15")));
    QStringList captions;
    for (const int i : {1, 2})
        captions += Find<QCheckBox>(options.window, QStringLiteral("ChkTestOptions_%1").arg(i)).text();
    for (const int i : {10, 11})
        captions += Find<QCheckBox>(options.window, QStringLiteral("ChkReportOptions_%1").arg(i)).text();
    QCOMPARE(captions.join(u'|'), QStringLiteral("Allow Reporting Only When Test Completed|Allow Navigation Buttons|"
                                                 "Client's Name|Tester's Name"));
    QVERIFY(!Find<QCheckBox>(options.window, QStringLiteral("ChkTestOptions_1")).isChecked());
    QVERIFY(Find<QCheckBox>(options.window, QStringLiteral("ChkTestOptions_2")).isChecked());
}

void tst_frmoptionstest::Boxes_Test_EnabledWhereTheyMatter_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("disabled");
    QTest::newRow("everything") << Everything << QString();
    QTest::newRow("only short answers") << QStringLiteral("[TITLE]T[/TITLE][Q]Two[QT]2[/QT][/Q]")
                                        << QStringLiteral("2 3 4 5 6 9 13");
}

void tst_frmoptionstest::Boxes_Test_EnabledWhereTheyMatter() {
    QFETCH(QString, text);
    OptionsWindow options(text);
    QStringList disabled;
    for (int i = 1; i <= 14; ++i)
        if (!Find<QCheckBox>(options.window, QStringLiteral("ChkReportOptions_%1").arg(i)).isEnabled())
            disabled += QString::number(i);
    QTEST(disabled.join(u' '), "disabled");
}

void tst_frmoptionstest::Ok_Ticks_Taken() {
    OptionsWindow options(Everything + QStringLiteral("[REPORT TITLE][DISABLE ALL OPTIONS][APPEND TO REPORT FILE]"));
    for (const char* name : {"ChkTestOptions_1", "ChkTestOptions_2", "ChkReportOptions_1", "ChkReportOptions_10",
                             "ChkReportOptions_14", "OKButton"})
        Click(options.window, QString::fromLatin1(name));
    QCOMPARE(options.SetOptions(), QStringLiteral("10 14 15 23 done navigation"));
    QVERIFY(!options.window.isVisible());
}

void tst_frmoptionstest::Ok_DisabledBox_KeepsItsState() {
    OptionsWindow options(QStringLiteral("[TITLE]T[/TITLE][Q]Two[QT]2[/QT][/Q][REPORT LONG ANSWERS][REPORT ANALYSIS]"));
    Click(options.window, QStringLiteral("OKButton"));
    QCOMPARE(options.SetOptions(), QStringLiteral("9 13"));
}

void tst_frmoptionstest::Cancel_Ticks_NothingChanges() {
    OptionsWindow options(Everything + QStringLiteral("[REPORT TITLE]"));
    Click(options.window, QStringLiteral("ChkReportOptions_1"));
    Click(options.window, QStringLiteral("ChkTestOptions_1"));
    Press(options.window, Qt::Key_F1);
    QCOMPARE(options.navigator.Calls, QStringList{QStringLiteral("ShowHelp(TestOptions)")});
    Click(options.window, QStringLiteral("CancelButton"));
    QCOMPARE(options.SetOptions(), QStringLiteral("1"));
}

QTEST_MAIN(tst_frmoptionstest)
#include "tst_frmoptionstest.moc"
