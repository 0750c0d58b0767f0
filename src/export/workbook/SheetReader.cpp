#include "export/workbook/SheetReader.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/WorkbookError.h"

using Kind = XmlScanner::Kind;

int ToInt(QByteArrayView digits, int otherwise) {
    bool fits = false;
    const int number = digits.toByteArray().toInt(&fits);
    return fits ? number : otherwise;
}

SheetReader::Part SheetReader::Next() {
    if (!inRows_)
        return NextElement();
    scanner_.LetGo();
    for (Kind kind = scanner_.Next(); kind != Kind::End; kind = scanner_.Next()) {
        if (kind == Kind::Finished)
            throw WorkbookError(QStringLiteral("its sheet ends in the middle"));
        if (kind != Kind::Start)
            continue;
        if (scanner_.LocalName() == "row") {
            ReadRow();
            return Part::Row;
        }
        scanner_.SkipElement();
    }
    inRows_ = false;
    return Part::EndOfRows;
}

SheetReader::Part SheetReader::NextElement() {
    if (std::exchange(atElement_, false))
        scanner_.SkipElement();
    for (Kind kind = scanner_.Next(); kind != Kind::Finished; kind = scanner_.Next()) {
        if (kind != Kind::Start)
            continue;
        if (!inSheet_) {
            if (scanner_.LocalName() != "worksheet" || scanner_.SelfClosing())
                throw WorkbookError(QStringLiteral("its sheet is no worksheet"));
            inSheet_ = true;
            continue;
        }
        if (scanner_.LocalName() != "sheetData") {
            atElement_ = true;
            return Part::Element;
        }
        if (hadRows_)
            throw WorkbookError(QStringLiteral("its sheet has two places for rows"));
        hadRows_ = true;
        inRows_ = !scanner_.SelfClosing();
        return Part::Rows;
    }
    if (!hadRows_)
        throw WorkbookError(QStringLiteral("its sheet has no place for rows"));
    return Part::Finished;
}

void SheetReader::ReadRow() {
    const QByteArrayView number = scanner_.Attribute("r");
    const int next = number.isNull() ? row_.Number + 1 : ToInt(number, 0);
    if (next <= row_.Number || next > MostRows)
        throw WorkbookError(QStringLiteral("the rows or cells of its sheet are not in order"));
    row_.Number = next;
    row_.SelfClosing = scanner_.SelfClosing();
    const qint64 begin = scanner_.Begin();
    row_.ContentBegin = scanner_.End() - begin;
    scanner_.Hold();
    scanner_.SkipElement();
    row_.Xml = scanner_.Held();
    row_.ContentEnd = row_.SelfClosing ? row_.ContentBegin : scanner_.Begin() - begin;
}

namespace {

void ReadColumns(XmlScanner& scanner, std::vector<SheetOutline::ColumnRange>& columns) {
    if (scanner.SelfClosing())
        return;
    for (Kind kind = scanner.Next(); kind != Kind::End && kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        if (const int style = ToInt(scanner.Attribute("style"), -1); style >= 0)
            columns.push_back({ToInt(scanner.Attribute("min"), 0), ToInt(scanner.Attribute("max"), 0), style});
        scanner.SkipElement();
    }
}

} // namespace

SheetOutline OutlineOf(ByteSource& source) {
    SheetOutline outline;
    SheetReader reader(source);
    for (;;) {
        switch (reader.Next()) {
        case SheetReader::Part::Element:
            if (reader.Scanner().LocalName() == "cols") {
                reader.PassElement();
                ReadColumns(reader.Scanner(), outline.Columns);
            }
            break;
        case SheetReader::Part::Rows: {
            const XmlScanner& rows = reader.Scanner();
            outline.Prefix = rows.Name().chopped(rows.LocalName().size()).toByteArray();
            break;
        }
        case SheetReader::Part::Row:
            outline.LastRow = reader.Row().Number;
            outline.MayHaveFormulas = outline.MayHaveFormulas || MayHaveFormulas(reader.Row().Xml);
            break;
        case SheetReader::Part::EndOfRows:
            break;
        case SheetReader::Part::Finished:
            return outline;
        }
    }
}

bool MayHaveFormulas(QByteArrayView xml) {
    // The letter is rare in sheets, and one search for it is faster than several for the tags.
    for (qsizetype at = xml.indexOf('f', 1); at > 0 && at + 1 < xml.size(); at = xml.indexOf('f', at + 1)) {
        const char before = xml[at - 1];
        const char after = xml[at + 1];
        if ((before == '<' || before == ':') &&
            (after == '>' || after == '/' || QByteArrayView(" \t\r\n").contains(after)))
            return true;
    }
    return false;
}
