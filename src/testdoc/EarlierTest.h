#pragma once

#include "platform/Prompts.h"
#include "testdoc/TestParser.h"

/// Opens a test as OpenTest does. When its file is empty, or can't be read or understood, and a usable earlier version
/// is beside it, it first asks whether to use that.
Result OpenTestOrEarlier(TestDocument& test, const QString& path, Prompts& prompts);

/// The same where nobody can answer: then the message says where the earlier version is. Throws Failure, also when the
/// test can't be opened for another reason.
void OpenTestNamingEarlier(TestDocument& test, const QString& path);
