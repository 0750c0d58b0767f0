#pragma once

#include <QString>

/// The per-user store of named texts.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;

    /// The text under the key, or the default when there is none.
    virtual QString Read(const QString& key, const QString& defaultText) const = 0;
    /// False when it couldn't be written.
    virtual bool Write(const QString& key, const QString& text) = 0;
};
