// The command line, an argument in each line.
#include <vector>

#include "cli/Arguments.h"
#include "cli/Given.h"
#include "fuzz/Fuzzing.h"

namespace velmora {
namespace {

std::vector<std::string> WordsOf(std::string_view bytes) {
  std::vector<std::string> words = {"velmora-cli"};
  while (!bytes.empty()) {
    words.emplace_back(bytes.substr(0, bytes.find('\n')));
    bytes.remove_prefix(std::min(words.back().size() + 1, bytes.size()));
    // A C string ends there.
    words.back().erase(std::min(words.back().find('\0'), words.back().size()));
  }
  return words;
}

/// What a command reads of its options before it opens a file.
void ReadValues(const cli::InputOptions& inputs, const cli::Wording& say) {
  cli::GivenBy(inputs.model, inputs.set, inputs.fit, say);
}

}  // namespace

void Feed(std::string_view bytes) {
  const std::vector<std::string> words = WordsOf(bytes);
  std::vector<const char*> argv;
  for (const std::string& word : words) argv.push_back(word.c_str());
  try {
    const cli::Arguments arguments =
        cli::ParseArguments(static_cast<int>(argv.size()), argv.data());
    const auto read = [&](const auto& options) {
      if constexpr (requires { options.inputs; })
        ReadValues(options.inputs, cli::Wording(arguments.general.language));
    };
    std::visit(read, arguments.command);
  } catch (const cli::UsageError& error) {
    Require(!error.line.empty());
  } catch (const cli::Failure& failure) {
    Require(!failure.line.empty());
  }
}

}  // namespace velmora
