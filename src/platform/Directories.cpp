#include "platform/Directories.h"

#include <QDir>
#include <QFileInfo>

void ChangeDirectory(const QString& path) { QDir::setCurrent(path); }

void MakeDirectory(const QString& path) {
    // Every folder that is made here is closed to others from its first moment, those above the last one included:
    // their entries are people's names. A folder that was there keeps its permissions.
    const QString clean = QDir::cleanPath(path);
    for (qsizetype end = clean.indexOf(u'/', 1);; end = clean.indexOf(u'/', end + 1)) {
        const QString folder = end < 0 ? clean : clean.first(end);
        if (!DirectoryExists(folder))
            QDir().mkdir(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        if (end < 0)
            return;
    }
}

bool DirectoryExists(const QString& path) { return QFileInfo(path).isDir(); }

QStringList ListFiles(const QString& wildcard) {
    return QDir(QStringLiteral(".")).entryList({wildcard}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}
