#pragma once

#include "platform/Clipboard.h"

/// The clipboard of the desktop.
class QtClipboard : public Clipboard {
  public:
    void Put(const QString& text) override;
    QString Text() const override;
};
