#pragma once

#include "base/Failure.h"

#include <QString>

class Printer {
  public:
    virtual ~Printer() = default;

    /// Prints the whole text on the default printer, as a document of that title.
    virtual Result Print(const QString& text, const QString& title) = 0;
};
