#include "export/workbook/Workbook.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/CellXml.h"
#include "export/workbook/NewWorkbook.h"
#include "export/workbook/WorkbookError.h"

#include <QLocale>

namespace {

/// What a part may be unpacked to. A sheet of this size has some ten million cells.
constexpr qint64 MaxSheetBytes = 512 << 20;
constexpr qint64 MaxSharedBytes = 256 << 20;
constexpr qint64 MaxStylesBytes = 32 << 20;

SpreadsheetError Refused(int row, int column, const QString& why) {
    return {SpreadsheetFailure, QStringLiteral("The cell %1 %2").arg(QString::fromLatin1(CellName(row, column)), why)};
}

void CheckFits(int row, int column, const CellValue& value) {
    const QLocale english(QLocale::English);
    if (row < 1 || row > MostRows || column < 1 || column > MostColumns)
        throw SpreadsheetError(SpreadsheetFailure,
                               QStringLiteral("A sheet ends at row %1 and column %2, and row %3, column %4 is outside")
                                   .arg(english.toString(MostRows), english.toString(MostColumns),
                                        english.toString(row), english.toString(column)));
    if (const QString* text = std::get_if<QString>(&value); text && text->size() > MostCellCharacters)
        throw Refused(row, column,
                      QStringLiteral("can hold at most %1 characters, and its text has %2")
                          .arg(english.toString(MostCellCharacters), english.toString(text->size())));
}

bool IsNothing(const CellValue& value) {
    const QString* text = std::get_if<QString>(&value);
    return std::holds_alternative<std::monostate>(value) || (text && text->isEmpty());
}

} // namespace

Workbook::Workbook() : Workbook(NewWorkbookBytes()) {}

Workbook::Workbook(const QByteArray& bytes)
    : package_(bytes), map_(MapPackage(package_)), sheet_(package_.Read(map_.Sheet, MaxSheetBytes)) {}

CellValue Workbook::Cell(int row, int column) {
    if (const auto ofRow = written_.find(row); ofRow != written_.end())
        if (const auto cell = ofRow->second.find(column); cell != ofRow->second.end())
            return IsNothing(cell->second) ? CellValue() : cell->second;
    const auto cell = sheet_.Find(row, column);
    return cell ? Meaning(*cell) : CellValue();
}

CellValue Workbook::Meaning(const StoredCell& cell) {
    // A formula is something even where its result is an empty text.
    if (!cell.HasValue)
        return cell.HasFormula ? CellValue(QString()) : CellValue();
    if (cell.Type == "s") {
        if (!map_.SharedStrings)
            throw WorkbookError(QStringLiteral("its shared texts are not there"));
        if (!sharedStrings_)
            sharedStrings_.emplace(package_.Read(*map_.SharedStrings, MaxSharedBytes));
        const QString text = WithoutEscapes(sharedStrings_->At(cell.Value.toLongLong()));
        return text.isEmpty() ? CellValue() : CellValue(text);
    }
    if (cell.Type == "d")
        if (const QDate date = QDate::fromString(cell.Value.left(10), Qt::ISODate); date.isValid())
            return date;
    if (cell.Type != "n" && cell.Type != "b")
        return WithoutEscapes(cell.Value);
    bool isNumber = false;
    const double number = cell.Value.toDouble(&isNumber);
    if (!isNumber)
        return cell.Value;
    if (cell.Type == "n" && cell.Style >= 0 && Formats().IsDate(cell.Style))
        return DateOfNumber(number, map_.From1904);
    return number;
}

void Workbook::SetCell(int row, int column, const CellValue& value) {
    CheckFits(row, column, value);
    const auto there = sheet_.Find(row, column);
    if (there && there->HasFormula)
        throw Refused(row, column, QStringLiteral("holds a formula, which would be lost"));
    elements_[row][column] =
        CellElement(sheet_.Prefix(), row, column, StyleFor(row, column, value, there), value, map_.From1904);
    written_[row][column] = value;
}

int Workbook::StyleFor(int row, int column, const CellValue& value, const std::optional<StoredCell>& there) {
    const int style = there ? there->Style : sheet_.StyleForNew(row, column);
    return std::holds_alternative<QDate>(value) ? Formats().DateStyle(style) : style;
}

Styles& Workbook::Formats() {
    if (!styles_)
        styles_.emplace(map_.Styles ? package_.Read(*map_.Styles, MaxStylesBytes) : PlainStyles);
    return *styles_;
}

CellBlock Workbook::Written() const {
    CellBlock block;
    for (const auto& [name, part] : map_.Sheets)
        if (part == map_.Sheet)
            block.Sheet = name;
    block.FirstRow = elements_.begin()->first;
    block.LastRow = elements_.rbegin()->first;
    block.FirstColumn = MostColumns;
    for (const auto& [row, cells] : elements_) {
        block.FirstColumn = qMin(block.FirstColumn, cells.begin()->first);
        block.LastColumn = qMax(block.LastColumn, cells.rbegin()->first);
    }
    return block;
}

// Only formulas that may have another result now lose the one that stands in the sheet; the others, and sheets without
// any, stay as they are.
void Workbook::DropStaleResults(std::vector<NamedSheet>& sheets, std::vector<QByteArray>& kept) {
    QStringList parts;
    for (const auto& [name, part] : map_.Sheets) {
        const QByteArray xml = part == map_.Sheet ? sheet_.Xml() : package_.Read(part, MaxSheetBytes);
        if (!MayHaveFormulas(xml))
            continue;
        sheets.push_back({name, xml});
        parts.append(part);
    }
    const StaleResults stale = FindStaleResults(sheets, Written());
    for (size_t i = 0; i < sheets.size(); ++i) {
        const QString& part = parts[static_cast<qsizetype>(i)];
        const QByteArrayView xml(sheets[i].Xml);
        std::vector<QByteArrayView> pieces;
        qsizetype from = 0;
        for (const auto& [begin, end] : stale.Elements[i]) {
            if (part == map_.Sheet)
                sheet_.Drop(begin, end);
            pieces.push_back(xml.sliced(from, begin - from));
            from = end;
        }
        pieces.push_back(xml.sliced(from));
        if (part != map_.Sheet && pieces.size() > 1)
            package_.Put(part, pieces);
    }
    if (stale.Any)
        CalculateOnOpening(package_, map_, kept);
}

QByteArray Workbook::Pack() {
    std::vector<QByteArray> kept;
    kept.reserve(4);
    std::vector<NamedSheet> sheets;
    if (!elements_.empty())
        DropStaleResults(sheets, kept);
    if (styles_ && styles_->Changed()) {
        const QString name = map_.Styles ? *map_.Styles : AddStylesPart(package_, map_, kept);
        kept.push_back(styles_->Xml());
        package_.Put(name, {kept.back()});
    }
    package_.Put(map_.Sheet, sheet_.WithCells(elements_));
    return package_.Pack();
}
