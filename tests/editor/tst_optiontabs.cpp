#include "PageParts.h"
#include "editor/ui/AutomationTab.h"
#include "editor/ui/ExportTab.h"
#include "editor/ui/OptionsTab.h"
#include "platform/ui/ScrollingPage.h"
#include "support/WindowDriver.h"

#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <QtTest>

#include <algorithm>

namespace {

/// The three pages side by side in one window, as the editor holds them.
struct Pages : PageParts {
    Pages() { UserSettings.DefaultDirectory = folder.path(); }
    ~Pages() { QDir::setCurrent(QDir::rootPath()); }

    void Open() {
        checks = std::make_unique<EditorOptionChecks>(Test);
        window = std::make_unique<QWidget>();
        pages = {new OptionsTab(Parts(), *checks), new AutomationTab(Parts(), *checks),
                 new ExportTab(Parts(), *checks)};
        auto* column = new QVBoxLayout(window.get());
        for (EditorTab* page : pages) {
            column->addWidget(page);
            spies.push_back(std::make_unique<QSignalSpy>(page, &EditorTab::Changed));
        }
        spies.push_back(std::make_unique<QSignalSpy>(checks.get(), &EditorOptionChecks::Changed));
        ShowAndActivate(*window);
    }
    /// The changes that options page, automation page, export page and check boxes have told of.
    QList<qsizetype> Changes() const {
        QList<qsizetype> counts;
        for (const auto& spy : spies)
            counts.append(spy->count());
        return counts;
    }
    QLineEdit& Line(const QString& name) { return Find<QLineEdit>(*window, name); }
    QString Disabled() {
        QStringList disabled;
        for (int i = 1; i <= OptionCount; ++i)
            if (!checks->Box(i)->isEnabled())
                disabled.append(QString::number(i));
        return disabled.join(u' ');
    }

    QTemporaryDir folder;
    std::unique_ptr<EditorOptionChecks> checks;
    std::unique_ptr<QWidget> window;
    std::array<EditorTab*, 3> pages{};
    std::vector<std::unique_ptr<QSignalSpy>> spies;
};

QList<int> SetOptions(const TestDocument& test) {
    QList<int> options;
    for (int i = 1; i <= OptionCount; ++i)
        if (test.TestOption(i))
            options.append(i);
    return options;
}

/// A text box, its caption and the field behind it.
struct Field {
    QString Box;
    QString Caption;
    QString TestDocument::*Text;
    size_t Page;
};

const std::array<Field, 4>& Fields() {
    static const std::array<Field, 4> fields{{
        {QStringLiteral("txtautosavedirectory_0"), QStringLiteral("Base directory for reports"),
         &TestDocument::ReportDirectory, 1},
        {QStringLiteral("txtautosavedirectory_1"), QStringLiteral("Directory for reports"),
         &TestDocument::ExcelDirectory, 2},
        {QStringLiteral("txtautosavedirectory_2"), QStringLiteral("Specify an Excel file name:"),
         &TestDocument::ExcelFileName, 2},
        {QStringLiteral("Text1"), QStringLiteral("Specify a file name:"), &TestDocument::AutosaveFileName, 1},
    }};
    return fields;
}

} // namespace

class tst_optiontabs : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void OptionBox_Clicked_SetsItsOption_data();
    void OptionBox_Clicked_SetsItsOption();
    void TestOptionBox_Clicked_SetsItsFlag_data();
    void TestOptionBox_Clicked_SetsItsFlag();
    void ClientName_Clicked_EnablesFourAndKeepsTheirFlags();
    void ClientName_AnyOtherClicked_DecidesAsWell();
    void Refreshed_AnyTest_ShowsItWithoutChange();
    void TextBox_Typed_IsInTheTest_data();
    void TextBox_Typed_IsInTheTest();
    void TextBox_LongPaste_IsNotCut();
    void Directory_Asked_TakesTheAnswer_data();
    void Directory_Asked_TakesTheAnswer();
    void ExportHtml_Clicked_IsWanted();
    void Options_Width_DecidesThePairs_data();
    void Options_Width_DecidesThePairs();
    void Checks_WithoutPages_GoAway();
};

void tst_optiontabs::OptionBox_Clicked_SetsItsOption_data() {
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("frame");
    const auto row = [](int option, const char* caption, const char* page, const char* frame) {
        QTest::addRow("%d", option) << option << QString::fromLatin1(caption) << QString::fromLatin1(page)
                                    << QString::fromLatin1(frame);
    };
    row(1, "Report Title", "OptionsTab", "General");
    row(2, "Report Introduction", "OptionsTab", "General");
    row(3, "Report Instructions", "OptionsTab", "General");
    row(4, "Report Multichoice Answers", "OptionsTab", "Questions");
    row(5, "Report Sub-scale Scores", "OptionsTab", "Scoring");
    row(6, "Report Total Score", "OptionsTab", "Scoring");
    row(7, "Report Number of Questions Completed", "OptionsTab", "Questions");
    row(8, "Report Date and Time Completed", "OptionsTab", "General");
    row(9, "Report Analysis", "OptionsTab", "Scoring");
    row(10, "Client's Name", "OptionsTab", "Prompts");
    row(11, "Tester's Name", "OptionsTab", "Prompts");
    row(12, "Report Short Answers", "OptionsTab", "Questions");
    row(13, "Report Long Answers", "OptionsTab", "Questions");
    row(14, "Report Question", "OptionsTab", "Questions");
    row(15, "Disable all options during test", "AutomationTab", "Automation");
    row(16, "Update all files without prompting", "AutomationTab", "Automation");
    row(17, "Terminate program when test completed", "AutomationTab", "Automation");
    row(18, "Save report as client name", "AutomationTab", "Automatic Reporting");
    row(19, "Create sub-directory as client's name", "AutomationTab", "Automatic Reporting");
    row(20, "Create sub-directory as client's name", "ExportTab", "Directories");
    row(21, "Save Excel file as client's name", "ExportTab", "File Name");
    row(22, "Open Report When Created", "ExportTab", "Include In Export");
    row(23, "Append to file (leave un-checked to create new file each time)", "AutomationTab", "Automatic Reporting");
    row(24, "Open report when created", "AutomationTab", "Automatic Reporting");
    row(25, "Multichoice Answers", "ExportTab", "Include In Export");
    row(26, "Short Answers", "ExportTab", "Include In Export");
    row(27, "Long Answers", "ExportTab", "Include In Export");
    row(28, "Client Name", "ExportTab", "Include In Export");
    row(29, "Date of Test", "ExportTab", "Include In Export");
    row(30, "Sub-scales", "ExportTab", "Include In Export");
    row(31, "Total Score", "ExportTab", "Include In Export");
}

void tst_optiontabs::OptionBox_Clicked_SetsItsOption() {
    QFETCH(int, option);
    QFETCH(QString, frame);
    const QString name = QStringLiteral("ChkReportOptions_%1").arg(option);
    Pages pages;
    pages.Test.TestOption(PromptClientName) = true;
    pages.Open();
    const auto& box = Find<QCheckBox>(*pages.window, name);
    QTEST(box.text(), "caption");
    const auto* group = qobject_cast<QGroupBox*>(box.parentWidget());
    QVERIFY(group != nullptr);
    QCOMPARE(group->title(), frame);
    const QWidget* page = group;
    while (page != nullptr && qobject_cast<const EditorTab*>(page) == nullptr)
        page = page->parentWidget();
    QVERIFY(page != nullptr);
    QTEST(QString::fromLatin1(page->metaObject()->className()), "page");

    const QList<int> before = SetOptions(pages.Test);
    Click(*pages.window, name);
    QList<int> clicked = before;
    if (before.contains(option))
        clicked.removeAll(option);
    else
        clicked.append(option);
    std::ranges::sort(clicked);
    QCOMPARE(SetOptions(pages.Test), clicked);
    QCOMPARE(pages.Changes(), QList<qsizetype>({0, 0, 0, 1}));
    Click(*pages.window, name);
    QCOMPARE(SetOptions(pages.Test), before);
}

void tst_optiontabs::TestOptionBox_Clicked_SetsItsFlag_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("caption");
    QTest::newRow("reporting") << 1 << "Allow Reporting Only When Test Completed";
    QTest::newRow("navigation") << 2 << "Allow Navigation Buttons";
}

void tst_optiontabs::TestOptionBox_Clicked_SetsItsFlag() {
    QFETCH(int, index);
    const QString name = QStringLiteral("ChkTestOptions_%1").arg(index);
    Pages pages;
    pages.Open();
    const auto& box = Find<QCheckBox>(*pages.window, name);
    QTEST(box.text(), "caption");
    QCOMPARE(qobject_cast<QGroupBox*>(box.parentWidget())->title(), QStringLiteral("Test Options"));
    Click(*pages.window, name);
    QCOMPARE(pages.Test.ReportOnlyWhenDone, index == 1);
    QCOMPARE(pages.Test.NavigationButtons, index == 2);
    QCOMPARE(pages.Changes(), QList<qsizetype>({1, 0, 0, 0}));
    Click(*pages.window, name);
    QVERIFY(!pages.Test.ReportOnlyWhenDone);
    QVERIFY(!pages.Test.NavigationButtons);
    QCOMPARE(SetOptions(pages.Test), QList<int>());
}

void tst_optiontabs::ClientName_Clicked_EnablesFourAndKeepsTheirFlags() {
    Pages pages;
    for (const int i : {10, 18, 19, 20, 21})
        pages.Test.TestOption(i) = true;
    pages.Open();
    QCOMPARE(pages.Disabled(), QString());
    Click(*pages.window, QStringLiteral("ChkReportOptions_10"));
    QCOMPARE(pages.Disabled(), QStringLiteral("18 19 20 21"));
    QCOMPARE(SetOptions(pages.Test), QList<int>({18, 19, 20, 21}));
    for (const int i : {18, 19, 20, 21})
        QVERIFY(pages.checks->Box(i)->isChecked());
    Click(*pages.window, QStringLiteral("ChkReportOptions_10"));
    QCOMPARE(pages.Disabled(), QString());
}

void tst_optiontabs::ClientName_AnyOtherClicked_DecidesAsWell() {
    Pages pages;
    pages.Open();
    pages.Test.TestOption(PromptClientName) = true;
    QCOMPARE(pages.Disabled(), QStringLiteral("18 19 20 21"));
    Click(*pages.window, QStringLiteral("ChkReportOptions_1"));
    QCOMPARE(pages.Disabled(), QString());
}

void tst_optiontabs::Refreshed_AnyTest_ShowsItWithoutChange() {
    Pages pages;
    pages.Open();
    for (int i = 1; i <= OptionCount; i += 2)
        pages.Test.TestOption(i) = true;
    pages.Test.ReportOnlyWhenDone = true;
    for (const Field& field : Fields())
        pages.Test.*field.Text = field.Caption;
    const QList<int> before = SetOptions(pages.Test);
    for (EditorTab* page : pages.pages)
        page->RefreshFromTest();
    for (int i = 1; i <= OptionCount; ++i)
        QCOMPARE(pages.checks->Box(i)->isChecked(), i % 2 == 1);
    QCOMPARE(pages.Disabled(), QStringLiteral("18 19 20 21"));
    QVERIFY(Find<QCheckBox>(*pages.window, QStringLiteral("ChkTestOptions_1")).isChecked());
    QVERIFY(!Find<QCheckBox>(*pages.window, QStringLiteral("ChkTestOptions_2")).isChecked());
    for (const Field& field : Fields())
        QCOMPARE(pages.Line(field.Box).text(), field.Caption);
    QCOMPARE(SetOptions(pages.Test), before);
    QCOMPARE(pages.Changes(), QList<qsizetype>({0, 0, 0, 0}));
}

void tst_optiontabs::TextBox_Typed_IsInTheTest_data() {
    QTest::addColumn<int>("field");
    for (size_t i = 0; i < Fields().size(); ++i)
        QTest::addRow("%s", qPrintable(Fields()[i].Box)) << static_cast<int>(i);
}

void tst_optiontabs::TextBox_Typed_IsInTheTest() {
    QFETCH(int, field);
    const Field& row = Fields()[static_cast<size_t>(field)];
    Pages pages;
    for (const Field& other : Fields())
        pages.Test.*other.Text = QStringLiteral("before");
    pages.Open();
    QLineEdit& box = pages.Line(row.Box);
    QStringList captions;
    for (const auto* label : pages.window->findChildren<QLabel*>())
        if (label->buddy() == &box)
            captions.append(label->text());
    QCOMPARE(captions, QStringList{row.Caption});

    Type(box, QStringLiteral("é!"));
    for (const Field& other : Fields())
        QCOMPARE(pages.Test.*other.Text, other.Box == row.Box ? QStringLiteral("beforeé!") : QStringLiteral("before"));
    QList<qsizetype> changes{0, 0, 0, 0};
    changes[static_cast<qsizetype>(row.Page)] = 2;
    QCOMPARE(pages.Changes(), changes);
}

void tst_optiontabs::TextBox_LongPaste_IsNotCut() {
    Pages pages;
    pages.Open();
    QLineEdit& box = pages.Line(QStringLiteral("Text1"));
    box.setFocus();
    QGuiApplication::clipboard()->setText(QString(40000, u'x'));
    Press(box, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(pages.Test.AutosaveFileName, QString(40000, u'x'));
}

void tst_optiontabs::Directory_Asked_TakesTheAnswer_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("directory");
    for (const int i : {0, 1}) {
        QTest::addRow("%d chosen", i) << i << "/reports"
                                      << "/reports";
        QTest::addRow("%d cancelled", i) << i << ""
                                         << "before";
    }
}

void tst_optiontabs::Directory_Asked_TakesTheAnswer() {
    QFETCH(int, index);
    QFETCH(QString, answer);
    QFETCH(QString, directory);
    Pages pages;
    pages.Test.ReportDirectory = QStringLiteral("before");
    pages.Test.ExcelDirectory = QStringLiteral("before");
    pages.Open();
    QDir::setCurrent(QDir::rootPath());
    const QString button = QStringLiteral("Command3_%1").arg(index);
    QCOMPARE(Find<QPushButton>(*pages.window, button).text(), QStringLiteral("..."));
    pages.Files.ExpectFolder(answer);
    Click(*pages.window, button);
    pages.Files.Verify();
    QCOMPARE(pages.Files.Questions()[0].Title, QStringLiteral("Select a directory"));
    QCOMPARE(pages.Files.Questions()[0].FileName, pages.folder.path());
    QCOMPARE(QDir(QDir::currentPath()).canonicalPath(), QDir(pages.folder.path()).canonicalPath());

    const QString other = QStringLiteral("before");
    QCOMPARE(pages.Test.ReportDirectory, index == 0 ? directory : other);
    QCOMPARE(pages.Test.ExcelDirectory, index == 1 ? directory : other);
    QCOMPARE(pages.Line(QStringLiteral("txtautosavedirectory_%1").arg(index)).text(), directory);
    const qsizetype changed = answer.isEmpty() ? 0 : 1;
    QCOMPARE(pages.Changes(), QList<qsizetype>({0, index == 0 ? changed : 0, index == 1 ? changed : 0, 0}));
}

void tst_optiontabs::ExportHtml_Clicked_IsWanted() {
    Pages pages;
    pages.Open();
    auto* page = qobject_cast<ExportTab*>(pages.pages[2]);
    QSignalSpy wanted(page, &ExportTab::ExportHtmlWanted);
    auto& button = Find<QPushButton>(*page, QStringLiteral("CmdSaveHtml"));
    QCOMPARE(button.text(), QStringLiteral("Save Test As WWW Page"));
    Click(*page, button.objectName());
    QCOMPARE(wanted.count(), 1);
    page->SetHtmlExportEnabled(false);
    button.click();
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(pages.Changes(), QList<qsizetype>({0, 0, 0, 0}));
}

void tst_optiontabs::Options_Width_DecidesThePairs_data() {
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("pairs");
    QTest::newRow("wide") << 1000 << true;
    QTest::newRow("narrow") << 480 << false;
}

void tst_optiontabs::Options_Width_DecidesThePairs() {
    QFETCH(int, width);
    Pages pages;
    EditorOptionChecks checks(pages.Test);
    ScrollingPage page(new OptionsTab(pages.Parts(), checks));
    page.resize(1000, 600);
    ShowAndActivate(page);
    page.resize(width, 600);
    QTRY_COMPARE(page.width(), width);
    QTRY_VERIFY(!page.horizontalScrollBar()->isVisible());
    const auto topOf = [&checks, &page](int i) { return checks.Box(i)->mapTo(&page, QPoint()).y(); };
    QTEST(topOf(ReportTitle) == topOf(ReportMultichoiceAnswers), "pairs");
}

void tst_optiontabs::Checks_WithoutPages_GoAway() {
    TestDocument test;
    QPointer<QCheckBox> box;
    {
        EditorOptionChecks checks(test);
        box = checks.Box(31);
        QVERIFY(box);
    }
    QVERIFY(!box);
}

QTEST_MAIN(tst_optiontabs)
#include "tst_optiontabs.moc"
