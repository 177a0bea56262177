// velmora-cli: the program without a window.
#include <csignal>
#include <new>
#include <variant>

#include "cli/Arguments.h"

namespace velmora::cli {
namespace {

ExitCode Run(const HelpOptions& help, const Console& console) {
  console.Print(help.text);
  return ExitCode::Done;
}

ExitCode RunCommand(const Arguments& arguments) {
  const Console console(arguments.language);
  try {
    return std::visit([&](const auto& options) { return Run(options, console); },
                      arguments.command);
  } catch (const Failure& failure) {
    console.Complain(failure.line);
    return failure.code;
  } catch (const std::bad_alloc&) {
    console.Complain(console.say(TextId::OutOfMemory));
    return ExitCode::Refused;
  }
}

ExitCode Main(int argc, const char* const* argv) {
  // A closed pipe is to be an error of writing, not the program's end without a word.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return RunCommand(ParseArguments(argc, argv));
  } catch (const Failure& failure) {
    Console(Language::English).Complain(failure.line);
    return failure.code;
  }
}

}  // namespace
}  // namespace velmora::cli

int main(int argc, char** argv) {
  return static_cast<int>(velmora::cli::Main(argc, argv));
}
