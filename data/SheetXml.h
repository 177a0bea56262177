// The elements of a workbook's XML by their names, whatever stands before these: "row" is "x:row"
// too.
#pragma once

#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace velmora {

inline std::string_view LocalName(std::string_view name) {
  return name.substr(name.find(':') + 1);  // all of it where there is none
}

inline std::vector<pugi::xml_node> ChildrenNamed(pugi::xml_node parent, std::string_view name) {
  std::vector<pugi::xml_node> children;
  for (const pugi::xml_node child : parent.children())
    if (LocalName(child.name()) == name) children.push_back(child);
  return children;
}

/// The first one; an empty node where there is none.
inline pugi::xml_node ChildNamed(pugi::xml_node parent, std::string_view name) {
  return parent.find_child(
      [name](const pugi::xml_node& child) { return LocalName(child.name()) == name; });
}

}  // namespace velmora
