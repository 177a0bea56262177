// Text in columns and in lists.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora::cli {

/// `text` (UTF-8) with blanks to `width` letters: behind it, or in front of it.
std::string Left(std::string_view text, std::size_t width);
std::string Right(std::string_view text, std::size_t width);

/// Appends `item` to a list, behind `separator` unless it is the first.
void Join(std::string& list, std::string_view item, std::string_view separator);

}  // namespace velmora::cli
