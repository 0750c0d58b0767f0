#include "base/Text.h"

QString Quoted(QStringView text) {
    constexpr qsizetype longest = 200;
    if (text.size() <= longest)
        return u'\'' + text.toString() + u'\'';
    return u'\'' + text.first(longest / 2).toString() + QStringLiteral(" ... ") + text.last(longest / 2).toString() +
           u'\'';
}

QString AsciiUpper(QStringView text) {
    QString upper = text.toString();
    for (QChar& c : upper)
        if (c >= u'a' && c <= u'z')
            c = QChar(static_cast<char16_t>(c.unicode() - 32));
    return upper;
}
