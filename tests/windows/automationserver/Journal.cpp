#include "Journal.h"

#include "Text.h"

#include <windows.h>

#include <cwchar>
#include <filesystem>
#include <fstream>
#include <sstream>

void Journal::Note(const std::wstring& line) const {
    const HANDLE file =
        CreateFileW((folder_ + L"\\record.txt").c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return;
    const std::string bytes = Utf8(who_ + L' ' + line + L'\n');
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

std::vector<std::wstring> Journal::Orders(const std::wstring& word) const {
    std::vector<std::wstring> orders;
    std::ifstream file(std::filesystem::path(folder_) / L"orders.txt", std::ios::binary);
    for (std::string bytes; std::getline(file, bytes);) {
        std::wstring line = FromUtf8(bytes);
        if (line.ends_with(L'\r'))
            line.pop_back();
        if (line.starts_with(word + L' '))
            orders.push_back(line.substr(word.size() + 1));
    }
    return orders;
}

Order Journal::OrderFor(const std::wstring& member) const {
    const auto means = [&](const std::wstring& name) {
        return SameName(name, member) || (member.ends_with(L'=') && SameName(name + L'=', member));
    };
    for (const std::wstring& name : Orders(L"vanish"))
        if (means(name))
            return {Order::Kind::Vanish, 0, {}};
    for (const auto& [word, kind] :
         {std::pair(L"fail", Order::Kind::Fail), std::pair(L"failcode", Order::Kind::FailWithCode)})
        for (const std::wstring& line : Orders(word)) {
            std::wistringstream words(line);
            Order order{kind, 0, {}};
            std::wstring name;
            words >> name >> order.Number >> std::ws;
            std::getline(words, order.Description);
            if (means(name))
                return order;
        }
    return {};
}

int Journal::BusyCalls() const {
    const std::vector<std::wstring> lines = Orders(L"busy");
    return lines.empty() ? 0 : static_cast<int>(std::wcstol(lines.front().c_str(), nullptr, 10));
}

std::pair<int, long> Journal::Answers() const {
    const std::vector<std::wstring> lines = Orders(L"answer");
    if (lines.empty())
        return {0, 0};
    wchar_t* rest = nullptr;
    const long calls = std::wcstol(lines.front().c_str(), &rest, 10);
    return {static_cast<int>(calls), static_cast<long>(std::wcstoul(rest, nullptr, 16))};
}
