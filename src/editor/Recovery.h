#pragma once

#include "base/Failure.h"
#include "platform/Clock.h"
#include "platform/FileLock.h"
#include "testdoc/TestDocument.h"

#include <memory>
#include <optional>
#include <vector>

/// A copy of a test with unsaved changes that an earlier run of the program left.
struct RecoveredTest {
    TestDocument Test;
    QDateTime KeptAt;
    QString Path;
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
    /// Whether the document differs from what is in its file.
    bool HasChanges(const TestDocument& test) const;
    /// Brings the copy up to date: writes it when the document has changed, and drops it when it is as it was in its
    /// file. Fails with a message when the copy can't be written.
    Result Keep(const TestDocument& test);
    /// The document is saved, or the person doesn't want the changes: the copy goes.
    void Drop(const TestDocument& test);

    /// The copy that was left first by a run that has ended; nothing when there is none. One that can't be read stays
    /// where it is.
    std::optional<RecoveredTest> Left() const;
    /// Removes a copy that was left.
    void Discard(const RecoveredTest& left) const;

  private:
    void RemoveCopy();
    bool TakeFreePlace();
    void LetGo();

    QString folder_;
    const Clock& time_;
    bool editing_ = false;
    QByteArray inFile_;
    QByteArray kept_;
    QString path_;
    std::unique_ptr<FileLock> lock_;
    /// Copies of earlier documents of this run; locked, lest another program offers them while this one runs.
    std::vector<std::unique_ptr<FileLock>> locksOfEarlier_;
};
