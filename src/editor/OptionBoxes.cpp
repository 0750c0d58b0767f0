#include "editor/OptionBoxes.h"

const std::array<EditorOptionBox, OptionCount>& EditorOptionBoxes() {
    using enum EditorOptionFrame;
    static const std::array<EditorOptionBox, OptionCount> boxes{{
        {ReportTitle, QStringLiteral("Report Title"), General},
        {ReportIntroduction, QStringLiteral("Report Introduction"), General},
        {ReportInstructions, QStringLiteral("Report Instructions"), General},
        {ReportMultichoiceAnswers, QStringLiteral("Report Multichoice Answers"), Questions},
        {ReportSubscales, QStringLiteral("Report Sub-scale Scores"), Scoring},
        {ReportTotalScore, QStringLiteral("Report Total Score"), Scoring},
        {ReportQuestionsCompleted, QStringLiteral("Report Number of Questions Completed"), Questions},
        {ReportDateAndTime, QStringLiteral("Report Date and Time Completed"), General},
        {ReportAnalysis, QStringLiteral("Report Analysis"), Scoring},
        {PromptClientName, QStringLiteral("Client's Name"), Prompts},
        {PromptTesterName, QStringLiteral("Tester's Name"), Prompts},
        {ReportShortAnswers, QStringLiteral("Report Short Answers"), Questions},
        {ReportLongAnswers, QStringLiteral("Report Long Answers"), Questions},
        {ReportQuestions, QStringLiteral("Report Question"), Questions},
        {DisableAllOptions, QStringLiteral("Disable all options during test"), Automation},
        {UpdateFilesWithoutPrompting, QStringLiteral("Update all files without prompting"), Automation},
        {TerminateWhenCompleted, QStringLiteral("Terminate program when test completed"), Automation},
        {AutosaveReportAsClient, QStringLiteral("Save report as client name"), AutomaticReporting},
        {AutosaveReportDirectoryAsClient, QStringLiteral("Create sub-directory as client's name"), AutomaticReporting},
        {AutosaveExcelDirectoryAsClient, QStringLiteral("Create sub-directory as client's name"), Directories},
        {AutosaveExcelReportAsClient, QStringLiteral("Save Excel file as client's name"), FileName},
        {OpenExcelReportWhenCompleted, QStringLiteral("Open Report When Created"), IncludeInExport},
        {AppendToReportFile, QStringLiteral("Append to file (leave un-checked to create new file each time)"),
         AutomaticReporting},
        {OpenReportWhenCompleted, QStringLiteral("Open report when created"), AutomaticReporting},
        {IncludeMultichoiceAnswersInExcel, QStringLiteral("Multichoice Answers"), IncludeInExport},
        {IncludeShortAnswersInExcel, QStringLiteral("Short Answers"), IncludeInExport},
        {IncludeLongAnswersInExcel, QStringLiteral("Long Answers"), IncludeInExport},
        {IncludeClientNameInExcel, QStringLiteral("Client Name"), IncludeInExport},
        {IncludeDateInExcel, QStringLiteral("Date of Test"), IncludeInExport},
        {IncludeSubscalesInExcel, QStringLiteral("Sub-scales"), IncludeInExport},
        {IncludeTotalScoreInExcel, QStringLiteral("Total Score"), IncludeInExport},
    }};
    return boxes;
}

QString CaptionOf(EditorOptionFrame frame) {
    switch (frame) {
    case EditorOptionFrame::General:
        return QStringLiteral("General");
    case EditorOptionFrame::Questions:
        return QStringLiteral("Questions");
    case EditorOptionFrame::Scoring:
        return QStringLiteral("Scoring");
    case EditorOptionFrame::Prompts:
        return QStringLiteral("Prompts");
    case EditorOptionFrame::Automation:
        return QStringLiteral("Automation");
    case EditorOptionFrame::AutomaticReporting:
        return QStringLiteral("Automatic Reporting");
    case EditorOptionFrame::IncludeInExport:
        return QStringLiteral("Include In Export");
    case EditorOptionFrame::FileName:
        return QStringLiteral("File Name");
    case EditorOptionFrame::Directories:
        return QStringLiteral("Directories");
    }
    return {};
}

EditorOptionPage PageOf(EditorOptionFrame frame) {
    switch (frame) {
    case EditorOptionFrame::General:
    case EditorOptionFrame::Questions:
    case EditorOptionFrame::Scoring:
    case EditorOptionFrame::Prompts:
        return EditorOptionPage::Options;
    case EditorOptionFrame::Automation:
    case EditorOptionFrame::AutomaticReporting:
        return EditorOptionPage::Automation;
    case EditorOptionFrame::IncludeInExport:
    case EditorOptionFrame::FileName:
    case EditorOptionFrame::Directories:
        return EditorOptionPage::Export;
    }
    return EditorOptionPage::Options;
}

bool EditorOptionEnabled(const TestDocument& test, Option option) {
    switch (option) {
    case AutosaveReportAsClient:
    case AutosaveReportDirectoryAsClient:
    case AutosaveExcelDirectoryAsClient:
    case AutosaveExcelReportAsClient:
        return test.TestOption(PromptClientName);
    default:
        return true;
    }
}
