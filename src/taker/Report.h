#pragma once

#include "settings/Settings.h"
#include "taker/ResponseSet.h"
#include "testdoc/TestDocument.h"

#include <QDateTime>
#include <QString>

/// What a report shows besides the test and the responses.
struct ReportContext {
    QString ClientName;
    QString AdministratorName;
    QString QuestionPrefix;
    QString QuestionSuffix;
    bool BreakAfterQuestionNumber = false;
    QDateTime Now;
};

/// The text report of one administration, lines ended by CR LF; which blocks it has follows the test's options.
/// Throws OverflowError when the total score leaves 16 bits.
QString BuildReport(const TestDocument& test, const ResponseSet& responses, const ReportContext& context);

/// The time in the locale's own format with seconds and without a zone, and its short date.
QString ReportTime(const QDateTime& now);
QString ReportDate(const QDateTime& now);
