#pragma once

#include "platform/Prompts.h"

/// When the workbook at path is empty or cut off, and a whole earlier version is beside it, asks whether to use that.
void OfferEarlierWorkbook(const QString& path, Prompts& prompts);

/// Where the earlier version of a workbook that is empty or damaged is, as a line after a line break; empty when there
/// is none.
QString EarlierWorkbookHint(const QString& path);
