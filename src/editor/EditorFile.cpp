#include "editor/EditorFile.h"

#include "editor/LeftTest.h"
#include "platform/Directories.h"
#include "testdoc/EarlierTest.h"
#include "testdoc/LostBySaving.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>

#include <utility>

namespace {

const QString WindowTitle = QStringLiteral("Vellumo Editor - ");
constexpr int MaxListedFiles = 10;

/// From scratch: what ClearTest leaves of an earlier test must not come into a new one.
TestDocument EmptyTest(const QString& name) {
    TestDocument test;
    ClearTest(test);
    test.TestFileName = name;
    return test;
}

} // namespace

bool EditorFile::Load() {
    const QString path = HasTest() ? AbsolutePath(parts_.Test.TestFileName) : QString();
    if (const Offer offer = OfferLeftCopy(path, Answer::Proceed); offer != Offer::None)
        return offer == Offer::Taken;
    TestDocument test = EmptyTest({});
    if (!path.isEmpty() && !Read(path, test))
        return false;
    Replace(test, Answer::Proceed);
    return true;
}

void EditorFile::LoadRecovered(const TypedEntries& typed) {
    inFile_ = false;
    if (!parts_.Copies.FileThen())
        parts_.Copies.SetFileThen(FileDigest(parts_.Test.TestFileName));
    newIn_.clear();
    view_.RefreshFromTest();
    view_.ShowHome();
    view_.ShowTyped(typed);
    saved_ = false;
}

void EditorFile::New() {
    const Answer answer = SettleAndQuerySave();
    if (answer == Answer::Stay)
        return;
    newIn_ = QDir::currentPath();
    Replace(EmptyTest(QStringLiteral("untitled.vlm")), answer);
}

void EditorFile::Open() {
    const Answer answer = SettleAndQuerySave();
    if (answer == Answer::Stay)
        return;
    const QString path =
        parts_.Files.OpenFile({{}, QStringLiteral("Test Files (*.vlm)|*.vlm| All Files (*.*)|*.*"), {}, {}});
    ChangeDirectory(parts_.UserSettings.DefaultDirectory);
    if (!path.isEmpty())
        OpenPath(path, answer);
}

void EditorFile::OpenListed(int i) {
    const QString path = QDir(listedIn_).filePath(fileList_.at(i - 1));
    if (const Answer answer = SettleAndQuerySave(); answer != Answer::Stay)
        OpenPath(path, answer);
}

void EditorFile::OpenPath(const QString& path, Answer answer) {
    const QString absolute = AbsolutePath(path);
    TestDocument test;
    if (OfferLeftCopy(absolute, answer) == Offer::None && Read(absolute, test))
        Replace(test, answer);
}

EditorFile::Offer EditorFile::OfferLeftCopy(const QString& path, Answer answer) {
    while (const auto left = parts_.Copies.LeftOf(path)) {
        const PromptAnswer wanted = parts_.Boxes.Ask(LeftTestQuestion(*left, LeftTestOffer::AtOpening));
        if (wanted == PromptAnswer::No) {
            parts_.Copies.Discard(*left);
            continue;
        }
        if (wanted != PromptAnswer::Yes)
            return Offer::Cancelled;
        if (answer == Answer::Discard)
            parts_.Copies.Drop(parts_.Test);
        // Another program may have been quicker; the changes are in its editor then.
        if (!parts_.Copies.GoOnWith(*left))
            return Offer::None;
        parts_.Test = left->Test;
        LoadRecovered(left->Typed);
        return Offer::Taken;
    }
    return Offer::None;
}

bool EditorFile::Read(const QString& path, TestDocument& into) {
    try {
        const Result opened = OpenTestOrEarlier(into, path, parts_.Boxes);
        if (!opened)
            parts_.Boxes.Inform(opened.Message());
        return opened.Ok();
    } catch (const Failure& failure) {
        // Only some of the reader's messages name the file.
        const QString& message = failure.Message();
        parts_.Boxes.Inform(message.contains(path) ? message : CantReadTestFile(path, message));
        return false;
    }
}

void EditorFile::Replace(const TestDocument& test, Answer answer) {
    if (answer == Answer::Discard)
        parts_.Copies.Drop(parts_.Test);
    parts_.Test = test;
    inFile_ = QDir::isAbsolutePath(test.TestFileName);
    parts_.Copies.Begin(parts_.Test);
    view_.RefreshFromTest();
    view_.ShowHome();
}

void EditorFile::KeepCopy() {
    const Result kept = parts_.Copies.Keep(parts_.Test, view_.Typed());
    // Told once: it comes every few seconds, and the test itself is unharmed.
    if (!kept && !copyFailureTold_) {
        copyFailureTold_ = true;
        parts_.Boxes.Inform(kept.Message());
    }
}

bool EditorFile::Save() {
    if (!view_.Settle())
        return false;
    if (HasTest())
        return QDir::isAbsolutePath(parts_.Test.TestFileName) ? SaveToKnownFile() : SaveNew();
    if (SaveAs())
        return true;
    if (!HasTest()) {
        parts_.Boxes.Inform(TestCannotBeSaved);
        saved_ = false;
    }
    return false;
}

bool EditorFile::SaveNew() {
    const QString name = parts_.Test.TestFileName;
    const QString path = newIn_.isEmpty() ? AbsolutePath(name) : AbsolutePath(QDir(newIn_).filePath(name));
    // A link that leads nowhere is someone's, too.
    if (const QFileInfo file(path); file.exists() || file.isSymLink())
        return SaveAs();
    return SaveTest(path);
}

bool EditorFile::SaveToKnownFile() {
    const QString path = parts_.Test.TestFileName;
    const QByteArray now = FileDigest(path);
    const std::optional<QByteArray>& then = parts_.Copies.FileThen();
    const QString file = QStringLiteral("The file '") + path + u'\'';
    QString question;
    QString title;
    if (then && !now.isEmpty() && now != *then) {
        title = QStringLiteral("Changed Elsewhere");
        question = file + QStringLiteral(" was changed by another program after it was opened here. To replace it "
                                         "loses what was written to it then.");
    } else if (const QStringList lost = LostBySaving(parts_.Test, path); !lost.isEmpty()) {
        title = QStringLiteral("Not All Was Read");
        question = file + QStringLiteral(" holds something that isn't in the editor, and to replace it loses that:\n\n") +
                   FirstLost(lost) + u'.';
    }
    if (question.isEmpty())
        return SaveTest(path);
    enum { ReplaceIt, SaveItAs };
    switch (parts_.Boxes.Choose({question,
                                 {{QStringLiteral("&Replace"), ChoiceRole::Discard},
                                  {QStringLiteral("Save &As")},
                                  {QStringLiteral("Cancel"), ChoiceRole::Reject}},
                                 SaveItAs,
                                 2,
                                 title})) {
    case ReplaceIt:
        return SaveTest(path);
    case SaveItAs:
        return SaveAs();
    default:
        return false;
    }
}

bool EditorFile::SaveAs() {
    if (!view_.Settle())
        return false;
    const QString path = parts_.Files.SaveFile(
        {{}, QStringLiteral("Text Files (*.vlm)|*.vlm| All Files (*.*)|*.*"), {}, QStringLiteral(".vlm")});
    ChangeDirectory(parts_.UserSettings.DefaultDirectory);
    if (path.isEmpty() || !SaveTest(AbsolutePath(path)))
        return false;
    view_.ShowHome();
    return true;
}

/// The name changes only with a file under it: Save would go to a place that was refused otherwise.
SaveOutcome EditorFile::WriteTo(const QString& path) {
    const QString before = std::exchange(parts_.Test.TestFileName, path);
    auto takeBack = qScopeGuard([&] { parts_.Test.TestFileName = before; });
    SaveOutcome outcome = SaveTestFile(parts_.Test);
    if (outcome.Written)
        takeBack.dismiss();
    return outcome;
}

bool EditorFile::SaveTest(const QString& path) {
    saved_ = false;
    const SaveOutcome outcome = WriteTo(path);
    if (outcome.Written) {
        saved_ = inFile_ = true;
        parts_.Copies.SetFileThen(FileDigest(path));
        if (parts_.Saved)
            parts_.Saved(path);
    }
    view_.ShowTitle(Title());
    if (outcome.OpensAgain)
        parts_.Copies.Drop(parts_.Test);
    view_.ShowSaveState(SaveState());
    if (!outcome.Message.isEmpty())
        parts_.Boxes.Inform(outcome.Message);
    if (!outcome.OpensAgain)
        KeepCopy(); // the only way back into the editor
    return outcome.Written && outcome.OpensAgain;
}

EditorFile::Answer EditorFile::SettleAndQuerySave() {
    KeepCopy();
    if (!view_.Settle())
        return Answer::Stay;
    KeepCopy();
    return QuerySave();
}

EditorFile::Answer EditorFile::QuerySave() {
    if (saved_)
        return Answer::Proceed;
    switch (parts_.Boxes.Ask({QStringLiteral("Do you Want to Save Changes?"), QStringLiteral("Confirm"),
                              PromptButtons::YesNoCancel, PromptIcon::Question})) {
    case PromptAnswer::Yes:
        return (HasTest() ? Save() : SaveAs()) ? Answer::Proceed : Answer::Stay;
    case PromptAnswer::No:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

bool EditorFile::MayLeave(bool cancelStays) {
    const Answer answer = SettleAndQuerySave();
    if (answer == Answer::Stay || (answer == Answer::Cancel && cancelStays))
        return false;
    if (answer == Answer::Discard)
        parts_.Copies.Drop(parts_.Test);
    return true;
}

void EditorFile::ListFilesAgain() {
    fileList_ = ListFiles(QStringLiteral("*.vlm")).mid(0, MaxListedFiles);
    listedIn_ = QDir::currentPath();
}

QString EditorFile::SaveState() const {
    if (parts_.Copies.HasChanges(parts_.Test, view_.Typed()))
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
