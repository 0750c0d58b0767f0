#pragma once

#include "testdoc/TestChecker.h"

/// "question 4: the multichoice question has no answers ...", on one line.
QString FindingLine(const Finding& finding);

/// All findings in a few words: "2 errors, 3 warnings · " and the line of the first; "Nothing to note" when there are
/// none. Errors go before warnings.
QString FindingsSummary(const std::vector<Finding>& findings);

/// The findings with the errors first, otherwise in the order that they had.
std::vector<Finding> ErrorsFirst(std::vector<Finding> findings);

/// "12,345 of 32,767 characters".
QString LengthUsedText(int lengthUsed);

/// Whether the test still has the element, so that it can be gone to; it hasn't when it was deleted since the check.
bool PlaceExists(const TestPlace& place, const TestDocument& test);
