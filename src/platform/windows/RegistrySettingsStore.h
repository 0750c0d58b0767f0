#pragma once

#include "platform/SettingsStore.h"

/// The settings as texts in the user's part of the registry, under Software\Vellumo\Settings.
class RegistrySettingsStore : public SettingsStore {
  public:
    QString Read(const QString& key, const QString& defaultText) const override;
    bool Write(const QString& key, const QString& text) override;
};
