#include "taker/Administration.h"

#include "base/LineBreak.h"
#include "taker/Answers.h"

Administration::Administration(Session& session) : session_(session) {
    session_.Responses = ResponseSet(session_.Test.QuestionCount);
    session_.AutoReportDone = false;
    session_.SpreadsheetExported = false;
    session_.SpreadsheetFilePath.clear();
    session_.Filed = FiledAnswers();
    ShowInstructions();
    if (session_.Test.TestInstructions.isEmpty())
        Begin();
}

int Administration::CurrentQuestion() const { return session_.Responses.CurrentQuestion; }

void Administration::Begin() {
    beginCaption_ = QStringLiteral("&Resume Test");
    ShowQuestion(CurrentQuestion());
}

void Administration::Back() {
    ResponseSet& responses = session_.Responses;
    do {
        responses.CurrentQuestion -= 1;
        if (responses.CurrentQuestion < 1)
            responses.CurrentQuestion = qMax(1, responses.FurthestQuestion);
    } while (responses.CurrentQuestion > session_.Test.QuestionCount);
    ShowQuestion(responses.CurrentQuestion);
}

void Administration::Forward() {
    ResponseSet& responses = session_.Responses;
    responses.CurrentQuestion += 1;
    if (responses.CurrentQuestion > responses.FurthestQuestion)
        responses.CurrentQuestion = responses.FurthestQuestion + 1;
    if (responses.CurrentQuestion > session_.Test.QuestionCount)
        responses.CurrentQuestion = 1;
    ShowQuestion(responses.CurrentQuestion);
}

void Administration::ShowQuestion(int q) {
    const TestDocument& test = session_.Test;
    session_.Responses.CurrentQuestion = q;
    page_ = TestPage::Question;

    if (HasAnswersToChoose(test, q))
        frame_ = AnswerFrame::Multichoice;
    else if (test.QuestionType(q) == ShortAnswer)
        frame_ = AnswerFrame::Short;
    else if (test.QuestionType(q) == LongAnswer)
        frame_ = AnswerFrame::Long;
    else
        frame_ = AnswerFrame::CannotAnswer;

    reportVisible_ = exportVisible_ = autoReportVisible_ =
        !test.TestOption(DisableAllOptions) && !test.ReportOnlyWhenDone;
    if (!test.NavigationButtons)
        return;
    if (q > 1)
        backVisible_ = true;
    forwardVisible_ = q <= session_.Responses.FurthestQuestion;
}

void Administration::ShowPage(TestPage page) { page_ = page; }
void Administration::ShowInstructions() { ShowPage(TestPage::Instructions); }
void Administration::ShowIntroduction() { ShowPage(TestPage::Introduction); }
void Administration::ShowQuestionListing() { ShowPage(TestPage::QuestionListing); }

bool Administration::Choose(int a) {
    if (!ShowsMultichoice() || !AnswerOffered(a))
        return false;
    ResponseSet& responses = session_.Responses;
    const int q = responses.CurrentQuestion;
    const int value = ChosenValue(session_.Test, q, a).Number();
    responses.ResponseChoice(q) = a;
    responses.ResponseValue(q) = value;
    Record();
    return true;
}

void Administration::AcceptText(const QString& text) {
    session_.Responses.ResponseText(CurrentQuestion()) = text;
    session_.Responses.Drafts.erase(CurrentQuestion());
    Record();
}

bool Administration::Continue() {
    if (CannotAnswer().isEmpty())
        return false;
    GoOn();
    return true;
}

void Administration::TakeDraft(const QString& text) {
    if (ShowsShortAnswer() || ShowsLongAnswer())
        KeepDraft(session_.Responses, CurrentQuestion(), text);
}

bool Administration::ShowsDraft() const {
    return OnQuestion() && session_.Responses.Drafts.count(CurrentQuestion()) > 0;
}

void Administration::Decide(DraftsDecision decision) {
    ResponseSet& responses = session_.Responses;
    waits_ = false;
    if (decision == DraftsDecision::GoBack)
        return ShowQuestion(responses.Drafts.begin()->first);
    if (decision == DraftsDecision::Accept) {
        for (const auto& [q, text] : responses.Drafts)
            responses.ResponseText(q) = text;
        responses.FurthestQuestion = qMax(responses.FurthestQuestion, responses.Drafts.rbegin()->first);
        responses.Drafts.clear();
    }
    leftDrafts_ = responses.Drafts;
    CompleteTest();
}

void Administration::Record() {
    ResponseSet& responses = session_.Responses;
    responses.FurthestQuestion = qMax(responses.FurthestQuestion, responses.CurrentQuestion);
    GoOn();
}

void Administration::GoOn() {
    const ResponseSet& responses = session_.Responses;
    if (responses.CurrentQuestion != session_.Test.QuestionCount)
        ShowQuestion(responses.CurrentQuestion + 1);
    else if (!responses.Drafts.empty() && responses.Drafts != leftDrafts_)
        waits_ = true;
    else
        CompleteTest();
}

void Administration::CompleteTest() {
    page_ = TestPage::Completed;
    frame_ = AnswerFrame::None;
    session_.Responses.TestCompleted = true;
    backVisible_ = reportVisible_ = true;
    if (session_.Test.TestOption(DisableAllOptions))
        return;
    if (session_.Test.NavigationButtons)
        forwardVisible_ = CurrentQuestion() <= session_.Responses.FurthestQuestion;
    autoReportVisible_ = true;
    if (spreadsheetInstalled_)
        exportVisible_ = true;
}

QString Administration::FrameCaption() const {
    switch (page_) {
    case TestPage::Instructions:
        return QStringLiteral("INSTRUCTIONS");
    case TestPage::Introduction:
        return QStringLiteral("INTRODUCTION");
    case TestPage::QuestionListing:
        return session_.Test.TestTitle + QStringLiteral("- Questions");
    case TestPage::Completed:
        return QStringLiteral("Completed");
    case TestPage::Question:
        break;
    }
    return QStringLiteral("Question ") + QString::number(CurrentQuestion()) + QStringLiteral(" of ") +
           QString::number(session_.Test.QuestionCount);
}

QString Administration::PageText() const {
    const TestDocument& test = session_.Test;
    switch (page_) {
    case TestPage::Instructions:
        return test.TestInstructions;
    case TestPage::Introduction:
        return test.TestIntroduction;
    case TestPage::QuestionListing:
        return QuestionListing(test);
    case TestPage::Question:
        return test.QuestionText(CurrentQuestion());
    case TestPage::Completed:
        break;
    }
    return CompletionText(forwardVisible_
                              ? QStringLiteral("Click the 'Report' button to create a report, or use the 'Back' and "
                                               "'Forward' buttons to view and edit your responses.")
                              : QStringLiteral("Click the 'Report' button to create a report, or use the 'Back' button "
                                               "to view and edit your responses."));
}

QString Administration::CompletionText(const QString& whatNow) const {
    const TestDocument& test = session_.Test;
    const QString completed =
        QStringLiteral("You have completed the '") + test.TestTitle + QStringLiteral("'.") + LineBreak + whatNow;
    return test.TestCompletionMessage.isEmpty() ? completed : completed + LineBreak + test.TestCompletionMessage;
}

bool Administration::ShowsMultichoice() const { return OnQuestion() && frame_ == AnswerFrame::Multichoice; }
bool Administration::ShowsShortAnswer() const { return OnQuestion() && frame_ == AnswerFrame::Short; }
bool Administration::ShowsLongAnswer() const { return OnQuestion() && frame_ == AnswerFrame::Long; }

QString Administration::CannotAnswer() const {
    if (!OnQuestion() || frame_ != AnswerFrame::CannotAnswer)
        return {};
    return IsMultichoice(session_.Test, CurrentQuestion())
               ? QStringLiteral("This question has no answers to choose from.")
               : QStringLiteral("This question is of a kind that doesn't exist, so it can't be answered.");
}

bool Administration::AnswerOffered(int a) const { return ::AnswerOffered(session_.Test, CurrentQuestion(), a); }

bool Administration::BeginVisible() const {
    return page_ == TestPage::Instructions || page_ == TestPage::Introduction || page_ == TestPage::QuestionListing;
}

bool Administration::MenusVisible() const { return !session_.Test.TestOption(DisableAllOptions); }

bool Administration::WantsSpreadsheetExport() const {
    const TestDocument& test = session_.Test;
    if (session_.SpreadsheetExported)
        return false;
    bool wanted = !test.ExcelFileName.isEmpty() || test.TestOption(AutosaveExcelDirectoryAsClient) ||
                  test.TestOption(AutosaveExcelReportAsClient);
    for (int i = IncludeMultichoiceAnswersInExcel; i <= IncludeTotalScoreInExcel; ++i)
        wanted = wanted || test.TestOption(i);
    return wanted;
}

bool Administration::WantsAutoReport() const {
    const TestDocument& test = session_.Test;
    return !session_.AutoReportDone &&
           (test.TestOption(AutosaveReportAsClient) || test.TestOption(AutosaveReportDirectoryAsClient) ||
            test.TestOption(AppendToReportFile));
}

Result CanBegin(const TestDocument& test) {
    if (test.QuestionCount > 0)
        return Result::Done();
    return Result::Failed(QStringLiteral("The test '") + test.TestTitle + QStringLiteral("' has no questions."));
}

QString QuestionListing(const TestDocument& test) {
    QString listing = test.TestTitle + LineBreak + LineBreak;
    if (!test.TestInstructions.isEmpty())
        listing += QStringLiteral("INSTRUCTIONS") + LineBreak + LineBreak + test.TestInstructions + LineBreak +
                   LineBreak + LineBreak;
    for (int q = 1; q <= test.QuestionCount; ++q) {
        listing += QStringLiteral("QUESTION ") + QString::number(q) + LineBreak + test.QuestionText(q) + LineBreak;
        for (int a = 1; a <= OfferedAnswerCount(test, q); ++a)
            if (const QString answer = ChosenText(test, q, a); !answer.isEmpty())
                listing += QStringLiteral("[ ] ") + answer + LineBreak;
        listing += LineBreak;
    }
    return listing;
}
