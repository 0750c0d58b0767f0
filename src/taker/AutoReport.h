#pragma once

#include "platform/Prompts.h"
#include "taker/Session.h"

#include <QHash>

#include <functional>

/// How the file of an automatic report came about.
struct WrittenReport {
    /// Empty when nothing was written.
    QString Path;
    Result Outcome;
};

/// The path that "no file" has.
inline const QString NoReportFile = QStringLiteral("<exit>");

/// The directory of the automatic reports, made when it is missing, with its separator at the end; "" for the current
/// one. A directory that can't be made is told by "Can't make directory: " + path, and "" takes its place.
QString ReportDirectoryFor(const TestDocument& test, const QString& clientName, Prompts& prompts);

/// How far the numbers in brackets went for each name, so that a run over many reports doesn't try all of them again.
using TakenNumbers = QHash<QString, int>;

/// The path of the next automatic report: directory, the autosave file name or the test's, the client's name if the
/// test says so, and ".txt"; a number in brackets when reports are not appended and the name is taken. Shortens the
/// test's AutosaveFileName before its first ".".
QString ReportPathFor(TestDocument& test, const QString& clientName, Prompts& prompts, TakenNumbers* taken = nullptr);

/// Whether the dialog asks before the report is written.
bool AutoReportAsks(const Session& session);

/// Writes text and a line break to path: after what is there when append, in its place otherwise. A report at the end
/// of the file that was cut off, since its program ended while it wrote, is completed by a line that says so.
Result WriteReportFile(const QString& path, const QString& text, bool append);

/// The same to a file that isn't there yet. When another program has taken the name since path was found, nextPath
/// gives the next one, and path is then the one that the file has.
Result WriteNewReportFile(QString& path, const QString& text, const std::function<QString()>& nextPath);
