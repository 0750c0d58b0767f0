#include "PageParts.h"
#include "editor/TotalRangeEdits.h"
#include "editor/ui/AnalysisTab.h"
#include "editor/ui/SubscalesTab.h"
#include "support/WindowDriver.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

namespace {

/// A page that is shown, with its controls by name.
template <typename Page> struct Shown : PageParts {
    void Open() {
        page = std::make_unique<Page>(Parts());
        page->resize(640, 480);
        ShowAndActivate(*page);
        changes = std::make_unique<QSignalSpy>(page.get(), &EditorTab::Changed);
    }

    QLineEdit& Line(const char* name) { return Find<QLineEdit>(*page, QLatin1String(name)); }
    TextBox& Text(const char* name) { return Find<TextBox>(*page, QLatin1String(name)); }
    EntryList& List(const char* name) { return Find<EntryList>(*page, QLatin1String(name)); }
    bool HasFocus(const char* name) {
        return page->focusWidget() != nullptr && page->focusWidget()->objectName() == QLatin1String(name);
    }

    /// Puts the text into the box with the keyboard, over what was there.
    void TypeInto(const char* name, const QString& text) {
        auto& box = Find<QWidget>(*page, QLatin1String(name));
        box.setFocus();
        Press(box, Qt::Key_A, Qt::ControlModifier);
        Press(box, Qt::Key_Delete);
        Type(box, text);
        QCoreApplication::processEvents();
    }
    void Push(const char* name, int index) {
        Click(*page, QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(index));
    }
    void Pick(const char* name, int entry) {
        EntryList& list = List(name);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          list.visualItemRect(list.item(entry - 1)).center());
    }
    QStringList Entries(const char* name) {
        QStringList entries;
        for (int i = 0; i < List(name).count(); ++i)
            entries.append(List(name).item(i)->text());
        return entries;
    }
    /// The places of the enabled buttons, such as "0 2".
    QString Enabled(const char* name, int count) {
        QStringList places;
        for (int i = 0; i < count; ++i)
            if (Find<QPushButton>(*page, QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(i)).isEnabled())
                places.append(QString::number(i));
        return places.join(u' ');
    }

    std::unique_ptr<Page> page;
    std::unique_ptr<QSignalSpy> changes;
};

struct Subscales : Shown<SubscalesTab> {
    Subscales() {
        for (const char* name : {"Mood", "Sleep", "Energy"})
            (void)AddSubscale(Test, QLatin1String(name));
        (void)AddSubscaleRange(Test, 1, {QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("Low")});
        (void)AddSubscaleRange(Test, 1, {QStringLiteral("six"), QStringLiteral("9"), QStringLiteral("High")});
        (void)AddSubscaleRange(Test, 3, {QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("Tired")});
    }
    void Open() {
        Shown::Open();
        listed = std::make_unique<QSignalSpy>(page.get(), &SubscalesTab::SubscalesChanged);
    }
    QStringList Names() { return Entries("ListSubScale"); }
    QStringList Ranges() { return Entries("ListSubScaleSig"); }
    QString EnabledButtons() { return Enabled("CmdSubScaleAdd", 7); }
    QStringList Boxes() {
        return {Line("txtSubScale").text(), Line("txtSubScaleSigLow").text(), Line("txtSubScaleSigHigh").text(),
                Text("txtSubScaleSig").Text()};
    }
    void TypeRange(const QString& low, const QString& high, const QString& text) {
        TypeInto("txtSubScaleSigLow", low);
        TypeInto("txtSubScaleSigHigh", high);
        TypeInto("txtSubScaleSig", text);
    }
    /// Changed() and SubscalesChanged() since the last call.
    QPair<qsizetype, qsizetype> Signals() {
        const QPair<qsizetype, qsizetype> counts(changes->count(), listed->count());
        changes->clear();
        listed->clear();
        return counts;
    }

    std::unique_ptr<QSignalSpy> listed;
};

struct Totals : Shown<AnalysisTab> {
    Totals() {
        (void)AddTotalRange(Test, 0, 9, QStringLiteral("few"));
        (void)AddTotalRange(Test, 10, 20, QStringLiteral("many"));
    }
    QStringList Ranges() { return Entries("ListTotalAnalysis"); }
    QString EnabledButtons() { return Enabled("CmdTotalAdd", 3); }
    void TypeRange(const QString& low, const QString& high, const QString& text) {
        TypeInto("txtTotLow", low);
        TypeInto("txtTotHigh", high);
        TypeInto("txtTotText", text);
    }
};

using Counts = QPair<qsizetype, qsizetype>;
const QStringList RangesOfMood{QStringLiteral("1 to 5 = Low"), QStringLiteral("six to 9 = High")};
const QString Few = QStringLiteral("0 to 9 = few");
const QString Many = QStringLiteral("10 to 20 = many");

QStringList CaptionsOf(const QWidget& page) {
    QStringList captions;
    for (const auto* group : page.findChildren<QGroupBox*>())
        captions.append(group->title());
    for (const auto* label : page.findChildren<QLabel*>())
        captions.append(label->text());
    return captions;
}

QString Caption(const QWidget& page, const QString& button) { return Find<QPushButton>(page, button).text(); }

} // namespace

class tst_scaletabs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Subscales_Captions_AreTheSystems() {
        Subscales tab;
        tab.Open();
        const QStringList captions = CaptionsOf(*tab.page);
        for (const char* caption : {"Sub-scale Name", "Sub-Scale Analysis", "Sub-scale score range ", "reports text"})
            QVERIFY2(captions.contains(QLatin1String(caption)), caption);
        const QStringList buttons{QStringLiteral("Add"),    QStringLiteral("Delete"), QStringLiteral("Add"),
                                  QStringLiteral("Delete"), QStringLiteral("Edit"),   QStringLiteral("Edit"),
                                  QStringLiteral("Clear")};
        for (int i = 0; i < buttons.size(); ++i)
            QCOMPARE(Caption(*tab.page, QStringLiteral("CmdSubScaleAdd_%1").arg(i)), buttons[i]);
    }

    void Subscales_Refreshed_ShowsNamesAndNothingChosen() {
        Subscales tab;
        tab.Open();
        QCOMPARE(tab.Names(), QStringList({QStringLiteral("Mood"), QStringLiteral("Sleep"), QStringLiteral("Energy")}));
        QCOMPARE(tab.EnabledButtons(), QString());

        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 2);
        RenameSubscale(tab.Test, 1, QStringLiteral("Temper"));
        const TestDocument before = tab.Test;
        tab.page->RefreshFromTest();
        QCOMPARE(tab.Names()[0], QStringLiteral("Temper"));
        QCOMPARE(tab.Ranges(), QStringList());
        QCOMPARE(tab.Boxes(), QStringList({{}, {}, {}, {}}));
        QCOMPARE(tab.EnabledButtons(), QString());
        QVERIFY(tab.Test.SubscaleName == before.SubscaleName);
        QCOMPARE(tab.Signals(), Counts(0, 0));
    }

    void SubscaleRange_Chosen_FillsTheBoxes() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 2);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Mood"), QStringLiteral("six"), QStringLiteral("9"),
                                           QStringLiteral("High")}));
        // The range's text doesn't stay behind where another sub-scale is chosen.
        tab.Pick("ListSubScale", 3);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Energy"), {}, {}, {}}));
    }

    void SubscaleButtons_States_EnableWhatCanBeDone_data() {
        QTest::addColumn<int>("subscale");
        QTest::addColumn<int>("range");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<QString>("enabled");
        const QStringList none{{}, {}, {}};
        const QStringList full{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("t")};
        QTest::newRow("nothing") << 0 << 0 << "" << none << "";
        QTest::newRow("a name") << 0 << 0 << "N" << none << "0";
        QTest::newRow("a name and a range") << 0 << 0 << "N" << full << "0 6";
        QTest::newRow("chosen") << 1 << 0 << "N" << none << "0 1 4";
        QTest::newRow("chosen, name emptied") << 1 << 0 << "" << none << "1";
        QTest::newRow("chosen, range typed") << 1 << 0 << "N" << full << "0 1 2 4 6";
        QTest::newRow("no low") << 1 << 0 << "N" << QStringList{{}, full[1], full[2]} << "0 1 4 6";
        QTest::newRow("no high") << 1 << 0 << "N" << QStringList{full[0], {}, full[2]} << "0 1 4 6";
        QTest::newRow("no text") << 1 << 0 << "N" << QStringList{full[0], full[1], {}} << "0 1 4 6";
        QTest::newRow("range chosen") << 1 << 1 << "N" << full << "0 1 2 3 4 5 6";
        QTest::newRow("range chosen, boxes emptied") << 1 << 1 << "N" << none << "0 1 3 4";
    }

    void SubscaleButtons_States_EnableWhatCanBeDone() {
        QFETCH(int, subscale);
        QFETCH(int, range);
        QFETCH(QString, name);
        QFETCH(QStringList, boxes);
        Subscales tab;
        tab.Open();
        if (subscale > 0)
            tab.Pick("ListSubScale", subscale);
        if (range > 0)
            tab.Pick("ListSubScaleSig", range);
        tab.TypeInto("txtSubScale", name);
        tab.TypeRange(boxes[0], boxes[1], boxes[2]);
        QTEST(tab.EnabledButtons(), "enabled");
        QCOMPARE(tab.Signals(), Counts(0, 0));
    }

    void SubscaleAdd_Name_IsChosenWithoutRanges() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.TypeInto("txtSubScale", QStringLiteral("Worry"));
        tab.Push("CmdSubScaleAdd", 0);
        QCOMPARE(tab.Test.SubscaleCount, 4);
        QCOMPARE(tab.Test.SubscaleName(4), QStringLiteral("Worry"));
        QCOMPARE(tab.Names().last(), QStringLiteral("Worry"));
        QCOMPARE(tab.List("ListSubScale").Chosen(), 4);
        QCOMPARE(tab.Ranges(), QStringList());
        QCOMPARE(tab.Line("txtSubScale").text(), QStringLiteral("Worry"));
        QCOMPARE(tab.Line("txtSubScale").selectedText(), QStringLiteral("Worry"));
        QVERIFY(tab.HasFocus("txtSubScale"));
        QCOMPARE(tab.Signals(), Counts(1, 1));
    }

    void SubscaleEdit_Name_RenamesTheChosenOne() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.TypeInto("txtSubScale", QStringLiteral("Temper"));
        tab.Push("CmdSubScaleAdd", 4);
        QCOMPARE(tab.Test.SubscaleName(1), QStringLiteral("Temper"));
        QCOMPARE(tab.Names(),
                 QStringList({QStringLiteral("Temper"), QStringLiteral("Sleep"), QStringLiteral("Energy")}));
        QCOMPARE(tab.List("ListSubScale").Chosen(), 1);
        QCOMPARE(tab.Ranges(), RangesOfMood);
        QCOMPARE(tab.Signals(), Counts(1, 1));
    }

    void SubscaleEdit_OddNames_AreKept_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("line break") << "two\r\nlines";
        QTest::newRow("brackets") << "[v=3] <P> [/Q]";
        QTest::newRow("blanks around") << "  Mood ";
        QTest::newRow("40,000 letters") << QString(40000, u'x');
    }

    void SubscaleEdit_OddNames_AreKept() {
        QFETCH(QString, name);
        Subscales tab;
        tab.Test.SubscaleName(1) = name;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Push("CmdSubScaleAdd", 4);
        QCOMPARE(tab.Test.SubscaleName(1), name);
        QCOMPARE(tab.Names()[0], name);
    }

    void SubscaleDelete_Second_MovesTheQuestions() {
        Subscales tab;
        for (const int s : {1, 2, 3})
            tab.Test.QuestionSubscale(++tab.Test.QuestionCount) = s;
        tab.Open();
        tab.Pick("ListSubScale", 2);
        tab.Push("CmdSubScaleAdd", 1);
        QCOMPARE(tab.Names(), QStringList({QStringLiteral("Mood"), QStringLiteral("Energy")}));
        QCOMPARE(tab.List("ListSubScale").Chosen(), 0);
        QCOMPARE(tab.Test.QuestionSubscale(2), 0);
        QCOMPARE(tab.Test.QuestionSubscale(3), 2);
        QVERIFY(tab.HasFocus("ListSubScale"));
        QCOMPARE(tab.Signals(), Counts(1, 1));
        tab.Pick("ListSubScale", 2);
        QCOMPARE(tab.Ranges(), QStringList{QStringLiteral("0 to 3 = Tired")});
    }

    void SubscaleDelete_OnlyOne_LeavesNoneToEdit() {
        Subscales tab;
        DeleteSubscale(tab.Test, 3);
        DeleteSubscale(tab.Test, 2);
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 1);
        tab.Push("CmdSubScaleAdd", 1);
        QCOMPARE(tab.Test.SubscaleCount, 0);
        QCOMPARE(tab.Names(), QStringList());
        QCOMPARE(tab.Ranges(), QStringList());
        QCOMPARE(tab.EnabledButtons(), QStringLiteral("0"));
        QVERIFY(tab.HasFocus("txtSubScale"));
    }

    void SubscaleRangeAdd_Boxes_AreStoredAndEmptied() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 3);
        tab.TypeRange(QStringLiteral("4"), QStringLiteral("+7"), QStringLiteral("Wide awake"));
        tab.Push("CmdSubScaleAdd", 2);
        QCOMPARE(tab.Ranges(), QStringList({QStringLiteral("0 to 3 = Tired"), QStringLiteral("4 to +7 = Wide awake")}));
        QVERIFY(tab.Test.SubscaleRangeLow(3, 2) == Value(4));
        QVERIFY(tab.Test.SubscaleRangeHigh(3, 2) == Value(QStringLiteral("+7")));
        QCOMPARE(tab.Test.SubscaleRangeText(3, 2), QStringLiteral("Wide awake"));
        QCOMPARE(tab.Test.SubscaleRangeCount(3), 2);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Energy"), {}, {}, {}}));
        QVERIFY(tab.HasFocus("txtSubScaleSigLow"));
        QCOMPARE(tab.List("ListSubScale").Chosen(), 3);
        QCOMPARE(tab.Signals(), Counts(1, 1));
    }

    void SubscaleRangeEdit_Chosen_TakesTheBoxes() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 2);
        tab.TypeInto("txtSubScaleSigLow", QStringLiteral("6"));
        tab.Push("CmdSubScaleAdd", 5);
        QCOMPARE(tab.Ranges(), QStringList({RangesOfMood[0], QStringLiteral("6 to 9 = High")}));
        QVERIFY(tab.Test.SubscaleRangeLow(1, 2) == Value(6));
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Mood"), {}, {}, {}}));
        QCOMPARE(tab.Signals(), Counts(1, 1));
    }

    void SubscaleRangeDelete_First_MovesTheOther() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 1);
        tab.Push("CmdSubScaleAdd", 3);
        QCOMPARE(tab.Ranges(), QStringList{RangesOfMood[1]});
        QCOMPARE(tab.Test.SubscaleRangeCount(1), 1);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Mood"), {}, {}, {}}));
        QVERIFY(tab.HasFocus("ListSubScaleSig"));
        QCOMPARE(tab.Signals(), Counts(1, 1));
    }

    void SubscaleRangeClear_Boxes_EmptiesThemOnly() {
        Subscales tab;
        tab.Open();
        tab.Pick("ListSubScale", 1);
        tab.Pick("ListSubScaleSig", 1);
        tab.Push("CmdSubScaleAdd", 6);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Mood"), {}, {}, {}}));
        QCOMPARE(tab.Ranges(), RangesOfMood);
        QVERIFY(tab.HasFocus("txtSubScaleSigLow"));
        QCOMPARE(tab.Signals(), Counts(0, 1));
    }

    void Add_Full_SaysSoAndKeepsWhatIsTyped() {
        Subscales tab;
        while (tab.Test.SubscaleCount < MaxSubscales)
            QVERIFY(AddSubscale(tab.Test, QStringLiteral("S")).Ok());
        while (tab.Test.SubscaleRangeCount(2) < MaxRanges)
            QVERIFY(
                AddSubscaleRange(tab.Test, 2, {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("t")}).Ok());
        tab.Open();
        tab.TypeInto("txtSubScale", QStringLiteral("One more"));
        tab.PageParts::Boxes.Expect(QStringLiteral("Only 50 sub-scales are allowed!"));
        tab.Push("CmdSubScaleAdd", 0);
        QCOMPARE(tab.Names().size(), 50);
        QCOMPARE(tab.Line("txtSubScale").text(), QStringLiteral("One more"));
        tab.TypeInto("txtSubScale", {});
        tab.Pick("ListSubScale", 2);
        tab.TypeRange(QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("more"));
        tab.PageParts::Boxes.Expect(QStringLiteral("Only 50 ranges are allowed!"));
        tab.Push("CmdSubScaleAdd", 2);
        QCOMPARE(tab.Ranges().size(), 50);
        QCOMPARE(tab.Text("txtSubScaleSig").Text(), QStringLiteral("more"));
        QCOMPARE(tab.Signals(), Counts(0, 0));

        Totals totals;
        while (totals.Test.TotalRangeCount < MaxRanges)
            QVERIFY(AddTotalRange(totals.Test, 1, 2, QStringLiteral("t")).Ok());
        totals.Open();
        totals.TypeRange(QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("more"));
        totals.Boxes.Expect(QStringLiteral("Only 50 ranges are allowed!"));
        totals.Push("CmdTotalAdd", 0);
        QCOMPARE(totals.Ranges().size(), 50);
        QCOMPARE(totals.Text("txtTotText").Text(), QStringLiteral("more"));
        QCOMPARE(totals.changes->count(), 0);
    }

    void Subscales_KeyboardAlone_WritesARange() {
        Subscales tab;
        tab.Open();
        const auto press = [&tab](Qt::Key key) { Press(*tab.page->focusWidget(), key); };
        const auto type = [&tab](const char* text) { Type(*tab.page->focusWidget(), QLatin1String(text)); };
        tab.Line("txtSubScale").setFocus();
        type("Worry");
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        // The new name can be typed over at once; over Edit and Delete it goes to the list, and on to the range.
        QVERIFY(tab.HasFocus("txtSubScale"));
        for (int i = 0; i < 5; ++i)
            press(Qt::Key_Tab);
        QVERIFY2(tab.HasFocus("txtSubScaleSigLow"), qPrintable(tab.page->focusWidget()->objectName()));
        type("1");
        press(Qt::Key_Tab);
        type("5");
        press(Qt::Key_Tab);
        type("Calm");
        press(Qt::Key_Tab);
        press(Qt::Key_Space);
        QCOMPARE(tab.Ranges(), QStringList{QStringLiteral("1 to 5 = Calm")});
        QCOMPARE(SubscaleRangeItem(tab.Test, 4, 1), QStringLiteral("1 to 5 = Calm"));

        // Down chooses the first one where none is chosen.
        tab.List("ListSubScaleSig").setFocus();
        press(Qt::Key_Down);
        QCOMPARE(tab.List("ListSubScaleSig").Chosen(), 1);
        QCOMPARE(tab.Text("txtSubScaleSig").Text(), QStringLiteral("Calm"));
    }

    void SubscalesGoTo_Places_ShowsThem() {
        Subscales tab;
        tab.Open();
        tab.page->GoTo({TestPlace::Subscale, 2, 0});
        QCOMPARE(tab.List("ListSubScale").Chosen(), 2);
        QVERIFY(tab.HasFocus("txtSubScale"));
        tab.page->GoTo({TestPlace::SubscaleRange, 1, 2});
        QCOMPARE(tab.List("ListSubScale").Chosen(), 1);
        QCOMPARE(tab.List("ListSubScaleSig").Chosen(), 2);
        QCOMPARE(tab.Boxes(), QStringList({QStringLiteral("Mood"), QStringLiteral("six"), QStringLiteral("9"),
                                           QStringLiteral("High")}));
        QVERIFY(tab.HasFocus("txtSubScaleSigLow"));
        QCOMPARE(tab.Signals(), Counts(0, 0));
    }

    void Subscales_LongestTest_StaysQuick() {
        Subscales tab;
        tab.Test = TestDocument();
        for (int s = 1; s <= MaxSubscales; ++s) {
            QVERIFY(AddSubscale(tab.Test, QStringLiteral("Sub-scale %1").arg(s)).Ok());
            for (int r = 1; r <= MaxRanges; ++r)
                QVERIFY(
                    AddSubscaleRange(tab.Test, s, {QString::number(r), QString::number(r), QString(600, u'x')}).Ok());
        }
        tab.Test.QuestionCount = MaxQuestions;
        tab.Open();
        // Generous, so that it holds in a slow build; the way there has nothing that grows faster than the test.
        QElapsedTimer timer;
        timer.start();
        for (int s = 1; s <= 20; ++s) {
            Press(tab.List("ListSubScale"), Qt::Key_Down);
            tab.page->grab();
        }
        const qint64 each = timer.elapsed() / 20;
        QCOMPARE(tab.List("ListSubScale").Chosen(), 20);
        qInfo("%lld ms to choose a sub-scale and draw the page", each);
        QVERIFY2(each < 100, qPrintable(QString::number(each)));
    }

    void Analysis_Captions_AreTheSystems() {
        Totals tab;
        tab.Open();
        const QStringList captions = CaptionsOf(*tab.page);
        for (const char* caption : {"Total Score Analysis", "Total score range", "reports text "})
            QVERIFY2(captions.contains(QLatin1String(caption)), caption);
        QCOMPARE(tab.Ranges(), QStringList({Few, Many}));
        QCOMPARE(tab.EnabledButtons(), QString());
    }

    void TotalButtons_States_EnableWhatCanBeDone_data() {
        QTest::addColumn<int>("range");
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<QString>("enabled");
        const QString one = QStringLiteral("1");
        const QString text = QStringLiteral("t");
        QTest::newRow("nothing") << 0 << QStringList{{}, {}, {}} << "";
        QTest::newRow("complete") << 0 << QStringList{one, one, text} << "0";
        QTest::newRow("no low") << 0 << QStringList{{}, one, text} << "";
        QTest::newRow("no high") << 0 << QStringList{one, {}, text} << "";
        QTest::newRow("no text") << 0 << QStringList{one, one, {}} << "";
        QTest::newRow("only a sign") << 0 << QStringList{QStringLiteral("-"), one, text} << "";
        QTest::newRow("chosen") << 1 << QStringList{one, one, text} << "0 1 2";
        QTest::newRow("chosen, no text") << 1 << QStringList{one, one, {}} << "1";
        QTest::newRow("chosen, no high") << 1 << QStringList{one, {}, text} << "1";
    }

    void TotalButtons_States_EnableWhatCanBeDone() {
        QFETCH(int, range);
        QFETCH(QStringList, boxes);
        Totals tab;
        tab.Open();
        if (range > 0)
            tab.Pick("ListTotalAnalysis", range);
        tab.TypeRange(boxes[0], boxes[1], boxes[2]);
        QTEST(tab.EnabledButtons(), "enabled");
    }

    void TotalBounds_NoNumbers_AreAnswered_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        for (const char* box : {"txtTotLow", "txtTotHigh"}) {
            QTest::addRow("%s exponent", box) << QString::fromLatin1(box) << "1e3";
            QTest::addRow("%s other digits", box) << QString::fromLatin1(box) << QStringLiteral("٣");
            QTest::addRow("%s too large", box) << QString::fromLatin1(box) << "99999";
            QTest::addRow("%s word", box) << QString::fromLatin1(box) << "five";
        }
    }

    void TotalBounds_NoNumbers_AreAnswered() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        Totals tab;
        tab.Open();
        tab.TypeRange(QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("t"));
        auto& bound = Find<QLineEdit>(*tab.page, box);
        bound.setFocus();
        bound.selectAll();
        QGuiApplication::clipboard()->setText(typed);
        tab.Boxes.Expect(QStringLiteral("Not a valid value"));
        Press(bound, Qt::Key_V, Qt::ControlModifier);
        QCoreApplication::processEvents();
        tab.Boxes.Verify();
        QCOMPARE(bound.text(), typed);
        QCOMPARE(bound.selectedText(), typed);
        QVERIFY(bound.hasFocus());
        QCOMPARE(tab.EnabledButtons(), QString());
        Type(bound, QStringLiteral("7"));
        QCOMPARE(tab.EnabledButtons(), QStringLiteral("0"));
        QCOMPARE(tab.Ranges(), QStringList({Few, Many}));
    }

    void TotalAdd_Boxes_AreStored() {
        Totals tab;
        tab.Open();
        tab.TypeRange(QStringLiteral("-21"), QStringLiteral("30.5"), QStringLiteral("a lot"));
        tab.Push("CmdTotalAdd", 0);
        QCOMPARE(tab.Ranges(), QStringList({Few, Many, QStringLiteral("-21 to 30 = a lot")}));
        QCOMPARE(tab.Test.TotalRangeCount, 3);
        QCOMPARE(tab.Test.TotalRangeLow(3), -21);
        QCOMPARE(tab.Test.TotalRangeHigh(3), 30);
        QCOMPARE(tab.Test.TotalRangeText(3), QStringLiteral("a lot"));
        QCOMPARE(tab.changes->count(), 1);
        // The boxes stand ready to be typed over.
        QVERIFY(tab.HasFocus("txtTotLow"));
        QCOMPARE(tab.Line("txtTotLow").selectedText(), QStringLiteral("-21"));
        QCOMPARE(tab.Text("txtTotText").textCursor().selectedText(), QStringLiteral("a lot"));
    }

    void TotalEdit_Chosen_TakesTheBoxes() {
        Totals tab;
        tab.Open();
        tab.Pick("ListTotalAnalysis", 2);
        QCOMPARE(tab.Line("txtTotLow").text(), QStringLiteral("10"));
        QCOMPARE(tab.Line("txtTotHigh").text(), QStringLiteral("20"));
        QCOMPARE(tab.Text("txtTotText").Text(), QStringLiteral("many"));
        QCOMPARE(tab.EnabledButtons(), QStringLiteral("0 1 2"));
        tab.TypeInto("txtTotHigh", QStringLiteral("30"));
        QCOMPARE(tab.changes->count(), 0);
        tab.Push("CmdTotalAdd", 2);
        QCOMPARE(tab.Ranges(), QStringList({Few, QStringLiteral("10 to 30 = many")}));
        QCOMPARE(tab.Test.TotalRangeHigh(2), 30);
        QCOMPARE(tab.changes->count(), 1);
    }

    void TotalDelete_First_MovesTheOther() {
        Totals tab;
        tab.Open();
        tab.Pick("ListTotalAnalysis", 1);
        tab.Push("CmdTotalAdd", 1);
        QCOMPARE(tab.Ranges(), QStringList{Many});
        QCOMPARE(tab.Test.TotalRangeCount, 1);
        QVERIFY(tab.HasFocus("ListTotalAnalysis"));
        QCOMPARE(tab.changes->count(), 1);
        Press(tab.List("ListTotalAnalysis"), Qt::Key_Down);
        tab.Push("CmdTotalAdd", 1);
        QCOMPARE(tab.Ranges(), QStringList());
        QCOMPARE(tab.Test.TotalRangeCount, 0);
        QVERIFY(!Find<QPushButton>(*tab.page, QStringLiteral("CmdTotalAdd_1")).isEnabled());
    }

    void TotalText_LineBreaks_AreKept() {
        Totals tab;
        tab.Test.TotalRangeText(1) = QStringLiteral("two\r\nlines");
        tab.Open();
        tab.Pick("ListTotalAnalysis", 1);
        tab.TypeInto("txtTotLow", QStringLiteral("1"));
        tab.Push("CmdTotalAdd", 2);
        QCOMPARE(tab.Test.TotalRangeText(1), QStringLiteral("two\r\nlines"));
        QCOMPARE(tab.Ranges()[0], QStringLiteral("1 to 9 = two\r\nlines"));
    }

    void AnalysisGoTo_Range_ShowsIt() {
        Totals tab;
        tab.Open();
        tab.page->GoTo({TestPlace::TotalRange, 0, 2});
        QCOMPARE(tab.List("ListTotalAnalysis").Chosen(), 2);
        QCOMPARE(tab.Text("txtTotText").Text(), QStringLiteral("many"));
        QVERIFY(tab.HasFocus("txtTotLow"));
        QCOMPARE(tab.changes->count(), 0);
    }
};

QTEST_MAIN(tst_scaletabs)
#include "tst_scaletabs.moc"
