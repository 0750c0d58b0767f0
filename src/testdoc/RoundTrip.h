#pragma once

#include "testdoc/TestChecker.h"

/// What happens to the test when it is written and read back. Errors: it would be another test then, or none that can
/// be opened. Where a text is to blame that holds something which a reader takes for an element, the finding is at that
/// text and names it. Warnings: what the format is known to lose, such as line breaks in texts of one line.
std::vector<Finding> CheckRoundTrip(const TestDocument& test);
