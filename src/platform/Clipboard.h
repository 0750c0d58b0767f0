#pragma once

#include <QString>

class Clipboard {
  public:
    virtual ~Clipboard() = default;

    virtual void Put(const QString& text) = 0;
    virtual QString Text() const = 0;
};
