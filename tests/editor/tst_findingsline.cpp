#include "editor/FindingsText.h"
#include "editor/ui/FindingsLine.h"
#include "support/WindowDriver.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

namespace {

Finding Found(Severity level, const TestPlace& place, const char* text) {
    return MakeFinding(level, place, TestDocument(), QString::fromUtf8(text));
}

const Finding Warning4 = Found(Severity::Warning, {TestPlace::Question, 4, 0}, "it has no answers & more");
const Finding Error2 = Found(Severity::Error, {TestPlace::Answer, 2, 1}, "the value is\r\nempty");
const Finding WarningWhole = Found(Severity::Warning, {}, "nearly full");

/// The line under a box, as it stands under the tabs.
struct Window : QWidget {
    Window() : box(new QLineEdit), line(new FindingsLine) {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(box);
        layout->addWidget(line);
        resize(600, 120);
    }
    QPushButton& Summary() { return Find<QPushButton>(*this, QStringLiteral("FindingsSummary")); }
    QListWidget* List() { return findChild<QListWidget*>(QStringLiteral("FindingsList")); }

    QLineEdit* box;
    FindingsLine* line;
};

QPalette DarkPalette() {
    QPalette palette(QColor(0x2b, 0x2e, 0x33));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x25));
    return palette;
}

} // namespace

class tst_findingsline : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void FindingsSummary_AnyFindings_CountsThemErrorsFirst_data() {
        QTest::addColumn<std::vector<Finding>>("findings");
        QTest::addColumn<QString>("summary");
        const auto row = [](const char* name, const std::vector<Finding>& findings, const char* summary) {
            QTest::newRow(name) << findings << QString::fromUtf8(summary);
        };
        row("none", {}, "Nothing to note");
        row("a warning", {Warning4}, "1 warning · question 4: it has no answers & more");
        row("an error behind a warning", {Warning4, Error2},
            "1 error, 1 warning · question 2, answer 1: the value is empty");
        row("several", {WarningWhole, Warning4, Error2, Error2},
            "2 errors, 2 warnings · question 2, answer 1: the value is empty");
        row("the whole test", {WarningWhole, Warning4}, "2 warnings · nearly full");
    }

    void FindingsSummary_AnyFindings_CountsThemErrorsFirst() {
        QFETCH(std::vector<Finding>, findings);
        QTEST(FindingsSummary(findings), "summary");
    }

    void PlaceExists_DeletedSince_IsFalse() {
        TestDocument test;
        test.SubscaleCount = test.TotalRangeCount = test.TemplateAnswerCount = 1;
        test.SubscaleRangeCount(1) = 1;
        test.QuestionCount = 2;
        test.AnswerCount(2) = 3;
        // What a deleted question leaves behind.
        test.AnswerCount(3) = 3;
        QVERIFY(!PlaceExists({TestPlace::Answer, 3, 1}, test));
        for (const TestPlace& place :
             {TestPlace{TestPlace::Title, 0, 0}, TestPlace{TestPlace::Subscale, 1, 0},
              TestPlace{TestPlace::SubscaleRange, 1, 1}, TestPlace{TestPlace::TotalRange, 0, 1},
              TestPlace{TestPlace::TemplateAnswer, 0, 1}, TestPlace{TestPlace::Question, 2, 0},
              TestPlace{TestPlace::Answer, 2, 3}}) {
            QVERIFY(PlaceExists(place, test));
            if (place.What == TestPlace::Title)
                continue;
            TestPlace gone = place;
            (gone.SubIndex > 0 ? gone.SubIndex : gone.Index) += 1;
            QVERIFY(!PlaceExists(gone, test));
        }
    }

    void Show_Findings_TellsThemAndTheLength() {
        Window window;
        window.line->Show({Warning4, Error2}, 12345);
        QCOMPARE(window.Summary().accessibleName(), FindingsSummary({Warning4, Error2}));
        QVERIFY(!window.Summary().accessibleDescription().isEmpty());
        auto& length = Find<QLabel>(window, QStringLiteral("FindingsLength"));
        QCOMPARE(length.text(), QStringLiteral("12,345 of 32,767 characters"));
        QVERIFY(!length.font().bold());
        window.line->Show({}, 32768);
        QVERIFY(length.font().bold());
        QCOMPARE(window.Summary().accessibleName(), QStringLiteral("Nothing to note"));
    }

    void Show_AnotherControlHasTheFocus_LeavesItThere() {
        Window window;
        ShowAndActivate(window);
        window.box->setFocus();
        window.line->Show({Warning4, Error2}, 1);
        QTest::qWait(20);
        QVERIFY(window.box->hasFocus());
    }

    void Show_LongFinding_NeverWidensTheWindow() {
        Window window;
        const int before = window.minimumSizeHint().width();
        window.line->Show({Found(Severity::Warning, {}, QByteArray(30000, 'x'))}, 1);
        QVERIFY(window.minimumSizeHint().width() <= before + 8);
    }

    void Click_Nothing_GoesNowhere() {
        Window window;
        ShowAndActivate(window);
        const QSignalSpy chosen(window.line, &FindingsLine::Chosen);
        Click(window, QStringLiteral("FindingsSummary"));
        QVERIFY(chosen.isEmpty());
        QVERIFY(!window.List());
    }

    void Click_OneFinding_GoesThere_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("click") << 0;
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }

    void Click_OneFinding_GoesThere() {
        QFETCH(int, key);
        Window window;
        ShowAndActivate(window);
        window.line->Show({Error2}, 1);
        QSignalSpy chosen(window.line, &FindingsLine::Chosen);
        if (key == 0) {
            Click(window, QStringLiteral("FindingsSummary"));
        } else {
            window.box->setFocus();
            Press(*window.box, Qt::Key_Tab);
            QVERIFY(window.Summary().hasFocus());
            Press(window.Summary(), Qt::Key(key));
        }
        QCOMPARE(chosen.size(), 1);
        QVERIFY(chosen.front().front().value<TestPlace>() == Error2.Place);
        QVERIFY(!window.List());
    }

    void Click_SeveralFindings_ListsThemErrorsFirst() {
        Window window;
        ShowAndActivate(window);
        window.line->Show({Warning4, Error2, WarningWhole}, 1);
        Click(window, QStringLiteral("FindingsSummary"));
        QListWidget* list = window.List();
        QVERIFY(list && list->isVisible());
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->item(0)->text(), QStringLiteral("question 2, answer 1: the value is empty"));
        QVERIFY(list->item(0)->data(Qt::AccessibleTextRole).toString().startsWith(QStringLiteral("Error: ")));
        QCOMPARE(list->item(1)->text(), QStringLiteral("question 4: it has no answers & more"));
        QCOMPARE(list->item(2)->text(), QStringLiteral("nearly full"));
        for (int i = 0; i < 3; ++i)
            QVERIFY(!list->item(i)->icon().isNull());
    }

    void List_Keys_ChooseOrClose() {
        Window window;
        ShowAndActivate(window);
        window.line->Show({Warning4, Error2, WarningWhole}, 1);
        QSignalSpy chosen(window.line, &FindingsLine::Chosen);
        window.Summary().setFocus();
        Press(window.Summary(), Qt::Key_Space);
        QVERIFY(window.List());
        Press(*window.List(), Qt::Key_Escape);
        QTRY_VERIFY(!window.List());
        QVERIFY(chosen.isEmpty());
        QCOMPARE(window.focusWidget(), &window.Summary());

        Press(window.Summary(), Qt::Key_Return);
        QVERIFY(window.List());
        Press(*window.List(), Qt::Key_Down);
        Press(*window.List(), Qt::Key_Return);
        QTRY_VERIFY(!window.List());
        QCOMPARE(chosen.size(), 1);
        QVERIFY(chosen.front().front().value<TestPlace>() == Warning4.Place);
    }

    void List_Click_Chooses() {
        Window window;
        ShowAndActivate(window);
        window.line->Show({Warning4, Error2, WarningWhole}, 1);
        QSignalSpy chosen(window.line, &FindingsLine::Chosen);
        Click(window, QStringLiteral("FindingsSummary"));
        QListWidget* list = window.List();
        QVERIFY(list);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
        QTRY_VERIFY(!window.List());
        QCOMPARE(chosen.size(), 1);
        QVERIFY(chosen.front().front().value<TestPlace>() == Error2.Place);
    }

    void List_ManyFindings_ScrollsOnTheScreen() {
        Window window;
        ShowAndActivate(window);
        window.line->Show(std::vector<Finding>(400, Warning4), 1);
        Click(window, QStringLiteral("FindingsSummary"));
        QListWidget* list = window.List();
        QVERIFY(list);
        const QRect rows = list->visualItemRect(list->item(11));
        QVERIFY(list->viewport()->rect().contains(rows) || rows.bottom() <= list->viewport()->height() + 4);
        QVERIFY(list->visualItemRect(list->item(14)).top() > list->viewport()->height());
        QVERIFY(window.screen()->availableGeometry().contains(list->window()->geometry()));
        Press(*list, Qt::Key_End);
        QCOMPARE(list->currentRow(), 399);
    }

    void Pictures_LightAndDark() {
        const QPalette before = QApplication::palette();
        for (const bool dark : {false, true}) {
            if (dark)
                QApplication::setPalette(DarkPalette());
            const QString name = dark ? QStringLiteral("-dark") : QString();
            Window window;
            ShowAndActivate(window);
            window.Summary().setFocus();
            GrabToPng(window, QStringLiteral("findings-none") + name);
            window.line->Show({WarningWhole, Warning4}, 30123);
            GrabToPng(window, QStringLiteral("findings-warnings") + name);
            window.line->Show(
                {Warning4, Error2, WarningWhole,
                 Found(Severity::Warning, {TestPlace::TotalRange, 0, 3},
                       "no score can reach the range 300 to 900; the scores run from 0 to 250, and so the text "
                       "of this range is never reported to anybody")},
                33000);
            GrabToPng(window, QStringLiteral("findings-errors") + name);
            Click(window, QStringLiteral("FindingsSummary"));
            QVERIFY(window.List());
            GrabToPng(*window.List()->window(), QStringLiteral("findings-list") + name);
        }
        QApplication::setPalette(before);
    }
};

QTEST_MAIN(tst_findingsline)
#include "tst_findingsline.moc"
