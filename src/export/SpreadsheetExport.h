#pragma once

#include "platform/Clock.h"
#include "platform/OfficeProbe.h"
#include "platform/Prompts.h"
#include "platform/SpreadsheetApplication.h"
#include "taker/ReportOptions.h"
#include "taker/SpreadsheetExporter.h"

/// The boxes that choose the columns, in the order in which the window shows them.
const QList<OptionBox>& ExportIncludeBoxes();
/// The box that opens the workbook afterwards.
const OptionBox& OpenWorkbookBox();
/// Whether the option can change what is exported of this test.
bool ExportOptionMatters(const TestDocument& test, Option option);

/// The value of a path that means "no export".
inline const QString NoExport = QStringLiteral("exit");

/// The rules of the window that asks before an export. Making one is its opening: until it is accepted, nothing will be
/// exported.
class ExportForm {
  public:
    ExportForm(Session& session, QString& exportFileName)
        : session_(session), exportFileName_(exportFileName), filePath_(std::exchange(exportFileName, NoExport)) {}

    const TestDocument& Test() const { return session_.Test; }
    const Settings& UserSettings() const { return session_.UserSettings; }
    /// The path that the box holds at first.
    const QString& FilePath() const { return filePath_; }
    /// Whether the note that these results were exported already is seen.
    bool AlreadyExported() const { return session_.SpreadsheetExported; }

    /// Takes the path and the ticks; the ticks hold for the rest of the run, in memory.
    void Accept(const QString& filePath, const OptionTicks& ticks);
    void Cancel() { exportFileName_ = NoExport; }

  private:
    Session& session_;
    QString& exportFileName_;
    QString filePath_;
};

/// The windows of the export.
class ExportWindows {
  public:
    virtual ~ExportWindows() = default;

    /// The names window, modally.
    virtual void AskNames() = 0;
    /// The window that confirms file and columns, modally.
    virtual void Confirm(ExportForm& form) = 0;
    /// Shows the window "Please Wait" with that caption, or changes the caption of the one that is shown.
    virtual void ShowStep(const QString& caption) = 0;
    virtual void CloseSteps() = 0;
};

/// The export of an administration's results as one row of a workbook. Its messages are shown as they come up.
class SpreadsheetExport : public SpreadsheetExporter {
  public:
    SpreadsheetExport(Prompts& prompts, const Clock& clock, const OfficeProbe& office, AttachSpreadsheet attach,
                      ExportWindows& windows)
        : prompts_(prompts), clock_(clock), office_(office), attach_(std::move(attach)), windows_(windows) {}

    /// Done unless the row is saved but can't be shown; what else goes wrong was shown as a message. Throws
    /// OverflowError for a total past 16 bits; nothing is saved then.
    Result Export(Session& session) override;

  private:
    enum class Opened { Failed, Existing, New };

    QString ConfirmedPath(Session& session, const QString& path);
    Result ExportTo(Session& session, const QString& path);
    Opened Open(SpreadsheetApplication& application, const QString& path);
    QString WriteRow(SpreadsheetApplication& application, const Session& session, const QString& path, Opened opened);
    bool Save(SpreadsheetApplication& application, Session& session, const QString& path, Opened opened);
    Result Finish(SpreadsheetApplication& application, const Session& session);

    Prompts& prompts_;
    const Clock& clock_;
    const OfficeProbe& office_;
    AttachSpreadsheet attach_;
    ExportWindows& windows_;
};

/// The message for a workbook that is open elsewhere.
QString WorkbookOpenMessage(const QString& path);
/// What the user is told when the failure is that another program, or another Vellumo, has the workbook; empty
/// otherwise.
QString InUseMessage(const SpreadsheetError& failure, const QString& path);
/// The message for one that couldn't be saved.
QString SaveFailedMessage(const SpreadsheetError& failure);
