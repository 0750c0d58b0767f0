#pragma once

#include "editor/Recovery.h"
#include "platform/Prompts.h"

/// When the copy of a test with unsaved changes is offered.
enum class LeftTestOffer {
    AtStart,   ///< of the program
    AtOpening, ///< of the same test
};

/// What the person is asked then, to be answered with Yes, No or Cancel.
Prompt LeftTestQuestion(const RecoveredTest& left, LeftTestOffer when);
