#include "data/TableWords.h"

#include <algorithm>

namespace velmora {

bool Contains(Words words, std::string_view word) {
  while (!words.empty()) {
    const std::string_view next = words.substr(0, words.find(' '));
    if (next == word) return true;
    words.remove_prefix(std::min(next.size() + 1, words.size()));
  }
  return false;
}

// The accented capitals are C3 80 to C3 9E in UTF-8, the small ones 20 above.
std::string SmallLetters(std::string_view utf8) {
  std::string small;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    const bool accented = small.ends_with('\xC3') && byte >= 0x80 && byte <= 0x9E;
    const bool capital = c >= 'A' && c <= 'Z';
    small += capital || accented ? static_cast<char>(byte + 0x20) : c;
  }
  return small;
}

}  // namespace velmora
