#include "cli/Tool.h"
#include "platform/SystemPorts.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <clocale>
#include <csignal>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

// A closed stream must not let a file that is opened later take its number and the output that goes there.
void HoldStandardStreams() {
#ifndef Q_OS_WIN
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) == -1)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    // A reader that goes away is told as a failed write, not by the end of the program.
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

/// The folder that holds the program. A name without a folder was found in one of the folders of PATH.
QString FolderOf(const QString& program) {
    const QString found = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    return QFileInfo(QFileInfo(found.isEmpty() ? program : found).canonicalFilePath()).absolutePath();
}

} // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    HoldStandardStreams();

    QFile in, out, err;
    if (!in.open(fileno(stdin), QIODevice::ReadOnly) ||
        !out.open(fileno(stdout), QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !err.open(fileno(stderr), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return Unusable;

    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));

    const SystemClock clock;
    const QString folder = FolderOf(QFile::decodeName(argc > 0 ? argv[0] : ""));
    Console console{in, out, err, isatty(fileno(stderr)) != 0, clock, {}, folder};
    PeekSettings(console.UserSettings, *MakeUserSettingsStore(), {folder, folder});
    return RunTool(arguments, console);
}
