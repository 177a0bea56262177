// How a command ends.
#pragma once

#include <string>

namespace velmora::cli {

enum class ExitCode : int {
  Done = 0,
  Refused = 1,     // by a rule, whose text is printed
  Usage = 2,       // the command line makes no sense
  File = 3,        // a file, or the output, cannot be read or written
  Arithmetic = 4,  // the simulation or the deviations met an arithmetic fault
  Stopped = 130,   // by Ctrl-C
};

/// Thrown where a command cannot go on: what it exits with and the one line to say so, worded in
/// the user's language.
struct Failure {
  ExitCode code;
  std::string line;
};

}  // namespace velmora::cli
