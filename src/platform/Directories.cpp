#include "platform/Directories.h"

#include <QDir>
#include <QFile>

void ChangeDirectory(const QString& path) { QDir::setCurrent(path); }

void MakeDirectory(const QString& path) {
    // Only what is made here is closed to others; a folder that was there keeps its permissions.
    if (DirectoryExists(path) || !QDir().mkpath(path))
        return;
    QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

bool DirectoryExists(const QString& path) { return QFileInfo(path).isDir(); }

QStringList ListFiles(const QString& wildcard) {
    return QDir(QStringLiteral(".")).entryList({wildcard}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}
