#include "base/JsonWriter.h"

namespace {

bool StandsAlone(QStringView text, qsizetype i) {
    const QChar c = text[i];
    if (c.isHighSurrogate())
        return i + 1 == text.size() || !text[i + 1].isLowSurrogate();
    return c.isLowSurrogate() && (i == 0 || !text[i - 1].isHighSurrogate());
}

/// Whether a text's character can be written as it is.
bool IsPlain(QStringView text, qsizetype i, JsonForm form) {
    const char16_t c = text[i].unicode();
    if (c < 0x20 || c == u'"' || c == u'\\' || c == 0x7f)
        return false;
    return form == JsonForm::Readable ? !StandsAlone(text, i) : c < 0x7f && !QStringView(u"<>&'`[]").contains(text[i]);
}

QByteArray Escaped(char16_t c) { return "\\u" + QByteArray::number(c, 16).rightJustified(4, '0'); }

} // namespace

void JsonWriter::Separate() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (!first_)
        json_ += ',';
    if (depth_ > 0)
        NewLine();
    first_ = false;
}

void JsonWriter::NewLine() {
    if (form_ == JsonForm::Readable)
        json_ += '\n' + QByteArray(depth_ * 2, ' ');
}

void JsonWriter::Open(char bracket) {
    Separate();
    json_ += bracket;
    ++depth_;
    first_ = true;
}

void JsonWriter::Close(char bracket) {
    --depth_;
    if (!first_)
        NewLine();
    json_ += bracket;
    first_ = false;
}

void JsonWriter::Key(QStringView name) {
    Separate();
    Quote(name);
    json_ += form_ == JsonForm::Readable ? ": " : ":";
    afterKey_ = true;
}

void JsonWriter::Text(QStringView text) {
    Separate();
    Quote(text);
}

void JsonWriter::Token(const QByteArray& token) {
    Separate();
    json_ += token;
}

void JsonWriter::Quote(QStringView text) {
    json_ += '"';
    qsizetype plain = 0;
    const auto flush = [&](qsizetype upTo) { json_ += text.sliced(plain, upTo - plain).toUtf8(); };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (IsPlain(text, i, form_))
            continue;
        flush(i);
        plain = i + 1;
        if ((c == u'"' || c == u'\\') && form_ == JsonForm::Readable)
            json_ += '\\', json_ += static_cast<char>(c);
        else if (c == u'\n')
            json_ += "\\n";
        else if (c == u'\r')
            json_ += "\\r";
        else if (c == u'\t')
            json_ += "\\t";
        else
            json_ += Escaped(c);
    }
    flush(text.size());
    json_ += '"';
}
