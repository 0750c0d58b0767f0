#pragma once

#include "platform/SpreadsheetApplication.h"

#include <QByteArray>

/// The element of a cell. The prefix is that of the sheet's elements, the style the index of its format (-1 for none).
/// A text is written as itself, so that nothing that it looks like is made of it; its line ends become line feeds, as
/// cells have them. Nothing and an empty text give a cell without value. Throws SpreadsheetError for a date before the
/// workbook's calendar begins.
QByteArray CellElement(const QByteArray& prefix, int row, int column, int style, const CellValue& value, bool from1904);

/// The day that a number means in a workbook, and the text that stands for a cell's text in its XML.
QDate DateOfNumber(double number, bool from1904);
/// The text that was meant by one with characters written as "_xHHHH_".
QString WithoutEscapes(const QString& text);
