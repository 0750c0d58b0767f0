#include "platform/windows/WindowsCodePage.h"

#include <windows.h>

namespace {

// Windows counts with int; no text comes near its end.
int Count(qsizetype size) { return static_cast<int>(size); }

} // namespace

QString DecodeInPage(const QByteArray& bytes, unsigned page) {
    if (bytes.isEmpty())
        return {};
    const int length = MultiByteToWideChar(page, 0, bytes.constData(), Count(bytes.size()), nullptr, 0);
    QString text(length, Qt::Uninitialized);
    MultiByteToWideChar(page, 0, bytes.constData(), Count(bytes.size()), reinterpret_cast<wchar_t*>(text.data()),
                        length);
    return text;
}

QByteArray EncodeInPage(const QString& text, unsigned page, bool* fits) {
    if (fits)
        *fits = true;
    if (text.isEmpty())
        return {};
    const auto* letters = reinterpret_cast<const wchar_t*>(text.utf16());
    // These two fit every text, and take neither flag nor answer about replacements.
    const bool fitsAll = page == CP_UTF8 || page == 54936;
    const DWORD flags = fitsAll ? 0 : WC_NO_BEST_FIT_CHARS;
    const int length = WideCharToMultiByte(page, flags, letters, Count(text.size()), nullptr, 0, nullptr, nullptr);
    QByteArray bytes(length, Qt::Uninitialized);
    BOOL replaced = FALSE;
    WideCharToMultiByte(page, flags, letters, Count(text.size()), bytes.data(), length, nullptr,
                        fitsAll ? nullptr : &replaced);
    if (fits && (replaced || length == 0))
        *fits = false;
    return bytes;
}
