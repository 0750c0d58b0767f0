#include "taker/AutoReportFlow.h"

#include "platform/Directories.h"

#include <QFileInfo>

const QList<OptionBox>& ReportFileBoxes() {
    static const QList<OptionBox> boxes = {
        {AppendToReportFile, QStringLiteral("Append to File"), OptionFrame::General},
        {OpenReportWhenCompleted, QStringLiteral("Open Report When Created"), OptionFrame::General},
    };
    return boxes;
}

AutoReportForm::AutoReportForm(Session& session)
    : session_(session), filePath_(std::exchange(session.ReportFilePath, NoReportFile)) {}

void AutoReportForm::Accept(const QString& filePath, const OptionTicks& ticks) {
    session_.ReportFilePath = filePath;
    TakeTicks(session_.Test, ticks);
}

void AutoReportForm::Cancel() { session_.ReportFilePath = NoReportFile; }

Result AutoReportFlow::Run(const AskFunction& ask) {
    const QString found = ReportPathFor(session_.Test, session_.ClientName, prompts_);
    session_.ReportFilePath = found;
    if (AutoReportAsks(session_)) {
        AutoReportForm form(session_);
        ask(form);
    }
    session_.Responses.SilentReport = true;
    const Result outcome = report_.Run() == ReportOutcome::Refused ? Result::Done() : Write(found);
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
    return outcome;
}

Result AutoReportFlow::Write(const QString& found) {
    QString& path = session_.ReportFilePath;
    if (path.isEmpty() || path == NoReportFile)
        return Result::Done();
    const TestDocument& test = session_.Test;
    const bool isNew = !QFileInfo::exists(path);
    const bool append = test.TestOption(AppendToReportFile);
    const auto nextPath = [&] { return ReportPathFor(session_.Test, session_.ClientName, prompts_); };
    // A name that nobody has chosen was free when it was found, and its file replaces none.
    const Result written = path == found && !append ? WriteNewReportFile(path, session_.ReportText, nextPath)
                                                    : WriteReportFile(path, session_.ReportText, append);
    if (!written) {
        report_.ShowReport();
        return written;
    }
    if (isNew && session_.FileMade)
        session_.FileMade(path);
    return test.TestOption(OpenReportWhenCompleted) ? launcher_.Open(session_.UserSettings.DefaultEditor, path)
                                                    : Result::Done();
}
