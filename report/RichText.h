// A small document of paragraphs, tables and pictures, written as RTF and as HTML.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmora::rich {

enum class Look : std::uint8_t {
  Title,
  Heading,  // stays with what follows
  Plain,
  Together,  // plain, on the page of what follows
  Indented,
  Strong,
};

struct Paragraph {
  std::string text;  // UTF-8; a line break inside it stays one
  Look look = Look::Plain;
};

/// A table that is not broken over pages. Each row holds as many cells as there are `widths`; these
/// are the columns' shares of the text's width.
struct Table {
  std::vector<int> widths;
  std::vector<std::vector<std::string>> rows;  // UTF-8
};

/// A PNG file's bytes, and its size in pixels. It is shown as wide as the text. `emf` is the same
/// as a drawing, an enhanced metafile, which rich text shows where its reader can; empty for none.
struct Picture {
  std::string png;
  int width = 0;
  int height = 0;
  std::string emf{};
};

using Document = std::vector<std::variant<Paragraph, Table, Picture>>;

/// UTF-8 text as RTF: "\", "{" and "}" escaped, Windows-1252 letters as \'xx, others as \uN.
std::string EscapedForRtf(std::string_view utf8);

/// The document as an RTF file's bytes: A4 with margins of 2.5 cm, one font, 7-bit, lines ended by
/// CR LF.
std::string Rtf(const Document& document);

/// The document as HTML (UTF-8) that a rich-text widget shows. Its pictures are `PictureName` 0, 1,
/// ... in their order, `pictureWidth` pixels wide; who shows the text provides them.
std::string Html(const Document& document, int pictureWidth);
std::string PictureName(int index);

}  // namespace velmora::rich
