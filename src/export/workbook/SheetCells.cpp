#include "export/workbook/SheetCells.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/WorkbookError.h"

#include <algorithm>
#include <limits>

namespace {

using Kind = XmlScanner::Kind;

/// Goes to the next cell of a row; its column, or 0 when there is none.
int NextCell(XmlScanner& scanner, int before) {
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        if (scanner.LocalName() != "c") {
            scanner.SkipElement();
            continue;
        }
        const QByteArrayView reference = scanner.Attribute("r");
        const int column = reference.isNull() ? before + 1 : ToCellReference(reference).Column;
        if (column <= before)
            throw WorkbookError(QStringLiteral("the rows or cells of its sheet are not in order"));
        return column;
    }
    return 0;
}

QByteArrayView Contents(const SheetRow& row) { return row.Xml.first(row.ContentEnd); }

struct Edit {
    qsizetype Begin = 0;
    qsizetype End = 0;
    QByteArray Text;
};

/// Makes room for more columns in what a row says of them.
void WidenSpans(const SheetRow& row, int first, int last, std::vector<Edit>& edits) {
    XmlScanner scanner(row.Xml.first(row.ContentBegin));
    scanner.Next();
    const QByteArrayView spans = scanner.Attribute("spans");
    const qsizetype colon = spans.indexOf(':');
    if (colon < 0 || spans.contains(' '))
        return;
    const int from = ToInt(spans.first(colon), first);
    const int to = ToInt(spans.sliced(colon + 1), last);
    const qsizetype begin = spans.data() - row.Xml.data();
    if (first < from || last > to)
        edits.push_back({begin, begin + spans.size(),
                         QByteArray::number(qMin(from, first)) + ':' + QByteArray::number(qMax(to, last))});
}

/// Leaves out the result in the cell that the scanner is at, and goes past the cell.
void DropResult(XmlScanner& scanner, std::vector<Edit>& edits) {
    if (scanner.SelfClosing())
        return;
    for (Kind kind = scanner.Next(); kind != Kind::End && kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        const bool isResult = scanner.LocalName() == "v";
        const qint64 begin = scanner.Begin();
        scanner.SkipElement();
        if (isResult)
            edits.push_back({begin, scanner.End(), {}});
    }
}

QByteArray Edited(QByteArrayView xml, std::vector<Edit>& edits) {
    // Of two at the same place, the one that was made first comes first.
    std::ranges::stable_sort(edits, {}, &Edit::Begin);
    QByteArray edited;
    qsizetype from = 0;
    for (const Edit& edit : edits) {
        edited += xml.sliced(from, edit.Begin - from);
        edited += edit.Text;
        from = edit.End;
    }
    return edited += xml.sliced(from);
}

} // namespace

StoredCell CellOf(QByteArrayView element) {
    XmlScanner scanner(element);
    scanner.Next();
    StoredCell cell;
    cell.Style = ToInt(scanner.Attribute("s"), -1);
    cell.Type = scanner.Attribute("t").toByteArray();
    if (cell.Type.isEmpty())
        cell.Type = "n";
    if (scanner.SelfClosing())
        return cell;
    bool inText = false;
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind == Kind::Text) {
            if (inText)
                cell.Value += scanner.Text();
            continue;
        }
        const QByteArrayView name = scanner.LocalName();
        const bool isText = name == "v" || name == "t";
        if (kind == Kind::End) {
            inText = inText && !isText;
        } else if (name == "rPh") {
            scanner.SkipElement(); // How the text is spoken.
        } else {
            cell.HasFormula = cell.HasFormula || name == "f";
            inText = isText && !scanner.SelfClosing();
        }
    }
    cell.HasValue = !cell.Value.isEmpty();
    return cell;
}

QByteArray WithCells(const SheetRow& row, const RowElements& cells, const std::set<int>& staleColumns,
                     const QByteArray& prefix) {
    std::vector<Edit> edits;
    if (!cells.empty())
        WidenSpans(row, cells.begin()->first, cells.rbegin()->first, edits);
    if (row.SelfClosing) {
        QByteArray text = ">";
        for (const auto& [column, element] : cells)
            text += element;
        if (!cells.empty())
            edits.push_back({row.ContentBegin - 2, row.ContentBegin, text + "</" + prefix + "row>"});
        return Edited(row.Xml, edits);
    }
    XmlScanner scanner(Contents(row), row.ContentBegin);
    auto next = cells.begin();
    // What is put into the row comes right after the cell before it.
    qsizetype afterLast = row.ContentBegin;
    const auto putBefore = [&](int column) {
        for (; next != cells.end() && next->first < column; ++next)
            edits.push_back({afterLast, afterLast, next->second});
    };
    int column = 0;
    while ((column = NextCell(scanner, column)) != 0) {
        putBefore(column);
        const qint64 begin = scanner.Begin();
        if (staleColumns.contains(column))
            DropResult(scanner, edits);
        else
            scanner.SkipElement();
        afterLast = scanner.End();
        if (next != cells.end() && next->first == column)
            edits.push_back({begin, afterLast, (next++)->second});
    }
    putBefore(std::numeric_limits<int>::max());
    return Edited(row.Xml, edits);
}

QByteArray NewRow(int number, const RowElements& cells, const QByteArray& prefix) {
    QByteArray text = '<' + prefix + "row r=\"" + QByteArray::number(number) + "\">";
    for (const auto& [column, element] : cells)
        text += element;
    return text + "</" + prefix + "row>";
}

bool SheetCells::GoTo(int row) {
    if (row > outline_.LastRow || (row > before_ && row < row_))
        return false;
    if (!reader_ || row < row_) {
        reader_.reset();
        source_ = open_();
        reader_ = std::make_unique<SheetReader>(*source_);
        row_ = before_ = 0;
    }
    while (row_ < row) {
        cells_.reset();
        spots_.clear();
        const SheetReader::Part part = reader_->Next();
        if (part == SheetReader::Part::Row)
            before_ = std::exchange(row_, reader_->Row().Number);
        else if (part == SheetReader::Part::EndOfRows || part == SheetReader::Part::Finished)
            return false;
    }
    return row_ == row;
}

bool SheetCells::FindNextSpot() {
    const SheetRow& row = reader_->Row();
    if (!cells_)
        cells_ = std::make_unique<XmlScanner>(Contents(row), row.ContentBegin);
    const int column = NextCell(*cells_, spots_.empty() ? 0 : spots_.back().Column);
    if (column == 0)
        return false;
    const qint64 begin = cells_->Begin();
    cells_->SkipElement();
    spots_.push_back({column, begin, cells_->End()});
    return true;
}

std::optional<StoredCell> SheetCells::Find(int row, int column) {
    if (!GoTo(row))
        return std::nullopt;
    while ((spots_.empty() || spots_.back().Column < column) && FindNextSpot()) {
    }
    const auto spot = std::ranges::lower_bound(spots_, column, {}, &Spot::Column);
    if (spot == spots_.end() || spot->Column != column)
        return std::nullopt;
    StoredCell cell = CellOf(reader_->Row().Xml.sliced(spot->Begin, spot->End - spot->Begin));
    cell.Column = column;
    return cell;
}

int SheetCells::StyleForNew(int row, int column) {
    if (GoTo(row)) {
        XmlScanner scanner(reader_->Row().Xml.first(reader_->Row().ContentBegin));
        scanner.Next();
        const QByteArrayView custom = scanner.Attribute("customFormat");
        if (custom == "1" || custom == "true")
            return ToInt(scanner.Attribute("s"), -1);
    }
    for (const SheetOutline::ColumnRange& range : outline_.Columns)
        if (column >= range.First && column <= range.Last)
            return range.Style;
    return -1;
}
