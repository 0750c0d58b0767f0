#include "editor/EditorFile.h"

#include "platform/Directories.h"
#include "testdoc/EarlierTest.h"
#include "testdoc/TestWriter.h"

#include <QDir>

namespace {

const QString WindowTitle = QStringLiteral("Vellumo Editor - ");
constexpr int MaxListedFiles = 10;

} // namespace

bool EditorFile::Load() {
    if (HasTest()) {
        if (!Read(parts_.Test.TestFileName))
            return false;
    } else {
        Clear();
    }
    parts_.Copies.Begin(parts_.Test);
    view_.RefreshFromTest();
    saved_ = false;
    view_.ShowHome();
    return true;
}

void EditorFile::LoadRecovered() {
    view_.RefreshFromTest();
    view_.ShowHome();
    saved_ = false;
}

void EditorFile::New() {
    if (!MayReplace())
        return;
    Clear();
    parts_.Test.TestFileName = QStringLiteral("untitled.vlm");
    parts_.Copies.Begin(parts_.Test);
    view_.RefreshFromTest();
    view_.ShowHome();
}

void EditorFile::Open() {
    if (!MayReplace())
        return;
    Clear();
    const QString path =
        parts_.Files.OpenFile({{}, QStringLiteral("Test Files (*.vlm)|*.vlm| All Files (*.*)|*.*"), {}, {}});
    ChangeDirectory(parts_.UserSettings.DefaultDirectory);
    if (path.isEmpty())
        parts_.Copies.Begin(parts_.Test);
    else
        OpenPath(path);
}

void EditorFile::OpenListed(int i) {
    if (!MayReplace())
        return;
    Clear();
    OpenPath(QDir(listedIn_).filePath(fileList_.at(i - 1)));
}

void EditorFile::OpenPath(const QString& path) {
    // A test that can't be read must not leave its name behind, under which an empty one could be saved.
    if (!Read(path))
        Clear();
    parts_.Copies.Begin(parts_.Test);
    if (ended_)
        return;
    view_.RefreshFromTest();
    view_.ShowHome();
}

bool EditorFile::Read(const QString& path) {
    try {
        const Result opened = OpenTestOrEarlier(parts_.Test, AbsolutePath(path), parts_.Boxes);
        if (!opened)
            parts_.Boxes.Inform(opened.Message());
        inFile_ = opened.Ok();
        return inFile_;
    } catch (const Failure& failure) {
        ended_ = true;
        parts_.Boxes.Ask({failure.Message(), {}, PromptButtons::Ok, PromptIcon::Critical});
        parts_.Ways.EndProgram();
        return false;
    }
}

// From scratch: what ClearTest leaves of an earlier test must not come into a new one.
void EditorFile::Clear() {
    parts_.Test = TestDocument();
    ClearTest(parts_.Test);
    inFile_ = false;
}

bool EditorFile::MayReplace() {
    KeepCopy();
    if (QuerySave() == Answer::Stay)
        return false;
    // A dialog may stand open before the next test is there, and what the timer would keep then isn't this one.
    parts_.Copies.End();
    return true;
}

void EditorFile::KeepCopy() {
    const Result kept = parts_.Copies.Keep(parts_.Test);
    // Told once: it comes every few seconds, and the test itself is unharmed.
    if (!kept && !copyFailureTold_) {
        copyFailureTold_ = true;
        parts_.Boxes.Inform(kept.Message());
    }
}

bool EditorFile::Save() {
    if (HasTest())
        return SaveTest();
    if (SaveAs())
        return true;
    if (!HasTest()) {
        parts_.Boxes.Inform(TestCannotBeSaved);
        saved_ = false;
    }
    return false;
}

bool EditorFile::SaveAs() {
    const QString path = parts_.Files.SaveFile(
        {{}, QStringLiteral("Text Files (*.vlm)|*.vlm| All Files (*.*)|*.*"), {}, QStringLiteral(".vlm")});
    ChangeDirectory(parts_.UserSettings.DefaultDirectory);
    if (path.isEmpty())
        return false;
    parts_.Test.TestFileName = AbsolutePath(path);
    if (!SaveTest())
        return false;
    view_.ShowHome();
    return true;
}

bool EditorFile::SaveTest() {
    view_.ShowTitle(Title());
    const SaveOutcome outcome = SaveTestFile(parts_.Test);
    saved_ = inFile_ = outcome.Written;
    if (outcome.Written && parts_.Saved)
        parts_.Saved(parts_.Test.TestFileName);
    if (outcome.OpensAgain)
        parts_.Copies.Drop(parts_.Test);
    else if (outcome.Written)
        KeepCopy(); // the only way back into the editor
    view_.ShowSaveState(SaveState());
    if (!outcome.Message.isEmpty())
        parts_.Boxes.Inform(outcome.Message);
    return outcome.Written && outcome.OpensAgain;
}

EditorFile::Answer EditorFile::QuerySave() {
    if (saved_)
        return Answer::Proceed;
    switch (parts_.Boxes.Ask({QStringLiteral("Do you Want to Save Changes?"), QStringLiteral("Confirm"),
                              PromptButtons::YesNoCancel, PromptIcon::Question})) {
    case PromptAnswer::Yes:
        return (HasTest() ? Save() : SaveAs()) ? Answer::Proceed : Answer::Stay;
    case PromptAnswer::No:
        parts_.Copies.Drop(parts_.Test);
        return Answer::Proceed;
    default:
        return Answer::Cancel;
    }
}

void EditorFile::ListFilesAgain() {
    fileList_ = ListFiles(QStringLiteral("*.vlm")).mid(0, MaxListedFiles);
    listedIn_ = QDir::currentPath();
}

QString EditorFile::SaveState() const {
    if (parts_.Copies.HasChanges(parts_.Test))
        return QStringLiteral("Not saved");
    return inFile_ ? QStringLiteral("Saved") : QString();
}

QString EditorFile::Title() const {
    return WindowTitle + (HasTest() ? parts_.Test.TestFileName : QStringLiteral("Untitled"));
}

QString EditorFile::HomeMessage() const {
    const QString state =
        HasTest() ? QStringLiteral("The current test is '") + parts_.Test.TestFileName + u'\''
                  : QStringLiteral("There is currently no test loaded.\nEdit this test as a new test, or choose 'Open' "
                                   "from the file menu.");
    return state + QStringLiteral("\n\nSelect 'tabs' above to edit test properties.");
}
