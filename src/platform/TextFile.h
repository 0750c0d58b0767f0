#pragma once

#include "base/Failure.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// How the characters of a text file are written as bytes. CodePage is the one of platform/CodePage.h.
enum class TextEncoding { CodePage, Utf8, Utf8WithMark };

struct TextOfFile {
    QString Text;
    TextEncoding Encoding = TextEncoding::CodePage;
    /// What the text was made of.
    QByteArray Bytes = {};
};

/// A test file past this many bytes is refused without being read: 32,767 characters of at most three bytes, written
/// with as many line ends again, stay far below it.
inline constexpr qint64 MaxTestFileBytes = 1 << 20;

/// Turns the bytes of a text file into text: UTF-8 when they begin with its byte order mark, which is dropped, or are
/// valid UTF-8 with at least one character of several bytes; the code page otherwise.
TextOfFile DecodeText(const QByteArray& bytes);

/// Reads a text file of at most maxBytes. Fails, with the reason alone, when it can't be read, is no regular file, is
/// longer, or holds control characters that no text has; then file stays as it was.
Result ReadTextFile(const QString& path, qint64 maxBytes, TextOfFile& file);

/// The text of a test file as bytes that are read back as the same text: in the code page where every character fits it
/// and the bytes aren't taken for UTF-8, and in UTF-8 otherwise. Nothing for half a surrogate pair, which no encoding
/// has.
std::optional<QByteArray> EncodeTestText(const QString& text);

/// The text in the encoding of the system's locale, in which reports are written; in UTF-8 when a character doesn't fit
/// that encoding, so that no letter is ever replaced.
QByteArray EncodeForLocale(const QString& text);
