#include "base/BoundedArray.h"
#include "base/SectionFinder.h"
#include "base/Value.h"
#include "base/WholeNumber.h"

#include <QtTest>

class tst_numbers : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void WholeNumber_Text_Value_data();
    void WholeNumber_Text_Value();
    void WholeNumber_Failure_QuotesTheText();
    void Value_Kinds_NumberAndText();
    void BoundedArray_IndexOutside_Throws();
    void FindSection_Text_Content_data();
    void FindSection_Text_Content();
    void FindSection_NoClosingTag_Throws();
    void FindSection_LongSUpperCase_NoTag();
};

void tst_numbers::WholeNumber_Text_Value_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVariant>("value");
    const QVariant none;
    const auto row = [](const char* text, const QVariant& value) {
        QTest::newRow(qPrintable(QStringLiteral("'%1'").arg(QString::fromUtf8(text))))
            << QString::fromUtf8(text) << value;
    };
    for (const auto& [text, value] :
         std::initializer_list<std::pair<const char*, int>>{{"0", 0},
                                                            {"12", 12},
                                                            {"-5", -5},
                                                            {"+3", 3},
                                                            {" 3 ", 3},
                                                            {"\t7 ", 7},
                                                            {".5", 0},
                                                            {"5.", 5},
                                                            {"0.5", 0},
                                                            {"1.5", 2},
                                                            {"2.5", 2},
                                                            {"3.5", 4},
                                                            {"-0.5", 0},
                                                            {"-1.5", -2},
                                                            {"-2.5", -2},
                                                            {"2.50001", 3},
                                                            {"2.49999", 2},
                                                            {"007", 7},
                                                            {"32767", 32767},
                                                            {"-32768", -32768},
                                                            {"32767.4", 32767},
                                                            {"-32768.5", -32768},
                                                            {"0.5000000000000000000001", 1}})
        row(text, value);
    for (const char* text : {"",
                             " ",
                             "+",
                             "-",
                             ".",
                             "-.",
                             "1e3",
                             "1,000",
                             "1 000",
                             "0x10",
                             "\xD9\xA3",
                             "99999",
                             "32767.5",
                             "32768",
                             "-32769",
                             "- 5",
                             "5-",
                             "1.2.3",
                             "--1",
                             "\xC2\xA0"
                             "5",
                             "99999999999999999999"})
        row(text, none);
}

void tst_numbers::WholeNumber_Text_Value() {
    QFETCH(QString, text);
    QFETCH(QVariant, value);
    const auto number = TryWholeNumber(text);
    QCOMPARE(number ? QVariant(*number) : QVariant(), value);
}

void tst_numbers::WholeNumber_Failure_QuotesTheText() {
    try {
        ToWholeNumber(u" 1e3");
        QFAIL("no exception");
    } catch (const NumberError& error) {
        QCOMPARE(error.Message(), QStringLiteral("' 1e3' is not a whole number from -32768 to 32767"));
    }
}

void tst_numbers::Value_Kinds_NumberAndText() {
    QCOMPARE(Value().Number(), 0);
    QCOMPARE(Value().Text(), QString());
    QCOMPARE(Value(-7).Text(), QStringLiteral("-7"));
    QCOMPARE(Value(QStringLiteral(" 2.5 ")).Number(), 2);
    QCOMPARE(Value(QStringLiteral("many")).Text(), QStringLiteral("many"));
    QVERIFY_EXCEPTION_THROWN(Value(QStringLiteral("many")).Number(), NumberError);
}

void tst_numbers::BoundedArray_IndexOutside_Throws() {
    BoundedArray<int, 3> three;
    three(1) = 1;
    three(3) = 3;
    QCOMPARE(three(1) + three(3), 4);
    QVERIFY_EXCEPTION_THROWN(three(0), BoundError);
    QVERIFY_EXCEPTION_THROWN(three(4), BoundError);
    BoundedArray<bool, 2> flags;
    QVERIFY_EXCEPTION_THROWN(flags(3), BoundError);
    BoundedGrid<int, 2, 3> grid;
    QVERIFY_EXCEPTION_THROWN(grid(3, 1), BoundError);
    QVERIFY_EXCEPTION_THROWN(grid(1, 4), BoundError);
}

void tst_numbers::FindSection_Text_Content_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("content");
    QTest::newRow("any case") << QStringLiteral("x[Title]A b[/tiTLE]y") << 1 << QStringLiteral("A b");
    QTest::newRow("absent") << QStringLiteral("x[/TITLE]") << 1 << QString();
    QTest::newRow("first of two") << QStringLiteral("[TITLE]1[/TITLE][TITLE]2[/TITLE]") << 1 << QStringLiteral("1");
    QTest::newRow("from a start") << QStringLiteral("[TITLE]1[/TITLE][TITLE]2[/TITLE]") << 2 << QStringLiteral("2");
    QTest::newRow("start behind the text") << QStringLiteral("[TITLE]1[/TITLE]") << 99 << QString();
    QTest::newRow("opening tag in the content")
        << QStringLiteral("[TITLE]1[TITLE]2[/TITLE]") << 1 << QStringLiteral("1[TITLE]2");
    QTest::newRow("letters that grow in upper case")
        << QStringLiteral("ßßß[TITLE]ß[/TITLE]") << 1 << QStringLiteral("ß");
}

void tst_numbers::FindSection_Text_Content() {
    QFETCH(QString, text);
    QFETCH(int, start);
    QTEST(FindSection(u"title", text, start), "content");
}

void tst_numbers::FindSection_NoClosingTag_Throws() {
    try {
        FindSection(u"Title", QStringLiteral("[TITLE]x"));
        QFAIL("no exception");
    } catch (const SectionError& error) {
        QCOMPARE(error.Message(), QStringLiteral("I can't find the [/TITLE]tag"));
    }
}

void tst_numbers::FindSection_LongSUpperCase_NoTag() {
    QCOMPARE(FindSection(u"S", QStringLiteral("[\u017F]x[/\u017F][s]y[/s]")), QStringLiteral("y"));
}

QTEST_GUILESS_MAIN(tst_numbers)
#include "tst_numbers.moc"
