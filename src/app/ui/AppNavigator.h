#pragma once

#include "app/EditorOpener.h"
#include "app/ProgramStart.h"
#include "app/ui/HelpWindow.h"
#include "app/ui/Loading_Test.h"
#include "platform/Navigator.h"
#include "taker/ui/FrmTest.h"
#include "textedit/ui/frmEdit.h"

#include <QList>
#include <QPointer>

#include <functional>

/// The parts that the windows of the program are made of. All of them outlive the navigator. The exporter and the
/// editor may be missing; the windows then say that the function isn't there.
struct AppParts {
    Session& Run;
    ProgramStart& Start;
    SettingsStore& Store;
    const DefaultFolders& Folders;
    const Clock& Time;
    Launcher& Programs;
    ReportPorts Ports;
    /// Leaves the program's event loop.
    std::function<void()> End;
    SpreadsheetExporter* Exporter = nullptr;
    EditorOpener* Editor = nullptr;
};

/// Makes and shows the windows of the program, and owns them.
class AppNavigator : public Navigator {
  public:
    explicit AppNavigator(AppParts parts) : parts_(std::move(parts)) {}
    ~AppNavigator() override;
    AppNavigator(const AppNavigator&) = delete;
    AppNavigator& operator=(const AppNavigator&) = delete;

    void ShowStartScreen() override;
    bool CloseAllAndShowStartScreen() override;
    bool BeginLoadedTest() override;
    bool AskNames(const QString& caption) override;
    void ShowGeneralOptions() override;
    void ShowText(const QString& text, const QString& caption) override;
    void ShowHelp(HelpTopic topic) override;
    void ShowAbout() override;
    bool EditTest() override;
    bool EditNewTest() override;
    void ExportHtml() override;
    void EndProgram() override;

    /// Whether the program is ending; an event loop need not be entered then.
    bool Ended() const { return ended_; }
    /// The windows now open, the start screen and the test window first; null where there is none.
    Loading_Test* StartScreen() const { return startScreen_; }
    FrmTest* TestWindow() const { return testWindow_; }
    QList<frmEdit*> Reports() const;
    HelpWindow* Help() const { return help_; }

  private:
    /// The editor, or nothing after a message that there is none.
    EditorOpener* EditorOrMessage();
    QWidgetList OwnWindows() const;

    AppParts parts_;
    bool ended_ = false;
    QPointer<Loading_Test> startScreen_;
    QPointer<FrmTest> testWindow_;
    QPointer<HelpWindow> help_;
    QList<QPointer<frmEdit>> reports_;
};
