#include "taker/Answers.h"

#include <QStringList>

bool AnswerOffered(const TestDocument& test, int q, int a) { return a >= 1 && !ChosenText(test, q, a).isEmpty(); }

bool HasAnswersToChoose(const TestDocument& test, int q) {
    if (!IsMultichoice(test, q))
        return false;
    for (int a = 1; a <= MaxAnswers; ++a)
        if (AnswerOffered(test, q, a))
            return true;
    return false;
}

bool IsAnswered(const TestDocument& test, const ResponseSet& responses, int q) {
    return !ChosenText(test, q, responses.ResponseChoice(q)).isEmpty() || !responses.ResponseText(q).isEmpty();
}

int AnsweredCount(const TestDocument& test, const ResponseSet& responses) {
    int count = 0;
    for (int q = 1; q <= test.QuestionCount; ++q)
        count += IsAnswered(test, responses, q) ? 1 : 0;
    return count;
}

void KeepDraft(ResponseSet& responses, int q, const QString& text) {
    if (text == responses.ResponseText(q))
        responses.Drafts.erase(q);
    else
        responses.Drafts[q] = text;
}

const QString& TypedText(const ResponseSet& responses, int q) {
    const auto draft = responses.Drafts.find(q);
    return draft == responses.Drafts.end() ? responses.ResponseText(q) : draft->second;
}

QString QuestionsWithDrafts(const ResponseSet& responses) {
    QStringList numbers;
    for (const auto& [q, text] : responses.Drafts)
        numbers += QString::number(q);
    if (numbers.size() == 1)
        return QStringLiteral("question ") + numbers.first();
    const QString last = numbers.takeLast();
    return QStringLiteral("questions ") + numbers.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}
