#pragma once

#include "platform/OfficeProbe.h"

/// Stands in for the registry: the spreadsheet counts as installed because Vellumo writes workbooks by itself, the word
/// processor when LibreOffice Writer is on the PATH.
class PathOfficeProbe : public OfficeProbe {
  public:
    QString QueryRegistryString(RegistryRoot root, const QString& subKey, const QString& valueName) const override;
};

/// The program that starts LibreOffice Writer, "" when there is none on the PATH.
QString WriterProgram();

/// The program that shows a workbook: LibreOffice Calc, or else what the desktop opens files with; "" when there is
/// neither on the PATH.
QString WorkbookViewer();
