#include "export/SpreadsheetExport.h"
#include "platform/windows/OleSpreadsheet.h"
#include "platform/windows/OleWordProcessor.h"
#include "support/FakeOfficeProbe.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "windows/AutomationServer.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The windows of an export that asks for nothing.
class QuietWindows : public ExportWindows {
  public:
    void AskNames() override {}
    void Confirm(ExportForm&) override { FailTest(QStringLiteral("The file is asked for.")); }
    void ShowStep(const QString&) override {}
    void CloseSteps() override {}
};

const QString Test =
    QStringLiteral("[TITLE]Mood[/TITLE][SUBSCALES][S]Ease[/S][/SUBSCALES][Q]One[A]a[v=1][/A][A]b[v=-4][/A][SS=1][/Q]"
                   "[Q]Two[QT]2[/QT][/Q][Q]Three[QT]3[/QT][/Q][UPDATE FILES WITHOUT PROMPTING]"
                   "[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE DATE IN EXCEL FILE][INCLUDE TOTAL SCORE IN EXCEL FILE]"
                   "[INCLUDE SUB-SCALES IN EXCEL FILE][INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]"
                   "[INCLUDE SHORT ANSWERS IN EXCEL FILE][INCLUDE LONG ANSWERS IN EXCEL FILE]");
const QString Between = QStringLiteral(" | ");
const QString OpenAfterwards = QStringLiteral("[OPEN EXCEL REPORT WHEN COMPLETED]");
const QString HeadsOfTest = QStringLiteral("text Client | text Date | text Total Score | text Ease | text Q.1  | "
                                           "text Q.2  | text Q.3 ");
/// The row of an administration in which nothing is answered, behind the client.
const QString NothingAnswered = QStringLiteral(" | date 46347 | number 0 | number 0 | number 0 | number 0 | number 0");

/// Exports of one test into one workbook, through the server.
struct Exporting {
    explicit Exporting(AutomationServer& withServer, const QString& more = {}) : server(withServer) {
        session.Test = TestFromText(Test + more);
        session.UserSettings.DefaultDirectory = QDir::toNativeSeparators(folder.path());
        session.UserSettings.QuestionPrefix = QStringLiteral("Q.");
        session.UserSettings.QuestionSuffix = QStringLiteral(" ");
        session.ClientName = QStringLiteral("Ann Lee");
        office.Entries[SpreadsheetKey] = QStringLiteral("Sheet");
        BeginAdministration();
    }
    ~Exporting() { QDir::setCurrent(QDir::rootPath()); }

    void BeginAdministration() {
        session.Responses = ResponseSet(session.Test.QuestionCount);
        session.SpreadsheetExported = false;
    }
    Result Run() { return exporter.Export(session); }
    QString Workbook() const {
        return QDir::toNativeSeparators(folder.filePath(QStringLiteral("Vellumo Results.exl")));
    }
    QString Row(int row) const { return RowOfWorkbook(Workbook(), row); }
    /// The record's calls of members that aren't cells, without "excel", the folder written as "~".
    QString Calls() const {
        const QString path = QDir::toNativeSeparators(folder.path()).replace(u'\\', QStringLiteral("\\\\"));
        QStringList calls;
        for (QString line : server.Record())
            if (!line.startsWith(QStringLiteral("excel Cells")))
                calls.append(line.remove(QStringLiteral("excel ")).replace(path, QStringLiteral("~")));
        return calls.join(QStringLiteral("; "));
    }
    /// Makes the workbook as an export leaves it, so that the next one has something to open.
    void ExportOnce() {
        QVERIFY(Run());
        QCOMPARE(server.Running(true), 0);
        BeginAdministration();
        session.ClientName = QStringLiteral("Bo");
    }

    AutomationServer& server;
    QTemporaryDir folder;
    Session session;
    QuietWindows windows;
    ScriptedPrompts prompts;
    FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(14, 5, 9))};
    FakeOfficeProbe office;
    SpreadsheetExport exporter{prompts, clock, office, [] { return std::make_unique<OleSpreadsheet>(); }, windows};
};

const QString Opened = QStringLiteral("Workbooks.Open FILENAME=\"~\\\\Vellumo Results.exl\"");
const QString Missing = Opened + QStringLiteral(" ! 1004 '~\\\\Vellumo Results.exl' could not be found.; ");
const QString SavedAs = QStringLiteral("ActiveWorkbook.SaveAs FILENAME=\"~\\\\Vellumo Results.exl\"");

} // namespace

/// The adapters of the two applications, against a server in another process.
class tst_automation : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() { server_.emplace(); }
    void cleanup() { server_->Clear(); }
    void cleanupTestCase() { server_.reset(); }

    void Export_NoWorkbook_NewOneWithHeadsAndRow();
    void Export_Again_RowAppendedAndSaved();
    void Export_Texts_StayTexts();
    void Export_Clients_RowBehindRow();
    void Export_NoClient_ZeroInTheCell();
    void Export_TextTooLongForACell_SaidAndNothingSaved();
    void Export_OpenAfterwards_StaysVisible();
    void Export_RunningInstance_IsUsed();
    void Export_CantOpen_MessageAndNothingWritten_data();
    void Export_CantOpen_MessageAndNothingWritten();
    void Export_CantAdd_DescriptionShown_data();
    void Export_CantAdd_DescriptionShown();
    void Export_CantSave_NumberAndDescriptionAndVisible_data();
    void Export_CantSave_NumberAndDescriptionAndVisible();
    void Export_VanishedMidway_SaidAndNothingSaved();
    void Export_Busy_WaitedFor_data();
    void Export_Busy_WaitedFor();
    void Export_NoApplication_SaysSo_data();
    void Export_NoApplication_SaysSo();

    void TypeText_Instances_OneWithADocument_data();
    void TypeText_Instances_OneWithADocument();
    void TypeText_AnyText_AsItIs_data();
    void TypeText_AnyText_AsItIs();
    void TypeText_Failure_FailedResult_data();
    void TypeText_Failure_FailedResult();

  private:
    std::optional<AutomationServer> server_;
};

void tst_automation::Export_NoWorkbook_NewOneWithHeadsAndRow() {
    Exporting exporting(*server_);
    exporting.session.Responses.ResponseChoice(1) = 2;
    exporting.session.Responses.ResponseText(2) = QStringLiteral("\u00E4\u20AC\u4E16");
    exporting.session.Responses.ResponseText(3) = QStringLiteral("one\r\ntwo");
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), QStringLiteral("create; ") + Missing + QStringLiteral("Workbooks.Add; ") + SavedAs +
                                    QStringLiteral("; Quit"));
    QCOMPARE(exporting.Row(1), QStringLiteral("text Mood"));
    QCOMPARE(exporting.Row(3), HeadsOfTest);
    QCOMPARE(exporting.Row(4), QStringLiteral("text Ann Lee | date 46347 | number -4 | number -4 | number 2 | "
                                              "text \u00E4\u20AC\u4E16 | text one\\ntwo"));
    QCOMPARE(exporting.server.Running(true), 0);
}

void tst_automation::Export_Again_RowAppendedAndSaved() {
    Exporting exporting(*server_);
    exporting.ExportOnce();
    const qsizetype before = exporting.Calls().size();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls().sliced(before),
             QStringLiteral("; create; ") + Opened + QStringLiteral("; ActiveWorkbook.Save; Quit"));
    QCOMPARE(exporting.Row(3), HeadsOfTest);
    QCOMPARE(exporting.Row(4), QStringLiteral("text Ann Lee") + NothingAnswered);
    QCOMPARE(exporting.Row(5), QStringLiteral("text Bo") + NothingAnswered);
    QCOMPARE(exporting.server.Running(true), 0);
}

void tst_automation::Export_Texts_StayTexts() {
    const QStringList texts = {QStringLiteral("=1+1"),       QStringLiteral("+49 30 1234"), QStringLiteral("-"),
                               QStringLiteral("-5"),         QStringLiteral("@home"),       QStringLiteral("007"),
                               QStringLiteral("12"),         QStringLiteral("1.5"),         QStringLiteral("1e3"),
                               QStringLiteral("1,000"),      QStringLiteral("12%"),         QStringLiteral("$5"),
                               QStringLiteral("(5)"),        QStringLiteral("1/2"),         QStringLiteral("1-2-2026"),
                               QStringLiteral("2026-11-21"), QStringLiteral("10:30"),       QStringLiteral("3 May"),
                               QStringLiteral("TRUE"),       QStringLiteral("false"),       QStringLiteral("'quoted"),
                               QStringLiteral("''"),         QStringLiteral(" 7 "),         QStringLiteral("plain"),
                               QStringLiteral("#N/A"),       QStringLiteral("1 1/2"),       QStringLiteral("1.2.2026"),
                               QStringLiteral("Mar 5")};
    Exporting exporting(*server_, QStringLiteral("[Q]Short[QT]2[/QT][/Q]").repeated(static_cast<int>(texts.size())));
    QStringList cells;
    for (int q = 4; const QString& text : texts) {
        exporting.session.Responses.ResponseText(q++) = text;
        cells.append(QStringLiteral("text ") + text);
    }
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Row(4).section(Between, 7), cells.join(Between));
}

void tst_automation::Export_Clients_RowBehindRow() {
    const QStringList clients = {QStringLiteral("=1+1"), QStringLiteral("007"),     QStringLiteral("1/2"),
                                 QStringLiteral("-"),    QStringLiteral("'quoted"), QStringLiteral("TRUE")};
    Exporting exporting(*server_);
    exporting.session.UserSettings.QuestionPrefix = QStringLiteral("1-");
    for (const QString& client : clients) {
        exporting.BeginAdministration();
        exporting.session.ClientName = client;
        QVERIFY(exporting.Run());
    }
    QCOMPARE(exporting.Row(3).section(Between, 4, 4), QStringLiteral("text 1-1 "));
    for (int row = 4; const QString& client : clients)
        QCOMPARE(exporting.Row(row++), QStringLiteral("text ") + client + NothingAnswered);
}

void tst_automation::Export_NoClient_ZeroInTheCell() {
    Exporting exporting(*server_);
    exporting.session.ClientName.clear();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Row(4), QStringLiteral("number 0") + NothingAnswered);
}

void tst_automation::Export_TextTooLongForACell_SaidAndNothingSaved() {
    Exporting exporting(*server_);
    exporting.session.Responses.ResponseText(3) = QString(32768, u'x');
    exporting.prompts.Expect(QStringLiteral("The column 'Q.3 ' can't be written: ")).InPart();
    QVERIFY(exporting.Run());
    QVERIFY(!QFile::exists(exporting.Workbook()));
    QCOMPARE(exporting.server.Running(true), 0);

    exporting.session.Responses.ResponseText(3) = QString(32767, u'x');
    QVERIFY(exporting.Run());
    QVERIFY(exporting.Row(4).endsWith(QStringLiteral("text ") + QString(32767, u'x')));
}

void tst_automation::Export_OpenAfterwards_StaysVisible() {
    Exporting exporting(*server_, OpenAfterwards);
    QVERIFY(exporting.Run());
    QVERIFY2(exporting.Calls().endsWith(SavedAs + QStringLiteral("; Visible = true; UserControl = true")),
             qPrintable(exporting.Calls()));
    QTest::qWait(500);
    QCOMPARE(exporting.server.Running(false), 1);
}

void tst_automation::Export_RunningInstance_IsUsed() {
    Exporting exporting(*server_, OpenAfterwards);
    exporting.server.Run({QStringLiteral("spreadsheet")});
    QVERIFY(exporting.Run());
    exporting.BeginAdministration();
    QVERIFY(exporting.Run());
    QVERIFY2(!exporting.Calls().contains(QStringLiteral("create")), qPrintable(exporting.Calls()));
    QCOMPARE(exporting.Row(5), QStringLiteral("text Ann Lee") + NothingAnswered);
    QCOMPARE(exporting.server.Running(false), 1);
}

void tst_automation::Export_CantOpen_MessageAndNothingWritten_data() {
    QTest::addColumn<QString>("orders");
    QTest::addColumn<bool>("running");
    QTest::newRow("its number") << "fail Workbooks.Open 462 The remote server is not available" << false;
    QTest::newRow("its number in the code")
        << "failcode Workbooks.Open 462 The remote server is not available" << false;
    QTest::newRow("vanished") << "vanish Workbooks.Open" << false;
    QTest::newRow("running and its number") << "fail Workbooks.Open 462 open" << true;
    QTest::newRow("running and vanished") << "vanish Workbooks.Open" << true;
}

void tst_automation::Export_CantOpen_MessageAndNothingWritten() {
    QFETCH(QString, orders);
    QFETCH(bool, running);
    Exporting exporting(*server_);
    exporting.ExportOnce();
    const QByteArray bytes = BytesOf(exporting.Workbook());
    exporting.server.Order(orders);
    if (running)
        exporting.server.Run({QStringLiteral("spreadsheet")});
    exporting.prompts.Expect(QStringLiteral("Please close Excel. The file '%1' cannot be appended whilst it is open")
                                 .arg(exporting.Workbook()));
    QVERIFY(exporting.Run());
    QCOMPARE(BytesOf(exporting.Workbook()), bytes);
    QVERIFY(!exporting.session.SpreadsheetExported);
    const bool stays = running && orders.startsWith(u'f');
    QCOMPARE(exporting.server.Running(!stays), stays ? 1 : 0);
}

void tst_automation::Export_CantAdd_DescriptionShown_data() {
    QTest::addColumn<QString>("order");
    QTest::newRow("as the application fails") << "fail";
    QTest::newRow("number in the code") << "failcode";
}

void tst_automation::Export_CantAdd_DescriptionShown() {
    QFETCH(QString, order);
    Exporting exporting(*server_);
    exporting.server.Order(order + QStringLiteral(" Workbooks.Add 7 Not enough memory"));
    exporting.prompts.Expect(QStringLiteral("Not enough memory"));
    QVERIFY(exporting.Run());
    QVERIFY(!exporting.session.SpreadsheetExported);
    QVERIFY(!QFile::exists(exporting.Workbook()));
    QCOMPARE(exporting.server.Running(true), 0);
}

void tst_automation::Export_CantSave_NumberAndDescriptionAndVisible_data() {
    QTest::addColumn<QString>("orders");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("message");
    QTest::newRow("new") << "fail ActiveWorkbook.SaveAs 1004 No room" << true
                         << "Error 1004 : Failed to save Excel File - No room";
    QTest::newRow("appended to") << "fail ActiveWorkbook.Save 70 Disk full" << false
                                 << "Error 70 : Failed to save Excel File - Disk full";
    QTest::newRow("number in the code") << "failcode ActiveWorkbook.Save 70 Disk full" << false
                                        << "Error 70 : Failed to save Excel File - Disk full";
    QTest::newRow("no active workbook") << "fail ActiveWorkbook 91 Object variable not set" << false
                                        << "Error 91 : Failed to save Excel File - Object variable not set";
}

void tst_automation::Export_CantSave_NumberAndDescriptionAndVisible() {
    QFETCH(QString, orders);
    QFETCH(bool, isNew);
    QFETCH(QString, message);
    Exporting exporting(*server_);
    if (!isNew)
        exporting.ExportOnce();
    const QByteArray bytes = isNew ? QByteArray() : BytesOf(exporting.Workbook());
    exporting.server.Order(orders);
    exporting.prompts.Expect(message);
    QVERIFY(exporting.Run());
    QVERIFY2(exporting.Calls().endsWith(QStringLiteral("; Visible = true; UserControl = true")),
             qPrintable(exporting.Calls()));
    QCOMPARE(QFile::exists(exporting.Workbook()) ? BytesOf(exporting.Workbook()) : QByteArray(), bytes);
    QTest::qWait(500);
    QCOMPARE(exporting.server.Running(false), 1);
}

void tst_automation::Export_VanishedMidway_SaidAndNothingSaved() {
    Exporting exporting(*server_);
    exporting.ExportOnce();
    const QByteArray bytes = BytesOf(exporting.Workbook());
    exporting.server.Order(QStringLiteral("vanish Cells="));
    exporting.prompts.Expect(QStringLiteral("can't be written: ")).InPart();
    QVERIFY(exporting.Run());
    QCOMPARE(BytesOf(exporting.Workbook()), bytes);
    QVERIFY(!exporting.session.SpreadsheetExported);
}

void tst_automation::Export_Busy_WaitedFor_data() {
    QTest::addColumn<QString>("orders");
    QTest::newRow("turned away") << "busy 3";
    QTest::newRow("to be tried again later") << "answer 3 8001010A";
    QTest::newRow("user in a cell") << "answer 3 800AC472";
}

void tst_automation::Export_Busy_WaitedFor() {
    QFETCH(QString, orders);
    Exporting exporting(*server_);
    exporting.ExportOnce();
    exporting.server.Order(orders);
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Row(5), QStringLiteral("text Bo") + NothingAnswered);
    QCOMPARE(exporting.server.Record().filter(QRegularExpression(QStringLiteral("^excel (busy|answered)"))).size(), 3);
}

void tst_automation::Export_NoApplication_SaysSo_data() {
    QTest::addColumn<bool>("registered");
    QTest::addColumn<QString>("message");
    QTest::newRow("can't be made") << true << "Excel can't be started: ";
    QTest::newRow("not registered") << false << "Excel does not appear to be installed";
}

void tst_automation::Export_NoApplication_SaysSo() {
    QFETCH(bool, registered);
    QFETCH(QString, message);
    Exporting exporting(*server_);
    exporting.server.Order(QStringLiteral("fail create"));
    if (!registered)
        exporting.server.Unregister();
    exporting.prompts.Expect(message).InPart();
    QVERIFY(exporting.Run());
    exporting.server.Register();
    QVERIFY(!exporting.session.SpreadsheetExported);
    QVERIFY(!QFile::exists(exporting.Workbook()));
}

void tst_automation::TypeText_Instances_OneWithADocument_data() {
    QTest::addColumn<QStringList>("running");
    QTest::addColumn<QString>("record");
    const QString added = QStringLiteral("word create; word documents.Add; ");
    const QString typed = QStringLiteral("word selection.typetext \"Report\"; word Visible = true");
    QTest::newRow("none") << QStringList() << added + typed;
    QTest::newRow("running with documents")
        << QStringList{QStringLiteral("wordprocessor"), QStringLiteral("2")} << QStringLiteral("word run; ") + typed;
    QTest::newRow("running without documents") << QStringList{QStringLiteral("wordprocessor"), QStringLiteral("0")}
                                               << QStringLiteral("word run; ") + added + typed;
}

void tst_automation::TypeText_Instances_OneWithADocument() {
    QFETCH(QStringList, running);
    if (!running.isEmpty())
        server_->Run(running);
    OleWordProcessor wordProcessor;
    QVERIFY(wordProcessor.TypeText(QStringLiteral("Report")));
    // How often the documents are counted is the adapter's own matter.
    QStringList record = server_->Record();
    record.erase(std::remove_if(record.begin(), record.end(),
                                [](const QString& line) { return line.contains(QStringLiteral("Count")); }),
                 record.end());
    QTEST(record.join(QStringLiteral("; ")), "record");
    QTest::qWait(500);
    QVERIFY(server_->Running(false) > 0);
}

void tst_automation::TypeText_AnyText_AsItIs_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("noted");
    QTest::newRow("lines") << "one\r\ntwo\n\nthree"
                           << "one\\r\\ntwo\\n\\nthree";
    QTest::newRow("any script") << QStringLiteral("\u00E4\u20AC\u4E16\U0001F600")
                                << QStringLiteral("\u00E4\u20AC\u4E16\U0001F600");
    QTest::newRow("formula") << "=1+1\t'x'"
                             << "=1+1\\t'x'";
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("long") << QString(9999, u'x') << QString(9999, u'x');
}

void tst_automation::TypeText_AnyText_AsItIs() {
    QFETCH(QString, text);
    QFETCH(QString, noted);
    OleWordProcessor wordProcessor;
    QVERIFY(wordProcessor.TypeText(text));
    QCOMPARE(server_->Record().filter(QStringLiteral("typetext")),
             QStringList(QStringLiteral("word selection.typetext \"") + noted + u'"'));
}

void tst_automation::TypeText_Failure_FailedResult_data() {
    QTest::addColumn<QString>("orders");
    QTest::addColumn<bool>("shown");
    QTest::newRow("can't be made") << "fail create" << false;
    QTest::newRow("no document") << "fail documents.Add 5 No" << true;
    QTest::newRow("can't type") << "fail selection.typetext 4605 Not now" << true;
    QTest::newRow("can't be shown") << "fail Visible= 5 No" << false;
    QTest::newRow("vanished") << "vanish selection.typetext" << false;
}

void tst_automation::TypeText_Failure_FailedResult() {
    QFETCH(QString, orders);
    server_->Order(orders);
    OleWordProcessor wordProcessor;
    const Result result = wordProcessor.TypeText(QStringLiteral("Report"));
    QVERIFY(!result);
    QVERIFY(!result.Message().isEmpty());
    // What was started for this is gone or, where it isn't, can be seen and closed.
    const bool shown = server_->Record().contains(QStringLiteral("word Visible = true"));
    QTEST(shown, "shown");
    QCOMPARE(server_->Running(!shown), shown ? 1 : 0);
}

QTEST_GUILESS_MAIN(tst_automation)
#include "tst_automation.moc"
