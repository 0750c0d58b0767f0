#include "taker/ReportFlow.h"

#include "taker/Leaving.h"

ReportContext ReportContextOf(const Session& session, const QDateTime& now) {
    return {.ClientName = session.ClientName,
            .AdministratorName = session.AdministratorName,
            .QuestionPrefix = session.UserSettings.QuestionPrefix,
            .QuestionSuffix = session.UserSettings.QuestionSuffix,
            .BreakAfterQuestionNumber = session.UserSettings.BreakAfterQuestionNumber,
            .Now = now};
}

ReportOutcome ReportFlow::Run() {
    const bool silent = std::exchange(session_.Responses.SilentReport, false);
    session_.ReportText.clear();
    try {
        session_.ReportText = BuildReport(session_.Test, session_.Responses, ReportContextOf(session_, clock_.Now()));
    } catch (const Failure& failure) {
        prompts_.Inform(failure.Message());
        return ReportOutcome::Refused;
    }
    if (silent)
        return ReportOutcome::Built;
    ShowReport();
    if (!EndsProgram() || !AskToEndProgram(session_, prompts_))
        return ReportOutcome::Built;
    navigator_.EndProgram();
    return ReportOutcome::ProgramEnds;
}

void ReportFlow::ShowReport() {
    session_.Filed.Shown = session_.Responses;
    navigator_.ShowText(session_.ReportText, QStringLiteral("Report for ") + session_.Test.TestTitle, TextKind::Report);
}

bool ReportFlow::EndsProgram() {
    const TestDocument& test = session_.Test;
    if (!test.TestOption(TerminateWhenCompleted))
        return false;
    if (test.TestOption(UpdateFilesWithoutPrompting))
        return true;
    return prompts_.Ask({QStringLiteral("Report Completed - End Test Now?"),
                         {},
                         PromptButtons::OkCancel,
                         PromptIcon::Question}) != PromptAnswer::Cancel;
}
