#include "base/Value.h"

#include "base/WholeNumber.h"

int Value::Number() const {
    if (const int* number = std::get_if<int>(&held_))
        return *number;
    if (const QString* typed = std::get_if<QString>(&held_))
        return ToWholeNumber(*typed);
    return 0;
}

std::optional<int> Value::TryNumber() const {
    const int* number = std::get_if<int>(&held_);
    // The number itself, without the way over its text, is the case of all values that were read.
    return number && *number >= -32768 && *number <= 32767 ? *number : TryWholeNumber(Text());
}

QString Value::Text() const {
    if (const int* number = std::get_if<int>(&held_))
        return QString::number(*number);
    if (const QString* typed = std::get_if<QString>(&held_))
        return *typed;
    return {};
}
