#include "support/RecordingNavigator.h"

bool RecordingNavigator::CloseAllAndShowStartScreen() {
    Note(QStringLiteral("CloseAllAndShowStartScreen"));
    return CloseAllAnswer;
}

bool RecordingNavigator::BeginLoadedTest() {
    Note(QStringLiteral("BeginLoadedTest"));
    return BeginAnswer;
}

bool RecordingNavigator::AskNames(const QString& caption) {
    Note(QStringLiteral("AskNames(%1)").arg(caption));
    return AskNamesAnswer;
}

void RecordingNavigator::ShowText(const QString& text, const QString& caption, TextKind kind) {
    ShownTexts.append(text);
    LastKind = kind;
    Note(QStringLiteral("ShowText(%1)").arg(caption));
}

void RecordingNavigator::ShowHelp(HelpTopic topic) { Note(QStringLiteral("ShowHelp(%1)").arg(NameOf(topic))); }

bool RecordingNavigator::EditTest() {
    Note(QStringLiteral("EditTest"));
    return EditAnswer;
}

bool RecordingNavigator::EditNewTest() {
    Note(QStringLiteral("EditNewTest"));
    return EditAnswer;
}

QString RecordingNavigator::NameOf(HelpTopic topic) {
    switch (topic) {
    case HelpTopic::StartScreen:
        return QStringLiteral("StartScreen");
    case HelpTopic::TestWindow:
        return QStringLiteral("TestWindow");
    case HelpTopic::Names:
        return QStringLiteral("Names");
    case HelpTopic::AutoReport:
        return QStringLiteral("AutoReport");
    case HelpTopic::TestOptions:
        return QStringLiteral("TestOptions");
    case HelpTopic::GeneralOptions:
        return QStringLiteral("GeneralOptions");
    case HelpTopic::ReportEditor:
        return QStringLiteral("ReportEditor");
    case HelpTopic::SpreadsheetExport:
        return QStringLiteral("SpreadsheetExport");
    case HelpTopic::About:
        return QStringLiteral("About");
    case HelpTopic::Editor:
        return QStringLiteral("Editor");
    case HelpTopic::EditorAboutTest:
        return QStringLiteral("EditorAboutTest");
    case HelpTopic::EditorSubscales:
        return QStringLiteral("EditorSubscales");
    case HelpTopic::EditorTemplate:
        return QStringLiteral("EditorTemplate");
    case HelpTopic::EditorQuestions:
        return QStringLiteral("EditorQuestions");
    case HelpTopic::EditorAnalysis:
        return QStringLiteral("EditorAnalysis");
    case HelpTopic::EditorOptions:
        return QStringLiteral("EditorOptions");
    case HelpTopic::EditorAutomation:
        return QStringLiteral("EditorAutomation");
    case HelpTopic::EditorExport:
        return QStringLiteral("EditorExport");
    case HelpTopic::HtmlExport:
        return QStringLiteral("HtmlExport");
    }
    return {};
}

void RecordingNavigator::Note(const QString& call) {
    Calls.append(call);
    if (Meanwhile)
        Meanwhile(call);
}
