#pragma once

#include "platform/Launcher.h"
#include "taker/AutoReport.h"
#include "taker/ReportFlow.h"
#include "taker/ReportOptions.h"

#include <functional>

/// The boxes of the automatic report's dialog that concern the file itself.
const QList<OptionBox>& ReportFileBoxes();

/// The rules of the dialog that asks before an automatic report is written. Making one is its opening: until it is
/// accepted, nothing will be written.
class AutoReportForm {
  public:
    AutoReportForm(Session& session, Prompts& prompts);

    /// The path that the box holds at first.
    QString FilePath() const { return filePath_; }
    /// Whether the note that a report exists already is seen.
    bool AlreadyReported() const { return session_.AutoReportDone; }

    /// False, and nothing is taken, when no report can be written to that path, which a message explains, or when the
    /// person doesn't want the file there to be replaced.
    bool Accept(const QString& filePath, const OptionTicks& ticks);
    void Cancel();

  private:
    bool MayReplace(const QString& filePath);

    Session& session_;
    Prompts& prompts_;
    QString filePath_;
};

/// The automatic report: finds its file, asks when it must, builds the report and writes it.
class AutoReportFlow {
  public:
    /// Shows the dialog and waits for it.
    using AskFunction = std::function<void(AutoReportForm& form)>;

    AutoReportFlow(Session& session, Prompts& prompts, const Clock& clock, Launcher& launcher, Navigator& navigator)
        : session_(session), prompts_(prompts), launcher_(launcher), report_(session, prompts, clock, navigator) {}

    /// Names that are no whole paths count from the working directory, which is the current one afterwards. Only a
    /// report that was written counts as done, and the session then knows its path and the answers in it. A report that
    /// can't be written is shown in a window instead; the message then says which file and why, and so it does when the
    /// editor can't be started.
    Result Run(const AskFunction& ask);

  private:
    Result Write(const QString& found);

    Session& session_;
    Prompts& prompts_;
    Launcher& launcher_;
    ReportFlow report_;
};
