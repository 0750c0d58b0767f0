#include "app/HelpPages.h"
#include "app/ui/AboutBox.h"
#include "app/ui/GuardedApplication.h"
#include "app/ui/HelpWindow.h"
#include "base/BoundedArray.h"
#include "platform/ui/LinkButton.h"
#include "support/ScriptedPrompts.h"
#include "support/WindowDriver.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QtTest>

namespace {

const QList<HelpTopic> Topics = {HelpTopic::StartScreen,      HelpTopic::TestWindow,      HelpTopic::Names,
                                 HelpTopic::AutoReport,       HelpTopic::TestOptions,     HelpTopic::GeneralOptions,
                                 HelpTopic::ReportEditor,     HelpTopic::About,           HelpTopic::Editor,
                                 HelpTopic::EditorAboutTest,  HelpTopic::EditorSubscales, HelpTopic::EditorTemplate,
                                 HelpTopic::EditorQuestions,  HelpTopic::EditorAnalysis,  HelpTopic::EditorOptions,
                                 HelpTopic::EditorAutomation, HelpTopic::EditorExport,    HelpTopic::HtmlExport,
                                 HelpTopic::SpreadsheetExport};

QString PageText(const QString& page) {
    QFile file(QStringLiteral(":/help/") + page);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A style that asks for no animations.
class StillStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// Fails in its handler, in the way that it is told.
class FailingWidget : public QWidget {
  public:
    std::function<void()> Fail;

  protected:
    void keyPressEvent(QKeyEvent*) override { Fail(); }
};

} // namespace

class tst_about_help : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void About_Shown_SaysNameVersionAndLicence();
    void About_Shown_Moves();
    void About_StyleWithoutAnimations_StandsStill();
    void About_Hidden_StandsStill();
    void Help_EachTopic_HasItsPage();
    void Help_EveryLink_LeadsToAPage();
    void Help_Index_LinksToEveryPage();
    void Help_BackAndForward_FollowThePages();
    void Help_Keys_CloseAndShowTheIndex();
    void ReadableLink_DarkAndLight_StandsOut_data();
    void ReadableLink_DarkAndLight_StandsOut();
    void Notify_HandlerThrows_ShowsTheMessageAndGoesOn();
};

void tst_about_help::About_Shown_SaysNameVersionAndLicence() {
    AboutBox box;
    ShowAndActivate(box);
    QStringList texts;
    for (const auto* label : box.findChildren<QLabel*>())
        texts.append(label->text());
    QVERIFY(texts.contains(QStringLiteral("Vellumo")));
    QVERIFY(texts.contains(QStringLiteral("Version 1.0")));
    QVERIFY(texts.join(u' ').contains(QStringLiteral("MIT")));
    Click(box, QStringLiteral("AboutOk"));
    QVERIFY(!box.isVisible());
}

void tst_about_help::About_Shown_Moves() {
    AboutBox box;
    ShowAndActivate(box);
    QTRY_VERIFY(box.Picture().Moment() > 0);
    box.Picture().Advance(1);
    const QImage one = box.Picture().grab().toImage();
    box.Picture().Advance(2);
    QVERIFY(one != box.Picture().grab().toImage());
}

void tst_about_help::About_StyleWithoutAnimations_StandsStill() {
    StillStyle style;
    AboutBox box;
    box.setStyle(&style);
    ShowAndActivate(box);
    QTest::qWait(150);
    QCOMPARE(box.Picture().Moment(), 0.0);
}

void tst_about_help::About_Hidden_StandsStill() {
    AboutBox box;
    ShowAndActivate(box);
    box.hide();
    const double moment = box.Picture().Moment();
    QTest::qWait(150);
    QCOMPARE(box.Picture().Moment(), moment);
}

void tst_about_help::Help_EachTopic_HasItsPage() {
    QSet<QString> pages;
    HelpWindow window;
    for (const HelpTopic topic : Topics) {
        window.ShowTopic(topic);
        pages.insert(HelpPageOf(topic));
        QVERIFY(!PageText(HelpPageOf(topic)).isEmpty());
        auto& browser = Find<QTextBrowser>(window, QStringLiteral("HelpBrowser"));
        QCOMPARE(browser.source().fileName(), HelpPageOf(topic));
        QVERIFY(browser.toPlainText().size() > 200);
    }
    QCOMPARE(pages.size(), Topics.size());
}

void tst_about_help::Help_EveryLink_LeadsToAPage() {
    const QRegularExpression link(QStringLiteral("href=\"([^\"]*)\""));
    const QStringList pages = QDir(QStringLiteral(":/help")).entryList();
    QVERIFY(pages.size() > Topics.size());
    for (const QString& page : pages)
        for (auto found = link.globalMatch(PageText(page)); found.hasNext();)
            QVERIFY2(pages.contains(found.next().captured(1)), qPrintable(page));
}

void tst_about_help::Help_Index_LinksToEveryPage() {
    const QString index = PageText(HelpIndexPage);
    for (const HelpTopic topic : Topics)
        QVERIFY2(index.contains(HelpPageOf(topic)), qPrintable(HelpPageOf(topic)));
}

void tst_about_help::Help_BackAndForward_FollowThePages() {
    HelpWindow window;
    window.ShowTopic(HelpTopic::Names);
    ShowAndActivate(window);
    auto& browser = Find<QTextBrowser>(window, QStringLiteral("HelpBrowser"));
    QVERIFY(!Find<QPushButton>(window, QStringLiteral("HelpBack")).isEnabled());
    Click(window, QStringLiteral("HelpContents"));
    QCOMPARE(browser.source().fileName(), HelpIndexPage);
    Click(window, QStringLiteral("HelpBack"));
    QCOMPARE(browser.source().fileName(), QStringLiteral("names.html"));
    Click(window, QStringLiteral("HelpForward"));
    QCOMPARE(browser.source().fileName(), HelpIndexPage);
}

void tst_about_help::Help_Keys_CloseAndShowTheIndex() {
    HelpWindow window;
    window.ShowTopic(HelpTopic::Names);
    ShowAndActivate(window);
    auto& browser = Find<QTextBrowser>(window, QStringLiteral("HelpBrowser"));
    Press(browser, Qt::Key_F1);
    QCOMPARE(browser.source().fileName(), HelpIndexPage);
    Press(browser, Qt::Key_Escape);
    QVERIFY(!window.isVisible());
}

void tst_about_help::ReadableLink_DarkAndLight_StandsOut_data() {
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::blue);
    QTest::newRow("dark") << QColor(40, 40, 40) << QColor(Qt::white);
}

void tst_about_help::ReadableLink_DarkAndLight_StandsOut() {
    QFETCH(QColor, background);
    QPalette palette;
    palette.setColor(QPalette::Link, Qt::blue);
    QTEST(ReadableLink(palette, {background}, Qt::white), "colour");
}

void tst_about_help::Notify_HandlerThrows_ShowsTheMessageAndGoesOn() {
    auto* application = dynamic_cast<GuardedApplication*>(qApp);
    QVERIFY(application);
    ScriptedPrompts prompts;
    application->ShowFailuresWith(prompts);
    FailingWidget widget;
    const QList<QPair<std::function<void()>, QString>> failures = {
        {[] { throw BoundError(11, 10); }, QStringLiteral("The index 11 is outside 1 to 10")},
        {[] { throw std::runtime_error("it broke"); }, QStringLiteral("Something went wrong: it broke")},
        {[] { throw 7; }, QStringLiteral("Something went wrong, and nothing is known about it.")},
    };
    for (const auto& [fail, message] : failures) {
        widget.Fail = fail;
        prompts.Expect(message).WithIcon(PromptIcon::Critical);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &key);
    }
    QCOMPARE(prompts.Shown().size(), 3);
}

int main(int argc, char** argv) {
    GuardedApplication application(argc, argv);
    tst_about_help test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_about_help.moc"
