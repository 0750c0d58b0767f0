#pragma once

#include "settings/Settings.h"
#include "taker/ResponseSet.h"
#include "testdoc/TestDocument.h"

#include <functional>
#include <optional>
#include <utility>

/// What was made of the current administration's answers, each with the answers and the client's name that went into
/// it.
struct FiledAnswers {
    /// Full path of the report file written last; empty for none.
    QString ReportPath;
    ResponseSet Report;
    QString ReportClient;
    ResponseSet Workbook;
    QString WorkbookClient;
    /// The answers of the report that was shown last. Its window asks by itself before it drops an unsaved one.
    std::optional<ResponseSet> Shown;
};

/// Everything that one run of the program holds: the one test, the settings, the current administration, and the values
/// that live as long as the run. Made once by the program and handed on by reference.
struct Session {
    TestDocument Test;
    Settings UserSettings;
    ResponseSet Responses;

    /// The client of the administration that is running; "" for none.
    QString ClientName;
    /// The client's name that was given for the next administration; "" for none.
    QString NextClientName;
    /// The name given last. It is offered in the names window, and is nobody's name until that is answered.
    QString KeptClientName;
    QString AdministratorName;
    bool NamesCancelled = false;

    QString ReportText;
    QString ReportFilePath;
    bool AutoReportDone = false;
    bool SpreadsheetExported = false;
    /// The full path of the workbook that this administration's results went to last; empty when they went to none.
    QString SpreadsheetFilePath;
    /// Is told of each file that an administration makes, with its path; may be empty.
    std::function<void(const QString& path)> FileMade;
    FiledAnswers Filed;

    /// The export as a web page: the template, and what is filled in for its "[EMAIL]" and "[NEXT PAGE]". They begin as
    /// the settings say and may then be changed for the rest of the run.
    QString HtmlTemplatePath;
    QString HtmlEmailAddress;
    QString HtmlNextPage;
    /// The language that the page declares, as a tag of BCP 47; "" for the system's.
    QString HtmlLanguage;
    /// The page generated last; "" when that failed.
    QString GeneratedHtml;
    /// What ends a multichoice question in a page. A template without it leaves that of the template before.
    QString ClosingPart;
};

/// An administration begins: its client is the one named for it, and whoever comes after has to be named anew.
inline void TakeNextClient(Session& session) { session.ClientName = std::exchange(session.NextClientName, QString()); }

/// Lets the values of the web page's export begin as the settings say.
inline void TakeHtmlSettings(Session& session) {
    session.HtmlTemplatePath = session.UserSettings.HtmlTemplatePath;
    session.HtmlEmailAddress = session.UserSettings.DefaultEmail;
    session.HtmlNextPage = session.UserSettings.DefaultNextPage;
    session.HtmlLanguage = session.UserSettings.HtmlLanguage;
}

/// The same for those that differ from earlier settings; what was changed for the run alone stays.
inline void TakeChangedHtmlSettings(Session& session, const Settings& earlier) {
    const Settings& now = session.UserSettings;
    if (now.HtmlTemplatePath != earlier.HtmlTemplatePath)
        session.HtmlTemplatePath = now.HtmlTemplatePath;
    if (now.DefaultEmail != earlier.DefaultEmail)
        session.HtmlEmailAddress = now.DefaultEmail;
    if (now.DefaultNextPage != earlier.DefaultNextPage)
        session.HtmlNextPage = now.DefaultNextPage;
    if (now.HtmlLanguage != earlier.HtmlLanguage)
        session.HtmlLanguage = now.HtmlLanguage;
}
