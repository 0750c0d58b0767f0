#include "export/workbook/CellXml.h"
#include "export/workbook/PackageOf.h"
#include "export/workbook/Workbook.h"
#include "export/workbook/WorkbookError.h"

#include <QElapsedTimer>
#include <QtTest>

namespace {

QString Shown(const CellValue& value) {
    if (const double* number = std::get_if<double>(&value))
        return QString::number(*number);
    if (const QDate* date = std::get_if<QDate>(&value))
        return date->toString(Qt::ISODate);
    return std::holds_alternative<QString>(value) ? u'"' + std::get<QString>(value) + u'"' : QStringLiteral("-");
}

QByteArray SheetAfter(const QByteArray& package) { return ZipPackage(package).Read(SheetName, 1 << 30); }

/// The sheet's content after the cells were set, without its root tags.
QByteArray Changed(const QByteArray& content, const QList<std::pair<int, int>>& cells) {
    Workbook workbook(WorkbookWith(content));
    for (const auto& [row, column] : cells)
        workbook.SetCell(row, column, 7.0);
    const QByteArray sheet = SheetAfter(workbook.Pack());
    const QByteArray frame = SheetOf({});
    return sheet.sliced(frame.indexOf('>') + 1).chopped(QByteArray("</worksheet>").size());
}

const QByteArray Seven = "><v>7</v></c>";

QByteArray Cell(const char* name) { return "<c r=\"" + QByteArray(name) + '"' + Seven; }

} // namespace

class tst_workbook : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Cell_WaysOfWriting_Read_data();
    void Cell_WaysOfWriting_Read();
    void SetCell_Sheets_OnlyWhatMustChange_data();
    void SetCell_Sheets_OnlyWhatMustChange();
    void SetCell_LargeSheet_OnlyWhatMustChange();
    void SetCell_ManyRows_AllThere();
    void SetCell_Texts_ComeBack_data();
    void SetCell_Texts_ComeBack();
    void SetCell_Impossible_SaysWhy_data();
    void SetCell_Impossible_SaysWhy();
    void SetCell_Emptied_Empty();
    void SetCell_DateAfter1904_SameDay();
    void SetCell_Dates_FormatOfTheirOwn();
    void SetCell_NoStyles_Added();
    void Formula_References_DependOnTheRow_data();
    void Formula_References_DependOnTheRow();
    void Pack_StaleResults_Dropped();
    void Pack_ManyFormulas_InLinearTime();
    void Pack_OtherParts_AsTheyWere();
    void Open_ActiveSheet_ThatOrFirstVisible_data();
    void Open_ActiveSheet_ThatOrFirstVisible();
    void Open_OtherDialect_Read();
    void Open_BadPackage_Reason_data();
    void Open_BadPackage_Reason();
    void Open_EveryTruncation_RefusedOrRead();
    void Open_EveryByteOfTheSheetDamaged_RefusedOrRead();
};

void tst_workbook::Cell_WaysOfWriting_Read_data() {
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("cells");
    const auto row = [](const char* name, const QByteArray& xml, const char* cells) {
        QTest::newRow(name) << xml << QString::fromUtf8(cells);
    };
    row("numbers", "<row r='3'><c r='A3'><v>1</v></c><c r='C3' t='n'><v>-2.5</v></c></row>", "1 - -2.5");
    row("no references", "<row/><row/><row><c><v>1</v></c><c/><c><v>3</v></c></row>", "1 - 3");
    row("some references", "<row r='3'><c r='B3'><v>2</v></c><c><v>3</v></c></row>", "- 2 3");
    row("inline", "<row r='3'><c r='A3' t='inlineStr'><is><t>a&amp;b</t></is></c></row>", "\"a&b\" - -");
    row("inline in pieces",
        "<row r='3'><c r='A3' t='inlineStr'><is><r><rPr><b/></rPr><t>a</t></r><r><t xml:space='preserve'> b</t></r>"
        "<rPh><t>no</t></rPh></is></c></row>",
        "\"a b\" - -");
    row("shared", "<row r='3'><c r='A3' t='s'><v>0</v></c><c r='B3' t='s'><v>1</v></c><c t='s'><v>2</v></c></row>",
        "\"one\" \"two three\" -");
    row("results",
        "<row r='3'><c r='A3'><f>1+1</f><v>2</v></c><c r='B3' t='str'><f>A</f><v>x</v></c><c><f>B</f></c></row>",
        "2 \"x\" \"\"");
    row("others",
        "<row r='3'><c r='A3' t='b'><v>1</v></c><c r='B3' t='e'><v>#REF!</v></c><c "
        "t='d'><v>2026-11-21T00:00</v></c></row>",
        "1 \"#REF!\" 2026-11-21");
    row("dates",
        "<row r='3'><c r='A3' s='1'><v>46347</v></c><c r='B3' s='2'><v>46347.5</v></c><c s='3'><v>5</v></c></row>",
        "2026-11-21 2026-11-21 5");
    row("empty", "<row r='3'><c r='A3' s='1'/><c r='B3'><v></v></c><c r='C3' t='inlineStr'><is><t/></is></c></row>",
        "- - -");
    row("escaped", "<row r='3'><c r='A3' t='inlineStr'><is><t>_x0041__x005F_x0041_&#x41;&#66;</t></is></c></row>",
        "\"A_x0041_AB\" - -");
    row("comments and CDATA",
        "<!-- <row r='3'> --><row r='3'><!-- --><c r='A3' t='inlineStr'><is><t><![CDATA[<x>]]></t></is></c></row>",
        "\"<x>\" - -");
    row("an attribute with a bracket", "<row r='3' x='>'><c r='A3'><v>1</v></c></row>", "1 - -");
    row("row of another number", "<row r='4'><c r='A4'><v>1</v></c></row>", "- - -");
}

void tst_workbook::Cell_WaysOfWriting_Read() {
    QFETCH(QByteArray, row);
    Parts parts = NewParts();
    parts[SheetName] = SheetOf("<sheetData>" + row + "</sheetData>");
    parts[QStringLiteral("xl/sharedStrings.xml")] =
        "<sst><si><t>one</t></si><si><r><t>two</t></r><r><t> three</t></r><rPh><t>no</t></rPh></si><si><t/></si></sst>";
    parts[QStringLiteral("xl/_rels/workbook.xml.rels")].replace(
        "</Relationships>",
        "<Relationship Id=\"rId9\" Type=\"http://x/sharedStrings\" Target=\"/xl/sharedStrings.xml\"/>"
        "</Relationships>");
    parts[QStringLiteral("xl/styles.xml")].replace("<fonts", "<numFmts><numFmt numFmtId=\"170\" formatCode=\"dd/mm\"/>"
                                                             "<numFmt numFmtId=\"171\" formatCode=\"0&quot;d&quot;\"/>"
                                                             "</numFmts><fonts");
    parts[QStringLiteral("xl/styles.xml")].replace(
        "</cellXfs>", "<xf numFmtId=\"14\"/><xf numFmtId=\"170\"/><xf numFmtId=\"171\"/></cellXfs>");
    Workbook workbook(PackageOf(parts));
    QStringList cells;
    for (int column = 1; column <= 3; ++column)
        cells.append(Shown(workbook.Cell(3, column)));
    QTEST(cells.join(u' '), "cells");
}

void tst_workbook::SetCell_Sheets_OnlyWhatMustChange_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QList<std::pair<int, int>>>("cells");
    QTest::addColumn<QByteArray>("after");
    using Cells = QList<std::pair<int, int>>;
    const auto row = [](const char* name, const QByteArray& before, const Cells& cells, const QByteArray& after) {
        QTest::newRow(name) << before << cells << after;
    };
    row("nothing there", "<sheetData/>", {{3, 1}, {3, 2}},
        "<sheetData><row r=\"3\">" + Cell("A3") + Cell("B3") + "</row></sheetData>");
    row("nothing there, two rows", "<sheetData /><x/>", {{4, 2}, {3, 1}},
        "<sheetData ><row r=\"3\">" + Cell("A3") + "</row><row r=\"4\">" + Cell("B4") + "</row></sheetData><x/>");
    row("behind", "<sheetData> <row r='1' ht='20'/>\n</sheetData>", {{2, 1}},
        "<sheetData> <row r='1' ht='20'/>\n<row r=\"2\">" + Cell("A2") + "</row></sheetData>");
    row("between", "<sheetData><row r='1'/><row r='9'/></sheetData>", {{5, 1}},
        "<sheetData><row r='1'/><row r=\"5\">" + Cell("A5") + "</row><row r='9'/></sheetData>");
    row("empty row", "<sheetData><row r='3' ht='20' /></sheetData>", {{3, 2}},
        "<sheetData><row r='3' ht='20' >" + Cell("B3") + "</row></sheetData>");
    row("row with cells", "<sheetData><row r='3'> <c r='B3' s='5'/><c r='D3'><f>1</f></c><extLst/></row></sheetData>",
        {{3, 1}, {3, 2}, {3, 3}, {3, 5}},
        "<sheetData><row r='3'>" + Cell("A3") + " <c r=\"B3\" s=\"5\"" + Seven + Cell("C3") + "<c r='D3'><f>1</f></c>" +
            Cell("E3") + "<extLst/></row></sheetData>");
    row("prefix", "<x:sheetData><x:row r='1'/></x:sheetData>", {{2, 1}},
        "<x:sheetData><x:row r='1'/><x:row r=\"2\"><x:c r=\"A2\"><x:v>7</x:v></x:c></x:row></x:sheetData>");
    row("dimension and spans",
        "<dimension ref=\"A1:B3\"/><sheetData><row r='3' spans='1:2'><c r='B3'/></row></sheetData>", {{3, 3}, {4, 1}},
        "<dimension ref=\"A1:C4\"/><sheetData><row r='3' spans='1:3'><c r='B3'/>" + Cell("C3") + "</row><row r=\"4\">" +
            Cell("A4") + "</row></sheetData>");
    row("dimension of one cell", "<dimension ref=\"A1\"/><sheetData/>", {{3, 2}},
        "<dimension ref=\"A1:B3\"/><sheetData><row r=\"3\">" + Cell("B3") + "</row></sheetData>");
    row("formats of columns and rows",
        "<cols><col min='2' max='3' style='4'/></cols><sheetData><row r='3' s='6' customFormat='1'/></sheetData>",
        {{3, 1}, {4, 1}, {4, 3}},
        "<cols><col min='2' max='3' style='4'/></cols><sheetData><row r='3' s='6' customFormat='1'><c r=\"A3\" "
        "s=\"6\"" +
            Seven + "</row><row r=\"4\">" + Cell("A4") + "<c r=\"C4\" s=\"4\"" + Seven + "</row></sheetData>");
    row("last row and column", "<sheetData/>", {{1'048'576, 16'384}},
        "<sheetData><row r=\"1048576\">" + Cell("XFD1048576") + "</row></sheetData>");
}

void tst_workbook::SetCell_Sheets_OnlyWhatMustChange() {
    QFETCH(QByteArray, before);
    const auto cells =
        *static_cast<QList<std::pair<int, int>>*>(QTest::qData("cells", qMetaTypeId<QList<std::pair<int, int>>>()));
    QTEST(Changed(before, cells), "after");
}

// The sheet passes through memory in pieces of 256 KiB; their ends fall into tags, texts and comments of all kinds, and
// one row is longer than several of them.
void tst_workbook::SetCell_LargeSheet_OnlyWhatMustChange() {
    const QByteArray filling = "<!-- - > --><c r='B%'><f>1&lt;2</f><v>1</v></c><c r='C%' t='inlineStr'><is><t>"
                               "<![CDATA[<]]>&amp;</t></is></c>";
    QByteArray before = "<cols/><sheetData>";
    for (int row = 1; row <= 4000; ++row)
        before += "<row r='" + QByteArray::number(row) + "'>" +
                  QByteArray(filling).replace('%', QByteArray::number(row)) + (row == 500 ? QByteArray(1 << 20, ' ') : "") +
                  "</row>\n";
    const QByteArray after = before;
    const auto with = [](QByteArray sheet, const QByteArray& row, const QByteArray& cell) {
        return sheet.replace("<row r='" + row + "'>", "<row r='" + row + "'>" + cell);
    };
    QByteArray expected = with(with(with(after, "2", Cell("A2")), "500", Cell("A500")), "4000", Cell("A4000"));
    expected += "<row r=\"4001\">" + Cell("A4001") + "</row></sheetData><mergeCells/>";
    QCOMPARE(Changed(before + "</sheetData><mergeCells/>", {{4001, 1}, {500, 1}, {2, 1}, {4000, 1}}), expected);

    Workbook workbook(WorkbookWith(before + "</sheetData>"));
    for (const int row : {1, 499, 500, 4000, 3, 4000, 4001})
        QCOMPARE(Shown(workbook.Cell(row, 3)), row > 4000 ? QStringLiteral("-") : QStringLiteral("\"<&\""));
}

// Rows that were finished long ago are packed away; they are still read, changed and written in their places.
void tst_workbook::SetCell_ManyRows_AllThere() {
    Workbook workbook;
    constexpr int rows = 5000;
    for (int row = 3; row < rows; ++row)
        if (row != 70)
            workbook.SetCell(row, 1, static_cast<double>(row));
    QCOMPARE(Shown(workbook.Cell(5, 1)), QStringLiteral("5"));
    for (const int row : {70, 1500, 2})
        workbook.SetCell(row, 2, static_cast<double>(-row));
    Workbook again(workbook.Pack());
    for (int row = 2; row < rows; ++row) {
        QCOMPARE(Shown(again.Cell(row, 1)), row == 2 || row == 70 ? QStringLiteral("-") : QString::number(row));
        QCOMPARE(Shown(again.Cell(row, 2)),
                 row == 2 || row == 70 || row == 1500 ? QString::number(-row) : QStringLiteral("-"));
    }
}

void tst_workbook::SetCell_Texts_ComeBack_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("back");
    for (const char* text : {"=1+1", "-5", "007", "1e3", "TRUE", "2026-11-21", "@x", "'quoted", "<b>&amp;\"]]>",
                             " blanks ", "Zoë 李 😀", "a\tb\nc", "_x0041_", "_x005F_", "a_x0041b", "x"})
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(text);
    QTest::newRow("line ends") << "a\r\nb\rc"
                               << "a\nb\nc";
    const QString odd =
        QStringLiteral("a") + QChar(1) + QChar(0) + QChar(0x1F) + QChar(0xFFFE) + QChar(0xD800) + u'b' + QChar(0xDC00);
    QTest::newRow("what XML can't hold") << odd << odd;
    QTest::newRow("longest") << QString(32767, u'x') << QString(32767, u'x');
}

void tst_workbook::SetCell_Texts_ComeBack() {
    QFETCH(QString, text);
    Workbook workbook;
    workbook.SetCell(3, 1, text);
    Workbook again(workbook.Pack());
    const CellValue value = again.Cell(3, 1);
    QVERIFY(std::holds_alternative<QString>(value));
    QTEST(std::get<QString>(value), "back");
}

void tst_workbook::SetCell_Impossible_SaysWhy_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<CellValue>("value");
    QTest::addColumn<QString>("why");
    QTest::newRow("too long") << 4 << 28 << CellValue(QString(32768, u'x'))
                              << "The cell AB4 can hold at most 32,767 characters, and its text has 32,768";
    QTest::newRow("below the sheet") << 1'048'577 << 1 << CellValue(1.0)
                                     << "A sheet ends at row 1,048,576 and column 16,384, and row 1,048,577, column 1 "
                                        "is outside";
    QTest::newRow("formula") << 3 << 2 << CellValue(1.0) << "The cell B3 holds a formula, which would be lost";
    QTest::newRow("before the calendar") << 3 << 1 << CellValue(QDate(1899, 1, 1))
                                         << "A workbook can't hold the date 1899-01-01";
}

void tst_workbook::SetCell_Impossible_SaysWhy() {
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(CellValue, value);
    QFETCH(QString, why);
    Workbook workbook(WorkbookWith("<sheetData><row r='3'><c r='B3'><f>1</f><v>1</v></c></row></sheetData>"));
    try {
        workbook.SetCell(row, column, value);
        QFAIL("It was taken");
    } catch (const SpreadsheetError& failure) {
        QCOMPARE(failure.Message(), why);
    }
}

void tst_workbook::SetCell_Emptied_Empty() {
    Workbook workbook(WorkbookWith("<sheetData><row r='3'><c r='A3'><v>1</v></c></row></sheetData>"));
    workbook.SetCell(3, 1, QString());
    QCOMPARE(Shown(workbook.Cell(3, 1)), QStringLiteral("-"));
    Workbook again(workbook.Pack());
    QCOMPARE(Shown(again.Cell(3, 1)), QStringLiteral("-"));
}

void tst_workbook::SetCell_DateAfter1904_SameDay() {
    Parts parts = NewParts();
    parts[QStringLiteral("xl/workbook.xml")].replace("<bookViews>", "<workbookPr date1904=\"1\"/><bookViews>");
    Workbook workbook(PackageOf(parts));
    workbook.SetCell(3, 1, QDate(2026, 11, 21));
    const QByteArray bytes = workbook.Pack();
    QVERIFY(SheetAfter(bytes).contains("<v>44885</v>"));
    QCOMPARE(Shown(Workbook(bytes).Cell(3, 1)), QStringLiteral("2026-11-21"));
}

void tst_workbook::SetCell_Dates_FormatOfTheirOwn() {
    Parts parts = NewParts();
    parts[QStringLiteral("xl/styles.xml")].replace(
        "</cellXfs>",
        "<xf numFmtId=\"2\" fontId=\"3\"><alignment wrapText=\"1\"/></xf><xf numFmtId=\"17\"/></cellXfs>");
    parts[SheetName] = SheetOf("<sheetData><row r='3'><c r='B3' s='1'/><c r='C3' s='2'/></row></sheetData>");
    Workbook workbook(PackageOf(parts));
    for (int column = 1; column <= 3; ++column)
        for (int row = 3; row <= 4; ++row)
            workbook.SetCell(row, column, QDate(2026, 11, 21));
    const QByteArray bytes = workbook.Pack();
    const QByteArray styles = ZipPackage(bytes).Read(QStringLiteral("xl/styles.xml"), 1 << 20);
    QVERIFY(styles.contains("<xf numFmtId=\"14\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" "
                            "applyNumberFormat=\"1\"/><xf numFmtId=\"14\" fontId=\"3\" applyNumberFormat=\"1\">"
                            "<alignment wrapText=\"1\"/></xf></cellXfs>"));
    const QByteArray fonts = parts[QStringLiteral("xl/styles.xml")];
    QVERIFY(styles.contains(fonts.sliced(fonts.indexOf("<fonts"), 300)));
    QVERIFY(SheetAfter(bytes).contains("<c r=\"A3\" s=\"3\"><v>46347</v></c><c r=\"B3\" s=\"4\"><v>46347</v></c>"
                                       "<c r=\"C3\" s=\"2\"><v>46347</v></c>"));

    // The next date finds the format that is there.
    Workbook again(bytes);
    again.SetCell(9, 1, QDate(2026, 11, 22));
    QCOMPARE(ZipPackage(again.Pack()).Read(QStringLiteral("xl/styles.xml"), 1 << 20), styles);
}

void tst_workbook::SetCell_NoStyles_Added() {
    Parts parts = NewParts();
    parts.remove(QStringLiteral("xl/styles.xml"));
    const QByteArray relation = "<Relationship Id=\"rId2\"";
    QByteArray& relations = parts[QStringLiteral("xl/_rels/workbook.xml.rels")];
    relations = relations.first(relations.indexOf(relation)) + "</Relationships>";
    Workbook workbook(PackageOf(parts));
    workbook.SetCell(3, 1, QDate(2026, 11, 21));
    QCOMPARE(Shown(Workbook(workbook.Pack()).Cell(3, 1)), QStringLiteral("2026-11-21"));
}

void tst_workbook::Formula_References_DependOnTheRow_data() {
    QTest::addColumn<QString>("formula");
    QTest::addColumn<bool>("depends");
    // The formula stands in the sheet "Other"; C6:E6 of "My Results" changes.
    for (const char* formula :
         {"SUM('My Results'!C4:C100)", "'My Results'!$D$6", "'my results'!E6*2", "SUM('My Results'!C:C)",
          "SUM('My Results'!6:7)", "SUM('My Results'!E9:A1)", "Total", "INDIRECT(\"A1\")", "OFFSET(A1,1,1)",
          "Table1[Score]", "SUM('A:My Results'!A1)", "SUM('My Results'!A1,'My Results'!C6)", "1+Taxe_A1"})
        QTest::newRow(formula) << QString::fromUtf8(formula) << true;
    for (const char* formula :
         {"SUM('My Results'!C4:C5)", "'My Results'!F6", "C6", "SUM(C4:C100)", "Results!C6", "1+1", "LOG10(A1)+2E5-.5",
          "\"'My Results'!C6\"", "IF(TRUE,A1,#REF!)", "[1]Sheet!C6", "'[1]My Results'!C6", "SUM('My Results'!A:B)",
          "TODAY()", "SUM('My Results'!1:5)", "A1&\" \"&B2", "DATE(2026,1,1)"})
        QTest::newRow(formula) << QString::fromUtf8(formula) << false;
}

void tst_workbook::Formula_References_DependOnTheRow() {
    QFETCH(QString, formula);
    const CellBlock block{QStringLiteral("My Results"), 6, 6, 3, 5};
    QTEST(FormulaReach(formula, QStringLiteral("Other")).MayDependOn(block), "depends");
}

void tst_workbook::Pack_StaleResults_Dropped() {
    const QByteArray rows =
        "<sheetData><row r='1'><c r='B1'><f>SUM(A3:A9)</f><v>1</v></c><c r='C1'><f>B1+1</f><v>2</v></c>"
        "<c r='D1'><f>1+1</f><v>2</v></c><c r='E1'><f t='shared' si='0' ref='E1:E2'>A2</f><v>3</v></c>"
        "<c r='F1' t='str'><f>IF(C1,\"a\",\"b\")</f><v>a</v></c></row>"
        "<row r='2'><c r='E2'><f t='shared' si='0'/><v>4</v></c></row></sheetData>";
    Workbook workbook(WorkbookWith(rows));
    workbook.SetCell(3, 1, 7.0);
    const QByteArray bytes = workbook.Pack();
    QByteArray expected = rows;
    for (const char* result :
         {"</f><v>1</v>", "+1</f><v>2</v></c><c r='D1'", "A2</f><v>3</v>", "</f><v>a</v>", "<v>4</v>"}) {
        QVERIFY(expected.contains(result));
        const QByteArray text(result);
        const qsizetype begin = text.indexOf("<v>");
        expected.replace(text, text.first(begin) + text.sliced(text.indexOf("</v>") + 4));
    }
    expected.replace("</sheetData>", "<row r=\"3\">" + Cell("A3") + "</row></sheetData>");
    QCOMPARE(SheetAfter(bytes), SheetOf(expected));
    QVERIFY(ZipPackage(bytes)
                .Read(QStringLiteral("xl/workbook.xml"), 1 << 20)
                .contains("</sheets><calcPr fullCalcOnLoad=\"1\"/></workbook>"));
}

// Formulas that may depend on anything, and formulas that each depend on the next one: following each of them through
// all others takes minutes.
void tst_workbook::Pack_ManyFormulas_InLinearTime() {
    QByteArray rows = "<sheetData>";
    for (int row = 3; row < 50'003; ++row) {
        const QByteArray number = QByteArray::number(row);
        rows += "<row r='" + number + "'><c r='A" + number + "'><f>INDIRECT(\"B" + number + "\")</f><v>1</v></c><c r='B" +
                number + "'><f>B" + QByteArray::number(row + 1) + "+1</f><v>1</v></c></row>";
    }
    Workbook workbook(WorkbookWith(rows + "</sheetData>"));
    workbook.SetCell(50'003, 2, 7.0);
    QElapsedTimer time;
    time.start();
    const QByteArray sheet = ZipPackage(workbook.Pack()).Read(SheetName, 1 << 30);
    QVERIFY2(time.elapsed() < 30'000, qPrintable(QString::number(time.elapsed())));
    QCOMPARE(sheet.count("<v>"), 1);
}

void tst_workbook::Pack_OtherParts_AsTheyWere() {
    Parts parts = NewParts();
    parts[QStringLiteral("xl/charts/chart1.xml")] = "<chart/>";
    parts[QStringLiteral("xl/media/a.png")] = QByteArray("\x89PNG\0\1\2", 7);
    parts[QStringLiteral("custom/größe.txt")] = "whatever";
    const QByteArray before = PackageOf(parts);
    Workbook workbook(before);
    workbook.SetCell(3, 1, QStringLiteral("x"));
    const ZipPackage after(workbook.Pack());
    for (auto part = parts.cbegin(); part != parts.cend(); ++part)
        if (part.key() != SheetName)
            QCOMPARE(after.Read(part.key(), 1 << 20), part.value());
}

void tst_workbook::Open_ActiveSheet_ThatOrFirstVisible_data() {
    QTest::addColumn<int>("active");
    QTest::addColumn<QString>("states");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("first") << 0 << "vvv"
                           << "1";
    QTest::newRow("another") << 2 << "vvv"
                             << "3";
    QTest::newRow("hidden") << 0 << "hvv"
                            << "2";
    QTest::newRow("very hidden") << 1 << "vHv"
                                 << "1";
    QTest::newRow("a chart") << 0 << "cvv"
                             << "2";
    QTest::newRow("beyond") << 7 << "hvv"
                            << "2";
    QTest::newRow("none") << 0 << "hHc"
                          << "it has no visible worksheet";
}

void tst_workbook::Open_ActiveSheet_ThatOrFirstVisible() {
    QFETCH(int, active);
    QFETCH(QString, states);
    Parts parts = NewParts();
    QByteArray sheets, relations;
    for (int i = 1; i <= 3; ++i) {
        const QChar state = states[i - 1];
        const QByteArray n = QByteArray::number(i);
        sheets += "<sheet name=\"S" + n + "\" sheetId=\"" + n + "\" r:id=\"r" + n + '"' +
                  (state == u'h'   ? " state=\"hidden\""
                   : state == u'H' ? " state=\"veryHidden\""
                                   : "") +
                  "/>";
        relations += "<Relationship Id=\"r" + n + "\" Type=\"http://x/" + (state == u'c' ? "chartsheet" : "worksheet") +
                     "\" Target=\"s" + n + ".xml\"/>";
        parts[QStringLiteral("xl/s%1.xml").arg(i)] =
            SheetOf("<sheetData><row><c><v>" + n + "</v></c></row></sheetData>");
    }
    parts[QStringLiteral("xl/workbook.xml")] = "<workbook xmlns:r=\"x\"><bookViews><workbookView activeTab=\"" +
                                               QByteArray::number(active) + "\"/></bookViews><sheets>" + sheets +
                                               "</sheets></workbook>";
    parts[QStringLiteral("xl/_rels/workbook.xml.rels")] = "<Relationships>" + relations + "</Relationships>";
    QString found;
    try {
        found = Shown(Workbook(PackageOf(parts)).Cell(1, 1));
    } catch (const WorkbookError& failure) {
        found = failure.Message();
    }
    QTEST(found, "sheet");
}

void tst_workbook::Open_OtherDialect_Read() {
    Parts parts = NewParts();
    for (QByteArray& part : parts) {
        part.replace("http://schemas.openxmlformats.org/officeDocument/2006/relationships",
                     "http://purl.oclc.org/ooxml/officeDocument/relationships");
        part.replace("http://schemas.openxmlformats.org/spreadsheetml/2006/main",
                     "http://purl.oclc.org/ooxml/spreadsheetml/main");
    }
    parts[SheetName].prepend("\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>");
    Workbook workbook(PackageOf(parts));
    workbook.SetCell(3, 1, 1.0);
    QCOMPARE(Shown(Workbook(workbook.Pack()).Cell(3, 1)), QStringLiteral("1"));
}

void tst_workbook::Open_BadPackage_Reason_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto sheet = [](const char* name, const QByteArray& xml, const char* reason) {
        Parts parts = NewParts();
        parts[SheetName] = xml;
        QTest::newRow(name) << PackageOf(parts) << QString::fromUtf8(reason);
    };
    const QByteArray whole = NewWorkbookBytes();
    QTest::newRow("text") << QByteArray("Dear diary") << "it is no workbook, or a damaged one (Not a zip archive)";
    QTest::newRow("cut") << whole.first(whole.size() / 2) << "it is no workbook, or a damaged one (Not a zip archive)";
    QTest::newRow("something else") << PackageOf({{QStringLiteral("a.txt"), "a"}})
                                    << "it is a zip archive of something else";
    Parts document = NewParts();
    document[QStringLiteral("xl/workbook.xml")] = "<w:document xmlns:w=\"x\"/>";
    QTest::newRow("a letter") << PackageOf(document) << "it is a document of another kind";
    Parts missing = NewParts();
    missing.remove(SheetName);
    QTest::newRow("sheet missing") << PackageOf(missing) << "its part 'xl/worksheets/sheet1.xml' is missing";
    Parts leading = NewParts();
    leading[QStringLiteral("../evil")] = "x";
    QTest::newRow("leads out") << PackageOf(leading) << "its entry '../evil' leads out of it";
    sheet("no XML", "nonsense", "its sheet has no place for rows");
    sheet("cut XML", "<worksheet><sheetData><row>", "a part of it is no well-formed XML");
    sheet("crossed XML", "<worksheet><sheetData></worksheet></sheetData>", "a part of it is no well-formed XML");
    sheet("other root", "<chartsheet><a/></chartsheet>", "its sheet is no worksheet");
    sheet("no rows", "<worksheet><a/></worksheet>", "its sheet has no place for rows");
    sheet("rows out of order", SheetOf("<sheetData><row r='4'/><row r='3'/></sheetData>"),
          "the rows or cells of its sheet are not in order");
    sheet("document type", "<!DOCTYPE x [<!ENTITY a 'b'>]><worksheet><sheetData/></worksheet>",
          "a part of it declares a document type");
    sheet("UTF-16", "\xFF\xFE<", "a part of it is in another encoding than UTF-8");
    sheet("other encoding", "<?xml version='1.0' encoding='windows-1252'?><worksheet><sheetData/></worksheet>",
          "a part of it is in another encoding than UTF-8");
}

void tst_workbook::Open_BadPackage_Reason() {
    QFETCH(QByteArray, bytes);
    try {
        const Workbook workbook(bytes);
        QFAIL("It was read");
    } catch (const WorkbookError& failure) {
        QTEST(failure.Message(), "reason");
    }
}

// Nothing but a failure of the known kind may come of a damaged file.
void tst_workbook::Open_EveryTruncation_RefusedOrRead() {
    const QByteArray whole = WorkbookWith("<sheetData><row r='3'><c r='A3'><v>1</v></c></row></sheetData>");
    for (qsizetype length = 0; length < whole.size(); ++length)
        QVERIFY_THROWS_EXCEPTION(WorkbookError, Workbook(whole.first(length)));
}

void tst_workbook::Open_EveryByteOfTheSheetDamaged_RefusedOrRead() {
    const QByteArray sheet =
        SheetOf("<dimension ref=\"A1:B2\"/><cols><col min='1' max='2' style='1'/></cols><sheetData>"
                "<row r='3' spans='1:2'><c r='A3' t='inlineStr'><is><t>&amp;</t></is></c>"
                "<c r='B3' s='1'><f>1</f><v>2</v></c></row></sheetData>");
    Parts parts = NewParts();
    int read = 0;
    for (qsizetype i = 0; i < sheet.size(); ++i) {
        for (const char with : {'<', '>', '"', '\0', '9'}) {
            parts[SheetName] = sheet;
            parts[SheetName][i] = with;
            try {
                Workbook workbook(PackageOf(parts));
                workbook.Cell(3, 1);
                workbook.SetCell(3, 1, 1.0);
                workbook.SetCell(4, 3, QDate(2026, 11, 21));
                workbook.Pack();
                ++read;
            } catch (const Failure&) {
            }
        }
    }
    QVERIFY(read > 0);
}

QTEST_GUILESS_MAIN(tst_workbook)
#include "tst_workbook.moc"
