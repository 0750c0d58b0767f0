#pragma once

#include "taker/Administration.h"
#include "taker/AutoReportFlow.h"
#include "taker/SpreadsheetExporter.h"

#include <QStringList>

/// What files the results of an administration. The exporter may be missing; everything else outlives the object.
struct FilingParts {
    Session& TheSession;
    Prompts& ThePrompts;
    const Clock& TheClock;
    Launcher& TheLauncher;
    Navigator& TheNavigator;
    SpreadsheetExporter* Exporter = nullptr;
};

/// Files the results of an administration, and keeps what is to be said about it: what failed, and what is in which
/// file.
class ResultFiling {
  public:
    /// Asks with the dialog of the automatic report where one is due.
    ResultFiling(const FilingParts& parts, AutoReportFlow::AskFunction ask) : parts_(parts), ask_(std::move(ask)) {}

    /// What a test does by itself when it is completed.
    void Complete(const Administration& course);
    void AutoReport();
    void Export();

    /// What failed since the last forgetting, and what is in files, one line each.
    QStringList Lines() const;
    void ForgetFailures() { failures_.clear(); }

  private:
    Result Exported();
    void Note(const Result& outcome);

    FilingParts parts_;
    AutoReportFlow::AskFunction ask_;
    QStringList failures_;
};
