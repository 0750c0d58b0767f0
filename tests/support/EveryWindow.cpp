#include "support/EveryWindow.h"

#include "app/Program.h"

#include "app/ui/AboutBox.h"
#include "export/ui/DialogExcel.h"
#include "export/ui/DialogExport.h"
#include "export/ui/DialogHTML.h"
#include "settings/ui/frmOptions.h"
#include "taker/ui/DialogAutoReport.h"
#include "taker/ui/frmClient.h"
#include "taker/ui/frmOptionsTest.h"
#include "testdoc/TestParser.h"

#include <QApplication>
#include <QTest>

namespace {

// What a person of this system would have there.
#ifdef Q_OS_WIN
const QString ShownFolder = QStringLiteral("C:\\Users\\Ann\\Vellumo");
const QString ShownEditor = QStringLiteral("notepad.exe");
const QString ShownBrowser = QStringLiteral("explorer.exe");
#else
const QString ShownFolder = QStringLiteral("/home/ann/Vellumo");
const QString ShownEditor = QStringLiteral("xdg-open");
const QString ShownBrowser = QStringLiteral("xdg-open");
#endif

const QString Samples = QStringLiteral("/samples/");

void Load(Program& program, const QString& sourceFolder, const QString& sample) {
    const QString path = sourceFolder + Samples + sample;
    if (const Result opened = OpenTest(program.session.Test, path); !opened)
        throw std::runtime_error(opened.Message().toStdString());
}

void StartScreens(const QString& sourceFolder, const WindowVisitor& visit) {
    Program program;
    const QDir samples(sourceFolder + Samples);
    for (const QString& name : samples.entryList({QStringLiteral("*.vlm")}))
        QFile::copy(samples.filePath(name), program.folder.filePath(name));
    program.navigator.ShowStartScreen();
    Loading_Test& screen = *program.navigator.StartScreen();
    Find<QListWidget>(screen, QStringLiteral("Listselect")).setCurrentRow(4);
    visit(screen, QStringLiteral("start-screen"));

    Program empty;
    empty.navigator.ShowStartScreen();
    visit(*empty.navigator.StartScreen(), QStringLiteral("start-screen-empty"));
}

void TestWindows(const QString& sourceFolder, const WindowVisitor& visit) {
    Program program;
    program.office.Entries[SpreadsheetKey] = QStringLiteral("Excel.Sheet.12");
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    Load(program, sourceFolder, QStringLiteral("Mood Diary.vlm"));
    program.session.ClientName = program.session.KeptClientName = QStringLiteral("Ann Lee");
    program.navigator.BeginLoadedTest();
    FrmTest& window = *program.navigator.TestWindow();
    visit(window, QStringLiteral("test-window-instructions"));
    Click(window, QStringLiteral("CmdBegin"));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    Click(window, QStringLiteral("Opt_2"));
    visit(window, QStringLiteral("test-window-question"));
    const int questions = program.session.Test.QuestionCount;
    for (int q = 2; q <= questions; ++q) {
        if (IsMultichoice(program.session.Test, q)) {
            Press(window, static_cast<Qt::Key>(Qt::Key_1 + q % 4));
            continue;
        }
        if (program.session.Test.QuestionType(q) == LongAnswer) {
            Type(*window.focusWidget(), QStringLiteral("A walk by the river.\nThe evening with my sister."));
            visit(window, QStringLiteral("test-window-long-answer"));
        }
        Press(*window.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    }
    visit(window, QStringLiteral("test-window-completed"));
    program.session.Test.NavigationButtons = true;
    Choose(window, QStringLiteral("mnutestshow_2"));
    visit(window, QStringLiteral("test-window-instructions-again"));
    Click(window, QStringLiteral("CmdBegin"));
    visit(window, QStringLiteral("test-window-navigation"));
    Click(window, QStringLiteral("CmdReport"));
    visit(*program.navigator.Reports().first(), QStringLiteral("report-editor"));
}

void EditorWindows(const QString& sourceFolder, const WindowVisitor& visit) {
    Program program;
    const QString name = QStringLiteral("Workday Rating.vlm");
    QFile::copy(sourceFolder + Samples + name, program.folder.filePath(name));
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    QDir::setCurrent(program.folder.path());
    program.session.Test.TestFileName = name;
    program.navigator.EditTest();
    frmTestEditor& editor = *program.navigator.Editor();
    // The folder of the pictures is a new one each time.
    auto& home = Find<QLabel>(editor, QStringLiteral("lblinstructions"));
    home.setText(home.text().replace(QDir::toNativeSeparators(program.folder.path()), ShownFolder));
    visit(editor, QStringLiteral("editor-home"));
    static const QStringList pages{QStringLiteral("about-test"), QStringLiteral("sub-scales"),
                                   QStringLiteral("template"),   QStringLiteral("questions"),
                                   QStringLiteral("analysis"),   QStringLiteral("options"),
                                   QStringLiteral("automation"), QStringLiteral("export")};
    for (int i = 0; i < pages.size(); ++i) {
        Find<EditorTabStrip>(editor, QStringLiteral("tbsOptions")).Choose(i);
        if (i == 1)
            Find<QListWidget>(editor, QStringLiteral("ListSubScale")).setCurrentRow(0);
        visit(editor, QStringLiteral("editor-") + pages[i]);
    }
}

void Dialogs(const QString& sourceFolder, const WindowVisitor& visit) {
    Program program;
    Load(program, sourceFolder, QStringLiteral("Sleep Week Automatic.vlm"));
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    program.session.UserSettings.DefaultEditor = ShownEditor;
    program.session.UserSettings.DefaultBrowser = ShownBrowser;
    program.session.UserSettings.DefaultDirectory = ShownFolder;
    program.session.UserSettings.DefaultEmail = QStringLiteral("someone@example.com");
    program.session.UserSettings.DefaultNextPage = QStringLiteral("https://www.example.com/vellumo");
    program.session.ClientName = program.session.KeptClientName = QStringLiteral("Ann Lee");

    frmClient names(program.session, program.store, program.navigator, QStringLiteral("Commencing 'Sleep Week'"),
                    NamesAskedBy(program.session.Test), NamesFor::Next);
    visit(names, QStringLiteral("names"));

    frmOptions options(program.session.UserSettings, program.store, program.folders, program.prompts, program.chooser,
                       program.navigator);
    visit(options, QStringLiteral("general-options"));
    Find<QTabWidget>(options, QStringLiteral("tbsOptions")).setCurrentIndex(1);
    visit(options, QStringLiteral("general-options-html"));

    frmOptionsTest testOptions(program.session.Test, program.navigator);
    visit(testOptions, QStringLiteral("test-options"));

    program.session.ReportFilePath = QStringLiteral("Reports/Ann Lee/Sleep Week Ann Lee.txt");
    program.session.AutoReportDone = true;
    AutoReportForm form(program.session, program.prompts);
    DialogAutoReport autoReport(form, program.session, program.chooser, program.navigator);
    visit(autoReport, QStringLiteral("automatic-report"));

    program.session.HtmlTemplatePath = sourceFolder + QStringLiteral("/templates/HTML Template.vlx");
    DialogHTML page({program.session, program.prompts, program.launcher, program.store, {}}, program.chooser,
                    program.navigator);
    Find<QLineEdit>(page, QStringLiteral("txteditor")).setText(QStringLiteral("HTML Template.vlx"));
    Find<QLineEdit>(page, QStringLiteral("Text1")).setText(QStringLiteral("Pages/Sleep Week.html"));
    visit(page, QStringLiteral("save-as-html"));

    QString workbook = QStringLiteral("Results/Sleep Week.exl");
    program.session.SpreadsheetExported = true;
    ExportForm exportForm(program.session, workbook);
    DialogExport exporting(exportForm, program.chooser, program.navigator);
    visit(exporting, QStringLiteral("spreadsheet-export"));
    DialogExcel steps;
    steps.SetCaption(QStringLiteral("Opening the workbook '%1/%2'").arg(ShownFolder, workbook));
    visit(steps, QStringLiteral("spreadsheet-export-steps"));

    AboutBox about;
    about.Picture().Advance(5.2);
    visit(about, QStringLiteral("about"));

    HelpWindow help;
    help.ShowTopic(HelpTopic::TestWindow);
    visit(help, QStringLiteral("help"));
}

} // namespace

void VisitEveryWindow(const QString& sourceFolder, const WindowVisitor& visit) {
    StartScreens(sourceFolder, visit);
    TestWindows(sourceFolder, visit);
    EditorWindows(sourceFolder, visit);
    Dialogs(sourceFolder, visit);
}
