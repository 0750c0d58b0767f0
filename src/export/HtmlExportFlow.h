#pragma once

#include "export/HtmlPage.h"
#include "platform/Launcher.h"
#include "platform/Prompts.h"
#include "platform/SettingsStore.h"
#include "taker/Session.h"

/// What the export as a web page works with.
struct HtmlExportParts {
    Session& Run;
    Prompts& Boxes;
    Launcher& Programs;
    SettingsStore& Store;
    /// Where a template without a folder is looked for.
    QString ProgramFolder;
};

/// What the person filled in.
struct HtmlExportForm {
    QString TargetPath;
    /// An existing page to put the test into; "" for none.
    QString HostPath;
    InsertionPoint Point;
};

/// The two files that are looked for by a button each, with a folder that the settings remember.
enum class HtmlFile { Target, Host };

/// The export of the test in memory as a web page: what is asked, what is written, and where.
class HtmlExportFlow {
  public:
    explicit HtmlExportFlow(HtmlExportParts parts) : parts_(std::move(parts)) {}

    /// What the template says about itself; "" when it says nothing, and a sentence when it can't be read.
    QString Description();

    /// The file that is meant by what was typed as the target: a name without an extension gets ".html", unless there
    /// is a file or folder of just that name.
    static QString TargetOf(const QString& typed);

    /// Writes the page and shows it in the browser. False when the window stays open: the person has to correct
    /// something, which a message has told, or chose not to go on; nothing was written then. A page without the test,
    /// as a template that fails gives it, is written only where there is no file yet.
    bool Export(const HtmlExportForm& form);

    /// Makes the folder that is remembered for the file the current one, when there is one.
    void GoToFolderOf(HtmlFile file) const;
    /// Remembers, for now and for the next time, the folder of the file that was chosen; when none was, the current
    /// one.
    void RememberFolderOf(HtmlFile file, const QString& path);

  private:
    enum class Mode { Stop, NewPage, IntoHost, IntoTarget };

    bool Generate();
    Mode ChooseMode(const HtmlExportForm& form);
    Mode AskExisting(const HtmlExportForm& form);
    PromptAnswer Ask(const QString& text, PromptAnswer byDefault);
    bool Insert(const HtmlExportForm& form, const QString& hostPath, HostPage& page);

    HtmlExportParts parts_;
};
