#include "platform/unix/DetachedLauncher.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

Result DetachedLauncher::Open(const QString& program, const QString& path, WindowState) {
    const QString cantOpen = QStringLiteral("Can't open '") + path + QStringLiteral("' with '") + program + u'\'';
    if (program.isEmpty() || QStandardPaths::findExecutable(program).isEmpty())
        return Result::Failed(cantOpen + QStringLiteral(": there is no such program"));
    // A name that begins with "+" or "-" would be taken for an option.
    if (!QProcess::startDetached(program, {QFileInfo(path).absoluteFilePath()}))
        return Result::Failed(cantOpen + QStringLiteral(": it can't be started"));
    return Result::Done();
}
