#include "export/ResultSheet.h"

#include "base/Text.h"
#include "export/workbook/CellReference.h"

#include <algorithm>
#include <set>

namespace {

/// The heads end where so many cells in a row are empty.
constexpr int WidestGap = 100;
/// A message names so many heads at most.
constexpr qsizetype MostNamed = 10;

/// Cells end their lines with line feeds.
QString AsInCell(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

/// A head that a program made a number or a date of is still that head.
QString TextOf(const CellValue& value) {
    if (const double* number = std::get_if<double>(&value))
        return QString::number(*number, 'g', 15);
    if (const QDate* date = std::get_if<QDate>(&value))
        return date->toString(Qt::ISODate);
    const QString* text = std::get_if<QString>(&value);
    return text ? AsInCell(*text) : QString();
}

/// Some programs drop the blank that ends "Q.1 ".
bool SameHead(const QString& one, const QString& other) { return one == other || one.trimmed() == other.trimmed(); }

QString Listed(const QStringList& heads) {
    QStringList quoted;
    for (const QString& head : heads.first(qMin(MostNamed, heads.size())))
        quoted.append(Quoted(head));
    const qsizetype more = heads.size() - quoted.size();
    return quoted.join(QStringLiteral(", ")) + (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString());
}

SpreadsheetError Refused(const QString& path, const QString& why) {
    return {SpreadsheetFailure,
            QStringLiteral("Nothing was written to the file ") + Quoted(path) + QStringLiteral(": ") + why};
}

} // namespace

ResultSheet::ResultSheet(SpreadsheetApplication& application, const TestDocument& test, const QString& questionPrefix,
                         const QString& questionSuffix)
    : application_(application),
      test_(test),
      columns_(ResultColumnsOf(test, questionPrefix, questionSuffix)),
      places_(columns_.size()) {
    for (ResultColumn& column : columns_)
        column.Head = AsInCell(column.Head);
    for (size_t i = 0; i < columns_.size(); ++i)
        places_[i] = static_cast<int>(i) + 1;
}

void ResultSheet::Begin() {
    application_.SetCells(1, 1, test_.TestTitle);
    for (size_t i = 0; i < columns_.size(); ++i)
        Set(HeadsRow, i, columns_[i].Head);
    row_ = columns_.empty() ? HeadsRow : HeadsRow + 1;
}

void ResultSheet::Find(const QString& path) {
    ReadHeads();
    const bool expected = AreInPlace();
    if (!expected)
        FindPlaces(path);
    const std::set<int> mine(places_.begin(), places_.end());
    for (const Head& head : heads_)
        if (!mine.contains(head.Column))
            otherColumns_.push_back(head.Column);
    row_ = FreeRow(heads_.empty() && columns_.empty() ? HeadsRow : HeadsRow + 1);
    if (!expected)
        AddMissing(path);
}

void ResultSheet::ReadHeads() {
    const int gap = std::max(WidestGap, static_cast<int>(columns_.size()) + 1);
    for (int column = 1, last = 0; column <= MostColumns && column - last <= gap; ++column) {
        const CellValue value = application_.Cells(HeadsRow, column);
        if (std::holds_alternative<std::monostate>(value))
            continue;
        heads_.push_back({column, TextOf(value)});
        last = column;
    }
}

bool ResultSheet::AreInPlace() const {
    const auto textAt = [this](int column) {
        const auto head = std::ranges::lower_bound(heads_, column, {}, &Head::Column);
        return head != heads_.end() && head->Column == column ? head->Text : QString();
    };
    return std::ranges::all_of(
        columns_, [&, column = 0](const ResultColumn& mine) mutable { return SameHead(textAt(++column), mine.Head); });
}

/// Columns that are found by their heads need heads that differ.
void ResultSheet::CheckTellable(const QString& path) const {
    std::set<QString> seen;
    for (const ResultColumn& column : columns_) {
        if (column.Head.trimmed().isEmpty())
            throw Refused(path, QStringLiteral("its third row doesn't hold the heads that this test expects, and a "
                                               "sub-scale without a name has none to be found by"));
        if (!seen.insert(column.Head).second)
            throw Refused(path, QStringLiteral("its third row doesn't hold the heads that this test expects, and the "
                                               "test has two columns with the head ") +
                                    Quoted(column.Head));
    }
}

int ResultSheet::PlaceOf(const QString& head, const QString& path) const {
    const auto placeBy = [&](const auto& matches) {
        int place = 0;
        for (const Head& there : heads_) {
            if (!matches(there.Text))
                continue;
            if (place != 0)
                throw Refused(path, QStringLiteral("the head ") + Quoted(head) +
                                        QStringLiteral(" appears twice in its third row, in the columns %1 and %2")
                                            .arg(QString::fromLatin1(ColumnName(place)),
                                                 QString::fromLatin1(ColumnName(there.Column))));
            place = there.Column;
        }
        return place;
    };
    if (const int place = placeBy([&](const QString& text) { return text == head; }))
        return place;
    // What is another column's head to the letter isn't this one's.
    return placeBy([&](const QString& text) {
        return SameHead(text, head) &&
               std::ranges::none_of(columns_, [&](const ResultColumn& other) { return other.Head == text; });
    });
}

void ResultSheet::FindPlaces(const QString& path) {
    if (heads_.empty()) {
        std::ranges::fill(places_, 0);
        return;
    }
    CheckTellable(path);
    std::set<int> used;
    for (size_t i = 0; i < columns_.size(); ++i) {
        places_[i] = PlaceOf(columns_[i].Head, path);
        if (places_[i] != 0 && !used.insert(places_[i]).second)
            throw Refused(path, QStringLiteral("two columns of the test would go under the head ") +
                                    Quoted(columns_[i].Head));
    }
}

void ResultSheet::AddMissing(const QString& path) {
    const auto missing = static_cast<int>(std::ranges::count(places_, 0));
    const int end = missing > 0 ? RightEnd(missing) : 0;
    if (end + missing > MostColumns)
        throw Refused(path,
                      QStringLiteral("a sheet has %1 columns, and %2 more don't fit").arg(MostColumns).arg(missing));
    if (heads_.empty() && end > 0)
        CheckTellable(path);
    QStringList added;
    int column = end;
    for (int& place : places_) {
        if (place != 0)
            continue;
        place = ++column;
        const auto index = static_cast<size_t>(&place - places_.data());
        added.append(columns_[index].Head);
        Set(HeadsRow, index, columns_[index].Head);
    }
    const QString list = Listed(added);
    if (heads_.empty())
        note_ =
            QStringLiteral("The third row of the file %1 had no heads. These were added: %2.").arg(Quoted(path), list);
    else
        note_ =
            QStringLiteral("The heads in the third row of the file %1 are not those that this test expects, so each "
                           "result was put under its own head.")
                .arg(Quoted(path)) +
            (added.isEmpty() ? QString()
                             : QStringLiteral(" Heads that were missing were added at the right end: ") + list + u'.');
}

/// The last column that is not free for new heads: behind the last head, and behind whatever is below without one.
int ResultSheet::RightEnd(int count) {
    int end = heads_.empty() ? 0 : heads_.back().Column;
    for (bool found = true; found;) {
        found = false;
        const int first = end + 1;
        const int last = std::min(end + count, MostColumns);
        for (int row = HeadsRow + 1; row <= row_; ++row)
            for (int column = last; column >= first && column > end; --column)
                if (!IsEmpty(row, column)) {
                    end = column;
                    found = true;
                }
    }
    return end;
}

/// The first row from there on that is free: its first cell is empty, as the first column usually is one of results,
/// and so are those under all heads, lest results be mixed with those of another administration, whose first cell
/// someone emptied or never had. Formulas that wait under heads of others for the row to be filled take no row.
int ResultSheet::FreeRow(int from) {
    const auto isFree = [this](int row) {
        return IsEmpty(row, 1) &&
               std::ranges::all_of(places_, [&](int column) { return column == 0 || IsEmpty(row, column); }) &&
               std::ranges::all_of(otherColumns_, [&](int column) {
                   return IsEmpty(row, column) || application_.HasFormula(row, column);
               });
    };
    int row = from;
    while (!isFree(row))
        ++row;
    return row;
}

void ResultSheet::Append(const ResultsOfOne& results) {
    row_ = FreeRow(row_);
    for (size_t i = 0; i < columns_.size(); ++i)
        Set(row_, i, ValueOf(columns_[i], results));
    for (size_t i = 0; i < columns_.size(); ++i)
        if (IsEmpty(row_, places_[i]))
            Set(row_, i, 0.0);
    row_ += columns_.empty() ? 0 : 1;
}

void ResultSheet::Set(int row, size_t index, const CellValue& value) {
    try {
        application_.SetCells(row, places_[index], value);
    } catch (const SpreadsheetError& failure) {
        throw SpreadsheetError(failure.Number(), QStringLiteral("The column ") + Quoted(columns_[index].Head) +
                                                     QStringLiteral(" can't be written: ") + failure.Message());
    }
}
