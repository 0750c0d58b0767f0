#include "platform/CodePage.h"

#include "platform/Windows1252.h"
#include "platform/windows/WindowsCodePage.h"

#include <windows.h>

namespace {

constexpr UINT Western = 1252;

} // namespace

QString DecodeCodePage(const QByteArray& bytes) {
    return GetACP() == Western ? DecodeWindows1252(bytes) : DecodeInPage(bytes, GetACP());
}

QByteArray EncodeCodePage(const QString& text, bool* fits) {
    return GetACP() == Western ? EncodeWindows1252(text, fits) : EncodeInPage(text, GetACP(), fits);
}
