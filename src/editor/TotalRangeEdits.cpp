#include "editor/TotalRangeEdits.h"

QString TotalRangeItem(const TestDocument& test, int r) {
    return RangeItem(QString::number(test.TotalRangeLow(r)), QString::number(test.TotalRangeHigh(r)),
                     test.TotalRangeText(r));
}

Result AddTotalRange(TestDocument& test, int low, int high, const QString& text) {
    if (test.TotalRangeCount >= MaxRanges)
        return Result::Failed(OnlySoManyRanges);
    EditTotalRange(test, ++test.TotalRangeCount, low, high, text);
    return Result::Done();
}

void EditTotalRange(TestDocument& test, int r, int low, int high, const QString& text) {
    test.TotalRangeLow(r) = low;
    test.TotalRangeHigh(r) = high;
    test.TotalRangeText(r) = text;
}

void DeleteTotalRange(TestDocument& test, int r) {
    if (r > test.TotalRangeCount)
        return;
    for (int later = r; later < test.TotalRangeCount; ++later)
        EditTotalRange(test, later, test.TotalRangeLow(later + 1), test.TotalRangeHigh(later + 1),
                       test.TotalRangeText(later + 1));
    EditTotalRange(test, test.TotalRangeCount, 0, 0, {});
    --test.TotalRangeCount;
}
