#pragma once

#include <QString>

/// What a text is, while it is typed, as a whole number of 16 bits.
enum class NumberInput {
    Number,     ///< it converts
    Unfinished, ///< nothing yet, or a sign or point that a digit may follow
    Invalid,    ///< it doesn't convert, and no more typing behind it makes it
};

inline const QString NotAValidValue = QStringLiteral("Not a valid value");

NumberInput JudgeNumberInput(QStringView text);
