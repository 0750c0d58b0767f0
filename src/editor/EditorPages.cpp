#include "editor/EditorPages.h"

#include <array>

const EditorPageInfo& InfoOf(EditorPage page) {
    static const std::array<EditorPageInfo, EditorPageCount> infos{{
        {QStringLiteral("About Test"), QStringLiteral("General information about test"), HelpTopic::EditorAboutTest},
        {QStringLiteral("Sub-Scales"), {}, HelpTopic::EditorSubscales},
        {QStringLiteral("Template"), {}, HelpTopic::EditorTemplate},
        {QStringLiteral("Questions"), {}, HelpTopic::EditorQuestions},
        {QStringLiteral("Analysis"), {}, HelpTopic::EditorAnalysis},
        {QStringLiteral("Options"), {}, HelpTopic::EditorOptions},
        {QStringLiteral("Automation"), {}, HelpTopic::EditorAutomation},
        {QStringLiteral("Export"), {}, HelpTopic::EditorExport},
    }};
    return infos.at(static_cast<size_t>(page));
}

EditorPage PageOf(const TestPlace& place) {
    switch (place.What) {
    case TestPlace::Whole:
    case TestPlace::Question:
    case TestPlace::Answer:
        return EditorPage::Questions;
    case TestPlace::Title:
    case TestPlace::Introduction:
    case TestPlace::Instructions:
    case TestPlace::CompletionMessage:
        return EditorPage::AboutTest;
    case TestPlace::Subscale:
    case TestPlace::SubscaleRange:
        return EditorPage::Subscales;
    case TestPlace::TotalRange:
        return EditorPage::Analysis;
    case TestPlace::TemplateAnswer:
        return EditorPage::Template;
    case TestPlace::ReportDirectory:
    case TestPlace::AutosaveFileName:
        return EditorPage::Automation;
    case TestPlace::ExcelDirectory:
    case TestPlace::ExcelFileName:
        return EditorPage::Export;
    }
    return EditorPage::AboutTest;
}
