#pragma once

#include "testdoc/TestDocument.h"

#include <QList>

#include <map>

/// The frames in which the dialogs group the report's options.
enum class OptionFrame { Prompts, General, Questions, Scoring };

/// One check box of the dialogs.
struct OptionBox {
    Option Index;
    QString Caption;
    OptionFrame Frame;
};

/// The boxes that choose the blocks of a report, in the order in which the frames show them.
const QList<OptionBox>& ReportOptionBoxes();

/// The boxes that choose the names asked for.
const QList<OptionBox>& PromptOptionBoxes();

/// Whether the test's scores can matter: it has questions whose answers are worth something.
bool ScoringMatters(const TestDocument& test);

/// Whether the option can change the report of this test; a box that can't is disabled, not unticked.
bool OptionMatters(const TestDocument& test, Option option);

/// The ticks of boxes, by option.
using OptionTicks = std::map<Option, bool>;

/// Sets the test's options to the ticks, those of disabled boxes included; other options stay.
void TakeTicks(TestDocument& test, const OptionTicks& ticks);
