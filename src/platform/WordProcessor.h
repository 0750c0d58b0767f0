#pragma once

#include "base/Failure.h"

#include <QString>

class WordProcessor {
  public:
    virtual ~WordProcessor() = default;

    /// Shows a document of the word processor that holds the text, in a running instance when there is one.
    virtual Result TypeText(const QString& text) = 0;
};
