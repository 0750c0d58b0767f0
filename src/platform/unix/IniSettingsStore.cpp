#include "platform/unix/IniSettingsStore.h"

#include "platform/Directories.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

QString PathOf(const QString& key) { return QStringLiteral("Settings/") + key; }

/// The file names people and places of work, so it is closed to others before anything stands in it. Later writes keep
/// the permissions that they find.
void MakeOwnersFile(const QString& path) {
    MakeDirectory(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.exists())
        file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace

QString IniSettingsStore::Read(const QString& key, const QString& defaultText) const {
    const QSettings file(path_, QSettings::IniFormat);
    // Someone who writes the file by hand may leave a comma outside quotes, which makes a list of it.
    const QVariant value = file.value(PathOf(key), defaultText);
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QStringLiteral(", "))
                                                    : value.toString();
}

bool IniSettingsStore::Write(const QString& key, const QString& text) {
    MakeOwnersFile(path_);
    // A QSettings never forgets a failure, and the next write may well succeed: each one has its own.
    QSettings file(path_, QSettings::IniFormat);
    file.setValue(PathOf(key), text);
    file.sync();
    return file.status() == QSettings::NoError;
}
