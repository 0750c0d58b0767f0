#include "platform/StandardStreams.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

std::unique_ptr<QIODevice> Opened(int stream, QIODevice::OpenMode mode) {
    auto file = std::make_unique<QFile>();
    return file->open(stream, mode) ? std::move(file) : nullptr;
}

} // namespace

StandardStreams OpenStandardStreams() {
    // A closed stream must not let a file that is opened later take its number and the output that goes there.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(stream, F_GETFD) == -1)
            open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    std::signal(SIGPIPE, SIG_IGN);
    return {Opened(STDIN_FILENO, QIODevice::ReadOnly),
            Opened(STDOUT_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered),
            Opened(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered), isatty(STDERR_FILENO) != 0};
}

QStringList CommandLineArguments(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    return arguments;
}

QString ProgramFolderOf(const char* calledBy) {
    const QString program = QFile::decodeName(calledBy);
    // A name without a folder was found in one of the folders of PATH.
    const QString found = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    return QFileInfo(QFileInfo(found.isEmpty() ? program : found).canonicalFilePath()).absolutePath();
}
