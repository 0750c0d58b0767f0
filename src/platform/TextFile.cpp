#include "platform/TextFile.h"

#include "platform/CodePage.h"
#include "platform/LocaleEncoding.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStringConverter>

#include <cerrno>

namespace {

bool HasHighByte(const QByteArray& bytes) {
    for (const char byte : bytes)
        if (static_cast<uchar>(byte) >= 0x80)
            return true;
    return false;
}

QString Grouped(qint64 number) { return QLocale(QLocale::English).toString(number); }

/// Tabs, line ends, page breaks and the end-of-file mark of old systems occur in texts; other control characters don't.
bool OccursInTexts(char byte) {
    return static_cast<uchar>(byte) >= 0x20 || (byte >= '\t' && byte <= '\r') || byte == '\x1A';
}

QString WhyNoText(const QByteArray& bytes) {
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (!OccursInTexts(bytes[i]))
            return QStringLiteral("it isn't a text file (the byte 0x%1 at position %2)")
                .arg(QString::number(static_cast<uchar>(bytes[i]), 16).toUpper().rightJustified(2, u'0'))
                .arg(i + 1);
    return {};
}

QString TooLong(qint64 size, qint64 maxBytes) {
    return QStringLiteral("it is %1 bytes long, and at most %2 can be read").arg(Grouped(size), Grouped(maxBytes));
}

} // namespace

TextOfFile DecodeText(const QByteArray& bytes) {
    const bool marked = bytes.startsWith("\xEF\xBB\xBF");
    if (marked || HasHighByte(bytes)) {
        QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
        const QString text = decoder.decode(marked ? bytes.mid(3) : bytes);
        if (marked)
            return {text, TextEncoding::Utf8WithMark, bytes};
        // Bytes that end in the middle of a character are no error to the decoder, so the way back decides.
        if (!decoder.hasError() && text.toUtf8() == bytes)
            return {text, TextEncoding::Utf8, bytes};
    }
    return {DecodeCodePage(bytes), TextEncoding::CodePage, bytes};
}

Result ReadTextFile(const QString& path, qint64 maxBytes, TextOfFile& file) {
    const QFileInfo info(path);
    if (info.isDir())
        return Result::Failed(QStringLiteral("it is a directory"));
    if (info.exists() && !info.isFile())
        return Result::Failed(QStringLiteral("it is not a regular file"));
    if (info.size() > maxBytes)
        return Result::Failed(TooLong(info.size(), maxBytes));

    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
        return Result::Failed(source.errorString() == qt_error_string(ENOENT) ? QStringLiteral("there is no such file")
                                                                              : source.errorString());
    const QByteArray bytes = source.read(maxBytes + 1);
    if (source.error() != QFileDevice::NoError)
        return Result::Failed(source.errorString());
    if (bytes.size() > maxBytes)
        return Result::Failed(TooLong(bytes.size(), maxBytes));
    if (const QString reason = WhyNoText(bytes); !reason.isEmpty())
        return Result::Failed(reason);
    file = DecodeText(bytes);
    return Result::Done();
}

std::optional<QByteArray> EncodeTestText(const QString& text) {
    bool fits = false;
    const QByteArray codePage = EncodeCodePage(text, &fits);
    if (fits && DecodeText(codePage).Text == text)
        return codePage;
    for (const char* mark : {"", "\xEF\xBB\xBF"})
        if (const QByteArray bytes = mark + text.toUtf8(); DecodeText(bytes).Text == text)
            return bytes;
    return std::nullopt;
}

QByteArray EncodeForLocale(const QString& text) { return EncodeInLocale(text).value_or(text.toUtf8()); }
