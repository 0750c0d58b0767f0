#include "export/workbook/SheetRewriter.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/WorkbookError.h"

#include <QLocale>

#include <limits>

namespace {

constexpr int AllRows = std::numeric_limits<int>::max();

} // namespace

SheetRewriter::SheetRewriter(std::unique_ptr<ByteSource> sheet, const SheetChanges& changes)
    : sheet_(std::move(sheet)),
      changes_(changes),
      reader_(*sheet_),
      written_(changes.Written ? *changes.Written : none_),
      stale_(changes.Stale.begin()) {
    reader_.Scanner().CopyTo(ready_);
}

qint64 SheetRewriter::Read(char* to, qint64 most) {
    while (given_ == ready_.size() && !finished_) {
        ready_.resize(0);
        given_ = 0;
        GoOn();
    }
    const qint64 count = qMin<qint64>(most, ready_.size() - given_);
    std::memcpy(to, ready_.constData() + given_, static_cast<size_t>(count));
    given_ += count;
    total_ += count;
    if (total_ > changes_.MostBytes)
        throw WorkbookError(QStringLiteral("its sheet would be longer than %1 bytes, and couldn't be read any more")
                                .arg(QLocale(QLocale::English).toString(changes_.MostBytes)));
    return count;
}

void SheetRewriter::GoOn() {
    if (written_.Number() < newRowsBefore_) {
        ready_ += NewRow(written_.Number(), written_.Elements(), changes_.Prefix);
        written_.GoOn();
        return;
    }
    newRowsBefore_ = 0;
    switch (std::exchange(then_, Then::Nothing)) {
    case Then::Row:
        return ChangeRow();
    case Then::CloseRows:
        ready_ += "</" + changes_.Prefix + "sheetData>";
        return;
    case Then::Nothing:
        return TakeNext();
    }
}

void SheetRewriter::TakeNext() {
    const SheetReader::Part part = reader_.Next();
    XmlScanner& scanner = reader_.Scanner();
    switch (part) {
    case SheetReader::Part::Element:
        if (scanner.LocalName() == "dimension")
            WidenDimension();
        return;
    case SheetReader::Part::Rows:
        if (!scanner.SelfClosing() || written_.Number() == AllRows)
            return;
        scanner.CopyUpTo(scanner.End() - 2);
        scanner.LeaveOutUpTo(scanner.End());
        ready_ += '>';
        newRowsBefore_ = AllRows;
        then_ = Then::CloseRows;
        return;
    case SheetReader::Part::Row:
        if (written_.Number() > reader_.Row().Number &&
            (stale_ == changes_.Stale.end() || stale_->Row != reader_.Row().Number))
            return;
        scanner.CopyUpTo(scanner.End() - reader_.Row().Xml.size());
        newRowsBefore_ = reader_.Row().Number;
        then_ = Then::Row;
        return;
    case SheetReader::Part::EndOfRows:
        scanner.CopyUpTo(scanner.Begin());
        newRowsBefore_ = AllRows;
        return;
    case SheetReader::Part::Finished:
        scanner.CopyUpTo(scanner.End());
        finished_ = true;
        return;
    }
}

void SheetRewriter::ChangeRow() {
    const SheetRow& row = reader_.Row();
    std::set<int> stale;
    for (; stale_ != changes_.Stale.end() && stale_->Row == row.Number; ++stale_)
        stale.insert(stale_->Column);
    const bool isWritten = written_.Number() == row.Number;
    if (!isWritten && stale.empty())
        return;
    ready_ += WithCells(row, isWritten ? written_.Elements() : RowElements(), stale, changes_.Prefix);
    reader_.Scanner().LeaveOutUpTo(reader_.Scanner().End());
    if (isWritten)
        written_.GoOn();
}

void SheetRewriter::WidenDimension() {
    if (!changes_.Written || changes_.Written->Empty())
        return;
    XmlScanner& scanner = reader_.Scanner();
    const QByteArrayView dimension = scanner.Attribute("ref");
    const qsizetype colon = dimension.indexOf(':');
    CellReference from = ToCellReference(colon < 0 ? dimension : dimension.first(colon));
    CellReference to = colon < 0 ? from : ToCellReference(dimension.sliced(colon + 1));
    if (from.Row == 0 || to.Row == 0)
        return;
    for (const CellBlock& block : changes_.Written->Blocks()) {
        from.Row = qMin(from.Row, block.FirstRow);
        to.Row = qMax(to.Row, block.LastRow);
        from.Column = qMin(from.Column, block.FirstColumn);
        to.Column = qMax(to.Column, block.LastColumn);
    }
    const QByteArray widened = CellName(from.Row, from.Column) + ':' + CellName(to.Row, to.Column);
    if (dimension == widened)
        return;
    const qint64 begin = scanner.OffsetOf(dimension);
    scanner.CopyUpTo(begin);
    scanner.LeaveOutUpTo(begin + dimension.size());
    ready_ += widened;
}
