#include "data/Description.h"

#include <algorithm>

#include "data/Windows1252.h"

namespace velmora {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool IsControl(std::string_view letter) {
  const auto code = static_cast<unsigned char>(letter.front());
  return code < 0x20 || code == 0x7F;
}

/// What stands for one letter, or one line break, of a pasted text; empty where it is left out.
std::string_view Fitting(std::string_view letter) {
  if (letter == ",") return ";";
  if (letter == kLineEnd || letter == "\r" || letter == "\n" || letter == "\t") return " ";
  if (IsControl(letter) || ToWindows1252(letter).letter) return {};
  return letter;
}

}  // namespace

DescriptionText FittingDescription(std::string_view pasted) {
  DescriptionText fitting;
  while (!pasted.empty()) {
    const std::size_t length =
        pasted.starts_with(kLineEnd) ? 2 : std::max<std::size_t>(LetterLength(pasted), 1);
    const std::string_view letter = Fitting(pasted.substr(0, length));
    pasted.remove_prefix(length);
    if (letter.empty()) fitting.lettersLeftOut = true;
    if (letter != " " || !fitting.text.empty()) fitting.text += letter;
  }
  return fitting;
}

bool MayBeTyped(std::string_view text, bool first) {
  const std::string before = first ? "" : ".";
  return FittingDescription(before + std::string(text)).text == before + std::string(text);
}

}  // namespace velmora
