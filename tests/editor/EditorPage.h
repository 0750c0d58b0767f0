#pragma once

#include "editor/ui/EditorTab.h"
#include "editor/ui/TextBox.h"
#include "support/ScriptedFileChooser.h"
#include "support/ScriptedPrompts.h"
#include "support/TestText.h"
#include "support/WindowDriver.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

/// One page of the editor in a window of its own, on a test of that text, with doubles for everything outside.
template <typename Tab> struct EditorPage {
    explicit EditorPage(const QString& text) : EditorPage(TestFromText(text)) {}
    explicit EditorPage(TestDocument document)
        : test(std::move(document)),
          page(EditorParts{test, settings, prompts, chooser}),
          changes(&page, &EditorTab::Changed) {
        page.resize(640, 560);
        ShowAndActivate(page);
    }

    void ClickOn(const QString& name) { Click(page, name); }
    /// Replaces what stands in the box.
    void Write(const QString& name, const QString& text) {
        auto& box = Find<QWidget>(page, name);
        box.setFocus();
        Press(box, Qt::Key_A, Qt::ControlModifier);
        Press(box, Qt::Key_Delete);
        QCoreApplication::processEvents();
        Type(box, text);
        QCoreApplication::processEvents();
    }

    QString Text(const QString& box) {
        if (const auto* line = page.template findChild<QLineEdit*>(box))
            return line->text();
        return Find<TextBox>(page, box).Text();
    }
    QString Caption(const QString& frame) { return Find<QGroupBox>(page, frame).title(); }
    bool Enabled(const QString& name) { return Find<QWidget>(page, name).isEnabled(); }
    bool Seen(const QString& name) { return Find<QWidget>(page, name).isVisible(); }
    QString FocusName() { return page.focusWidget() ? page.focusWidget()->objectName() : QString(); }

    Settings settings;
    ScriptedPrompts prompts;
    ScriptedFileChooser chooser;
    TestDocument test;
    Tab page;
    QSignalSpy changes;
};
