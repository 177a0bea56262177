// Words of headers.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

using Words = std::string_view;  // with blanks between them

bool Contains(Words words, std::string_view word);

/// Small letters for A to Z and for the accented ones of Latin 1.
std::string SmallLetters(std::string_view utf8);

}  // namespace velmora
