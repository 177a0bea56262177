#include "cli/Console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>

#include "cli/Failure.h"

namespace velmora::cli {

void Console::Print(std::string_view text) const {
  errno = 0;
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0)
    throw Failure{ExitCode::File, say(TextId::OutputFailed, {std::strerror(errno)})};
}

void Console::Complain(std::string_view line) const {
  Note("velmora-cli: " + OnOneLine(line) + "\n");
}

void Console::Note(std::string_view text) const {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace velmora::cli
