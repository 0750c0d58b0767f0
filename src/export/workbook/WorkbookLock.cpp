#include "export/workbook/WorkbookLock.h"

#include "platform/FileInUse.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QSet>
#include <QThread>

namespace {

constexpr int StaleAfterMilliseconds = 60'000;
constexpr int LookEveryMilliseconds = 20;

/// The workbook's own path, whatever links lead to it; one that isn't there yet has that of its folder.
QString TargetOf(const QString& path) {
    const QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    const QString target = info.isSymLink() ? info.symLinkTarget() : info.absoluteFilePath();
    const QString folder = QFileInfo(QFileInfo(target).absolutePath()).canonicalFilePath();
    return folder.isEmpty() ? target : folder + u'/' + QFileInfo(target).fileName();
}

QString Beside(const QString& path, const QString& before, const QString& behind) {
    const QFileInfo info(path);
    return info.absolutePath() + u'/' + before + info.fileName() + behind;
}

} // namespace

WorkbookLock::WorkbookLock(const QString& path) : target_(TargetOf(path)) {}

WorkbookLock::Outcome WorkbookLock::Take(int patience, const std::function<void()>& whileWaiting) {
    auto file = std::make_unique<QLockFile>(Beside(target_, QStringLiteral("."), QStringLiteral(".vellumo-lock")));
    file->setStaleLockTime(StaleAfterMilliseconds);
    QElapsedTimer waited;
    waited.start();
    while (!file->tryLock(0)) {
        if (file->error() != QLockFile::LockFailedError)
            return Outcome::Impossible;
        if (waited.hasExpired(patience))
            return Outcome::Busy;
        if (whileWaiting)
            whileWaiting();
        QThread::msleep(LookEveryMilliseconds);
    }
    file_ = std::move(file);
    return Outcome::Taken;
}

bool WorkbookLock::IsFor(const QString& path) const { return file_ && TargetOf(path) == target_; }

bool IsOpenInAnotherProgram(const QString& path) {
    for (const QString& name : QSet<QString>{QFileInfo(path).absoluteFilePath(), TargetOf(path)})
        if (QFileInfo::exists(Beside(name, QStringLiteral(".~lock."), QStringLiteral("#"))) ||
            QFileInfo::exists(Beside(name, QStringLiteral("~$"), QString())))
            return true;
    return QFileInfo(path).isFile() && IsLockedByAnotherProgram(path);
}
