#include "data/ColumnUnits.h"

namespace velmora {
namespace {

/// Whether the row below the header has units: "(h)", "(g/L)".
bool HasUnits(const TableRow& row, const TableColumns& columns) {
  return UnitNamed(CellOf(row, columns.Of(Quantity::Time)), Quantity::Time).has_value();
}

/// Of what is given, the row of units and the header, the first that is there.
HeaderUnit UnitSaid(Quantity quantity, const TableRow& header, const TableRow* row,
                    const TableColumns& columns, const TableOptions& options) {
  if (const auto& given = options.units[IndexOf(quantity)]) {
    const std::optional<TableUnit> unit = UnitNamed(*given, quantity);
    return unit ? HeaderUnit{*unit} : HeaderUnit{{}, *given};
  }
  const std::size_t column = columns.Of(quantity);
  if (row) return UnitBehindName(CellOf(*row, column), quantity);
  return UnitInHeader(header.cells[column], quantity);
}

TableUnit Checked(HeaderUnit found, Quantity quantity, int line, const TableOptions& options) {
  const std::string name(NameOf(quantity));
  if (!found.unknown.empty())
    throw TableFault{
        TextId::UnitUnknown, {found.unknown, name, std::string(UnitsKnown(quantity))}, line};
  const bool hasMass = options.molarMasses[IndexOf(quantity)].has_value();
  if (found.unit.molar != hasMass)
    throw TableFault{
        hasMass ? TextId::UnitNotMolar : TextId::MolarMassMissing, {name, found.unit.name}, line};
  return found.unit;
}

}  // namespace

ByQuantity<TableUnit> TakeUnits(TableRows& table, const TableColumns& columns,
                                const TableOptions& options, std::vector<TableFault>& remarks) {
  const TableRow& header = table.header;
  const bool unitsBelow = !table.rows.empty() && HasUnits(table.rows.front(), columns);
  const TableRow* const row = unitsBelow ? &table.rows.front() : nullptr;
  ByQuantity<TableUnit> units;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const Quantity quantity{static_cast<int>(i)};
    if (quantity == Quantity::Experiment && !columns.Experiment()) continue;
    const std::string name(NameOf(quantity));
    const std::string& cell = header.cells[columns.Of(quantity)];
    if (!options.columns[i] && IsByAnotherName(cell, quantity))
      remarks.push_back({TextId::ColumnTaken, {OnOneLine(cell), name}, header.line});
    if (quantity == Quantity::Experiment) continue;
    units[i] =
        Checked(UnitSaid(quantity, header, row, columns, options), quantity, header.line, options);
    const std::string own = quantity == Quantity::Time ? "h" : "g/L";
    if (!units[i].IsOwn())
      remarks.push_back(
          {TextId::UnitConverted, {name, OnOneLine(units[i].name), own}, header.line});
  }
  if (unitsBelow) table.rows.erase(table.rows.begin());
  return units;
}

}  // namespace velmora
