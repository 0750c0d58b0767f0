#include "export/EarlierWorkbook.h"

#include "base/Text.h"
#include "platform/EarlierCopy.h"
#include "platform/InPlace.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// Whether a workbook can be used, as far as its ends show: the directory of the package is at its end, so that one
/// that was cut off has none. What is no package at all isn't one that was cut off, either.
bool IsWholeOrForeign(const QString& path) {
    constexpr qint64 longestEnd = 22 + 0xFFFF;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return false;
    if (file.read(2) != "PK")
        return true;
    file.seek(qMax<qint64>(0, file.size() - longestEnd));
    return file.readAll().contains("PK\x05\x06");
}

} // namespace

void OfferEarlierWorkbook(const QString& path, Prompts& prompts) {
    AwaitWriter(path);
    if (QFileInfo(path).isFile() && !IsWholeOrForeign(path))
        OfferEarlierCopy(path, QStringLiteral("The workbook ") + Quoted(path) + QStringLiteral(" is empty or cut off."),
                         IsWholeOrForeign, prompts);
}

QString EarlierWorkbookHint(const QString& path) { return EarlierCopyHint(path, IsWholeOrForeign); }
