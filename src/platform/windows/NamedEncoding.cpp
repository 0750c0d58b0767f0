#include "platform/NamedEncoding.h"

#include "platform/windows/WindowsCodePage.h"

#include <QHash>

#include <windows.h>

namespace {

/// The number of the code page of that name, 0 when there is none here.
unsigned PageOf(const QString& name) {
    static const QHash<QString, unsigned> others{
        {QStringLiteral("koi8-r"), 20866},      {QStringLiteral("koi8-u"), 21866},
        {QStringLiteral("shift_jis"), 932},     {QStringLiteral("gb2312"), 936},
        {QStringLiteral("gbk"), 936},           {QStringLiteral("gb18030"), 54936},
        {QStringLiteral("big5"), 950},          {QStringLiteral("euc-kr"), 949},
        {QStringLiteral("euc-jp"), 20932},      {QStringLiteral("windows-31j"), 932},
        {QStringLiteral("ks_c_5601-1987"), 949}};
    bool isNumber = false;
    unsigned page = others.value(name);
    if (name.startsWith(QStringLiteral("iso-8859-"))) {
        const unsigned part = name.sliced(9).toUInt(&isNumber);
        page = isNumber ? 28590 + part : 0;
    } else if (name.startsWith(QStringLiteral("windows-")) && page == 0) {
        page = name.sliced(8).toUInt(&isNumber);
    }
    return page != 0 && IsValidCodePage(page) ? page : 0;
}

} // namespace

std::optional<QString> DecodeNamed(const QByteArray& bytes, const QString& name) {
    const unsigned page = PageOf(name);
    return page == 0 ? std::nullopt : std::optional(DecodeInPage(bytes, page));
}

std::optional<QByteArray> EncodeNamed(const QString& text, const QString& name) {
    const unsigned page = PageOf(name);
    if (page == 0)
        return std::nullopt;
    bool fits = false;
    const QByteArray bytes = EncodeInPage(text, page, &fits);
    return fits && DecodeInPage(bytes, page) == text ? std::optional(bytes) : std::nullopt;
}
