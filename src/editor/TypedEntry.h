#pragma once

#include "testdoc/TestChecker.h"

#include <QString>

#include <optional>
#include <vector>

/// What the boxes of an entry hold. A kind of entry that lacks a box leaves it empty.
struct EntryBoxes {
    /// The text of a question, answer or range, the name of a sub-scale.
    QString Text;
    /// The value of an answer, the low bound of a range.
    QString Number;
    QString High;
    /// The type of a question.
    int Type = TypeUnset;
    /// The sub-scale of a question: nothing when none is chosen, 0 for "none".
    std::optional<int> Subscale;

    bool operator==(const EntryBoxes&) const = default;
};

enum class EntryBox { Text, Number, High };

/// What was typed for an entry and isn't in the document yet. Place is a Question, Answer, TemplateAnswer, Subscale,
/// SubscaleRange or TotalRange whose own number is 0 while the entry is a new one. The question of an answer and the
/// sub-scale of a range may be 0, too: there is none yet.
struct TypedEntry {
    TestPlace Place;
    EntryBoxes Boxes;

    bool operator==(const TypedEntry&) const = default;
};

using TypedEntries = std::vector<TypedEntry>;
