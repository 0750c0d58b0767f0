#include "taker/ResultFiling.h"

#include "platform/Guarded.h"
#include "taker/Leaving.h"

namespace {

const QString NoSpreadsheetExport =
    QStringLiteral("The spreadsheet export is not part of this version of Vellumo yet.");

} // namespace

void ResultFiling::Complete(const Administration& course) {
    if (course.WantsSpreadsheetExport())
        RunGuarded(parts_.ThePrompts, [this] { Note(Exported()); });
    if (course.WantsAutoReport())
        AutoReport();
}

void ResultFiling::AutoReport() {
    RunGuarded(parts_.ThePrompts, [this] {
        AutoReportFlow flow(parts_.TheSession, parts_.ThePrompts, parts_.TheClock, parts_.TheLauncher,
                            parts_.TheNavigator);
        Note(flow.Run(ask_));
    });
}

void ResultFiling::Export() {
    RunGuarded(parts_.ThePrompts, [this] {
        if (const Result exported = Exported(); !exported)
            parts_.ThePrompts.Inform(exported.Message());
    });
}

Result ResultFiling::Exported() {
    return parts_.Exporter ? ExportResults(*parts_.Exporter, parts_.TheSession) : Result::Failed(NoSpreadsheetExport);
}

QStringList ResultFiling::Lines() const { return failures_ + FilingLines(parts_.TheSession); }

void ResultFiling::Note(const Result& outcome) {
    if (!outcome && !failures_.contains(outcome.Message()))
        failures_ += outcome.Message();
}
