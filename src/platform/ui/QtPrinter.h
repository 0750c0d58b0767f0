#pragma once

#include "platform/Printer.h"

/// Prints black on paper of the printer's default size, in as many pages as the text takes.
class QtPrinter : public Printer {
  public:
    /// Without a path, the default printer; with one, a PDF file in its place.
    explicit QtPrinter(QString pdfPath = {}) : pdfPath_(std::move(pdfPath)) {}

    Result Print(const QString& text, const QString& title) override;

  private:
    QString pdfPath_;
};
