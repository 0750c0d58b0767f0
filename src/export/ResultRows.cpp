#include "export/ResultRows.h"

namespace {

using Kind = ResultColumn::Kind;

std::optional<ResultColumn> ColumnOfQuestion(const TestDocument& test, int q) {
    const auto column = [&](Option option, Kind kind) {
        return test.TestOption(option) ? std::optional<ResultColumn>({kind, q, {}}) : std::nullopt;
    };
    if (IsMultichoice(test, q))
        return column(IncludeMultichoiceAnswersInExcel, Kind::Choice);
    if (test.QuestionType(q) == ShortAnswer)
        return column(IncludeShortAnswersInExcel, Kind::Text);
    if (test.QuestionType(q) == LongAnswer)
        return column(IncludeLongAnswersInExcel, Kind::Text);
    return std::nullopt;
}

} // namespace

std::vector<ResultColumn> ResultColumnsOf(const TestDocument& test, const QString& questionPrefix,
                                          const QString& questionSuffix) {
    std::vector<ResultColumn> columns;
    if (test.TestOption(IncludeClientNameInExcel))
        columns.push_back({Kind::Client, 0, QStringLiteral("Client")});
    if (test.TestOption(IncludeDateInExcel))
        columns.push_back({Kind::Date, 0, QStringLiteral("Date")});
    if (test.TestOption(IncludeTotalScoreInExcel))
        columns.push_back({Kind::TotalScore, 0, QStringLiteral("Total Score")});
    if (test.TestOption(IncludeSubscalesInExcel))
        for (int s = 1; s <= test.SubscaleCount; ++s)
            columns.push_back({Kind::Subscale, s, test.SubscaleName(s)});
    for (int q = 1; q <= test.QuestionCount; ++q) {
        if (auto column = ColumnOfQuestion(test, q)) {
            column->Head = questionPrefix + QString::number(q) + questionSuffix;
            columns.push_back(*column);
        }
    }
    return columns;
}

CellValue ValueOf(const ResultColumn& column, const ResultsOfOne& results) {
    switch (column.What) {
    case Kind::Client:
        return results.Client;
    case Kind::Date:
        return results.Date;
    case Kind::TotalScore:
        return static_cast<double>(results.RowScores.TotalScore);
    case Kind::Subscale:
        return static_cast<double>(results.RowScores.SubscaleScore[static_cast<size_t>(column.Number)]);
    case Kind::Choice:
        return static_cast<double>(results.Responses.ResponseChoice(column.Number));
    case Kind::Text:
        return results.Responses.ResponseText(column.Number);
    }
    return {};
}
