#pragma once

#include "testdoc/TestChecker.h"

/// What a check of the file would find if the test were saved now, in the order of the file: what CheckDocument tells,
/// and, as errors, what keeps the test from being saved whole or opened again, and whatever would be read back
/// differently than it is in memory; the latter only while the test isn't too long to be read at all. Sets
/// lengthWhenRead, if it is given, to the number of characters that the reader would count. The document needn't have a
/// file. Throws BoundError, as writing does, where a count is outside its bounds.
std::vector<Finding> CheckForSaving(const TestDocument& test, int* lengthWhenRead = nullptr);
