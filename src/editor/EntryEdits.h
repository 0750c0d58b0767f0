#pragma once

#include "base/Failure.h"
#include "editor/TypedEntry.h"

// What is the same for all kinds of entries: questions, answers, template answers, sub-scales and ranges.

/// The entry's number among its like; 0 for a new one.
int EntryNumber(const TestPlace& place);
TestPlace WithEntryNumber(TestPlace place, int number);
/// How many entries there are beside the one at place: for an answer those of its question.
int EntryCount(const TestDocument& test, const TestPlace& place);
/// "question 3", or "new question" where the number is 0.
QString EntryName(const TestDocument& test, const TestPlace& place);

/// What the boxes show for the entry; empty boxes for a new one.
EntryBoxes StoredBoxes(const TestDocument& test, const TestPlace& place);

/// Why boxes can't be stored.
struct EntryFlaw {
    QString Message;
    EntryBox Box = EntryBox::Text;
    /// Nothing is in the box; otherwise what is in it can't be stored.
    bool Missing = false;
};
std::optional<EntryFlaw> FlawOf(const TypedEntry& typed);

/// Stores the boxes into the entry that they belong to, or adds them as a new one, whatever the number; a question then
/// follows the one with that number as QuestionEdits tells. The boxes have no flaw. A refusal leaves the document as it
/// was. A full template refuses.
Result StoreEntry(TestDocument& test, const TypedEntry& typed);
Result AddEntry(TestDocument& test, const TypedEntry& typed);

/// The answers that the question would lose when the boxes are stored into it.
int AnswersLostBy(const TestDocument& test, const TypedEntry& typed);
