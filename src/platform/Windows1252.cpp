#include "platform/Windows1252.h"

#include <array>

namespace {

// The letters of windows-1252 from 0x80 to 0x9F; 0 where the byte has none and stands for itself.
constexpr std::array<char16_t, 32> HighLetters{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                               0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char16_t LetterOf(uchar byte) {
    if (byte < 0x80 || byte > 0x9F)
        return byte;
    const char16_t letter = HighLetters[byte - 0x80u];
    return letter != 0 ? letter : byte;
}

/// The byte of a character, -1 when windows-1252 has none.
int ByteOf(char16_t letter) {
    if (letter < 0x80 || (letter > 0x9F && letter <= 0xFF))
        return letter;
    for (size_t i = 0; i < HighLetters.size(); ++i)
        if (HighLetters[i] == letter || (HighLetters[i] == 0 && letter == 0x80 + i))
            return static_cast<int>(0x80 + i);
    return -1;
}

} // namespace

QString DecodeWindows1252(const QByteArray& bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        text[i] = QChar(LetterOf(static_cast<uchar>(bytes[i])));
    return text;
}

QByteArray EncodeWindows1252(const QString& text, bool* fits) {
    QByteArray bytes;
    bytes.reserve(text.size());
    bool all = true;
    for (const QChar c : text) {
        const int byte = ByteOf(c.unicode());
        all = all && byte >= 0;
        bytes += byte >= 0 ? static_cast<char>(byte) : '?';
    }
    if (fits)
        *fits = all;
    return bytes;
}
