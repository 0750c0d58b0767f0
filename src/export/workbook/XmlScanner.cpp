#include "export/workbook/XmlScanner.h"

#include "export/workbook/WorkbookError.h"

#include <cstring>

namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// So many bytes are read at a time, and one element that is needed as a whole may have so many.
constexpr qsizetype PieceSize = 256 << 10;
constexpr qsizetype MostHeld = 64 << 20;
constexpr size_t DeepestNesting = 1000;

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

/// The size of a byte order mark.
qsizetype SizeOfMark(QByteArrayView xml) {
    if (xml.startsWith("\xFE\xFF") || xml.startsWith("\xFF\xFE"))
        throw WorkbookError(QStringLiteral("a part of it is in another encoding than UTF-8"));
    return xml.startsWith("\xEF\xBB\xBF") ? 3 : 0;
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
    if (from == 0)
        end_ = SizeOfMark(xml);
}

XmlScanner::XmlScanner(ByteSource& source) : source_(&source) {
    while (xml_.size() < 3 && ReadMore()) {
    }
    end_ = SizeOfMark(xml_);
}

QByteArrayView XmlScanner::LocalName() const { return WithoutPrefix(name_); }

bool XmlScanner::At(QByteArrayView what) const { return xml_.sliced(begin_).startsWith(what); }

/// Sets the end after the next occurrence.
bool XmlScanner::FindAfter(QByteArrayView what, qsizetype from) {
    const qsizetype found = from <= xml_.size() ? xml_.indexOf(what, from) : -1;
    end_ = found + what.size();
    return found >= 0;
}

/// Reads another piece of the source, and lets go of what is before the current tag. False when there was no more.
bool XmlScanner::ReadMore() {
    if (!source_)
        return false;
    const qint64 from = hold_ < 0 ? Begin() : hold_;
    if (to_)
        CopyUpTo(from);
    buffer_.remove(0, from - base_);
    begin_ -= from - base_;
    base_ = from;
    if (buffer_.size() > MostHeld)
        throw WorkbookError(QStringLiteral("a row or another element of it is longer than %1 bytes").arg(MostHeld));
    const qsizetype there = buffer_.size();
    buffer_.resize(there + qMax(PieceSize, there / 2));
    const qint64 count = source_->Read(buffer_.data() + there, buffer_.size() - there);
    buffer_.resize(there + count);
    xml_ = buffer_;
    if (count == 0)
        source_ = nullptr;
    return true;
}

void XmlScanner::CopyUpTo(qint64 offset) {
    if (offset <= copied_)
        return;
    to_->append(xml_.sliced(copied_ - base_, offset - copied_));
    copied_ = offset;
}

XmlScanner::Kind XmlScanner::Next() {
    begin_ = end_;
    for (;;) {
        std::optional<Kind> kind;
        isCData_ = false;
        if (begin_ < xml_.size() && ReadNext(kind)) {
            if (kind)
                return *kind;
            begin_ = end_;
        } else if (!ReadMore()) {
            if (begin_ < xml_.size() || !open_.empty())
                Malformed();
            end_ = begin_;
            return Kind::Finished;
        }
    }
}

/// Reads the tag or text that begins here; false when it doesn't end within what is in memory. No kind is what a reader
/// doesn't see.
bool XmlScanner::ReadNext(std::optional<Kind>& kind) {
    constexpr qsizetype longestBegin = 9;
    if (xml_[begin_] != '<') {
        const void* next = std::memchr(xml_.data() + begin_, '<', static_cast<size_t>(xml_.size() - begin_));
        end_ = next ? static_cast<const char*>(next) - xml_.data() : xml_.size();
        kind = Kind::Text;
        return next || !source_;
    }
    if (xml_.size() - begin_ < longestBegin && source_)
        return false;
    if (At("</")) {
        kind = Kind::End;
        return ReadEndTag();
    }
    if (At("<![CDATA[")) {
        kind = Kind::Text;
        isCData_ = true;
        return FindAfter("]]>", begin_);
    }
    if (At("<!--"))
        return FindAfter("-->", begin_ + 4);
    if (At("<?")) {
        if (!FindAfter("?>", begin_))
            return false;
        const QByteArray declaration = xml_.sliced(begin_, end_ - begin_).toByteArray().toLower();
        if (declaration.startsWith("<?xml ") && declaration.contains("encoding") && !declaration.contains("utf-8") &&
            !declaration.contains("ascii"))
            throw WorkbookError(QStringLiteral("a part of it is in another encoding than UTF-8"));
        return true;
    }
    if (At("<!"))
        throw WorkbookError(QStringLiteral("a part of it declares a document type"));
    kind = Kind::Start;
    return ReadTag();
}

bool XmlScanner::ReadTag() {
    qsizetype at = begin_ + 1;
    while (at < xml_.size() && !IsSpace(xml_[at]) && xml_[at] != '>' && xml_[at] != '/')
        ++at;
    const qsizetype attributesBegin = at;
    // A ">" inside a value doesn't end the tag.
    for (char quote = '\0'; at < xml_.size() && (quote != '\0' || xml_[at] != '>'); ++at) {
        if (quote == '\0' && (xml_[at] == '"' || xml_[at] == '\''))
            quote = xml_[at];
        else if (quote == xml_[at])
            quote = '\0';
    }
    if (at >= xml_.size())
        return false;
    name_ = xml_.sliced(begin_ + 1, attributesBegin - begin_ - 1);
    if (name_.empty() || open_.size() >= DeepestNesting)
        Malformed();
    selfClosing_ = xml_[at - 1] == '/';
    attributes_ = xml_.sliced(attributesBegin, at - attributesBegin - (selfClosing_ ? 1 : 0));
    end_ = at + 1;
    if (!selfClosing_) {
        open_.push_back(openNames_.size());
        openNames_.append(name_.data(), static_cast<size_t>(name_.size()));
    }
    return true;
}

bool XmlScanner::ReadEndTag() {
    if (!FindAfter(">", begin_ + 2))
        return false;
    name_ = xml_.sliced(begin_ + 2, end_ - begin_ - 3);
    while (!name_.empty() && IsSpace(name_.back()))
        name_.chop(1);
    // One that began outside the range that is scanned ends it.
    if (open_.empty())
        return true;
    const size_t from = open_.back();
    if (QByteArrayView(openNames_.data() + from, static_cast<qsizetype>(openNames_.size() - from)) != name_)
        Malformed();
    openNames_.resize(from);
    open_.pop_back();
    return true;
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
