#include "editor/OptionBoxes.h"
#include "editor/SubscaleEdits.h"
#include "editor/TotalRangeEdits.h"

#include <QtTest>

namespace {

/// Sub-scales "A", "B", "C" with 1, 2 and 3 ranges; range r of sub-scale s has the text "A1" and so on.
TestDocument ThreeSubscales() {
    TestDocument test;
    for (int s = 1; s <= 3; ++s) {
        const QString name(QLatin1Char(static_cast<char>('@' + s)));
        (void)AddSubscale(test, name);
        for (int r = 1; r <= s; ++r)
            (void)AddSubscaleRange(
                test, s, {QString::number(10 * s + r), QString::number(10 * s + r + 1), name + QString::number(r)});
    }
    return test;
}

void AskQuestionsOf(TestDocument& test, const QList<int>& subscales) {
    for (const int s : subscales)
        test.QuestionSubscale(++test.QuestionCount) = s;
}

QStringList RangesOf(const TestDocument& test, int s) {
    QStringList items;
    for (int r = 1; r <= test.SubscaleRangeCount(s); ++r)
        items.append(SubscaleRangeItem(test, s, r));
    return items;
}

/// "A: 11 to 12 = A1; B: ..." for all sub-scales, those behind the last one included when they hold something.
QStringList Scales(const TestDocument& test) {
    QStringList scales;
    for (int s = 1; s <= MaxSubscales; ++s)
        if (s <= test.SubscaleCount || !test.SubscaleName(s).isEmpty() || test.SubscaleRangeCount(s) != 0)
            scales.append(test.SubscaleName(s) + QStringLiteral(": ") + RangesOf(test, s).join(QStringLiteral(", ")));
    return scales;
}

QStringList TotalRanges(const TestDocument& test) {
    QStringList items;
    for (int r = 1; r <= test.TotalRangeCount; ++r)
        items.append(TotalRangeItem(test, r));
    return items;
}

const QString A = QStringLiteral("A: 11 to 12 = A1");
const QString B = QStringLiteral("B: 21 to 22 = B1, 22 to 23 = B2");
const QString C = QStringLiteral("C: 31 to 32 = C1, 32 to 33 = C2, 33 to 34 = C3");

} // namespace

class tst_scaleedits : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void DeleteSubscale_Each_MovesRangesAndQuestions_data();
    void DeleteSubscale_Each_MovesRangesAndQuestions();
    void DeleteSubscale_Last_NextOneHasNoRanges();
    void Delete_WhatIsNotThere_ChangesNothing();
    void AddSubscale_OverRemains_HasNoRanges();
    void AddSubscale_Full_IsRefused();
    void RenameSubscale_Any_KeepsItsRanges();
    void AddSubscaleRange_Bounds_AreKeptAsTyped_data();
    void AddSubscaleRange_Bounds_AreKeptAsTyped();
    void AddSubscaleRange_Full_IsRefused();
    void EditSubscaleRange_One_ChangesThatOne();
    void DeleteSubscaleRange_Each_MovesTheLaterOnes_data();
    void DeleteSubscaleRange_Each_MovesTheLaterOnes();
    void TotalRanges_AddEditDelete_AreListed();
    void AddTotalRange_Full_IsRefused();
    void OptionBoxes_All_StandInTheirPlace_data();
    void OptionBoxes_All_StandInTheirPlace();
    void OptionEnabled_ClientName_DecidesFour_data();
    void OptionEnabled_ClientName_DecidesFour();
};

void tst_scaleedits::DeleteSubscale_Each_MovesRangesAndQuestions_data() {
    QTest::addColumn<int>("deleted");
    QTest::addColumn<QStringList>("scales");
    QTest::addColumn<QList<int>>("questions");
    // The questions before: 1, 2, 3, 0, 2, 7 (there is no such sub-scale), -1.
    QTest::newRow("first") << 1 << QStringList{B, C} << QList<int>{0, 1, 2, 0, 1, 6, 0};
    QTest::newRow("second") << 2 << QStringList{A, C} << QList<int>{1, 0, 2, 0, 0, 6, 0};
    QTest::newRow("third") << 3 << QStringList{A, B} << QList<int>{1, 2, 0, 0, 2, 6, 0};
}

void tst_scaleedits::DeleteSubscale_Each_MovesRangesAndQuestions() {
    QFETCH(int, deleted);
    TestDocument test = ThreeSubscales();
    AskQuestionsOf(test, {1, 2, 3, 0, 2, 7, -1});
    DeleteSubscale(test, deleted);
    QTEST(Scales(test), "scales");
    QList<int> questions;
    for (int q = 1; q <= test.QuestionCount; ++q)
        questions.append(test.QuestionSubscale(q));
    QTEST(questions, "questions");
}

void tst_scaleedits::DeleteSubscale_Last_NextOneHasNoRanges() {
    TestDocument test = ThreeSubscales();
    DeleteSubscale(test, 3);
    DeleteSubscale(test, 1);
    DeleteSubscale(test, 1);
    QCOMPARE(Scales(test), QStringList());
    QVERIFY(AddSubscale(test, QStringLiteral("New")).Ok());
    QCOMPARE(Scales(test), QStringList{QStringLiteral("New: ")});
    for (int r = 1; r <= MaxRanges; ++r)
        QCOMPARE(SubscaleRangeItem(test, 1, r), QStringLiteral(" to  = "));
}

void tst_scaleedits::Delete_WhatIsNotThere_ChangesNothing() {
    for (TestDocument test : {TestDocument(), ThreeSubscales()}) {
        AskQuestionsOf(test, {1, 3, 5});
        const QStringList before = Scales(test);
        DeleteSubscale(test, test.SubscaleCount + 1);
        DeleteSubscaleRange(test, 1, test.SubscaleRangeCount(1) + 1);
        DeleteTotalRange(test, 1);
        QCOMPARE(Scales(test), before);
        QCOMPARE(test.TotalRangeCount, 0);
        QCOMPARE(test.QuestionSubscale(3), 5);
    }
}

void tst_scaleedits::AddSubscale_OverRemains_HasNoRanges() {
    TestDocument test;
    test.SubscaleRangeCount(1) = 1;
    test.SubscaleRangeLow(1, 1) = 4;
    QVERIFY(AddSubscale(test, QStringLiteral("New")).Ok());
    QCOMPARE(Scales(test), QStringList{QStringLiteral("New: ")});
    QVERIFY(test.SubscaleRangeLow(1, 1).IsEmpty());
}

void tst_scaleedits::AddSubscale_Full_IsRefused() {
    TestDocument test;
    for (int s = 1; s <= MaxSubscales; ++s)
        QVERIFY(AddSubscale(test, QString::number(s)).Ok());
    QCOMPARE(test.SubscaleName(MaxSubscales), QStringLiteral("50"));
    const QStringList before = Scales(test);
    QCOMPARE(AddSubscale(test, QStringLiteral("51")).Message(), QStringLiteral("Only 50 sub-scales are allowed!"));
    QCOMPARE(Scales(test), before);
    QCOMPARE(test.SubscaleCount, 50);
}

void tst_scaleedits::RenameSubscale_Any_KeepsItsRanges() {
    TestDocument test = ThreeSubscales();
    RenameSubscale(test, 1, QStringLiteral("Mood"));
    QCOMPARE(Scales(test), QStringList({QStringLiteral("Mood: 11 to 12 = A1"), B, C}));
}

void tst_scaleedits::AddSubscaleRange_Bounds_AreKeptAsTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("number");
    QTest::newRow("whole") << "5" << true;
    QTest::newRow("negative") << "-12" << true;
    QTest::newRow("largest") << "32767" << true;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("leading nought") << "05" << false;
    QTest::newRow("sign") << "+5" << false;
    QTest::newRow("minus nought") << "-0" << false;
    QTest::newRow("fraction") << "4.5" << false;
    QTest::newRow("blank") << " 5" << false;
    QTest::newRow("too large") << "99999" << false;
    QTest::newRow("exponent") << "1e3" << false;
    QTest::newRow("other digits") << QStringLiteral("٣") << false;
    QTest::newRow("word") << "five" << false;
}

void tst_scaleedits::AddSubscaleRange_Bounds_AreKeptAsTyped() {
    QFETCH(QString, typed);
    QFETCH(bool, number);
    TestDocument test;
    QVERIFY(AddSubscale(test, QStringLiteral("A")).Ok());
    QVERIFY(AddSubscaleRange(test, 1, {typed, typed, QStringLiteral("text")}).Ok());
    for (const Value& bound : {test.SubscaleRangeLow(1, 1), test.SubscaleRangeHigh(1, 1)}) {
        QCOMPARE(bound.Text(), typed);
        QCOMPARE(bound.IsNumber(), number);
    }
}

void tst_scaleedits::AddSubscaleRange_Full_IsRefused() {
    TestDocument test = ThreeSubscales();
    for (int r = 2; r <= MaxRanges; ++r)
        QVERIFY(AddSubscaleRange(test, 1, {QString::number(r), {}, QStringLiteral("t")}).Ok());
    const QStringList before = Scales(test);
    QVERIFY(before[0].endsWith(QStringLiteral("50 to  = t")));
    QCOMPARE(AddSubscaleRange(test, 1, {QStringLiteral("51"), {}, {}}).Message(),
             QStringLiteral("Only 50 ranges are allowed!"));
    QCOMPARE(Scales(test), before);
    QCOMPARE(test.SubscaleRangeCount(1), 50);
}

void tst_scaleedits::EditSubscaleRange_One_ChangesThatOne() {
    TestDocument test = ThreeSubscales();
    EditSubscaleRange(test, 3, 2, {QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("Low")});
    QCOMPARE(Scales(test), QStringList({A, B, QStringLiteral("C: 31 to 32 = C1, 1 to 5 = Low, 33 to 34 = C3")}));
}

void tst_scaleedits::DeleteSubscaleRange_Each_MovesTheLaterOnes_data() {
    QTest::addColumn<int>("deleted");
    QTest::addColumn<QString>("left");
    QTest::newRow("first") << 1 << "C: 32 to 33 = C2, 33 to 34 = C3";
    QTest::newRow("second") << 2 << "C: 31 to 32 = C1, 33 to 34 = C3";
    QTest::newRow("third") << 3 << "C: 31 to 32 = C1, 32 to 33 = C2";
}

void tst_scaleedits::DeleteSubscaleRange_Each_MovesTheLaterOnes() {
    QFETCH(int, deleted);
    QFETCH(QString, left);
    TestDocument test = ThreeSubscales();
    DeleteSubscaleRange(test, 3, deleted);
    QCOMPARE(Scales(test), QStringList({A, B, left}));
    QCOMPARE(SubscaleRangeItem(test, 3, 3), QStringLiteral(" to  = "));
}

void tst_scaleedits::TotalRanges_AddEditDelete_AreListed() {
    TestDocument test;
    for (const int low : {1, 11, 21})
        QVERIFY(AddTotalRange(test, low, low + 9, QStringLiteral("from %1").arg(low)).Ok());
    QCOMPARE(TotalRanges(test), QStringList({QStringLiteral("1 to 10 = from 1"), QStringLiteral("11 to 20 = from 11"),
                                             QStringLiteral("21 to 30 = from 21")}));
    EditTotalRange(test, 3, -32768, 32767, QStringLiteral("all"));
    DeleteTotalRange(test, 1);
    QCOMPARE(TotalRanges(test),
             QStringList({QStringLiteral("11 to 20 = from 11"), QStringLiteral("-32768 to 32767 = all")}));
    DeleteTotalRange(test, 2);
    DeleteTotalRange(test, 1);
    QCOMPARE(test.TotalRangeCount, 0);
}

void tst_scaleedits::AddTotalRange_Full_IsRefused() {
    TestDocument test;
    for (int r = 1; r <= MaxRanges; ++r)
        QVERIFY(AddTotalRange(test, r, r, {}).Ok());
    const QStringList before = TotalRanges(test);
    QCOMPARE(before.last(), QStringLiteral("50 to 50 = "));
    QCOMPARE(AddTotalRange(test, 51, 51, {}).Message(), QStringLiteral("Only 50 ranges are allowed!"));
    QCOMPARE(TotalRanges(test), before);
}

void tst_scaleedits::OptionBoxes_All_StandInTheirPlace_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QList<int>>("indices");
    QTest::newRow("General") << "Options"
                             << "General" << QList<int>{1, 2, 3, 8};
    QTest::newRow("Questions") << "Options"
                               << "Questions" << QList<int>{4, 7, 12, 13, 14};
    QTest::newRow("Scoring") << "Options"
                             << "Scoring" << QList<int>{5, 6, 9};
    QTest::newRow("Prompts") << "Options"
                             << "Prompts" << QList<int>{10, 11};
    QTest::newRow("Automation") << "Automation"
                                << "Automation" << QList<int>{15, 16, 17};
    QTest::newRow("Automatic Reporting") << "Automation"
                                         << "Automatic Reporting" << QList<int>{18, 19, 23, 24};
    QTest::newRow("Directories") << "Export"
                                 << "Directories" << QList<int>{20};
    QTest::newRow("File Name") << "Export"
                               << "File Name" << QList<int>{21};
    QTest::newRow("Include In Export") << "Export"
                                       << "Include In Export" << QList<int>{22, 25, 26, 27, 28, 29, 30, 31};
}

void tst_scaleedits::OptionBoxes_All_StandInTheirPlace() {
    QFETCH(QString, page);
    QFETCH(QString, frame);
    const QStringList pages{QStringLiteral("Options"), QStringLiteral("Automation"), QStringLiteral("Export")};
    QList<int> indices;
    for (size_t i = 0; i < EditorOptionBoxes().size(); ++i) {
        const EditorOptionBox& box = EditorOptionBoxes()[i];
        QCOMPARE(static_cast<size_t>(box.Index), i + 1);
        if (CaptionOf(box.Frame) != frame)
            continue;
        QCOMPARE(pages[static_cast<int>(PageOf(box.Frame))], page);
        indices.append(box.Index);
    }
    QTEST(indices, "indices");
}

void tst_scaleedits::OptionEnabled_ClientName_DecidesFour_data() {
    QTest::addColumn<bool>("clientName");
    QTest::addColumn<QList<int>>("disabled");
    QTest::newRow("asked for") << true << QList<int>{};
    QTest::newRow("not asked for") << false << QList<int>{18, 19, 20, 21};
}

void tst_scaleedits::OptionEnabled_ClientName_DecidesFour() {
    QFETCH(bool, clientName);
    TestDocument test;
    for (int i = 1; i <= OptionCount; ++i)
        test.TestOption(i) = !clientName;
    test.TestOption(PromptClientName) = clientName;
    QList<int> disabled;
    for (const EditorOptionBox& box : EditorOptionBoxes())
        if (!EditorOptionEnabled(test, box.Index))
            disabled.append(box.Index);
    QTEST(disabled, "disabled");
}

QTEST_GUILESS_MAIN(tst_scaleedits)
#include "tst_scaleedits.moc"
