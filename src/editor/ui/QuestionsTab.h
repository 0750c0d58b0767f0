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

    /// Shows the last question; a new one begins as multichoice.
    void RefreshFromTest() override;
    void GoTo(const TestPlace& place) override;
    std::vector<EntryForm*> Forms() override;
    void ShowTyped(const TypedEntry& typed) override;

    /// Shows the current question as it is in the document; what was typed and not added is dropped.
    void ShowQuestion() { ShowQuestion(CurrentQuestion()); }
    void ShowLastQuestion();
    /// 1 to QuestionCount, 0 for a new question.
    int CurrentQuestion() const { return form_->Number(); }
    /// Fills the list of sub-scales, with none as its first item; what is chosen there stays, as far as it exists.
    void FillSubscales(const QString& none);

  private:
    QWidget* MakeQuestionFrame();
    QLayout* MakeSubscaleRow();
    QLayout* MakeButtonRow();

    void MakeForm();

    void ShowQuestion(int q);
    void ShowQuestionBoxes(int q);
    int TypeOfNew() const;
    void UpdateButtons();

    void ChkQType_Click(int type);
    void CmdQuestion_Click(int index);
    void AddTyped();
    void EditShown();
    void DeleteShown();
    void TakeStored(const TestPlace& place, bool added);
    void CmdQuestNav_Click(int index);

    int type_ = Multichoice;

    QGroupBox* FrmQuestion_ = nullptr;
    TextBox* txtQuestion_ = nullptr;
    QuestionTypeButtons* types_ = nullptr;
    QComboBox* QuestionSS_ = nullptr;
    AnswerFrame* FrameAnswer_ = nullptr;
    BoxForm* form_ = nullptr;
    /// Add, Delete and Edit are 0 to 2; Back and Foward are 0 and 1, and Clear is 4.
    ButtonArray CmdQuestion_;
    ButtonArray CmdQuestNav_;
};
