#include "export/workbook/XmlTree.h"

#include "export/workbook/WorkbookError.h"

namespace {

class ByteWriter : public pugi::xml_writer {
  public:
    void write(const void* data, size_t size) override {
        Bytes.append(static_cast<const char*>(data), static_cast<qsizetype>(size));
    }
    QByteArray Bytes;
};

constexpr unsigned Everything =
    pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_declaration | pugi::parse_pi | pugi::parse_comments;

} // namespace

pugi::xml_document ParseXml(const QByteArray& xml) {
    pugi::xml_document document;
    if (!document.load_buffer(xml.constData(), static_cast<size_t>(xml.size()), Everything))
        throw WorkbookError(QStringLiteral("a part of it is no well-formed XML"));
    return document;
}

QByteArray XmlOf(const pugi::xml_document& document) {
    ByteWriter writer;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return writer.Bytes;
}

std::string_view LocalNameOf(const pugi::xml_node& node) {
    const std::string_view name = node.name();
    return name.substr(name.find(':') + 1);
}

pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view localName) {
    for (const pugi::xml_node& child : node.children())
        if (LocalNameOf(child) == localName)
            return child;
    return {};
}

std::vector<pugi::xml_node> ChildrenOf(const pugi::xml_node& node, std::string_view localName) {
    std::vector<pugi::xml_node> found;
    for (const pugi::xml_node& child : node.children())
        if (LocalNameOf(child) == localName)
            found.push_back(child);
    return found;
}

pugi::xml_node AppendTo(pugi::xml_node parent, std::string_view localName) {
    const std::string_view name = parent.name();
    std::string full(name.substr(0, name.size() - LocalNameOf(parent).size()));
    full += localName;
    return parent.append_child(full.c_str());
}
