#include "export/workbook/XmlScanner.h"

#include "export/workbook/WorkbookError.h"

#include <cstring>

namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

[[noreturn]] void Malformed() { throw WorkbookError(QStringLiteral("a part of it is no well-formed XML")); }

QString NamedCharacter(QByteArrayView name) {
    if (name == "lt")
        return QStringLiteral("<");
    if (name == "gt")
        return QStringLiteral(">");
    if (name == "amp")
        return QStringLiteral("&");
    if (name == "quot")
        return QStringLiteral("\"");
    if (name == "apos")
        return QStringLiteral("'");
    if (!name.startsWith('#'))
        Malformed();
    bool fits = false;
    const bool hexadecimal = name.size() > 1 && name[1] == 'x';
    const uint code = name.sliced(hexadecimal ? 2 : 1).toByteArray().toUInt(&fits, hexadecimal ? 16 : 10);
    if (!fits || code > 0x10FFFF)
        Malformed();
    const char32_t character = code;
    return QString::fromUcs4(&character, 1);
}

} // namespace

QByteArrayView WithoutPrefix(QByteArrayView name) { return name.sliced(name.indexOf(':') + 1); }

QString XmlText(QByteArrayView raw) {
    QString text;
    qsizetype from = 0;
    for (qsizetype amp = raw.indexOf('&'); amp >= 0; amp = raw.indexOf('&', from)) {
        text += QString::fromUtf8(raw.sliced(from, amp - from));
        const qsizetype semicolon = raw.indexOf(';', amp);
        if (semicolon < 0)
            Malformed();
        text += NamedCharacter(raw.sliced(amp + 1, semicolon - amp - 1));
        from = semicolon + 1;
    }
    text += QString::fromUtf8(raw.sliced(from));
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

XmlScanner::XmlScanner(QByteArrayView xml, qsizetype from) : xml_(xml), end_(from) {
    if (from == 0 && (xml.startsWith("\xFE\xFF") || xml.startsWith("\xFF\xFE")))
        throw WorkbookError(QStringLiteral("a part of it is in another encoding than UTF-8"));
    if (from == 0 && xml.startsWith("\xEF\xBB\xBF"))
        end_ = 3;
}

QByteArrayView XmlScanner::LocalName() const { return WithoutPrefix(name_); }

bool XmlScanner::At(QByteArrayView what) const { return xml_.sliced(begin_).startsWith(what); }

qsizetype XmlScanner::FindBehind(QByteArrayView what, qsizetype from) const {
    const qsizetype found = xml_.indexOf(what, from);
    if (found < 0)
        Malformed();
    return found + what.size();
}

XmlScanner::Kind XmlScanner::Next() {
    for (;;) {
        begin_ = end_;
        if (begin_ >= xml_.size()) {
            if (!open_.empty())
                Malformed();
            return Kind::Finished;
        }
        isCData_ = false;
        if (xml_[begin_] != '<') {
            const void* next = std::memchr(xml_.data() + begin_, '<', static_cast<size_t>(xml_.size() - begin_));
            end_ = next ? static_cast<const char*>(next) - xml_.data() : xml_.size();
            return Kind::Text;
        }
        if (At("</")) {
            ReadEndTag();
            return Kind::End;
        }
        if (At("<![CDATA[")) {
            end_ = FindBehind("]]>", begin_);
            isCData_ = true;
            return Kind::Text;
        }
        if (At("<!--")) {
            end_ = FindBehind("-->", begin_ + 4);
        } else if (At("<?")) {
            end_ = FindBehind("?>", begin_);
            const QByteArray declaration = xml_.sliced(begin_, end_ - begin_).toByteArray().toLower();
            if (declaration.startsWith("<?xml ") && declaration.contains("encoding") &&
                !declaration.contains("utf-8") && !declaration.contains("ascii"))
                throw WorkbookError(QStringLiteral("a part of it is in another encoding than UTF-8"));
        } else if (At("<!")) {
            throw WorkbookError(QStringLiteral("a part of it declares a document type"));
        } else {
            ReadTag();
            return Kind::Start;
        }
    }
}

void XmlScanner::ReadTag() {
    qsizetype at = begin_ + 1;
    while (at < xml_.size() && !IsSpace(xml_[at]) && xml_[at] != '>' && xml_[at] != '/')
        ++at;
    name_ = xml_.sliced(begin_ + 1, at - begin_ - 1);
    const qsizetype attributesBegin = at;
    // A ">" inside a value doesn't end the tag.
    for (char quote = '\0'; at < xml_.size() && (quote != '\0' || xml_[at] != '>'); ++at) {
        if (quote == '\0' && (xml_[at] == '"' || xml_[at] == '\''))
            quote = xml_[at];
        else if (quote == xml_[at])
            quote = '\0';
    }
    if (name_.empty() || at >= xml_.size())
        Malformed();
    selfClosing_ = xml_[at - 1] == '/';
    attributes_ = xml_.sliced(attributesBegin, at - attributesBegin - (selfClosing_ ? 1 : 0));
    end_ = at + 1;
    if (!selfClosing_)
        open_.push_back(name_);
}

void XmlScanner::ReadEndTag() {
    // Nearly always it is the one that is due, in its shortest form.
    if (!open_.empty()) {
        const QByteArrayView due = open_.back();
        const qsizetype end = begin_ + 2 + due.size();
        if (end < xml_.size() && xml_[end] == '>' && xml_.sliced(begin_ + 2).startsWith(due)) {
            name_ = due;
            end_ = end + 1;
            open_.pop_back();
            return;
        }
    }
    end_ = FindBehind(">", begin_);
    name_ = xml_.sliced(begin_ + 2, end_ - begin_ - 3);
    while (!name_.empty() && IsSpace(name_.back()))
        name_.chop(1);
    // One that began outside the range that is scanned ends it.
    if (open_.empty())
        return;
    if (open_.back() != name_)
        Malformed();
    open_.pop_back();
}

QByteArrayView XmlScanner::Attribute(QByteArrayView name) const {
    qsizetype at = 0;
    while (at < attributes_.size()) {
        while (at < attributes_.size() && IsSpace(attributes_[at]))
            ++at;
        const qsizetype nameBegin = at;
        while (at < attributes_.size() && attributes_[at] != '=' && !IsSpace(attributes_[at]))
            ++at;
        const QByteArrayView found = attributes_.sliced(nameBegin, at - nameBegin);
        while (at < attributes_.size() && attributes_[at] != '"' && attributes_[at] != '\'')
            ++at;
        if (at >= attributes_.size())
            break;
        const qsizetype close = attributes_.indexOf(attributes_[at], at + 1);
        if (close < 0)
            Malformed();
        if (found == name)
            return attributes_.sliced(at + 1, close - at - 1);
        at = close + 1;
    }
    return {};
}

QString XmlScanner::Text() const {
    const QByteArrayView raw = xml_.sliced(begin_, end_ - begin_);
    return isCData_ ? QString::fromUtf8(raw.sliced(9, raw.size() - 12)) : XmlText(raw);
}

void XmlScanner::SkipElement() {
    if (selfClosing_)
        return;
    const size_t depth = open_.size();
    while (open_.size() >= depth)
        if (Next() == Kind::Finished)
            Malformed();
}
