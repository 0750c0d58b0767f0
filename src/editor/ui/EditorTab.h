#pragma once

#include "editor/EntryForm.h"
#include "platform/FileChooser.h"
#include "platform/Prompts.h"
#include "settings/Settings.h"
#include "testdoc/TestChecker.h"
#include "testdoc/TestDocument.h"

#include <QWidget>

/// What the pages of the editor work with. All of it outlives them.
struct EditorParts {
    TestDocument& Test;
    const Settings& UserSettings;
    Prompts& Boxes;
    FileChooser& Files;
};

/// One page of the editor. Its controls show the one Test document and change it through the edit operations.
class EditorTab : public QWidget {
    Q_OBJECT

  public:
    explicit EditorTab(const EditorParts& parts) : parts_(parts) {}

    /// Begins anew with the document: nothing of an earlier one stays. Changes nothing in the document and sends no
    /// signal.
    virtual void RefreshFromTest() = 0;
    /// Shows the element and puts the focus on it. It is one of this page's, and exists.
    virtual void GoTo(const TestPlace& place) = 0;

    /// The forms of this page whose contents only a button or moving on puts into the document, an entry before those
    /// that belong to it.
    virtual std::vector<EntryForm*> Forms() { return {}; }
    /// Before the page shows something else or is left: false when something typed is to stay in its box.
    bool Settle() { return SettleAll(Forms(), parts_.Boxes); }
    /// Shows a typed entry of this page in its boxes again.
    virtual void ShowTyped(const TypedEntry&) {}

  Q_SIGNALS:
    /// The person changed something in the document.
    void Changed();
    /// The person changed something in the boxes, which isn't in the document.
    void Typed();

  protected:
    TestDocument& Test() { return parts_.Test; }
    const EditorParts& Parts() const { return parts_; }

  private:
    EditorParts parts_;
};
