#include "app/ui/AppNavigator.h"
#include "app/ui/GuardedApplication.h"
#include "export/SystemSpreadsheet.h"
#include "export/ui/QtExportWindows.h"
#include "platform/SystemPorts.h"
#include "platform/ui/QtClipboard.h"
#include "platform/ui/QtFileChooser.h"
#include "platform/ui/QtPrinter.h"
#include "platform/ui/QtPrompts.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QLocale>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

namespace {

// Qt ends the process with an abort when it can't reach a display; a person at a terminal is told what to do instead.
void TellThatThereIsNoDisplay(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr,
                 "Vellumo can't open a window: there is no display.\n"
                 "vellumo-cli does the same work in a terminal; \"vellumo-cli --help\" says how.\n\n%s\n",
                 message.toLocal8Bit().constData());
    std::_Exit(1);
}

KnownFolders FoldersOfThisMachine() {
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    const QDir shared(program + QStringLiteral("/../share/vellumo/samples"));
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return {program, QDir::toNativeSeparators(documents), shared.exists() ? shared.canonicalPath() : program};
}

QIcon IconOfTheProgram() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/icon/vellumo-%1.png").arg(size));
    return icon;
}

} // namespace

int main(int argc, char** argv) {
    const auto usualHandler = qInstallMessageHandler(TellThatThereIsNoDisplay);
    GuardedApplication application(argc, argv);
    qInstallMessageHandler(usualHandler);

    QCoreApplication::setApplicationName(QStringLiteral("Vellumo"));
    // Without it Qt would add the program's name to every window title.
    QGuiApplication::setApplicationDisplayName(QStringLiteral(""));
    QCoreApplication::setApplicationVersion(QLatin1String(VELLUMO_VERSION));
    QGuiApplication::setWindowIcon(IconOfTheProgram());
    QGuiApplication::setDesktopFileName(QStringLiteral("vellumo"));
    QLocale::setDefault(QLocale::system());
#ifndef Q_OS_WIN
    QApplication::setStyle(QStringLiteral("Fusion"));
#endif

    QtPrompts prompts;
    application.ShowFailuresWith(prompts);
    QtFileChooser chooser;
    QtPrinter printer;
    QtClipboard clipboard;
    SystemClock clock;
    const auto store = MakeUserSettingsStore();
    const auto launcher = MakeLauncher();
    const auto office = MakeOfficeProbe(prompts);
    const auto word = MakeWordProcessor();

    Session session;
    ProgramStart start;
    // Taken before the working directory becomes the current one: the path counts from where the person is.
    start.CommandLinePath = PathOfCommandLine(QCoreApplication::arguments().mid(1).join(u' '));
    start.Known = FoldersOfThisMachine();
    const DefaultFolders folders = ChooseDefaultFolders(start.Known);

    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    AppNavigator navigator({session,
                            start,
                            *store,
                            folders,
                            clock,
                            *launcher,
                            {prompts, chooser, printer, clipboard, *office, *word},
                            [] { QCoreApplication::quit(); },
                            data + QStringLiteral("/unsaved"),
                            data + QStringLiteral("/trusted-tests"),
                            QStringLiteral(VELLUMO_SAMPLE_HASHES).split(u' ')});
    QtExportWindows exportWindows(chooser, navigator);
    SpreadsheetExport exporter(prompts, clock, *office, SystemSpreadsheet(launcher.get(), QtExportWindows::StayPainted),
                               exportWindows);
    navigator.UseExporter(exporter);
    navigator.Start();
    return QApplication::exec();
}
