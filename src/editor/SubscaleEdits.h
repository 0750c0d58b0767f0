#pragma once

#include "base/Failure.h"
#include "testdoc/TestDocument.h"

inline const QString OnlySoManySubscales = QStringLiteral("Only 50 sub-scales are allowed!");
inline const QString OnlySoManyRanges = QStringLiteral("Only 50 ranges are allowed!");

/// The boxes of a range; its bounds are kept as they are typed.
struct RangeBoxes {
    QString Low;
    QString High;
    QString Text;
};

/// The range as the list shows it: "1 to 5 = Low".
QString RangeItem(const QString& low, const QString& high, const QString& text);
QString SubscaleRangeItem(const TestDocument& test, int s, int r);

// A refusal is a message of those above, and leaves the document as it was. Deleting what isn't there changes nothing:
// a list may still show the test before.

Result AddSubscale(TestDocument& test, const QString& name);
void RenameSubscale(TestDocument& test, int s, const QString& name);
/// The questions of sub-scale s have none then; those of later ones go down by one with their sub-scale.
void DeleteSubscale(TestDocument& test, int s);

Result AddSubscaleRange(TestDocument& test, int s, const RangeBoxes& boxes);
void EditSubscaleRange(TestDocument& test, int s, int r, const RangeBoxes& boxes);
void DeleteSubscaleRange(TestDocument& test, int s, int r);
