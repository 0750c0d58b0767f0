#pragma once

#include "platform/Prompts.h"
#include "taker/Administration.h"
#include "taker/SpreadsheetExporter.h"

/// What of the current administration is in files, one line for each: the full path, and when the answers or the
/// client's name were changed after that, that it holds the earlier ones. Scores in the workbook's row are named when
/// their questions aren't all answered.
QStringList FilingLines(const Session& session);

/// Runs the export, and notes which answers went into the workbook.
Result ExportResults(SpreadsheetExporter& exporter, Session& session);

/// What would be lost if the test window were left now.
enum class LeavingLoses { Nothing, Drafts, Answers, Result };

/// A test in the middle loses its answers and drafts; a completed one its result, unless a report file, a workbook or a
/// report window has these very answers.
LeavingLoses WhatLeavingLoses(const Session& session);

enum class LeaveAnswer { Leave, Stay, MakeReport };

/// Asks whether to leave the test, and says what would be lost. Where nothing would be, it asks nothing.
LeaveAnswer AskToLeave(const Session& session, Prompts& prompts);

/// The same before the program ends and takes the report on the screen with it. Returns whether it may end.
bool AskToEndProgram(const Session& session, Prompts& prompts);

/// Asks what becomes of typed texts that weren't accepted.
DraftsDecision AskAboutDrafts(const Session& session, Prompts& prompts);
