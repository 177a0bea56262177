// What the command line tells of itself: commands, options, texts.
#pragma once

#include <string>
#include <vector>

namespace velmora::packaging {

struct Option {
  std::vector<std::string> names;  // "-o", "--output"; of a positional one its name
  bool positional = false;
  bool required = false;
  bool repeated = false;  // may be given more than once
  std::string value;      // how its value is written, such as ED|LM; empty: a flag
  std::string help;
  std::vector<std::string> choices;  // all that the value may be; empty: anything

  /// How the value's file ends (".abr"); empty where the value is no file.
  std::string Suffix() const;
};

struct Command {
  std::string name;
  std::string about;
  std::string footer;
  std::vector<Option> options;

  /// The options that begin with "-".
  std::vector<Option> Switches() const;
  std::vector<Option> Positionals() const;
};

struct CommandTable {
  Command whole;  // the program, with the options that may stand anywhere
  std::string version;
  std::vector<Command> commands;
};

/// Reads what `velmora-cli --describe` printed. Throws `std::exception` where it is not that.
CommandTable ReadCommandTable(const std::string& file);

/// The text on one line, without the stop at its end.
std::string OneLine(const std::string& text);

}  // namespace velmora::packaging
