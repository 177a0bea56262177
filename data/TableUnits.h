// The units of a table's columns, and the way from them to h and g/L.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/TableOptions.h"

namespace velmora {

/// A value times `times` over `over`, and times the molar mass where `molar`, is in h or in g/L.
/// Two whole numbers, so that 7.3 mg/L is 0.0073 g/L to the last digit.
struct TableUnit {
  std::string name = {};  // as the table has it; empty where it says none
  double times = 1;
  double over = 1;
  bool molar = false;

  bool IsOwn() const { return times == over && !molar; }
};

/// The unit of a text like "min", "mg/L", "g L-1", "g_per_L", "mmol/L" or "(mM)"; nothing where it
/// is none of those known for the quantity.
std::optional<TableUnit> UnitNamed(std::string_view text, Quantity quantity);

/// The units that are known, for a message.
std::string_view UnitsKnown(Quantity quantity);

/// What a header says behind the quantity's name.
struct HeaderUnit {
  TableUnit unit;
  std::string unknown = {};  // looks like a unit, but is none of those known
};
HeaderUnit UnitBehindName(std::string_view rest, Quantity quantity);

}  // namespace velmora
