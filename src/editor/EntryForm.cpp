#include "editor/EntryForm.h"

#include "editor/EntryEdits.h"

#include <algorithm>

namespace {

/// As much of a text as a message has room for.
QString Quote(const QString& text) {
    constexpr qsizetype longest = 80;
    const QString line = text.simplified();
    return u'\'' + (line.size() > longest ? line.left(longest) + QStringLiteral("...") : line) + u'\'';
}

/// The first thing that was typed, where there is no text yet.
QString Quote(const EntryBoxes& boxes) {
    return Quote(!boxes.Text.isEmpty() ? boxes.Text : !boxes.Number.isEmpty() ? boxes.Number : boxes.High);
}

QString Capitalized(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

const PromptChoice CancelChoice{QStringLiteral("Cancel"), ChoiceRole::Reject};

/// The index of the choice; Cancel is the last one and stands for closing the box.
int Choose(Prompts& prompts, const QString& text, const QString& title, std::vector<PromptChoice> choices) {
    choices.push_back(CancelChoice);
    const int cancel = static_cast<int>(choices.size()) - 1;
    return prompts.Choose({text, std::move(choices), 0, cancel, title});
}

QString TypeName(int type) {
    switch (type) {
    case ShortAnswer:
        return QStringLiteral("Short Answer");
    case LongAnswer:
        return QStringLiteral("Long Answer");
    default:
        return QStringLiteral("Template");
    }
}

} // namespace

int EntryForm::Number() const { return EntryNumber(place_); }

void EntryForm::Show(const TestPlace& place) { Show(place, StoredBoxes(test_, place)); }

void EntryForm::Show(const TestPlace& place, const EntryBoxes& boxes) {
    place_ = place;
    ShowBoxes(boxes);
    TakeAsStored(place);
}

void EntryForm::ShowTyped(const TypedEntry& typed) {
    Show(typed.Place);
    ShowBoxes(typed.Boxes);
}

// From the boxes: they may show a text differently than the document has it, which is no change of it.
void EntryForm::TakeAsStored(const TestPlace& place) {
    place_ = place;
    before_ = Boxes();
    added_ = typedOver_ = false;
}

bool EntryForm::IsBlank(const EntryBoxes& boxes) const {
    const bool isAnswer = place_.What == TestPlace::Answer;
    return boxes.Text.isEmpty() && boxes.High.isEmpty() &&
           (boxes.Number.isEmpty() || (isAnswer && boxes.Number == QStringLiteral("0")));
}

bool EntryForm::IsChanged() const {
    const EntryBoxes boxes = Boxes();
    return boxes != before_ && (Number() > 0 || !IsBlank(boxes));
}

// The text of an entry that was just added is selected, so that the next one can be typed over it. It was when no more
// than a letter was left of it at some time.
void EntryForm::NoteEdit() {
    const QString text = Boxes().Text;
    typedOver_ = typedOver_ || text.size() <= 1 ||
                 (!before_.Text.startsWith(text.front()) && !before_.Text.endsWith(text.back()));
}

bool EntryForm::Put(const TypedEntry& typed, bool asNew, Prompts& prompts) {
    const Result result = asNew ? AddEntry(test_, typed) : StoreEntry(test_, typed);
    if (!result) {
        prompts.Inform(result.Message());
        return false;
    }
    const TestPlace place = asNew ? WithEntryNumber(typed.Place, EntryCount(test_, typed.Place)) : typed.Place;
    place_ = place;
    // The cursor stays where nothing was stored in another form than it was typed.
    if (const EntryBoxes stored = StoredBoxes(test_, place); stored != typed.Boxes)
        ShowBoxes(stored);
    TakeAsStored(place);
    Stored(place_, asNew);
    added_ = asNew;
    return true;
}

bool EntryForm::Settle(Prompts& prompts) {
    if (!IsChanged())
        return true;
    if (Number() == 0)
        return SettleNew(prompts);
    return added_ && typedOver_ && !Boxes().Text.isEmpty() ? SettleTypedOver(prompts)
                                                           : SettleExisting(Typed(), prompts);
}

bool EntryForm::SettleNew(Prompts& prompts) {
    const TypedEntry typed = Typed();
    const int choice = Choose(prompts,
                              QStringLiteral("The %1 %2 was typed, but not added. Add it to the test?")
                                  .arg(EntryName(test_, place_), Quote(typed.Boxes)),
                              QStringLiteral("Not Added"),
                              {{QStringLiteral("&Add")}, {QStringLiteral("&Discard"), ChoiceRole::Discard}});
    if (choice == 1) {
        ShowBoxes(before_);
        return true;
    }
    if (choice != 0) {
        FocusOn(EntryBox::Text);
        return false;
    }
    if (const auto flaw = FlawOf(typed)) {
        prompts.Inform(flaw->Message);
        FocusOn(flaw->Box);
        return false;
    }
    if (Add(prompts))
        return true;
    FocusOn(EntryBox::Text);
    return false;
}

bool EntryForm::SettleTypedOver(Prompts& prompts) {
    const TypedEntry typed = Typed();
    const int choice =
        Choose(prompts,
               QStringLiteral("%1 was typed over %2, which had just been added as %3. Is it a new one?\n\n"
                              "'Add' adds it after the other. 'Edit' puts it in the place of the other.")
                   .arg(Quote(typed.Boxes), Quote(before_), EntryName(test_, place_)),
               QStringLiteral("Not Added"), {{QStringLiteral("&Add")}, {QStringLiteral("&Edit")}});
    if (choice == 1)
        return SettleExisting(typed, prompts);
    const auto flaw = choice == 0 ? FlawOf(typed) : std::nullopt;
    if (flaw)
        prompts.Inform(flaw->Message);
    if (choice == 0 && !flaw && Add(prompts))
        return true;
    FocusOn(flaw ? flaw->Box : EntryBox::Text);
    return false;
}

bool EntryForm::SettleExisting(TypedEntry typed, Prompts& prompts) {
    if (!KeepsMissing(typed, prompts) || !KeepsAnswers(typed, prompts))
        return false;
    // What is still missing was missing before, as in a file that another program wrote.
    const auto flaw = FlawOf(typed);
    const bool canBeStored = !flaw || flaw->Missing;
    if (!canBeStored)
        prompts.Inform(flaw->Message);
    if (canBeStored && Put(typed, false, prompts))
        return true;
    FocusOn(flaw ? flaw->Box : EntryBox::Text);
    return false;
}

/// A box that was emptied keeps what it had: only Delete takes an entry away. False when one is to stay.
bool EntryForm::KeepsMissing(TypedEntry& typed, Prompts& prompts) {
    EntryBoxes kept = typed.Boxes;
    for (QString EntryBoxes::*box : {&EntryBoxes::Text, &EntryBoxes::Number, &EntryBoxes::High})
        if ((typed.Boxes.*box).isEmpty())
            kept.*box = before_.*box;
    // The value of an answer may be empty.
    if (typed.Place.What == TestPlace::Answer)
        kept.Number = typed.Boxes.Number;
    const auto flaw = FlawOf(typed);
    if (!flaw || !flaw->Missing || kept == typed.Boxes)
        return true;
    const int choice = Choose(prompts,
                              QStringLiteral("%1 Something of %2 (%3) was emptied. Keep what was there before? To take "
                                             "the whole of it out of the test, use Delete.")
                                  .arg(flaw->Message, EntryName(test_, place_), Quote(before_)),
                              QStringLiteral("Emptied"), {{QStringLiteral("&Keep")}});
    if (choice != 0) {
        FocusOn(flaw->Box);
        return false;
    }
    typed.Boxes = kept;
    ShowBoxes(kept);
    return true;
}

/// Of a question that is changed to a type without answers. False when one is to stay.
bool EntryForm::KeepsAnswers(TypedEntry& typed, Prompts& prompts) {
    const int lost = AnswersLostBy(test_, typed);
    if (lost == 0)
        return true;
    const int choice =
        Choose(prompts,
               QStringLiteral("%1 has %2 of its own. With the type %3 it would lose them. Keep it multichoice?")
                   .arg(Capitalized(EntryName(test_, place_)),
                        lost == 1 ? QStringLiteral("an answer") : QStringLiteral("%1 answers").arg(lost),
                        TypeName(typed.Boxes.Type)),
               QStringLiteral("Answers Would Be Lost"),
               {{QStringLiteral("&Keep")}, {QStringLiteral("&Lose"), ChoiceRole::Discard}});
    if (choice == 2) {
        FocusOn(EntryBox::Text);
        return false;
    }
    if (choice == 0) {
        typed.Boxes.Type = Multichoice;
        ShowBoxes(typed.Boxes);
    }
    return true;
}

bool SettleAll(const std::vector<EntryForm*>& forms, Prompts& prompts) {
    return std::all_of(forms.begin(), forms.end(), [&](EntryForm* form) { return form->Settle(prompts); });
}
