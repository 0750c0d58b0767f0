#include "cli/WorkbookRows.h"

#include "export/SpreadsheetExport.h"
#include "export/SystemSpreadsheet.h"

#include <QFileInfo>

WorkbookRows::WorkbookRows(const QString& path, const TestDocument& test, const ReportContext& context)
    : path_(path),
      date_(context.Now.date()),
      application_(SystemSpreadsheet()()),
      columns_(ResultColumnsOf(test, context.QuestionPrefix, context.QuestionSuffix)) {
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
        WriteHeads(*application_, test, columns_);
    }
    row_ = FindDataRow(*application_);
}

void WorkbookRows::Append(const ResponsesReader& reader) {
    try {
        const ResponseSet responses = reader.Responses();
        WriteResultRow(*application_, row_, columns_,
                       {QString::fromStdString(reader.Client()), date_, responses, reader.RowScores()});
    } catch (const SpreadsheetError& failure) {
        throw Failure(QStringLiteral("row %1: ").arg(reader.Row()) + failure.Message());
    }
    while (!std::holds_alternative<std::monostate>(application_->Cells(row_, 1)) && !columns_.empty())
        ++row_;
}

void WorkbookRows::Save() {
    try {
        if (isNew_)
            application_->SaveActiveWorkbookAs(path_);
        else
            application_->SaveActiveWorkbook();
    } catch (const SpreadsheetError& failure) {
        throw Failure(SaveFailedMessage(failure));
    }
}
