#include "editor/ui/NumberBox.h"

#include "base/WholeNumber.h"

#include <limits>

NumberBox::NumberBox(Prompts& boxes, QWidget* parent) : QLineEdit(parent), boxes_(boxes) {
    setMaxLength(std::numeric_limits<int>::max());
    // Later, so that every control has seen the text before a box covers the window, and once for keys that came fast.
    later_.setSingleShot(true);
    later_.setInterval(0);
    connect(this, &QLineEdit::textEdited, &later_, qOverload<>(&QTimer::start));
    connect(&later_, &QTimer::timeout, this, &NumberBox::AnswerInvalid);
}

std::optional<int> NumberBox::Number() const { return TryWholeNumber(text()); }

void NumberBox::AnswerInvalid() {
    if (Judged() != NumberInput::Invalid)
        return;
    boxes_.Inform(NotAValidValue);
    setFocus(Qt::OtherFocusReason);
    selectAll();
}
