#include "cultivation/ConditionsFile.h"
#include "cultivation/OpenedConditions.h"
#include "fuzz/Fuzzing.h"

void velmora::Feed(std::string_view bytes) {
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
