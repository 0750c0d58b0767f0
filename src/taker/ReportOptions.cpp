#include "taker/ReportOptions.h"

const QList<OptionBox>& ReportOptionBoxes() {
    static const QList<OptionBox> boxes = {
        {ReportTitle, QStringLiteral("Report Title"), OptionFrame::General},
        {ReportIntroduction, QStringLiteral("Report Introduction"), OptionFrame::General},
        {ReportInstructions, QStringLiteral("Report Instructions"), OptionFrame::General},
        {ReportDateAndTime, QStringLiteral("Report Date and Time Completed"), OptionFrame::General},
        {ReportMultichoiceAnswers, QStringLiteral("Report Multichoice Answers"), OptionFrame::Questions},
        {ReportShortAnswers, QStringLiteral("Report Short Answers"), OptionFrame::Questions},
        {ReportLongAnswers, QStringLiteral("Report Long Answers"), OptionFrame::Questions},
        {ReportQuestions, QStringLiteral("Report Question"), OptionFrame::Questions},
        {ReportQuestionsCompleted, QStringLiteral("Report Number of Questions Completed"), OptionFrame::Questions},
        {ReportAnalysis, QStringLiteral("Report Analysis"), OptionFrame::Scoring},
        {ReportSubscales, QStringLiteral("Report Sub-scale Scores"), OptionFrame::Scoring},
        {ReportTotalScore, QStringLiteral("Report Total Score"), OptionFrame::Scoring},
    };
    return boxes;
}

const QList<OptionBox>& PromptOptionBoxes() {
    static const QList<OptionBox> boxes = {
        {PromptClientName, QStringLiteral("Client's Name"), OptionFrame::Prompts},
        {PromptTesterName, QStringLiteral("Tester's Name"), OptionFrame::Prompts},
    };
    return boxes;
}

bool ScoringMatters(const TestDocument& test) { return SummaryOf(test).HasMultichoice; }

bool OptionMatters(const TestDocument& test, Option option) {
    switch (option) {
    case ReportTitle:
        return !test.TestTitle.isEmpty();
    case ReportIntroduction:
        return !test.TestIntroduction.isEmpty();
    case ReportInstructions:
        return !test.TestInstructions.isEmpty();
    case ReportMultichoiceAnswers:
    case ReportTotalScore:
    case ReportAnalysis:
        return ScoringMatters(test);
    case ReportSubscales:
        return ScoringMatters(test) && test.SubscaleCount >= 1;
    case ReportShortAnswers:
        return SummaryOf(test).HasShortAnswer;
    case ReportLongAnswers:
        return SummaryOf(test).HasLongAnswer;
    default:
        return true;
    }
}

void TakeTicks(TestDocument& test, const OptionTicks& ticks) {
    for (const auto& [option, ticked] : ticks)
        test.TestOption(option) = ticked;
}
