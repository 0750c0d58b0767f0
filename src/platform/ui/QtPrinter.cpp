#include "platform/ui/QtPrinter.h"

#include <QAbstractTextDocumentLayout>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>

namespace {

constexpr double FontSizeInPoints = 11;
constexpr double MarginInMillimetres = 18;

void LayOut(QTextDocument& document, const QString& text, QPrinter& printer) {
    QFont font;
    font.setPointSizeF(FontSizeInPoints);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.documentLayout()->setPaintDevice(&printer);
    document.setPlainText(text);
    document.setPageSize(printer.pageRect(QPrinter::DevicePixel).size());
}

bool PaintPages(const QTextDocument& document, QPrinter& printer, QPainter& painter) {
    const QSizeF page = document.pageSize();
    QAbstractTextDocumentLayout::PaintContext context;
    // Paper is white whatever the theme of the desktop.
    context.palette.setColor(QPalette::Text, Qt::black);
    for (int number = 0; number < document.pageCount(); ++number) {
        if (number > 0 && !printer.newPage())
            return false;
        painter.save();
        painter.translate(0, -number * page.height());
        context.clip = QRectF(QPointF(0, number * page.height()), page);
        painter.setClipRect(context.clip);
        document.documentLayout()->draw(&painter, context);
        painter.restore();
    }
    return true;
}

} // namespace

Result QtPrinter::Print(const QString& text, const QString& title) {
    QPrinter printer(QPrinter::HighResolution);
    if (!pdfPath_.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath_);
    } else if (QPrinterInfo::defaultPrinter().isNull()) {
        return Result::Failed(QStringLiteral("Can't print '%1': this computer has no default printer.").arg(title));
    } else {
        // A QPrinter keeps its own idea of the printer; a default that has changed since is taken from here.
        printer.setPrinterName(QPrinterInfo::defaultPrinterName());
    }
    printer.setDocName(title);
    printer.setPageMargins(
        QMarginsF(MarginInMillimetres, MarginInMillimetres, MarginInMillimetres, MarginInMillimetres),
        QPageLayout::Millimeter);
    const Result failed = Result::Failed(QStringLiteral("Can't print '%1': the printer '%2' reported an error.")
                                             .arg(title, pdfPath_.isEmpty() ? printer.printerName() : pdfPath_));
    QTextDocument document;
    LayOut(document, text, printer);
    QPainter painter;
    if (!painter.begin(&printer))
        return failed;
    const bool painted = PaintPages(document, printer, painter);
    if (!painted)
        printer.abort();
    if (!painter.end() || !painted || printer.printerState() == QPrinter::Error)
        return failed;
    return Result::Done();
}
