#include "platform/unix/IniSettingsStore.h"

#include <QFile>

namespace {

QString PathOf(const QString& key) { return QStringLiteral("Settings/") + key; }

} // namespace

IniSettingsStore::IniSettingsStore(const QString& path) : file_(path, QSettings::IniFormat) {}

QString IniSettingsStore::Read(const QString& key, const QString& defaultText) const {
    // Someone who writes the file by hand may leave a comma outside quotes, which makes a list of it.
    const QVariant value = file_.value(PathOf(key), defaultText);
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QStringLiteral(", ")) : value.toString();
}

bool IniSettingsStore::Write(const QString& key, const QString& text) {
    file_.setValue(PathOf(key), text);
    file_.sync();
    if (file_.status() != QSettings::NoError)
        return false;
    // The file names people and places of work.
    QFile::setPermissions(file_.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return true;
}
