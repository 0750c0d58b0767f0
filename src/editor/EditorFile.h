#pragma once

#include "editor/Recovery.h"
#include "platform/FileChooser.h"
#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "settings/Settings.h"
#include "testdoc/TestDocument.h"
#include "testdoc/TestWriter.h"

#include <QStringList>

#include <functional>

/// The window of the editor, as far as opening and saving concern it.
class EditorView {
  public:
    virtual ~EditorView() = default;
    /// Copies the document into all controls, and the list of files into the menu.
    virtual void RefreshFromTest() = 0;
    virtual void ShowHome() = 0;
    virtual void ShowTitle(const QString& title) = 0;
    virtual void ShowSaveState(const QString& state) = 0;
    /// Puts what is typed into the document, after a question where it needs one. False when one is to stay.
    virtual bool Settle() = 0;
    /// What is typed and isn't in the document.
    virtual TypedEntries Typed() = 0;
    /// Shows it in its boxes again.
    virtual void ShowTyped(const TypedEntries& typed) = 0;
};

/// What is outside of the editor. All of it outlives the editor.
struct EditorFileParts {
    TestDocument& Test;
    const Settings& UserSettings;
    Prompts& Boxes;
    FileChooser& Files;
    Navigator& Ways;
    Recovery& Copies;
    /// Is told of each file that the person's test was written to; may be empty.
    std::function<void(const QString& path)> Saved = {};
};

/// Opening, saving, and the question before unsaved changes are given up: the rules of the editor's File menu.
class EditorFile {
  public:
    EditorFile(const EditorFileParts& parts, EditorView& view) : parts_(parts), view_(view) {}

    /// Reads the file that the document names, if it names one, and shows the home view; a copy of unsaved changes in
    /// it is offered first. False when the file can't be read, which a message has then said, or the person wants none
    /// of it; the document is as it was then.
    bool Load();
    /// Goes on with the document as it is, with changes that are in no file, and with what was typed for it.
    void LoadRecovered(const TypedEntries& typed);

    /// These three ask before they give anything up. The test stays until there is another one in its place.
    void New();
    void Open();
    void OpenListed(int i);
    /// Save and SaveAs say whether the test is in its file now and can be opened again. Save asks for a name as SaveAs
    /// does where the test has none, or one of a new test that another file has already; and it asks before it replaces
    /// what another program wrote to the file meanwhile, or what is in the file and wasn't read. While nothing is written
    /// the test keeps the name that it had.
    bool Save();
    bool SaveAs();

    /// Before the editor is left: settles what is typed and asks whether to save. The answer Cancel is heeded only
    /// where cancelStays. False when the editor is to stay.
    bool MayLeave(bool cancelStays);

    /// Brings the copy of unsaved changes up to date.
    void KeepCopy();
    /// "Saved", "Not saved", or nothing for an empty test without a file. Unlike Saved() it tells what is so.
    QString SaveState() const;

    /// Nothing to save, as the question sees it: the home view and a save set it, choosing a page takes it away.
    bool Saved() const { return saved_; }
    void SetSaved(bool saved) { saved_ = saved; }

    /// The first ten test files of the current directory, for the menu.
    void ListFilesAgain();
    const QStringList& FileList() const { return fileList_; }

    QString Title() const;
    QString HomeMessage() const;
    /// A test that was never saved has a name without a directory.
    bool HasTest() const { return !parts_.Test.TestFileName.isEmpty(); }

  private:
    enum class Answer {
        Proceed,
        Discard, ///< the changes
        Cancel,  ///< only the closing of the window heeds it
        Stay,    ///< something is to stay, or couldn't be saved: nothing may be given up
    };
    Answer SettleAndQuerySave();
    Answer QuerySave();

    enum class Offer { None, Taken, Cancelled };
    Offer OfferLeftCopy(const QString& path, Answer answer);

    void OpenPath(const QString& path, Answer answer);
    bool Read(const QString& path, TestDocument& into);
    void Replace(const TestDocument& test, Answer answer);
    SaveOutcome WriteTo(const QString& path);
    bool SaveTest(const QString& path);
    bool SaveNew();
    bool SaveToKnownFile();

    EditorFileParts parts_;
    EditorView& view_;
    bool saved_ = true;
    bool inFile_ = false;
    bool copyFailureTold_ = false;
    QStringList fileList_;
    /// The current directory may be another one by the time that a file is chosen, or a new test saved.
    QString listedIn_;
    QString newIn_;
};
