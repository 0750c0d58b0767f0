#pragma once

#include "editor/ui/EditorTab.h"
#include "platform/ui/Choosing.h"

#include <QBoxLayout>
#include <QLineEdit>

/// A box for one text of the test. Each change that the person makes is in the test at once; nothing is ever cut.
class FieldBox : public QLineEdit {
    Q_OBJECT

  public:
    /// The field outlives the box.
    explicit FieldBox(QString& field);

    /// Shows the field. Sends no signal.
    void RefreshFromTest() { ShowText(*this, field_); }
    /// Puts a text that the person has chosen elsewhere into box and field.
    void Put(const QString& text);

    void FocusToTypeOver();

  Q_SIGNALS:
    /// The person changed the field.
    void Changed();

  private:
    void Take(const QString& text);

    QString& field_;
};

/// Caption and box below each other, with a button at the box's end when there is one.
QLayout* MakeFieldRow(const QString& caption, FieldBox* box, QWidget* button = nullptr);

/// The button "..." that asks for a directory and puts it into the box. The current directory is the working directory
/// again then, whatever the answer.
QWidget* MakeDirectoryButton(const EditorParts& parts, FieldBox* box, const QString& name);
