#include "export/SpreadsheetExport.h"

#include "export/EarlierWorkbook.h"
#include "export/ResultSheet.h"
#include "export/WorkbookPath.h"
#include "platform/Directories.h"

#include <QDir>
#include <QFileInfo>
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

QString InUseMessage(const SpreadsheetError& failure, const QString& path) {
    if (failure.Number() == WorkbookHeldByVellumo)
        return failure.Message();
    return failure.Number() == WorkbookOpenElsewhere ? WorkbookOpenMessage(path) : QString();
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
    OfferEarlierWorkbook(path, prompts_);
    windows_.ShowStep(QStringLiteral("Opening Excel for Export"));
    try {
        const std::unique_ptr<SpreadsheetApplication> application = attach_();
        const Opened opened = Open(*application, path);
        if (opened == Opened::Failed)
            return Result::Done();
        const QString note = WriteRow(*application, session, path, opened);
        if (!Save(*application, session, path, opened))
            return Result::Done();
        const Result finished = Finish(*application, session);
        if (!note.isEmpty())
            prompts_.Inform(note);
        return finished;
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
        const QString inUse = InUseMessage(failure, path);
        if (inUse.isEmpty())
            return Opened::New;
        prompts_.Inform(inUse);
        return Opened::Failed;
    }
}

QString SpreadsheetExport::WriteRow(SpreadsheetApplication& application, const Session& session, const QString& path,
                                    Opened opened) {
    const Settings& settings = session.UserSettings;
    ResultSheet sheet(application, session.Test, settings.QuestionPrefix, settings.QuestionSuffix);
    if (opened == Opened::New) {
        windows_.ShowStep(QStringLiteral("Creating New Excel Export File"));
        application.AddWorkbook();
        sheet.Begin();
    }
    windows_.ShowStep(QStringLiteral("Exporting Test Data to Excel File"));
    if (opened == Opened::Existing)
        sheet.Find(path);
    const Scores scores = ComputeScores(session.Test, session.Responses);
    sheet.Append({session.ClientName, clock_.Now().date(), session.Responses, scores});
    return sheet.Note();
}

bool SpreadsheetExport::Save(SpreadsheetApplication& application, Session& session, const QString& path,
                             Opened opened) {
    windows_.ShowStep(QStringLiteral("Saving ") + path);
    try {
        if (opened == Opened::New)
            application.SaveActiveWorkbookAs(path);
        else
            application.SaveActiveWorkbook();
    } catch (const SpreadsheetError& failure) {
        const bool isSaved = failure.Number() == WorkbookSavedBut;
        prompts_.Inform(isSaved ? failure.Message() : SaveFailedMessage(failure));
        if (!isSaved) {
            LeaveToUser(application);
            return false;
        }
    }
    // Only now: what failed can be tried again without a word about an export that never was.
    session.SpreadsheetExported = true;
    session.SpreadsheetFilePath = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath());
    if (opened == Opened::New && session.FileMade)
        session.FileMade(path);
    return true;
}

Result SpreadsheetExport::Finish(SpreadsheetApplication& application, const Session& session) {
    windows_.CloseSteps();
    try {
        if (!session.Test.TestOption(OpenExcelReportWhenCompleted)) {
            application.Quit();
            return Result::Done();
        }
        application.SetVisible(true);
        application.SetUserControl(true);
    } catch (const SpreadsheetError& failure) {
        return Result::Failed(QStringLiteral("The results were saved. ") + failure.Message());
    }
    return Result::Done();
}
