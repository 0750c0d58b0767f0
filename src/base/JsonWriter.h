#pragma once

#include <QByteArray>
#include <QStringView>

enum class JsonForm {
    /// Indented by two blanks, lines ended by LF.
    Readable,
    /// Without line ends, and every character of a text escaped that could mean something to markup or script around it
    /// or lies outside of ASCII: the texts then stay texts wherever they are put.
    Embedded
};

/// Writes JSON with its keys in the order in which they come. Every text can be written: control characters and halves
/// of surrogate pairs are escaped.
class JsonWriter {
  public:
    explicit JsonWriter(JsonForm form = JsonForm::Readable) : form_(form) {}

    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    void Key(QStringView name);

    void Text(QStringView text);
    void Number(qint64 number) { Token(QByteArray::number(number)); }
    void Boolean(bool value) { Token(value ? "true" : "false"); }
    void Null() { Token("null"); }

    void TextAt(QStringView key, QStringView text) { Key(key), Text(text); }
    void NumberAt(QStringView key, qint64 number) { Key(key), Number(number); }
    void BooleanAt(QStringView key, bool value) { Key(key), Boolean(value); }

    /// What has been written, with a line end after it in the readable form.
    QByteArray Json() const { return form_ == JsonForm::Readable ? json_ + '\n' : json_; }

  private:
    void Open(char bracket);
    void Close(char bracket);
    void Token(const QByteArray& token);
    void Separate();
    void NewLine();
    void Quote(QStringView text);

    JsonForm form_;
    QByteArray json_;
    int depth_ = 0;
    bool first_ = true;
    bool afterKey_ = false;
};
