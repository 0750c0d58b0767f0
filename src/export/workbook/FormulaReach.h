#pragma once

#include <QString>

#include <vector>

/// A block of cells of one sheet, all bounds within it.
struct CellBlock {
    QString Sheet;
    int FirstRow = 1;
    int LastRow = 1;
    int FirstColumn = 1;
    int LastColumn = 1;
};

/// Which cells a formula's result depends on.
class FormulaReach {
  public:
    /// The formula stands in a cell of that sheet.
    FormulaReach(const QString& formula, const QString& sheet);

    /// Whether a change of the block may change the result. True in doubt: for names, tables, and references that are
    /// only made when the formula is calculated.
    bool MayDependOn(const CellBlock& block) const;

    /// The blocks that it depends on, and whether it may depend on anything else.
    const std::vector<CellBlock>& Blocks() const { return blocks_; }
    bool InDoubt() const { return inDoubt_; }

  private:
    std::vector<CellBlock> blocks_;
    bool inDoubt_ = false;
};
