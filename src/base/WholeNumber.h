#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The rule for a whole number in a text, shared by every place that reads one: blanks and tabs around it, an
/// optional sign, digits 0 to 9 with an optional fraction ("+3", ".5", "5."), rounded to the nearest whole number
/// (a half to the even one), then held against 16 bits. Nothing else is a number: no exponents, no thousands
/// separators, no digits of other scripts.
/// Returns nothing when the text is no such number or is outside -32768..32767.
std::optional<int> TryWholeNumber(QStringView text);

/// The number of an answer as a person gives it: digits alone, with blanks and tabs around them. Nothing for any other
/// text.
std::optional<int> TryAnswerNumber(QStringView text);

/// As TryWholeNumber; throws NumberError, whose message quotes the text, instead of returning nothing.
int ToWholeNumber(QStringView text);
