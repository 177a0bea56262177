// The completions of the command line for the usual shells.
#pragma once

#include <string>

#include "packaging/CommandTable.h"

namespace velmora::packaging {

std::string BashCompletion(const CommandTable& table);
std::string ZshCompletion(const CommandTable& table);
std::string FishCompletion(const CommandTable& table);

}  // namespace velmora::packaging
