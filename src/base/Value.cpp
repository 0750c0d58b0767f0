#include "base/Value.h"

#include "base/WholeNumber.h"

int Value::Number() const {
    if (const int* number = std::get_if<int>(&held_))
        return *number;
    if (const QString* typed = std::get_if<QString>(&held_))
        return ToWholeNumber(*typed);
    return 0;
}

QString Value::Text() const {
    if (const int* number = std::get_if<int>(&held_))
        return QString::number(*number);
    if (const QString* typed = std::get_if<QString>(&held_))
        return *typed;
    return {};
}
