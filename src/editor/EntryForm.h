#pragma once

#include "base/Failure.h"
#include "editor/TypedEntry.h"
#include "platform/Prompts.h"

/// The boxes of one kind of entry on a page of the editor: which entry they show, and whether what they hold is in the
/// document. A page gives it its controls; the rules on what becomes of typed contents are here.
class EntryForm {
  public:
    EntryForm(TestDocument& test, TestPlace::Kind kind) : test_(test), place_{kind, 0, 0} {}
    virtual ~EntryForm() = default;
    EntryForm(const EntryForm&) = delete;
    EntryForm& operator=(const EntryForm&) = delete;

    const TestPlace& Place() const { return place_; }
    /// 0 while the boxes are those of a new entry.
    int Number() const;
    TypedEntry Typed() const { return {place_, Boxes()}; }

    /// Shows the entry as it is in the document, or the given contents as if they were.
    void Show(const TestPlace& place);
    void Show(const TestPlace& place, const EntryBoxes& boxes);
    /// Goes on with what the boxes hold as contents of that entry that aren't stored.
    void ShowTyped(const TypedEntry& typed);
    /// What the boxes hold belongs to that entry now: as its stored contents, or still as typed ones.
    void TakeAsStored(const TestPlace& place);
    void TakeAsTyped(const TestPlace& place) { place_ = place; }

    /// Whether something would be lost if the boxes showed something else.
    bool IsChanged() const;
    /// Stores the boxes into the entry shown, or adds them as a new one, as a button does. False when they were
    /// refused, which a message has then said.
    bool Store(Prompts& prompts) { return Put(Typed(), false, prompts); }
    bool Add(Prompts& prompts) { return Put(Typed(), true, prompts); }
    /// Before the boxes show something else: stores what was changed in an existing entry, and asks what becomes of a
    /// new one. False when one is to stay.
    bool Settle(Prompts& prompts);

  protected:
    virtual EntryBoxes Boxes() const = 0;
    virtual void ShowBoxes(const EntryBoxes& boxes) = 0;
    virtual void FocusOn(EntryBox box) = 0;
    /// The document has the entry now, as a new one or with other contents.
    virtual void Stored(const TestPlace& place, bool added) = 0;
    /// To be called after each change that the person makes in a box.
    void NoteEdit();

  private:
    bool IsBlank(const EntryBoxes& boxes) const;
    bool Put(const TypedEntry& typed, bool asNew, Prompts& prompts);
    bool SettleNew(Prompts& prompts);
    bool SettleTypedOver(Prompts& prompts);
    bool SettleExisting(TypedEntry typed, Prompts& prompts);
    bool KeepsMissing(TypedEntry& typed, Prompts& prompts);
    bool KeepsAnswers(TypedEntry& typed, Prompts& prompts);

    TestDocument& test_;
    TestPlace place_;
    EntryBoxes before_;
    /// Whether the entry shown was added just now, and its text then typed over.
    bool added_ = false;
    bool typedOver_ = false;
};

/// The forms of a page one after the other. False when one is to stay; what was settled before is stored.
bool SettleAll(const std::vector<EntryForm*>& forms, Prompts& prompts);
