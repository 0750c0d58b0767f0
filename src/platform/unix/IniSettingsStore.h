#pragma once

#include "platform/SettingsStore.h"

#include <QSettings>

/// The settings in the section "Settings" of an INI file that only its owner can read.
class IniSettingsStore : public SettingsStore {
  public:
    explicit IniSettingsStore(const QString& path);

    QString Read(const QString& key, const QString& defaultText) const override;
    bool Write(const QString& key, const QString& text) override;

  private:
    QSettings file_;
};
