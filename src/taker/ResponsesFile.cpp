#include "taker/ResponsesFile.h"

#include "base/Text.h"
#include "base/WholeNumber.h"

namespace {

QString TextOf(std::string_view bytes) { return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())); }

QString ProblemText(CellProblem problem) {
    switch (problem) {
    case CellProblem::TooLong:
        return QStringLiteral("the cell is longer than %1 bytes").arg(CsvReader::LongestCell);
    case CellProblem::StrayQuote:
        return QStringLiteral("a double quote stands inside a cell that isn't quoted");
    case CellProblem::TextAfterQuote:
        return QStringLiteral("text stands behind the closing double quote");
    case CellProblem::OpenQuote:
        return QStringLiteral("the closing double quote is missing");
    case CellProblem::NotUtf8:
        return QStringLiteral("the cell is not valid UTF-8");
    case CellProblem::ZeroByte:
        return QStringLiteral("the cell holds a zero byte");
    case CellProblem::None:
        break;
    }
    return {};
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view WithoutBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

ScoreTable::ScoreTable(const TestDocument& test)
    : items_(static_cast<size_t>(test.QuestionCount) + 1), subscaleCount_(static_cast<size_t>(test.SubscaleCount)) {
    for (int q = 1; q <= test.QuestionCount; ++q) {
        Item& item = items_[static_cast<size_t>(q)];
        const int s = test.QuestionSubscale(q);
        item.Slot = s >= 0 && s <= test.SubscaleCount ? static_cast<size_t>(s) : 0;
        for (int a = 1; a <= MaxAnswers; ++a) {
            const auto index = static_cast<size_t>(a);
            item.Offered[index] = !ChosenText(test, q, a).isEmpty();
            item.Exists[index] = a <= OfferedAnswerCount(test, q);
            if (item.Offered[index] && IsMultichoice(test, q))
                item.Value[index] = ChosenValue(test, q, a).Number();
        }
    }
}

void ScoreTable::Score(const std::vector<signed char>& choices, Scores& scores, int& overflowsAt) const {
    scores.TotalScore = 0;
    scores.SubscaleScore.assign(subscaleCount_ + 1, 0);
    for (size_t q = 1; q < items_.size(); ++q) {
        const Item& item = items_[q];
        const int value = item.Value[static_cast<size_t>(choices[q])];
        if (value == 0)
            continue;
        scores.SubscaleScore[item.Slot] += value;
        overflowsAt = static_cast<int>(q);
        scores.TotalScore = AddToTotal(scores.TotalScore, value);
    }
}

ResponsesReader::ResponsesReader(const TestDocument& test, QIODevice& source, Texts texts, Complaint complain)
    : test_(test),
      table_(test),
      reader_(source),
      texts_(texts),
      complain_(std::move(complain)),
      choices_(static_cast<size_t>(test.QuestionCount) + 1) {}

void ResponsesReader::ComplainAt(const QString& columnName, qint64 line, const QString& what) {
    ++complaints_;
    rowGood_ = false;
    const QString where = row_ == 0 ? QStringLiteral("header") : QStringLiteral("row %1").arg(row_);
    complain_(where + QStringLiteral(", column ") + Quoted(columnName) + QStringLiteral(" (line %1): ").arg(line) +
              what);
}

ResponsesReader::Column ResponsesReader::ColumnFor(const QString& name) const {
    if (name == QStringLiteral("client"))
        return {name, ColumnKind::Client, 0};
    if (name == QStringLiteral("administrator"))
        return {name, ColumnKind::Administrator, 0};
    const int q = TryWholeNumber(name).value_or(0);
    if (q < 1 || q > test_.QuestionCount || QString::number(q) != name)
        return {name, ColumnKind::Ignored, 0};
    if (IsMultichoice(test_, q))
        return {name, ColumnKind::Choice, q};
    const bool typed = test_.QuestionType(q) == ShortAnswer || test_.QuestionType(q) == LongAnswer;
    return {name, typed ? ColumnKind::Text : ColumnKind::Unanswerable, q};
}

bool ResponsesReader::ReadHeader() {
    CsvCell cell;
    QHash<QString, size_t> seen;
    do {
        if (!reader_.Next(cell))
            return !columns_.empty();
        const QString name = cell.Problem == CellProblem::None ? TextOf(cell.Text) : QString();
        Column column = ColumnFor(name);
        const QString shown = name.isEmpty() ? QString::number(columns_.size() + 1) : name;
        if (cell.Problem != CellProblem::None)
            ComplainAt(shown, cell.Line, ProblemText(cell.Problem));
        else if (column.Kind == ColumnKind::Ignored)
            ComplainAt(shown, cell.Line,
                       name.isEmpty()
                           ? QStringLiteral("the column has no name")
                           : QStringLiteral("the column is neither 'client' nor 'administrator' nor the number "
                                            "of a question from 1 to %1")
                                 .arg(test_.QuestionCount));
        else if (seen.contains(name))
            ComplainAt(shown, cell.Line,
                       QStringLiteral("the column stands there twice, as number %1 and number %2")
                           .arg(seen.value(name))
                           .arg(columns_.size() + 1));
        column.Name = shown;
        columns_.push_back(column);
        seen.insert(name, columns_.size());
    } while (!cell.EndsRow);
    return true;
}

bool ResponsesReader::NextRow() {
    CsvCell cell;
    if (!reader_.Next(cell))
        return false;
    ++row_;
    rowLine_ = cell.Line;
    rowGood_ = true;
    client_.clear();
    administrator_.clear();
    answers_.clear();
    std::fill(choices_.begin(), choices_.end(), static_cast<signed char>(0));

    size_t count = 0;
    for (;;) {
        if (count < columns_.size())
            TakeCell(columns_[count], cell);
        ++count;
        if (cell.EndsRow)
            break;
        if (!reader_.Next(cell))
            return false;
    }
    if (count != columns_.size())
        CheckCellCount(count);
    if (rowGood_)
        ScoreRow();
    return true;
}

void ResponsesReader::CheckCellCount(size_t count) {
    const QString column = count < columns_.size() ? columns_[count].Name : QString::number(columns_.size() + 1);
    ComplainAt(column, rowLine_,
               QStringLiteral("the row has %1 and the header %2")
                   .arg(count == 1 ? QStringLiteral("1 cell") : QStringLiteral("%1 cells").arg(count))
                   .arg(columns_.size()));
}

void ResponsesReader::TakeCell(const Column& column, const CsvCell& cell) {
    if (cell.Problem != CellProblem::None)
        return ComplainAt(column.Name, cell.Line, ProblemText(cell.Problem));
    switch (column.Kind) {
    case ColumnKind::Choice:
        return TakeChoice(column, cell);
    case ColumnKind::Text:
        if (texts_ == Texts::Kept && !cell.Text.empty())
            answers_.insert(column.Question, TextOf(cell.Text));
        return;
    case ColumnKind::Client:
        client_ = cell.Text;
        return;
    case ColumnKind::Administrator:
        administrator_ = cell.Text;
        return;
    case ColumnKind::Unanswerable:
        if (!cell.Text.empty())
            ComplainAt(column.Name, cell.Line,
                       QStringLiteral("the question has the type %1 and can't be answered")
                           .arg(test_.QuestionType(column.Question)));
        return;
    case ColumnKind::Ignored:
        return;
    }
}

void ResponsesReader::TakeChoice(const Column& column, const CsvCell& cell) {
    // Nearly all cells are one digit.
    if (cell.Text.size() == 1 && cell.Text[0] >= '0' && cell.Text[0] <= '9')
        return TakeNumber(column, cell, cell.Text[0] - '0');
    const std::string_view text = WithoutBlanks(cell.Text);
    if (text.empty())
        return;
    // A fraction or a sign would mean something else than the answer that it is rounded to.
    if (const auto number = TryAnswerNumber(TextOf(text)))
        return TakeNumber(column, cell, *number);
    ComplainAt(column.Name, cell.Line, Quoted(TextOf(text)) + QStringLiteral(" is not the number of an answer"));
}

void ResponsesReader::TakeNumber(const Column& column, const CsvCell& cell, int a) {
    if (a == 0)
        return;
    const int q = column.Question;
    if (a >= 1 && a <= MaxAnswers && table_.Offered(q, a)) {
        choices_[static_cast<size_t>(q)] = static_cast<signed char>(a);
        return;
    }
    const bool exists = a >= 1 && a <= MaxAnswers && table_.Exists(q, a);
    ComplainAt(column.Name, cell.Line,
               exists ? QStringLiteral("answer %1 of the question has no text, so that it can't be chosen").arg(a)
                      : QStringLiteral("the question has no answer %1").arg(a));
}

void ResponsesReader::ScoreRow() {
    int overflowsAt = 0;
    try {
        table_.Score(choices_, scores_, overflowsAt);
    } catch (const OverflowError& overflow) {
        ComplainAt(QString::number(overflowsAt), rowLine_,
                   overflow.Message() + QStringLiteral(": with this question the total score leaves -32768 to 32767"));
    }
}

ResponseSet ResponsesReader::Responses() const {
    ResponseSet responses(test_.QuestionCount);
    for (int q = 1; q <= test_.QuestionCount; ++q) {
        const int a = choices_[static_cast<size_t>(q)];
        responses.ResponseChoice(q) = a;
        responses.ResponseValue(q) = ChosenValue(test_, q, a).Number();
        responses.ResponseText(q) = answers_.value(q);
        if (a != 0 || !responses.ResponseText(q).isEmpty())
            responses.FurthestQuestion = q;
    }
    responses.TestCompleted = responses.FurthestQuestion == test_.QuestionCount;
    return responses;
}
