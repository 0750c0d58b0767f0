#pragma once

#include "taker/ResponseSet.h"
#include "testdoc/TestDocument.h"

#include <vector>

/// The raw scores of one administration.
struct Scores {
    /// Sum over all questions, 16 bits.
    int TotalScore = 0;
    /// One sum for each sub-scale of the test, from 1; index 0 collects the questions outside all of them and is never
    /// reported.
    std::vector<qint64> SubscaleScore;
};

/// Adds up the values of the chosen answers. Throws OverflowError when the total leaves -32768..32767 on the way, and
/// NumberError when a chosen answer's value is no number.
Scores ComputeScores(const TestDocument& test, const ResponseSet& responses);

/// How many of a scale's scored questions (those with an answer that can be chosen) are answered.
struct Completeness {
    int Answered = 0;
    int Questions = 0;

    bool Incomplete() const { return Answered < Questions; }
    /// "answered 3 of 7"; empty when all of them are.
    QString Text() const;
    bool operator==(const Completeness&) const = default;
};

/// The completeness of the total (index 0) and of each sub-scale from 1.
std::vector<Completeness> CompletenessOf(const TestDocument& test, const ResponseSet& responses);

/// Adds one more value to a total. Throws OverflowError past 16 bits.
int AddToTotal(int total, int value);

/// Whether low <= score <= high, in the form score > low - 1 and score < high + 1.
bool InRange(qint64 score, int low, int high);

/// One line for each range of each sub-scale that contains its score, "name = text", in their order; "none" and a line
/// break when there is no such range. Bounds that are no numbers are named instead of matched.
QString SubscaleAnalysis(const TestDocument& test, const Scores& scores);

/// One line for each total range that contains the total; "none" and a line break when there is no such range.
QString TotalAnalysis(const TestDocument& test, const Scores& scores);
