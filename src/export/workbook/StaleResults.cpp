#include "export/workbook/StaleResults.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/SheetReader.h"

#include <QHash>

#include <algorithm>
#include <map>

namespace {

using Kind = XmlScanner::Kind;

/// A block of cells, its sheet by its index.
struct Block {
    int Sheet = 0;
    int FirstRow = 0;
    int LastRow = 0;
    int FirstColumn = 0;
    int LastColumn = 0;
};

/// What a formula's result depends on: so many blocks from one on.
struct Reach {
    size_t FirstBlock = 0;
    int BlockCount = 0;
    bool InDoubt = false;
};

struct Formula {
    int Sheet = 0;
    int Row = 0;
    int Column = 0;
    int ReachIndex = 0;
    /// Its references move along with the cells that share it.
    bool Shared = false;
    bool HasResult = false;
    bool Stale = false;
};

/// All formulas of the workbook. There may be millions, so each takes little memory.
struct Formulas {
    QHash<QString, int> SheetIndex;
    std::vector<Formula> Cells;
    std::vector<Reach> Reaches;
    std::vector<Block> Blocks;

    int Add(const FormulaReach& reach) {
        Reach added{Blocks.size(), 0, reach.InDoubt()};
        for (const CellBlock& block : reach.Blocks())
            if (const auto sheet = SheetIndex.constFind(block.Sheet.toLower()); sheet != SheetIndex.cend()) {
                Blocks.push_back({*sheet, block.FirstRow, block.LastRow, block.FirstColumn, block.LastColumn});
                ++added.BlockCount;
            }
        Reaches.push_back(added);
        return static_cast<int>(Reaches.size()) - 1;
    }
};

/// Collects the formulas of one sheet.
class FormulaReader {
  public:
    FormulaReader(const NamedSheet& sheet, int index, Formulas& formulas)
        : name_(sheet.Name), index_(index), source_(sheet.Open()), scanner_(*source_), formulas_(formulas) {}

    void Read() {
        for (Kind kind = scanner_.Next(); kind != Kind::Finished; kind = scanner_.Next()) {
            if (kind != Kind::Start)
                continue;
            if (scanner_.LocalName() == "row") {
                const QByteArrayView number = scanner_.Attribute("r");
                row_ = number.isNull() ? row_ + 1 : ToInt(number, 0);
                column_ = 0;
            } else if (scanner_.LocalName() == "c") {
                const QByteArrayView reference = scanner_.Attribute("r");
                column_ = reference.isNull() ? column_ + 1 : ToCellReference(reference).Column;
                if (!scanner_.SelfClosing())
                    ReadCell();
            }
        }
    }

  private:
    /// So many different formulas are remembered, as one is often repeated.
    static constexpr qsizetype MostKnown = 1000;

    void ReadCell() {
        Formula formula{index_, row_, column_, -1, false, false, false};
        for (Kind kind = scanner_.Next(); kind != Kind::End && kind != Kind::Finished; kind = scanner_.Next()) {
            if (kind != Kind::Start)
                continue;
            if (scanner_.LocalName() == "f") {
                formula.Shared = scanner_.Attribute("t") == "shared";
                formula.ReachIndex = ReadFormula(formula.Shared ? scanner_.Attribute("si").toByteArray() : QByteArray());
            } else {
                const bool isResult = scanner_.LocalName() == "v" && !scanner_.SelfClosing();
                const qint64 content = scanner_.End();
                scanner_.SkipElement();
                formula.HasResult = formula.HasResult || (isResult && scanner_.Begin() > content);
            }
        }
        if (formula.ReachIndex >= 0)
            formulas_.Cells.push_back(formula);
    }

    int ReadFormula(const QByteArray& sharedBy) {
        QString text;
        if (!scanner_.SelfClosing())
            while (scanner_.Next() == Kind::Text)
                text += scanner_.Text();
        if (sharedBy.isEmpty())
            return ReachOf(text);
        // Of the cells that share a formula, only the first one has its text.
        if (!text.isEmpty() || !shared_.contains(sharedBy))
            shared_[sharedBy] = ReachOf(text.isEmpty() ? QStringLiteral("?") : text);
        return shared_.value(sharedBy);
    }

    int ReachOf(const QString& text) {
        if (const auto known = known_.constFind(text); known != known_.cend())
            return *known;
        if (known_.size() >= MostKnown)
            known_.clear();
        return known_[text] = formulas_.Add(FormulaReach(text, name_));
    }

    const QString& name_;
    int index_;
    std::unique_ptr<ByteSource> source_;
    XmlScanner scanner_;
    Formulas& formulas_;
    QHash<QByteArray, int> shared_;
    QHash<QString, int> known_;
    int row_ = 0;
    int column_ = 0;
};

/// The changed cells of one sheet: a few ranges of rows for each column, and past so many columns only a box. So that
/// asking for one takes a bounded time, what is between changed cells may count as changed.
class ChangedCells {
  public:
    void Add(const Block& block) {
        Widen(box_, block);
        if (isBox_)
            return;
        if (block.LastColumn - block.FirstColumn >= MostColumnsApart) {
            isBox_ = true;
            return;
        }
        for (int column = block.FirstColumn; column <= block.LastColumn; ++column)
            AddRows(columns_[column], {block.FirstRow, block.LastRow});
        isBox_ = static_cast<int>(columns_.size()) > MostColumnsApart;
    }

    bool Touch(const Block& block) const {
        if (block.FirstRow > box_.LastRow || block.LastRow < box_.FirstRow || block.FirstColumn > box_.LastColumn ||
            block.LastColumn < box_.FirstColumn)
            return false;
        if (isBox_)
            return true;
        for (auto column = columns_.lower_bound(block.FirstColumn);
             column != columns_.end() && column->first <= block.LastColumn; ++column)
            for (const auto& [first, last] : column->second)
                if (first <= block.LastRow && block.FirstRow <= last)
                    return true;
        return false;
    }

    bool Any() const { return box_.LastRow > 0; }

  private:
    using Rows = std::pair<int, int>;
    static constexpr int MostColumnsApart = 64;
    static constexpr size_t MostRanges = 8;

    static void Widen(Block& box, const Block& block) {
        if (box.LastRow == 0)
            box = block;
        box.FirstRow = std::min(box.FirstRow, block.FirstRow);
        box.LastRow = std::max(box.LastRow, block.LastRow);
        box.FirstColumn = std::min(box.FirstColumn, block.FirstColumn);
        box.LastColumn = std::max(box.LastColumn, block.LastColumn);
    }

    static void AddRows(std::vector<Rows>& ranges, const Rows& rows) {
        for (Rows& range : ranges) {
            if (rows.first > range.second + 1 || rows.second < range.first - 1)
                continue;
            range = {std::min(range.first, rows.first), std::max(range.second, rows.second)};
            return;
        }
        ranges.push_back(rows);
        if (ranges.size() <= MostRanges)
            return;
        for (const Rows& range : ranges)
            ranges.front() = {std::min(ranges.front().first, range.first), std::max(ranges.front().second, range.second)};
        ranges.resize(1);
    }

    Block box_;
    std::map<int, std::vector<Rows>> columns_;
    bool isBox_ = false;
};

/// After so many rounds in which a formula became stale by way of another one, all count as stale.
constexpr int MostRounds = 20;

class Follower {
  public:
    Follower(Formulas& formulas, size_t sheets, const std::vector<Block>& changed)
        : formulas_(formulas), changed_(sheets) {
        for (const Block& block : changed)
            changed_[static_cast<size_t>(block.Sheet)].Add(block);
    }

    /// Goes through the formulas forwards and backwards, as one usually depends on those above or on those below it.
    void Follow() {
        for (int round = 0; round < MostRounds; ++round) {
            const bool more = round % 2 == 0 ? Look(formulas_.Cells.begin(), formulas_.Cells.end())
                                             : Look(formulas_.Cells.rbegin(), formulas_.Cells.rend());
            if (!more)
                return;
        }
        for (Formula& formula : formulas_.Cells)
            formula.Stale = true;
    }

  private:
    bool MayDepend(const Formula& formula) const {
        const Reach& reach = formulas_.Reaches[static_cast<size_t>(formula.ReachIndex)];
        if (reach.InDoubt)
            return true;
        const auto first = formulas_.Blocks.begin() + static_cast<std::ptrdiff_t>(reach.FirstBlock);
        return std::any_of(first, first + reach.BlockCount, [&](const Block& block) {
            const ChangedCells& cells = changed_[static_cast<size_t>(block.Sheet)];
            return formula.Shared ? cells.Any() : cells.Touch(block);
        });
    }

    template <typename Iterator> bool Look(Iterator from, Iterator to) {
        bool more = false;
        for (; from != to; ++from) {
            if (from->Stale || !MayDepend(*from))
                continue;
            from->Stale = more = true;
            changed_[static_cast<size_t>(from->Sheet)].Add(
                {from->Sheet, from->Row, from->Row, from->Column, from->Column});
        }
        return more;
    }

    Formulas& formulas_;
    std::vector<ChangedCells> changed_;
};

} // namespace

bool MayHaveFormulas(ByteSource& sheet) {
    // What a piece ends with may be the beginning of a tag.
    constexpr qsizetype kept = 3;
    QByteArray piece;
    for (;;) {
        piece.remove(0, qMax<qsizetype>(0, piece.size() - kept));
        const qsizetype there = piece.size();
        piece.resize(there + (256 << 10));
        const qint64 count = sheet.Read(piece.data() + there, piece.size() - there);
        piece.resize(there + count);
        if (count == 0)
            return false;
        if (MayHaveFormulas(QByteArrayView(piece)))
            return true;
    }
}

StaleResults FindStaleResults(const std::vector<NamedSheet>& sheets, const std::vector<CellBlock>& changed) {
    Formulas formulas;
    for (size_t i = 0; i < sheets.size(); ++i)
        formulas.SheetIndex.insert(sheets[i].Name.toLower(), static_cast<int>(i));
    for (size_t i = 0; i < sheets.size(); ++i)
        if (sheets[i].Open)
            FormulaReader(sheets[i], static_cast<int>(i), formulas).Read();
    std::vector<Block> blocks;
    for (const CellBlock& block : changed)
        if (const auto sheet = formulas.SheetIndex.constFind(block.Sheet.toLower()); sheet != formulas.SheetIndex.cend())
            blocks.push_back({*sheet, block.FirstRow, block.LastRow, block.FirstColumn, block.LastColumn});
    Follower(formulas, sheets.size(), blocks).Follow();

    StaleResults stale;
    stale.Cells.resize(sheets.size());
    for (const Formula& formula : formulas.Cells) {
        stale.Any = stale.Any || formula.Stale;
        if (formula.Stale && formula.HasResult)
            stale.Cells[static_cast<size_t>(formula.Sheet)].push_back({formula.Row, formula.Column});
    }
    return stale;
}
