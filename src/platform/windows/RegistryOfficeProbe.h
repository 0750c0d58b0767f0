#pragma once

#include "platform/OfficeProbe.h"
#include "platform/Prompts.h"

#include <functional>

/// Looks up texts in the registry.
class RegistryOfficeProbe : public OfficeProbe {
  public:
    /// Closes a key; false when that fails.
    using CloseKey = std::function<bool(void* key)>;

    explicit RegistryOfficeProbe(Prompts& prompts);
    RegistryOfficeProbe(Prompts& prompts, CloseKey close) : prompts_(prompts), close_(std::move(close)) {}

    /// The text of at most 254 bytes in the system's code page that is stored there, "" for none, for a longer one and
    /// for what is no text. A key that can't be closed is told with a box.
    QString QueryRegistryString(RegistryRoot root, const QString& subKey, const QString& valueName) const override;

  private:
    Prompts& prompts_;
    CloseKey close_;
};
