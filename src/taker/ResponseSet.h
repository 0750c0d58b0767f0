#pragma once

#include <QString>

#include <map>
#include <vector>

/// The answers of one administration; questions run from 1.
class ResponseSet {
  public:
    ResponseSet() = default;
    explicit ResponseSet(int questionCount)
        : choices_(Size(questionCount)), values_(Size(questionCount)), texts_(Size(questionCount)) {}

    /// Number (1..10) of the chosen answer of a multichoice question, 0 for none.
    int& ResponseChoice(int q) { return choices_.at(Index(q)); }
    int ResponseChoice(int q) const { return choices_.at(Index(q)); }
    /// The chosen answer's value at the moment when it was chosen.
    int& ResponseValue(int q) { return values_.at(Index(q)); }
    int ResponseValue(int q) const { return values_.at(Index(q)); }
    /// The text of a short or long answer, "" for none.
    QString& ResponseText(int q) { return texts_.at(Index(q)); }
    const QString& ResponseText(int q) const { return texts_.at(Index(q)); }

    /// Whether both hold the same choices and accepted texts.
    bool SameAnswers(const ResponseSet& other) const { return choices_ == other.choices_ && texts_ == other.texts_; }

    /// Texts typed for short and long answers that weren't accepted, by question. They are no answers.
    std::map<int, QString> Drafts;
    /// Question now shown, from 1.
    int CurrentQuestion = 1;
    /// Highest number of a question answered so far.
    int FurthestQuestion = 0;
    bool TestCompleted = false;
    /// The next report is built without being shown.
    bool SilentReport = false;

  private:
    static size_t Size(int questionCount) { return static_cast<size_t>(questionCount); }
    static size_t Index(int q) { return static_cast<size_t>(q - 1); }

    std::vector<int> choices_;
    std::vector<int> values_;
    std::vector<QString> texts_;
};
