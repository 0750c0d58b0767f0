#pragma once

#include "platform/FileLock.h"

/// A workbook is locked like every other file.
using WorkbookLock = FileLock;

/// Whether another program has the workbook open: the file that LibreOffice or Excel puts beside an open document is
/// there, or a lock is on the workbook itself.
bool IsOpenInAnotherProgram(const QString& path);
