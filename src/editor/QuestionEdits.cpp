#include "editor/QuestionEdits.h"

#include "base/WholeNumber.h"

#include <algorithm>

namespace {

bool KeepsAnswers(int q) { return q >= 1 && q <= MaxQuestionsWithAnswers; }

void SetOwnAnswerCount(TestDocument& test, int q, int count) {
    if (KeepsAnswers(q))
        test.AnswerCount(q) = count;
}

QString PositionCaption(const char* what, int position, int count) {
    const QString name = QLatin1String(what);
    if (position == 0)
        return QStringLiteral("New %1 (Total = %2)").arg(name).arg(count);
    return QStringLiteral("%1 %2 of %3").arg(name).arg(position).arg(count);
}

int Before(int position, int count) { return position - 1 < 1 ? count : position - 1; }
int After(int position, int count) { return position + 1 > count ? 0 : position + 1; }

void CopyOwnAnswers(TestDocument& test, int from, int to) {
    const int count = OwnAnswerCount(test, from);
    SetOwnAnswerCount(test, to, count);
    for (int a = 1; a <= count; ++a) {
        test.AnswerText(to, a) = test.AnswerText(from, a);
        test.AnswerValue(to, a) = test.AnswerValue(from, a);
    }
}

bool HasTypedAnswer(int type) { return type == ShortAnswer || type == LongAnswer; }

/// How an answer's value is kept.
Value KeptValue(const QString& typed) {
    if (const std::optional<int> number = TryWholeNumber(typed))
        return *number;
    return typed.isEmpty() ? Value() : Value(typed);
}

} // namespace

QString QuestionCaption(const TestDocument& test, int q) { return PositionCaption("Question", q, test.QuestionCount); }

QString AnswerCaption(const TestDocument& test, int q, int a) {
    return PositionCaption("Answer", a, OwnAnswerCount(test, q));
}

int QuestionBefore(const TestDocument& test, int q) { return Before(q, test.QuestionCount); }
int QuestionAfter(const TestDocument& test, int q) { return After(q, test.QuestionCount); }
int AnswerBefore(const TestDocument& test, int q, int a) { return Before(a, OwnAnswerCount(test, q)); }
int AnswerAfter(const TestDocument& test, int q, int a) { return After(a, OwnAnswerCount(test, q)); }

Result AddQuestion(TestDocument& test, int previous, const QuestionBoxes& boxes) {
    const int q = test.QuestionCount + 1;
    if (q > MaxQuestions)
        return Result::Failed(OnlySoManyQuestions);
    if (boxes.Type == Multichoice && !KeepsAnswers(q))
        return Result::Failed(OnlySoManyQuestionsWithAnswers);

    test.QuestionCount = q;
    test.QuestionText(q) = boxes.Text;
    test.QuestionSubscale(q) = boxes.Subscale.value_or(previous == 0 ? 0 : test.QuestionSubscale(previous));
    test.QuestionType(q) = boxes.Type;
    if (boxes.Type == Multichoice)
        CopyOwnAnswers(test, previous, q);
    else
        SetOwnAnswerCount(test, q, 0);
    return Result::Done();
}

Result EditQuestion(TestDocument& test, int q, const QuestionBoxes& boxes) {
    // One that a file made multichoice stays editable.
    if (boxes.Type == Multichoice && !KeepsAnswers(q) && test.QuestionType(q) != Multichoice)
        return Result::Failed(OnlySoManyQuestionsWithAnswers);

    test.QuestionText(q) = boxes.Text;
    test.QuestionSubscale(q) = HasTypedAnswer(boxes.Type) ? 0 : boxes.Subscale.value_or(test.QuestionSubscale(q));
    if (boxes.Type != Multichoice)
        SetOwnAnswerCount(test, q, 0);
    test.QuestionType(q) = boxes.Type;
    return Result::Done();
}

int DeleteQuestion(TestDocument& test, int q) {
    for (int i = q; i < test.QuestionCount; ++i) {
        test.QuestionText(i) = test.QuestionText(i + 1);
        test.QuestionType(i) = test.QuestionType(i + 1);
        test.QuestionSubscale(i) = test.QuestionSubscale(i + 1);
        CopyOwnAnswers(test, i + 1, i);
    }
    test.QuestionCount = std::max(0, test.QuestionCount - 1);
    return std::min(q, test.QuestionCount);
}

Result AddAnswer(TestDocument& test, int q, const QString& text, const QString& value) {
    if (!KeepsAnswers(q))
        return Result::Failed(OnlySoManyQuestionsWithAnswers);
    const int a = OwnAnswerCount(test, q) + 1;
    if (a > MaxAnswers)
        return Result::Failed(OnlySoManyAnswers);

    test.AnswerCount(q) = a;
    test.QuestionType(q) = Multichoice;
    return EditAnswer(test, q, a, text, value);
}

Result EditAnswer(TestDocument& test, int q, int a, const QString& text, const QString& value) {
    if (!KeepsAnswers(q))
        return Result::Failed(OnlySoManyQuestionsWithAnswers);
    test.AnswerText(q, a) = text;
    test.AnswerValue(q, a) = KeptValue(value);
    return Result::Done();
}

int DeleteAnswer(TestDocument& test, int q, int a) {
    const int count = OwnAnswerCount(test, q);
    for (int i = a; i < count; ++i) {
        test.AnswerText(q, i) = test.AnswerText(q, i + 1);
        test.AnswerValue(q, i) = test.AnswerValue(q, i + 1);
    }
    SetOwnAnswerCount(test, q, std::max(0, count - 1));
    return std::min(a, OwnAnswerCount(test, q));
}
