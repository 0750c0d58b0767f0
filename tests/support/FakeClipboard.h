#pragma once

#include "platform/Clipboard.h"

class FakeClipboard : public Clipboard {
  public:
    void Put(const QString& text) override { Content = text; }
    QString Text() const override { return Content; }

    QString Content;
};
