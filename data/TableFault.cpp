#include "data/TableFault.h"

#include <string_view>

namespace velmora {

std::string FaultReason(const TableFault& fault, Language language) {
  std::string reason =
      Filled(fault.text, language,
             std::vector<std::string_view>(fault.arguments.begin(), fault.arguments.end()));
  if (fault.row == 0) return reason;
  return Filled(TextId::AtCell, language, {std::to_string(fault.row), fault.column, reason});
}

}  // namespace velmora
