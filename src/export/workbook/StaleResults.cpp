#include "export/workbook/StaleResults.h"

#include "export/workbook/CellReference.h"
#include "export/workbook/XmlScanner.h"

#include <QHash>

#include <optional>

namespace {

using Kind = XmlScanner::Kind;

struct FormulaCell {
    size_t Sheet = 0;
    CellBlock Place;
    FormulaReach Reach;
    /// Its references move along with the cells that share it.
    bool Shared = false;
    std::pair<qsizetype, qsizetype> Result{-1, -1};
    bool Stale = false;

    bool MayDependOn(const CellBlock& block) const {
        return Shared ? Reach.MayDependOnSheet(block.Sheet) : Reach.MayDependOn(block);
    }
};

/// Collects the formulas of one sheet.
class FormulaReader {
  public:
    FormulaReader(const NamedSheet& sheet, size_t index, std::vector<FormulaCell>& cells)
        : name_(sheet.Name), index_(index), scanner_(sheet.Xml), cells_(cells) {}

    void Read() {
        for (Kind kind = scanner_.Next(); kind != Kind::Finished; kind = scanner_.Next()) {
            if (kind != Kind::Start)
                continue;
            if (scanner_.LocalName() == "row") {
                const QByteArrayView number = scanner_.Attribute("r");
                row_ = number.isNull() ? row_ + 1 : number.toByteArray().toInt();
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
    void ReadCell() {
        std::optional<FormulaReach> reach;
        bool shared = false;
        std::pair<qsizetype, qsizetype> result{-1, -1};
        for (Kind kind = scanner_.Next(); kind != Kind::End && kind != Kind::Finished; kind = scanner_.Next()) {
            if (kind != Kind::Start)
                continue;
            const qsizetype begin = scanner_.Begin();
            if (scanner_.LocalName() == "f") {
                shared = scanner_.Attribute("t") == "shared";
                reach = ReadFormula(shared ? scanner_.Attribute("si").toByteArray() : QByteArray());
            } else {
                const bool isResult = scanner_.LocalName() == "v" && !scanner_.SelfClosing();
                const qsizetype content = scanner_.End();
                scanner_.SkipElement();
                if (isResult && scanner_.Begin() > content)
                    result = {begin, scanner_.End()};
            }
        }
        if (reach)
            cells_.push_back({index_, {name_, row_, row_, column_, column_}, *reach, shared, result, false});
    }

    FormulaReach ReadFormula(const QByteArray& sharedBy) {
        QString text;
        if (!scanner_.SelfClosing())
            while (scanner_.Next() == Kind::Text)
                text += scanner_.Text();
        // Of the cells that share a formula, only the first one has its text.
        if (!sharedBy.isEmpty() && !text.isEmpty())
            shared_[sharedBy] = text;
        return FormulaReach(sharedBy.isEmpty() ? text : shared_.value(sharedBy, QStringLiteral("?")), name_);
    }

    const QString& name_;
    size_t index_;
    XmlScanner scanner_;
    std::vector<FormulaCell>& cells_;
    QHash<QByteArray, QString> shared_;
    int row_ = 0;
    int column_ = 0;
};

/// So many changed cells are followed one by one; past them every formula counts as changed.
constexpr size_t MostFollowed = 2000;

void Follow(std::vector<FormulaCell>& cells, const CellBlock& changed) {
    std::vector<CellBlock> changes{changed};
    for (size_t next = 0; next < changes.size(); ++next) {
        for (FormulaCell& cell : cells) {
            if (cell.Stale || !(changes.size() > MostFollowed || cell.MayDependOn(changes[next])))
                continue;
            cell.Stale = true;
            changes.push_back(cell.Place);
        }
        if (changes.size() > MostFollowed + cells.size())
            return;
    }
}

} // namespace

bool MayHaveFormulas(const QByteArray& xml) {
    // The letter is rare in sheets, and one search for it is faster than several for the tags.
    for (qsizetype at = xml.indexOf('f', 1); at > 0 && at + 1 < xml.size(); at = xml.indexOf('f', at + 1)) {
        const char before = xml[at - 1];
        const char behind = xml[at + 1];
        if ((before == '<' || before == ':') &&
            (behind == '>' || behind == '/' || QByteArrayView(" \t\r\n").contains(behind)))
            return true;
    }
    return false;
}

StaleResults FindStaleResults(const std::vector<NamedSheet>& sheets, const CellBlock& changed) {
    std::vector<FormulaCell> cells;
    for (size_t i = 0; i < sheets.size(); ++i)
        if (MayHaveFormulas(sheets[i].Xml))
            FormulaReader(sheets[i], i, cells).Read();
    Follow(cells, changed);

    StaleResults stale;
    stale.Elements.resize(sheets.size());
    for (const FormulaCell& cell : cells) {
        stale.Any = stale.Any || cell.Stale;
        if (cell.Stale && cell.Result.first >= 0)
            stale.Elements[cell.Sheet].push_back(cell.Result);
    }
    return stale;
}
