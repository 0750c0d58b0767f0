#include "export/workbook/FormulaReach.h"

#include "export/workbook/CellReference.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

QRegularExpression Expression(const char* pattern) {
    return QRegularExpression(QString::fromLatin1(pattern), QRegularExpression::UseUnicodePropertiesOption |
                                                                QRegularExpression::CaseInsensitiveOption);
}

const QRegularExpression& QuotedText() {
    static const QRegularExpression expression = Expression("\"(?:[^\"]|\"\")*\"");
    return expression;
}

/// A reference, with its sheet (1 in quotes or 2 without) when it names one, and its two corners (3 and 4).
const QRegularExpression& Reference() {
    static const QRegularExpression expression =
        Expression("(?:(?:'((?:[^']|'')+)'|([\\w.\\[\\]]+))!)?"
                   "(?<![\\w.])(\\$?[A-Z]{1,3}\\$?\\d+|\\$?[A-Z]{1,3}(?=:)|\\$?\\d+(?=:))"
                   "(?::(\\$?[A-Z]{1,3}\\$?\\d+|\\$?[A-Z]{1,3}|\\$?\\d+))?(?![\\w.(!])");
    return expression;
}

/// What may be left of a formula that was understood: numbers, truth values, errors, names of functions and signs.
const QRegularExpression& Harmless() {
    static const QRegularExpression expression =
        Expression("#[A-Z/0!?]+|[A-Z_][\\w.]*(?=\\()|\\b(?:TRUE|FALSE)\\b|\\d+(?:\\.\\d*)?(?:E[+-]?\\d+)?|\\.\\d+");
    return expression;
}

const QRegularExpression& MakesReferences() {
    static const QRegularExpression expression = Expression("\\b(?:INDIRECT|OFFSET)\\(");
    return expression;
}

/// Row and column of a corner; 0 for the one that it leaves open.
CellReference Corner(QString text) {
    text.remove(u'$');
    CellReference corner;
    qsizetype letters = 0;
    while (letters < text.size() && text[letters].isLetter())
        corner.Column = corner.Column * 26 + text[letters++].toUpper().unicode() - u'A' + 1;
    corner.Row = text.sliced(letters).toInt();
    return corner;
}

CellBlock BlockOf(const QString& sheet, const QString& first, const QString& second) {
    const CellReference one = Corner(first);
    const CellReference other = second.isEmpty() ? one : Corner(second);
    CellBlock block{sheet, qMin(one.Row, other.Row), qMax(one.Row, other.Row), qMin(one.Column, other.Column),
                    qMax(one.Column, other.Column)};
    if (block.FirstRow == 0)
        block.LastRow = MostRows;
    if (block.FirstColumn == 0)
        block.LastColumn = MostColumns;
    return block;
}

bool SameSheet(const QString& one, const QString& other) { return one.compare(other, Qt::CaseInsensitive) == 0; }

} // namespace

FormulaReach::FormulaReach(const QString& formula, const QString& sheet) {
    QString rest = QString(formula).replace(QuotedText(), QStringLiteral(" "));
    inDoubt_ = rest.contains(MakesReferences());
    for (auto match = Reference().globalMatch(rest); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        QString named = found.captured(1).replace(QStringLiteral("''"), QStringLiteral("'")) + found.captured(2);
        if (named.contains(u'[') || named.contains(u']'))
            continue; // Another workbook's.
        inDoubt_ = inDoubt_ || named.contains(u':');
        blocks_.push_back(BlockOf(named.isEmpty() ? sheet : named, found.captured(3), found.captured(4)));
    }
    rest.replace(Reference(), QStringLiteral(" ")).replace(Harmless(), QStringLiteral(" "));
    static const QRegularExpression unknown = Expression("[\\w!'\\[\\]]");
    inDoubt_ = inDoubt_ || rest.contains(unknown);
}

bool FormulaReach::MayDependOn(const CellBlock& block) const {
    return inDoubt_ || std::ranges::any_of(blocks_, [&](const CellBlock& mine) {
               return SameSheet(mine.Sheet, block.Sheet) && mine.FirstRow <= block.LastRow &&
                      block.FirstRow <= mine.LastRow && mine.FirstColumn <= block.LastColumn &&
                      block.FirstColumn <= mine.LastColumn;
           });
}
