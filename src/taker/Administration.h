#pragma once

#include "taker/Session.h"

/// What becomes of typed texts that weren't accepted when the test is completed.
enum class DraftsDecision { Accept, GoBack, Leave };

/// What the test window shows besides the question itself.
enum class TestPage { Instructions, Introduction, QuestionListing, Question, Completed };

/// The course of one administration: which question comes next, what is recorded, which buttons may be seen. It works
/// on the session's test and Response set and knows no window, so that the terminal and the window follow the same
/// rules. The rules that concern buttons keep their visibility from step to step, as the window does.
class Administration {
  public:
    /// Starts a new administration of the session's test: an empty Response set, the flags of the automatic report and
    /// the export cleared, and the page that comes first (the first question when the test has no instructions).
    explicit Administration(Session& session);

    // Navigation
    void Begin();   ///< CmdBegin: shows the current question
    void Back();    ///< one question back; from question 1 to the furthest answered one
    void Forward(); ///< one question on, at most to the first unanswered one; wraps to 1
    void ShowQuestion(int q);
    void ShowInstructions();
    void ShowIntroduction();
    void ShowQuestionListing();

    // Answers. All three go on to the next question or to completion.
    /// Chooses answer a (1..10) of the current question. Returns false, and changes nothing, when no button shows it.
    bool Choose(int a);
    /// Takes the text as the current question's answer.
    void AcceptText(const QString& text);
    /// Passes over a question that can't be answered; it counts as not answered. False, and nothing changed, when the
    /// current one can be answered.
    bool Continue();

    // Drafts
    /// Keeps the text in the current question's box until it is accepted. It counts for nothing until then.
    void TakeDraft(const QString& text);
    bool ShowsDraft() const;
    /// Whether completion waits for a decision on the drafts. Each state of them is asked about once.
    bool WaitsForDecision() const { return waits_; }
    /// Ends the waiting: completes the test, or shows the first question with a draft.
    void Decide(DraftsDecision decision);

    TestPage Page() const { return page_; }
    int CurrentQuestion() const;
    /// What the frame around the text says: "Question 3 of 20", "INSTRUCTIONS", ...
    QString FrameCaption() const;
    /// What the question window holds.
    QString PageText() const;
    /// The page at the end, with the sentence that says what can be done there.
    QString CompletionText(const QString& whatNow) const;
    /// Whether the current page is a question of that kind (TypeUnset and Multichoice are one kind).
    bool ShowsMultichoice() const;
    bool ShowsShortAnswer() const;
    bool ShowsLongAnswer() const;
    /// Why the question on the page can't be answered, for the client; empty when it can, or no question is shown.
    QString CannotAnswer() const;
    /// Whether button a (1..10) is seen on question q.
    bool AnswerOffered(int a) const;

    // What may be seen
    bool BeginVisible() const;
    QString BeginCaption() const { return beginCaption_; }
    bool BackVisible() const { return backVisible_; }
    bool ForwardVisible() const { return forwardVisible_; }
    bool ReportVisible() const { return reportVisible_; }
    bool ExportVisible() const { return exportVisible_; }
    bool AutoReportVisible() const { return autoReportVisible_; }
    bool MenusVisible() const;
    /// Whether the spreadsheet application is there; set before the first completion.
    void SetSpreadsheetInstalled(bool installed) { spreadsheetInstalled_ = installed; }

    // What completion does by itself; asked by the window after a step that ended on TestPage::Completed
    bool WantsSpreadsheetExport() const;
    bool WantsAutoReport() const;

  private:
    enum class AnswerFrame { None, Multichoice, Short, Long, CannotAnswer };

    void Record();
    void GoOn();
    void CompleteTest();
    void ShowPage(TestPage page);
    bool OnQuestion() const { return page_ == TestPage::Question; }

    Session& session_;
    TestPage page_ = TestPage::Instructions;
    AnswerFrame frame_ = AnswerFrame::None;
    QString beginCaption_ = QStringLiteral("&Begin Test");
    bool waits_ = false;
    /// The drafts that the person chose to leave as they are.
    std::map<int, QString> leftDrafts_;
    bool backVisible_ = false;
    bool forwardVisible_ = false;
    bool reportVisible_ = false;
    bool exportVisible_ = false;
    bool autoReportVisible_ = false;
    bool spreadsheetInstalled_ = false;
};

/// Whether a test can be begun; the message is "The test 'title' has no questions." otherwise.
Result CanBegin(const TestDocument& test);

/// The listing of all questions with their answers that the test window shows.
QString QuestionListing(const TestDocument& test);
