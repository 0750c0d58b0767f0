#pragma once

#include "platform/Clock.h"
#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "taker/Report.h"
#include "taker/Session.h"

/// What the report of this session shows besides the test and the responses.
ReportContext ReportContextOf(const Session& session, const QDateTime& now);

enum class ReportOutcome { Refused, Built, ProgramEnds };

/// Builds the report of the administration into the session's ReportText, and shows it unless it is a silent one.
class ReportFlow {
  public:
    ReportFlow(Session& session, Prompts& prompts, const Clock& clock, Navigator& navigator)
        : session_(session), prompts_(prompts), clock_(clock), navigator_(navigator) {}

    /// One run of the report. A silent one (SilentReport) is only built; any other is shown in a new window, and then
    /// the program ends if the test says so, nobody objects, and nothing is lost that way without a question. A report
    /// that can't be built (its total leaves 16 bits) is refused by a message box.
    ReportOutcome Run();

    /// Shows the report built last in a window of its own.
    void ShowReport();

  private:
    bool EndsProgram();

    Session& session_;
    Prompts& prompts_;
    const Clock& clock_;
    Navigator& navigator_;
};
