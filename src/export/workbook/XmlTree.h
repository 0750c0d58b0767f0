#pragma once

#include <QByteArray>

#include <pugixml.hpp>

#include <string_view>
#include <vector>

/// Small parts of a package as trees. Elements are found by their names without namespace prefix, as each program
/// chooses its own.

/// Throws WorkbookError when the XML can't be read.
pugi::xml_document ParseXml(const QByteArray& xml);
QByteArray XmlOf(const pugi::xml_document& document);

std::string_view LocalNameOf(const pugi::xml_node& node);
/// The first child of that name; a null node when there is none.
pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view localName);
std::vector<pugi::xml_node> ChildrenOf(const pugi::xml_node& node, std::string_view localName);
/// Adds a last child with the prefix of its parent.
pugi::xml_node AppendTo(pugi::xml_node parent, std::string_view localName);
