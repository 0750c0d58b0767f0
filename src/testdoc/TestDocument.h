#pragma once

#include "base/BoundedArray.h"
#include "base/Value.h"
#include "testdoc/OptionTable.h"

#include <QString>

/// The bounds of a test.
inline constexpr int MaxQuestions = 500;
inline constexpr int MaxQuestionsWithAnswers = 200;
inline constexpr int MaxAnswers = 10;
inline constexpr int MaxSubscales = 50;
inline constexpr int MaxRanges = 50;
inline constexpr int MaxTemplateAnswers = 11;
inline constexpr int MaxTestFileLength = 32767;

/// The values of QuestionType; 0 is a question whose type was never set, and is treated as multichoice.
enum QuestionKind { TypeUnset = 0, Multichoice = 1, ShortAnswer = 2, LongAnswer = 3 };

/// What reading a file notes about the test as a whole. While a test is edited this stays as it was read; SummaryOf
/// says what it would be now.
struct TestSummary {
    /// Length in characters of the longest answer element, its value marker included.
    int LongestAnswerLength = 0;
    int MaxAnswerCount = 0;

    bool HasMultichoice = false;
    bool HasShortAnswer = false;
    bool HasLongAnswer = false;
    bool HasLongAnswerQuestions = false;
    bool SubscaleRangesPresent = false;

    bool operator==(const TestSummary&) const = default;
};

/// One test in memory. All arrays run from 1.
struct TestDocument : TestSummary {
    TestDocument();

    QString TestFileName;
    /// The text of the file after reading: line ends removed, "<P>" turned into CR LF.
    QString TestFileText;
    int TestFileLength = 0;
    /// The SHA-256 of the file's bytes, in hexadecimal digits; by it a test is known again.
    QString TestFileHash;
    /// The file's name without directory and extension.
    QString TestBaseName;

    QString TestTitle;
    QString TestIntroduction;
    QString TestInstructions;
    QString TestCompletionMessage;

    int SubscaleCount = 0;
    BoundedArray<QString, MaxSubscales> SubscaleName;
    BoundedArray<int, MaxSubscales> SubscaleRangeCount;
    BoundedGrid<Value, MaxSubscales, MaxRanges> SubscaleRangeLow;
    BoundedGrid<Value, MaxSubscales, MaxRanges> SubscaleRangeHigh;
    BoundedGrid<QString, MaxSubscales, MaxRanges> SubscaleRangeText;

    int TotalRangeCount = 0;
    BoundedArray<int, MaxRanges> TotalRangeLow;
    BoundedArray<int, MaxRanges> TotalRangeHigh;
    BoundedArray<QString, MaxRanges> TotalRangeText;

    int TemplateAnswerCount = 0;
    BoundedArray<QString, MaxTemplateAnswers> TemplateAnswerText;
    BoundedArray<int, MaxTemplateAnswers> TemplateAnswerValue;

    int QuestionCount = 0;
    BoundedArray<QString, MaxQuestions> QuestionText;
    BoundedArray<int, MaxQuestions> QuestionType;
    /// The sub-scale's number, 0 for none; it may name a sub-scale that doesn't exist.
    BoundedArray<int, MaxQuestions> QuestionSubscale;
    /// Ends before the other arrays of the questions do: only questions 1 to 200 have answers of their own.
    BoundedArray<int, MaxQuestionsWithAnswers> AnswerCount;
    /// Answers of their own only; what lies above AnswerCount is left over from editing. Whoever shows, scores or
    /// exports a question asks OfferedAnswerCount, ChosenText and ChosenValue, which know the template's.
    BoundedGrid<QString, MaxQuestions, MaxAnswers> AnswerText;
    BoundedGrid<Value, MaxQuestions, MaxAnswers> AnswerValue;

    bool ReportOnlyWhenDone = false;
    bool NavigationButtons = false;
    BoundedArray<bool, OptionCount> TestOption;
    BoundedArray<QString, OptionCount> OptionTag;

    QString ReportDirectory;
    QString ExcelDirectory;
    QString ExcelFileName;
    QString AutosaveFileName;

    /// Position in the text of the first character after the opening tag most recently found.
    int LastTagPosition = 0;
};

/// Whether question q (1..QuestionCount) is answered with buttons.
bool IsMultichoice(const TestDocument& test, int q);

/// How many answers of its own question q has, as its file keeps them: 0 for question 0, those above 200, and all that
/// aren't of the type Multichoice.
int OwnAnswerCount(const TestDocument& test, int q);

/// How many answers question q (1..QuestionCount) has: its own or, when it has none, the template's, whatever its type.
int OfferedAnswerCount(const TestDocument& test, int q);

/// What answer a of those is called and worth: "" and nothing for 0, which stands for "none", and for one that isn't
/// there. The template's answers are looked up there each time, so that no copy of them grows old.
QString ChosenText(const TestDocument& test, int q, int a);
Value ChosenValue(const TestDocument& test, int q, int a);

/// What the reader would note if the test were saved and read now.
TestSummary SummaryOf(const TestDocument& test);
