#pragma once

#include "export/ResultSheet.h"
#include "platform/SpreadsheetApplication.h"
#include "taker/Report.h"
#include "taker/ResponsesFile.h"

#include <QStringList>

/// Many rows for one workbook, which is opened, or begun, at once and written in one go. Failures throw Failure; until
/// Save() nothing is written.
class WorkbookRows {
  public:
    WorkbookRows(const QString& path, const TestDocument& test, const ReportContext& context);

    /// Adds the reader's current row.
    void Append(const ResponsesReader& reader);
    void Save();
    /// What the user is to be told about the workbook that was saved.
    const QStringList& Notes() const { return notes_; }

  private:
    QString path_;
    QDate date_;
    std::unique_ptr<SpreadsheetApplication> application_;
    ResultSheet sheet_;
    bool isNew_ = false;
    QStringList notes_;
};
