#include "base/SectionFinder.h"

#include "base/Text.h"

int TaggedText::Find(QStringView upperWord, int start) const {
    return static_cast<int>(upper_.indexOf(upperWord, qMax(start, 1) - 1)) + 1;
}

TaggedText TaggedText::Piece(int position, int length) const {
    const qsizetype none = 0;
    const qsizetype first = qsizetype(position) - 1;
    const qsizetype begin = qBound(none, first, text_.size());
    const qsizetype end = qBound(begin, first + length, text_.size());
    return {text_.sliced(begin, end - begin), upper_.sliced(begin, end - begin)};
}

TaggedText SectionFinder::FindSection(QStringView tag, const TaggedText& text, int start) {
    const QString name = AsciiUpper(tag);
    const QString openingTag = u'[' + name + u']';
    const int found = text.Find(openingTag, start);
    if (found == 0)
        return text.Piece(1, 0);

    const int contentStart = found + static_cast<int>(openingTag.size());
    lastTagPosition_ = contentStart;
    const QString closingTag = QStringLiteral("[/") + name + u']';
    const int contentEnd = text.Find(closingTag, contentStart);
    if (contentEnd == 0)
        throw SectionError(QStringLiteral("I can't find the ") + closingTag + QStringLiteral("tag"));
    return text.Piece(contentStart, contentEnd - contentStart);
}

QString FindSection(QStringView tag, const QString& text, int start) {
    const QString upper = AsciiUpper(text);
    return SectionFinder().FindSection(tag, TaggedText(text, upper), start).Text().toString();
}
