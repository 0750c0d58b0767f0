#include "editor/EntryEdits.h"

#include "base/WholeNumber.h"
#include "editor/FindingsText.h"
#include "editor/NumberInput.h"
#include "editor/QuestionEdits.h"
#include "editor/TemplateEdits.h"
#include "editor/TotalRangeEdits.h"

namespace {

bool IsNumberedByIndex(const TestPlace& place) {
    return place.What == TestPlace::Question || place.What == TestPlace::Subscale;
}

bool IsRange(const TestPlace& place) {
    return place.What == TestPlace::SubscaleRange || place.What == TestPlace::TotalRange;
}

/// The bounds of a sub-scale's range are kept as they are typed.
bool HoldsNumbers(const TestPlace& place) { return place.What != TestPlace::SubscaleRange; }

QString NeededBy(const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Question:
        return QStringLiteral("A question needs a text.");
    case TestPlace::Subscale:
        return QStringLiteral("A sub-scale needs a name.");
    case TestPlace::Answer:
        return QStringLiteral("An answer needs a text.");
    case TestPlace::TemplateAnswer:
        return QStringLiteral("An answer of the template needs a text and a value.");
    default:
        return QStringLiteral("A range needs two bounds and a text.");
    }
}

QuestionBoxes QuestionOf(const EntryBoxes& boxes) { return {boxes.Text, boxes.Subscale, boxes.Type}; }
RangeBoxes RangeOf(const EntryBoxes& boxes) { return {boxes.Number, boxes.High, boxes.Text}; }

const char* KindOf(const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Question:
        return "question";
    case TestPlace::Subscale:
        return "sub-scale";
    case TestPlace::SubscaleRange:
    case TestPlace::TotalRange:
        return "range";
    default:
        return "answer";
    }
}

EntryBoxes BoxesOfQuestion(const TestDocument& test, int q) {
    const int subscale = test.QuestionSubscale(q);
    // A number that no sub-scale has leaves nothing chosen, so that it isn't lost.
    const bool exists = subscale >= 0 && subscale <= test.SubscaleCount;
    return {test.QuestionText(q), {}, {}, test.QuestionType(q), exists ? std::optional<int>(subscale) : std::nullopt};
}

} // namespace

int EntryNumber(const TestPlace& place) { return IsNumberedByIndex(place) ? place.Index : place.SubIndex; }

TestPlace WithEntryNumber(TestPlace place, int number) {
    (IsNumberedByIndex(place) ? place.Index : place.SubIndex) = number;
    return place;
}

int EntryCount(const TestDocument& test, const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Question:
        return test.QuestionCount;
    case TestPlace::Answer:
        return OwnAnswerCount(test, place.Index);
    case TestPlace::TemplateAnswer:
        return test.TemplateAnswerCount;
    case TestPlace::Subscale:
        return test.SubscaleCount;
    case TestPlace::SubscaleRange:
        return place.Index > 0 ? test.SubscaleRangeCount(place.Index) : 0;
    case TestPlace::TotalRange:
        return test.TotalRangeCount;
    default:
        return 0;
    }
}

QString EntryName(const TestDocument& test, const TestPlace& place) {
    return EntryNumber(place) > 0 ? PlaceText(place, test) : QStringLiteral("new ") + QLatin1String(KindOf(place));
}

EntryBoxes StoredBoxes(const TestDocument& test, const TestPlace& place) {
    const int n = EntryNumber(place);
    if (n == 0)
        return place.What == TestPlace::Question ? EntryBoxes{{}, {}, {}, Multichoice, 0} : EntryBoxes();
    switch (place.What) {
    case TestPlace::Question:
        return BoxesOfQuestion(test, n);
    case TestPlace::Answer:
        return {test.AnswerText(place.Index, n), test.AnswerValue(place.Index, n).Text(), {}, TypeUnset, {}};
    case TestPlace::TemplateAnswer:
        return {test.TemplateAnswerText(n), QString::number(test.TemplateAnswerValue(n)), {}, TypeUnset, {}};
    case TestPlace::Subscale:
        return {test.SubscaleName(n), {}, {}, TypeUnset, {}};
    case TestPlace::SubscaleRange:
        return {test.SubscaleRangeText(place.Index, n),
                test.SubscaleRangeLow(place.Index, n).Text(),
                test.SubscaleRangeHigh(place.Index, n).Text(),
                TypeUnset,
                {}};
    case TestPlace::TotalRange:
        return {test.TotalRangeText(n),
                QString::number(test.TotalRangeLow(n)),
                QString::number(test.TotalRangeHigh(n)),
                TypeUnset,
                {}};
    default:
        return {};
    }
}

std::optional<EntryFlaw> FlawOf(const TypedEntry& typed) {
    const EntryBoxes& boxes = typed.Boxes;
    const TestPlace& place = typed.Place;
    if (place.What == TestPlace::Answer && place.Index == 0)
        return EntryFlaw{QStringLiteral("An answer belongs to a question. Write and add the question first.")};
    if (place.What == TestPlace::SubscaleRange && place.Index == 0)
        return EntryFlaw{QStringLiteral("A range belongs to a sub-scale. Choose or add the sub-scale first.")};
    if (!boxes.Number.isEmpty() && HoldsNumbers(place) && !TryWholeNumber(boxes.Number))
        return EntryFlaw{NotAValidValue, EntryBox::Number};
    if (!boxes.High.isEmpty() && HoldsNumbers(place) && !TryWholeNumber(boxes.High))
        return EntryFlaw{NotAValidValue, EntryBox::High};
    if (boxes.Number.isEmpty() && (IsRange(place) || place.What == TestPlace::TemplateAnswer))
        return EntryFlaw{NeededBy(place), EntryBox::Number, true};
    if (boxes.High.isEmpty() && IsRange(place))
        return EntryFlaw{NeededBy(place), EntryBox::High, true};
    if (boxes.Text.isEmpty())
        return EntryFlaw{NeededBy(place), EntryBox::Text, true};
    return std::nullopt;
}

Result StoreEntry(TestDocument& test, const TypedEntry& typed) {
    const auto& [place, boxes] = typed;
    const int n = EntryNumber(place);
    switch (place.What) {
    case TestPlace::Question:
        return EditQuestion(test, n, QuestionOf(boxes));
    case TestPlace::Answer:
        return EditAnswer(test, place.Index, n, boxes.Text, boxes.Number);
    case TestPlace::TemplateAnswer:
        EditTemplateAnswer(test, n, boxes.Text, ToWholeNumber(boxes.Number));
        break;
    case TestPlace::Subscale:
        RenameSubscale(test, n, boxes.Text);
        break;
    case TestPlace::SubscaleRange:
        EditSubscaleRange(test, place.Index, n, RangeOf(boxes));
        break;
    case TestPlace::TotalRange:
        EditTotalRange(test, n, ToWholeNumber(boxes.Number), ToWholeNumber(boxes.High), boxes.Text);
        break;
    default:
        break;
    }
    return Result::Done();
}

Result AddEntry(TestDocument& test, const TypedEntry& typed) {
    const auto& [place, boxes] = typed;
    switch (place.What) {
    case TestPlace::Question:
        return AddQuestion(test, place.Index, QuestionOf(boxes));
    case TestPlace::Answer:
        return AddAnswer(test, place.Index, boxes.Text, boxes.Number);
    case TestPlace::TemplateAnswer:
        if (TemplateIsFull(test))
            return Result::Failed(OnlySoManyAnswers);
        AddTemplateAnswer(test, boxes.Text, ToWholeNumber(boxes.Number));
        break;
    case TestPlace::Subscale:
        return AddSubscale(test, boxes.Text);
    case TestPlace::SubscaleRange:
        return AddSubscaleRange(test, place.Index, RangeOf(boxes));
    case TestPlace::TotalRange:
        return AddTotalRange(test, ToWholeNumber(boxes.Number), ToWholeNumber(boxes.High), boxes.Text);
    default:
        break;
    }
    return Result::Done();
}

int AnswersLostBy(const TestDocument& test, const TypedEntry& typed) {
    const int q = typed.Place.Index;
    const bool loses = typed.Place.What == TestPlace::Question && q > 0 && test.QuestionType(q) == Multichoice &&
                       typed.Boxes.Type != Multichoice;
    return loses ? OwnAnswerCount(test, q) : 0;
}
