#include "platform/unix/LibreOfficeWriter.h"

#include "base/LineBreak.h"
#include "platform/SafeFile.h"
#include "platform/unix/PathOfficeProbe.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamWriter>

namespace {

const QString Office = QStringLiteral("urn:oasis:names:tc:opendocument:xmlns:office:1.0");
const QString TextSpace = QStringLiteral("urn:oasis:names:tc:opendocument:xmlns:text:1.0");

/// Characters that XML can't hold are left out.
bool FitsXml(QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0xFFFE; }

void WriteLine(QXmlStreamWriter& xml, const QString& line) {
    QString plain;
    const auto flush = [&] {
        xml.writeCharacters(plain);
        plain.clear();
    };
    for (const QChar c : line) {
        if (c == u' ' || c == u'\t') {
            flush();
            xml.writeEmptyElement(TextSpace, c == u' ' ? QStringLiteral("s") : QStringLiteral("tab"));
        } else if (FitsXml(c)) {
            plain += c;
        }
    }
    flush();
}

} // namespace

QByteArray FlatOpenDocument(const QString& text) {
    QByteArray document;
    QXmlStreamWriter xml(&document);
    xml.writeStartDocument();
    xml.writeNamespace(Office, QStringLiteral("office"));
    xml.writeNamespace(TextSpace, QStringLiteral("text"));
    xml.writeStartElement(Office, QStringLiteral("document"));
    xml.writeAttribute(Office, QStringLiteral("version"), QStringLiteral("1.3"));
    xml.writeAttribute(Office, QStringLiteral("mimetype"), QStringLiteral("application/vnd.oasis.opendocument.text"));
    xml.writeStartElement(Office, QStringLiteral("body"));
    xml.writeStartElement(Office, QStringLiteral("text"));
    const QStringList lines = QString(text).replace(LineBreak, QStringLiteral("\n")).split(u'\n');
    for (const QString& line : lines) {
        xml.writeStartElement(TextSpace, QStringLiteral("p"));
        WriteLine(xml, line);
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return document;
}

Result LibreOfficeWriter::TypeText(const QString& text) {
    const QString program = WriterProgram();
    if (program.isEmpty())
        return Result::Failed(QStringLiteral("LibreOffice Writer is not on the PATH"));
    QTemporaryDir folder;
    if (!folder.isValid())
        return Result::Failed(folder.errorString());
    const QString path = folder.filePath(QStringLiteral("Report.fodt"));
    if (const Result written = WriteFile(path, FlatOpenDocument(text)); !written)
        return written;
    // "-n" makes a new document with the file as its template, so that saving asks for a name. LibreOffice reads the
    // file in its own time, perhaps after this program has ended, so the shell that waits for it takes the file away:
    // at once when a running instance has read it, and when LibreOffice ends otherwise.
    const QString script = QStringLiteral("\"$1\" -n \"$2\" >/dev/null 2>&1; rm -rf -- \"$3\"");
    if (!QProcess::startDetached(QStringLiteral("/bin/sh"),
                                 {QStringLiteral("-c"), script, QStringLiteral("sh"), program, path, folder.path()}))
        return Result::Failed(QStringLiteral("'%1' can't be started").arg(program));
    folder.setAutoRemove(false);
    return Result::Done();
}
