#pragma once

#include <QString>

/// The topics of the help window, by the name of their page.
enum class HelpTopic {
    StartScreen,
    TestWindow,
    Names,
    AutoReport,
    TestOptions,
    GeneralOptions,
    ReportEditor,
    SpreadsheetExport,
    About,
    Editor,
    EditorAboutTest,
    EditorSubscales,
    EditorTemplate,
    EditorQuestions,
    EditorAnalysis,
    EditorOptions,
    EditorAutomation,
    EditorExport,
    HtmlExport,
};

/// What a text in a report window is: a report is asked about when it was never saved, what is only read isn't.
enum class TextKind { Reading, Report };

/// How a window gets to the other windows. A window asks here and never makes another subsystem's window itself.
class Navigator {
  public:
    virtual ~Navigator() = default;

    /// Shows the start screen anew, its list made again.
    virtual void ShowStartScreen() = 0;
    /// Closes every window of the program, reports included, and shows the start screen. False when the person chose
    /// to stay in one of them.
    virtual bool CloseAllAndShowStartScreen() = 0;
    /// The test window on the loaded test, unless it has no questions; then a message says so. False when it stayed
    /// closed.
    virtual bool BeginLoadedTest() = 0;
    /// The names window, modally. False when it was left with Cancel.
    virtual bool AskNames(const QString& caption) = 0;
    /// The general options, modally.
    virtual void ShowGeneralOptions() = 0;
    /// A new report window that blocks nothing.
    virtual void ShowText(const QString& text, const QString& caption, TextKind kind = TextKind::Reading) = 0;
    virtual void ShowHelp(HelpTopic topic) = 0;
    virtual void ShowAbout() = 0;

    /// The editor on the file of the test in memory, or on a new, empty test. False when it stayed closed, which a
    /// message has then explained.
    virtual bool EditTest() = 0;
    virtual bool EditNewTest() = 0;
    /// The export of the test in memory as a web page.
    virtual void ExportHtml() = 0;

    /// Ends the program without further questions.
    virtual void EndProgram() = 0;
};
