#pragma once

#include "editor/Recovery.h"
#include "platform/FileChooser.h"
#include "platform/Navigator.h"
#include "platform/Prompts.h"
#include "settings/Settings.h"
#include "testdoc/TestDocument.h"

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

    /// Reads the file that the document names, if it names one, and shows the home view. False when it can't be read,
    /// which a message has told, or when the program ends on its content.
    bool Load();
    /// Goes on with the document as it is, with changes that are in no file.
    void LoadRecovered();

    void New();
    void Open();
    void OpenListed(int i);
    /// Save and SaveAs say whether the test is in its file now and can be opened again.
    bool Save();
    bool SaveAs();

    enum class Answer {
        Proceed,
        Cancel, ///< only the closing of the window heeds it
        Stay,   ///< the test was to be saved and couldn't be: nothing may be given up
    };
    /// Asks whether to save, unless there is nothing to save.
    Answer QuerySave();

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
    bool HasTest() const { return !parts_.Test.TestFileName.isEmpty(); }

  private:
    void OpenPath(const QString& path);
    bool Read(const QString& path);
    void Clear();
    bool SaveTest();
    /// Before the document is replaced: false when it must stay.
    bool MayReplace();

    EditorFileParts parts_;
    EditorView& view_;
    bool saved_ = true;
    bool inFile_ = false;
    bool ended_ = false;
    bool copyFailureTold_ = false;
    QStringList fileList_;
    /// The current directory may be another one by the time that a file is chosen.
    QString listedIn_;
};
