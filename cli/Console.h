// Standard output and standard error of a command.
#pragma once

#include <string_view>

#include "cli/Wording.h"

namespace velmora::cli {

class Console {
 public:
  explicit Console(Language language) : say(language) {}

  /// Writes to standard output at once; throws a `Failure` (File) where it cannot be written.
  void Print(std::string_view text) const;
  /// Writes a line "velmora-cli: ..." to standard error.
  void Complain(std::string_view line) const;
  /// Writes to standard error as it stands.
  void Note(std::string_view text) const;

  const Wording say;
};

}  // namespace velmora::cli
