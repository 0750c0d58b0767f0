#include "Registration.h"

#include "Classes.h"
#include "Text.h"

#include <stdexcept>

namespace {

const std::wstring OwnKey = L"Software\\Vellumo Tests\\Automation Server";

struct RegisteredClass {
    CLSID Clsid;
    std::wstring ProgId;
    std::wstring InstalledKey;
    std::wstring InstalledValue;
    std::wstring Argument;
};

const RegisteredClass Registered[] = {
    {SpreadsheetClass, L"Excel.Application", L"Excel.Sheet", L"Excel.Sheet.12", L"spreadsheet"},
    {WordProcessorClass, L"word.application", L"Word.Document", L"Word.Document.12", L"wordprocessor"},
};

std::wstring TextOf(const CLSID& clsid) {
    wchar_t text[64];
    StringFromGUID2(clsid, text, 64);
    return text;
}

/// The default value of a key, or the named one; empty when there is none.
std::wstring Read(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[1024];
    DWORD size = sizeof text;
    return RegGetValueW(root, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS ? text
                                                                                                       : std::wstring();
}

void Write(HKEY root, const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
    if (RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) != ERROR_SUCCESS)
        throw std::runtime_error("The registry can't be written: " + Utf8(key));
}

std::wstring OwnPath() {
    wchar_t path[MAX_PATH * 2];
    return {path, GetModuleFileNameW(nullptr, path, MAX_PATH * 2)};
}

} // namespace

void Register(const std::wstring& folder) {
    for (const RegisteredClass& one : Registered) {
        const std::wstring present = Read(HKEY_CLASSES_ROOT, one.ProgId + L"\\CLSID");
        if (!present.empty() && !SameName(present, TextOf(one.Clsid)))
            throw std::runtime_error("Another program is registered as " + Utf8(one.ProgId));
    }
    Write(HKEY_CURRENT_USER, OwnKey, folder, L"Folder");
    for (const RegisteredClass& one : Registered) {
        const std::wstring classKey = L"CLSID\\" + TextOf(one.Clsid);
        Write(HKEY_CLASSES_ROOT, classKey, L"Vellumo's automation server for tests");
        Write(HKEY_CLASSES_ROOT, classKey + L"\\LocalServer32", L'"' + OwnPath() + L"\" " + one.Argument);
        Write(HKEY_CLASSES_ROOT, classKey + L"\\ProgID", one.ProgId);
        Write(HKEY_CLASSES_ROOT, one.ProgId + L"\\CLSID", TextOf(one.Clsid));
        Write(HKEY_CLASSES_ROOT, one.InstalledKey + L"\\CurVer", one.InstalledValue);
    }
}

void Unregister() {
    for (const RegisteredClass& one : Registered) {
        RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + TextOf(one.Clsid)).c_str());
        if (!SameName(Read(HKEY_CLASSES_ROOT, one.ProgId + L"\\CLSID"), TextOf(one.Clsid)))
            continue;
        RegDeleteTreeW(HKEY_CLASSES_ROOT, one.ProgId.c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, one.InstalledKey.c_str());
    }
    RegDeleteTreeW(HKEY_CURRENT_USER, OwnKey.c_str());
}

std::wstring RegisteredFolder() { return Read(HKEY_CURRENT_USER, OwnKey, L"Folder"); }
