// The fields of the program's own files, one after another, each with what can be wrong about it.
#pragma once

#include <concepts>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"
#include "data/FileText.h"

namespace velmora {

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
