#include "export/workbook/PackageMap.h"

#include "export/workbook/WorkbookError.h"
#include "export/workbook/XmlTree.h"

namespace {

const QString ContentTypes = QStringLiteral("[Content_Types].xml");

/// The part with the relations of a part: "xl/_rels/workbook.xml.rels" for "xl/workbook.xml".
QString RelationsOf(const QString& part) {
    const qsizetype slash = part.lastIndexOf(u'/') + 1;
    return part.first(slash) + QStringLiteral("_rels/") + part.sliced(slash) + QStringLiteral(".rels");
}

/// The part that a relation of another part leads to.
QString Resolved(const QString& from, const QString& target) {
    QStringList path = target.startsWith(u'/') ? QStringList() : from.split(u'/').mid(0, from.count(u'/'));
    for (const QString& step : target.split(u'/', Qt::SkipEmptyParts)) {
        if (step == QStringLiteral("..") && !path.isEmpty())
            path.removeLast();
        else if (step != QStringLiteral(".") && step != QStringLiteral(".."))
            path.append(step);
    }
    return path.join(u'/');
}

class Relations {
  public:
    Relations(const ZipPackage& package, const QString& part)
        : part_(part), document_(ParseXml(package.Read(RelationsOf(part), MaxListBytes))) {}

    /// The part that the first relation of that kind, or of that name, leads to; none when there is no such relation.
    std::optional<QString> OfKind(std::string_view kind) const {
        for (const pugi::xml_node& relation : All())
            if (IsOfKind(relation, kind))
                return Target(relation);
        return std::nullopt;
    }
    pugi::xml_node Named(std::string_view id) const {
        for (const pugi::xml_node& relation : All())
            if (id == relation.attribute("Id").value())
                return relation;
        return {};
    }
    QString Target(const pugi::xml_node& relation) const {
        return Resolved(part_, QString::fromUtf8(relation.attribute("Target").value()));
    }
    /// Both dialects of the format name a kind by an address that ends in it.
    static bool IsOfKind(const pugi::xml_node& relation, std::string_view kind) {
        const std::string_view type = relation.attribute("Type").value();
        return type.substr(type.rfind('/') + 1) == kind;
    }

  private:
    std::vector<pugi::xml_node> All() const { return ChildrenOf(document_.document_element(), "Relationship"); }

    QString part_;
    pugi::xml_document document_;
};

std::string_view RelationIdOf(const pugi::xml_node& sheet) {
    for (const pugi::xml_attribute& attribute : sheet.attributes()) {
        const std::string_view name = attribute.name();
        if (name.size() > 3 && name.substr(name.size() - 3) == ":id")
            return attribute.value();
    }
    return {};
}

bool IsVisible(const pugi::xml_node& sheet) {
    const std::string_view state = sheet.attribute("state").as_string("visible");
    return state == "visible";
}

/// Fills in the worksheets, and which of them is seen first.
void MapSheets(PackageMap& map, const pugi::xml_node& workbook, const Relations& relations) {
    const unsigned active = ChildOf(ChildOf(workbook, "bookViews"), "workbookView").attribute("activeTab").as_uint();
    QString firstVisible;
    unsigned index = 0;
    for (const pugi::xml_node& sheet : ChildrenOf(ChildOf(workbook, "sheets"), "sheet")) {
        const bool isActive = index++ == active;
        const pugi::xml_node relation = relations.Named(RelationIdOf(sheet));
        if (!relation || !Relations::IsOfKind(relation, "worksheet"))
            continue;
        const QString part = relations.Target(relation);
        map.Sheets.emplace_back(QString::fromUtf8(sheet.attribute("name").value()), part);
        if (IsVisible(sheet) && isActive)
            map.Sheet = part;
        if (IsVisible(sheet) && firstVisible.isEmpty())
            firstVisible = part;
    }
    if (map.Sheet.isEmpty())
        map.Sheet = firstVisible;
    if (map.Sheet.isEmpty())
        throw WorkbookError(QStringLiteral("it has no visible worksheet"));
}

} // namespace

PackageMap MapPackage(const ZipPackage& package) {
    if (!package.Has(ContentTypes) || !package.Has(RelationsOf(QString())))
        throw WorkbookError(QStringLiteral("it is a zip archive of something else"));
    PackageMap map;
    const auto workbook = Relations(package, QString()).OfKind("officeDocument");
    if (!workbook)
        throw WorkbookError(QStringLiteral("it is a document of another kind"));
    map.Workbook = *workbook;
    const pugi::xml_document document = ParseXml(package.Read(map.Workbook, MaxListBytes));
    const pugi::xml_node root = document.document_element();
    if (LocalNameOf(root) != "workbook")
        throw WorkbookError(QStringLiteral("it is a document of another kind"));
    map.From1904 = ChildOf(root, "workbookPr").attribute("date1904").as_bool();

    const Relations relations(package, map.Workbook);
    MapSheets(map, root, relations);
    map.SharedStrings = relations.OfKind("sharedStrings");
    map.Styles = relations.OfKind("styles");
    return map;
}

QString AddStylesPart(ZipPackage& package, const PackageMap& map) {
    const QString name = QStringLiteral("xl/vellumo-styles.xml");
    pugi::xml_document types = ParseXml(package.Read(ContentTypes, MaxListBytes));
    pugi::xml_node type = AppendTo(types.document_element(), "Override");
    type.append_attribute("PartName").set_value((u'/' + name).toUtf8().constData());
    type.append_attribute("ContentType")
        .set_value("application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml");

    pugi::xml_document relations = ParseXml(package.Read(RelationsOf(map.Workbook), MaxListBytes));
    pugi::xml_node relation = AppendTo(relations.document_element(), "Relationship");
    relation.append_attribute("Id").set_value("rIdVellumoStyles");
    relation.append_attribute("Type").set_value(
        "http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles");
    relation.append_attribute("Target").set_value((u'/' + name).toUtf8().constData());

    package.Put(ContentTypes, XmlOf(types));
    package.Put(RelationsOf(map.Workbook), XmlOf(relations));
    return name;
}

void CalculateOnOpening(ZipPackage& package, const PackageMap& map) {
    pugi::xml_document document = ParseXml(package.Read(map.Workbook, MaxListBytes));
    const pugi::xml_node root = document.document_element();
    pugi::xml_node calculation = ChildOf(root, "calcPr");
    if (!calculation) {
        // The format gives every child its place.
        pugi::xml_node before = ChildOf(root, "sheets");
        for (const char* name : {"functionGroups", "externalReferences", "definedNames"})
            if (const pugi::xml_node child = ChildOf(root, name))
                before = child;
        calculation = AppendTo(root, "calcPr");
        calculation = pugi::xml_node(root).insert_move_after(calculation, before);
    }
    if (calculation.attribute("fullCalcOnLoad").as_bool())
        return;
    calculation.remove_attribute("fullCalcOnLoad");
    calculation.append_attribute("fullCalcOnLoad").set_value("1");
    package.Put(map.Workbook, XmlOf(document));
}
