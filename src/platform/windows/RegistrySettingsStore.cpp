#include "platform/windows/RegistrySettingsStore.h"

#include <windows.h>

namespace {

constexpr wchar_t Section[] = L"Software\\Vellumo\\Settings";

const wchar_t* Wide(const QString& text) { return reinterpret_cast<const wchar_t*>(text.utf16()); }

} // namespace

QString RegistrySettingsStore::Read(const QString& key, const QString& defaultText) const {
    DWORD bytes = 0;
    QString text;
    LSTATUS read = RegGetValueW(HKEY_CURRENT_USER, Section, Wide(key), RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
    if (read != ERROR_SUCCESS)
        return defaultText;
    // A value that grows in between is asked for again.
    do {
        text.resize(static_cast<qsizetype>(bytes / sizeof(wchar_t)) + 1);
        bytes = static_cast<DWORD>(static_cast<size_t>(text.size()) * sizeof(wchar_t));
        read = RegGetValueW(HKEY_CURRENT_USER, Section, Wide(key), RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    } while (read == ERROR_MORE_DATA);
    if (read != ERROR_SUCCESS)
        return defaultText;
    text.truncate(static_cast<qsizetype>(bytes / sizeof(wchar_t)));
    // The first zero ends a text; other programs store more of them by mistake.
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.first(end);
}

bool RegistrySettingsStore::Write(const QString& key, const QString& text) {
    const auto bytes = static_cast<DWORD>((static_cast<size_t>(text.size()) + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(HKEY_CURRENT_USER, Section, Wide(key), REG_SZ, Wide(text), bytes) == ERROR_SUCCESS;
}
