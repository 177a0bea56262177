// Sentences for the faults of files.
#include "cli/Wording.h"
#include "data/FaultDetail.h"

namespace velmora::cli {

std::string Wording::Of(const FileFault& fault) const {
  return PlaceInFile(fault.path, fault.line) + OnOneLine(FaultReason(fault, language_));
}

}  // namespace velmora::cli
