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
    case HelpTopic::About:
        return QStringLiteral("results.html");
    }
    return HelpIndexPage;
}
