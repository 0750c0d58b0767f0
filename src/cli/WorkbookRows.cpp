#include "cli/WorkbookRows.h"

#include "export/SpreadsheetExport.h"
#include "export/SystemSpreadsheet.h"

#include <QFileInfo>

WorkbookRows::WorkbookRows(const QString& path, const TestDocument& test, const ReportContext& context)
    : path_(path),
      date_(context.Now.date()),
      application_(SystemSpreadsheet()()),
      sheet_(*application_, test, context.QuestionPrefix, context.QuestionSuffix) {
    isNew_ = !QFileInfo::exists(path);
    try {
        application_->OpenWorkbook(path);
        isNew_ = false;
    } catch (const SpreadsheetError& failure) {
        if (const QString inUse = InUseMessage(failure, path); !inUse.isEmpty())
            throw Failure(inUse);
        if (!isNew_)
            throw Failure(SaveFailedMessage(failure));
        application_->AddWorkbook();
        sheet_.Begin();
        return;
    }
    sheet_.Find(path);
}

void WorkbookRows::Append(const ResponsesReader& reader) {
    try {
        const ResponseSet responses = reader.Responses();
        sheet_.Append({QString::fromStdString(reader.Client()), date_, responses, reader.RowScores()});
    } catch (const SpreadsheetError& failure) {
        throw Failure(QStringLiteral("row %1: ").arg(reader.Row()) + failure.Message());
    }
}

void WorkbookRows::Save() {
    try {
        if (isNew_)
            application_->SaveActiveWorkbookAs(path_);
        else
            application_->SaveActiveWorkbook();
    } catch (const SpreadsheetError& failure) {
        if (failure.Number() != WorkbookSavedBut)
            throw Failure(SaveFailedMessage(failure));
        notes_.append(failure.Message());
    }
    if (!sheet_.Note().isEmpty())
        notes_.append(sheet_.Note());
}
