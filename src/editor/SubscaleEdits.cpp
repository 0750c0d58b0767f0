#include "editor/SubscaleEdits.h"

#include "base/WholeNumber.h"

#include <utility>

namespace {

/// A bound as it is typed; a number in its shortest form as a loaded one is held.
Value TypedBound(const QString& text) {
    const auto number = TryWholeNumber(text);
    return number && QString::number(*number) == text ? Value(*number) : Value(text);
}

void PutRange(TestDocument& test, int s, int r, const RangeBoxes& boxes) {
    test.SubscaleRangeLow(s, r) = TypedBound(boxes.Low);
    test.SubscaleRangeHigh(s, r) = TypedBound(boxes.High);
    test.SubscaleRangeText(s, r) = boxes.Text;
}

void ClearRange(TestDocument& test, int s, int r) {
    test.SubscaleRangeLow(s, r) = Value();
    test.SubscaleRangeHigh(s, r) = Value();
    test.SubscaleRangeText(s, r).clear();
}

/// A sub-scale without name and ranges.
void ClearSubscale(TestDocument& test, int s) {
    test.SubscaleName(s).clear();
    test.SubscaleRangeCount(s) = 0;
    for (int r = 1; r <= MaxRanges; ++r)
        ClearRange(test, s, r);
}

void SwapSubscales(TestDocument& test, int s, int other) {
    std::swap(test.SubscaleName(s), test.SubscaleName(other));
    std::swap(test.SubscaleRangeCount(s), test.SubscaleRangeCount(other));
    std::swap(test.SubscaleRangeLow.Row(s), test.SubscaleRangeLow.Row(other));
    std::swap(test.SubscaleRangeHigh.Row(s), test.SubscaleRangeHigh.Row(other));
    std::swap(test.SubscaleRangeText.Row(s), test.SubscaleRangeText.Row(other));
}

} // namespace

QString RangeItem(const QString& low, const QString& high, const QString& text) {
    return low + QStringLiteral(" to ") + high + QStringLiteral(" = ") + text;
}

QString SubscaleRangeItem(const TestDocument& test, int s, int r) {
    return RangeItem(test.SubscaleRangeLow(s, r).Text(), test.SubscaleRangeHigh(s, r).Text(),
                     test.SubscaleRangeText(s, r));
}

Result AddSubscale(TestDocument& test, const QString& name) {
    if (test.SubscaleCount >= MaxSubscales)
        return Result::Failed(OnlySoManySubscales);
    ++test.SubscaleCount;
    // Ranges left behind by an earlier sub-scale would turn up in reports.
    ClearSubscale(test, test.SubscaleCount);
    test.SubscaleName(test.SubscaleCount) = name;
    return Result::Done();
}

void RenameSubscale(TestDocument& test, int s, const QString& name) { test.SubscaleName(s) = name; }

void DeleteSubscale(TestDocument& test, int s) {
    if (s > test.SubscaleCount)
        return;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        int& subscale = test.QuestionSubscale(q);
        if (subscale == s || subscale < 0)
            subscale = 0;
        else if (subscale > s)
            --subscale;
    }
    for (int later = s; later < test.SubscaleCount; ++later)
        SwapSubscales(test, later, later + 1);
    ClearSubscale(test, test.SubscaleCount);
    --test.SubscaleCount;
}

Result AddSubscaleRange(TestDocument& test, int s, const RangeBoxes& boxes) {
    if (test.SubscaleRangeCount(s) >= MaxRanges)
        return Result::Failed(OnlySoManyRanges);
    PutRange(test, s, ++test.SubscaleRangeCount(s), boxes);
    return Result::Done();
}

void EditSubscaleRange(TestDocument& test, int s, int r, const RangeBoxes& boxes) { PutRange(test, s, r, boxes); }

void DeleteSubscaleRange(TestDocument& test, int s, int r) {
    int& count = test.SubscaleRangeCount(s);
    if (r > count)
        return;
    for (int later = r; later < count; ++later) {
        test.SubscaleRangeLow(s, later) = test.SubscaleRangeLow(s, later + 1);
        test.SubscaleRangeHigh(s, later) = test.SubscaleRangeHigh(s, later + 1);
        test.SubscaleRangeText(s, later) = test.SubscaleRangeText(s, later + 1);
    }
    ClearRange(test, s, count);
    --count;
}
