#pragma once

#include <QIODevice>

#include <string_view>
#include <vector>

/// What is wrong with a cell.
enum class CellProblem { None, TooLong, StrayQuote, TextAfterQuote, OpenQuote, NotUtf8, ZeroByte };

struct CsvCell {
    /// The content without its quotes. Valid until the next cell is read; of no use when there is a problem.
    std::string_view Text;
    CellProblem Problem = CellProblem::None;
    /// The line of the file on which the cell begins, from 1.
    qint64 Line = 1;
    bool EndsRow = false;
};

/// Reads CSV (RFC 4180, UTF-8, an optional byte order mark) cell by cell through one buffer, so that the memory it
/// takes depends on the longest cell only. A row ends in CR LF, LF or CR, the last one also in the end of the file;
/// line ends in a quoted cell belong to the cell. After a problem reading goes on with the next cell.
class CsvReader {
  public:
    /// Bytes that a cell may have, its quotes included. The rest of a longer one is read over, not kept.
    static constexpr size_t LongestCell = 1 << 20;

    /// The source is open for reading and outlives the reader.
    explicit CsvReader(QIODevice& source);

    /// Reads the next cell; false at the end of the file, or when the source failed.
    bool Next(CsvCell& cell);

    /// Whether reading ended because the source failed; its errorString() says why.
    bool Failed() const { return failed_; }
    /// Bytes taken from the source so far.
    qint64 BytesRead() const { return bytesRead_; }

  private:
    bool Refill();
    void SkipByteOrderMark();
    bool AtEnd() { return position_ == end_ && !Refill(); }
    void ReadQuoted();
    void ReadPlain();
    void TakeDelimiter(CsvCell& cell);
    void CountLineEnd(char c);
    void Note(CellProblem problem);

    QIODevice& source_;
    std::vector<char> buffer_;
    size_t cellStart_ = 0;
    size_t position_ = 0;
    size_t end_ = 0;
    /// End of a quoted cell's content, which moves up over its doubled quotes.
    size_t contentEnd_ = 0;
    bool quoted_ = false;
    bool moreInRow_ = false;
    bool finished_ = false;
    bool failed_ = false;
    bool dropped_ = false;
    CellProblem problem_ = CellProblem::None;
    unsigned char bits_ = 0;
    char last_ = 0;
    qint64 line_ = 1;
    qint64 bytesRead_ = 0;
};
