#pragma once

#include "editor/NumberInput.h"
#include "platform/Prompts.h"

#include <QLineEdit>
#include <QTimer>

#include <optional>

/// A box for a whole number of 16 bits. What is typed and can't become one is answered with "Not a valid value" at
/// once; the box then keeps the text, selected, and the focus. It never cuts what is pasted.
class NumberBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit NumberBox(Prompts& boxes, QWidget* parent = nullptr);

    /// Nothing while the text doesn't convert.
    std::optional<int> Number() const;
    NumberInput Judged() const { return JudgeNumberInput(text()); }

  private:
    void AnswerInvalid();

    Prompts& boxes_;
    QTimer later_;
};
