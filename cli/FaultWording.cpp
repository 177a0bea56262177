// Sentences for the faults of files and of arithmetic.
#include "app/Numbers.h"
#include "cli/Wording.h"
#include "cultivation/FaultDescription.h"
#include "data/FaultDetail.h"

namespace velmora::cli {

std::string Wording::Of(const FileFault& fault) const {
  return PlaceInFile(fault.path, fault.line) + OnOneLine(FaultReason(fault, language_));
}

std::string Wording::Of(const ArithmeticFault& fault, double time) const {
  std::string text = FaultDescription(fault, language_);
  if (fault.point == 0) return text;
  return text + ", t = " + Formatted(time, kFour, '.') + " h";
}

}  // namespace velmora::cli
