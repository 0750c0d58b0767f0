#pragma once

#include "platform/SettingsStore.h"

/// The settings in the section "Settings" of an INI file that only its owner can read.
class IniSettingsStore : public SettingsStore {
  public:
    explicit IniSettingsStore(const QString& path) : path_(path) {}

    QString Read(const QString& key, const QString& defaultText) const override;
    bool Write(const QString& key, const QString& text) override;

  private:
    QString path_;
};
