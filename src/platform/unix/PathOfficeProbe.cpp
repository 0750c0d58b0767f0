#include "platform/unix/PathOfficeProbe.h"

#include <QFileInfo>
#include <QStandardPaths>

QString PathOfficeProbe::QueryRegistryString(RegistryRoot, const QString& subKey, const QString& valueName) const {
    if (!valueName.isEmpty())
        return {};
    if (subKey.compare(SpreadsheetKey, Qt::CaseInsensitive) == 0)
        return QStringLiteral("Vellumo.Workbook");
    if (subKey.compare(WordProcessorKey, Qt::CaseInsensitive) == 0 && !WriterProgram().isEmpty())
        return QStringLiteral("LibreOffice.Writer");
    return {};
}

QString WriterProgram() {
    // Debian's "lowriter" is there exactly when Writer is; "soffice" and "libreoffice" may come without it.
    for (const char* name : {"lowriter", "swriter"})
        if (const QString program = QStandardPaths::findExecutable(QLatin1String(name)); !program.isEmpty())
            return program;
    for (const char* name : {"soffice", "libreoffice"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(name));
        if (program.isEmpty())
            continue;
        // The library of Writer lies beside the program that the link on the PATH leads to.
        if (QFileInfo::exists(QFileInfo(QFileInfo(program).canonicalFilePath()).path() + QStringLiteral("/libswlo.so")))
            return program;
    }
    return {};
}
