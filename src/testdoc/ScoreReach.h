#pragma once

#include "testdoc/TestDocument.h"

#include <vector>

/// The scores that a scale can have. When their span is too wide to look at each, all between the bounds count.
class ReachableSet {
  public:
    /// Only 0.
    ReachableSet() : reached_{1} {}

    /// One more question whose choice adds one of the values (at least one).
    void Add(const std::vector<int>& values);

    qint64 Lowest() const { return lowest_; }
    qint64 Highest() const { return highest_; }
    /// Whether some score in low..high can be reached.
    bool Reaches(qint64 low, qint64 high) const;

  private:
    static constexpr qint64 WidestSpan = 1 << 16;

    qint64 lowest_ = 0;
    qint64 highest_ = 0;
    /// One bit a score, 64 in a word, from the lowest score on; empty when the span is too wide.
    std::vector<quint64> reached_;
};

/// The scores of one scale, with every question answered and with some left out.
struct ScaleScores {
    ReachableSet Complete;
    ReachableSet WithGaps;
};

/// The scores of the total (index 0) and of sub-scale s (index s).
std::vector<ScaleScores> ScoresOfScales(const TestDocument& test);
