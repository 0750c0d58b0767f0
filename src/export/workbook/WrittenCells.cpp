#include "export/workbook/WrittenCells.h"

#include <QDataStream>
#include <QIODevice>

#include <algorithm>
#include <limits>

namespace {

/// When there are so many rows, all but the last few are packed.
constexpr size_t MostOpenRows = 1200;
constexpr size_t RowsThatStay = 200;
constexpr size_t MostBlocks = 64;
/// What a row's element has around its cells, at most.
constexpr qint64 BytesAroundRow = 200;

constexpr int PackQuickly = 1;

std::map<int, RowElements> Unpacked(const QByteArray& bytes) {
    std::map<int, RowElements> rows;
    const QByteArray plain = qUncompress(bytes);
    QDataStream stream(plain);
    while (!stream.atEnd()) {
        int row = 0;
        int column = 0;
        QByteArray element;
        stream >> row >> column >> element;
        rows[row][column] = element;
    }
    return rows;
}

} // namespace

void WrittenCells::Set(int row, int column, const QByteArray& element) {
    Unpack(row);
    if (!rows_.contains(row)) {
        PackFinished();
        bytes_ += BytesAroundRow;
    }
    bytes_ += element.size();
    rows_[row][column] = element;
    NoteBlock(row, column);
}

QByteArray WrittenCells::Find(int row, int column) {
    Unpack(row);
    const auto ofRow = rows_.find(row);
    return ofRow == rows_.end() ? QByteArray() : [&] {
        const auto cell = ofRow->second.find(column);
        return cell == ofRow->second.end() ? QByteArray() : cell->second;
    }();
}

void WrittenCells::NoteBlock(int row, int column) {
    if (blocks_.empty() || row < blocks_.back().FirstRow || row > blocks_.back().LastRow + 1)
        blocks_.push_back({{}, row, row, column, column});
    const auto take = [](CellBlock& block, const CellBlock& more) {
        block.FirstRow = std::min(block.FirstRow, more.FirstRow);
        block.LastRow = std::max(block.LastRow, more.LastRow);
        block.FirstColumn = std::min(block.FirstColumn, more.FirstColumn);
        block.LastColumn = std::max(block.LastColumn, more.LastColumn);
    };
    take(blocks_.back(), {{}, row, row, column, column});
    if (blocks_.size() <= MostBlocks)
        return;
    for (const CellBlock& block : blocks_)
        take(blocks_.front(), block);
    blocks_.resize(1);
}

void WrittenCells::PackFinished() {
    if (rows_.size() < MostOpenRows)
        return;
    const auto end = std::prev(rows_.end(), RowsThatStay);
    const int after = packages_.empty() ? 0 : packages_.back().Last;
    const auto begin = rows_.upper_bound(after);
    const auto count = std::distance(rows_.begin(), end) - std::distance(rows_.begin(), begin);
    if (count < static_cast<std::ptrdiff_t>(RowsThatStay))
        return;
    QByteArray plain;
    QDataStream stream(&plain, QIODevice::WriteOnly);
    for (auto row = begin; row != end; ++row)
        for (const auto& [column, element] : row->second)
            stream << row->first << column << element;
    packages_.push_back({begin->first, std::prev(end)->first, qCompress(plain, PackQuickly)});
    rows_.erase(begin, end);
}

void WrittenCells::Unpack(int row) {
    const auto package = std::ranges::lower_bound(packages_, row, {}, &Package::Last);
    if (package == packages_.end() || row < package->First)
        return;
    rows_.merge(Unpacked(package->Bytes));
    packages_.erase(package);
}

void WrittenCells::Reader::GoOn() {
    if (fromPackage_)
        unpacked_.erase(unpacked_.begin());
    const auto& packages = cells_.packages_;
    const bool isOpen = next_ != cells_.rows_.end();
    if (unpacked_.empty() && package_ < packages.size() && (!isOpen || packages[package_].First < next_->first))
        unpacked_ = Unpacked(packages[package_++].Bytes);
    fromPackage_ = !unpacked_.empty();
    if (fromPackage_) {
        number_ = unpacked_.begin()->first;
        elements_ = &unpacked_.begin()->second;
    } else if (isOpen) {
        number_ = next_->first;
        elements_ = &(next_++)->second;
    } else {
        number_ = std::numeric_limits<int>::max();
        elements_ = nullptr;
    }
}
