#include "testdoc/ReadBack.h"

#include "base/LineBreak.h"
#include "base/Text.h"
#include "testdoc/TestParser.h"

#include <algorithm>

namespace {

/// The part of a text around the character at which it differs from another, on one line.
QString Excerpt(const QString& text, qsizetype difference) {
    constexpr qsizetype before = 16;
    constexpr qsizetype longest = 48;
    const qsizetype begin = std::max<qsizetype>(0, difference - before);
    QString piece = text.mid(begin, longest);
    piece.replace(LineBreak, QStringLiteral("<line break>"));
    piece.replace(u'\n', QStringLiteral("<line break>")).replace(u'\r', QStringLiteral("<line break>"));
    return (begin > 0 ? QStringLiteral("...") : QString()) + piece +
           (begin + longest < text.size() ? QStringLiteral("...") : QString());
}

/// A line break in the name of a file or folder is no matter of layout.
bool LosesOnlyLineBreaks(const TestPlace& place, QString text, const QString& read) {
    const bool severalLines = place.What == TestPlace::Introduction || place.What == TestPlace::Instructions ||
                              place.What == TestPlace::CompletionMessage;
    if (severalLines)
        return read == TextWhenRead(text.replace(LineBreak, QStringLiteral("<P>")));
    return place.What < TestPlace::ReportDirectory && read == text.remove(u'\r').remove(u'\n');
}

class Comparison {
  public:
    Comparison(const TestDocument& test, const TestDocument& read) : test_(test), read_(read) {}

    std::vector<Finding> Run() {
        CompareTexts();
        List(
            {}, "sub-scales", test_.SubscaleCount, read_.SubscaleCount,
            [](int s) {
                return TestPlace{TestPlace::Subscale, s, 0};
            },
            [this](int s) { return CompareSubscale(s); });
        List(
            {}, "ranges of the total", test_.TotalRangeCount, read_.TotalRangeCount,
            [](int r) {
                return TestPlace{TestPlace::TotalRange, 0, r};
            },
            [this](int r) { return CompareTotalRange(r); });
        List(
            {}, "template answers", test_.TemplateAnswerCount, read_.TemplateAnswerCount,
            [](int i) {
                return TestPlace{TestPlace::TemplateAnswer, 0, i};
            },
            [this](int i) { return CompareTemplateAnswer(i); });
        List(
            {}, "questions", test_.QuestionCount, read_.QuestionCount,
            [](int q) {
                return TestPlace{TestPlace::Question, q, 0};
            },
            [this](int q) { return CompareQuestion(q); });
        CompareOptions();
        return std::move(findings_);
    }

  private:
    bool Tell(const TestPlace& place, const QString& text, Severity level = Severity::Error) {
        findings_.push_back(MakeFinding(level, place, test_, text));
        return false;
    }
    bool Text(const TestPlace& place, const QString& text, const QString& read);
    bool Number(const TestPlace& place, const char* what, const Value& number, const Value& read);

    /// Compares two lists element by element; compare tells whether both were the same. When the numbers of elements
    /// differ, all that follows the first difference is only shifted, and isn't looked at.
    template <typename PlaceOf, typename Compare>
    bool List(const TestPlace& place, const char* things, int count, int readCount, const PlaceOf& placeOf,
              const Compare& compare) {
        bool same = true;
        int i = 1;
        for (; i <= std::min(count, readCount) && (same || count == readCount); ++i)
            same = compare(i) && same;
        if (count == readCount)
            return same;
        const TestPlace from = !same ? placeOf(i - 1) : i <= count ? placeOf(i) : place;
        return Tell(from, QStringLiteral("the test has %1 %2, and %3 are read back")
                              .arg(count)
                              .arg(QLatin1String(things))
                              .arg(readCount));
    }

    void CompareTexts();
    bool CompareSubscale(int s);
    bool CompareSubscaleRange(int s, int r);
    bool CompareTotalRange(int r);
    bool CompareTemplateAnswer(int i);
    bool CompareQuestion(int q);
    bool CompareAnswers(int q);
    void CompareOptions();

    const TestDocument& test_;
    const TestDocument& read_;
    std::vector<Finding> findings_;
};

bool Comparison::Text(const TestPlace& place, const QString& text, const QString& read) {
    if (text == read)
        return true;
    const auto difference = std::mismatch(text.begin(), text.end(), read.begin(), read.end()).first - text.begin();
    return Tell(place,
                Quoted(Excerpt(text, difference)) + QStringLiteral(" is read back as ") +
                    Quoted(Excerpt(read, difference)),
                LosesOnlyLineBreaks(place, text, read) ? Severity::Warning : Severity::Error);
}

bool Comparison::Number(const TestPlace& place, const char* what, const Value& number, const Value& read) {
    // A fraction counts as the whole number next to it already, but the person sees the fraction until it is read.
    const bool fraction = !number.IsNumber() && number.Text().contains(u'.');
    if (!fraction && number.TryNumber() == read.TryNumber())
        return true;
    return Tell(place,
                QStringLiteral("the %1 %2 is read back as %3").arg(QLatin1String(what), number.Text(), read.Text()),
                number.TryNumber() == read.TryNumber() ? Severity::Warning : Severity::Error);
}

void Comparison::CompareTexts() {
    // An empty title has a finding of its own.
    if (!QString(test_.TestTitle).remove(u'\r').remove(u'\n').isEmpty())
        Text({TestPlace::Title, 0, 0}, test_.TestTitle, read_.TestTitle);
    Text({TestPlace::Introduction, 0, 0}, test_.TestIntroduction, read_.TestIntroduction);
    Text({TestPlace::Instructions, 0, 0}, test_.TestInstructions, read_.TestInstructions);
    Text({TestPlace::CompletionMessage, 0, 0}, test_.TestCompletionMessage, read_.TestCompletionMessage);
    Text({TestPlace::ReportDirectory, 0, 0}, test_.ReportDirectory, read_.ReportDirectory);
    Text({TestPlace::ExcelDirectory, 0, 0}, test_.ExcelDirectory, read_.ExcelDirectory);
    Text({TestPlace::ExcelFileName, 0, 0}, test_.ExcelFileName, read_.ExcelFileName);
    Text({TestPlace::AutosaveFileName, 0, 0}, test_.AutosaveFileName, read_.AutosaveFileName);
}

bool Comparison::CompareSubscale(int s) {
    const TestPlace place{TestPlace::Subscale, s, 0};
    const bool same = Text(place, test_.SubscaleName(s), read_.SubscaleName(s));
    return List(
               place, "ranges", test_.SubscaleRangeCount(s), read_.SubscaleRangeCount(s),
               [s](int r) {
                   return TestPlace{TestPlace::SubscaleRange, s, r};
               },
               [this, s](int r) { return CompareSubscaleRange(s, r); }) &&
           same;
}

bool Comparison::CompareSubscaleRange(int s, int r) {
    const TestPlace place{TestPlace::SubscaleRange, s, r};
    const bool sameLow = Number(place, "low bound", test_.SubscaleRangeLow(s, r), read_.SubscaleRangeLow(s, r));
    const bool sameHigh = Number(place, "high bound", test_.SubscaleRangeHigh(s, r), read_.SubscaleRangeHigh(s, r));
    return Text(place, test_.SubscaleRangeText(s, r), read_.SubscaleRangeText(s, r)) && sameLow && sameHigh;
}

bool Comparison::CompareTotalRange(int r) {
    const TestPlace place{TestPlace::TotalRange, 0, r};
    const bool sameLow = Number(place, "low bound", test_.TotalRangeLow(r), read_.TotalRangeLow(r));
    const bool sameHigh = Number(place, "high bound", test_.TotalRangeHigh(r), read_.TotalRangeHigh(r));
    return Text(place, test_.TotalRangeText(r), read_.TotalRangeText(r)) && sameLow && sameHigh;
}

bool Comparison::CompareTemplateAnswer(int i) {
    const TestPlace place{TestPlace::TemplateAnswer, 0, i};
    const bool same = Number(place, "value", test_.TemplateAnswerValue(i), read_.TemplateAnswerValue(i));
    return Text(place, test_.TemplateAnswerText(i), read_.TemplateAnswerText(i)) && same;
}

bool Comparison::CompareQuestion(int q) {
    const TestPlace place{TestPlace::Question, q, 0};
    bool same = Text(place, test_.QuestionText(q), read_.QuestionText(q));
    const int type = test_.QuestionType(q);
    // A multichoice question without answers has a finding of its own.
    if (type != read_.QuestionType(q) && !(type == Multichoice && read_.QuestionType(q) == TypeUnset))
        same = Tell(place, QStringLiteral("the type %1 is read back as %2").arg(type).arg(read_.QuestionType(q)));
    // None is written for a number below 1, which stands for none as well.
    if (test_.QuestionSubscale(q) > 0 || read_.QuestionSubscale(q) > 0)
        same = Number(place, "sub-scale", test_.QuestionSubscale(q), read_.QuestionSubscale(q)) && same;
    return CompareAnswers(q) && same;
}

bool Comparison::CompareAnswers(int q) {
    return List(
        {TestPlace::Question, q, 0}, "answers", OwnAnswerCount(test_, q), OwnAnswerCount(read_, q),
        [q](int a) {
            return TestPlace{TestPlace::Answer, q, a};
        },
        [this, q](int a) {
            const TestPlace place{TestPlace::Answer, q, a};
            const bool same = Number(place, "value", test_.AnswerValue(q, a), read_.AnswerValue(q, a));
            return Text(place, test_.AnswerText(q, a), read_.AnswerText(q, a)) && same;
        });
}

void Comparison::CompareOptions() {
    const auto compare = [this](const QString& tag, bool set, bool read) {
        if (set != read)
            Tell({}, QStringLiteral("the option ") + tag +
                         (read ? QStringLiteral(" is on when the test is read back")
                               : QStringLiteral(" is off when the test is read back")));
    };
    compare(ReportOnlyWhenDoneTag, test_.ReportOnlyWhenDone, read_.ReportOnlyWhenDone);
    compare(NavigationButtonsTag, test_.NavigationButtons, read_.NavigationButtons);
    for (int i = 1; i <= OptionCount; ++i)
        compare(OptionTags()[static_cast<size_t>(i - 1)], test_.TestOption(i), read_.TestOption(i));
}

} // namespace

std::vector<Finding> DifferencesReadBack(const TestDocument& test, const TestDocument& read) {
    return Comparison(test, read).Run();
}
