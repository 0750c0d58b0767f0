#pragma once

#include "platform/Prompts.h"
#include "taker/SpreadsheetExporter.h"

/// The path of the workbook that the test's results go to: the test's folder, the client's folder in it if the test
/// says so, and the test's file name or the usual one, with the client's name if the test says so. Folders that are
/// missing are made; one that can't be made is told by "Can't make directory: " + path, and the working directory takes
/// its place. The file's name always ends in ".exl". Shortens the test's ExcelFileName before its first ".".
QString WorkbookPathFor(Session& session, Prompts& prompts);
