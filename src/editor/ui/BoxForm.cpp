#include "editor/ui/BoxForm.h"

#include <QSignalBlocker>

namespace {

void ShowIn(QLineEdit* line, const QString& text) {
    if (!line)
        return;
    const QSignalBlocker quiet(line);
    line->setText(text);
    // A long text is seen from its beginning.
    line->setCursorPosition(0);
}

} // namespace

BoxForm::BoxForm(TestDocument& test, TestPlace::Kind kind, FormControls controls)
    : EntryForm(test, kind),
      controls_(std::move(controls)),
      textBox_(qobject_cast<TextBox*>(controls_.Text)),
      textLine_(qobject_cast<QLineEdit*>(controls_.Text)) {
    if (textBox_)
        connect(textBox_, &TextBox::Edited, this, &BoxForm::NoteOtherEdit);
    for (QLineEdit* line : {textLine_, controls_.Number, controls_.High})
        if (line)
            connect(line, &QLineEdit::textChanged, this, &BoxForm::NoteOtherEdit);
}

void BoxForm::NoteOtherEdit() {
    NoteEdit();
    Q_EMIT ContentsChanged();
    Q_EMIT Edited();
}

EntryBoxes BoxForm::Boxes() const {
    EntryBoxes boxes;
    boxes.Text = textBox_ ? textBox_->Text() : textLine_->text();
    if (controls_.Number)
        boxes.Number = controls_.Number->text();
    if (controls_.High)
        boxes.High = controls_.High->text();
    if (controls_.ReadMore)
        controls_.ReadMore(boxes);
    return boxes;
}

void BoxForm::ShowBoxes(const EntryBoxes& boxes) {
    if (textBox_)
        textBox_->SetText(boxes.Text);
    ShowIn(textLine_, boxes.Text);
    ShowIn(controls_.Number, boxes.Number);
    ShowIn(controls_.High, boxes.High);
    if (controls_.ShowMore)
        controls_.ShowMore(boxes);
    Q_EMIT ContentsChanged();
}

void BoxForm::FocusOn(EntryBox box) {
    QWidget* control = box == EntryBox::Number ? controls_.Number
                       : box == EntryBox::High ? controls_.High
                                               : controls_.Text;
    if (!control)
        control = controls_.Text;
    control->setFocus(Qt::OtherFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(control))
        line->selectAll();
}

void BoxForm::FocusToTypeOver() {
    // The text of a range comes after its bounds.
    if (controls_.High) {
        textBox_->selectAll();
        controls_.High->selectAll();
        return FocusOn(EntryBox::Number);
    }
    FocusOn(EntryBox::Text);
    if (textBox_)
        textBox_->selectAll();
}
