#pragma once

#include "app/ProgramStart.h"
#include "app/ui/HelpWindow.h"
#include "app/ui/Loading_Test.h"
#include "editor/Recovery.h"
#include "editor/ui/frmTestEditor.h"
#include "platform/Navigator.h"
#include "taker/ui/FrmTest.h"
#include "textedit/ui/frmEdit.h"

#include <QList>
#include <QPointer>

#include <functional>

/// The parts that the windows of the program are made of. All of them outlive the navigator. The exporter may be
/// missing; the windows then say that the function isn't there.
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
    /// Where copies of unsaved tests are kept; without a name none is.
    QString RecoveryFolder = {};
    /// The file that says which tests may act by themselves; without a name nothing outlives the run.
    QString TrustFile = {};
    /// The hashes of the samples that come with the program.
    QStringList SampleHashes = {};
    SpreadsheetExporter* Exporter = nullptr;
};

/// Makes and shows the windows of the program, and owns them.
class AppNavigator : public Navigator {
  public:
    explicit AppNavigator(AppParts parts);
    ~AppNavigator() override;
    AppNavigator(const AppNavigator&) = delete;
    AppNavigator& operator=(const AppNavigator&) = delete;

    /// The start of the program: the start screen, or the test of the command line; without one, an offer to go on with
    /// a test that an earlier run left unsaved.
    void Start();

    void ShowStartScreen() override;
    bool CloseAllAndShowStartScreen() override;
    bool BeginLoadedTest() override;
    bool AskNames(const QString& caption) override;
    void ShowGeneralOptions() override;
    void ShowText(const QString& text, const QString& caption, TextKind kind) override;
    void ShowHelp(HelpTopic topic) override;
    void ShowAbout() override;
    bool EditTest() override;
    bool EditNewTest() override;
    void ExportHtml() override;
    void EndProgram() override;

    /// Hands in the exporter, whose own windows need this navigator. It outlives the navigator's windows.
    void UseExporter(SpreadsheetExporter& exporter) { parts_.Exporter = &exporter; }

    /// The windows now open, the start screen and the test window first; null where there is none.
    Loading_Test* StartScreen() const { return startScreen_; }
    FrmTest* TestWindow() const { return testWindow_; }
    frmTestEditor* Editor() const { return editor_; }
    QList<frmEdit*> Reports() const;
    HelpWindow* Help() const { return help_; }

  private:
    frmTestEditor* MakeEditor();
    bool OpenEditor();
    /// Whoever saves a test in the editor has read it, or wrote it.
    void AllowOwnTest(const QString& path);
    /// False when there is no such test, or the person doesn't want to go on with it now.
    bool OfferLeftTest();
    QWidgetList OwnWindows() const;

    AppParts parts_;
    Recovery copies_;
    TrustedTests trusted_;
    bool ended_ = false;
    QPointer<Loading_Test> startScreen_;
    QPointer<FrmTest> testWindow_;
    QPointer<frmTestEditor> editor_;
    QPointer<HelpWindow> help_;
    QList<QPointer<frmEdit>> reports_;
};
