#pragma once

#include <QByteArray>
#include <QByteArrayView>

inline constexpr int MostRows = 1'048'576;
inline constexpr int MostColumns = 16'384;
/// The longest text of a cell, in UTF-16 units.
inline constexpr int MostCellCharacters = 32'767;

/// A cell by row and column from 1; 0 and 0 for none.
struct CellReference {
    int Row = 0;
    int Column = 0;
};

/// "AB12", or "$AB$12", as a cell; none for anything else.
CellReference ToCellReference(QByteArrayView reference);

/// The name of a column, "A" for 1. Inline, as it is also used where the built-in engine isn't.
inline QByteArray ColumnName(int column) {
    QByteArray name;
    for (; column > 0; column = (column - 1) / 26)
        name.prepend(static_cast<char>('A' + (column - 1) % 26));
    return name;
}
/// The name of a cell, such as "A1".
QByteArray CellName(int row, int column);
