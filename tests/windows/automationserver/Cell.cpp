#include "Cell.h"

#include "LateBound.h"
#include "Text.h"

#include <algorithm>
#include <regex>

namespace {

constexpr std::size_t LongestText = 32767;
constexpr SCODE NameError = static_cast<SCODE>(0x800A07ED);

const std::wstring Month = L"(jan|feb|mar|apr|may|jun|jul|aug|sep|oct|nov|dec)[a-z]*";

bool Matches(const std::wstring& text, const std::wstring& pattern) {
    return std::regex_match(text, std::wregex(L"\\s*(" + pattern + L")\\s*", std::regex::icase));
}

bool LooksLikeNumber(const std::wstring& text) {
    const std::wstring digits = L"(\\d{1,3}(,\\d{3})+|\\d+)";
    const std::wstring number =
        L"[-+]?\\s*[$\u00A3\u20AC]?\\s*(" + digits + L"(\\.\\d*)?|\\.\\d+)(e[-+]?\\d+)?\\s*" + L"[%$\u00A3\u20AC]?";
    return Matches(text, number) || Matches(text, L"\\(" + digits + L"(\\.\\d*)?\\)") ||
           Matches(text, L"\\d+ \\d+/\\d+");
}

bool LooksLikeDate(const std::wstring& text) {
    return Matches(text, L"\\d{1,4}[-/]\\d{1,4}([-/]\\d{1,4})?") || Matches(text, L"\\d{1,2}\\.\\d{1,2}\\.\\d{2,4}") ||
           Matches(text, L"\\d{1,2}[- ]?" + Month + L"([-, ]*\\d{2,4})?") || Matches(text, Month + L"[- ]?\\d{1,4}") ||
           Matches(text, L"(\\d{1,4}[-/]\\d{1,4}[-/]\\d{1,4} )?\\d{1,2}:\\d{2}(:\\d{2})?( ?[ap]m?)?");
}

/// The number of a text that looks like one; only its kind is of interest where it is written in an odd way.
double NumberIn(std::wstring text) {
    const double whole = text.find(L'%') == std::wstring::npos ? 1 : 100;
    std::erase_if(text, [](wchar_t c) { return c != L'.' && c != L'-' && c != L'e' && c != L'E' && !iswdigit(c); });
    return std::wcstod(text.c_str(), nullptr) / whole;
}

double SerialIn(std::wstring text) {
    std::replace(text.begin(), text.end(), L'.', L'/');
    DATE serial = 0;
    return SUCCEEDED(VarDateFromStr(text.data(), MAKELCID(0x0409, 0), 0, &serial)) ? serial : 0;
}

Cell Typed(const std::wstring& text) {
    if (text.starts_with(L'\''))
        return {Cell::Kind::Text, 0, text.substr(1)};
    if (text.empty())
        return {};
    if (LooksLikeNumber(text))
        return {Cell::Kind::Number, NumberIn(text), {}};
    if (std::wstring(L"=+-@").find(text.front()) != std::wstring::npos)
        return {Cell::Kind::Formula, 0, text};
    if (LooksLikeDate(text))
        return {Cell::Kind::Date, SerialIn(text), {}};
    if (SameName(text, L"TRUE") || SameName(text, L"FALSE"))
        return {Cell::Kind::Boolean, SameName(text, L"TRUE") ? 1.0 : 0.0, {}};
    return {Cell::Kind::Text, 0, text};
}

std::wstring DateText(double serial) {
    SYSTEMTIME time = {};
    if (!VariantTimeToSystemTime(serial, &time))
        return NumberText(serial);
    wchar_t text[32];
    const bool midnight = time.wHour == 0 && time.wMinute == 0 && time.wSecond == 0;
    const int length = swprintf(text, std::size(text), midnight ? L"%04d-%02d-%02d" : L"%04d-%02d-%02d %02d:%02d:%02d",
                                time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond);
    return {text, static_cast<std::size_t>(length)};
}

} // namespace

Cell Cell::Given(const Variant& value) {
    switch (value.Type()) {
    case VT_EMPTY:
    case VT_NULL:
        return {};
    case VT_BSTR: {
        Cell cell = Typed(value.AsText());
        if (cell.Text.size() > LongestText)
            throw MemberFailure{1004, L"Application-defined or object-defined error"};
        return cell;
    }
    case VT_DATE:
        return {Kind::Date, value.AsNumber(), {}};
    case VT_BOOL:
        return {Kind::Boolean, value.AsBoolean() ? 1.0 : 0.0, {}};
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_R4:
    case VT_R8:
    case VT_CY:
        return {Kind::Number, value.AsNumber(), {}};
    default:
        throw MemberFailure{1004, L"A cell doesn't take values of type " + std::to_wstring(value.Type())};
    }
}

Variant Cell::Value() const {
    switch (What) {
    case Kind::Empty:
        return {};
    case Kind::Number:
        return Variant::Number(Number);
    case Kind::Text:
        return Variant::Text(Text);
    case Kind::Date:
        return Variant::Date(Number);
    case Kind::Boolean:
        return Variant::Boolean(Number != 0);
    case Kind::Formula:
        break;
    }
    return Variant::Error(NameError);
}

std::wstring Cell::Described() const {
    switch (What) {
    case Kind::Empty:
        return KindName(What);
    case Kind::Number:
        return KindName(What) + L' ' + NumberText(Number);
    case Kind::Text:
    case Kind::Formula:
        return KindName(What) + L' ' + Quoted(Text);
    case Kind::Date:
        return KindName(What) + L' ' + DateText(Number);
    case Kind::Boolean:
        break;
    }
    return KindName(What) + (Number != 0 ? L" TRUE" : L" FALSE");
}

std::wstring KindName(Cell::Kind kind) {
    static const wchar_t* const names[] = {L"empty", L"number", L"text", L"date", L"boolean", L"formula"};
    return names[static_cast<int>(kind)];
}
