#include "cli/Wording.h"

namespace velmora::cli {

std::string Wording::Of(const FileFault& fault) const {
  return PlaceInFile(fault.path, fault.line) + OnOneLine(FaultReason(fault, language_));
}

std::string PlaceInFile(const std::string& path, int line) {
  std::string place = path + ":";
  if (line > 0) place.append(std::to_string(line)).append(":");
  return place + " ";
}

}  // namespace velmora::cli
