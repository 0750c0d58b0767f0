#pragma once

#include "platform/WordProcessor.h"

#include <QTemporaryDir>

#include <memory>

/// Shows a text in LibreOffice Writer as a new document without a name. A running instance takes it over.
class LibreOfficeWriter : public WordProcessor {
  public:
    Result TypeText(const QString& text) override;

  private:
    /// Readable for the owner only, kept until the program ends, because LibreOffice reads it in its own time.
    std::unique_ptr<QTemporaryDir> folder_;
    int count_ = 0;
};

/// The text as a flat OpenDocument text, one paragraph a line; blanks and tabs are kept.
QByteArray FlatOpenDocument(const QString& text);
