// Renders every window into PNG files: vellumo-screenshots FOLDER [--dark]. Not a test; tools/make-screenshots runs it.
#include "app/Program.h"

#include "app/ui/AboutBox.h"
#include "export/ui/DialogHTML.h"
#include "settings/ui/frmOptions.h"
#include "taker/ui/DialogAutoReport.h"
#include "taker/ui/frmClient.h"
#include "taker/ui/frmOptionsTest.h"
#include "testdoc/TestParser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <cstdio>

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

const QString Samples = QStringLiteral(VELLUMO_SOURCE_DIR "/samples/");

QPalette DarkPalette() {
    QPalette palette(QColor(0x2b, 0x2e, 0x33));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor(0xe8, 0xe8, 0xe8));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x25));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x29, 0x2e));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x8f, 0xd1));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xb6, 0xff));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9a));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x84, 0x8a));
    return palette;
}

/// Takes pictures of the windows of one program.
class Camera {
  public:
    Camera(QString folder, QString suffix) : folder_(std::move(folder)), suffix_(std::move(suffix)) {}

    void Take(QWidget& window, const QString& name) {
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window);
        QTest::qWait(50);
        const QString path = folder_ + u'/' + name + suffix_ + QStringLiteral(".png");
        if (!window.grab().save(path)) {
            std::fprintf(stderr, "Can't write %s\n", qPrintable(path));
            std::exit(1);
        }
        std::printf("%s %dx%d\n", qPrintable(path), window.width(), window.height());
    }

  private:
    QString folder_;
    QString suffix_;
};

void Load(Program& program, const QString& sample) {
    const QString path = Samples + sample;
    if (const Result opened = OpenTest(program.session.Test, path); !opened) {
        std::fprintf(stderr, "%s\n", qPrintable(opened.Message()));
        std::exit(1);
    }
}

void StartScreens(Camera& camera) {
    Program program;
    const QDir samples(Samples);
    for (const QString& name : samples.entryList({QStringLiteral("*.vlm")}))
        QFile::copy(samples.filePath(name), program.folder.filePath(name));
    program.navigator.ShowStartScreen();
    Loading_Test& screen = *program.navigator.StartScreen();
    Find<QListWidget>(screen, QStringLiteral("Listselect")).setCurrentRow(4);
    camera.Take(screen, QStringLiteral("start-screen"));

    Program empty;
    empty.navigator.ShowStartScreen();
    camera.Take(*empty.navigator.StartScreen(), QStringLiteral("start-screen-empty"));
}

void TestWindows(Camera& camera) {
    Program program;
    program.office.Entries[SpreadsheetKey] = QStringLiteral("Excel.Sheet.12");
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    Load(program, QStringLiteral("Mood Diary.vlm"));
    program.session.ClientName = QStringLiteral("Ann Lee");
    program.navigator.BeginLoadedTest();
    FrmTest& window = *program.navigator.TestWindow();
    camera.Take(window, QStringLiteral("test-window-instructions"));
    Click(window, QStringLiteral("CmdBegin"));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    Click(window, QStringLiteral("Opt_2"));
    camera.Take(window, QStringLiteral("test-window-question"));
    const int questions = program.session.Test.QuestionCount;
    for (int q = 2; q <= questions; ++q) {
        if (IsMultichoice(program.session.Test, q)) {
            Press(window, static_cast<Qt::Key>(Qt::Key_1 + q % 4));
            continue;
        }
        if (program.session.Test.QuestionType(q) == LongAnswer) {
            Type(*window.focusWidget(), QStringLiteral("A walk by the river.\nThe evening with my sister."));
            camera.Take(window, QStringLiteral("test-window-long-answer"));
        }
        Press(*window.focusWidget(), Qt::Key_Return, Qt::ControlModifier);
    }
    camera.Take(window, QStringLiteral("test-window-completed"));
    Click(window, QStringLiteral("CmdReport"));
    camera.Take(*program.navigator.Reports().first(), QStringLiteral("report-editor"));
}

void EditorWindows(Camera& camera) {
    Program program;
    const QString name = QStringLiteral("Workday Rating.vlm");
    QFile::copy(Samples + name, program.folder.filePath(name));
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    QDir::setCurrent(program.folder.path());
    program.session.Test.TestFileName = name;
    program.navigator.EditTest();
    frmTestEditor& editor = *program.navigator.Editor();
    // The folder of the pictures is a new one each time.
    auto& home = Find<QLabel>(editor, QStringLiteral("lblinstructions"));
    home.setText(home.text().replace(QDir::toNativeSeparators(program.folder.path()), ShownFolder));
    camera.Take(editor, QStringLiteral("editor-home"));
    static const QStringList pages{QStringLiteral("about-test"), QStringLiteral("sub-scales"),
                                   QStringLiteral("template"),   QStringLiteral("questions"),
                                   QStringLiteral("analysis"),   QStringLiteral("options"),
                                   QStringLiteral("automation"), QStringLiteral("export")};
    for (int i = 0; i < pages.size(); ++i) {
        Find<EditorTabStrip>(editor, QStringLiteral("tbsOptions")).Choose(i);
        if (i == 1)
            Find<QListWidget>(editor, QStringLiteral("ListSubScale")).setCurrentRow(0);
        camera.Take(editor, QStringLiteral("editor-") + pages[i]);
    }
}

void Dialogs(Camera& camera) {
    Program program;
    Load(program, QStringLiteral("Sleep Week Automatic.vlm"));
    LoadSettingsOnce(program.start, program.session, program.store, program.folders);
    program.session.UserSettings.DefaultEditor = ShownEditor;
    program.session.UserSettings.DefaultBrowser = ShownBrowser;
    program.session.UserSettings.DefaultDirectory = ShownFolder;
    program.session.UserSettings.DefaultEmail = QStringLiteral("someone@example.com");
    program.session.UserSettings.DefaultNextPage = QStringLiteral("https://www.example.com/vellumo");
    program.session.ClientName = QStringLiteral("Ann Lee");

    frmClient names(program.session, program.store, program.navigator, QStringLiteral("Commencing 'Sleep Week'"),
                    NamesAskedBy(program.session.Test));
    camera.Take(names, QStringLiteral("names"));

    frmOptions options(program.session.UserSettings, program.store, program.folders, program.chooser,
                       program.navigator);
    camera.Take(options, QStringLiteral("general-options"));
    Find<QTabWidget>(options, QStringLiteral("tbsOptions")).setCurrentIndex(1);
    camera.Take(options, QStringLiteral("general-options-html"));

    frmOptionsTest testOptions(program.session.Test, program.navigator);
    camera.Take(testOptions, QStringLiteral("test-options"));

    program.session.ReportFilePath = QStringLiteral("Reports/Ann Lee/Sleep Week Ann Lee.txt");
    program.session.AutoReportDone = true;
    AutoReportForm form(program.session, program.prompts);
    DialogAutoReport autoReport(form, program.session, program.chooser, program.navigator);
    camera.Take(autoReport, QStringLiteral("automatic-report"));

    program.session.HtmlTemplatePath = QStringLiteral(VELLUMO_SOURCE_DIR "/templates/HTML Template.vlx");
    DialogHTML page({program.session, program.prompts, program.launcher, program.store, {}}, program.chooser,
                    program.navigator);
    Find<QLineEdit>(page, QStringLiteral("txteditor")).setText(QStringLiteral("HTML Template.vlx"));
    Find<QLineEdit>(page, QStringLiteral("Text1")).setText(QStringLiteral("Pages/Sleep Week.html"));
    camera.Take(page, QStringLiteral("save-as-html"));

    AboutBox about;
    about.Picture().Advance(5.2);
    camera.Take(about, QStringLiteral("about"));

    HelpWindow help;
    help.ShowTopic(HelpTopic::TestWindow);
    camera.Take(help, QStringLiteral("help"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
#ifndef Q_OS_WIN
    QApplication::setStyle(QStringLiteral("Fusion"));
#endif
    const QStringList arguments = QCoreApplication::arguments();
    const bool dark = arguments.contains(QStringLiteral("--dark"));
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
        std::fprintf(stderr, "Usage: vellumo-screenshots FOLDER [--dark]\n");
        return 2;
    }
    if (dark)
        QApplication::setPalette(DarkPalette());
    Camera camera(QDir(arguments[1]).absolutePath(), dark ? QStringLiteral("-dark") : QString());
    StartScreens(camera);
    TestWindows(camera);
    EditorWindows(camera);
    Dialogs(camera);
    return 0;
}
