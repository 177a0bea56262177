// The cultivation-conditions file: conditions, fit options and fitted parameters as text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "data/FileFault.h"

namespace velmora {

/// The file's third line.
inline constexpr std::string_view kBatchLine = "Batelada";

/// The contents of a conditions file: its records stand at places 1..`experiments`.
struct ConditionsRead {
  CultivationConditions conditions;
  int experiments = 0;
  std::optional<FileFault> fault;
  /// The methods, productions, models and yields that stand for no choice, line by line. They end
  /// no reading: what they should select stays unselected.
  std::vector<FileFault> remarks{};
};

/// Reads a conditions file by the field rules of the experiment file. A file without the line
/// "Batelada" has no "$" in its fourth item and reads as no experiments. More than nine
/// experiments or ten fitted parameters are a fault, and so is a parameter fitted twice. The
/// fitted-parameter table is that of the last block, put into table order.
ConditionsRead ReadConditions(const std::string& path);
ConditionsRead ReadConditionsBytes(std::string_view bytes, const std::string& path);

/// The file's text for places 1..`experiments` (at most 9), UTF-8, lines ended by CR LF.
/// `cultivationActive`: the cultivation window is the active work window; only then is the line
/// "Batelada" written.
std::string ConditionsText(const CultivationConditions& conditions, int experiments,
                           bool cultivationActive);

/// Writes the file as Windows-1252; what was there is replaced only by the whole new file.
std::optional<FileFault> WriteConditions(const CultivationConditions& conditions, int experiments,
                                         bool cultivationActive, const std::string& path);

}  // namespace velmora
