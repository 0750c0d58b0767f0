#include "platform/NamedEncoding.h"

#include <QStringDecoder>
#include <QStringEncoder>

std::optional<QString> DecodeNamed(const QByteArray& bytes, const QString& name) {
    QStringDecoder decoder(name.toLatin1().constData());
    if (!decoder.isValid())
        return std::nullopt;
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

std::optional<QByteArray> EncodeNamed(const QString& text, const QString& name) {
    QStringEncoder encoder(name.toLatin1().constData());
    if (!encoder.isValid())
        return std::nullopt;
    const QByteArray bytes = encoder.encode(text);
    return DecodeNamed(bytes, name) == text ? std::optional(bytes) : std::nullopt;
}
