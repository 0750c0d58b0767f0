#pragma once

#include "platform/SpreadsheetApplication.h"

#include <QMap>
#include <QStringList>

#include <map>

/// What a spreadsheet application holds and is asked for, over its instances.
struct SpreadsheetLog {
    QStringList Calls;
    std::map<std::pair<int, int>, CellValue> Grid;
    /// The member, by its name in Calls without argument, that fails, and how.
    QMap<QString, SpreadsheetError> Failures;

    CellValue Cell(int row, int column) const {
        const auto found = Grid.find({row, column});
        return found == Grid.end() ? CellValue() : found->second;
    }
    QString Text(int row, int column) const {
        const CellValue value = Cell(row, column);
        if (const double* number = std::get_if<double>(&value))
            return QString::number(*number);
        if (const QDate* date = std::get_if<QDate>(&value))
            return date->toString(Qt::ISODate);
        return std::holds_alternative<QString>(value) ? u'"' + std::get<QString>(value) + u'"' : QStringLiteral("-");
    }
    /// The cells of a row, from the first to the last of its grid.
    QString Row(int row) const {
        QStringList cells;
        for (int column = 1; column <= 12; ++column)
            cells.append(Text(row, column));
        while (!cells.isEmpty() && cells.last() == QStringLiteral("-"))
            cells.removeLast();
        return cells.join(u' ');
    }
};

/// Notes the calls; cells are kept in the log's grid.
class FakeSpreadsheet : public SpreadsheetApplication {
  public:
    explicit FakeSpreadsheet(SpreadsheetLog& log) : log_(log) {}

    void OpenWorkbook(const QString& path) override { Note(QStringLiteral("Open"), path); }
    void AddWorkbook() override { Note(QStringLiteral("Add")); }
    CellValue Cells(int row, int column) override { return log_.Cell(row, column); }
    bool HasFormula(int row, int column) override {
        const CellValue value = log_.Cell(row, column);
        const QString* text = std::get_if<QString>(&value);
        return text && text->startsWith(u'=');
    }
    void SetCells(int row, int column, const CellValue& value) override {
        const QString* text = std::get_if<QString>(&value);
        log_.Grid[{row, column}] = text && text->isEmpty() ? CellValue() : value;
    }
    void SaveActiveWorkbookAs(const QString& path) override { Note(QStringLiteral("SaveAs"), path); }
    void SaveActiveWorkbook() override { Note(QStringLiteral("Save")); }
    void SetVisible(bool visible) override {
        if (visible)
            Note(QStringLiteral("Visible"));
    }
    void SetUserControl(bool userControl) override {
        if (userControl)
            Note(QStringLiteral("UserControl"));
    }
    void Quit() override { Note(QStringLiteral("Quit")); }

  private:
    void Note(const QString& call, const QString& argument = {}) {
        log_.Calls.append(argument.isEmpty() ? call : call + u'(' + argument + u')');
        if (const auto failure = log_.Failures.constFind(call); failure != log_.Failures.cend())
            throw *failure;
    }

    SpreadsheetLog& log_;
};
