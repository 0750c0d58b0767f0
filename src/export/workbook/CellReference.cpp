#include "export/workbook/CellReference.h"

CellReference ToCellReference(QByteArrayView reference) {
    CellReference cell;
    qsizetype at = 0;
    const auto skipDollar = [&] {
        if (at < reference.size() && reference[at] == '$')
            ++at;
    };
    skipDollar();
    for (; at < reference.size() && reference[at] >= 'A' && reference[at] <= 'Z' && cell.Column <= MostColumns; ++at)
        cell.Column = cell.Column * 26 + reference[at] - 'A' + 1;
    skipDollar();
    for (; at < reference.size() && reference[at] >= '0' && reference[at] <= '9' && cell.Row <= MostRows; ++at)
        cell.Row = cell.Row * 10 + reference[at] - '0';
    const bool fits = at == reference.size() && cell.Column >= 1 && cell.Column <= MostColumns && cell.Row >= 1 &&
                      cell.Row <= MostRows;
    return fits ? cell : CellReference();
}

QByteArray CellName(int row, int column) { return ColumnName(column) + QByteArray::number(row); }
