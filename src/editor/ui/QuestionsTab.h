#pragma once

#include "editor/QuestionEdits.h"
#include "editor/ui/AnswerFrame.h"
#include "editor/ui/EditorTab.h"
#include "editor/ui/QuestionTypeButtons.h"

#include <QComboBox>

/// The page on which questions and their answers are written, one question at a time. What is typed changes nothing
/// in the document before it is added or stored with Edit.
class QuestionsTab : public EditorTab {
    Q_OBJECT

  public:
    explicit QuestionsTab(const EditorParts& parts);

    /// The current question stays the current one as far as it exists.
    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;

    /// Shows the current question as it is in the document; what was typed and not added is dropped.
    void ShowQuestion();
    void ShowLastQuestion();
    /// 1 to QuestionCount, 0 for a new question.
    int CurrentQuestion() const { return current_; }
    /// Fills the list of sub-scales, with none as its first item; what is chosen there stays, as far as it exists.
    void FillSubscales(const QString& none);

  private:
    QWidget* MakeQuestionFrame();
    QLayout* MakeSubscaleRow();
    QLayout* MakeButtonRow();

    int TypeToShow() const;
    void UpdateButtons();
    QuestionBoxes Boxes() const;
    void FocusText();

    void ChkQType_Click(int type);
    void CmdQuestion_Click(int index);
    void AddTyped();
    void EditShown();
    void DeleteShown();
    void CmdQuestNav_Click(int index);

    int current_ = 0;
    int type_ = Multichoice;

    QGroupBox* FrmQuestion_ = nullptr;
    TextBox* txtQuestion_ = nullptr;
    QuestionTypeButtons* types_ = nullptr;
    QComboBox* QuestionSS_ = nullptr;
    AnswerFrame* FrameAnswer_ = nullptr;
    /// Add, Delete and Edit are 0 to 2; Back and Foward are 0 and 1, and Clear is 4.
    ButtonArray CmdQuestion_;
    ButtonArray CmdQuestNav_;
};
