#include "Text.h"

#include <windows.h>

#include <charconv>

std::string Utf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

std::wstring FromUtf8(const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes.data(), length, text.data(), static_cast<int>(text.size()));
    return text;
}

namespace {

const std::wstring Plain = L"\r\n\t\"\\";
const std::wstring Letters = L"rnt\"\\";

} // namespace

std::wstring Escaped(const std::wstring& text) {
    std::wstring escaped;
    for (const wchar_t c : text) {
        const std::size_t found = Plain.find(c);
        if (found == std::wstring::npos)
            escaped += c;
        else
            escaped.append({L'\\', Letters[found]});
    }
    return escaped;
}

std::wstring Unescaped(const std::wstring& text) {
    std::wstring plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t found =
            text[i] == L'\\' && i + 1 < text.size() ? Letters.find(text[i + 1]) : std::wstring::npos;
        plain += found == std::wstring::npos ? text[i] : Plain[found];
        i += found == std::wstring::npos ? 0 : 1;
    }
    return plain;
}

std::wstring Quoted(const std::wstring& text) {
    constexpr std::size_t longest = 10000;
    if (text.size() <= longest)
        return L'"' + Escaped(text) + L'"';
    return L'"' + Escaped(text.substr(0, 40)) + L"...\" (" + std::to_wstring(text.size()) + L" characters)";
}

bool SameName(const std::wstring& one, const std::wstring& other) {
    return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(), static_cast<int>(other.size()),
                                TRUE) == CSTR_EQUAL;
}

std::wstring NumberText(double number) {
    char digits[64];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, number);
    return {digits, end.ptr};
}
