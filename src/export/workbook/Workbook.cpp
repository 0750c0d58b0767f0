#include "export/workbook/Workbook.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/CellXml.h"
#include "export/workbook/NewWorkbook.h"
#include "export/workbook/WorkbookError.h"

#include <QLocale>

namespace {

/// What a part may be unpacked to. A sheet of this size has some forty million cells; as it passes through in pieces,
/// the bound is one of time.
constexpr qint64 MaxSheetBytes = qint64(2) << 30;
constexpr qint64 MaxAllSheetsBytes = 2 * MaxSheetBytes;
/// A sheet of at most so many bytes is kept in memory, so that it is unpacked once.
constexpr qint64 MostKeptBytes = 64 << 20;
/// What a changed sheet may get besides its new cells and rows.
constexpr qint64 BytesAroundRows = 1 << 10;
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

} // namespace

Workbook::Workbook() : Workbook(NewWorkbookBytes()) {}

Workbook::Workbook(const QByteArray& bytes) : package_(bytes) { Take(); }

Workbook::Workbook(std::unique_ptr<QIODevice> device) : package_(std::move(device)) { Take(); }

void Workbook::Take() {
    map_ = MapPackage(package_);
    sheetSize_ = package_.SizeOf(map_.Sheet, MaxSheetBytes);
    sheet_ = Opened(map_.Sheet, sheetSize_);
    outline_ = OutlineOf(*sheet_());
    cells_.emplace(sheet_, outline_);
}

/// A sheet that isn't large is kept when it was unpacked once.
OpenBytes Workbook::Opened(const QString& part, qint64 size) {
    if (size > MostKeptBytes)
        return [this, part] { return package_.Open(part, MaxSheetBytes); };
    return [bytes = package_.Read(part, MaxSheetBytes)] { return std::make_unique<MemorySource>(bytes); };
}

CellValue Workbook::Cell(int row, int column) {
    if (const QByteArray element = written_.Find(row, column); !element.isNull())
        return Meaning(CellOf(element));
    const auto cell = cells_->Find(row, column);
    return cell ? Meaning(*cell) : CellValue();
}

bool Workbook::HasFormula(int row, int column) {
    const auto there = cells_->Find(row, column);
    return there && there->HasFormula;
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
    if (HasFormula(row, column))
        throw Refused(row, column, QStringLiteral("holds a formula, which would be lost"));
    const auto there = cells_->Find(row, column);
    written_.Set(row, column,
                 CellElement(outline_.Prefix, row, column, StyleFor(row, column, value, there), value, map_.From1904));
}

int Workbook::StyleFor(int row, int column, const CellValue& value, const std::optional<StoredCell>& there) {
    const int style = there ? there->Style : cells_->StyleForNew(row, column);
    return std::holds_alternative<QDate>(value) ? Formats().DateStyle(style) : style;
}

Styles& Workbook::Formats() {
    if (!styles_)
        styles_.emplace(map_.Styles ? package_.Read(*map_.Styles, MaxStylesBytes) : PlainStyles);
    return *styles_;
}

// Only formulas that may have another result now lose the one that is in the sheet; the others, and sheets without any,
// stay as they are.
void Workbook::FindStale(std::vector<SheetChanges>& changes) {
    std::vector<NamedSheet> sheets;
    std::vector<CellBlock> blocks = written_.Blocks();
    qint64 all = 0;
    for (const auto& [name, part] : map_.Sheets) {
        const bool isActive = part == map_.Sheet;
        const qint64 size = package_.SizeOf(part, MaxSheetBytes);
        if (all += size; all > MaxAllSheetsBytes)
            throw WorkbookError(QStringLiteral("its sheets together are more than %1 bytes long")
                                    .arg(QLocale(QLocale::English).toString(MaxAllSheetsBytes)));
        const auto open = [this, part = part] { return package_.Open(part, MaxSheetBytes); };
        const bool hasFormulas = isActive ? outline_.MayHaveFormulas : MayHaveFormulas(*open());
        sheets.push_back({name, hasFormulas ? isActive ? sheet_ : OpenBytes(open) : OpenBytes()});
        if (isActive)
            for (CellBlock& block : blocks)
                block.Sheet = name;
    }
    StaleResults stale = FindStaleResults(sheets, blocks);
    for (size_t i = 0; i < sheets.size(); ++i)
        changes[i].Stale = std::move(stale.Cells[i]);
    if (stale.Any)
        CalculateOnOpening(package_, map_);
}

QByteArray Workbook::Pack() {
    sharedStrings_.reset();
    std::vector<SheetChanges> changes(map_.Sheets.size());
    if (!written_.Empty())
        FindStale(changes);
    if (styles_ && styles_->Changed())
        package_.Put(map_.Styles ? *map_.Styles : AddStylesPart(package_, map_), styles_->Xml());
    for (size_t i = 0; i < changes.size(); ++i) {
        SheetChanges& change = changes[i];
        const QString& part = map_.Sheets[i].second;
        const bool isActive = part == map_.Sheet;
        if (!isActive && change.Stale.empty())
            continue;
        change.Written = isActive ? &written_ : nullptr;
        change.Prefix = isActive ? outline_.Prefix : QByteArray();
        change.MostBytes = MaxSheetBytes;
        const OpenBytes open =
            isActive ? sheet_ : OpenBytes([this, part] { return package_.Open(part, MaxSheetBytes); });
        const qint64 size = package_.SizeOf(part, MaxSheetBytes) + (isActive ? written_.Bytes() + BytesAroundRows : 0);
        package_.Put(
            part, [&change, open] { return std::make_unique<SheetRewriter>(open(), change); },
            qMin(size, MaxSheetBytes));
    }
    return package_.Pack();
}
