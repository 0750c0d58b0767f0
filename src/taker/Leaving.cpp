#include "taker/Leaving.h"

#include "base/Text.h"
#include "taker/Answers.h"
#include "taker/Scoring.h"

#include <QScopeGuard>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace {

/// A test may have fifty sub-scales; the line has to stay readable.
constexpr qsizetype MostScalesNamed = 5;

const QString LeaveTitle = QStringLiteral("Leave the Test");

bool UsesAny(const TestDocument& test, std::initializer_list<Option> options) {
    return std::ranges::any_of(options, [&](Option option) { return test.TestOption(option); });
}

bool ReportNamesEarlierClient(const Session& session) {
    return session.Filed.ReportClient != session.ClientName &&
           UsesAny(session.Test, {PromptClientName, AutosaveReportAsClient, AutosaveReportDirectoryAsClient});
}

bool RowNamesEarlierClient(const Session& session) {
    return session.Filed.WorkbookClient != session.ClientName &&
           UsesAny(session.Test,
                   {IncludeClientNameInExcel, AutosaveExcelDirectoryAsClient, AutosaveExcelReportAsClient});
}

bool InReportFile(const Session& session) {
    return !session.Filed.ReportPath.isEmpty() && session.Filed.Report.SameAnswers(session.Responses) &&
           !ReportNamesEarlierClient(session);
}

bool InWorkbook(const Session& session) {
    return !session.SpreadsheetFilePath.isEmpty() && session.Filed.Workbook.SameAnswers(session.Responses) &&
           !RowNamesEarlierClient(session);
}

/// What a file holds that isn't up to date, for a sentence about it.
QString HoldsEarlier(const Session& session, const ResponseSet& filed) {
    return filed.SameAnswers(session.Responses) ? QStringLiteral("' is for the client's earlier name.")
                                                : QStringLiteral("' holds earlier answers.");
}

bool OnScreen(const Session& session) {
    return session.Filed.Shown && session.Filed.Shown->SameAnswers(session.Responses);
}

/// In some file, be it under another name.
bool AnswersAreSaved(const Session& session) {
    const FiledAnswers& filed = session.Filed;
    return (!filed.ReportPath.isEmpty() && filed.Report.SameAnswers(session.Responses)) ||
           (!session.SpreadsheetFilePath.isEmpty() && filed.Workbook.SameAnswers(session.Responses));
}

QString DraftsSentence(const Session& session) {
    return QStringLiteral("The text typed for ") + QuestionsWithDrafts(session.Responses) +
           QStringLiteral(" was not accepted and would be lost.");
}

QString WhatWouldBeLost(const Session& session, LeavingLoses loses) {
    const ResponseSet& responses = session.Responses;
    const QString drafts = responses.Drafts.empty() ? QString() : u'\n' + DraftsSentence(session);
    switch (loses) {
    case LeavingLoses::Nothing:
        return {};
    case LeavingLoses::Drafts:
        return DraftsSentence(session);
    case LeavingLoses::Answers:
        return QStringLiteral(
                   "This test is not completed. If you leave it now, the answers given so far (%1 of %2) are "
                   "lost.")
                   .arg(AnsweredCount(session.Test, responses))
                   .arg(session.Test.QuestionCount) +
               drafts;
    case LeavingLoses::Result:
        break;
    }
    const QString earlier = session.Filed.ReportPath.isEmpty() ? session.SpreadsheetFilePath : session.Filed.ReportPath;
    if (earlier.isEmpty())
        return QStringLiteral("The answers to this test are in no report and in no workbook. If you leave it now, they "
                              "are lost.") +
               drafts;
    const QString changed = AnswersAreSaved(session)
                                ? QStringLiteral("The client's name was changed after the answers were saved in '")
                                : QStringLiteral("Answers were changed after they were saved in '");
    return changed + earlier + QStringLiteral("'. If you leave the test now, the changes are lost.") + drafts;
}

/// The scales of the row that have unanswered questions, each with what is answered; empty when there is none.
QString IncompleteScores(const Session& session) {
    const TestDocument& test = session.Test;
    const std::vector<Completeness> scales = CompletenessOf(test, session.Responses);
    QStringList incomplete;
    const auto add = [&](const QString& name, const Completeness& scale) {
        if (scale.Incomplete())
            incomplete += name + u' ' + scale.Text();
    };
    if (test.TestOption(IncludeTotalScoreInExcel))
        add(QStringLiteral("total"), scales[0]);
    for (int s = 1; s <= test.SubscaleCount && test.TestOption(IncludeSubscalesInExcel); ++s)
        add(Quoted(test.SubscaleName(s)), scales[static_cast<size_t>(s)]);
    if (incomplete.size() > MostScalesNamed)
        incomplete = incomplete.first(MostScalesNamed)
                     << QStringLiteral("and %1 more").arg(incomplete.size() - MostScalesNamed);
    return incomplete.join(QStringLiteral(", "));
}

} // namespace

QStringList FilingLines(const Session& session) {
    QStringList lines;
    const FiledAnswers& filed = session.Filed;
    const bool buttons = !session.Test.TestOption(DisableAllOptions);
    if (InReportFile(session))
        lines += QStringLiteral("The report was saved in '") + filed.ReportPath + u'\'';
    else if (!filed.ReportPath.isEmpty())
        lines += QStringLiteral("The report in '") + filed.ReportPath + HoldsEarlier(session, filed.Report) +
                 (buttons ? QStringLiteral(" 'Auto-Report' writes a new one.") : QString());
    if (InWorkbook(session)) {
        lines += QStringLiteral("The results were added to '") + session.SpreadsheetFilePath + u'\'';
        if (const QString scores = IncompleteScores(session); !scores.isEmpty())
            lines += QStringLiteral("Scores of the row that are not complete: ") + scores;
    } else if (!session.SpreadsheetFilePath.isEmpty())
        lines += QStringLiteral("The row in '") + session.SpreadsheetFilePath + HoldsEarlier(session, filed.Workbook) +
                 (buttons ? QStringLiteral(" 'Export' adds a new one.") : QString());
    return lines;
}

Result ExportResults(SpreadsheetExporter& exporter, Session& session) {
    const QString earlier = std::exchange(session.SpreadsheetFilePath, QString());
    const auto noted = qScopeGuard([&] {
        if (session.SpreadsheetFilePath.isEmpty()) {
            session.SpreadsheetFilePath = earlier;
        } else {
            session.Filed.Workbook = session.Responses;
            session.Filed.WorkbookClient = session.ClientName;
        }
    });
    return exporter.Export(session);
}

LeavingLoses WhatLeavingLoses(const Session& session) {
    const ResponseSet& responses = session.Responses;
    const bool answers = AnsweredCount(session.Test, responses) > 0;
    if (!responses.TestCompleted)
        return answers || !responses.Drafts.empty() ? LeavingLoses::Answers : LeavingLoses::Nothing;
    if (answers && !InReportFile(session) && !InWorkbook(session) && !OnScreen(session))
        return LeavingLoses::Result;
    return responses.Drafts.empty() ? LeavingLoses::Nothing : LeavingLoses::Drafts;
}

LeaveAnswer AskToLeave(const Session& session, Prompts& prompts) {
    const LeavingLoses loses = WhatLeavingLoses(session);
    if (loses == LeavingLoses::Nothing)
        return LeaveAnswer::Leave;
    ChoicePrompt prompt{
        WhatWouldBeLost(session, loses),
        {{QStringLiteral("&Discard"), ChoiceRole::Discard}, {QStringLiteral("&Cancel"), ChoiceRole::Reject}},
        1,
        1,
        LeaveTitle};
    if (loses == LeavingLoses::Result)
        prompt.Choices.push_back({QStringLiteral("&Make Report"), ChoiceRole::Accept});
    switch (prompts.Choose(prompt)) {
    case 0:
        return LeaveAnswer::Leave;
    case 2:
        return LeaveAnswer::MakeReport;
    default:
        return LeaveAnswer::Stay;
    }
}

bool AskToEndProgram(const Session& session, Prompts& prompts) {
    if (AnsweredCount(session.Test, session.Responses) == 0 || InReportFile(session) || InWorkbook(session))
        return true;
    return prompts.Choose(
               {QStringLiteral("The report on the screen is not saved. If Vellumo ends now, it is lost, and "
                               "the answers with it."),
                {{QStringLiteral("&Discard"), ChoiceRole::Discard}, {QStringLiteral("&Cancel"), ChoiceRole::Reject}},
                1,
                1}) == 0;
}

DraftsDecision AskAboutDrafts(const Session& session, Prompts& prompts) {
    const QString questions = QuestionsWithDrafts(session.Responses);
    constexpr DraftsDecision decisions[] = {DraftsDecision::Accept, DraftsDecision::GoBack, DraftsDecision::Leave};
    const int chosen = prompts.Choose(
        {QStringLiteral("What was typed for ") + questions +
             QStringLiteral(
                 " was not accepted, so it doesn't count as an answer.\n\n'Accept' makes it count. 'Go Back' "
                 "shows question ") +
             QString::number(session.Responses.Drafts.begin()->first) +
             QStringLiteral(". 'Leave It' completes the test without it; an answer accepted earlier counts."),
         {{QStringLiteral("&Accept"), ChoiceRole::Accept},
          {QStringLiteral("&Go Back"), ChoiceRole::Reject},
          {QStringLiteral("&Leave It"), ChoiceRole::Discard}},
         0,
         1,
         QStringLiteral("Typed, but Not Accepted")});
    return decisions[chosen];
}
