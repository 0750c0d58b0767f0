#pragma once

#include <QByteArray>
#include <QStringView>

/// Writes JSON with its keys in the order in which they come, indented by two blanks, lines ended by LF. Every text can
/// be written: control characters and halves of surrogate pairs are escaped.
class JsonWriter {
  public:
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

    /// What has been written, with a line end behind it.
    QByteArray Json() const { return json_ + '\n'; }

  private:
    void Open(char bracket);
    void Close(char bracket);
    void Token(const QByteArray& token);
    void Separate();
    void NewLine() { json_ += '\n' + QByteArray(depth_ * 2, ' '); }
    void Quote(QStringView text);

    QByteArray json_;
    int depth_ = 0;
    bool first_ = true;
    bool afterKey_ = false;
};
