#include "export/workbook/SheetPart.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/WorkbookError.h"

#include <algorithm>

namespace {

using Kind = XmlScanner::Kind;

int ToInt(QByteArrayView digits, int otherwise) {
    bool fits = false;
    const int number = digits.toByteArray().toInt(&fits);
    return fits ? number : otherwise;
}

[[noreturn]] void WrongOrder() {
    throw WorkbookError(QStringLiteral("the rows or cells of its sheet are not in order"));
}

} // namespace

SheetPart::SheetPart(const QByteArray& xml) : xml_(xml) {
    XmlScanner scanner(xml_);
    bool inSheet = false;
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        const QByteArrayView name = scanner.LocalName();
        if (!inSheet) {
            if (name != "worksheet" || scanner.SelfClosing())
                throw WorkbookError(QStringLiteral("its sheet is no worksheet"));
            inSheet = true;
        } else if (name == "sheetData") {
            ReadRows(scanner);
        } else if (name == "cols") {
            ReadColumns(scanner);
        } else {
            if (name == "dimension")
                dimension_ = scanner.Attribute("ref");
            scanner.SkipElement();
        }
    }
    if (dataBegin_ < 0)
        throw WorkbookError(QStringLiteral("its sheet has no place for rows"));
}

void SheetPart::ReadColumns(XmlScanner& scanner) {
    if (scanner.SelfClosing())
        return;
    for (Kind kind = scanner.Next(); kind != Kind::End; kind = scanner.Next()) {
        if (kind == Kind::Finished)
            return;
        if (kind != Kind::Start)
            continue;
        if (const int style = ToInt(scanner.Attribute("style"), -1); style >= 0)
            columns_.push_back({ToInt(scanner.Attribute("min"), 0), ToInt(scanner.Attribute("max"), 0), style});
        scanner.SkipElement();
    }
}

void SheetPart::ReadRows(XmlScanner& scanner) {
    if (dataBegin_ >= 0)
        throw WorkbookError(QStringLiteral("its sheet has two places for rows"));
    prefix_ = scanner.Name().chopped(scanner.LocalName().size()).toByteArray();
    dataBegin_ = scanner.Begin();
    dataContentEnd_ = scanner.End();
    dataSelfClosing_ = scanner.SelfClosing();
    if (dataSelfClosing_)
        return;
    int last = 0;
    for (Kind kind = scanner.Next(); kind != Kind::End; kind = scanner.Next()) {
        if (kind == Kind::Finished)
            throw WorkbookError(QStringLiteral("its sheet ends in the middle"));
        if (kind != Kind::Start)
            continue;
        if (scanner.LocalName() != "row") {
            scanner.SkipElement();
            continue;
        }
        Row row;
        const QByteArrayView number = scanner.Attribute("r");
        row.Number = number.isNull() ? last + 1 : ToInt(number, 0);
        if (row.Number <= last || row.Number > MostRows)
            WrongOrder();
        last = row.Number;
        row.Begin = scanner.Begin();
        row.SelfClosing = scanner.SelfClosing();
        row.ContentBegin = scanner.End();
        scanner.SkipElement();
        row.ContentEnd = row.SelfClosing ? row.ContentBegin : scanner.Begin();
        rows_.push_back(row);
    }
    dataContentEnd_ = scanner.Begin();
}

const SheetPart::Row* SheetPart::RowAt(int number) const {
    const auto row = std::ranges::lower_bound(rows_, number, {}, &Row::Number);
    return row != rows_.end() && row->Number == number ? &*row : nullptr;
}

bool SheetPart::NextCell(XmlScanner& scanner, StoredCell& cell, int wanted) const {
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        if (scanner.LocalName() != "c") {
            scanner.SkipElement();
            continue;
        }
        const QByteArrayView reference = scanner.Attribute("r");
        const int column = reference.isNull() ? cell.Column + 1 : ToCellReference(reference).Column;
        if (column <= cell.Column)
            WrongOrder();
        cell = StoredCell();
        cell.Column = column;
        cell.Style = ToInt(scanner.Attribute("s"), -1);
        cell.Begin = scanner.Begin();
        if (column == wanted)
            ReadCell(scanner, cell);
        else
            scanner.SkipElement();
        cell.End = scanner.End();
        return true;
    }
    return false;
}

void SheetPart::ReadCell(XmlScanner& scanner, StoredCell& cell) const {
    cell.Type = scanner.Attribute("t").toByteArray();
    if (cell.Type.isEmpty())
        cell.Type = "n";
    if (scanner.SelfClosing())
        return;
    bool inText = false;
    int depth = 0;
    for (Kind kind = scanner.Next(); kind != Kind::End || depth > 0; kind = scanner.Next()) {
        if (kind == Kind::Finished)
            return;
        if (kind == Kind::Text) {
            if (inText)
                cell.Value += scanner.Text();
            continue;
        }
        const QByteArrayView name = scanner.LocalName();
        const bool isText = name == "v" || name == "t";
        if (kind == Kind::End) {
            --depth;
            inText = inText && !isText;
        } else if (name == "rPh") {
            scanner.SkipElement(); // How the text is spoken.
        } else {
            cell.HasFormula = cell.HasFormula || name == "f";
            inText = isText && !scanner.SelfClosing();
            depth += scanner.SelfClosing() ? 0 : 1;
        }
    }
    cell.HasValue = !cell.Value.isEmpty();
}

std::optional<StoredCell> SheetPart::Find(int row, int column) const {
    const Row* found = RowAt(row);
    if (!found)
        return std::nullopt;
    XmlScanner scanner(QByteArrayView(xml_).first(found->ContentEnd), found->ContentBegin);
    StoredCell cell;
    while (cell.Column < column && NextCell(scanner, cell, column))
        if (cell.Column == column)
            return cell;
    return std::nullopt;
}

int SheetPart::StyleForNew(int row, int column) const {
    if (const Row* found = RowAt(row)) {
        XmlScanner scanner(QByteArrayView(xml_).first(found->ContentBegin), found->Begin);
        scanner.Next();
        const QByteArrayView custom = scanner.Attribute("customFormat");
        if (custom == "1" || custom == "true")
            return ToInt(scanner.Attribute("s"), -1);
    }
    for (const ColumnRange& range : columns_)
        if (column >= range.First && column <= range.Last)
            return range.Style;
    return -1;
}

std::vector<QByteArrayView> SheetPart::WithCells(const CellElements& cells) {
    for (const auto& [number, ofRow] : cells) {
        if (const Row* row = RowAt(number))
            ChangeRow(*row, ofRow);
        else
            InsertRow(number, ofRow);
    }
    if (dataSelfClosing_ && !edits_.empty()) {
        edits_.front().Text.prepend('>');
        edits_.back().Text += "</" + prefix_ + "sheetData>";
    }
    WidenDimension(cells);

    // Of two at the same place, the one that was made first comes first.
    std::ranges::stable_sort(edits_, {}, &Edit::Begin);
    std::vector<QByteArrayView> pieces;
    const QByteArrayView xml(xml_);
    qsizetype from = 0;
    for (const Edit& edit : edits_) {
        pieces.push_back(xml.sliced(from, edit.Begin - from));
        pieces.push_back(edit.Text);
        from = edit.End;
    }
    pieces.push_back(xml.sliced(from));
    return pieces;
}

void SheetPart::InsertRow(int number, const std::map<int, QByteArray>& cells) {
    QByteArray text = '<' + prefix_ + "row r=\"" + QByteArray::number(number) + "\">";
    for (const auto& [column, element] : cells)
        text += element;
    text += "</" + prefix_ + "row>";
    const auto next = std::ranges::upper_bound(rows_, number, {}, &Row::Number);
    if (next != rows_.end())
        edits_.push_back({next->Begin, next->Begin, text});
    else if (dataSelfClosing_)
        edits_.push_back({edits_.empty() ? dataContentEnd_ - 2 : dataContentEnd_, dataContentEnd_, text});
    else
        edits_.push_back({dataContentEnd_, dataContentEnd_, text});
}

void SheetPart::ChangeRow(const Row& row, const std::map<int, QByteArray>& cells) {
    if (cells.empty())
        return;
    WidenSpans(row, cells.begin()->first, cells.rbegin()->first);
    if (row.SelfClosing) {
        QByteArray text = ">";
        for (const auto& [column, element] : cells)
            text += element;
        edits_.push_back({row.ContentBegin - 2, row.ContentBegin, text + "</" + prefix_ + "row>"});
        return;
    }
    XmlScanner scanner(QByteArrayView(xml_).first(row.ContentEnd), row.ContentBegin);
    StoredCell there;
    qsizetype behindLast = row.ContentBegin;
    bool more = NextCell(scanner, there, 0);
    for (const auto& [column, element] : cells) {
        while (more && there.Column < column) {
            behindLast = there.End;
            more = NextCell(scanner, there, 0);
        }
        if (more && there.Column == column) {
            edits_.push_back({there.Begin, there.End, element});
            behindLast = there.End;
            more = NextCell(scanner, there, 0);
        } else {
            edits_.push_back({behindLast, behindLast, element});
        }
    }
}

void SheetPart::WidenSpans(const Row& row, int first, int last) {
    XmlScanner scanner(QByteArrayView(xml_).first(row.ContentBegin), row.Begin);
    scanner.Next();
    const QByteArrayView spans = scanner.Attribute("spans");
    const qsizetype colon = spans.indexOf(':');
    if (colon < 0 || spans.contains(' '))
        return;
    const int from = ToInt(spans.first(colon), first);
    const int to = ToInt(spans.sliced(colon + 1), last);
    if (first < from || last > to)
        Replace(spans, QByteArray::number(qMin(from, first)) + ':' + QByteArray::number(qMax(to, last)));
}

void SheetPart::WidenDimension(const CellElements& cells) {
    const qsizetype colon = dimension_.indexOf(':');
    CellReference from = ToCellReference(colon < 0 ? dimension_ : dimension_.first(colon));
    CellReference to = colon < 0 ? from : ToCellReference(dimension_.sliced(colon + 1));
    if (from.Row == 0 || to.Row == 0 || cells.empty())
        return;
    from.Row = qMin(from.Row, cells.begin()->first);
    to.Row = qMax(to.Row, cells.rbegin()->first);
    for (const auto& [row, ofRow] : cells) {
        from.Column = qMin(from.Column, ofRow.begin()->first);
        to.Column = qMax(to.Column, ofRow.rbegin()->first);
    }
    const QByteArray widened = CellName(from.Row, from.Column) + ':' + CellName(to.Row, to.Column);
    if (dimension_ != widened)
        Replace(dimension_, widened);
}

void SheetPart::Replace(QByteArrayView part, const QByteArray& text) {
    const qsizetype begin = part.data() - xml_.constData();
    edits_.push_back({begin, begin + part.size(), text});
}
