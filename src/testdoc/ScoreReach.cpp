#include "testdoc/ScoreReach.h"

#include "base/WholeNumber.h"

#include <algorithm>

void ReachableSet::Add(const std::vector<int>& values) {
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    const qint64 lowest = lowest_ + *least;
    const qint64 highest = highest_ + *most;
    if (reached_.empty() || highest - lowest > WidestSpan) {
        reached_.clear();
    } else {
        std::vector<bool> next(static_cast<size_t>(highest - lowest + 1));
        for (size_t i = 0; i < reached_.size(); ++i)
            if (reached_[i])
                for (const int value : values)
                    next[i + static_cast<size_t>(value - *least)] = true;
        reached_ = std::move(next);
    }
    lowest_ = lowest;
    highest_ = highest;
}

bool ReachableSet::Reaches(qint64 low, qint64 high) const {
    low = std::max(low, lowest_);
    high = std::min(high, highest_);
    if (low > high)
        return false;
    if (reached_.empty())
        return true;
    const auto begin = reached_.begin() + (low - lowest_);
    const auto end = reached_.begin() + (high - lowest_ + 1);
    return std::find(begin, end, true) != end;
}

ScaleScores ScoresOfScale(const TestDocument& test, int s) {
    ScaleScores scores;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        if (!IsMultichoice(test, q) || (s != 0 && test.QuestionSubscale(q) != s))
            continue;
        std::vector<int> values;
        for (int a = 1; a <= MaxAnswers; ++a)
            if (!test.AnswerText(q, a).isEmpty())
                values.push_back(TryWholeNumber(test.AnswerValue(q, a).Text()).value_or(0));
        std::sort(values.begin(), values.end());
        values.erase(std::unique(values.begin(), values.end()), values.end());
        if (values.empty())
            continue;
        scores.Complete.Add(values);
        values.push_back(0);
        scores.WithGaps.Add(values);
    }
    return scores;
}
