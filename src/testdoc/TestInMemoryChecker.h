#pragma once

#include "testdoc/TestChecker.h"

#include <QStringList>

/// What a check of the file would find if the test were saved now, in the order of the file: what CheckDocument tells,
/// and what CheckRoundTrip tells; the latter only while the test isn't too long to be read at all. Its errors are those
/// for which saving is refused, and a test that can't be taken. Sets
/// lengthWhenRead, if it is given, to the number of characters that the reader would count. The document needn't have a
/// file. Throws BoundError, as writing does, where a count is outside its bounds.
std::vector<Finding> CheckForSaving(const TestDocument& test, int* lengthWhenRead = nullptr);

/// Why the test must not be written as it is: its file couldn't be opened again, or would be read as another test. Each
/// reason names the text or number. Empty when it may be written. Throws as CheckForSaving does.
QStringList WhatForbidsSaving(const TestDocument& test);
