#include "report/RichText.h"

#include <algorithm>
#include <numeric>

#include "data/Windows1252.h"

namespace velmora::rich {
namespace {

// In twips, of which an inch has 1,440: A4 with margins of 2.5 cm at the sides, of 2 cm above and
// below.
constexpr int kPaperWidth = 11906;
constexpr int kPaperHeight = 16838;
constexpr int kSideMargin = 1417;
constexpr int kUpperMargin = 1134;
constexpr int kTextWidth = kPaperWidth - 2 * kSideMargin;

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kBytesInALine = 64;  // of a picture

/// How a look is written: RTF's control words, HTML's element and style.
struct Form {
  std::string_view rtf;
  std::string_view element;
  std::string_view style;
};
constexpr Form FormOf(Look look) {
  switch (look) {
    case Look::Title:
      return {"\\sa160\\keepn\\b\\fs32", "h2", "margin:0 2px 8px 2px"};
    case Look::Heading:
      return {"\\sb160\\sa60\\keepn\\b\\fs22", "h4", "margin:14px 2px 4px 2px"};
    case Look::Together:
      return {"\\sa40\\keepn", "p", "margin:2px"};
    case Look::Indented:
      return {"\\sa40\\li400", "p", "margin:2px 24px"};
    case Look::Strong:
      return {"\\sb100\\sa60\\b", "p", "margin:8px 2px;font-weight:bold"};
    case Look::Plain:
      break;
  }
  return {"\\sa40", "p", "margin:2px"};
}

int SumOf(const std::vector<int>& widths) {
  return std::max(1, std::accumulate(widths.begin(), widths.end(), 0));
}

/// Calls `write` with each letter of a UTF-8 text; with "?" in place of a byte that is no letter.
template <class Write>
void ForEachLetter(std::string_view utf8, Write write) {
  while (!utf8.empty()) {
    const std::size_t length = LetterLength(utf8);
    write(length == 0 ? "?" : utf8.substr(0, length));
    utf8.remove_prefix(std::max<std::size_t>(1, length));
  }
}

// Letters as RTF.

std::string Hex(unsigned char byte) {
  return {kHexDigits[byte >> 4U], kHexDigits[byte & 15U]};
}

std::uint32_t CodePoint(std::string_view letter) {
  constexpr unsigned kLeadBits[] = {0x7F, 0x1F, 0x0F, 0x07};
  std::uint32_t point = static_cast<unsigned char>(letter[0]) & kLeadBits[letter.size() - 1];
  for (const char c : letter.substr(1))
    point = point << 6U | (static_cast<unsigned char>(c) & 0x3FU);
  return point;
}

/// A UTF-16 unit, as the signed number that RTF writes, and what a reader of 1252 alone shows.
std::string Unit(std::uint32_t unit) {
  return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string Unicode(std::uint32_t point) {
  if (point < 0x10000) return Unit(point);
  const std::uint32_t rest = point - 0x10000;
  return Unit(0xD800 + (rest >> 10U)) + Unit(0xDC00 + (rest & 0x3FFU));
}

/// Control characters other than a line break and a tab say nothing in a document.
bool IsControl(std::string_view letter) {
  return letter.size() == 1 && (static_cast<unsigned char>(letter[0]) < 0x20 || letter[0] == 0x7F);
}

std::string RtfLetter(std::string_view letter) {
  if (letter == "\\" || letter == "{" || letter == "}") return "\\" + std::string(letter);
  if (letter == "\n") return "\\line ";
  if (letter == "\t") return "\\tab ";
  if (IsControl(letter)) return "";
  if (letter.size() == 1) return std::string(letter);
  const Encoded encoded = ToWindows1252(letter);
  if (encoded.letter) return Unicode(CodePoint(letter));
  return "\\'" + Hex(static_cast<unsigned char>(encoded.bytes[0]));
}

// Blocks as RTF.

std::string RtfParagraph(std::string_view utf8, std::string_view formatting) {
  return "{\\pard" + std::string(formatting) + " " + EscapedForRtf(utf8) + "\\par}" +
         std::string(kLineEnd);
}

std::string RtfRow(const Table& table, const std::vector<std::string>& cells, bool last) {
  std::string row = "\\trowd\\trgaph28\\trleft0\\trkeep";
  const int whole = SumOf(table.widths);
  int right = 0;
  for (const int width : table.widths) {
    right += width;
    row += "\\clbrdrb\\brdrs\\brdrw5\\brdrcf1\\cellx" + std::to_string(kTextWidth * right / whole);
  }
  row += kLineEnd;
  for (const std::string& cell : cells)
    row += std::string("\\pard\\intbl\\sb14\\sa14") + (last ? "" : "\\keepn") + " " +
           EscapedForRtf(cell) + "\\cell" + std::string(kLineEnd);
  return row + "\\row" + std::string(kLineEnd);
}

std::string RtfPicture(std::string_view kind, const Picture& picture, std::string_view bytes) {
  std::string text = "{\\pict\\" + std::string(kind);
  const auto size = [&](std::string_view word, int value) {
    text += std::string(word) + std::to_string(value);
  };
  size("\\picw", picture.width);
  size("\\pich", picture.height);
  size("\\picwgoal", kTextWidth);
  size("\\pichgoal", kTextWidth * picture.height / std::max(1, picture.width));
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i % kBytesInALine == 0) text += kLineEnd;
    text += Hex(static_cast<unsigned char>(bytes[i]));
  }
  return text + "}";
}

struct RtfWriter {
  std::string operator()(const Paragraph& paragraph) const {
    return RtfParagraph(paragraph.text, FormOf(paragraph.look).rtf);
  }

  /// A table ends with a paragraph of its own, or what follows would belong to it: a low one.
  std::string operator()(const Table& table) const {
    std::string text = "{\\fs17 ";
    for (const auto& cells : table.rows) text += RtfRow(table, cells, &cells == &table.rows.back());
    return text + "}{\\pard\\sl-100\\slmult0\\fs8\\par}" + std::string(kLineEnd);
  }

  /// A reader that knows drawings passes over what stands under \nonshppict, an old one over the
  /// group with the asterisk.
  std::string operator()(const Picture& picture) const {
    const std::string png = RtfPicture("pngblip", picture, picture.png);
    const std::string both = picture.emf.empty()
                                 ? png
                                 : "{\\*\\shppict" + RtfPicture("emfblip", picture, picture.emf) +
                                       "}{\\nonshppict" + png + "}";
    return "{\\pard\\sb60" + both + "\\par}" + std::string(kLineEnd);
  }
};

// Blocks as HTML.

std::string EscapedForHtml(std::string_view utf8) {
  std::string text;
  ForEachLetter(utf8, [&](std::string_view letter) {
    if (letter == "&") return void(text += "&amp;");
    if (letter == "<") return void(text += "&lt;");
    if (letter == ">") return void(text += "&gt;");
    if (letter == "\n") return void(text += "<br>");
    if (!IsControl(letter)) text += letter;
  });
  return text;
}

// A cell that is really empty would take the room above a heading below its table, in Qt's view.
constexpr std::string_view kEmptyCell = "&nbsp;";

struct HtmlWriter {
  std::string operator()(const Paragraph& paragraph) const {
    const Form form = FormOf(paragraph.look);
    const std::string element(form.element);
    return "<" + element + " style=\"" + std::string(form.style) + "\">" +
           EscapedForHtml(paragraph.text) + "</" + element + ">\n";
  }

  std::string operator()(const Table& table) const {
    std::string text =
        "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"2\" style=\"margin-top:4px\">\n";
    const int whole = SumOf(table.widths);
    for (const auto& cells : table.rows) {
      text += "<tr>";
      for (std::size_t i = 0; i < cells.size(); ++i)
        text += "<td width=\"" + std::to_string(100 * table.widths.at(i) / whole) + "%\">" +
                (cells[i].empty() ? std::string(kEmptyCell) : EscapedForHtml(cells[i])) + "</td>";
      text += "</tr>\n";
    }
    return text + "</table>\n";
  }

  std::string operator()(const Picture&) {
    return "<p><img src=\"" + PictureName(pictures++) + "\" width=\"" +
           std::to_string(pictureWidth) + "\"></p>\n";
  }

  int pictureWidth;
  int pictures = 0;
};

}  // namespace

std::string EscapedForRtf(std::string_view utf8) {
  std::string text;
  ForEachLetter(utf8, [&](std::string_view letter) { text += RtfLetter(letter); });
  return text;
}

std::string Rtf(const Document& document) {
  std::string text = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0";
  text += "{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}{\\colortbl;\\red200\\green200\\blue200;}";
  text += kLineEnd;
  text += "\\paperw" + std::to_string(kPaperWidth) + "\\paperh" + std::to_string(kPaperHeight);
  for (const char* side : {"\\margl", "\\margr"}) text += side + std::to_string(kSideMargin);
  for (const char* side : {"\\margt", "\\margb"}) text += side + std::to_string(kUpperMargin);
  text += "\\f0\\fs20";
  text += kLineEnd;
  for (const auto& block : document) text += std::visit(RtfWriter{}, block);
  return text + "}" + std::string(kLineEnd);
}

std::string PictureName(int index) {
  return "picture-" + std::to_string(index);
}

std::string Html(const Document& document, int pictureWidth) {
  HtmlWriter writer{pictureWidth};
  std::string text = "<html><body>\n";
  for (const auto& block : document) text += std::visit(writer, block);
  return text + "</body></html>\n";
}

}  // namespace velmora::rich
