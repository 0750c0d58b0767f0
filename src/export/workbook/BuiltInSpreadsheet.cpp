#include "export/workbook/BuiltInSpreadsheet.h"

#include "base/Text.h"
#include "export/EarlierWorkbook.h"
#include "export/workbook/WorkbookError.h"
#include "platform/SafeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace {

/// The largest file that is read, in bytes.
constexpr qint64 MaxWorkbookBytes = 512 << 20;

SpreadsheetError Refused(const QString& description) { return {SpreadsheetFailure, description}; }

SpreadsheetError OpenElsewhere(const QString& path) {
    return {WorkbookOpenElsewhere, QStringLiteral("The file ") + Quoted(path) + QStringLiteral(" is open elsewhere")};
}

/// The file, open. Throws WorkbookError, with the reason, when it can't be read or is clearly something else.
std::unique_ptr<QIODevice> OpenedWorkbook(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir())
        throw WorkbookError(QStringLiteral("it is a directory"));
    if (!info.isFile())
        throw WorkbookError(QStringLiteral("it is not a regular file"));
    if (info.size() > MaxWorkbookBytes)
        throw WorkbookError(QStringLiteral("it is %1 bytes long, and at most %2 can be read")
                                .arg(QLocale(QLocale::English).toString(info.size()),
                                     QLocale(QLocale::English).toString(MaxWorkbookBytes)));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        throw WorkbookError(file->errorString());
    if (info.size() == 0)
        throw WorkbookError(QStringLiteral("it is empty"));
    if (file->peek(4) == "\xD0\xCF\x11\xE0")
        throw WorkbookError(
            QStringLiteral("it is protected with a password, or it is in the older format of .xls files"));
    return file;
}

} // namespace

void BuiltInSpreadsheet::OpenWorkbook(const QString& path) {
    Quit();
    refusedPath_ = path;
    try {
        TakeLock(path);
        if (IsOpenInAnotherProgram(path))
            throw OpenElsewhere(path);
        const QFileInfo info(path);
        if (!info.exists())
            throw Refused(QStringLiteral("There is no file ") + Quoted(path));
        sizeRead_ = info.size();
        changeRead_ = info.lastModified();
        workbook_ = std::make_unique<Workbook>(OpenedWorkbook(path));
        path_ = path;
        refusedPath_.clear();
    } catch (const SpreadsheetError& failure) {
        refusal_ = failure.Message();
        if (failure.Number() == WorkbookOpenElsewhere)
            lock_.reset();
        throw;
    } catch (const WorkbookError& failure) {
        refusal_ = QStringLiteral("The file ") + Quoted(path) +
                   QStringLiteral(" can't be read as a workbook and was not changed: ") + failure.Message() +
                   EarlierWorkbookHint(path);
        throw Refused(refusal_);
    }
}

void BuiltInSpreadsheet::TakeLock(const QString& path) {
    if (lock_ && lock_->IsFor(path))
        return;
    lock_.emplace(path);
    switch (lock_->Take(parts_.PatienceMilliseconds, parts_.WhileWaiting)) {
    case WorkbookLock::Outcome::Taken:
        return;
    case WorkbookLock::Outcome::Busy:
        throw SpreadsheetError(WorkbookHeldByVellumo, QStringLiteral("The file ") + Quoted(path) +
                                                          QStringLiteral(" can't be changed now: ") + lock_->Holder());
    case WorkbookLock::Outcome::Impossible:
        break;
    }
    const QString folder = QFileInfo(path).absolutePath();
    if (!QFileInfo(folder).isDir())
        throw Refused(QStringLiteral("There is no folder ") + Quoted(folder));
    const QString reason = lock_->Reason();
    throw Refused(QStringLiteral("Nothing can be written in the folder ") + Quoted(folder) +
                  (reason.isEmpty() ? QString() : QStringLiteral(": ") + reason));
}

void BuiltInSpreadsheet::AddWorkbook() {
    workbook_ = std::make_unique<Workbook>();
    changed_ = true;
    path_.clear();
}

Workbook& BuiltInSpreadsheet::Active() {
    if (!workbook_)
        throw Refused(QStringLiteral("There is no open workbook"));
    return *workbook_;
}

/// What the step gives; a workbook that turns out to be damaged is refused by the file's name.
template <typename Step> auto BuiltInSpreadsheet::Reading(Step step) {
    try {
        return step(Active());
    } catch (const WorkbookError& failure) {
        throw Refused(QStringLiteral("The file ") + Quoted(path_) + QStringLiteral(" can't be read as a workbook: ") +
                      failure.Message());
    }
}

CellValue BuiltInSpreadsheet::Cells(int row, int column) {
    return Reading([&](Workbook& workbook) { return workbook.Cell(row, column); });
}

bool BuiltInSpreadsheet::HasFormula(int row, int column) {
    return Reading([&](Workbook& workbook) { return workbook.HasFormula(row, column); });
}

void BuiltInSpreadsheet::SetCells(int row, int column, const CellValue& value) {
    Reading([&](Workbook& workbook) {
        workbook.SetCell(row, column, value);
        changed_ = true;
    });
}

void BuiltInSpreadsheet::SaveActiveWorkbookAs(const QString& path) {
    Active();
    TakeLock(path);
    if (const QFileInfo info(path); info.exists())
        throw Refused(path == refusedPath_ ? refusal_
                                           : QStringLiteral("The file ") + Quoted(path) +
                                                 QStringLiteral(" is there already and was not replaced"));
    path_ = path;
    Write();
}

void BuiltInSpreadsheet::SaveActiveWorkbook() {
    Active();
    if (path_.isEmpty())
        throw Refused(QStringLiteral("The workbook has no file yet"));
    const QFileInfo info(path_);
    if (IsOpenInAnotherProgram(path_))
        throw OpenElsewhere(path_);
    if (info.size() != sizeRead_ || info.lastModified() != changeRead_)
        throw Refused(QStringLiteral("The file ") + Quoted(path_) +
                      QStringLiteral(" was changed by another program meanwhile. It was left as it is"));
    if (changed_)
        Write();
    else
        savedPath_ = path_;
}

void BuiltInSpreadsheet::Write() {
    QByteArray bytes;
    try {
        bytes = workbook_->Pack();
    } catch (const WorkbookError& failure) {
        throw Refused(QStringLiteral("The file ") + Quoted(path_) + QStringLiteral(" was not changed: ") +
                      failure.Message());
    }
    workbook_.reset();
    WriteManner manner;
    manner.Held = lock_ ? &*lock_ : nullptr;
    const WriteOutcome outcome = WriteFileInManner(path_, bytes, manner);
    const QString message = ResultOf(path_, outcome).Message();
    if (!outcome.Written)
        throw Refused(message);
    savedPath_ = path_;
    lock_.reset();
    if (!message.isEmpty())
        throw SpreadsheetError(WorkbookSavedBut, message);
}

void BuiltInSpreadsheet::SetVisible(bool visible) {
    if (!visible || savedPath_.isEmpty() || !parts_.Programs)
        return;
    const QString path = QFileInfo(savedPath_).absoluteFilePath();
    if (const Result shown = parts_.Programs->Open(parts_.Viewer, path); !shown)
        throw Refused(shown.Message());
}

// The program that shows the workbook is the user's from the start.
void BuiltInSpreadsheet::SetUserControl(bool) {}

void BuiltInSpreadsheet::Quit() {
    workbook_.reset();
    lock_.reset();
    changed_ = false;
    path_.clear();
}
