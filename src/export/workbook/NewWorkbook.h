#pragma once

#include <QByteArray>

/// The package of an empty workbook with one sheet.
QByteArray NewWorkbookBytes();
