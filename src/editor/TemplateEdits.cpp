#include "editor/TemplateEdits.h"

#include <algorithm>

QString TemplateItem(const TestDocument& test, int i) {
    return test.TemplateAnswerText(i) + QStringLiteral(" (v=") + QString::number(test.TemplateAnswerValue(i)) + u')';
}

bool TemplateIsFull(const TestDocument& test) { return test.TemplateAnswerCount >= MaxAnswers; }

void AddTemplateAnswer(TestDocument& test, const QString& text, int value) {
    test.TemplateAnswerCount = std::min(test.TemplateAnswerCount + 1, MaxAnswers);
    EditTemplateAnswer(test, test.TemplateAnswerCount, text, value);
}

void EditTemplateAnswer(TestDocument& test, int i, const QString& text, int value) {
    test.TemplateAnswerText(i) = text;
    test.TemplateAnswerValue(i) = value;
}

void DeleteTemplateAnswer(TestDocument& test, int i) {
    for (int later = i + 1; later <= test.TemplateAnswerCount; ++later)
        EditTemplateAnswer(test, later - 1, test.TemplateAnswerText(later), test.TemplateAnswerValue(later));
    test.TemplateAnswerCount = std::max(0, test.TemplateAnswerCount - 1);
}
