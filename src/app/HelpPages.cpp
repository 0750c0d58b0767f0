#include "app/HelpPages.h"

QString HelpPageOf(HelpTopic topic) {
    switch (topic) {
    case HelpTopic::StartScreen:
        return QStringLiteral("start-screen.html");
    case HelpTopic::TestWindow:
        return QStringLiteral("test-window.html");
    case HelpTopic::Names:
        return QStringLiteral("names.html");
    case HelpTopic::AutoReport:
        return QStringLiteral("automatic-report.html");
    case HelpTopic::TestOptions:
        return QStringLiteral("test-options.html");
    case HelpTopic::GeneralOptions:
        return QStringLiteral("general-options.html");
    case HelpTopic::ReportEditor:
        return QStringLiteral("report-editor.html");
    case HelpTopic::SpreadsheetExport:
        return QStringLiteral("spreadsheet-export.html");
    case HelpTopic::About:
        return QStringLiteral("results.html");
    case HelpTopic::Editor:
        return QStringLiteral("editor.html");
    case HelpTopic::EditorAboutTest:
        return QStringLiteral("editor-about-test.html");
    case HelpTopic::EditorSubscales:
        return QStringLiteral("editor-sub-scales.html");
    case HelpTopic::EditorTemplate:
        return QStringLiteral("editor-template.html");
    case HelpTopic::EditorQuestions:
        return QStringLiteral("editor-questions.html");
    case HelpTopic::EditorAnalysis:
        return QStringLiteral("editor-analysis.html");
    case HelpTopic::EditorOptions:
        return QStringLiteral("editor-options.html");
    case HelpTopic::EditorAutomation:
        return QStringLiteral("editor-automation.html");
    case HelpTopic::EditorExport:
        return QStringLiteral("editor-export.html");
    case HelpTopic::HtmlExport:
        return QStringLiteral("html-export.html");
    }
    return HelpIndexPage;
}
