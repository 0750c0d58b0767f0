#include "base/JsonWriter.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/Shared.h"
#include "testdoc/EarlierTest.h"

namespace {

void Write(JsonWriter& json, const Value& value) {
    if (value.IsEmpty())
        json.Null();
    else if (const auto number = value.TryNumber())
        json.Number(*number);
    else
        json.Text(value.Text());
}

void WriteRange(JsonWriter& json, const Value& low, const Value& high, const QString& text) {
    json.BeginObject();
    json.Key(u"Low");
    Write(json, low);
    json.Key(u"High");
    Write(json, high);
    json.TextAt(u"Text", text);
    json.EndObject();
}

void WriteAnswer(JsonWriter& json, const QString& text, const Value& value) {
    json.BeginObject();
    json.TextAt(u"Text", text);
    json.Key(u"Value");
    Write(json, value);
    json.EndObject();
}

void WriteSubscales(JsonWriter& json, const TestDocument& test) {
    json.Key(u"Subscales");
    json.BeginArray();
    for (int s = 1; s <= test.SubscaleCount; ++s) {
        json.BeginObject();
        json.TextAt(u"SubscaleName", test.SubscaleName(s));
        json.Key(u"Ranges");
        json.BeginArray();
        for (int r = 1; r <= test.SubscaleRangeCount(s); ++r)
            WriteRange(json, test.SubscaleRangeLow(s, r), test.SubscaleRangeHigh(s, r), test.SubscaleRangeText(s, r));
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
}

void WriteQuestion(JsonWriter& json, const TestDocument& test, int q) {
    json.BeginObject();
    json.TextAt(u"QuestionText", test.QuestionText(q));
    json.NumberAt(u"QuestionType", test.QuestionType(q));
    json.NumberAt(u"QuestionSubscale", test.QuestionSubscale(q));
    json.NumberAt(u"AnswerCount", OwnAnswerCount(test, q));
    json.Key(u"Answers");
    json.BeginArray();
    for (int a = 1; a <= OfferedAnswerCount(test, q); ++a)
        WriteAnswer(json, ChosenText(test, q, a), ChosenValue(test, q, a));
    json.EndArray();
    json.EndObject();
}

void WriteTexts(JsonWriter& json, const TestDocument& test) {
    json.TextAt(u"TestFileName", test.TestFileName);
    json.TextAt(u"TestBaseName", test.TestBaseName);
    json.NumberAt(u"TestFileLength", test.TestFileLength);
    json.TextAt(u"TestTitle", test.TestTitle);
    json.TextAt(u"TestIntroduction", test.TestIntroduction);
    json.TextAt(u"TestInstructions", test.TestInstructions);
    json.TextAt(u"TestCompletionMessage", test.TestCompletionMessage);
    json.BooleanAt(u"SubscaleRangesPresent", test.SubscaleRangesPresent);
}

void WriteTotalAndTemplate(JsonWriter& json, const TestDocument& test) {
    json.Key(u"TotalRanges");
    json.BeginArray();
    for (int r = 1; r <= test.TotalRangeCount; ++r)
        WriteRange(json, test.TotalRangeLow(r), test.TotalRangeHigh(r), test.TotalRangeText(r));
    json.EndArray();
    json.Key(u"TemplateAnswers");
    json.BeginArray();
    for (int i = 1; i <= test.TemplateAnswerCount; ++i)
        WriteAnswer(json, test.TemplateAnswerText(i), test.TemplateAnswerValue(i));
    json.EndArray();
}

void WriteQuestions(JsonWriter& json, const TestDocument& test) {
    json.NumberAt(u"LongestAnswerLength", test.LongestAnswerLength);
    json.NumberAt(u"MaxAnswerCount", test.MaxAnswerCount);
    json.BooleanAt(u"HasMultichoice", test.HasMultichoice);
    json.BooleanAt(u"HasShortAnswer", test.HasShortAnswer);
    json.BooleanAt(u"HasLongAnswer", test.HasLongAnswer);
    json.BooleanAt(u"HasLongAnswerQuestions", test.HasLongAnswerQuestions);
    json.NumberAt(u"QuestionCount", test.QuestionCount);
    json.Key(u"Questions");
    json.BeginArray();
    for (int q = 1; q <= test.QuestionCount; ++q)
        WriteQuestion(json, test, q);
    json.EndArray();
}

void WriteOptions(JsonWriter& json, const TestDocument& test) {
    json.BooleanAt(u"ReportOnlyWhenDone", test.ReportOnlyWhenDone);
    json.BooleanAt(u"NavigationButtons", test.NavigationButtons);
    json.Key(u"TestOption");
    json.BeginArray();
    for (int i = 1; i <= OptionCount; ++i)
        if (test.TestOption(i))
            json.Number(i);
    json.EndArray();
    json.TextAt(u"ReportDirectory", test.ReportDirectory);
    json.TextAt(u"ExcelDirectory", test.ExcelDirectory);
    json.TextAt(u"ExcelFileName", test.ExcelFileName);
    json.TextAt(u"AutosaveFileName", test.AutosaveFileName);
}

int Run(const CommandLine& line, Console& console) {
    TestDocument test;
    OpenTestNamingEarlier(test, AbsolutePath(line.Files[0]));
    Output output(console.Out);
    output.Write(JsonOf(test));
    output.Finish();
    return Done;
}

} // namespace

QByteArray JsonOf(const TestDocument& test) {
    JsonWriter json;
    json.BeginObject();
    WriteTexts(json, test);
    WriteSubscales(json, test);
    WriteTotalAndTemplate(json, test);
    WriteQuestions(json, test);
    WriteOptions(json, test);
    json.EndObject();
    return json.Json();
}

const Command& ShowCommand() {
    static const Command command{QStringLiteral("show"),
                                 QStringLiteral("FILE"),
                                 QStringLiteral("Prints the test as one JSON object."),
                                 {},
                                 1,
                                 1,
                                 Run};
    return command;
}
