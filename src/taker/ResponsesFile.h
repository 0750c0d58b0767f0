#pragma once

#include "taker/CsvReader.h"
#include "taker/Scoring.h"

#include <QHash>
#include <QStringView>

#include <functional>

/// What each answer of a test is worth and which of them a button shows, laid out for scoring many administrations.
class ScoreTable {
  public:
    explicit ScoreTable(const TestDocument& test);

    /// Whether answer a (1..10) of question q has a text, so that it can be chosen; "exists" is whether the test has it
    /// at all, with or without a text.
    bool Offered(int q, int a) const { return items_[static_cast<size_t>(q)].Offered[static_cast<size_t>(a)]; }
    bool Exists(int q, int a) const { return items_[static_cast<size_t>(q)].Exists[static_cast<size_t>(a)]; }

    /// The same sums as ComputeScores, for the choices (0..10) of questions 1..N at the indexes 1..N. On overflow it
    /// throws OverflowError and leaves the question in overflowsAt.
    void Score(const std::vector<signed char>& choices, Scores& scores, int& overflowsAt) const;

  private:
    struct Item {
        std::array<int, MaxAnswers + 1> Value{};
        std::array<bool, MaxAnswers + 1> Offered{};
        std::array<bool, MaxAnswers + 1> Exists{};
        size_t Slot = 0;
    };
    std::vector<Item> items_;
    size_t subscaleCount_;
};

/// Reads a file of responses row by row: checks every cell against the test and scores every row. All that is wrong is
/// told, one line for each, and no row is good from then on; reading goes on, so that one run shows everything.
class ResponsesReader {
  public:
    /// What happens to the texts of short and long answers.
    enum class Texts { Dropped, Kept };
    /// Takes one complaint: a sentence that begins with the row and column.
    using Complaint = std::function<void(const QString&)>;

    /// The test and the source (open for reading) outlive the reader.
    ResponsesReader(const TestDocument& test, QIODevice& source, Texts texts, Complaint complain);

    /// Reads the first row. False when there is none; columns that can't be used are told, and reading may go on.
    bool ReadHeader();
    /// Reads the next row; false at the end of the file or when it can't be read further.
    bool NextRow();

    /// Whether nothing was wrong so far.
    bool Good() const { return complaints_ == 0 && !reader_.Failed(); }
    qint64 Complaints() const { return complaints_; }
    bool Failed() const { return reader_.Failed(); }
    qint64 BytesRead() const { return reader_.BytesRead(); }

    /// Number of the current row, the first behind the header being 1.
    qint64 Row() const { return row_; }
    /// The current row; of use only while Good().
    const std::string& Client() const { return client_; }
    const std::string& Administrator() const { return administrator_; }
    const Scores& RowScores() const { return scores_; }
    /// The row as a Response set: choices, their values, texts (when they are kept) and the furthest question.
    ResponseSet Responses() const;

  private:
    enum class ColumnKind { Ignored, Client, Administrator, Choice, Text, Unanswerable };
    struct Column {
        QString Name;
        ColumnKind Kind = ColumnKind::Ignored;
        int Question = 0;
    };

    Column ColumnFor(const QString& name) const;
    void TakeCell(const Column& column, const CsvCell& cell);
    void TakeChoice(const Column& column, const CsvCell& cell);
    void TakeNumber(const Column& column, const CsvCell& cell, int a);
    void CheckCellCount(size_t count);
    void ScoreRow();
    void ComplainAt(const QString& columnName, qint64 line, const QString& what);

    const TestDocument& test_;
    ScoreTable table_;
    CsvReader reader_;
    Texts texts_;
    Complaint complain_;
    std::vector<Column> columns_;
    qint64 row_ = 0;
    qint64 rowLine_ = 1;
    qint64 complaints_ = 0;
    bool rowGood_ = true;
    std::string client_;
    std::string administrator_;
    std::vector<signed char> choices_;
    QHash<int, QString> answers_;
    Scores scores_;
};
