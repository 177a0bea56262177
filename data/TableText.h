// The letters of a table's bytes, whatever program saved them.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// A table's text, UTF-8 without a byte order mark.
struct TableText {
  std::string text;
  bool windows1252 = false;  // read as such, because the bytes are no UTF-8
};

/// UTF-16 and UTF-8 by their byte order marks; without one UTF-8 where all bytes are, else
/// Windows-1252. Throws a `TableFault` for a text that is not what its mark says.
TableText DecodeTable(std::string_view bytes);

}  // namespace velmora
