// Feeds any bytes to the readers of both files. What they accept must be written and read back
// unchanged.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cultivation/ConditionsFile.h"
#include "data/ExperimentFile.h"

namespace {

using namespace velmora;

// With it a text need not be turned into Windows-1252, which lacks most letters.
const std::string kByteOrderMark = "\xEF\xBB\xBF";

void Require(bool holds) {
  if (!holds) std::abort();
}

void FuzzExperiments(std::string_view bytes) {
  ExperimentLists lists, again;
  const ExperimentsRead read = ReadExperimentBytes(bytes, "", lists);
  Require(read.appended == lists.Count());
  const std::string text = ExperimentText(lists);
  Require(!ReadExperimentBytes(kByteOrderMark + text, "", again).fault);
  Require(ExperimentText(again) == text);
}

void FuzzConditions(std::string_view bytes) {
  const ConditionsRead read = ReadConditionsBytes(bytes, "");
  Require(!read.fault || (read.experiments == 0 && read.conditions == CultivationConditions()));
  const std::string text = ConditionsText(read.conditions, read.experiments, true);
  const ConditionsRead again = ReadConditionsBytes(kByteOrderMark + text, "");
  Require(!again.fault && again.conditions == read.conditions);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  FuzzExperiments(bytes);
  FuzzConditions(bytes);
  return 0;
}
