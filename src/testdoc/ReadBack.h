#pragma once

#include "testdoc/TestChecker.h"

/// What of the test in memory is not the same in the test that was read back from its file. Each finding has its place
/// in the test in memory. Line breaks and numbers count as the same where only their spelling differs.
std::vector<Finding> DifferencesReadBack(const TestDocument& test, const TestDocument& read);
