#include "export/workbook/NewWorkbook.h"

#include "export/workbook/Styles.h"
#include "export/workbook/ZipPackage.h"

#include <array>
#include <utility>

namespace {

#define SCHEMAS "http://schemas.openxmlformats.org/"

const QByteArray Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

const QByteArray ContentTypes =
    "<Types xmlns=\"" SCHEMAS "package/2006/content-types\">"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/xl/workbook.xml\""
    " ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
    "<Override PartName=\"/xl/worksheets/sheet1.xml\""
    " ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
    "<Override PartName=\"/xl/styles.xml\""
    " ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml\"/>"
    "</Types>";

const QByteArray PackageRelations =
    "<Relationships xmlns=\"" SCHEMAS "package/2006/relationships\"><Relationship Id=\"rId1\""
    " Type=\"" SCHEMAS "officeDocument/2006/relationships/officeDocument\" Target=\"xl/workbook.xml\"/>"
    "</Relationships>";

const QByteArray WorkbookRelations =
    "<Relationships xmlns=\"" SCHEMAS "package/2006/relationships\">"
    "<Relationship Id=\"rId1\" Type=\"" SCHEMAS "officeDocument/2006/relationships/worksheet\""
    " Target=\"worksheets/sheet1.xml\"/>"
    "<Relationship Id=\"rId2\" Type=\"" SCHEMAS "officeDocument/2006/relationships/styles\" Target=\"styles.xml\"/>"
    "</Relationships>";

const QByteArray WorkbookItself = "<workbook xmlns=\"" SCHEMAS "spreadsheetml/2006/main\""
                                  " xmlns:r=\"" SCHEMAS "officeDocument/2006/relationships\">"
                                  "<bookViews><workbookView activeTab=\"0\"/></bookViews>"
                                  "<sheets><sheet name=\"Results\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>";

// At the usual width a date would be shown as "###".
const QByteArray Sheet = "<worksheet xmlns=\"" SCHEMAS "spreadsheetml/2006/main\">"
                         "<sheetFormatPr defaultColWidth=\"14\" defaultRowHeight=\"15\"/><sheetData/></worksheet>";

} // namespace

QByteArray NewWorkbookBytes() {
    const std::array<std::pair<const char*, QByteArray>, 6> parts = {{
        {"[Content_Types].xml", Declaration + ContentTypes},
        {"_rels/.rels", Declaration + PackageRelations},
        {"xl/workbook.xml", Declaration + WorkbookItself},
        {"xl/_rels/workbook.xml.rels", Declaration + WorkbookRelations},
        {"xl/worksheets/sheet1.xml", Declaration + Sheet},
        {"xl/styles.xml", PlainStyles},
    }};
    ZipPackage package;
    for (const auto& [name, content] : parts)
        package.Put(QString::fromLatin1(name), content);
    return package.Pack();
}
