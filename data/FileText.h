// The text of the program's own files: its letters and lines, what cannot stand in it, and its
// fields one after another, each with what can be wrong about it.
#pragma once

#include <concepts>
#include <limits>
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

/// What a whole number of a file may be, both ends included.
struct Limits {
  double least;
  double most;
};

/// Reads fields in order. A field ends at a comma or at the line's end (CR LF, LF or CR), blanks
/// before it are passed over. The first fault stays: from then on every text is empty, every number
/// 0 and nothing is read, so that a layout reads straight down and asks `Good` once.
class FieldReader {
 public:
  /// `file` must outlive the reader and the texts it gives; `path` only names it in a fault.
  FieldReader(const FileText& file, const std::string& path);

  /// The next field as it stands.
  std::string_view Text(FileField field, int item = 0);
  /// The next field as a number with a decimal point; an empty field is 0.
  double Number(FileField field, int item = 0);
  /// The next field as a whole number.
  template <std::signed_integral Type>
  Type Whole(FileField field, Limits limits = LimitsOf<Type>(), int item = 0) {
    return static_cast<Type>(WholeIn(Text(field, item), limits));
  }
  /// As `Whole`, from what stands right of the first `mark`, or the field where it has none.
  template <std::signed_integral Type>
  Type Marked(char mark, FileField field, Limits limits = LimitsOf<Type>()) {
    return static_cast<Type>(WholeIn(RightOf(mark, Text(field)), limits));
  }

  /// The number that a part of the field read last states.
  double NumberIn(std::string_view part);
  double WholeIn(std::string_view part, Limits limits);
  /// What is to be said of the field read last, without ending the reading.
  FileFault FaultHere(FileReason reason, std::string_view found) const;
  /// Faults the field read last, unless there is a fault already.
  void Fail(FileReason reason, std::string_view found);

  bool Good() const { return !fault_.has_value(); }
  const std::optional<FileFault>& Fault() const { return fault_; }
  /// The line of the field read last.
  int Line() const { return place_.line; }

  static std::string_view RightOf(char mark, std::string_view text);

 private:
  template <std::signed_integral Type>
  static constexpr Limits LimitsOf() {
    return {std::numeric_limits<Type>::min(), std::numeric_limits<Type>::max()};
  }
  void PassFieldEnd();
  void FailNumber(std::string_view part);

  std::string_view rest_;
  std::string_view badByte_;
  FileFault place_;  // of the field read last; its reason is not in use
  int nextLine_ = 1;
  std::optional<FileFault> fault_;
};

}  // namespace velmora
