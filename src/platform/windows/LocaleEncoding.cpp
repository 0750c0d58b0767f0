#include "platform/LocaleEncoding.h"

#include "platform/CodePage.h"

std::optional<QByteArray> EncodeInLocale(const QString& text) {
    bool fits = false;
    const QByteArray bytes = EncodeCodePage(text, &fits);
    return fits ? std::optional(bytes) : std::nullopt;
}
