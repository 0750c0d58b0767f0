#include "taker/CsvReader.h"

#include <QFileDevice>
#include <QUtf8StringView>

#include <array>
#include <cstring>

namespace {

constexpr size_t FirstBufferSize = 1 << 16;

constexpr std::array<bool, 256> Stops() {
    std::array<bool, 256> stops{};
    // The zero byte stands behind the buffer's end, so that scanning needs no second comparison.
    for (const char c : {',', '\n', '\r', '"', '\0'})
        stops[static_cast<unsigned char>(c)] = true;
    return stops;
}
constexpr std::array<bool, 256> StopTable = Stops();

bool StopsAt(char c) { return StopTable[static_cast<unsigned char>(c)]; }

} // namespace

CsvReader::CsvReader(QIODevice& source) : source_(source), buffer_(FirstBufferSize + 1) { SkipByteOrderMark(); }

void CsvReader::SkipByteOrderMark() {
    while (end_ < 3 && Refill()) {
    }
    if (end_ >= 3 && std::memcmp(buffer_.data(), "\xEF\xBB\xBF", 3) == 0)
        position_ = cellStart_ = 3;
}

// Keeps what has been read of the current cell and puts new bytes behind it.
bool CsvReader::Refill() {
    if (finished_)
        return false;
    // The two bytes over leave a cell of the longest length whole while its line end is looked at.
    if (end_ - cellStart_ > LongestCell + 2) {
        dropped_ = true;
        cellStart_ = contentEnd_ = position_;
    }
    if (cellStart_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + cellStart_, end_ - cellStart_);
        position_ -= cellStart_;
        end_ -= cellStart_;
        contentEnd_ -= qMin(contentEnd_, cellStart_);
        cellStart_ = 0;
    }
    if (end_ + 1 >= buffer_.size())
        buffer_.resize(buffer_.size() * 2);

    const qint64 count = source_.read(buffer_.data() + end_, static_cast<qint64>(buffer_.size() - end_ - 1));
    if (count <= 0) {
        finished_ = true;
        // A file without a size says "at end" also when reading failed.
        const auto* file = qobject_cast<const QFileDevice*>(&source_);
        failed_ = count < 0 && (file ? file->error() != QFileDevice::NoError : !source_.atEnd());
        buffer_[end_] = '\0';
        return false;
    }
    end_ += static_cast<size_t>(count);
    bytesRead_ += count;
    buffer_[end_] = '\0';
    return true;
}

void CsvReader::Note(CellProblem problem) {
    if (problem_ == CellProblem::None)
        problem_ = problem;
}

void CsvReader::CountLineEnd(char c) {
    if (c == '\r' || (c == '\n' && last_ != '\r'))
        ++line_;
    last_ = c;
}

bool CsvReader::Next(CsvCell& cell) {
    cellStart_ = contentEnd_ = position_;
    if (AtEnd() && !moreInRow_)
        return false;

    problem_ = CellProblem::None;
    quoted_ = dropped_ = false;
    bits_ = 0;
    cell.Line = line_;
    if (buffer_[position_] == '"' && position_ < end_)
        ReadQuoted();
    ReadPlain();
    if (failed_)
        return false;

    const size_t start = quoted_ && !dropped_ ? cellStart_ + 1 : cellStart_;
    const size_t stop = quoted_ ? qMax(contentEnd_, start) : position_;
    cell.Text = {buffer_.data() + start, stop - start};
    if (dropped_ || position_ - cellStart_ > LongestCell)
        problem_ = problem_ == CellProblem::OpenQuote ? problem_ : CellProblem::TooLong;
    else if ((bits_ & 0x80) != 0 &&
             !QUtf8StringView(cell.Text.data(), static_cast<qsizetype>(cell.Text.size())).isValidUtf8())
        Note(CellProblem::NotUtf8);
    TakeDelimiter(cell);
    cell.Problem = problem_;
    return true;
}

void CsvReader::ReadQuoted() {
    quoted_ = true;
    contentEnd_ = ++position_;
    last_ = 0;
    for (;;) {
        if (AtEnd())
            return Note(CellProblem::OpenQuote);
        const char c = buffer_[position_++];
        if (c == '"') {
            if (AtEnd() || buffer_[position_] != '"')
                return;
            ++position_;
        } else {
            CountLineEnd(c);
            if (c == '\0')
                Note(CellProblem::ZeroByte);
        }
        bits_ = static_cast<unsigned char>(bits_ | static_cast<unsigned char>(c));
        buffer_[contentEnd_++] = c;
    }
}

void CsvReader::ReadPlain() {
    for (;;) {
        const char* at = buffer_.data() + position_;
        const char* const from = at;
        unsigned char bits = 0;
        for (; !StopsAt(*at); ++at)
            bits = static_cast<unsigned char>(bits | static_cast<unsigned char>(*at));
        bits_ = static_cast<unsigned char>(bits_ | bits);
        position_ += static_cast<size_t>(at - from);
        if (quoted_ && at != from)
            Note(CellProblem::TextAfterQuote);
        if (AtEnd())
            return;
        // The buffer may have been filled anew.
        const char c = buffer_[position_];
        if (c == '"' || (c == '\0' && position_ < end_)) {
            Note(c == '\0' ? CellProblem::ZeroByte : quoted_ ? CellProblem::TextAfterQuote : CellProblem::StrayQuote);
            ++position_;
        } else if (StopsAt(c)) {
            return;
        }
    }
}

void CsvReader::TakeDelimiter(CsvCell& cell) {
    moreInRow_ = false;
    cell.EndsRow = true;
    if (position_ == end_)
        return;
    const char c = buffer_[position_++];
    if (c == ',') {
        moreInRow_ = true;
        cell.EndsRow = false;
        return;
    }
    ++line_;
    if (c != '\r')
        return;
    // Looking at what follows may move the buffer under the cell's text.
    const size_t offset = static_cast<size_t>(cell.Text.data() - (buffer_.data() + cellStart_));
    if (!AtEnd() && buffer_[position_] == '\n')
        ++position_;
    if (problem_ == CellProblem::None)
        cell.Text = {buffer_.data() + cellStart_ + offset, cell.Text.size()};
    else
        cell.Text = {};
}
