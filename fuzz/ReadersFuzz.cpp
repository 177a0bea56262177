// Feeds any bytes to the readers of both files and of tables. What they accept must be written and
// read back unchanged; what they refuse must leave nothing half done and be told in words.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "cultivation/ConditionsFile.h"
#include "cultivation/OpenedConditions.h"
#include "data/ExperimentFile.h"
#include "data/MeasuredTable.h"
#include "data/Windows1252.h"

namespace {

using namespace velmora;

// With it a text need not be turned into Windows-1252, which lacks most letters.
const std::string kByteOrderMark = "\xEF\xBB\xBF";

void Require(bool holds) {
  if (!holds) std::abort();
}

void RequireReadsBack(const ExperimentLists& lists) {
  ExperimentLists again;
  const std::string text = ExperimentText(lists);
  Require(!ReadExperimentBytes(kByteOrderMark + text, "", again).fault);
  Require(ExperimentText(again) == text);
}

void FuzzExperiments(std::string_view bytes) {
  ExperimentLists lists;
  const ExperimentsRead read = ReadExperimentBytes(bytes, "", lists);
  Require(read.appended == lists.Count());
  if (read.fault) Require(!FaultDetail(*read.fault, Language::English).empty());
  RequireReadsBack(lists);
}

void FuzzConditions(std::string_view bytes) {
  const ConditionsRead read = ReadConditionsBytes(bytes, "");
  Require(!read.fault || (read.experiments == 0 && read.conditions == CultivationConditions()));
  for (const FileFault& remark : read.remarks)
    Require(!FaultReason(remark, Language::Portuguese).empty());
  const std::string text = ConditionsText(read.conditions, read.experiments, true);
  const ConditionsRead again = ReadConditionsBytes(kByteOrderMark + text, "");
  Require(!again.fault && again.conditions == read.conditions);
  for (int place = 1; place <= read.experiments; ++place)
    RecognisedModel(read.conditions.At(place), read.conditions.fitted);
}

void FuzzTable(std::string_view bytes) {
  const TableRead read = ReadTable(bytes, {.limit = 1 << 20});
  Require(read.lists.Empty() == read.fault.has_value());
  if (read.fault) Require(!FaultReason(*read.fault, Language::English).empty());
  for (const Experiment& experiment : read.lists.Experiments())
    Require(!ToWindows1252(experiment.description).letter);
  RequireReadsBack(read.lists);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  FuzzExperiments(bytes);
  FuzzConditions(bytes);
  FuzzTable(bytes);
  return 0;
}
