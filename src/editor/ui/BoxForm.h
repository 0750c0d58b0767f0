#pragma once

#include "editor/EntryForm.h"
#include "editor/ui/TextBox.h"

#include <QLineEdit>

#include <functional>

/// The boxes of an entry on a page. Number and High may be missing.
struct FormControls {
    /// A TextBox or a QLineEdit.
    QWidget* Text = nullptr;
    QLineEdit* Number = nullptr;
    QLineEdit* High = nullptr;
    /// What a page has beside the boxes of text.
    std::function<void(EntryBoxes&)> ReadMore = {};
    std::function<void(const EntryBoxes&)> ShowMore = {};
};

/// An entry's form whose boxes are controls of a page.
class BoxForm : public QObject, public EntryForm {
    Q_OBJECT

  public:
    BoxForm(TestDocument& test, TestPlace::Kind kind, FormControls controls);

    /// Focuses the first box with everything in it selected, ready to be typed over.
    void FocusToTypeOver();
    /// A change by other controls than the boxes.
    void NoteOtherEdit();

  Q_SIGNALS:
    /// The person changed something in the boxes, which isn't in the document.
    void Edited();
    /// The boxes hold something else, whoever changed it.
    void ContentsChanged();
    /// The document has the entry now, as a new one or with other contents.
    void StoredInTest(const TestPlace& place, bool added);

  protected:
    EntryBoxes Boxes() const override;
    void ShowBoxes(const EntryBoxes& boxes) override;
    void FocusOn(EntryBox box) override;
    void Stored(const TestPlace& place, bool added) override { Q_EMIT StoredInTest(place, added); }

  private:
    FormControls controls_;
    TextBox* textBox_;
    QLineEdit* textLine_;
};
