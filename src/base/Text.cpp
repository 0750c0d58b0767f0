#include "base/Text.h"

#include "base/LineBreak.h"

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

QString WithLineBreaks(QString text) {
    if (text.isEmpty())
        return text;
    text.replace(LineBreak, QStringLiteral("\n")).replace(u'\r', u'\n');
    if (!text.endsWith(u'\n'))
        text += u'\n';
    return text.replace(u'\n', LineBreak);
}
