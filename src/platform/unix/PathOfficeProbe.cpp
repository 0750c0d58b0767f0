#include "platform/unix/PathOfficeProbe.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <initializer_list>

namespace {

/// One of the programs of LibreOffice, "" when it isn't on the PATH. Debian's programs with names of their own are
/// there exactly when theirs is installed; "soffice" and "libreoffice" may come without it.
QString ProgramOfOffice(std::initializer_list<const char*> ownNames, const char* library) {
    for (const char* name : ownNames)
        if (const QString program = QStandardPaths::findExecutable(QLatin1String(name)); !program.isEmpty())
            return program;
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (program.isEmpty())
            continue;
        // The library lies beside the program that the link on the PATH leads to.
        if (QFileInfo::exists(QFileInfo(QFileInfo(program).canonicalFilePath()).path() + u'/' + QLatin1String(library)))
            return program;
    }
    return {};
}

} // namespace

QString PathOfficeProbe::QueryRegistryString(RegistryRoot, const QString& subKey, const QString& valueName) const {
    if (!valueName.isEmpty())
        return {};
    if (subKey.compare(SpreadsheetKey, Qt::CaseInsensitive) == 0)
        return QStringLiteral("Vellumo.Workbook");
    if (subKey.compare(WordProcessorKey, Qt::CaseInsensitive) == 0 && !WriterProgram().isEmpty())
        return QStringLiteral("LibreOffice.Writer");
    return {};
}

QString WriterProgram() { return ProgramOfOffice({"lowriter", "swriter"}, "libswlo.so"); }

QString WorkbookViewer() {
    const QString calc = ProgramOfOffice({"localc", "scalc"}, "libsclo.so");
    return calc.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("xdg-open")) : calc;
}
