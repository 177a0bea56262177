// What a command says, in one language and in columns, and how it ends.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"
#include "language/Message.h"
#include "language/Texts.h"

namespace velmora::cli {

enum class ExitCode : int {
  Done = 0,
  Refused = 1,     // by a rule, whose text is printed
  Usage = 2,       // the command line makes no sense
  File = 3,        // a file, or the output, cannot be read or written
  Arithmetic = 4,  // the simulation, the search or the deviations met an arithmetic fault
  // The search was stopped: 128 and the signal.
  HungUp = 129,
  Interrupted = 130,  // by Ctrl-C
  Terminated = 143,
};

/// What a search exits with that was stopped by `signal`.
constexpr ExitCode StoppedBy(int signal) {
  return ExitCode{128 + signal};
}

/// Thrown where a command cannot go on: what it exits with and the one line to say so, worded in
/// the user's language.
struct Failure {
  ExitCode code;
  std::string line;
};

/// Words what is to be said in one language, UTF-8.
class Wording {
 public:
  explicit Wording(Language language) : language_(language) {}
  Language In() const { return language_; }

  /// The text with {1}, {2}, ... replaced by the arguments.
  std::string operator()(TextId text,
                         std::initializer_list<std::string_view> arguments = {}) const {
    return Filled(text, language_, arguments);
  }

  /// A rule's text on one line.
  std::string Of(const Message& message) const { return OnOneLine(Worded(message, language_)); }
  /// "FILE:LINE: what is wrong and what to do".
  std::string Of(const FileFault& fault) const;

 private:
  Language language_;
};

/// Standard output and standard error.
class Console {
 public:
  explicit Console(Language language) : say(language) {}

  /// Writes to standard output at once, to a terminal as `Visible` makes it; throws a `Failure`
  /// (File) where it cannot be written.
  void Print(std::string_view text) const;
  /// Writes a line "velmora-cli: ..." to standard error, as `Visible` makes it.
  void Complain(std::string_view line) const;
  /// Writes to standard error as it stands.
  void Note(std::string_view text) const;

  const Wording say;
};

/// Throws a `Failure` (File) where a file could not be read or written.
void RequireDone(const std::optional<FileFault>& fault, const Wording& say);

/// "PATH:LINE: ", or "PATH: " where `line` is 0.
std::string PlaceInFile(const std::string& path, int line);

/// `text` (UTF-8) with what a terminal would obey instead of showing it as its number, "\x1B" or
/// "\u202E": control characters but for tab and line feed, and marks that turn the direction of
/// writing. A text from a file could move the cursor, or hide what it says.
std::string Visible(std::string_view text);

/// How many letters a text (UTF-8) has.
std::size_t LettersIn(std::string_view text);

/// `text` (UTF-8) with blanks to `width` letters: behind it, or in front of it.
std::string Left(std::string_view text, std::size_t width);
std::string Right(std::string_view text, std::size_t width);

/// Appends `item` to a list, behind `separator` unless it is the first.
void Join(std::string& list, std::string_view item, std::string_view separator);

}  // namespace velmora::cli
