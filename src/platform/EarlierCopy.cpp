#include "platform/EarlierCopy.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QString FreeNameForDamaged(const QString& path) {
    QString name = path + QStringLiteral(".damaged");
    for (int k = 1; QFileInfo(name).isSymLink() || QFile::exists(name); ++k)
        name = path + QStringLiteral(".damaged(%1)").arg(k);
    return name;
}

QString Native(const QString& path) { return QDir::toNativeSeparators(path); }

Result KeepDamaged(const QString& target) {
    QFile damaged(target);
    if (damaged.size() == 0)
        return Result::Done();
    if (!damaged.open(QIODevice::ReadOnly))
        return Result::Failed(QStringLiteral("Can't read the file '") + Native(target) + QStringLiteral("': ") +
                              damaged.errorString());
    WriteManner manner;
    manner.MustBeNew = true;
    const QString name = FreeNameForDamaged(target);
    return ResultOf(Native(name), WriteFileInManner(name, damaged.readAll(), manner));
}

} // namespace

QString EarlierCopyOf(const QString& path, const FileCheck& isUsable) {
    const QFileInfo target(TargetOf(path));
    const QRegularExpression isCopy(QRegularExpression::anchoredPattern(QRegularExpression::escape(target.fileName()) +
                                                                        QStringLiteral("\\.earlier(\\([0-9]+\\))?")));
    for (const QFileInfo& file : target.dir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Time))
        if (isCopy.match(file.fileName()).hasMatch() && file.size() > 0 && isUsable(file.filePath()))
            return file.filePath();
    return {};
}

Result RestoreEarlierCopy(const QString& path, const QString& copy) {
    const QString target = TargetOf(path);
    FileLock lock(target);
    if (lock.Take() == FileLock::Outcome::Busy)
        return ResultOf(path, {false, lock.Holder(), QStringLiteral("Nothing was changed.")});
    if (!QFileInfo::exists(copy))
        return Result::Done(); // taking the lock has put it back
    if (const Result kept = KeepDamaged(target); !kept)
        return kept;
    QString reason;
    if (MoveFileTo(copy, target, true, reason) == Moved::Done)
        return Result::Done();
    return ResultOf(path, {false, reason, QStringLiteral("The earlier version is in '") + Native(copy) + u'\''});
}

bool OfferEarlierCopy(const QString& path, const QString& why, const FileCheck& isUsable, Prompts& prompts) {
    const QString copy = EarlierCopyOf(path, isUsable);
    if (copy.isEmpty())
        return false;
    const QString target = TargetOf(path);
    const QFileInfo info(copy);
    QString text = why + QStringLiteral("\n\nAn earlier version of it, of %1, is in '%2'. Use it?")
                             .arg(info.lastModified().toString(QStringLiteral("yyyy-MM-dd HH:mm")), Native(copy));
    if (QFileInfo(target).size() > 0)
        text +=
            QStringLiteral(" What is in the file now will be kept as '%1'.").arg(Native(FreeNameForDamaged(target)));
    if (prompts.Ask({text, {}, PromptButtons::YesNoCancel, PromptIcon::Question}) != PromptAnswer::Yes)
        return false;
    const Result restored = RestoreEarlierCopy(path, copy);
    if (!restored)
        prompts.Inform(restored.Message());
    return restored.Ok();
}

QString EarlierCopyHint(const QString& path, const FileCheck& isUsable) {
    const QString copy = EarlierCopyOf(path, isUsable);
    if (copy.isEmpty())
        return {};
    return QStringLiteral("\nAn earlier version of it is in '%1'. Open the file in Vellumo to use it, or copy it over "
                          "the damaged file.")
        .arg(Native(copy));
}
