// What a command says, in one language and in columns, and how it ends.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// Where in which file something is wrong.
struct FilePlace {
  std::string file = {};
  int line = 0;             // from 1; 0: no line in particular
  std::string column = {};  // its header, where it is a table's
};

/// Thrown where a command cannot go on: what it exits with, one line to say so, worded in the
/// user's language, and the place that it speaks of.
struct Failure {
  ExitCode code;
  std::string line;
  FilePlace place = {};
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

/// What may stand behind every command.
struct GeneralOptions {
  Language language = Language::English;
  bool json = false;
  bool quiet = false;
  std::string output = {};  // the file for what a command prints; empty or "-": standard output
  bool timed = true;        // a result tells how long it took
  std::size_t limit = kUsualLimit;          // bytes that are read of a file
  std::vector<std::string> arguments = {};  // the command line as given
};

/// "-" stands for standard input and for standard output.
inline constexpr std::string_view kStandard = "-";

/// Standard output, or the file that takes its place.
class Output {
 public:
  /// Keeps what is written.
  Output() = default;
  explicit Output(const std::string& path) : path_(path), keeps_(IsFile()) {}

  bool Keeps() const { return keeps_; }
  const std::string& Kept() const { return kept_; }
  bool IsFile() const { return !path_.empty() && path_ != kStandard; }
  const std::string& Path() const { return path_; }
  /// Writes at once, or keeps it for the file; false where that fails, with the reason in errno.
  bool Write(std::string_view text);
  /// Writes the file, whole or not at all.
  std::optional<FileFault> Save() const;

 private:
  std::string path_;
  bool keeps_ = true;
  std::string kept_;
};

/// Standard output and standard error, and files in their place.
class Console {
 public:
  Console(GeneralOptions options, Output& output)
      : say(options.language), options_(std::move(options)), output_(output) {}

  const GeneralOptions& Options() const { return options_; }

  /// Writes a command's result, to a terminal as `Visible` makes it; throws a `Failure` (File)
  /// where it cannot be written.
  void Print(std::string_view text) const;
  /// As `Print`, for a result that took long: to standard error too where it cannot be written.
  void PrintOrRescue(std::string_view text) const;
  /// Says what was done to the file at `path`, unless --quiet silences it: to standard output, or
  /// to standard error where the file itself goes to standard output.
  void Tell(std::string_view text, const std::string& path) const;
  /// As `Tell`, for what --quiet does not silence.
  void PrintBeside(std::string_view text, const std::string& path) const;
  /// Writes a line "velmora-cli: ..." to standard error, as `Visible` makes it.
  void Complain(std::string_view line) const;
  /// The same of what is no error, unless --quiet silences it.
  void Warn(std::string_view line) const;
  /// Writes to standard error as it stands.
  void Note(std::string_view text) const;

  /// The bytes of a file, or of standard input for "-". Throws a `Failure` (File).
  std::string Read(const std::string& path) const;
  /// Throws a `Failure` where a file could not be written there, or is one of the inputs; tells
  /// what writing would change beside it. To be asked before the work.
  void TryOutput(const std::string& path, const std::vector<std::string>& inputs) const;

  const Wording say;

 private:
  GeneralOptions options_;
  Output& output_;
};

/// Throws a `Failure` (Usage) where `output` is the file `input`.
void RequireOtherFile(const std::string& input, const std::string& output, const Wording& say);

/// The failure on one line, with its place in front.
std::string Worded(const Failure& failure);

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
