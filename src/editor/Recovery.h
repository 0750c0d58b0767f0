#pragma once

#include "base/Failure.h"
#include "editor/TypedEntry.h"
#include "platform/Clock.h"
#include "platform/FileLock.h"
#include "testdoc/TestDocument.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

/// What tells one content of a file from another; empty when there is no such file.
QByteArray FileDigest(const QString& path);

/// A copy of a test with unsaved changes that was left.
struct RecoveredTest {
    TestDocument Test;
    /// What was typed and not stored or added.
    TypedEntries Typed;
    QDateTime KeptAt;
    QString Path;
    /// What the test's file held when the changes were begun, as FileDigest gives it; not known from earlier versions.
    std::optional<QByteArray> FileThen;
    /// It was left in this run of the program; otherwise by one that has ended.
    bool InThisRun = false;
};

/// Keeps a copy of the test that is edited while it has changes that are in no file, in a folder of the user's data, so
/// that a crash loses at most the last seconds. Copies of running programs are left alone.
class Recovery {
  public:
    /// The folder is made when the first copy is; without a name nothing is kept.
    Recovery(QString folder, const Clock& time) : folder_(std::move(folder)), time_(time) {}

    /// Another document is edited now, as it stands in its file. A copy of the one before stays, for the next start.
    void Begin(const TestDocument& test);
    /// No document is edited until the next Begin or GoOnWith, and Keep does nothing: what stands in memory meanwhile
    /// isn't the person's work. A copy stays as with Begin.
    void End();
    /// Goes on with a copy that was left, which stays until it is saved or dropped.
    /// False when another program has taken it meanwhile.
    bool GoOnWith(const RecoveredTest& left);
    /// What the file of the test held when it was last read or written here, as FileDigest gives it: empty when there
    /// was no file, nothing while that isn't known. It is kept with the copy.
    const std::optional<QByteArray>& FileThen() const { return fileThen_; }
    void SetFileThen(const QByteArray& digest) { fileThen_ = digest; }
    /// Whether the document differs from what is in its file, or something is typed for it.
    bool HasChanges(const TestDocument& test, const TypedEntries& typed = {}) const;
    /// Brings the copy up to date: writes it when the document has changed, and drops it when it is as it was in its
    /// file. Fails with a message when the copy can't be written.
    Result Keep(const TestDocument& test, const TypedEntries& typed = {});
    /// The document is saved, or the person doesn't want the changes: the copy goes.
    void Drop(const TestDocument& test);

    /// The copy that was left first by a run that has ended; nothing when there is none. One that can't be read stays
    /// where it is.
    std::optional<RecoveredTest> Left() const;
    /// The newest copy of the test in that file, left by a run that has ended or earlier in this one. A name that isn't
    /// absolute stands for all tests that have no file yet.
    std::optional<RecoveredTest> LeftOf(const QString& fileName) const;
    /// Removes a copy that was left.
    void Discard(const RecoveredTest& left);

  private:
    std::vector<RecoveredTest> AllLeft(bool inThisRunToo) const;
    void RemoveCopy();
    QString TakeFreePlace();
    void LetGo();

    QString folder_;
    const Clock& time_;
    bool editing_ = false;
    QByteArray inFile_;
    QByteArray kept_;
    std::optional<QByteArray> fileThen_;
    QString path_;
    std::unique_ptr<FileLock> lock_;
    /// The locks of copies of earlier documents of this run, by their paths: held, lest another program offers them
    /// while this one runs.
    std::map<QString, std::unique_ptr<FileLock>> earlier_;
};
