#include "platform/LocaleEncoding.h"

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

namespace {

/// The character set that the environment's locale names. A plain C locale says nothing about letters: UTF-8 then.
QByteArray CharacterSet() {
    const locale_t locale = newlocale(LC_CTYPE_MASK, "", nullptr);
    if (!locale)
        return "UTF-8";
    const QByteArray name = nl_langinfo_l(CODESET, locale);
    freelocale(locale);
    return name.isEmpty() || name == "ANSI_X3.4-1968" || name == "US-ASCII" ? QByteArray("UTF-8") : name;
}

} // namespace

std::optional<QByteArray> EncodeInLocale(const QString& text) {
    const QByteArray characterSet = CharacterSet();
    QByteArray utf8 = text.toUtf8();
    if (characterSet == "UTF-8")
        return utf8;
    const iconv_t converter = iconv_open(characterSet.constData(), "UTF-8");
    if (converter == reinterpret_cast<iconv_t>(-1))
        return std::nullopt;

    QByteArray encoded(utf8.size() * 4 + 16, '\0');
    char* from = utf8.data();
    char* to = encoded.data();
    auto fromLeft = static_cast<size_t>(utf8.size());
    auto toLeft = static_cast<size_t>(encoded.size());
    const size_t replaced = iconv(converter, &from, &fromLeft, &to, &toLeft);
    const bool flushed = iconv(converter, nullptr, nullptr, &to, &toLeft) == 0;
    iconv_close(converter);
    if (replaced != 0 || !flushed)
        return std::nullopt;
    encoded.chop(static_cast<qsizetype>(toLeft));
    return encoded;
}
