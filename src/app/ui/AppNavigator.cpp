#include "app/ui/AppNavigator.h"

#include "app/ui/AboutBox.h"
#include "editor/LeftTest.h"
#include "export/ui/DialogHTML.h"
#include "platform/ui/WindowInFront.h"
#include "settings/ui/frmOptions.h"
#include "taker/ui/frmClient.h"
#include "testdoc/TestParser.h"

#include <QApplication>

namespace {

const QString NamesCaption = QStringLiteral("Confirm Client & Test Administrator");

template <typename Window> Window* Owned(Window* window) {
    window->setAttribute(Qt::WA_DeleteOnClose);
    return window;
}

void BringUp(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

AppNavigator::AppNavigator(AppParts parts)
    : parts_(std::move(parts)),
      copies_(parts_.RecoveryFolder, parts_.Time),
      trusted_(parts_.TrustFile, parts_.SampleHashes) {
    parts_.Run.FileMade = [this](const QString& path) { trusted_.NoteMade(parts_.Run.Test.TestFileHash, path); };
}

AppNavigator::~AppNavigator() {
    parts_.Run.FileMade = {};
    // Destroying a window asks nothing and shows nothing.
    ended_ = true;
    qDeleteAll(OwnWindows());
}

void AppNavigator::Start() {
    ShowStartScreen();
    if (startScreen_ && startScreen_->isVisible() && OfferLeftTest())
        startScreen_->close();
}

void AppNavigator::ShowStartScreen() {
    if (ended_)
        return;
    // One that was closed is on its way out.
    if (!startScreen_ || !startScreen_->isVisible())
        startScreen_ = Owned(new Loading_Test({parts_.Run, parts_.Start, parts_.Store, parts_.Folders,
                                               parts_.Ports.Boxes, parts_.Ports.Files, *this, trusted_}));
    startScreen_->Form_Load();
    if (startScreen_->BeginFromCommandLine())
        return;
    BringUp(*startScreen_);
}

bool AppNavigator::CloseAllAndShowStartScreen() {
    for (frmEdit* report : Reports()) {
        // It may ask whether to save, and the person has to see which text is meant.
        BringUp(*report);
        if (!report->close())
            return false;
    }
    if (editor_ && editor_->isVisible()) {
        BringUp(*editor_);
        if (!editor_->close())
            return false;
    }
    if (help_)
        help_->close();
    // The other windows close last: the program ends with its last window.
    const QPointer<FrmTest> testWindow = testWindow_;
    testWindow_.clear();
    ShowStartScreen();
    if (testWindow && !ended_)
        testWindow->close();
    return true;
}

bool AppNavigator::BeginLoadedTest() {
    if (const Result begins = CanBegin(parts_.Run.Test); !begins) {
        parts_.Ports.Boxes.Inform(begins.Message());
        return false;
    }
    TakeNextClient(parts_.Run);
    testWindow_ = Owned(new FrmTest({parts_.Run, parts_.Ports.Boxes, parts_.Ports.Files, parts_.Time, parts_.Programs,
                                     parts_.Ports.Office, *this, parts_.Exporter, &parts_.Store}));
    BringUp(*testWindow_);
    return true;
}

bool AppNavigator::AskNames(const QString& caption) {
    // From the start screen no test has a say in it.
    const NamesAsked asked = caption.isEmpty() ? NamesAsked() : NamesAskedBy(parts_.Run.Test);
    const NamesFor administration = testWindow_ && testWindow_->isVisible() ? NamesFor::Running : NamesFor::Next;
    frmClient window(parts_.Run, parts_.Store, *this, caption.isEmpty() ? NamesCaption : caption, asked, administration,
                     WindowInFront());
    window.exec();
    return !parts_.Run.NamesCancelled;
}

void AppNavigator::ShowGeneralOptions() {
    Settings& settings = parts_.Run.UserSettings;
    const Settings before = settings;
    frmOptions(settings, parts_.Store, parts_.Folders, parts_.Ports.Boxes, parts_.Ports.Files, *this, WindowInFront())
        .exec();
    // A name that was given for one test only isn't among the settings, and stays.
    if (settings.AdministratorName != before.AdministratorName)
        parts_.Run.AdministratorName = settings.AdministratorName;
    TakeChangedHtmlSettings(parts_.Run, before);
}

void AppNavigator::ShowText(const QString& text, const QString& caption, TextKind kind) {
    reports_.removeAll(nullptr);
    auto* report = Owned(new frmEdit(parts_.Ports, *this));
    reports_.append(report);
    report->ShowText(text, caption, kind);
    // A report that was given up keeps no result any more.
    if (kind == TextKind::Report)
        QObject::connect(report, &frmEdit::Dropped, [&run = parts_.Run] { run.Filed.Shown.reset(); });
}

void AppNavigator::ShowHelp(HelpTopic topic) {
    // A modal window blocks all others but its own, so it gets a help window that goes with it.
    QWidget* modal = QApplication::activeModalWidget();
    HelpWindow* help = modal ? modal->findChild<HelpWindow*>() : help_.data();
    if (!help || (!modal && !help->isVisible())) {
        help = Owned(new HelpWindow(modal));
        if (!modal)
            help_ = help;
    }
    help->ShowTopic(topic);
    BringUp(*help);
}

void AppNavigator::ShowAbout() { AboutBox(WindowInFront()).exec(); }

bool AppNavigator::EditTest() { return OpenEditor(); }

bool AppNavigator::EditNewTest() {
    // From scratch: what ClearTest leaves of an earlier test must not come into a new one.
    parts_.Run.Test = TestDocument();
    ClearTest(parts_.Run.Test);
    return OpenEditor();
}

frmTestEditor* AppNavigator::MakeEditor() {
    return Owned(new frmTestEditor({parts_.Run.Test, parts_.Run.UserSettings, parts_.Ports.Boxes, parts_.Ports.Files,
                                    *this, copies_, [this](const QString& path) { AllowOwnTest(path); }}));
}

void AppNavigator::AllowOwnTest(const QString& path) {
    TestDocument saved;
    if (!ReadTestFile(saved, path))
        return;
    if (const Result kept = trusted_.Allow(saved.TestFileHash); !kept)
        parts_.Ports.Boxes.Inform(kept.Message());
}

bool AppNavigator::OpenEditor() {
    frmTestEditor* editor = MakeEditor();
    if (!editor->Form_Load()) {
        delete editor;
        return false;
    }
    editor_ = editor;
    BringUp(*editor);
    return true;
}

bool AppNavigator::OfferLeftTest() {
    const std::optional<RecoveredTest> left = copies_.Left();
    if (!left)
        return false;
    switch (parts_.Ports.Boxes.Ask(LeftTestQuestion(*left, LeftTestOffer::AtStart))) {
    case PromptAnswer::Yes:
        break;
    case PromptAnswer::No:
        copies_.Discard(*left);
        return false;
    default:
        return false;
    }
    // Another program may have been quicker; the test is in its editor then.
    if (!copies_.GoOnWith(*left))
        return false;
    parts_.Run.Test = left->Test;
    editor_ = MakeEditor();
    editor_->LoadRecovered(left->Typed);
    BringUp(*editor_);
    return true;
}

void AppNavigator::ExportHtml() {
    DialogHTML({parts_.Run, parts_.Ports.Boxes, parts_.Programs, parts_.Store, parts_.Folders.ProgramFolder},
               parts_.Ports.Files, *this, WindowInFront())
        .exec();
}

void AppNavigator::EndProgram() {
    ended_ = true;
    for (QWidget* window : OwnWindows())
        window->hide();
    parts_.End();
}

QList<frmEdit*> AppNavigator::Reports() const {
    QList<frmEdit*> open;
    for (const QPointer<frmEdit>& report : reports_)
        if (report && report->isVisible())
            open.append(report);
    return open;
}

QWidgetList AppNavigator::OwnWindows() const {
    QWidgetList windows;
    for (QWidget* window : {static_cast<QWidget*>(startScreen_), static_cast<QWidget*>(testWindow_),
                            static_cast<QWidget*>(editor_), static_cast<QWidget*>(help_)})
        if (window)
            windows.append(window);
    for (const QPointer<frmEdit>& report : reports_)
        if (report)
            windows.append(report);
    return windows;
}
