// The rich text that a report is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora::rtf {

/// UTF-8 text as RTF: "\", "{" and "}" escaped, Windows-1252 letters as \'xx, others as \uN.
std::string Escaped(std::string_view utf8);

/// A paragraph; `formatting` are control words such as "\b\fs28".
std::string Paragraph(std::string_view utf8, std::string_view formatting = {});

/// Texts in rows of `columns` cells of equal width.
std::string Table(const std::vector<std::string>& cells, int columns);

/// A PNG picture in a paragraph of its own, as wide as the text.
std::string Picture(std::string_view png, int width, int height);

/// The document around its paragraphs: A4, one font.
std::string Document(std::string_view body);

}  // namespace velmora::rtf
