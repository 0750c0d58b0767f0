#pragma once

#include "platform/WordProcessor.h"

#include <QByteArray>

/// Shows a text in LibreOffice Writer as a new document without a name. A running instance takes it over. The file in
/// between can be read by its owner only, and goes when LibreOffice is done with it.
class LibreOfficeWriter : public WordProcessor {
  public:
    Result TypeText(const QString& text) override;
};

/// The text as a flat OpenDocument text, one paragraph a line; blanks and tabs are kept.
QByteArray FlatOpenDocument(const QString& text);
