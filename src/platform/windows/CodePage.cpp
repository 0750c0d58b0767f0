#include "platform/CodePage.h"

#include "platform/Windows1252.h"

#include <windows.h>

namespace {

constexpr UINT Western = 1252;

// Windows encodes at most as many bytes as an int counts; no text comes near it.
int Count(qsizetype size) { return static_cast<int>(size); }

} // namespace

QString DecodeCodePage(const QByteArray& bytes) {
    if (GetACP() == Western)
        return DecodeWindows1252(bytes);
    if (bytes.isEmpty())
        return {};
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.constData(), Count(bytes.size()), nullptr, 0);
    QString text(length, Qt::Uninitialized);
    MultiByteToWideChar(CP_ACP, 0, bytes.constData(), Count(bytes.size()), reinterpret_cast<wchar_t*>(text.data()),
                        length);
    return text;
}

QByteArray EncodeCodePage(const QString& text, bool* fits) {
    if (GetACP() == Western)
        return EncodeWindows1252(text, fits);
    if (fits)
        *fits = true;
    if (text.isEmpty())
        return {};
    const auto* letters = reinterpret_cast<const wchar_t*>(text.utf16());
    // UTF-8 as the code page fits every text, and takes neither flag nor answer about replacements.
    const bool utf8 = GetACP() == CP_UTF8;
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL replaced = FALSE;
    const int length = WideCharToMultiByte(CP_ACP, flags, letters, Count(text.size()), nullptr, 0, nullptr, nullptr);
    QByteArray bytes(length, Qt::Uninitialized);
    WideCharToMultiByte(CP_ACP, flags, letters, Count(text.size()), bytes.data(), length, nullptr,
                        utf8 ? nullptr : &replaced);
    if (fits && replaced)
        *fits = false;
    return bytes;
}
