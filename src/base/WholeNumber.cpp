#include "base/WholeNumber.h"

#include "base/Failure.h"
#include "base/Text.h"

namespace {

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }
bool IsBlank(QChar c) { return c == u' ' || c == u'\t'; }

QStringView WithoutBlanks(QStringView text) {
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    return text;
}

constexpr int TooLarge = 1'000'000;

// Rounds on the digits themselves, so that no binary fraction is ever in between.
bool RoundsUp(int whole, QStringView fraction) {
    if (fraction.isEmpty() || fraction.front() < u'5')
        return false;
    if (fraction.front() > u'5')
        return true;
    for (const QChar c : fraction.mid(1))
        if (c != u'0')
            return true;
    return whole % 2 != 0;
}

} // namespace

std::optional<int> TryWholeNumber(QStringView text) {
    text = WithoutBlanks(text);
    bool negative = false;
    if (!text.isEmpty() && (text.front() == u'+' || text.front() == u'-')) {
        negative = text.front() == u'-';
        text = text.mid(1);
    }

    qsizetype position = 0;
    int whole = 0;
    while (position < text.size() && IsDigit(text[position])) {
        whole = qMin(whole * 10 + text[position].unicode() - u'0', TooLarge);
        ++position;
    }
    const qsizetype wholeDigits = position;

    QStringView fraction;
    if (position < text.size() && text[position] == u'.') {
        fraction = text.mid(position + 1);
        for (const QChar c : fraction)
            if (!IsDigit(c))
                return std::nullopt;
        position = text.size();
    }
    if (position != text.size() || wholeDigits + fraction.size() == 0)
        return std::nullopt;

    if (RoundsUp(whole, fraction))
        ++whole;
    const int number = negative ? -whole : whole;
    if (number < -32768 || number > 32767)
        return std::nullopt;
    return number;
}

std::optional<int> TryAnswerNumber(QStringView text) {
    text = WithoutBlanks(text);
    for (const QChar c : text)
        if (!IsDigit(c))
            return std::nullopt;
    return TryWholeNumber(text);
}

int ToWholeNumber(QStringView text) {
    if (const auto number = TryWholeNumber(text))
        return *number;
    throw NumberError(Quoted(text) + QStringLiteral(" is not a whole number from -32768 to 32767"));
}
