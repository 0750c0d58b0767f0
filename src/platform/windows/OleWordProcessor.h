#pragma once

#include "platform/WordProcessor.h"

/// The word processor, driven by automation: a running one that has a document, or else a new one.
class OleWordProcessor : public WordProcessor {
  public:
    Result TypeText(const QString& text) override;
};
