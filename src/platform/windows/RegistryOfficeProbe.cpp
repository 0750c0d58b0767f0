#include "platform/windows/RegistryOfficeProbe.h"

#include "platform/CodePage.h"

#include <windows.h>

namespace {

constexpr int BufferBytes = 255;

HKEY KeyOf(RegistryRoot root) {
    switch (root) {
    case RegistryRoot::ClassesRoot:
        return HKEY_CLASSES_ROOT;
    }
    return nullptr;
}

QString TextAt(HKEY key, const QString& valueName) {
    QByteArray buffer(BufferBytes, ' ');
    DWORD type = REG_SZ;
    auto length = static_cast<DWORD>(buffer.size());
    const LSTATUS asked = RegQueryValueExA(key, EncodeCodePage(valueName).constData(), nullptr, &type,
                                           reinterpret_cast<BYTE*>(buffer.data()), &length);
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    if (asked != ERROR_SUCCESS || !isText || length <= 1)
        return {};
    // The last byte is the zero that ends the text.
    return DecodeCodePage(buffer.first(static_cast<qsizetype>(length) - 1));
}

} // namespace

RegistryOfficeProbe::RegistryOfficeProbe(Prompts& prompts)
    : RegistryOfficeProbe(prompts, [](void* key) { return RegCloseKey(static_cast<HKEY>(key)) == ERROR_SUCCESS; }) {}

QString RegistryOfficeProbe::QueryRegistryString(RegistryRoot root, const QString& subKey,
                                                 const QString& valueName) const {
    HKEY key = nullptr;
    if (RegOpenKeyA(KeyOf(root), EncodeCodePage(subKey).constData(), &key) != ERROR_SUCCESS)
        return {};
    const QString text = TextAt(key, valueName);
    if (!close_(key))
        prompts_.Ask({QStringLiteral("RegCloseKey Failed: ") + subKey, {}, PromptButtons::Ok, PromptIcon::Critical});
    return text;
}
