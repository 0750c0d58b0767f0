#pragma once

#include "platform/SpreadsheetApplication.h"
#include "taker/Scoring.h"
#include "taker/Session.h"

#include <vector>

/// One column of a workbook of results.
struct ResultColumn {
    enum class Kind { Client, Date, TotalScore, Subscale, Choice, Text };
    Kind What;
    /// The sub-scale's or the question's number, from 1.
    int Number = 0;
    QString Head;
};

/// The columns that the test's options include, from the first. The settings give what stands around a question's
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

/// What the results put into a column.
CellValue ValueOf(const ResultColumn& column, const ResultsOfOne& results);
