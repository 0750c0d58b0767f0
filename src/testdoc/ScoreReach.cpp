#include "testdoc/ScoreReach.h"

#include <algorithm>

namespace {

constexpr size_t WordBits = 64;

/// Adds the bits of one set to another, so many places higher up. The other is long enough for them.
void AddShifted(std::vector<quint64>& to, const std::vector<quint64>& from, size_t places) {
    quint64* const target = to.data() + places / WordBits;
    const size_t bits = places % WordBits;
    const size_t room = to.size() - places / WordBits;
    for (size_t i = 0; i < from.size(); ++i)
        target[i] |= from[i] << bits;
    if (bits == 0)
        return;
    for (size_t i = 0; i < std::min(from.size(), room - 1); ++i)
        target[i + 1] |= from[i] >> (WordBits - bits);
}

/// What choosing one of the question's answers can add, each value once.
std::vector<int> ValuesOf(const TestDocument& test, int q) {
    std::vector<int> values;
    for (int a = 1; a <= OfferedAnswerCount(test, q); ++a)
        if (!ChosenText(test, q, a).isEmpty())
            values.push_back(ChosenValue(test, q, a).TryNumber().value_or(0));
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
    return values;
}

/// Leaving out a question whose answers include a 0 reaches nothing new, and so most scales need one set only.
class GrowingScale {
  public:
    void Add(std::vector<int> values) {
        const bool addsZero = std::find(values.begin(), values.end(), 0) != values.end();
        if (oneForBoth_ && !addsZero) {
            scores_.WithGaps = scores_.Complete;
            oneForBoth_ = false;
        }
        scores_.Complete.Add(values);
        if (oneForBoth_)
            return;
        if (!addsZero)
            values.push_back(0);
        scores_.WithGaps.Add(values);
    }
    ScaleScores Scores() && {
        if (oneForBoth_)
            scores_.WithGaps = scores_.Complete;
        return std::move(scores_);
    }

  private:
    ScaleScores scores_;
    bool oneForBoth_ = true;
};

} // namespace

void ReachableSet::Add(const std::vector<int>& values) {
    const auto [least, most] = std::minmax_element(values.begin(), values.end());
    const qint64 lowest = lowest_ + *least;
    const qint64 highest = highest_ + *most;
    if (reached_.empty() || highest - lowest > WidestSpan) {
        reached_.clear();
    } else {
        // A set is as long as its span, so that its last word, shifted to the new end, still falls inside.
        std::vector<quint64> next(static_cast<size_t>(highest - lowest) / WordBits + 1);
        for (const int value : values)
            AddShifted(next, reached_, static_cast<size_t>(value - *least));
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
    const auto first = static_cast<size_t>(low - lowest_);
    const auto last = static_cast<size_t>(high - lowest_);
    for (size_t word = first / WordBits; word <= last / WordBits; ++word) {
        quint64 bits = reached_[word];
        if (word == first / WordBits)
            bits &= ~quint64(0) << (first % WordBits);
        if (word == last / WordBits)
            bits &= ~quint64(0) >> (WordBits - 1 - last % WordBits);
        if (bits != 0)
            return true;
    }
    return false;
}

std::vector<ScaleScores> ScoresOfScales(const TestDocument& test) {
    std::vector<GrowingScale> scales(static_cast<size_t>(test.SubscaleCount) + 1);
    for (int q = 1; q <= test.QuestionCount; ++q) {
        if (!IsMultichoice(test, q))
            continue;
        const std::vector<int> values = ValuesOf(test, q);
        if (values.empty())
            continue;
        scales[0].Add(values);
        const int s = test.QuestionSubscale(q);
        if (s >= 1 && s <= test.SubscaleCount)
            scales[static_cast<size_t>(s)].Add(values);
    }
    std::vector<ScaleScores> scores;
    for (GrowingScale& scale : scales)
        scores.push_back(std::move(scale).Scores());
    return scores;
}
