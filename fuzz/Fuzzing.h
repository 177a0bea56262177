// What the fuzz targets share. Each feeds any bytes to one reader: what it accepts must be written
// and read back unchanged; what it refuses must leave nothing half done and be told in words.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "data/ExperimentFile.h"
#include "data/MeasuredTable.h"
#include "data/Windows1252.h"

namespace velmora {

// With it a text need not be turned into Windows-1252, which lacks most letters.
inline const std::string kByteOrderMark = "\xEF\xBB\xBF";

inline void Require(bool holds) {
  if (!holds) std::abort();
}

inline void RequireReadsBack(const ExperimentLists& lists) {
  ExperimentLists again;
  const std::string text = ExperimentText(lists);
  Require(!ReadExperimentBytes(kByteOrderMark + text, "", again).fault);
  Require(ExperimentText(again) == text);
}

inline void RequireWhole(const TableRead& read) {
  Require(read.lists.Empty() == read.fault.has_value());
  if (read.fault) Require(!FaultReason(*read.fault, Language::English).empty());
  for (const Experiment& experiment : read.lists.Experiments())
    Require(!ToWindows1252(experiment.description).letter);
  RequireReadsBack(read.lists);
}

/// To be defined by each target.
void Feed(std::string_view bytes);

}  // namespace velmora

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velmora::Feed({reinterpret_cast<const char*>(data), size});
  return 0;
}
