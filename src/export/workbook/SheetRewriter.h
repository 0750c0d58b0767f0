#pragma once

#include "export/workbook/StaleResults.h"
#include "export/workbook/WrittenCells.h"

/// What is different in a sheet that is written anew.
struct SheetChanges {
    /// The cells that are written; none when there are none.
    const WrittenCells* Written = nullptr;
    /// The cells with results to be left out, in their order.
    std::vector<StaleCell> Stale;
    /// The prefix of the sheet's elements.
    QByteArray Prefix;
    /// The part may not get longer.
    qint64 MostBytes = 0;
};

/// The bytes of a sheet with changes: cells are put between and in place of the bytes that are there, and everything
/// else stays as it is. One row at a time is in memory.
class SheetRewriter : public ByteSource {
  public:
    /// The changes outlive this.
    SheetRewriter(std::unique_ptr<ByteSource> sheet, const SheetChanges& changes);

    /// Throws WorkbookError when the sheet gets too long.
    qint64 Read(char* to, qint64 most) override;

  private:
    void GoOn();
    void TakeNext();
    void WidenDimension();
    void ChangeRow();

    std::unique_ptr<ByteSource> sheet_;
    const SheetChanges& changes_;
    SheetReader reader_;
    const WrittenCells none_;
    WrittenCells::Reader written_;
    std::vector<StaleCell>::const_iterator stale_;
    /// New rows before this number come next.
    int newRowsBefore_ = 0;
    /// What is done after them.
    enum class Then { Nothing, Row, CloseRows } then_ = Then::Nothing;
    bool finished_ = false;
    QByteArray ready_;
    qsizetype given_ = 0;
    qint64 total_ = 0;
};
