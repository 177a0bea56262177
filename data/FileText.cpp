#include "data/FileText.h"

#include <algorithm>

#include "data/SafeSave.h"
#include "data/Windows1252.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr int kMostQuoted = 40;  // letters

/// Where the first byte of a UTF-8 text stands that is no letter, or its end.
std::size_t BadByteAt(std::string_view utf8) {
  std::string_view rest = utf8;
  while (const std::size_t length = LetterLength(rest)) rest.remove_prefix(length);
  return utf8.size() - rest.size();
}

}  // namespace

FileText DecodeFile(std::string_view bytes) {
  if (!bytes.starts_with(kByteOrderMark)) return {FromWindows1252(bytes), ""};
  bytes.remove_prefix(kByteOrderMark.size());
  const std::size_t bad = BadByteAt(bytes);
  if (bad == bytes.size()) return {std::string(bytes), ""};
  return {std::string(bytes.substr(0, bytes.find_last_of(kLineEnd, bad) + 1)),
          ByteInHex(bytes[bad])};
}

void AppendLine(std::string& text, std::string_view line) {
  text += line;
  text += kLineEnd;
}

void AppendMarked(std::string& text, char mark, int number) {
  text += mark;
  AppendLine(text, ShortestText(number));
}

std::optional<FileFault> RefuseText(std::string_view text, FileField field, int item,
                                    const std::string& path) {
  if (text.find_first_of(kLineEnd) != std::string_view::npos)
    return FileFault{FileReason::LineBreakInText, path, 0, field, item, Quoted(text)};
  if (const auto letter = ToWindows1252(text).letter)
    return FileFault{FileReason::BadLetter, path, 0, field, item, *letter};
  return std::nullopt;
}

std::optional<FileFault> SaveText(std::string_view text, const std::string& path) {
  const Encoded encoded = ToWindows1252(text);
  if (encoded.letter)
    return FileFault{FileReason::BadLetter, path, 0, FileField::None, 0, *encoded.letter};
  return SafeSave(path, encoded.bytes);
}

std::string Quoted(std::string_view text) {
  std::size_t end = 0;
  for (int letters = 0; letters < kMostQuoted; ++letters) end += LetterLength(text.substr(end));
  return std::string(text.substr(0, end));
}

}  // namespace velmora
