// The command line as data, from which the manual pages and the completions of shells are made.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace velmora::cli {

/// All commands, options and texts of `app`, and the names of the models, as JSON.
std::string DescriptionOf(const CLI::App& app);

}  // namespace velmora::cli
