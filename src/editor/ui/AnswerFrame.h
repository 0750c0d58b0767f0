#pragma once

#include "editor/ui/BoxForm.h"
#include "editor/ui/ButtonArray.h"
#include "editor/ui/NumberBox.h"
#include "editor/ui/TextBox.h"
#include "testdoc/TestDocument.h"

#include <QGroupBox>

/// The answers of one question, one at a time.
class AnswerFrame : public QGroupBox {
    Q_OBJECT

  public:
    AnswerFrame(TestDocument& test, Prompts& boxes);

    /// Goes to the first answer of the question (0: a new one), as far as the type has answers.
    void ShowQuestion(int question, int type);
    /// The question was added. An answer that was typed before it goes with it.
    void TakeQuestion(int question, int type);
    /// Goes on with the same question under another type.
    void ShowType(int type);
    /// The same, where it isn't the type shown.
    void TakeType(int type) {
        if (type != type_)
            ShowType(type);
    }
    /// Empties the boxes; the value begins as 0.
    void Clear();
    /// Shows that answer of the question shown and puts the focus on it.
    void GoTo(int answer);
    /// Shows that answer of the question shown, 0 for a new one; ShowTyped shows what was typed for it.
    void ShowAnswer(int answer);
    void ShowTyped(const TypedEntry& typed);
    /// Whether a question of the type shown has answers of its own.
    bool HasAnswers() const;
    BoxForm& Form() { return *form_; }
    bool Settle() { return form_->Settle(boxes_); }

  Q_SIGNALS:
    /// The person changed an answer.
    void Changed();
    /// The person changed something in the boxes.
    void Typed();

  private:
    QLayout* MakeValueRow();
    QLayout* MakeButtonRow();

    void ShowCaption();
    void UpdateButtons();

    void CmdQuestion_Click(int index);
    void DeleteShown();
    void CmdQuestNav_Click(int index);

    TestDocument& test_;
    Prompts& boxes_;
    int type_ = TypeUnset;

    TextBox* txtanswer_ = nullptr;
    NumberBox* txtAnswerVal_ = nullptr;
    QWidget* Frame6_ = nullptr;
    BoxForm* form_ = nullptr;
    /// Add, Delete and Edit are 3 to 5; Back and Forward are 2 and 3, and Clear is 5.
    ButtonArray CmdQuestion_;
    ButtonArray CmdQuestNav_;
};
