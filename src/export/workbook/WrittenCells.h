#pragma once

#include "export/workbook/FormulaReach.h"
#include "export/workbook/SheetCells.h"

#include <vector>

/// The cells that are to be written into a sheet, by their elements. Rows that were finished long ago are packed, so
/// that a hundred thousand of them take little memory.
class WrittenCells {
  public:
    bool Empty() const { return blocks_.empty(); }
    void Set(int row, int column, const QByteArray& element);
    /// The element of a cell that was set; a null one for others.
    QByteArray Find(int row, int column);

    /// The blocks that the cells are in, not many; the sheet's name is left open.
    const std::vector<CellBlock>& Blocks() const { return blocks_; }
    /// How many bytes the elements have, at most.
    qint64 Bytes() const { return bytes_; }

    /// Goes through the rows from the first one. What is set meanwhile is not seen.
    class Reader {
      public:
        explicit Reader(const WrittenCells& cells) : cells_(cells), next_(cells.rows_.begin()) { GoOn(); }

        /// The row that is due; one past all others at the end.
        int Number() const { return number_; }
        const RowElements& Elements() const { return *elements_; }
        void GoOn();

      private:
        const WrittenCells& cells_;
        size_t package_ = 0;
        std::map<int, RowElements> unpacked_;
        std::map<int, RowElements>::const_iterator next_;
        int number_ = 0;
        const RowElements* elements_ = nullptr;
        bool fromPackage_ = false;
    };

  private:
    struct Package {
        int First = 0;
        int Last = 0;
        QByteArray Bytes;
    };

    void NoteBlock(int row, int column);
    void PackFinished();
    void Unpack(int row);

    std::map<int, RowElements> rows_;
    /// In order; no row in rows_ lies within one of them.
    std::vector<Package> packages_;
    std::vector<CellBlock> blocks_;
    qint64 bytes_ = 0;
};
