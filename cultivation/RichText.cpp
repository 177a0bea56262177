#include "cultivation/RichText.h"

#include <cstdint>

#include "data/Windows1252.h"

namespace velmora::rtf {
namespace {

// In twips, of which an inch has 1,440: A4 with margins of 2 cm.
constexpr int kMargin = 1134;
constexpr int kPaperWidth = 11906;
constexpr int kPaperHeight = 16838;
constexpr int kTextWidth = kPaperWidth - 2 * kMargin;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kBytesInALine = 64;  // of a picture

std::string Hex(unsigned char byte) {
  return {kHexDigits[byte >> 4U], kHexDigits[byte & 15U]};
}

/// The bytes of the UTF-8 letter that begins with `lead`.
std::size_t LengthOf(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xE0) return 2;
  return lead < 0xF0 ? 3 : 4;
}

std::uint32_t CodePoint(std::string_view letter) {
  constexpr unsigned kLeadBits[] = {0x7F, 0x1F, 0x0F, 0x07};
  std::uint32_t point = static_cast<unsigned char>(letter[0]) & kLeadBits[letter.size() - 1];
  for (const char c : letter.substr(1))
    point = point << 6U | (static_cast<unsigned char>(c) & 0x3FU);
  return point;
}

/// A UTF-16 unit, as the signed number that RTF writes.
std::string Unit(std::uint32_t unit) {
  return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string Unicode(std::uint32_t point) {
  if (point < 0x10000) return Unit(point);
  const std::uint32_t rest = point - 0x10000;
  return Unit(0xD800 + (rest >> 10U)) + Unit(0xDC00 + (rest & 0x3FFU));
}

std::string EscapedLetter(std::string_view letter) {
  if (letter == "\\" || letter == "{" || letter == "}") return "\\" + std::string(letter);
  if (letter == "\n") return "\\line ";
  if (letter == "\t") return "\\tab ";
  if (letter.size() == 1) return std::string(letter);
  const Encoded encoded = ToWindows1252(letter);
  if (encoded.letter) return Unicode(CodePoint(letter));
  return "\\'" + Hex(static_cast<unsigned char>(encoded.bytes[0]));
}

std::string Row(const std::vector<std::string>& cells, std::size_t first, int columns) {
  std::string row = "\\trowd\\trgaph70";
  for (int column = 1; column <= columns; ++column)
    row += "\\cellx" + std::to_string(kTextWidth * column / columns);
  for (std::size_t i = first; i < first + static_cast<std::size_t>(columns); ++i)
    row += "\\pard\\intbl " + (i < cells.size() ? Escaped(cells[i]) : std::string()) + "\\cell";
  return row + "\\row" + std::string(kLineEnd);
}

}  // namespace

std::string Escaped(std::string_view utf8) {
  std::string text;
  for (std::size_t at = 0; at < utf8.size();) {
    const std::string_view letter = utf8.substr(at, LengthOf(static_cast<unsigned char>(utf8[at])));
    text += EscapedLetter(letter);
    at += letter.size();
  }
  return text;
}

std::string Paragraph(std::string_view utf8, std::string_view formatting) {
  return "{\\pard\\sa60" + std::string(formatting) + " " + Escaped(utf8) + "\\par}" +
         std::string(kLineEnd);
}

std::string Table(const std::vector<std::string>& cells, int columns) {
  std::string table = "{\\fs18 ";
  for (std::size_t first = 0; first < cells.size(); first += static_cast<std::size_t>(columns))
    table += Row(cells, first, columns);
  return table + "}" + Paragraph("");
}

std::string Picture(std::string_view png, int width, int height) {
  std::string picture = "{\\pard\\sa120{\\pict\\pngblip\\picw" + std::to_string(width) + "\\pich" +
                        std::to_string(height) + "\\picwgoal" + std::to_string(kTextWidth) +
                        "\\pichgoal" + std::to_string(kTextWidth * height / width);
  for (std::size_t i = 0; i < png.size(); ++i) {
    if (i % kBytesInALine == 0) picture += kLineEnd;
    picture += Hex(static_cast<unsigned char>(png[i]));
  }
  return picture + "}\\par}" + std::string(kLineEnd);
}

std::string Document(std::string_view body) {
  std::string document = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}";
  document += kLineEnd;
  document += "\\paperw" + std::to_string(kPaperWidth) + "\\paperh" + std::to_string(kPaperHeight);
  for (const char* side : {"l", "r", "t", "b"})
    document += std::string("\\marg") + side + std::to_string(kMargin);
  document += "\\f0\\fs20";
  document += kLineEnd;
  document += body;
  return document + "}" + std::string(kLineEnd);
}

}  // namespace velmora::rtf
