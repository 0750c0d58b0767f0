#include "export/HtmlTemplate.h"

#include "base/LineBreak.h"
#include "base/SectionFinder.h"
#include "base/Text.h"
#include "export/PageData.h"

namespace {

constexpr qsizetype MostCharacters = 1 << 26;

const QString TotalBlock = QStringLiteral("TOTAL ANALYSIS");
const QString SubscaleBlock = QStringLiteral("SUBSCALE ANALYSIS");

QString Quoted(const QString& text) { return u'\'' + QuoteForScript(text) + u'\''; }

/// The names or texts 1..count as a script list.
template <int N> QString QuotedList(const BoundedArray<QString, N>& texts, int count) {
    QString list;
    for (int i = 1; i <= count; ++i)
        list += (i > 1 ? QStringLiteral(",") : QString()) + Quoted(texts(i));
    return list;
}

QString SubscaleList(const TestDocument& test) {
    QString list;
    for (int q = 1; q <= test.QuestionCount; ++q)
        list += (q > 1 ? QStringLiteral(",") : QString()) + QString::number(test.QuestionSubscale(q));
    return list;
}

int SubscaleRanges(const TestDocument& test) {
    int count = 0;
    for (int s = 1; s <= test.SubscaleCount; ++s)
        count += test.SubscaleRangeCount(s);
    return count;
}

/// The texts of the test; one that is empty leaves its tag in the page.
void FillText(QString& text, const QString& tag, QString value) {
    if (!value.isEmpty())
        FillTag(text, tag, value.replace(LineBreak, QStringLiteral("<P>")));
}

void FillRange(QString& copy, int number, const QString& low, const QString& high, const QString& rangeText) {
    FillTag(copy, QStringLiteral("[ANALYSIS NUMBER]"), QString::number(number));
    FillTag(copy, QStringLiteral("[ANALYSIS LOW]"), low);
    FillTag(copy, QStringLiteral("[ANALYSIS HIGH]"), high);
    FillTag(copy, QStringLiteral("[ANALYSIS TEXT]"), QuoteForScript(rangeText));
}

QString TotalExpansion(const QString& section, const TestDocument& test) {
    QString expansion;
    for (int r = 1; r <= test.TotalRangeCount; ++r) {
        QString copy = section;
        FillRange(copy, r, QString::number(test.TotalRangeLow(r)), QString::number(test.TotalRangeHigh(r)),
                  test.TotalRangeText(r));
        expansion += copy;
        RequirePageLength(expansion.size());
    }
    return expansion;
}

QString SubscaleExpansion(const QString& section, const TestDocument& test) {
    QString expansion;
    int number = 0;
    for (int s = 1; s <= test.SubscaleCount; ++s)
        for (int r = 1; r <= test.SubscaleRangeCount(s); ++r) {
            QString copy = section;
            FillRange(copy, ++number, BoundText(test.SubscaleRangeLow(s, r)), BoundText(test.SubscaleRangeHigh(s, r)),
                      test.SubscaleRangeText(s, r));
            FillTag(copy, QStringLiteral("[ANALYSIS SUBSCALE TYPE]"), QString::number(s));
            expansion += copy;
            RequirePageLength(expansion.size());
        }
    return expansion;
}

/// The section is found in any case, but the block is replaced only where its tags stand in capitals.
void ReplaceBlock(QString& text, const QString& name, const TestDocument& test,
                  QString (*expand)(const QString&, const TestDocument&)) {
    const QString section = FindSection(name, text);
    if (section.isEmpty())
        return;
    const QString block = u'[' + name + u']' + section + QStringLiteral("[/") + name + u']';
    text.replace(block, expand(section, test));
}

} // namespace

QString BoundText(const Value& bound) {
    const auto number = bound.TryNumber();
    return number ? QString::number(*number) : bound.Text();
}

void RequirePageLength(qsizetype length) {
    if (length > MostCharacters)
        throw TemplateError(
            QStringLiteral("the page grows past %1 million characters").arg(MostCharacters / 1'000'000));
}

void FillTag(QString& text, const QString& tag, const QString& value) {
    if (!text.contains(tag))
        return;
    if (value.contains(tag))
        throw TemplateError(QStringLiteral("what is filled in for ") + tag +
                            QStringLiteral(" contains that tag itself, so that filling it in would never end"));
    // Pieces around a filled-in value can make up the tag anew; a text that goes on and on in this way is given up.
    qsizetype work = 0;
    do {
        const qsizetype most = text.size() / tag.size() * value.size();
        const qsizetype grown = text.size() + (most > MostCharacters ? text.count(tag) * value.size() : 0);
        work += grown;
        RequirePageLength(qMax(grown, work / 16));
        text.replace(tag, value);
    } while (text.contains(tag));
}

QString QuoteForScript(QString text) { return text.replace(u'\'', QStringLiteral("\\'")); }

void FillTemplate(QString& text, const TestDocument& test, const PageValues& values) {
    // These come first, so that they are never looked for in what the others filled in. They hold no tag themselves.
    FillTag(text, QStringLiteral("[LANGUAGE]"), values.Language);
    if (const QString tag = QStringLiteral("[TEST DATA]"); text.contains(tag))
        FillTag(text, tag, PageData(test, values));
    FillTag(text, QStringLiteral("[TEST TITLE]"), test.TestTitle);
    FillText(text, QStringLiteral("[INSTRUCTIONS]"), test.TestInstructions);
    FillText(text, QStringLiteral("[INTRODUCTION]"), test.TestIntroduction);
    FillText(text, QStringLiteral("[COMPLETION MESSAGE]"), test.TestCompletionMessage);
    FillTag(text, QStringLiteral("[EMAIL]"), values.Email);
    FillTag(text, QStringLiteral("[NEXT PAGE]"), values.NextPage);
    FillTag(text, QStringLiteral("[TOTAL NUMBER OF QUESTIONS]"), QString::number(test.QuestionCount));
    FillTag(text, QStringLiteral("[TOTAL NUMBER OF SUBSCALES]"), QString::number(test.SubscaleCount));
    FillTag(text, QStringLiteral("[TOTAL NUMBER OF ANALYSIS]"), QString::number(test.TotalRangeCount));
    FillTag(text, QStringLiteral("[TOTAL NUMBER OF SUBSCALE ANALYSIS]"), QString::number(SubscaleRanges(test)));
    FillTag(text, QStringLiteral("[SUBSCALE TEXT ARRAY]"), QuotedList(test.SubscaleName, test.SubscaleCount));
    FillTag(text, QStringLiteral("[QUESTION TEXT ARRAY]"), QuotedList(test.QuestionText, test.QuestionCount));
    FillTag(text, QStringLiteral("[QUESTION SUBSCALE ARRAY]"), SubscaleList(test));
    ReplaceBlock(text, TotalBlock, test, TotalExpansion);
    ReplaceBlock(text, SubscaleBlock, test, SubscaleExpansion);
}

TemplateParts CutTemplate(const QString& text, QString& closingPart) {
    TemplateParts parts;
    const QString upper = AsciiUpper(text);
    const TaggedText whole(text, upper);
    SectionFinder finder;
    const auto section = [&](QStringView name, const TaggedText& within) {
        return finder.FindSection(name, within).Text().toString();
    };
    parts.Header = section(u"HEADER", whole);
    parts.Footer = section(u"FOOTER", whole);
    const TaggedText multichoice = finder.FindSection(u"MULTICHOICE", whole);
    parts.Answer = section(u"A", multichoice);
    const QString answerEnd = QStringLiteral("[/A]");
    if (const qsizetype end = multichoice.Text().indexOf(answerEnd); end >= 0)
        closingPart = multichoice.Text().sliced(end + answerEnd.size()).toString();
    parts.Question = section(u"Q", multichoice);
    parts.ShortAnswer = section(u"SHORT ANSWER", whole);
    parts.LongAnswer = section(u"LONG ANSWER", whole);
    return parts;
}

QString ExpandQuestionPart(const TestDocument& test, QString part, int q, int a) {
    FillTag(part, QStringLiteral("[QUESTION NO]"), QString::number(q));
    FillTag(part, QStringLiteral("[QUESTION TEXT]"), test.QuestionText(q));
    FillTag(part, QStringLiteral("[ANSWER]"), ChosenText(test, q, a));
    FillTag(part, QStringLiteral("[ANSWER VALUE]"), ChosenValue(test, q, a).Text());
    return part;
}
