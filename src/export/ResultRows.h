#pragma once

#include "platform/SpreadsheetApplication.h"
#include "taker/Scoring.h"
#include "taker/Session.h"

#include <vector>

/// The row of the heads; the data begin in it too when no head stands in its first column.
inline constexpr int HeadsRow = 3;

/// One column of a workbook of results.
struct ResultColumn {
    enum class Kind { Client, Date, TotalScore, Subscale, Choice, Text };
    Kind What;
    /// The sub-scale's or the question's number, from 1.
    int Number = 0;
    QString Head;
};

/// The columns, from the first, that the test's options include. The settings give what stands around a question's
/// number.
std::vector<ResultColumn> ResultColumnsOf(const TestDocument& test, const QString& questionPrefix,
                                          const QString& questionSuffix);

/// What one administration puts into its row.
struct ResultsOfOne {
    QString Client;
    QDate Date;
    const ResponseSet& Responses;
    const Scores& RowScores;
};

/// Writes a new workbook's title and heads into the active sheet. These functions throw SpreadsheetError, with the
/// column's head in the message where there is one.
void WriteHeads(SpreadsheetApplication& application, const TestDocument& test,
                const std::vector<ResultColumn>& columns);

/// The first row from the heads' downwards whose first cell is empty.
int FindDataRow(SpreadsheetApplication& application);

/// Writes one row; a cell that stays empty becomes 0.
void WriteResultRow(SpreadsheetApplication& application, int row, const std::vector<ResultColumn>& columns,
                    const ResultsOfOne& results);
