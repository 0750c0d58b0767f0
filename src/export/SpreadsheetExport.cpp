#include "export/SpreadsheetExport.h"

#include "export/ResultRows.h"
#include "export/WorkbookPath.h"
#include "platform/Directories.h"

#include <QScopeGuard>

const QList<OptionBox>& ExportIncludeBoxes() {
    static const QList<OptionBox> boxes = {
        {IncludeTotalScoreInExcel, QStringLiteral("Total Score"), OptionFrame::Scoring},
        {IncludeMultichoiceAnswersInExcel, QStringLiteral("Multichoice Answers"), OptionFrame::Questions},
        {IncludeShortAnswersInExcel, QStringLiteral("Short Answers"), OptionFrame::Questions},
        {IncludeLongAnswersInExcel, QStringLiteral("Long Answers"), OptionFrame::Questions},
        {IncludeClientNameInExcel, QStringLiteral("Client Name"), OptionFrame::General},
        {IncludeDateInExcel, QStringLiteral("Date of Test"), OptionFrame::General},
        {IncludeSubscalesInExcel, QStringLiteral("Sub-scales"), OptionFrame::Scoring},
    };
    return boxes;
}

const OptionBox& OpenWorkbookBox() {
    static const OptionBox box = {OpenExcelReportWhenCompleted, QStringLiteral("Open Report When Created"),
                                  OptionFrame::General};
    return box;
}

bool ExportOptionMatters(const TestDocument& test, Option option) {
    switch (option) {
    case IncludeTotalScoreInExcel:
    case IncludeMultichoiceAnswersInExcel:
        return SummaryOf(test).HasMultichoice;
    case IncludeShortAnswersInExcel:
        return SummaryOf(test).HasShortAnswer;
    case IncludeLongAnswersInExcel:
        return SummaryOf(test).HasLongAnswer;
    case IncludeSubscalesInExcel:
        return test.SubscaleCount >= 1;
    default:
        return true;
    }
}

void ExportForm::Accept(const QString& filePath, const OptionTicks& ticks) {
    exportFileName_ = filePath;
    TakeTicks(session_.Test, ticks);
}

namespace {

/// An application that failed may have gone altogether, which has been told by then.
void LeaveToUser(SpreadsheetApplication& application) {
    try {
        application.SetVisible(true);
        application.SetUserControl(true);
    } catch (const SpreadsheetError&) {
    }
}

} // namespace

QString WorkbookOpenMessage(const QString& path) {
    return QStringLiteral("Please close Excel. The file '") + path +
           QStringLiteral("' cannot be appended whilst it is open");
}

QString SaveFailedMessage(const SpreadsheetError& failure) {
    return QStringLiteral("Error ") + QString::number(failure.Number()) +
           QStringLiteral(" : Failed to save Excel File - ") + failure.Message();
}

Result SpreadsheetExport::Export(Session& session) {
    if (!office_.ApplicationInstalled(SpreadsheetKey, QString())) {
        prompts_.Inform(SpreadsheetNotInstalled);
        return Result::Done();
    }
    const TestDocument& test = session.Test;
    const bool usesName =
        test.TestOption(AutosaveExcelDirectoryAsClient) || test.TestOption(AutosaveExcelReportAsClient);
    if (usesName && session.ClientName.isEmpty())
        windows_.AskNames();
    const auto backAgain = qScopeGuard([&] { ChangeDirectory(session.UserSettings.DefaultDirectory); });
    const QString path = ConfirmedPath(session, WorkbookPathFor(session, prompts_));
    return path.isEmpty() || path == NoExport ? Result::Done() : ExportTo(session, path);
}

QString SpreadsheetExport::ConfirmedPath(Session& session, const QString& path) {
    if (session.Test.TestOption(UpdateFilesWithoutPrompting) && !session.SpreadsheetExported)
        return path;
    QString exportFileName = path;
    ExportForm form(session, exportFileName);
    windows_.Confirm(form);
    return exportFileName;
}

Result SpreadsheetExport::ExportTo(Session& session, const QString& path) {
    const auto closed = qScopeGuard([this] { windows_.CloseSteps(); });
    windows_.ShowStep(QStringLiteral("Opening Excel for Export"));
    try {
        const std::unique_ptr<SpreadsheetApplication> application = attach_();
        const Opened opened = Open(*application, path);
        if (opened == Opened::Failed)
            return Result::Done();
        WriteRow(*application, session, opened);
        return Save(*application, session, path, opened);
    } catch (const SpreadsheetError& failure) {
        prompts_.Inform(failure.Message());
        return Result::Done();
    }
}

SpreadsheetExport::Opened SpreadsheetExport::Open(SpreadsheetApplication& application, const QString& path) {
    try {
        application.OpenWorkbook(path);
        return Opened::Existing;
    } catch (const SpreadsheetError& failure) {
        if (failure.Number() != WorkbookOpenElsewhere)
            return Opened::New;
        prompts_.Inform(WorkbookOpenMessage(path));
        return Opened::Failed;
    }
}

void SpreadsheetExport::WriteRow(SpreadsheetApplication& application, const Session& session, Opened opened) {
    const TestDocument& test = session.Test;
    const auto columns =
        ResultColumnsOf(test, session.UserSettings.QuestionPrefix, session.UserSettings.QuestionSuffix);
    if (opened == Opened::New) {
        windows_.ShowStep(QStringLiteral("Creating New Excel Export File"));
        application.AddWorkbook();
        WriteHeads(application, test, columns);
    }
    windows_.ShowStep(QStringLiteral("Exporting Test Data to Excel File"));
    const int row = FindDataRow(application);
    const Scores scores = ComputeScores(test, session.Responses);
    WriteResultRow(application, row, columns, {session.ClientName, clock_.Now().date(), session.Responses, scores});
}

Result SpreadsheetExport::Save(SpreadsheetApplication& application, Session& session, const QString& path,
                               Opened opened) {
    session.SpreadsheetExported = true;
    windows_.ShowStep(QStringLiteral("Saving ") + path);
    try {
        if (opened == Opened::New)
            application.SaveActiveWorkbookAs(path);
        else
            application.SaveActiveWorkbook();
    } catch (const SpreadsheetError& failure) {
        prompts_.Inform(SaveFailedMessage(failure));
        LeaveToUser(application);
        return Result::Done();
    }
    windows_.CloseSteps();
    if (!session.Test.TestOption(OpenExcelReportWhenCompleted)) {
        application.Quit();
        return Result::Done();
    }
    try {
        application.SetVisible(true);
        application.SetUserControl(true);
    } catch (const SpreadsheetError& failure) {
        return Result::Failed(QStringLiteral("The results were saved. ") + failure.Message());
    }
    return Result::Done();
}
