#pragma once

#include "export/workbook/NewWorkbook.h"
#include "export/workbook/ZipPackage.h"

#include <QMap>

/// The parts of a package, by their names.
using Parts = QMap<QString, QByteArray>;

inline QByteArray PackageOf(const Parts& parts) {
    ZipPackage package;
    for (auto part = parts.cbegin(); part != parts.cend(); ++part)
        package.Put(part.key(), {part.value()});
    return package.Pack();
}

inline const QString SheetName = QStringLiteral("xl/worksheets/sheet1.xml");

/// The parts of a workbook that Vellumo begins.
inline Parts NewParts() {
    const ZipPackage package(NewWorkbookBytes());
    Parts parts;
    for (const char* name : {"[Content_Types].xml", "_rels/.rels", "xl/workbook.xml", "xl/_rels/workbook.xml.rels",
                             "xl/worksheets/sheet1.xml", "xl/styles.xml"})
        parts[QLatin1String(name)] = package.Read(QLatin1String(name), 1 << 20);
    return parts;
}

inline QByteArray SheetOf(const QByteArray& content) {
    return "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">" + content + "</worksheet>";
}

/// A workbook whose one sheet has this between its root tags.
inline QByteArray WorkbookWith(const QByteArray& sheetContent) {
    Parts parts = NewParts();
    parts[SheetName] = SheetOf(sheetContent);
    return PackageOf(parts);
}
