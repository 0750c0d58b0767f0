#pragma once

#include "base/Failure.h"
#include "testdoc/TestDocument.h"

/// The answer as the list shows it: "Agree (v=3)".
QString TemplateItem(const TestDocument& test, int i);

/// Appends an answer. When there are 10 already it replaces the tenth, and the result is the message
/// "Only 10 answer options are allowed!".
Result AddTemplateAnswer(TestDocument& test, const QString& text, int value);
void EditTemplateAnswer(TestDocument& test, int i, const QString& text, int value);
void DeleteTemplateAnswer(TestDocument& test, int i);
