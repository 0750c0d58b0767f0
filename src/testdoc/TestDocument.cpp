#include "testdoc/TestDocument.h"

TestDocument::TestDocument() {
    // Filled from the start, so that a test that was made before any was loaded keeps its options when it is written.
    for (int i = 1; i <= OptionCount; ++i)
        OptionTag(i) = OptionTags()[static_cast<size_t>(i - 1)];
}

bool IsMultichoice(const TestDocument& test, int q) {
    return test.QuestionType(q) == TypeUnset || test.QuestionType(q) == Multichoice;
}

QString ChosenText(const TestDocument& test, int q, int a) { return a == 0 ? QString() : test.AnswerText(q, a); }

Value ChosenValue(const TestDocument& test, int q, int a) { return a == 0 ? Value() : test.AnswerValue(q, a); }
