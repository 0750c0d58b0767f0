#pragma once

#include "testdoc/TestDocument.h"

/// The most that the editor lets a test have: 500 questions, 200 of them with 10 answers of their own and the others
/// with the template's, and 50 sub-scales of 50 ranges. Values run from 0 to largest.
inline TestDocument FullestTest(int largest) {
    TestDocument test;
    test.TestTitle = QStringLiteral("Bench");
    test.SubscaleCount = MaxSubscales;
    for (int s = 1; s <= MaxSubscales; ++s) {
        test.SubscaleName(s) = QStringLiteral("Scale %1").arg(s);
        test.SubscaleRangeCount(s) = MaxRanges;
        for (int r = 1; r <= MaxRanges; ++r) {
            test.SubscaleRangeLow(s, r) = Value(QString::number(largest * (r - 1) / 5));
            test.SubscaleRangeHigh(s, r) = Value(QString::number(largest * r / 5 - 1));
            test.SubscaleRangeText(s, r) = QStringLiteral("Text %1").arg(r);
        }
    }
    test.TemplateAnswerCount = MaxAnswers;
    for (int i = 1; i <= MaxAnswers; ++i) {
        test.TemplateAnswerText(i) = QStringLiteral("Answer %1").arg(i);
        test.TemplateAnswerValue(i) = largest * i / MaxAnswers;
    }
    test.QuestionCount = MaxQuestions;
    for (int q = 1; q <= MaxQuestions; ++q) {
        test.QuestionText(q) = QStringLiteral("Question %1?").arg(q);
        test.QuestionSubscale(q) = (q - 1) % MaxSubscales + 1;
        if (q > MaxQuestionsWithAnswers)
            continue;
        test.QuestionType(q) = Multichoice;
        test.AnswerCount(q) = MaxAnswers;
        for (int a = 1; a <= MaxAnswers; ++a) {
            test.AnswerText(q, a) = QStringLiteral("a%1").arg(a);
            test.AnswerValue(q, a) = largest * a / MaxAnswers;
        }
    }
    return test;
}
