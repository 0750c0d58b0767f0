#include "platform/windows/CommandLineLauncher.h"

#include <QDir>
#include <QFileInfo>

#include <windows.h>

Result CommandLineLauncher::Open(const QString& program, const QString& path, WindowState window) {
    // A name of its own could look like an option, and many programs take a slash for the beginning of one.
    const QString native = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    QString commandLine = program + u' ' + native;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = window == WindowState::Minimized ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    const BOOL started =
        !program.isEmpty() && CreateProcessW(nullptr, reinterpret_cast<wchar_t*>(commandLine.data()), nullptr, nullptr,
                                             FALSE, 0, nullptr, nullptr, &start, &process);
    if (!started)
        return Result::Failed(
            QStringLiteral("Can't open '") + native + QStringLiteral("' with '") + program + QStringLiteral("': ") +
            (program.isEmpty() ? QStringLiteral("there is no such program") : qt_error_string(int(GetLastError()))));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return Result::Done();
}
