#include "testdoc/TestDocument.h"

#include <algorithm>

TestDocument::TestDocument() {
    // Filled from the start, so that a test that was made before any was loaded keeps its options when it is written.
    for (int i = 1; i <= OptionCount; ++i)
        OptionTag(i) = OptionTags()[static_cast<size_t>(i - 1)];
}

bool IsMultichoice(const TestDocument& test, int q) {
    return test.QuestionType(q) == TypeUnset || test.QuestionType(q) == Multichoice;
}

int OwnAnswerCount(const TestDocument& test, int q) {
    const bool keepsAnswers = q >= 1 && q <= MaxQuestionsWithAnswers && test.QuestionType(q) == Multichoice;
    return keepsAnswers ? test.AnswerCount(q) : 0;
}

int OfferedAnswerCount(const TestDocument& test, int q) {
    const int own = OwnAnswerCount(test, q);
    return own > 0 ? own : std::min(test.TemplateAnswerCount, MaxAnswers);
}

QString ChosenText(const TestDocument& test, int q, int a) {
    if (a < 1 || a > OfferedAnswerCount(test, q))
        return {};
    return OwnAnswerCount(test, q) > 0 ? test.AnswerText(q, a) : test.TemplateAnswerText(a);
}

Value ChosenValue(const TestDocument& test, int q, int a) {
    if (a < 1 || a > OfferedAnswerCount(test, q))
        return {};
    return OwnAnswerCount(test, q) > 0 ? test.AnswerValue(q, a) : Value(test.TemplateAnswerValue(a));
}

TestSummary SummaryOf(const TestDocument& test) {
    TestSummary summary;
    const auto measure = [&](const QString& text, const QString& value) {
        const auto marker = static_cast<int>(qstrlen("[v=]"));
        summary.LongestAnswerLength =
            std::max(summary.LongestAnswerLength, static_cast<int>(text.size() + value.size()) + marker);
    };
    for (int s = 1; s <= test.SubscaleCount; ++s)
        summary.SubscaleRangesPresent = summary.SubscaleRangesPresent || test.SubscaleRangeCount(s) > 0;
    for (int i = 1; i <= test.TemplateAnswerCount; ++i)
        measure(test.TemplateAnswerText(i), QString::number(test.TemplateAnswerValue(i)));
    summary.MaxAnswerCount = test.TemplateAnswerCount;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        for (int a = 1; a <= OwnAnswerCount(test, q); ++a)
            measure(test.AnswerText(q, a), test.AnswerValue(q, a).Text());
        summary.MaxAnswerCount = std::max(summary.MaxAnswerCount, OwnAnswerCount(test, q));
        const int type = test.QuestionType(q);
        summary.HasMultichoice = summary.HasMultichoice || type < ShortAnswer;
        summary.HasShortAnswer = summary.HasShortAnswer || type == ShortAnswer;
        summary.HasLongAnswer = summary.HasLongAnswer || type == LongAnswer;
    }
    summary.HasLongAnswerQuestions = summary.HasLongAnswer;
    return summary;
}
