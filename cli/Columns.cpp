#include "cli/Columns.h"

#include <algorithm>

namespace velmora::cli {
namespace {

std::string Blanks(std::string_view text, std::size_t width) {
  const auto letters = static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) >> 6) != 2; }));
  return std::string(width > letters ? width - letters : 0, ' ');
}

}  // namespace

std::string Left(std::string_view text, std::size_t width) {
  return std::string(text) + Blanks(text, width);
}

std::string Right(std::string_view text, std::size_t width) {
  return Blanks(text, width) + std::string(text);
}

void Join(std::string& list, std::string_view item, std::string_view separator) {
  if (!list.empty()) list += separator;
  list += item;
}

}  // namespace velmora::cli
