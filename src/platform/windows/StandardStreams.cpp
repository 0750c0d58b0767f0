#include "platform/StandardStreams.h"

#include <QFile>
#include <QFileInfo>

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

namespace {

/// What a person types into a console, as UTF-8. The console's own bytes would lose letters.
class ConsoleInput : public QIODevice {
  public:
    ConsoleInput() { open(QIODevice::ReadOnly); }

    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char* data, qint64 most) override {
        if (pending_.isEmpty())
            pending_ = NextLetters();
        const qint64 taken = std::min<qint64>(most, pending_.size());
        std::copy_n(pending_.constData(), taken, data);
        pending_.remove(0, taken);
        return taken;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    static QByteArray NextLetters() {
        wchar_t letters[512];
        DWORD read = 0;
        if (!ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), letters, 512, &read, nullptr) || read == 0)
            return {};
        // Ctrl+Z at the beginning of a line ends the input.
        if (letters[0] == L'\x1A')
            return {};
        return QString::fromWCharArray(letters, static_cast<qsizetype>(read)).toUtf8();
    }

    QByteArray pending_;
};

/// Shows UTF-8 as letters in the console while the program runs.
class Utf8Console {
  public:
    Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() {
        if (before_ != 0)
            SetConsoleOutputCP(before_);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

  private:
    UINT before_ = GetConsoleOutputCP();
};

std::unique_ptr<QIODevice> Opened(FILE* stream, QIODevice::OpenMode mode) {
    auto file = std::make_unique<QFile>();
    const int number = _fileno(stream);
    if (number < 0) {
        // Started without this stream.
        file->setFileName(QStringLiteral("NUL"));
        return file->open(mode) ? std::move(file) : nullptr;
    }
    // Bytes go as they are, without a carriage return before each line feed.
    _setmode(number, _O_BINARY);
    return file->open(number, mode) ? std::move(file) : nullptr;
}

bool IsConsole(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

} // namespace

StandardStreams OpenStandardStreams() {
    if (IsConsole(STD_OUTPUT_HANDLE) || IsConsole(STD_ERROR_HANDLE))
        static const Utf8Console console;
    std::unique_ptr<QIODevice> in;
    if (IsConsole(STD_INPUT_HANDLE))
        in = std::make_unique<ConsoleInput>();
    else
        in = Opened(stdin, QIODevice::ReadOnly);
    return {std::move(in), Opened(stdout, QIODevice::WriteOnly | QIODevice::Unbuffered),
            Opened(stderr, QIODevice::WriteOnly | QIODevice::Unbuffered), IsConsole(STD_ERROR_HANDLE)};
}

QStringList CommandLineArguments(int, char**) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.append(QString::fromWCharArray(words[i]));
    LocalFree(words);
    return arguments;
}

QString ProgramFolderOf(const char*) {
    QString path(MAX_PATH, Qt::Uninitialized);
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, reinterpret_cast<wchar_t*>(path.data()),
                                        static_cast<DWORD>(path.size()))) == static_cast<DWORD>(path.size()))
        path.resize(path.size() * 2);
    path.truncate(static_cast<qsizetype>(length));
    return QFileInfo(path).absolutePath();
}
