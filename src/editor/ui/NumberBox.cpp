#include "editor/ui/NumberBox.h"

#include "base/WholeNumber.h"

#include <limits>

NumberBox::NumberBox(Prompts& boxes, QWidget* parent) : QLineEdit(parent), boxes_(boxes) {
    setMaxLength(std::numeric_limits<int>::max());
    // Queued, so that every control has seen the text before a box covers the window.
    connect(this, &QLineEdit::textEdited, this, &NumberBox::AnswerInvalid, Qt::QueuedConnection);
}

std::optional<int> NumberBox::Number() const { return TryWholeNumber(text()); }

void NumberBox::AnswerInvalid() {
    if (Judged() != NumberInput::Invalid)
        return;
    boxes_.Inform(NotAValidValue);
    setFocus(Qt::OtherFocusReason);
    selectAll();
}
