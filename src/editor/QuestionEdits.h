#pragma once

#include "base/Failure.h"
#include "testdoc/TestDocument.h"

#include <optional>

inline const QString OnlySoManyAnswers = QStringLiteral("Only 10 answer options are allowed!");
inline const QString OnlySoManyQuestions = QStringLiteral("Only 500 questions are allowed!");
inline const QString OnlySoManyQuestionsWithAnswers =
    QStringLiteral("Only questions 1 to 200 can have answers of their own!");

/// What stands in the boxes of a question.
struct QuestionBoxes {
    QString Text;
    /// Nothing when no sub-scale is chosen, 0 for "none".
    std::optional<int> Subscale;
    /// TypeUnset (Template), Multichoice, ShortAnswer or LongAnswer.
    int Type = TypeUnset;
};

// In all of these q runs from 1 to QuestionCount and a from 1 to the number of answers of q; 0 stands for a new one
// where that is said. A refusal is a message of those above, and leaves the document as it was.

/// "Question 2 of 7" or, for question 0, "New Question (Total = 7)".
QString QuestionCaption(const TestDocument& test, int q);
/// "Answer 1 of 3" or, for answer 0, "New Answer (Total = 3)".
QString AnswerCaption(const TestDocument& test, int q, int a);

/// Where "Back" and "Foward" lead from question q (0 included): Back wraps to the last one, Foward past the last one
/// to 0.
int QuestionBefore(const TestDocument& test, int q);
int QuestionAfter(const TestDocument& test, int q);
int AnswerBefore(const TestDocument& test, int q, int a);
int AnswerAfter(const TestDocument& test, int q, int a);

/// Appends a question; it is the last one then. previous is the question shown before (0 for none): a multichoice
/// question begins with a copy of its answers, and where no sub-scale is chosen the new one has that of previous.
Result AddQuestion(TestDocument& test, int previous, const QuestionBoxes& boxes);
/// A short or long question has no sub-scale then, and any but a multichoice one no answers of its own.
Result EditQuestion(TestDocument& test, int q, const QuestionBoxes& boxes);
/// Returns the question to show then.
int DeleteQuestion(TestDocument& test, int q);

/// The value is stored as a number where it converts, otherwise as it is. A question of another type becomes a
/// multichoice one with it, as it does when a file is read: a file keeps the answers of no other.
Result AddAnswer(TestDocument& test, int q, const QString& text, const QString& value);
Result EditAnswer(TestDocument& test, int q, int a, const QString& text, const QString& value);
/// Returns the answer to show then, 0 when none is left.
int DeleteAnswer(TestDocument& test, int q, int a);
