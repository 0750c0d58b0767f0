#include "export/PageData.h"

#include "base/JsonWriter.h"

namespace {

QStringView KindOf(int type) {
    switch (type) {
    case TypeUnset:
    case Multichoice:
        return u"choice";
    case ShortAnswer:
        return u"short";
    case LongAnswer:
        return u"long";
    default:
        return u"none";
    }
}

/// Bounds are texts: those of a sub-scale's range may be no number.
void WriteRange(JsonWriter& json, const QString& low, const QString& high, const QString& text) {
    json.BeginObject();
    json.TextAt(u"low", low);
    json.TextAt(u"high", high);
    json.TextAt(u"text", text);
    json.EndObject();
}

void WriteScale(JsonWriter& json, const TestDocument& test, int s) {
    json.BeginObject();
    json.TextAt(u"name", test.SubscaleName(s));
    json.Key(u"ranges");
    json.BeginArray();
    for (int r = 1; r <= test.SubscaleRangeCount(s); ++r)
        WriteRange(json, BoundText(test.SubscaleRangeLow(s, r)), BoundText(test.SubscaleRangeHigh(s, r)),
                   test.SubscaleRangeText(s, r));
    json.EndArray();
    json.EndObject();
}

void WriteQuestion(JsonWriter& json, const TestDocument& test, int q) {
    json.BeginObject();
    json.TextAt(u"kind", KindOf(test.QuestionType(q)));
    json.TextAt(u"text", test.QuestionText(q));
    json.NumberAt(u"subscale", test.QuestionSubscale(q));
    json.Key(u"answers");
    json.BeginArray();
    const int count = IsMultichoice(test, q) ? OfferedAnswerCount(test, q) : 0;
    for (int a = 1; a <= count; ++a) {
        json.BeginObject();
        json.TextAt(u"text", ChosenText(test, q, a));
        json.TextAt(u"value", ChosenValue(test, q, a).Text());
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
}

} // namespace

QString PageData(const TestDocument& test, const PageValues& values) {
    JsonWriter json(JsonForm::Embedded);
    json.BeginObject();
    json.TextAt(u"title", test.TestTitle);
    json.TextAt(u"introduction", test.TestIntroduction);
    json.TextAt(u"instructions", test.TestInstructions);
    json.TextAt(u"completionMessage", test.TestCompletionMessage);
    json.TextAt(u"email", values.Email);
    json.TextAt(u"nextPage", values.NextPage);
    json.TextAt(u"language", values.Language);
    json.Key(u"subscales");
    json.BeginArray();
    for (int s = 1; s <= test.SubscaleCount; ++s)
        WriteScale(json, test, s);
    json.EndArray();
    json.Key(u"totalRanges");
    json.BeginArray();
    for (int r = 1; r <= test.TotalRangeCount; ++r)
        WriteRange(json, QString::number(test.TotalRangeLow(r)), QString::number(test.TotalRangeHigh(r)),
                   test.TotalRangeText(r));
    json.EndArray();
    json.Key(u"questions");
    json.BeginArray();
    for (int q = 1; q <= test.QuestionCount; ++q)
        WriteQuestion(json, test, q);
    json.EndArray();
    json.EndObject();
    return QString::fromLatin1(json.Json());
}
