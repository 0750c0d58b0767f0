#pragma once

#include "taker/ResponseSet.h"
#include "testdoc/TestDocument.h"

/// Whether answer a of question q can be chosen: a button shows it.
bool AnswerOffered(const TestDocument& test, int q, int a);

/// Whether question q is answered with buttons, and has at least one.
bool HasAnswersToChoose(const TestDocument& test, int q);

/// Whether question q has an answer, by the rule of the report: a chosen text or a typed one. A draft is none.
bool IsAnswered(const TestDocument& test, const ResponseSet& responses, int q);

/// How many questions have one.
int AnsweredCount(const TestDocument& test, const ResponseSet& responses);

// Text that was typed for a short or long answer and not accepted

/// Keeps the text typed for question q as its draft; what equals the accepted answer is none.
void KeepDraft(ResponseSet& responses, int q, const QString& text);

/// What the box of question q holds: the draft if there is one, else the accepted answer.
const QString& TypedText(const ResponseSet& responses, int q);

/// "question 2", "questions 2 and 5": the questions with drafts.
QString QuestionsWithDrafts(const ResponseSet& responses);
