#include "data/SheetStyles.h"

#include <map>
#include <pugixml.hpp>
#include <string>

#include "data/SheetXml.h"

namespace velmora {
namespace {

/// The formats that every workbook has: days and times are 14 to 22 and 45 to 47.
bool IsBuiltInDate(int format) {
  return (format >= 14 && format <= 22) || (format >= 45 && format <= 47);
}

/// The code without the texts that it shows as they are.
std::string WithoutTexts(std::string_view code) {
  std::string rest;
  bool quoted = false;
  for (std::size_t i = 0; i < code.size(); ++i) {
    if (code[i] == '"') quoted = !quoted;
    if (quoted || code[i] == '"') continue;
    if (code[i] == '\\' || code[i] == '_' || code[i] == '*') {
      ++i;  // shows the letter behind it, or a blank of its width
      continue;
    }
    rest += code[i];
  }
  return rest;
}

}  // namespace

bool IsDateFormat(std::string_view code) {
  constexpr std::string_view kOfDates = "yYdDhHmMsS";
  const std::string shown = WithoutTexts(code);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    // In brackets stand colours and languages, or a span of time: [h].
    const std::size_t end = shown[i] == '[' ? shown.find(']', i) : std::string::npos;
    const bool span = end != std::string::npos && shown.find_first_not_of("hHmMsS", i + 1) == end;
    if (end != std::string::npos && !span)
      i = end;
    else if (kOfDates.find(shown[i]) != std::string_view::npos)
      return true;
  }
  return false;
}

std::vector<bool> DateStyles(const pugi::xml_document& styles) {
  std::map<int, bool> own;
  const pugi::xml_node root = styles.document_element();
  for (const pugi::xml_node format : ChildrenNamed(ChildNamed(root, "numFmts"), "numFmt"))
    own[format.attribute("numFmtId").as_int()] =
        IsDateFormat(format.attribute("formatCode").as_string());
  std::vector<bool> dates;
  for (const pugi::xml_node style : ChildrenNamed(ChildNamed(root, "cellXfs"), "xf")) {
    const int format = style.attribute("numFmtId").as_int();
    const auto at = own.find(format);
    dates.push_back(at == own.end() ? IsBuiltInDate(format) : at->second);
  }
  return dates;
}

}  // namespace velmora
