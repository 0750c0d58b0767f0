#pragma once

#include "testdoc/TestChecker.h"

/// What of the test in memory is not the same in the test that was read back from its file. Each finding has its place
/// in the test in memory. Warnings are what the format is known to lose and no score or option depends on: line breaks
/// within texts of one line, "<P>" typed into the texts of several, the fraction of a bound. All else is an error.
/// Numbers count as the same where only their spelling differs.
std::vector<Finding> DifferencesReadBack(const TestDocument& test, const TestDocument& read);
