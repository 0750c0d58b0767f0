#include "cli/Tool.h"
#include "export/workbook/Workbook.h"
#include "support/Files.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Ran {
    int Status = -1;
    QByteArray Out;
    QByteArray Err;
};

Ran Run(const QStringList& arguments) {
    Ran ran;
    QByteArray nothing;
    QBuffer in(&nothing), out(&ran.Out), err(&ran.Err);
    in.open(QIODevice::ReadOnly);
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    const FixedClock clock(QDateTime(QDate(2026, 11, 21), QTime(14, 5, 9)));
    Console console{in, out, err, false, clock, {}};
    ran.Status = RunTool(arguments, console);
    return ran;
}

const QByteArray Small = "[TITLE]Small[/TITLE][SUBSCALES][S]Ease[/S][/SUBSCALES][Q]One[A]a[v=1][/A][A]b[v=32767][/A]"
                         "[SS=1][/Q][Q]Two[QT]2[/QT][/Q][Q]Three[A]c[v=2][/A][/Q]";
const QByteArray Everything =
    "[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE DATE IN EXCEL FILE][INCLUDE TOTAL SCORE IN EXCEL FILE]"
    "[INCLUDE SUB-SCALES IN EXCEL FILE][INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]"
    "[INCLUDE SHORT ANSWERS IN EXCEL FILE]";

QString Shown(const CellValue& value) {
    if (const double* number = std::get_if<double>(&value))
        return QString::number(*number);
    if (const QDate* date = std::get_if<QDate>(&value))
        return date->toString(Qt::ISODate);
    return std::holds_alternative<QString>(value) ? u'"' + std::get<QString>(value) + u'"' : QStringLiteral("-");
}

} // namespace

class tst_scoreworkbook : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() {
        folder_ = std::make_unique<QTemporaryDir>();
        PutBytes(Path("t.vlm"), Small + Everything);
    }
    void NewAndAgain_Rows_HeadsOnce();
    void Now_Given_DateOfTheRows();
    void OptionsChanged_EachValueUnderItsHead();
    void HeadTwice_RefusedAndUntouched();
    void NoOptions_TitleAlone();
    void BadResponses_NothingWritten_data();
    void BadResponses_NothingWritten();
    void BadWorkbook_SaysWhyAndLeavesIt_data();
    void BadWorkbook_SaysWhyAndLeavesIt();
    void WithReports_WorkbookOpen_NoReportEither();

  private:
    QString Path(const char* name) const { return folder_->filePath(QLatin1String(name)); }
    Ran Score(const QByteArray& csv, const char* book = "r.exl", const QStringList& more = {}) const {
        PutBytes(Path("r.csv"), csv);
        return Run(QStringList{QStringLiteral("score"), Path("t.vlm"), Path("r.csv"), QStringLiteral("--workbook"),
                               Path(book)} +
                   more);
    }
    QString Row(int row) const {
        Workbook workbook(BytesOf(Path("r.exl")));
        QStringList cells;
        for (int column = 1; column <= 8; ++column)
            cells.append(Shown(workbook.Cell(row, column)));
        return cells.join(u' ');
    }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_scoreworkbook::NewAndAgain_Rows_HeadsOnce() {
    Ran ran = Score("client,1,2,3\nAnn,1,=1+1,1\n,,,\n");
    QCOMPARE(ran.Err, QByteArray());
    QCOMPARE(ran.Status, 0);
    QCOMPARE(ran.Out, "client,total,Ease\nAnn,3,1\n,0,0\n");
    QCOMPARE(Score("2,client\n007,Bo\n").Status, 0);
    QCOMPARE(Row(1), QStringLiteral("\"Small\" - - - - - - -"));
    QCOMPARE(Row(2), QStringLiteral("- - - - - - - -"));
    QCOMPARE(Row(3), QStringLiteral("\"Client\" \"Date\" \"Total Score\" \"Ease\" \"1\" \"2\" \"3\" -"));
    QCOMPARE(Row(4), QStringLiteral("\"Ann\" 2026-11-21 3 1 1 \"=1+1\" 1 -"));
    QCOMPARE(Row(5), QStringLiteral("0 2026-11-21 0 0 0 0 0 -"));
    QCOMPARE(Row(6), QStringLiteral("\"Bo\" 2026-11-21 0 0 0 \"007\" 0 -"));
    QCOMPARE(Row(7), QStringLiteral("- - - - - - - -"));
}

void tst_scoreworkbook::Now_Given_DateOfTheRows() {
    const Ran ran = Score("client\nAnn\n", "r.exl",
                          {QStringLiteral("--now"), QStringLiteral("2027-01-02T23:59:59"), QStringLiteral("--prefix"),
                           QStringLiteral("Item "), QStringLiteral("--suffix"), QStringLiteral("!")});
    QCOMPARE(ran.Status, 0);
    QVERIFY(Row(3).endsWith(QStringLiteral("\"Item 1!\" \"Item 2!\" \"Item 3!\" -")));
    QVERIFY(Row(4).startsWith(QStringLiteral("\"Ann\" 2027-01-02")));
}

void tst_scoreworkbook::OptionsChanged_EachValueUnderItsHead() {
    PutBytes(Path("t.vlm"), Small + "[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE SHORT ANSWERS IN EXCEL FILE]");
    QCOMPARE(Score("client,2\nAnn,good\n").Err, QByteArray());
    PutBytes(Path("t.vlm"), Small + Everything);
    const Ran ran = Score("client,1,2,3\nBo,1,bad,1\nCy,,,1\n");
    QCOMPARE(ran.Status, 0);
    QCOMPARE(ran.Err, "The heads in the third row of the file '" + Path("r.exl").toUtf8() +
                          "' are not those that this test expects, so each result was put under its own head. Heads "
                          "that were missing were added at the right end: 'Date', 'Total Score', 'Ease', '1', '3'.\n");
    QCOMPARE(Row(3), QStringLiteral("\"Client\" \"2\" \"Date\" \"Total Score\" \"Ease\" \"1\" \"3\" -"));
    QCOMPARE(Row(4), QStringLiteral("\"Ann\" \"good\" - - - - - -"));
    QCOMPARE(Row(5), QStringLiteral("\"Bo\" \"bad\" 2026-11-21 3 1 1 1 -"));
    QCOMPARE(Row(6), QStringLiteral("\"Cy\" 0 2026-11-21 2 0 0 1 -"));
}

void tst_scoreworkbook::HeadTwice_RefusedAndUntouched() {
    Workbook workbook;
    for (int column = 1; column <= 3; ++column)
        workbook.SetCell(3, column, column == 1 ? QStringLiteral("2") : QStringLiteral("Client"));
    PutBytes(Path("r.exl"), workbook.Pack());
    const QByteArray before = BytesOf(Path("r.exl"));
    const Ran ran = Score("client\nAnn\n");
    QCOMPARE(ran.Status, 1);
    QCOMPARE(ran.Err, "Nothing was written to the file '" + Path("r.exl").toUtf8() +
                          "': the head 'Client' appears twice in its third row, in the columns B and C\n");
    QCOMPARE(BytesOf(Path("r.exl")), before);
}

void tst_scoreworkbook::NoOptions_TitleAlone() {
    PutBytes(Path("t.vlm"), Small);
    QCOMPARE(Score("1\n1\n1\n").Status, 0);
    QCOMPARE(Row(1), QStringLiteral("\"Small\" - - - - - - -"));
    QCOMPARE(Row(3), QStringLiteral("- - - - - - - -"));
}

void tst_scoreworkbook::BadResponses_NothingWritten_data() {
    QTest::addColumn<QByteArray>("csv");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no such answer") << QByteArray("1\n1\n9\n") << QByteArray("9");
    QTest::newRow("overflow") << QByteArray("1,3\n1,1\n2,1\n") << QByteArray("Overflow");
    QTest::newRow("text too long") << "client,2\nAnn,a\nBo," + QByteArray(40'000, 'x') + '\n'
                                   << QByteArray("row 2: The column '2' can't be written: The cell F5 can hold at most "
                                                 "32,767 characters, and its text has 40,000\n");
}

void tst_scoreworkbook::BadResponses_NothingWritten() {
    QFETCH(QByteArray, csv);
    QFETCH(QByteArray, message);
    const Ran ran = Score(csv, "r.exl", {QStringLiteral("--reports"), Path("reports")});
    QCOMPARE(ran.Status, 1);
    QVERIFY2(ran.Err.contains(message), ran.Err.constData());
    QCOMPARE(ran.Out, QByteArray());
    QVERIFY(!QFile::exists(Path("r.exl")) && !QFile::exists(Path("reports")));
}

void tst_scoreworkbook::BadWorkbook_SaysWhyAndLeavesIt_data() {
    QTest::addColumn<QString>("beside");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no workbook") << QString()
                                 << QByteArray(
                                        "Error 1004 : Failed to save Excel File - The file '~/r.exl' can't be "
                                        "read as a workbook and was not changed: it is no workbook, or a damaged "
                                        "one (Not a zip archive)\n");
    QTest::newRow("open") << ".~lock.r.exl#"
                          << QByteArray(
                                 "Please close Excel. The file '~/r.exl' cannot be appended whilst it is open\n");
}

void tst_scoreworkbook::BadWorkbook_SaysWhyAndLeavesIt() {
    QFETCH(QString, beside);
    PutBytes(Path("r.exl"), "Dear diary");
    if (!beside.isEmpty())
        PutBytes(folder_->filePath(beside), "x");
    Ran ran = Score("client\nAnn\n");
    QCOMPARE(ran.Status, 1);
    QCOMPARE(ran.Out, QByteArray());
    QTEST(ran.Err.replace(folder_->path().toUtf8(), "~"), "message");
    QCOMPARE(BytesOf(Path("r.exl")), "Dear diary");

    ran = Score("client\nAnn\n", "no/such/r.exl");
    QCOMPARE(ran.Status, 1);
    QVERIFY(ran.Err.contains("There is no folder"));
}

void tst_scoreworkbook::WithReports_WorkbookOpen_NoReportEither() {
    PutBytes(Path("~$r.exl"), "x");
    QCOMPARE(Score("client\nAnn\n", "r.exl", {QStringLiteral("--reports"), Path("reports")}).Status, 1);
    QVERIFY(!QFile::exists(Path("reports")) && !QFile::exists(Path("r.exl")));
    QFile::remove(Path("~$r.exl"));
    QCOMPARE(Score("client\nAnn\n", "r.exl", {QStringLiteral("--reports"), Path("reports")}).Status, 0);
    QVERIFY(QFile::exists(Path("reports/t.txt")) && QFile::exists(Path("r.exl")));
}

QTEST_GUILESS_MAIN(tst_scoreworkbook)
#include "tst_scoreworkbook.moc"
