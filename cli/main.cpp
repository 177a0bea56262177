// velmora-cli: the program without a window.
#include <new>
#include <variant>

#include "cli/Arguments.h"
#include "cli/Json.h"
#include "platform/System.h"

namespace velmora::cli {
namespace {

ExitCode Run(const HelpOptions& help, const Console& console) {
  console.Print(help.text);
  return ExitCode::Done;
}

ExitCode Fail(const Failure& failure, const Console& console) {
  if (console.Options().json)
    console.Note(JsonOf(failure));
  else
    console.Complain(Worded(failure));
  return failure.code;
}

ExitCode RunCommand(const Arguments& arguments, const Console& console) {
  try {
    return std::visit([&](const auto& options) { return Run(options, console); },
                      arguments.command);
  } catch (const std::bad_alloc&) {
    throw Failure{ExitCode::Refused, console.say(TextId::OutOfMemory)};
  }
}

ExitCode RunToOutput(const Arguments& arguments) {
  Output output(arguments.general.output);
  const Console console(arguments.general, output);
  try {
    if (output.IsFile()) console.TryOutput(output.Path(), arguments.inputs);
    const ExitCode code = RunCommand(arguments, console);
    RequireDone(output.Save(), console.say);
    return code;
  } catch (const Failure& failure) {
    return Fail(failure, console);
  }
}

ExitCode Main(int argc, const char* const* argv) {
  LetClosedPipesFail();
  try {
    return RunToOutput(ParseArguments(argc, argv));
  } catch (const UsageError& error) {
    Output none("");
    return Fail({ExitCode::Usage, error.line}, Console(error.general, none));
  }
}

}  // namespace
}  // namespace velmora::cli

int main(int argc, char** argv) {
  return static_cast<int>(velmora::cli::Main(argc, argv));
}
