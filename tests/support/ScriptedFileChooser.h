#pragma once

#include "platform/FileChooser.h"
#include "support/FailTest.h"

#include <QList>

#include <deque>

/// Answers file dialogs from an ordered script; an empty answer is "cancelled". A dialog of another kind than the one
/// that comes next, or an unspent answer, fails the test.
class ScriptedFileChooser : public FileChooser {
  public:
    explicit ScriptedFileChooser(FailureReport fail = FailRunningTest()) : fail_(std::move(fail)) {}
    ~ScriptedFileChooser() override;
    ScriptedFileChooser(const ScriptedFileChooser&) = delete;
    ScriptedFileChooser& operator=(const ScriptedFileChooser&) = delete;

    void ExpectOpen(const QString& answer, std::source_location where = std::source_location::current());
    void ExpectSave(const QString& answer, std::source_location where = std::source_location::current());
    void ExpectFolder(const QString& answer, std::source_location where = std::source_location::current());

    QString OpenFile(const FileQuestion& question) override;
    QString SaveFile(const FileQuestion& question) override;
    /// The title and the start are recorded as Title and FileName of a question.
    QString ChooseFolder(const QString& title, const QString& start) override;

    void Verify();
    const QList<FileQuestion>& Questions() const { return questions_; }

  private:
    enum class Kind { Open, Save, Folder };
    struct Step {
        Kind What;
        QString Answer;
        std::source_location Where;
    };

    static QString NameOf(Kind kind);
    QString Next(Kind kind, const FileQuestion& question);

    FailureReport fail_;
    std::deque<Step> script_;
    QList<FileQuestion> questions_;
};
