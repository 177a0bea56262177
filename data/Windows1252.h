// The Windows-1252 encoding of the program's own files, to and from UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The Windows-1252 bytes of a UTF-8 text. Where the text has a letter that the encoding lacks (or
/// is no valid UTF-8), `letter` names the first one (an invalid byte as "0xFF") and `bytes` is
/// empty.
struct Encoded {
  std::string bytes;
  std::optional<std::string> letter;
};
Encoded ToWindows1252(std::string_view utf8);

/// The UTF-8 text of Windows-1252 bytes. Those that stand for no letter (81, 8D, 8F, 90, 9D) are
/// the control characters of their numbers, so that any bytes at all come back as they were.
std::string FromWindows1252(std::string_view bytes);

/// The number of bytes of the letter that a UTF-8 text begins with; 0 where it is empty or begins
/// with no valid letter.
std::size_t LetterLength(std::string_view utf8);

/// Appends a letter, given by its number up to U+10FFFF, to a UTF-8 text.
void AppendUtf8(char32_t letter, std::string& text);

/// A byte that is no letter, as a message names it: "0xC3".
std::string ByteInHex(char byte);

}  // namespace velmora
