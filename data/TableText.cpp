#include "data/TableText.h"

#include <algorithm>
#include <optional>

#include "data/TableFault.h"
#include "data/Windows1252.h"

namespace velmora {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

int LinesIn(std::string_view text) {
  return 1 + static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

/// Where the first byte stands that is no letter of UTF-8; nothing where all are.
std::optional<std::size_t> BadByteIn(std::string_view utf8) {
  std::string_view rest = utf8;
  while (const std::size_t length = LetterLength(rest)) rest.remove_prefix(length);
  if (rest.empty()) return std::nullopt;
  return utf8.size() - rest.size();
}

/// Reads the units of 16 bits one after another.
class Utf16Reader {
 public:
  Utf16Reader(std::string_view bytes, bool bigEndian) : rest_(bytes), bigEndian_(bigEndian) {}

  bool AtEnd() const { return rest_.empty(); }
  /// The next letter; nothing where half of a pair stands alone or a byte is left over.
  std::optional<char32_t> NextLetter();

 private:
  std::optional<char32_t> NextUnit();

  std::string_view rest_;
  bool bigEndian_;
};

std::optional<char32_t> Utf16Reader::NextUnit() {
  if (rest_.size() < 2) return std::nullopt;
  const auto first = static_cast<unsigned char>(rest_[0]);
  const auto second = static_cast<unsigned char>(rest_[1]);
  rest_.remove_prefix(2);
  return static_cast<char32_t>(bigEndian_ ? first << 8 | second : second << 8 | first);
}

std::optional<char32_t> Utf16Reader::NextLetter() {
  const std::optional<char32_t> high = NextUnit();
  if (!high || *high < 0xD800 || *high > 0xDFFF) return high;
  const std::optional<char32_t> low = NextUnit();
  if (*high > 0xDBFF || !low || *low < 0xDC00 || *low > 0xDFFF) return std::nullopt;
  return 0x10000 + ((*high - 0xD800) << 10) + (*low - 0xDC00);
}

std::string FromUtf16(std::string_view bytes, bool bigEndian) {
  std::string text;
  for (Utf16Reader reader(bytes, bigEndian); !reader.AtEnd();) {
    const std::optional<char32_t> letter = reader.NextLetter();
    if (!letter) throw TableFault{TextId::NotUtf16, {}, LinesIn(text)};
    AppendUtf8(*letter, text);
  }
  return text;
}

}  // namespace

TableText DecodeTable(std::string_view bytes) {
  for (const std::string_view mark : {kLittleEndianMark, kBigEndianMark})
    if (bytes.starts_with(mark))
      return {FromUtf16(bytes.substr(mark.size()), mark == kBigEndianMark)};
  const bool marked = bytes.starts_with(kUtf8Mark);
  if (marked) bytes.remove_prefix(kUtf8Mark.size());
  const std::optional<std::size_t> bad = BadByteIn(bytes);
  if (!bad) return {std::string(bytes)};
  if (marked) throw TableFault{TextId::NotUtf8, {}, LinesIn(bytes.substr(0, *bad))};
  return {FromWindows1252(bytes), true};
}

}  // namespace velmora
