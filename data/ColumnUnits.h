// The units of a table's columns: what is given, a row of units or the headers say.
#pragma once

#include <vector>

#include "data/TableColumns.h"
#include "data/TableRows.h"
#include "data/TableUnits.h"

namespace velmora {

/// The units of t, Cs, Cx and Cp. A row of units below the header is taken off the table. What was
/// taken by another name or is to be converted is added to `remarks`. Throws a `TableFault` for a
/// unit that is not known, and for one in mol without a molar mass.
ByQuantity<TableUnit> TakeUnits(TableRows& table, const TableColumns& columns,
                                const TableOptions& options, std::vector<TableFault>& remarks);

}  // namespace velmora
