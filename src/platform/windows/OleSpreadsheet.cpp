#include "platform/windows/OleSpreadsheet.h"

#include "base/LineBreak.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

#include <windows.h>

namespace {

const QString ApplicationId = QStringLiteral("Excel.Application");

/// As much as a cell holds, in UTF-16 units.
constexpr qsizetype MaxCellText = 32'767;

/// Does it, and passes failures on as the export knows them.
template <typename Step> auto Driven(Step step) {
    try {
        return step();
    } catch (const AutomationError& failure) {
        throw SpreadsheetError(failure.Number(), failure.Message());
    }
}

AutomationObject AttachOrStart() {
    try {
        const auto running = AutomationObject::Running(ApplicationId);
        return running ? *running : AutomationObject::Created(ApplicationId);
    } catch (const AutomationError& failure) {
        const bool isMissing = failure.Number() == static_cast<int>(CO_E_CLASSSTRING);
        throw SpreadsheetError(failure.Number(), isMissing
                                                     ? SpreadsheetNotInstalled
                                                     : QStringLiteral("Excel can't be started: ") + failure.Message());
    }
}

/// The application has another current folder than this program.
QString WholePath(const QString& path) { return QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()); }

AutomationValue AutomationValueOf(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* date = std::get_if<QDate>(&value))
        return *date;
    if (const auto* text = std::get_if<QString>(&value)) {
        if (text->size() > MaxCellText)
            throw SpreadsheetError(
                SpreadsheetFailure,
                QStringLiteral("a cell holds at most 32,767 characters, and the text has %1").arg(text->size()));
        return text->isEmpty() ? AutomationValue() : AutomationValue(AsCellText(*text));
    }
    return {};
}

CellValue CellValueOf(const AutomationValue& value) {
    if (const auto* number = std::get_if<double>(&value))
        return *number;
    if (const auto* date = std::get_if<QDate>(&value))
        return *date;
    if (const auto* text = std::get_if<QString>(&value))
        return text->isEmpty() ? CellValue() : CellValue(*text);
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag ? 1.0 : 0.0;
    return {};
}

} // namespace

QString AsCellText(const QString& text) {
    // In cells, lines end with a line feed alone.
    QString cell = QString(text).replace(LineBreak, QStringLiteral("\n"));
    const QString word = cell.trimmed();
    const bool startsPlain = !word.isEmpty() && word.front().isLetter() && word.front() == cell.front();
    const bool hasDigit = std::ranges::any_of(cell, [](QChar c) { return c.isNumber(); });
    const bool isTruth = word.compare(QStringLiteral("TRUE"), Qt::CaseInsensitive) == 0 ||
                         word.compare(QStringLiteral("FALSE"), Qt::CaseInsensitive) == 0;
    return startsPlain && !hasDigit && !isTruth ? cell : u'\'' + cell;
}

OleSpreadsheet::OleSpreadsheet() : application_(AttachOrStart()) {}

void OleSpreadsheet::OpenWorkbook(const QString& path) {
    refusedPath_.clear();
    if (path.isEmpty())
        return;
    try {
        Driven([&] {
            application_.Object(QStringLiteral("Workbooks"))
                .Call(QStringLiteral("Open"), {}, {{QStringLiteral("FILENAME"), WholePath(path)}});
        });
    } catch (const SpreadsheetError& failure) {
        refusedPath_ = WholePath(path);
        refusal_ = failure.Message();
        throw;
    }
}

void OleSpreadsheet::AddWorkbook() {
    Driven([&] { application_.Object(QStringLiteral("Workbooks")).Call(QStringLiteral("Add")); });
}

CellValue OleSpreadsheet::Cells(int row, int column) {
    return Driven([&] {
        const AutomationValue cell = application_.Get(QStringLiteral("Cells"), {double(row), double(column)});
        const auto* object = std::get_if<AutomationObject>(&cell);
        return CellValueOf(object ? object->GetDefault() : cell);
    });
}

bool OleSpreadsheet::HasFormula(int row, int column) {
    return Driven([&] {
        const AutomationValue cell = application_.Get(QStringLiteral("Cells"), {double(row), double(column)});
        const auto* object = std::get_if<AutomationObject>(&cell);
        const AutomationValue has = object ? object->Get(QStringLiteral("HasFormula")) : AutomationValue();
        const auto* flag = std::get_if<bool>(&has);
        return flag && *flag;
    });
}

void OleSpreadsheet::SetCells(int row, int column, const CellValue& value) {
    Driven([&] {
        const AutomationValue content = AutomationValueOf(value);
        const AutomationValue cell = application_.Get(QStringLiteral("Cells"), {double(row), double(column)});
        if (const auto* object = std::get_if<AutomationObject>(&cell))
            object->PutDefault(content);
        else
            application_.Put(QStringLiteral("Cells"), content, {double(row), double(column)});
    });
}

void OleSpreadsheet::SaveActiveWorkbookAs(const QString& path) {
    // It was meant to be appended to; whatever it is, replacing it would lose it.
    if (!refusedPath_.isEmpty() && refusedPath_ == WholePath(path) && QFileInfo::exists(path))
        throw SpreadsheetError(SpreadsheetFailure, QStringLiteral("The file '") + path +
                                                       QStringLiteral("' can't be opened and was not replaced: ") +
                                                       refusal_);
    Driven([&] {
        application_.Object(QStringLiteral("ActiveWorkbook"))
            .Call(QStringLiteral("SaveAs"), {}, {{QStringLiteral("FILENAME"), WholePath(path)}});
    });
}

void OleSpreadsheet::SaveActiveWorkbook() {
    Driven([&] { application_.Object(QStringLiteral("ActiveWorkbook")).Call(QStringLiteral("Save")); });
}

void OleSpreadsheet::SetVisible(bool visible) {
    Driven([&] { application_.Put(QStringLiteral("Visible"), visible); });
}

void OleSpreadsheet::SetUserControl(bool userControl) {
    Driven([&] { application_.Put(QStringLiteral("UserControl"), userControl); });
}

void OleSpreadsheet::Quit() {
    Driven([&] { application_.Call(QStringLiteral("Quit")); });
}
