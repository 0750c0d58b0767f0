// Workbooks that Vellumo wrote or appended to, opened by the programs that people open them with. LibreOffice Calc and
// openpyxl have to be there; tools/install-dependencies installs both.
#include "export/ResultSheet.h"
#include "export/workbook/BuiltInSpreadsheet.h"
#include "export/workbook/PackageOf.h"
#include "support/FailTest.h"
#include "support/Files.h"
#include "support/TestText.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Debian's own interpreter: only that one finds Debian's packages.
const QString Python = QStringLiteral("/usr/bin/python3");
const QString Script = QStringLiteral(VELLUMO_SOURCE_DIR "/tests/export/workbook/workbooks.py");

/// Runs a program to its end; its output, or a failed test.
QByteArray OutputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120'000) || process.exitCode() != 0) {
        FailTest(QStringLiteral("%1 %2 failed: %3 %4")
                     .arg(program, arguments.join(u' '), process.errorString(),
                          QString::fromLocal8Bit(process.readAllStandardError())));
        return {};
    }
    return process.readAllStandardOutput();
}

/// LibreOffice with a profile of its own.
class Office {
  public:
    void Convert(const QString& to, const QStringList& paths, const QString& folder) const {
        OutputOf(QStringLiteral("soffice"),
                 QStringList{QStringLiteral("-env:UserInstallation=file://") + profile_.path(),
                             QStringLiteral("--headless"), QStringLiteral("--convert-to"), to,
                             QStringLiteral("--outdir"), folder} +
                     paths);
    }
    /// All sheets of the workbooks as "<name>-<sheet>.csv": texts in quotes, dates as the locale of the tests has them.
    void ToCsv(const QStringList& paths, const QString& folder) const {
        Convert(QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true,false,false,false,-1"), paths,
                folder);
    }

  private:
    QTemporaryDir profile_;
};

TestDocument MoodTest() {
    return TestFromText(QStringLiteral(
        "[TITLE]Mood & more[/TITLE][Q]One[A]a[v=3][/A][A]b[v=-9][/A][/Q][Q]Two[QT]2[/QT][/Q]"
        "[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE DATE IN EXCEL FILE][INCLUDE TOTAL SCORE IN EXCEL FILE]"
        "[INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE][INCLUDE SHORT ANSWERS IN EXCEL FILE]"));
}

struct Answer {
    QString Client;
    int Choice;
    QString Text;
};

const QList<Answer>& Answers() {
    static const QList<Answer> answers = {
        {QStringLiteral("=1+1"), 2, QStringLiteral("007")},
        {QStringLiteral("Zoë 李"), 1, QStringLiteral("-5")},
        {QString(), 0, QStringLiteral("two\r\nlines & <more>, \"quoted\" _x0041_")},
    };
    return answers;
}

/// Appends all answers, or begins the workbook with them.
void Export(const QString& path) {
    const TestDocument test = MoodTest();
    BuiltInSpreadsheet spreadsheet({});
    ResultSheet sheet(spreadsheet, test, QStringLiteral("Q."), QStringLiteral(" "));
    const bool isNew = !QFile::exists(path);
    if (isNew) {
        spreadsheet.AddWorkbook();
        sheet.Begin();
    } else {
        spreadsheet.OpenWorkbook(path);
        sheet.Find(path);
    }
    for (const Answer& answer : Answers()) {
        ResponseSet responses(test.QuestionCount);
        responses.ResponseChoice(1) = answer.Choice;
        responses.ResponseText(2) = answer.Text;
        sheet.Append({answer.Client, QDate(2026, 11, 21), responses, ComputeScores(test, responses)});
    }
    isNew ? spreadsheet.SaveActiveWorkbookAs(path) : spreadsheet.SaveActiveWorkbook();
}

/// The rows of the answers as a sheet's text.
const QByteArray CsvOfAnswers = "\"=1+1\",11/21/2026,-9,2,\"007\"\n"
                                "\"Zoë 李\",11/21/2026,3,1,\"-5\"\n"
                                "0,11/21/2026,0,0,\"two\nlines & <more>, \"\"quoted\"\" _x0041_\"\n";

/// The same as openpyxl finds it; it doesn't undo the escape of what looks like an escaped character.
QJsonObject CellsOfAnswers(int row) {
    const QStringList rows[] = {{QStringLiteral("s=1+1"), QStringLiteral("d2026-11-21 00:00:00"), QStringLiteral("n-9"),
                                 QStringLiteral("n2"), QStringLiteral("s007")},
                                {QStringLiteral("sZoë 李"), QStringLiteral("d2026-11-21 00:00:00"),
                                 QStringLiteral("n3"), QStringLiteral("n1"), QStringLiteral("s-5")},
                                {QStringLiteral("n0"), QStringLiteral("d2026-11-21 00:00:00"), QStringLiteral("n0"),
                                 QStringLiteral("n0"),
                                 QStringLiteral("stwo\nlines & <more>, \"quoted\" _x005F_x0041_")}};
    QJsonObject cells;
    for (const QStringList& texts : rows) {
        for (int column = 0; column < texts.size(); ++column)
            cells[QChar(u'A' + column) + QString::number(row)] =
                QJsonArray{texts[column].left(1), texts[column].mid(1)};
        ++row;
    }
    return cells;
}

QJsonObject Joined(QJsonObject one, const QJsonObject& other) {
    for (auto entry = other.begin(); entry != other.end(); ++entry)
        one[entry.key()] = entry.value();
    return one;
}

/// A package as Excel writes it: shared texts, namespaces of extensions, spans, a chain of calculations.
QByteArray ExcelLike() {
    Parts parts = NewParts();
    parts[SheetName] =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<worksheet "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
        "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\" mc:Ignorable=\"x14ac\" "
        "xmlns:x14ac=\"http://schemas.microsoft.com/office/spreadsheetml/2009/9/ac\">"
        "<dimension ref=\"A1:G5\"/><sheetViews><sheetView tabSelected=\"1\" workbookViewId=\"0\"/></sheetViews>"
        "<sheetFormatPr defaultRowHeight=\"15\" x14ac:dyDescent=\"0.25\"/>"
        "<cols><col min=\"1\" max=\"1\" width=\"31\" customWidth=\"1\"/></cols><sheetData>"
        "<row r=\"1\" spans=\"1:7\" x14ac:dyDescent=\"0.25\"><c r=\"A1\" t=\"s\"><v>0</v></c></row>"
        "<row r=\"3\" spans=\"1:7\" x14ac:dyDescent=\"0.25\"><c r=\"A3\" t=\"s\"><v>1</v></c>"
        "<c r=\"B3\" t=\"s\"><v>3</v></c><c r=\"C3\" t=\"s\"><v>4</v></c><c r=\"D3\" t=\"s\"><v>5</v></c>"
        "<c r=\"E3\" t=\"s\"><v>6</v></c></row>"
        "<row r=\"4\" spans=\"1:7\" x14ac:dyDescent=\"0.25\"><c r=\"A4\" t=\"s\"><v>2</v></c><c r=\"C4\"><v>12</v></c>"
        "<c r=\"G4\"><f>C4*2</f><v>24</v></c></row>"
        "<row r=\"5\" spans=\"1:7\" x14ac:dyDescent=\"0.25\"><c r=\"G5\"><f>C5+1</f><v>1</v></c></row></sheetData>"
        "<pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" "
        "footer=\"0.3\"/></worksheet>";
    parts[QStringLiteral("xl/sharedStrings.xml")] =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<sst "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" count=\"7\" uniqueCount=\"7\">"
        "<si><t>Mood</t></si><si><t>Client</t></si><si><t xml:space=\"preserve\">Ann </t></si>"
        "<si><t>Date</t></si><si><r><t>Total </t></r><r><t>Score</t></r></si><si><t>Q.1</t></si><si><t>Q.2</t></si></sst>";
    parts[QStringLiteral("xl/calcChain.xml")] =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<calcChain "
        "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><c r=\"G5\" i=\"1\"/><c "
        "r=\"G4\"/></calcChain>";
    const QByteArray kinds = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    parts[QStringLiteral("xl/_rels/workbook.xml.rels")].replace(
        "</Relationships>", "<Relationship Id=\"rId3\" Type=\"" + kinds +
                                "sharedStrings\" Target=\"sharedStrings.xml\"/><Relationship Id=\"rId4\" Type=\"" +
                                kinds + "calcChain\" Target=\"calcChain.xml\"/></Relationships>");
    const QByteArray types = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
    parts[QStringLiteral("[Content_Types].xml")].replace(
        "</Types>", "<Override PartName=\"/xl/sharedStrings.xml\" ContentType=\"" + types +
                        "sharedStrings+xml\"/><Override PartName=\"/xl/calcChain.xml\" ContentType=\"" + types +
                        "calcChain+xml\"/></Types>");
    return PackageOf(parts);
}

} // namespace

class tst_realworkbooks : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase();
    void New_LibreOffice_EveryCell();
    void New_Openpyxl_EveryCell();
    void Appended_LibreOffice_EveryCell_data();
    void Appended_LibreOffice_EveryCell();
    void Appended_Openpyxl_AllElseAsItWas_data();
    void Appended_Openpyxl_AllElseAsItWas();
    void Appended_Parts_ByteForByte_data();
    void Appended_Parts_ByteForByte();

  private:
    void RowForEachWriter() const;
    QString Path(const QString& name) const { return folder_.filePath(name); }
    QByteArray Csv(const QString& name) const { return BytesOf(Path(name + QStringLiteral(".csv"))); }
    QJsonObject Found(const QString& name) const { return found_[Path(name)].toObject(); }

    QTemporaryDir folder_;
    Office office_;
    QJsonObject found_;
};

// Starting LibreOffice takes seconds, so all files go through it together.
void tst_realworkbooks::initTestCase() {
    QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty(),
             "LibreOffice isn't there: tools/install-dependencies installs libreoffice-calc");
    QProcess openpyxl;
    openpyxl.start(Python, {QStringLiteral("-c"), QStringLiteral("import openpyxl")});
    QVERIFY2(openpyxl.waitForFinished() && openpyxl.exitCode() == 0,
             "openpyxl isn't there: tools/install-dependencies installs python3-openpyxl");

    OutputOf(Python, {Script, QStringLiteral("make"), Path(QStringLiteral("openpyxl.xlsx"))});
    QDir(folder_.path()).mkdir(QStringLiteral("calc"));
    office_.Convert(QStringLiteral("xlsx:Calc MS Excel 2007 XML"), {Path(QStringLiteral("openpyxl.xlsx"))},
                    Path(QStringLiteral("calc")));
    QVERIFY(QFile::rename(Path(QStringLiteral("calc/openpyxl.xlsx")), Path(QStringLiteral("libreoffice.xlsx"))));
    PutBytes(Path(QStringLiteral("excel.xlsx")), ExcelLike());

    QStringList all = {Path(QStringLiteral("new.exl"))};
    Export(all.first());
    for (const char* writer : {"openpyxl", "libreoffice", "excel"}) {
        const QString before = Path(QLatin1String(writer) + QStringLiteral(".xlsx"));
        const QString after = Path(QLatin1String(writer) + QStringLiteral("-appended.exl"));
        QVERIFY(QFile::copy(before, after));
        Export(after);
        all += {before, after};
    }
    office_.ToCsv(all, folder_.path());
    found_ = QJsonDocument::fromJson(OutputOf(Python, QStringList{Script, QStringLiteral("read")} + all)).object();
    QCOMPARE(found_.size(), all.size());
}

void tst_realworkbooks::New_LibreOffice_EveryCell() {
    QCOMPARE(Csv(QStringLiteral("new-Results")),
             "\"Mood & more\",,,,\n,,,,\n\"Client\",\"Date\",\"Total Score\",\"Q.1 \",\"Q.2 \"\n" + CsvOfAnswers);
}

void tst_realworkbooks::New_Openpyxl_EveryCell() {
    QJsonObject expected = CellsOfAnswers(4);
    expected[QStringLiteral("A1")] = QJsonArray{QStringLiteral("s"), QStringLiteral("Mood & more")};
    const QStringList heads = {QStringLiteral("Client"), QStringLiteral("Date"), QStringLiteral("Total Score"),
                               QStringLiteral("Q.1 "), QStringLiteral("Q.2 ")};
    for (int column = 0; column < heads.size(); ++column)
        expected[QChar(u'A' + column) + QStringLiteral("3")] = QJsonArray{QStringLiteral("s"), heads[column]};
    const QJsonObject sheets = Found(QStringLiteral("new.exl"))[QStringLiteral("sheets")].toObject();
    QCOMPARE(sheets.keys(), QStringList{QStringLiteral("Results")});
    QCOMPARE(sheets[QStringLiteral("Results")].toObject()[QStringLiteral("cells")].toObject(), expected);
}

void tst_realworkbooks::RowForEachWriter() const {
    QTest::addColumn<QString>("writer");
    QTest::addColumn<QStringList>("sheets");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("changed");
    const QStringList three = {QStringLiteral("Notes"), QStringLiteral("Results"), QStringLiteral("Sums")};
    const QString styles = QStringLiteral("xl/styles.xml");
    const QString book = QStringLiteral("xl/workbook.xml");
    const QString first = QStringLiteral("xl/worksheets/sheet1.xml");
    const QString second = QStringLiteral("xl/worksheets/sheet2.xml");
    const QString third = QStringLiteral("xl/worksheets/sheet3.xml");
    // openpyxl leaves the results of formulas open.
    QTest::newRow("openpyxl") << "openpyxl" << three << 6 << QStringList{styles, second};
    QTest::newRow("LibreOffice") << "libreoffice" << three << 6 << QStringList{styles, book, second, third};
    QTest::newRow("like Excel") << "excel" << QStringList{QStringLiteral("Results")} << 5
                                << QStringList{styles, book, first};
}

void tst_realworkbooks::Appended_LibreOffice_EveryCell_data() { RowForEachWriter(); }

void tst_realworkbooks::Appended_LibreOffice_EveryCell() {
    QFETCH(QString, writer);
    QFETCH(QStringList, sheets);
    QFETCH(int, row);
    if (sheets.size() == 3) {
        QCOMPARE(Csv(writer + QStringLiteral("-appended-Notes")), Csv(writer + QStringLiteral("-Notes")));
        QCOMPARE(Csv(writer + QStringLiteral("-Sums")), "19\n38\n2\n");
        QCOMPARE(Csv(writer + QStringLiteral("-appended-Sums")), "13\n26\n2\n");
    }
    // Every line has as many cells as the widest.
    QByteArrayList expected = Csv(writer + QStringLiteral("-Results")).split('\n').first(row - 1);
    for (const QByteArray& line : CsvOfAnswers.split('\n'))
        expected.append(line);
    expected.removeLast();
    const qsizetype more = expected[0].count(',') - 4;
    const auto widened = [&](qsizetype i, const QByteArray& end) {
        expected[i] += end + QByteArray(more - end.count(','), ',');
    };
    widened(row - 1, writer == QStringLiteral("excel") ? ",,-8" : "");
    widened(row, "");
    widened(row + 2, "");
    QCOMPARE(Csv(writer + QStringLiteral("-appended-Results")), expected.join('\n') + '\n');
}

void tst_realworkbooks::Appended_Openpyxl_AllElseAsItWas_data() { RowForEachWriter(); }

void tst_realworkbooks::Appended_Openpyxl_AllElseAsItWas() {
    QFETCH(QString, writer);
    QFETCH(int, row);
    QJsonObject expected = Found(writer + QStringLiteral(".xlsx"));
    QJsonObject found = Found(writer + QStringLiteral("-appended.exl"));
    QJsonObject sheets = expected[QStringLiteral("sheets")].toObject();
    QJsonObject results = sheets[QStringLiteral("Results")].toObject();
    results[QStringLiteral("cells")] = Joined(results[QStringLiteral("cells")].toObject(), CellsOfAnswers(row));
    sheets[QStringLiteral("Results")] = results;
    expected[QStringLiteral("sheets")] = sheets;
    expected.remove(QStringLiteral("parts"));
    found.remove(QStringLiteral("parts"));
    if (writer != QStringLiteral("excel"))
        QCOMPARE(results[QStringLiteral("charts")].toInt(), 1);
    QCOMPARE(QJsonDocument(found).toJson(), QJsonDocument(expected).toJson());
}

void tst_realworkbooks::Appended_Parts_ByteForByte_data() { RowForEachWriter(); }

void tst_realworkbooks::Appended_Parts_ByteForByte() {
    QFETCH(QString, writer);
    QFETCH(QStringList, changed);
    const QJsonObject before = Found(writer + QStringLiteral(".xlsx"))[QStringLiteral("parts")].toObject();
    const QJsonObject after = Found(writer + QStringLiteral("-appended.exl"))[QStringLiteral("parts")].toObject();
    QCOMPARE(after.keys(), before.keys());
    QVERIFY(writer == QStringLiteral("excel") || before.size() > 12);
    QStringList found;
    for (auto part = before.begin(); part != before.end(); ++part)
        if (after[part.key()] != part.value())
            found.append(part.key());
    QCOMPARE(found, changed);
}

QTEST_GUILESS_MAIN(tst_realworkbooks)
#include "tst_realworkbooks.moc"
