#include "taker/AutoReportFlow.h"

#include "platform/Directories.h"

#include <QDir>
#include <QFileInfo>

const QList<OptionBox>& ReportFileBoxes() {
    static const QList<OptionBox> boxes = {
        {AppendToReportFile, QStringLiteral("Append to File"), OptionFrame::General},
        {OpenReportWhenCompleted, QStringLiteral("Open Report When Created"), OptionFrame::General},
    };
    return boxes;
}

namespace {

/// Why no report can be written to the path; empty when it may be tried.
QString ObjectionTo(const QString& path) {
    const QFileInfo file(path);
    const QString folder = QDir::toNativeSeparators(file.absolutePath());
    if (path.trimmed().isEmpty())
        return QStringLiteral("Enter the name of the file for the report, or choose Cancel to write none.");
    if (file.isDir())
        return u'\'' + path + QStringLiteral("' is a folder. Enter the name of a file for the report.");
    if (!DirectoryExists(folder))
        return QStringLiteral("The folder '") + folder + QStringLiteral("' doesn't exist. Enter another file name.");
    return {};
}

} // namespace

AutoReportForm::AutoReportForm(Session& session, Prompts& prompts)
    : session_(session), prompts_(prompts), filePath_(std::exchange(session.ReportFilePath, NoReportFile)) {}

bool AutoReportForm::Accept(const QString& filePath, const OptionTicks& ticks) {
    if (const QString objection = ObjectionTo(filePath); !objection.isEmpty()) {
        prompts_.Inform(objection);
        return false;
    }
    const auto append = ticks.find(AppendToReportFile);
    const bool appends = append == ticks.end() ? session_.Test.TestOption(AppendToReportFile) : append->second;
    if (!appends && QFileInfo(filePath).isFile() && !MayReplace(filePath))
        return false;
    session_.ReportFilePath = filePath;
    TakeTicks(session_.Test, ticks);
    return true;
}

bool AutoReportForm::MayReplace(const QString& filePath) {
    return prompts_.Choose(
               {QStringLiteral("The file '") + filePath +
                    QStringLiteral("' exists. Replace it, and lose what it holds?"),
                {{QStringLiteral("&Replace"), ChoiceRole::Discard}, {QStringLiteral("&Cancel"), ChoiceRole::Reject}},
                1,
                1}) == 0;
}

void AutoReportForm::Cancel() { session_.ReportFilePath = NoReportFile; }

Result AutoReportFlow::Run(const AskFunction& ask) {
    // It may have been chosen anew, or come back, since the test began.
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
    const QString found = ReportPathFor(session_.Test, session_.ClientName, prompts_);
    session_.ReportFilePath = found;
    if (AutoReportAsks(session_)) {
        AutoReportForm form(session_, prompts_);
        ask(form);
    }
    session_.Responses.SilentReport = true;
    const Result outcome = report_.Run() == ReportOutcome::Refused ? Result::Done() : Write(found);
    ChangeDirectory(session_.UserSettings.DefaultDirectory);
    return outcome;
}

Result AutoReportFlow::Write(const QString& found) {
    QString& path = session_.ReportFilePath;
    if (path.isEmpty() || path == NoReportFile)
        return Result::Done();
    const TestDocument& test = session_.Test;
    const bool isNew = !QFileInfo::exists(path);
    const bool append = test.TestOption(AppendToReportFile);
    const auto nextPath = [&] { return ReportPathFor(session_.Test, session_.ClientName, prompts_); };
    // A name that nobody has chosen was free when it was found, and its file replaces none.
    const Result written = path == found && !append ? WriteNewReportFile(path, session_.ReportText, nextPath)
                                                    : WriteReportFile(path, session_.ReportText, append);
    if (!written) {
        report_.ShowReport();
        return written;
    }
    if (isNew && session_.FileMade)
        session_.FileMade(path);
    session_.AutoReportDone = true;
    session_.Filed.ReportPath = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    session_.Filed.Report = session_.Responses;
    session_.Filed.ReportClient = session_.ClientName;
    return test.TestOption(OpenReportWhenCompleted) ? launcher_.Open(session_.UserSettings.DefaultEditor, path)
                                                    : Result::Done();
}
