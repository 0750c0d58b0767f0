#pragma once

#include "platform/SettingsStore.h"

#include <QMap>
#include <QStringList>

/// A settings store without a disk. Writes are noted in their order; those of the FailingKey are refused.
class MemorySettingsStore : public SettingsStore {
  public:
    QString Read(const QString& key, const QString& defaultText) const override {
        return Values.value(key, defaultText);
    }

    bool Write(const QString& key, const QString& text) override {
        if (!FailingKey.isEmpty() && key == FailingKey)
            return false;
        Values[key] = text;
        WrittenKeys.append(key);
        return true;
    }

    QMap<QString, QString> Values;
    QStringList WrittenKeys;
    QString FailingKey;
};
