#include "fuzz/Fuzzing.h"

void velmora::Feed(std::string_view bytes) {
  ExperimentLists lists;
  const ExperimentsRead read = ReadExperimentBytes(bytes, "", lists);
  Require(read.appended == lists.Count());
  if (read.fault) Require(!FaultDetail(*read.fault, Language::English).empty());
  RequireReadsBack(lists);
}
