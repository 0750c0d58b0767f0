#include "taker/Report.h"

#include "base/LineBreak.h"
#include "taker/Answers.h"
#include "taker/Scoring.h"

#include <QLocale>

namespace {

/// Writes the blocks of one report in their order.
class Reporter {
  public:
    Reporter(const TestDocument& test, const ResponseSet& responses, const ReportContext& context)
        : test_(test), responses_(responses), context_(context), scores_(ComputeScores(test, responses)) {}

    QString Build() {
        AddHead();
        AddResponses();
        AddScores();
        return text_;
    }

  private:
    bool On(Option option) const { return test_.TestOption(option); }
    void Add(const QString& text) { text_ += text; }

    void AddHead();
    void AddResponses();
    void AddResponse(int q);
    void AddScores();

    const TestDocument& test_;
    const ResponseSet& responses_;
    const ReportContext& context_;
    const Scores scores_;
    QString text_;
};

void Reporter::AddHead() {
    const QString paragraph = LineBreak + LineBreak;
    if (On(ReportTitle))
        Add((test_.TestTitle + QStringLiteral(" Report")).toUpper());
    if (!context_.ClientName.isEmpty() && On(PromptClientName))
        Add(LineBreak + QStringLiteral(" FOR ") + context_.ClientName.toUpper());
    Add(paragraph);
    if (!context_.AdministratorName.isEmpty() && On(PromptTesterName))
        Add(QStringLiteral("Test administered by ") + context_.AdministratorName + paragraph);
    if (On(ReportIntroduction))
        Add(QStringLiteral("INTRODUCTION") + paragraph + test_.TestIntroduction + paragraph);
    if (On(ReportInstructions))
        Add(QStringLiteral("INSTRUCTIONS") + paragraph + test_.TestInstructions + paragraph);
    if (On(ReportDateAndTime))
        Add(LineBreak + QStringLiteral("TEST COMPLETED: ") + ReportTime(context_.Now) + QStringLiteral("   ") +
            ReportDate(context_.Now) + paragraph);
    if (On(ReportQuestionsCompleted))
        Add(QString::number(responses_.FurthestQuestion) + QStringLiteral(" of ") +
            QString::number(test_.QuestionCount) + QStringLiteral(" questions completed.") + paragraph);
}

void Reporter::AddResponses() {
    if (On(ReportMultichoiceAnswers))
        Add(QStringLiteral("QUESTION RESPONSES:") + LineBreak);

    QString notAnswered;
    for (int q = 1; q <= test_.QuestionCount; ++q) {
        if (IsAnswered(test_, responses_, q))
            AddResponse(q);
        else
            notAnswered += (notAnswered.isEmpty() ? QString() : QStringLiteral(", ")) + QString::number(q);
    }
    if (On(ReportMultichoiceAnswers) && !notAnswered.isEmpty())
        Add(LineBreak + QStringLiteral("QUESTIONS NOT ANSWERED: ") + notAnswered + u'.' + LineBreak + LineBreak);
}

void Reporter::AddResponse(int q) {
    const int type = test_.QuestionType(q);
    const bool multichoice = IsMultichoice(test_, q);
    const bool reported = (multichoice && On(ReportMultichoiceAnswers)) ||
                          (type == ShortAnswer && On(ReportShortAnswers)) ||
                          (type == LongAnswer && On(ReportLongAnswers));
    if (!reported)
        return;
    Add(context_.QuestionPrefix + QString::number(q) + context_.QuestionSuffix);
    if (context_.BreakAfterQuestionNumber)
        Add(LineBreak);
    if (On(ReportQuestions))
        Add(test_.QuestionText(q) + QStringLiteral(" =  "));
    Add((multichoice ? ChosenText(test_, q, responses_.ResponseChoice(q)) : responses_.ResponseText(q)) + LineBreak);
}

void Reporter::AddScores() {
    if (On(ReportSubscales) && test_.SubscaleCount >= 1) {
        Add(LineBreak + QStringLiteral("SUBSCALE SCORES") + LineBreak);
        for (int s = 1; s <= test_.SubscaleCount; ++s)
            Add(test_.SubscaleName(s) + QStringLiteral(": ") +
                QString::number(scores_.SubscaleScore[static_cast<size_t>(s)]) + LineBreak);
    }
    if (On(ReportTotalScore))
        Add(LineBreak + QStringLiteral("CUMULATIVE SCORE= ") + QString::number(scores_.TotalScore) + LineBreak);
    if (On(ReportAnalysis) && test_.SubscaleCount >= 1)
        Add(LineBreak + QStringLiteral("ANALYSIS OF SUBSCALES:") + LineBreak + SubscaleAnalysis(test_, scores_) +
            LineBreak);
    if (test_.TotalRangeCount >= 1)
        Add(LineBreak + QStringLiteral("ANALYSIS OF TOTAL SCORE:") + LineBreak + TotalAnalysis(test_, scores_) +
            LineBreak);
}

/// A time format without its zone: "h:mm:ss AP t" becomes "h:mm:ss AP". Quoted words stay.
QString WithoutZone(const QString& format) {
    QString result;
    bool quoted = false;
    for (const QChar c : format) {
        if (c == u'\'')
            quoted = !quoted;
        if (quoted || c != u't')
            result += c;
    }
    result.replace(QStringLiteral("()"), QString());
    return result.trimmed();
}

} // namespace

QString BuildReport(const TestDocument& test, const ResponseSet& responses, const ReportContext& context) {
    return Reporter(test, responses, context).Build();
}

QString ReportTime(const QDateTime& now) {
    const QLocale locale = QLocale::system();
    return locale.toString(now.time(), WithoutZone(locale.timeFormat(QLocale::LongFormat)));
}

QString ReportDate(const QDateTime& now) { return QLocale::system().toString(now.date(), QLocale::ShortFormat); }
