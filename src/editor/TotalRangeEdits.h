#pragma once

#include "editor/SubscaleEdits.h"

QString TotalRangeItem(const TestDocument& test, int r);

/// A refusal is OnlySoManyRanges, and leaves the document as it was.
Result AddTotalRange(TestDocument& test, int low, int high, const QString& text);
void EditTotalRange(TestDocument& test, int r, int low, int high, const QString& text);
void DeleteTotalRange(TestDocument& test, int r);
