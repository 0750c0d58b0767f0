#pragma once

#include <QString>

#include <array>

/// The option flags by their index in TestDocument::TestOption.
enum Option {
    ReportTitle = 1,
    ReportIntroduction = 2,
    ReportInstructions = 3,
    ReportMultichoiceAnswers = 4,
    ReportSubscales = 5,
    ReportTotalScore = 6,
    ReportQuestionsCompleted = 7,
    ReportDateAndTime = 8,
    ReportAnalysis = 9,
    PromptClientName = 10,
    PromptTesterName = 11,
    ReportShortAnswers = 12,
    ReportLongAnswers = 13,
    ReportQuestions = 14,
    DisableAllOptions = 15,
    UpdateFilesWithoutPrompting = 16,
    TerminateWhenCompleted = 17,
    AutosaveReportAsClient = 18,
    AutosaveReportDirectoryAsClient = 19,
    AutosaveExcelDirectoryAsClient = 20,
    AutosaveExcelReportAsClient = 21,
    OpenExcelReportWhenCompleted = 22,
    AppendToReportFile = 23,
    OpenReportWhenCompleted = 24,
    IncludeMultichoiceAnswersInExcel = 25,
    IncludeShortAnswersInExcel = 26,
    IncludeLongAnswersInExcel = 27,
    IncludeClientNameInExcel = 28,
    IncludeDateInExcel = 29,
    IncludeSubscalesInExcel = 30,
    IncludeTotalScoreInExcel = 31,
};

inline constexpr int OptionCount = 31;

/// The tags that stand for the options in a test file; option i has the tag at index i - 1.
const std::array<QString, OptionCount>& OptionTags();

inline const QString ReportOnlyWhenDoneTag = QStringLiteral("[REPORT ONLY WHEN DONE]");
inline const QString NavigationButtonsTag = QStringLiteral("[NAVIGATION BUTTONS]");
