#pragma once

#include "testdoc/TestDocument.h"

// In all of these i runs from 1 to TemplateAnswerCount.

/// The answer as the list shows it: "Agree (v=3)".
QString TemplateItem(const TestDocument& test, int i);

/// Whether the next answer that is added replaces the tenth instead of being appended.
bool TemplateIsFull(const TestDocument& test);
/// Appends an answer; in a full template it replaces the tenth, and is the last one then.
void AddTemplateAnswer(TestDocument& test, const QString& text, int value);
void EditTemplateAnswer(TestDocument& test, int i, const QString& text, int value);
void DeleteTemplateAnswer(TestDocument& test, int i);
