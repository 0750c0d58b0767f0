#pragma once

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
    /// Goes on with the same question and answer under another type.
    void ShowType(int type);
    /// Empties the boxes; the value begins as 0.
    void Clear();
    /// Shows that answer of the question shown and puts the focus on it.
    void GoTo(int answer);
    /// Whether a question of the type shown has answers of its own.
    bool HasAnswers() const;

  Q_SIGNALS:
    /// The person changed an answer.
    void Changed();

  private:
    QLayout* MakeValueRow();
    QLayout* MakeButtonRow();

    void ShowAnswer();
    void SetBoxes(const QString& text, const QString& value);
    void UpdateButtons();
    void FocusText();

    void CmdQuestion_Click(int index);
    void AddTyped();
    void EditShown();
    void DeleteShown();
    void CmdQuestNav_Click(int index);

    TestDocument& test_;
    Prompts& boxes_;
    int question_ = 0;
    int answer_ = 0;
    int type_ = TypeUnset;

    TextBox* txtanswer_ = nullptr;
    NumberBox* txtAnswerVal_ = nullptr;
    QWidget* Frame6_ = nullptr;
    /// Add, Delete and Edit are 3 to 5; Back and Forward are 2 and 3, and Clear is 5.
    ButtonArray CmdQuestion_;
    ButtonArray CmdQuestNav_;
};
