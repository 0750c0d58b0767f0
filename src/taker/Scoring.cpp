#include "taker/Scoring.h"

#include "base/LineBreak.h"
#include "base/Text.h"
#include "base/WholeNumber.h"
#include "taker/Answers.h"

namespace {

QString None() { return QStringLiteral("none") + LineBreak; }

QString NotANumber(const TestDocument& test, int s, int r) {
    return test.SubscaleName(s) + QStringLiteral(" = (range %1 has a bound that is no whole number: ").arg(r) +
           Quoted(test.SubscaleRangeLow(s, r).Text()) + QStringLiteral(" to ") +
           Quoted(test.SubscaleRangeHigh(s, r).Text()) + u')' + LineBreak;
}

} // namespace

int AddToTotal(int total, int value) {
    total += value;
    if (total < -32768 || total > 32767)
        throw OverflowError();
    return total;
}

Scores ComputeScores(const TestDocument& test, const ResponseSet& responses) {
    Scores scores;
    scores.SubscaleScore.assign(static_cast<size_t>(test.SubscaleCount) + 1, 0);
    for (int q = 1; q <= test.QuestionCount; ++q) {
        const int value = ChosenValue(test, q, responses.ResponseChoice(q)).Number();
        const int s = test.QuestionSubscale(q);
        if (s >= 0 && s <= test.SubscaleCount)
            scores.SubscaleScore[static_cast<size_t>(s)] += value;
        scores.TotalScore = AddToTotal(scores.TotalScore, value);
    }
    return scores;
}

QString Completeness::Text() const {
    return Incomplete() ? QStringLiteral("answered %1 of %2").arg(Answered).arg(Questions) : QString();
}

std::vector<Completeness> CompletenessOf(const TestDocument& test, const ResponseSet& responses) {
    std::vector<Completeness> scales(static_cast<size_t>(test.SubscaleCount) + 1);
    for (int q = 1; q <= test.QuestionCount; ++q) {
        if (!HasAnswersToChoose(test, q))
            continue;
        const int answered = IsAnswered(test, responses, q) ? 1 : 0;
        const auto count = [&](int scale) {
            scales[static_cast<size_t>(scale)].Answered += answered;
            scales[static_cast<size_t>(scale)].Questions += 1;
        };
        count(0);
        if (const int s = test.QuestionSubscale(q); s >= 1 && s <= test.SubscaleCount)
            count(s);
    }
    return scales;
}

bool InRange(qint64 score, int low, int high) { return score > qint64(low) - 1 && score < qint64(high) + 1; }

QString SubscaleAnalysis(const TestDocument& test, const Scores& scores) {
    QString lines;
    for (int s = 1; s <= test.SubscaleCount; ++s) {
        const qint64 score = scores.SubscaleScore[static_cast<size_t>(s)];
        for (int r = 1; r <= test.SubscaleRangeCount(s); ++r) {
            const auto low = TryWholeNumber(test.SubscaleRangeLow(s, r).Text());
            const auto high = TryWholeNumber(test.SubscaleRangeHigh(s, r).Text());
            if (!low || !high)
                lines += NotANumber(test, s, r);
            else if (InRange(score, *low, *high))
                lines += test.SubscaleName(s) + QStringLiteral(" = ") + test.SubscaleRangeText(s, r) + LineBreak;
        }
    }
    return lines.isEmpty() ? None() : lines;
}

QString TotalAnalysis(const TestDocument& test, const Scores& scores) {
    QString lines;
    for (int r = 1; r <= test.TotalRangeCount; ++r)
        if (InRange(scores.TotalScore, test.TotalRangeLow(r), test.TotalRangeHigh(r)))
            lines += test.TotalRangeText(r) + LineBreak;
    return lines.isEmpty() ? None() : lines + LineBreak;
}
