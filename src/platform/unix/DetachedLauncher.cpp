#include "platform/unix/DetachedLauncher.h"

#include <QProcess>
#include <QStandardPaths>

Result DetachedLauncher::Open(const QString& program, const QString& path, WindowState) {
    const QString cantOpen = QStringLiteral("Can't open '") + path + QStringLiteral("' with '") + program + u'\'';
    if (program.isEmpty() || QStandardPaths::findExecutable(program).isEmpty())
        return Result::Failed(cantOpen + QStringLiteral(": there is no such program"));
    if (!QProcess::startDetached(program, {path}))
        return Result::Failed(cantOpen + QStringLiteral(": it can't be started"));
    return Result::Done();
}
