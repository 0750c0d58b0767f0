#include "export/workbook/Styles.h"

#include "export/workbook/WorkbookError.h"

#include <sstream>

namespace {

/// The short date of the reader's own country.
constexpr int ShortDate = 14;

std::string TextOf(const pugi::xml_node& node) {
    std::ostringstream text;
    node.print(text, "", pugi::format_raw);
    return text.str();
}

void SetAttribute(pugi::xml_node node, const char* name, int value) {
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute)
        attribute = node.append_attribute(name);
    attribute.set_value(value);
}

/// Whether a format code has a day or year in it, outside of quoted texts, escaped characters and brackets.
bool SpeaksOfDates(std::string_view code) {
    bool quoted = false;
    bool bracketed = false;
    for (size_t i = 0; i < code.size() && code[i] != ';'; ++i) {
        const char c = code[i];
        if (c == '"')
            quoted = !quoted;
        else if (quoted)
            continue;
        else if (c == '\\' || c == '_' || c == '*')
            ++i;
        else if (c == '[' || c == ']')
            bracketed = c == '[';
        else if (!bracketed && (c == 'd' || c == 'D' || c == 'y' || c == 'Y'))
            return true;
    }
    return false;
}

} // namespace

const QByteArray PlainStyles =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
    "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
    "<fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/><family val=\"2\"/></font></fonts>"
    "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill><fill><patternFill patternType=\"gray125\"/>"
    "</fill></fills>"
    "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
    "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
    "<cellXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/></cellXfs>"
    "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
    "</styleSheet>";

Styles::Styles(const QByteArray& xml) : document_(ParseXml(xml)) {
    formats_ = ChildOf(document_.document_element(), "cellXfs");
    if (!formats_)
        throw WorkbookError(QStringLiteral("its formats are not there"));
}

bool Styles::IsDate(int style) const {
    const auto [known, isNew] = isDate_.try_emplace(style, false);
    if (!isNew)
        return known->second;
    const auto formats = ChildrenOf(formats_, "xf");
    known->second = style >= 0 && static_cast<size_t>(style) < formats.size() &&
                    IsDateFormat(formats[static_cast<size_t>(style)].attribute("numFmtId").as_int());
    return known->second;
}

bool Styles::IsDateFormat(int numberFormat) const {
    if ((numberFormat >= 14 && numberFormat <= 17) || numberFormat == 22 ||
        (numberFormat >= 27 && numberFormat <= 36) || (numberFormat >= 50 && numberFormat <= 58))
        return true;
    for (const pugi::xml_node& format : ChildrenOf(ChildOf(document_.document_element(), "numFmts"), "numFmt"))
        if (format.attribute("numFmtId").as_int() == numberFormat)
            return SpeaksOfDates(format.attribute("formatCode").value());
    return false;
}

int Styles::DateStyle(int like) {
    if (IsDate(like))
        return like;
    const auto [known, isNew] = dateStyles_.try_emplace(like, 0);
    if (isNew)
        known->second = FindOrAddDateStyle(like);
    return known->second;
}

int Styles::FindOrAddDateStyle(int like) {
    const auto formats = ChildrenOf(formats_, "xf");
    const auto base = static_cast<size_t>(qMax(like, 0));
    pugi::xml_node format = base < formats.size() ? formats_.append_copy(formats[base]) : AppendTo(formats_, "xf");
    SetAttribute(format, "numFmtId", ShortDate);
    SetAttribute(format, "applyNumberFormat", 1);
    const std::string text = TextOf(format);
    for (size_t i = 0; i < formats.size(); ++i) {
        if (TextOf(formats[i]) == text) {
            formats_.remove_child(format);
            return static_cast<int>(i);
        }
    }
    SetAttribute(formats_, "count", static_cast<int>(formats.size()) + 1);
    changed_ = true;
    return static_cast<int>(formats.size());
}
