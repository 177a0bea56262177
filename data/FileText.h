// The text of the program's own files: its letters, its lines, and what cannot stand in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"

namespace velmora {

/// The first line of every file.
inline constexpr std::string_view kFirstTitle = "Ajuste de parâmetros";
/// The second line, which tells what the file holds.
inline constexpr std::string_view kExperimentsTitle = "Dados de entrada";
inline constexpr std::string_view kConditionsTitle = "Condições de cultivo";

/// A file's text, UTF-8 without a byte order mark. Where a byte of a UTF-8 file is no letter, the
/// text ends before the line with that byte and `badByte` names it ("0xE7").
struct FileText {
  std::string text;
  std::string badByte;
};

/// Decodes a file that begins with the UTF-8 byte order mark as UTF-8, every other as Windows-1252.
FileText DecodeFile(std::string_view bytes);

void AppendLine(std::string& text, std::string_view line);
/// A line with a number joined at once to its mark: "$2", "#1".
void AppendMarked(std::string& text, char mark, int number);

/// The fault of writing `text` on a line of the file `path`: it holds a line break or a letter that
/// Windows-1252 lacks. `field` and `item` say which text it is.
std::optional<FileFault> RefuseText(std::string_view text, FileField field, int item,
                                    const std::string& path);

/// Saves a UTF-8 text as Windows-1252, as `SafeSave` does.
std::optional<FileFault> SaveText(std::string_view text, const std::string& path);

/// The text found, as a fault quotes it: whole letters, cut where it is long.
std::string Quoted(std::string_view text);

}  // namespace velmora
