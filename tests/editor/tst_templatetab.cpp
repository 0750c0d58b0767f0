#include "editor/EditorPage.h"
#include "editor/QuestionEdits.h"
#include "editor/TemplateEdits.h"
#include "editor/ui/TemplateTab.h"

#include <QListWidget>
#include <QtTest>

namespace {

using namespace Qt::StringLiterals;

const QString Scale = QStringLiteral("[TEMPLATE][A]Never[v=0][/A][A]Often[v=1][/A][A]Always[v=2][/A][/TEMPLATE]");

struct Page : EditorPage<TemplateTab> {
    using EditorPage::EditorPage;

    QListWidget& List() { return Find<QListWidget>(page, QStringLiteral("ListTemplate")); }
    QString Items() {
        QStringList items;
        for (int i = 0; i < List().count(); ++i)
            items += List().item(i)->text();
        return items.join(u'|');
    }
    QString Boxes() { return Text(QStringLiteral("txtTemplate")) + u'=' + Text(QStringLiteral("txtValueTemplate")); }
    QString Operations() {
        QString enabled;
        for (int i = 0; i < 3; ++i)
            if (Enabled(QStringLiteral("Cmdtemplate_%1").arg(i)))
                enabled += QString::number(i);
        return enabled;
    }
    void Fill(const QString& text, const QString& value) {
        Write(QStringLiteral("txtTemplate"), text);
        Write(QStringLiteral("txtValueTemplate"), value);
    }
    void Select(int i) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, List().visualItemRect(List().item(i - 1)).center());
    }
};

const QString AddButton = QStringLiteral("Cmdtemplate_0");
const QString DeleteButton = QStringLiteral("Cmdtemplate_1");
const QString EditButton = QStringLiteral("Cmdtemplate_2");

} // namespace

class tst_templatetab : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Typing_Boxes_EnableButtons_data() {
        QTest::addColumn<bool>("selected");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("operations");
        QTest::newRow("nothing") << false << QString() << QString() << QString();
        QTest::newRow("text alone") << false << u"x"_s << QString() << QString();
        QTest::newRow("value alone") << false << QString() << u"1"_s << QString();
        QTest::newRow("both") << false << u"x"_s << u"-1"_s << u"0"_s;
        QTest::newRow("unfinished value") << false << u"x"_s << u"-"_s << QString();
        QTest::newRow("selected, both") << true << u"x"_s << u"1"_s << u"012"_s;
        QTest::newRow("selected, no value") << true << u"x"_s << QString() << u"1"_s;
        QTest::newRow("selected, no text") << true << QString() << u"1"_s << u"1"_s;
    }
    void Typing_Boxes_EnableButtons() {
        QFETCH(bool, selected);
        QFETCH(QString, text);
        QFETCH(QString, value);
        Page page(Scale);
        QCOMPARE(page.Operations(), QString());
        if (selected)
            page.Select(2);
        page.Fill(text, value);
        QTEST(page.Operations(), "operations");
        QCOMPARE(page.changes.count(), 0);
    }

    void Operations_Clicked_DocumentAndList() {
        Page page{QString()};
        page.Fill(u"Agree"_s, u"3"_s);
        page.ClickOn(AddButton);
        QCOMPARE(page.Items() + page.Boxes() + page.Operations(), u"Agree (v=3)="_s);
        QCOMPARE(page.FocusName(), u"txtTemplate"_s);
        page.Fill(u"Disagree"_s, u"0.5"_s);
        page.ClickOn(AddButton);
        QCOMPARE(page.Items(), u"Agree (v=3)|Disagree (v=0)"_s);

        page.Select(1);
        QCOMPARE(page.Boxes() + page.Operations(), u"Agree=3012"_s);
        page.Fill(u"Agree fully"_s, u"4"_s);
        page.ClickOn(EditButton);
        QCOMPARE(page.Items(), u"Agree fully (v=4)|Disagree (v=0)"_s);
        QCOMPARE(page.Boxes() + page.Operations(), u"Agree fully=4012"_s);

        page.ClickOn(DeleteButton);
        QCOMPARE(page.Items() + page.Boxes() + page.Operations(), u"Disagree (v=0)="_s);
        Press(*page.page.focusWidget(), Qt::Key_Space);
        QCOMPARE(page.Boxes(), u"Disagree=0"_s);
        page.ClickOn(DeleteButton);
        QCOMPARE(page.test.TemplateAnswerCount, 0);
        QCOMPARE(page.Operations(), QString());
        QCOMPARE(page.FocusName(), u"txtTemplate"_s);
        QCOMPARE(page.changes.count(), 5);
    }

    void Add_Eleventh_MessageFirstThenReplacesTenth_data() {
        QTest::addColumn<int>("answers");
        QTest::newRow("ten") << 10;
        QTest::newRow("eleven, from a file") << 11;
    }
    void Add_Eleventh_MessageFirstThenReplacesTenth() {
        QFETCH(int, answers);
        TestDocument test;
        test.TemplateAnswerCount = answers;
        test.TemplateAnswerText(10) = u"tenth"_s;
        Page page(test);
        QCOMPARE(page.List().count(), answers);
        page.Fill(u"new"_s, u"5"_s);
        page.prompts.Expect(OnlySoManyAnswers).Meanwhile([&page, answers] {
            QCOMPARE(page.test.TemplateAnswerCount, answers);
            QCOMPARE(page.test.TemplateAnswerText(10), u"tenth"_s);
        });
        page.ClickOn(AddButton);
        page.prompts.Verify();
        QCOMPARE(page.test.TemplateAnswerCount, 10);
        QCOMPARE(page.List().item(9)->text(), u"new (v=5)"_s);
        QCOMPARE(page.changes.count(), 1);
    }

    void InvalidValue_Typed_ToldAndUnchanged() {
        Page page(Scale);
        page.Select(1);
        page.prompts.Expect(u"Not a valid value"_s);
        page.Write(u"txtValueTemplate"_s, u"x"_s);
        QCOMPARE(page.Operations(), u"1"_s);
        QCOMPARE(page.FocusName(), u"txtValueTemplate"_s);
        QCOMPARE(page.test.TemplateAnswerValue(1), 0);
    }

    void GoTo_Answer_SelectedAndInTheBoxes() {
        Page page(Scale);
        page.page.GoTo({TestPlace::TemplateAnswer, 0, 3});
        QCOMPARE(page.Boxes(), u"Always=2"_s);
        QCOMPARE(page.FocusName(), u"txtTemplate"_s);
        page.test.TemplateAnswerCount = 1;
        page.page.RefreshFromTest();
        QCOMPARE(page.Items() + page.Boxes() + page.Operations(), u"Never (v=0)="_s);
        QCOMPARE(page.changes.count(), 0);
    }
};

QTEST_MAIN(tst_templatetab)
#include "tst_templatetab.moc"
