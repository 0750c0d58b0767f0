#include "export/workbook/WorkbookLock.h"

#include "platform/FileInUse.h"

#include <QFileInfo>
#include <QSet>

namespace {

QString Beside(const QString& path, const QString& before, const QString& behind) {
    const QFileInfo info(path);
    return info.absolutePath() + u'/' + before + info.fileName() + behind;
}

} // namespace

bool IsOpenInAnotherProgram(const QString& path) {
    for (const QString& name : QSet<QString>{QFileInfo(path).absoluteFilePath(), TargetOf(path)})
        if (QFileInfo::exists(Beside(name, QStringLiteral(".~lock."), QStringLiteral("#"))) ||
            QFileInfo::exists(Beside(name, QStringLiteral("~$"), QString())))
            return true;
    return QFileInfo(path).isFile() && IsLockedByAnotherProgram(path);
}
