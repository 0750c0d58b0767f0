#include "export/FakeSpreadsheet.h"
#include "export/ResultRows.h"
#include "export/SpreadsheetExport.h"
#include "export/WorkbookPath.h"
#include "support/FakeOfficeProbe.h"
#include "support/Files.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Notes what the windows show, among the application's calls.
class NotedWindows : public ExportWindows {
  public:
    explicit NotedWindows(QStringList& calls) : calls_(calls) {}

    void AskNames() override {
        calls_.append(QStringLiteral("Names"));
        if (WhenNamesAsked)
            WhenNamesAsked();
    }
    void Confirm(ExportForm& form) override {
        calls_.append(QStringLiteral("Confirm(") + form.FilePath() + u')' +
                      (form.AlreadyExported() ? QStringLiteral(" again") : QString()));
        if (WhenConfirmed)
            WhenConfirmed(form);
    }
    void ShowStep(const QString& caption) override {
        Open = true;
        calls_.append(u'<' + caption + u'>');
    }
    void CloseSteps() override {
        if (Open)
            calls_.append(QStringLiteral("</>"));
        Open = false;
    }

    std::function<void()> WhenNamesAsked;
    std::function<void(ExportForm& form)> WhenConfirmed;
    bool Open = false;

  private:
    QStringList& calls_;
};

const QString Silent = QStringLiteral("[UPDATE FILES WITHOUT PROMPTING]");
const QString Everything =
    QStringLiteral("[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE DATE IN EXCEL FILE][INCLUDE TOTAL SCORE IN EXCEL FILE]"
                   "[INCLUDE SUB-SCALES IN EXCEL FILE][INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]"
                   "[INCLUDE SHORT ANSWERS IN EXCEL FILE][INCLUDE LONG ANSWERS IN EXCEL FILE]");
const QString Questions = QStringLiteral(
    "[TITLE]Mood[/TITLE][SUBSCALES][S]Ease[/S][S]Joy[/S][/SUBSCALES][Q]One[A]a[v=1][/A][A]b[v=-4][/A][SS=2][/Q]"
    "[Q]Two[QT]2[/QT][/Q][Q]Three[QT]3[/QT][/Q][Q]Four[A]a[v=10][/A][SS=1][/Q]");

struct Exporting {
    explicit Exporting(const QString& text) {
        session.Test = TestFromText(text);
        session.Responses = ResponseSet(session.Test.QuestionCount);
        session.UserSettings.DefaultDirectory = folder.path();
        session.UserSettings.QuestionPrefix = QStringLiteral("Q.");
        session.UserSettings.QuestionSuffix = QStringLiteral(" ");
        session.ClientName = QStringLiteral("Ann Lee");
        office.Entries[SpreadsheetKey] = QStringLiteral("Sheet");
        for (int column = 1;
             const ResultColumn& expected : ResultColumnsOf(session.Test, QStringLiteral("Q."), QStringLiteral(" ")))
            log.Grid[{3, column++}] = expected.Head;
    }
    ~Exporting() { QDir::setCurrent(QDir::rootPath()); }

    Result Run() { return exporter.Export(session); }
    /// The calls, with the working folder written as "~" and slashes between folders on every system.
    QString Calls() const {
        return QDir::fromNativeSeparators(log.Calls.join(u' ')).replace(folder.path(), QStringLiteral("~"));
    }
    void FailWith(const char* call, int number, const char* description) {
        log.Failures.insert(QLatin1String(call), SpreadsheetError(number, QLatin1String(description)));
    }

    QTemporaryDir folder;
    Session session;
    SpreadsheetLog log;
    NotedWindows windows{log.Calls};
    ScriptedPrompts prompts;
    FixedClock clock{QDateTime(QDate(2026, 11, 21), QTime(14, 5, 9))};
    FakeOfficeProbe office;
    SpreadsheetExport exporter{
        prompts, clock, office,
        [this]() -> std::unique_ptr<SpreadsheetApplication> { return std::make_unique<FakeSpreadsheet>(log); },
        windows};
};

const QString Steps = QStringLiteral("<Opening Excel for Export> Open(~/Vellumo Results.exl) ");
const QString Data = QStringLiteral("<Exporting Test Data to Excel File> <Saving ~/Vellumo Results.exl> ");

} // namespace

class tst_spreadsheetexport : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Path_TestsOptions_FolderNameAndExtension_data();
    void Path_TestsOptions_FolderNameAndExtension();
    void Path_FolderCantBeMade_MessageAndWorkingDirectory();
    void Path_FileNameWithExtension_CutForGood();
    void Export_NotInstalled_SaysSo();
    void Export_NewWorkbook_TitleHeadsAndRow();
    void Export_ExistingWorkbook_RowAfterTheLast();
    void Export_OtherHeads_EachValueUnderItsOwn_data();
    void Export_OtherHeads_EachValueUnderItsOwn();
    void Export_HeadsThatCantBeTold_Refused_data();
    void Export_HeadsThatCantBeTold_Refused();
    void Export_Options_ColumnsInOrder_data();
    void Export_Options_ColumnsInOrder();
    void Export_NothingAnswered_Zeros();
    void Export_Overflow_NothingSaved();
    void Export_Prompting_AskedAndTaken();
    void Export_Refused_Nothing_data();
    void Export_Refused_Nothing();
    void Export_Again_AskedInSpiteOfTheOption();
    void Export_NamesNeeded_AskedOnce_data();
    void Export_NamesNeeded_AskedOnce();
    void Export_Failures_MessagesAndState_data();
    void Export_Failures_MessagesAndState();
    void Export_OpenAfterwards_LeftVisible();
    void Export_CantBeShown_SaysThatItIsSaved();
};

void tst_spreadsheetexport::Path_TestsOptions_FolderNameAndExtension_data() {
    QTest::addColumn<QString>("tags");
    QTest::addColumn<QString>("client");
    QTest::addColumn<QString>("path");
    const QString dir = QStringLiteral("[EXCEL DIR]Results[/EXCEL DIR]");
    const QString name = QStringLiteral("[EXCEL FILE NAME]Mood[/EXCEL FILE NAME]");
    const QString inFolder = QStringLiteral("[AUTOSAVE EXCEL DIRECTORY AS CLIENT]");
    const QString inName = QStringLiteral("[AUTOSAVE EXCEL REPORT AS CLIENT]");
    const QString ann = QStringLiteral("Ann Lee");
    QTest::newRow("nothing") << QString() << ann << "~/Vellumo Results.exl";
    QTest::newRow("name") << name << ann << "~/Mood.exl";
    QTest::newRow("folder") << dir << ann << "Results/Vellumo Results.exl";
    QTest::newRow("folder and name") << dir + name << ann << "Results/Mood.exl";
    QTest::newRow("separator at its end")
        << QStringLiteral("[EXCEL DIR]Results/[/EXCEL DIR]") << ann << "Results/Vellumo Results.exl";
    QTest::newRow("client's folder") << inFolder << ann << "Ann Lee/Vellumo Results.exl";
    QTest::newRow("client's folder in the folder") << dir + inFolder + name << ann << "Results/Ann Lee/Mood.exl";
    QTest::newRow("client in the name") << inName << ann << "~/Vellumo Results Ann Lee.exl";
    QTest::newRow("client in both") << dir + inFolder + inName + name << ann << "Results/Ann Lee/Mood Ann Lee.exl";
    QTest::newRow("no client") << dir + inFolder + inName + name << QString() << "Results/Mood.exl";
    QTest::newRow("dangerous client") << inFolder + inName << "../x"
                                      << ".._x~d6b96a/Vellumo Results .._x~d6b96a.exl";
    QTest::newRow("extension in the folder alone")
        << QStringLiteral("[EXCEL DIR]x.exl/deep[/EXCEL DIR]") + name << ann << "x.exl/deep/Mood.exl";
    QTest::newRow("extension of another kind")
        << QStringLiteral("[EXCEL FILE NAME]results.xls[/EXCEL FILE NAME]") << ann << "~/results.exl";
    QTest::newRow("only an extension") << QStringLiteral("[EXCEL FILE NAME].exl[/EXCEL FILE NAME]") << ann
                                       << "~/Vellumo Results.exl";
}

void tst_spreadsheetexport::Path_TestsOptions_FolderNameAndExtension() {
    QFETCH(QString, tags);
    QFETCH(QString, client);
    Exporting exporting(tags);
    exporting.session.ClientName = client;
    const QString path = QDir::fromNativeSeparators(WorkbookPathFor(exporting.session, exporting.prompts));
    QTEST(QDir::fromNativeSeparators(path).replace(exporting.folder.path(), QStringLiteral("~")), "path");
    QVERIFY(QFileInfo(QDir(exporting.folder.path()).absoluteFilePath(path)).dir().exists());
}

void tst_spreadsheetexport::Path_FolderCantBeMade_MessageAndWorkingDirectory() {
    Exporting exporting(QStringLiteral("[EXCEL DIR]taken[/EXCEL DIR][AUTOSAVE EXCEL DIRECTORY AS CLIENT]"));
    PutBytes(exporting.folder.filePath(QStringLiteral("taken")), "a file");
    exporting.prompts.Expect(QStringLiteral("Can't make directory: taken"));
    QCOMPARE(QDir::fromNativeSeparators(WorkbookPathFor(exporting.session, exporting.prompts)),
             QStringLiteral("Ann Lee/Vellumo Results.exl"));

    exporting.session.ClientName = QStringLiteral("taken");
    exporting.prompts.Expect(QStringLiteral("Can't make directory: taken"));
    exporting.prompts.Expect(QStringLiteral("Can't make directory: taken"));
    QCOMPARE(QDir::fromNativeSeparators(WorkbookPathFor(exporting.session, exporting.prompts)),
             exporting.folder.filePath(QStringLiteral("Vellumo Results.exl")));
}

void tst_spreadsheetexport::Path_FileNameWithExtension_CutForGood() {
    Exporting exporting(Silent + QStringLiteral("[EXCEL FILE NAME]results.2.xls[/EXCEL FILE NAME]"
                                                "[AUTOSAVE EXCEL REPORT AS CLIENT]"));
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.session.Test.ExcelFileName, QStringLiteral("results"));
    QVERIFY(exporting.Calls().contains(QStringLiteral("Open(~/results Ann Lee.exl)")));
}

void tst_spreadsheetexport::Export_NotInstalled_SaysSo() {
    Exporting exporting(Silent + Everything);
    exporting.office.Entries.clear();
    exporting.prompts.Expect(QStringLiteral("Excel does not appear to be installed"));
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), QString());
}

void tst_spreadsheetexport::Export_NewWorkbook_TitleHeadsAndRow() {
    Exporting exporting(Questions + Silent + Everything);
    exporting.FailWith("Open", 1004, "no such file");
    exporting.session.Responses.ResponseChoice(1) = 2;
    exporting.session.Responses.ResponseText(2) = QStringLiteral("=1+1");
    exporting.session.Responses.ResponseText(3) = QStringLiteral("007");
    exporting.session.Responses.ResponseChoice(4) = 1;
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), Steps + QStringLiteral("<Creating New Excel Export File> Add ") +
                                    QString(Data).append(QStringLiteral("SaveAs(~/Vellumo Results.exl) </> Quit")));
    QCOMPARE(exporting.log.Row(1), QStringLiteral("\"Mood\""));
    QCOMPARE(exporting.log.Row(3), QStringLiteral("\"Client\" \"Date\" \"Total Score\" \"Ease\" \"Joy\" \"Q.1 \" "
                                                  "\"Q.2 \" \"Q.3 \" \"Q.4 \""));
    QCOMPARE(exporting.log.Row(4), QStringLiteral("\"Ann Lee\" 2026-11-21 6 10 -4 2 \"=1+1\" \"007\" 1"));
    QVERIFY(exporting.session.SpreadsheetExported);
    QCOMPARE(QDir::currentPath(), QDir(exporting.folder.path()).canonicalPath());
}

void tst_spreadsheetexport::Export_ExistingWorkbook_RowAfterTheLast() {
    Exporting exporting(Questions + Silent + Everything);
    exporting.log.Grid[{4, 1}] = 0.0;
    exporting.log.Grid[{6, 1}] = QStringLiteral("later");
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), Steps + Data + QStringLiteral("Save </> Quit"));
    QCOMPARE(exporting.log.Row(1), QString());
    QCOMPARE(exporting.log.Row(5), QStringLiteral("\"Ann Lee\" 2026-11-21 0 0 0 0 0 0 0"));
    QCOMPARE(exporting.session.SpreadsheetFilePath,
             QDir::toNativeSeparators(exporting.folder.filePath(QStringLiteral("Vellumo Results.exl"))));
}

/// The columns of the tests below: "Client", "Total Score", "Q.1 " and "Q.4 ".
const QString Four = QStringLiteral("[INCLUDE CLIENT NAME IN EXCEL FILE][INCLUDE TOTAL SCORE IN EXCEL FILE]"
                                    "[INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]");

void tst_spreadsheetexport::Export_OtherHeads_EachValueUnderItsOwn_data() {
    QTest::addColumn<QString>("sheet"); // Its rows from the third, cells separated by "|".
    QTest::addColumn<QString>("heads"); // What is added to the third row.
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("cells");
    QTest::addColumn<QString>("message"); // Its end.
    const QString none;
    const QString all = QStringLiteral("\"Ann Lee\" 1 2 1");
    const QString own = QStringLiteral("under its own head.");
    const QString added = QStringLiteral("Heads that were missing were added at the right end: ");
    QTest::newRow("expected") << "Client|Total Score|Q.1 |Q.4 \nBo|1|1|1" << none << 5 << all << none;
    QTest::newRow("expected, blanks lost, more after them")
        << "Client|Total Score|Q.1|Q.4|Mine" << none << 4 << all << none;
    QTest::newRow("moved, another one between")
        << "Q.4 |Client|Mine|Q.1 |Total Score\n1|Bo||2|3" << none << 5 << "1 \"Ann Lee\" - 2 1" << own;
    QTest::newRow("some missing, one not included") << "Client|Date|Q.1 \nBo|1|1"
                                                    << " \"Total Score\" \"Q.4 \"" << 5 << "\"Ann Lee\" - 2 1 1"
                                                    << added + QStringLiteral("'Total Score', 'Q.4 '.");
    QTest::newRow("other numbering") << "Client|Total Score|Item 1|Item 4\nBo|1|1|1"
                                     << " \"Q.1 \" \"Q.4 \"" << 5 << "\"Ann Lee\" 1 - - 2 1"
                                     << added + QStringLiteral("'Q.1 ', 'Q.4 '.");
    QTest::newRow("none") << ""
                          << "\"Client\" \"Total Score\" \"Q.1 \" \"Q.4 \"" << 4 << all
                          << QStringLiteral("had no heads. These were added: 'Client', 'Total Score', 'Q.1 ', 'Q.4 '.");
    QTest::newRow("none, but data") << "\nx\n|y"
                                    << "- - \"Client\" \"Total Score\" \"Q.1 \" \"Q.4 \"" << 5
                                    << "- \"y\" \"Ann Lee\" 1 2 1" << QStringLiteral("'Q.1 ', 'Q.4 '.");
    QTest::newRow("data at the right end")
        << "Client|Total Score|Q.1 \nBo|1|1|note"
        << " - \"Q.4 \"" << 5 << "\"Ann Lee\" 1 2 - 1" << added + QStringLiteral("'Q.4 '.");
    QTest::newRow("first column not ours, with gaps")
        << "Mine|Client|Total Score|Q.1 |Q.4 \n|Bo|1|1|1\nx\n|||1" << none << 7 << "- \"Ann Lee\" 1 2 1" << own;
    QTest::newRow("client's name taken out") << "Client|Total Score|Q.1 |Q.4 \n|1" << none << 5 << all << none;
    QTest::newRow("row of another export")
        << "Client|Total Score|Q.1 |Q.4 |Date|Q.9\n||||1\n|||||1" << none << 6 << all << none;
    QTest::newRow("row of another test's export")
        << "Mine|Client|Total Score|Q.1 |Q.4 |Ease\n|||||3" << none << 5 << "- \"Ann Lee\" 1 2 1" << own;
    QTest::newRow("formulas that wait for the row")
        << "Client|Total Score|Q.1 |Q.4 |Mean\n||||=B4/2" << none << 4 << all + QStringLiteral(" \"=B4/2\"") << none;
    QTest::newRow("others' heads twice") << "Mine|Mine|Client|Total Score|Q.1 |Q.4 " << none << 4
                                         << "- - \"Ann Lee\" 1 2 1" << own;
    QTest::newRow("both ways of writing")
        << "Q.1|Q.1 |Client|Total Score|Q.4" << none << 4 << "- 2 \"Ann Lee\" 1 1" << own;
}

void Fill(SpreadsheetLog& log, const QString& sheet) {
    log.Grid.clear();
    for (int row = 3; const QString& line : sheet.split(u'\n')) {
        for (int column = 1; const QString& cell : line.split(u'|')) {
            if (!cell.isEmpty())
                log.Grid[{row, column}] = cell;
            ++column;
        }
        ++row;
    }
}

void tst_spreadsheetexport::Export_OtherHeads_EachValueUnderItsOwn() {
    QFETCH(QString, sheet);
    QFETCH(QString, heads);
    QFETCH(int, row);
    QFETCH(QString, message);
    Exporting exporting(Questions + Silent + Four);
    Fill(exporting.log, sheet);
    const auto before = exporting.log.Grid;
    const QString headsBefore = exporting.log.Row(3);
    exporting.session.Responses.ResponseChoice(1) = 2;
    exporting.session.Responses.ResponseChoice(4) = 1;
    exporting.session.Test.AnswerValue(1, 2) = -9;
    if (!message.isEmpty())
        exporting.prompts.Expect(message).InPart();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.log.Row(3), headsBefore + heads);
    QTEST(exporting.log.Row(row), "cells");
    for (const auto& [place, value] : before)
        QCOMPARE(exporting.log.Cell(place.first, place.second), value);
}

void tst_spreadsheetexport::Export_HeadsThatCantBeTold_Refused_data() {
    QTest::addColumn<QString>("subscales");
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("message");
    const QString twice = QStringLiteral("the head '%1' appears twice in its third row, in the columns %2");
    QTest::newRow("twice") << QString() << "Client|Q.1 |Q.4 |Total Score|Q.4 "
                           << twice.arg(QStringLiteral("Q.4 "), QStringLiteral("C and E"));
    QTest::newRow("twice with blanks") << QString() << "Q.1|Client|Q.4| Q.4|Total Score"
                                       << twice.arg(QStringLiteral("Q.4 "), QStringLiteral("C and D"));
    QTest::newRow("sub-scales of the same name, moved") << "[S]Ease[/S][S]Ease[/S]"
                                                        << "Mine|Client|Total Score|Ease|Ease|Q.1 |Q.4 "
                                                        << "the test has two columns with the head 'Ease'";
    QTest::newRow("sub-scale called like a column, added") << "[S]Client[/S]"
                                                           << "Client|Total Score|Q.1 |Q.4 "
                                                           << "the test has two columns with the head 'Client'";
    QTest::newRow("sub-scale without a name, moved") << "[S] [/S]"
                                                     << "Mine|Client|Total Score||Q.1 |Q.4 "
                                                     << "a sub-scale without a name";
}

void tst_spreadsheetexport::Export_HeadsThatCantBeTold_Refused() {
    QFETCH(QString, subscales);
    QFETCH(QString, sheet);
    QFETCH(QString, message);
    Exporting exporting(QStringLiteral("[SUBSCALES]") + subscales + QStringLiteral("[/SUBSCALES]") +
                        Questions.mid(Questions.indexOf(QStringLiteral("[Q]"))) + Silent + Four +
                        QStringLiteral("[INCLUDE SUB-SCALES IN EXCEL FILE]"));
    Fill(exporting.log, sheet);
    const auto before = exporting.log.Grid;
    exporting.prompts.Expect(message).InPart();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.log.Grid, before);
    QVERIFY(!exporting.Calls().contains(QStringLiteral("Sav")));
    QVERIFY(!exporting.session.SpreadsheetExported && exporting.session.SpreadsheetFilePath.isEmpty());
}

void tst_spreadsheetexport::Export_Options_ColumnsInOrder_data() {
    QTest::addColumn<QString>("tags");
    QTest::addColumn<QString>("heads");
    QTest::addColumn<int>("row");
    QTest::newRow("none") << QString() << QString() << 3;
    QTest::newRow("client") << "[INCLUDE CLIENT NAME IN EXCEL FILE]"
                            << "\"Client\"" << 4;
    QTest::newRow("date") << "[INCLUDE DATE IN EXCEL FILE]"
                          << "\"Date\"" << 4;
    QTest::newRow("total") << "[INCLUDE TOTAL SCORE IN EXCEL FILE]"
                           << "\"Total Score\"" << 4;
    QTest::newRow("sub-scales") << "[INCLUDE SUB-SCALES IN EXCEL FILE]"
                                << "\"Ease\" \"Joy\"" << 4;
    QTest::newRow("choices") << "[INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]"
                             << "\"Q.1 \" \"Q.4 \"" << 4;
    QTest::newRow("short") << "[INCLUDE SHORT ANSWERS IN EXCEL FILE]"
                           << "\"Q.2 \"" << 4;
    QTest::newRow("long") << "[INCLUDE LONG ANSWERS IN EXCEL FILE]"
                          << "\"Q.3 \"" << 4;
}

void tst_spreadsheetexport::Export_Options_ColumnsInOrder() {
    QFETCH(QString, tags);
    QFETCH(int, row);
    Exporting exporting(Questions + Silent + tags + QStringLiteral("[EXCEL FILE NAME]a[/EXCEL FILE NAME]"));
    exporting.FailWith("Open", 53, "no such file");
    QVERIFY(exporting.Run());
    QTEST(exporting.log.Row(3), "heads");
    QCOMPARE(exporting.log.Row(row).isEmpty(), row == 3);
}

void tst_spreadsheetexport::Export_NothingAnswered_Zeros() {
    Exporting exporting(Questions + Silent + Everything);
    exporting.session.ClientName.clear();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.log.Row(4), QStringLiteral("0 2026-11-21 0 0 0 0 0 0 0"));
}

void tst_spreadsheetexport::Export_Overflow_NothingSaved() {
    Exporting exporting(QStringLiteral("[Q]One[A]a[v=32767][/A][/Q][Q]Two[A]a[v=1][/A][/Q]") + Silent + Everything);
    exporting.session.Responses.ResponseChoice(1) = exporting.session.Responses.ResponseChoice(2) = 1;
    QVERIFY_THROWS_EXCEPTION(OverflowError, (void)exporting.Run());
    QCOMPARE(exporting.Calls(), Steps + QStringLiteral("<Exporting Test Data to Excel File> </>"));
    QVERIFY(!exporting.session.SpreadsheetExported);
}

void tst_spreadsheetexport::Export_Prompting_AskedAndTaken() {
    Exporting exporting(Questions + Everything);
    exporting.windows.WhenConfirmed = [&](ExportForm& form) {
        form.Accept(exporting.folder.filePath(QStringLiteral("other")), {{IncludeClientNameInExcel, true},
                                                                         {IncludeDateInExcel, false},
                                                                         {IncludeSubscalesInExcel, false},
                                                                         {OpenExcelReportWhenCompleted, true}});
    };
    // The columns differ from what they were when the workbook was begun.
    exporting.prompts.Expect(QStringLiteral("under its own head.")).InPart();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), QStringLiteral("Confirm(~/Vellumo Results.exl) <Opening Excel for Export> "
                                               "Open(~/other) <Exporting Test Data to Excel File> <Saving ~/other> "
                                               "Save </> Visible UserControl"));
    QCOMPARE(exporting.log.Row(4), QStringLiteral("\"Ann Lee\" - 0 - - 0 0 0 0"));
    QVERIFY(!exporting.session.Test.TestOption(IncludeDateInExcel));
    QVERIFY(exporting.session.Test.TestOption(OpenExcelReportWhenCompleted));
}

void tst_spreadsheetexport::Export_Refused_Nothing_data() {
    QTest::addColumn<int>("way");
    QTest::newRow("closed") << 0;
    QTest::newRow("cancel") << 1;
    QTest::newRow("no path") << 2;
    QTest::newRow("the word for it") << 3;
}

void tst_spreadsheetexport::Export_Refused_Nothing() {
    QFETCH(int, way);
    Exporting exporting(Questions + Everything);
    exporting.windows.WhenConfirmed = [&](ExportForm& form) {
        if (way == 1)
            form.Cancel();
        else if (way > 1)
            form.Accept(way == 2 ? QString() : QStringLiteral("exit"), {});
    };
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), QStringLiteral("Confirm(~/Vellumo Results.exl)"));
    QVERIFY(!exporting.session.SpreadsheetExported);
}

void tst_spreadsheetexport::Export_Again_AskedInSpiteOfTheOption() {
    Exporting exporting(Questions + Silent + Everything);
    QVERIFY(exporting.Run());
    exporting.log.Calls.clear();
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), QStringLiteral("Confirm(~/Vellumo Results.exl) again"));
}

void tst_spreadsheetexport::Export_NamesNeeded_AskedOnce_data() {
    QTest::addColumn<QString>("tags");
    QTest::addColumn<QString>("client");
    QTest::addColumn<QString>("begin");
    QTest::newRow("not needed") << QString() << QString() << "<Opening";
    QTest::newRow("known") << "[AUTOSAVE EXCEL REPORT AS CLIENT]"
                           << "Ann"
                           << "<Opening";
    QTest::newRow("in the name") << "[AUTOSAVE EXCEL REPORT AS CLIENT]" << QString() << "Names <Opening";
    QTest::newRow("in the folder") << "[AUTOSAVE EXCEL DIRECTORY AS CLIENT]" << QString() << "Names <Opening";
}

void tst_spreadsheetexport::Export_NamesNeeded_AskedOnce() {
    QFETCH(QString, tags);
    QFETCH(QString, client);
    QFETCH(QString, begin);
    Exporting exporting(Questions + Silent + tags);
    exporting.session.ClientName = client;
    exporting.windows.WhenNamesAsked = [&] { exporting.session.ClientName = QStringLiteral("Bo"); };
    QVERIFY(exporting.Run());
    QVERIFY2(exporting.Calls().startsWith(begin), qPrintable(exporting.Calls()));
    const QString name = begin.startsWith(u'N') ? QStringLiteral("Bo") : client;
    QCOMPARE(exporting.Calls().contains(QStringLiteral("Results Bo.exl")) ||
                 exporting.Calls().contains(QStringLiteral("Open(Bo/")),
             name == QStringLiteral("Bo"));
}

void tst_spreadsheetexport::Export_Failures_MessagesAndState_data() {
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("calls");
    QTest::addColumn<bool>("exported");
    const QString adding = Steps + QStringLiteral("<Creating New Excel Export File> Add ");
    QTest::newRow("open elsewhere")
        << "Open" << 462 << false
        << "Please close Excel. The file '~/Vellumo Results.exl' cannot be appended whilst it is open"
        << Steps + QStringLiteral("</>") << false;
    QTest::newRow("can't add") << "Add" << 7 << true << "why" << adding + QStringLiteral("</>") << false;
    QTest::newRow("can't save as") << "SaveAs" << 1004 << true << "Error 1004 : Failed to save Excel File - why"
                                   << adding + Data +
                                          QStringLiteral("SaveAs(~/Vellumo Results.exl) Visible UserControl </>")
                                   << false;
    QTest::newRow("can't save") << "Save" << 70 << false << "Error 70 : Failed to save Excel File - why"
                                << Steps + Data + QStringLiteral("Save Visible UserControl </>") << false;
    QTest::newRow("saved, but") << "Save" << 464 << false << "why" << Steps + Data + QStringLiteral("Save </> Quit")
                                << true;
    QTest::newRow("held by another Vellumo")
        << "Open" << 463 << false << "why" << Steps + QStringLiteral("</>") << false;
}

void tst_spreadsheetexport::Export_Failures_MessagesAndState() {
    QFETCH(QString, call);
    QFETCH(int, number);
    QFETCH(bool, isNew);
    QFETCH(QString, message);
    Exporting exporting(Questions + Silent + Everything);
    if (isNew)
        exporting.FailWith("Open", 53, "no such file");
    exporting.log.Failures.insert(call, SpreadsheetError(number, QStringLiteral("why")));
    exporting.prompts.Expect(message.replace(QStringLiteral("~/"), exporting.folder.path() + QDir::separator()));
    QVERIFY(exporting.Run());
    QTEST(exporting.Calls(), "calls");
    QTEST(exporting.session.SpreadsheetExported, "exported");
    QCOMPARE(exporting.session.SpreadsheetFilePath.isEmpty(), !exporting.session.SpreadsheetExported);
}

void tst_spreadsheetexport::Export_OpenAfterwards_LeftVisible() {
    Exporting exporting(Questions + Silent + Everything + QStringLiteral("[OPEN EXCEL REPORT WHEN COMPLETED]"));
    QVERIFY(exporting.Run());
    QCOMPARE(exporting.Calls(), Steps + Data + QStringLiteral("Save </> Visible UserControl"));
}

void tst_spreadsheetexport::Export_CantBeShown_SaysThatItIsSaved() {
    Exporting exporting(Questions + Silent + Everything + QStringLiteral("[OPEN EXCEL REPORT WHEN COMPLETED]"));
    exporting.FailWith("Visible", 1004, "no program");
    exporting.FailWith("Quit", 1004, "no program");
    QCOMPARE(exporting.Run().Message(), QStringLiteral("The results were saved. no program"));
    QVERIFY(exporting.session.SpreadsheetExported);
}

QTEST_GUILESS_MAIN(tst_spreadsheetexport)
#include "tst_spreadsheetexport.moc"
