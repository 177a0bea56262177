// How the cells of a workbook are shown, as far as it tells what they hold.
#pragma once

#include <string_view>
#include <vector>

namespace pugi {
class xml_document;
}

namespace velmora {

/// For each style of cells whether it shows a day or a time of day.
std::vector<bool> DateStyles(const pugi::xml_document& styles);

/// Whether a number's format, such as "dd/mm/yy" or "[h]:mm", shows one.
bool IsDateFormat(std::string_view code);

}  // namespace velmora
