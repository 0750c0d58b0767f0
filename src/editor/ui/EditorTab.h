#pragma once

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

    /// Copies the document into the controls. Changes nothing in the document and sends no signal.
    virtual void RefreshFromTest() = 0;
    /// Shows the element and puts the focus on it. It is one of this page's, and exists.
    virtual void GoTo(const TestPlace& place) = 0;

  Q_SIGNALS:
    /// The person changed something in the document.
    void Changed();

  protected:
    TestDocument& Test() { return parts_.Test; }
    const EditorParts& Parts() const { return parts_; }

  private:
    EditorParts parts_;
};
