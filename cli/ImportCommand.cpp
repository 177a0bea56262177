// velmora-cli import: an experiment file from a table.
#include <algorithm>

#include "cli/Assignments.h"
#include "cli/Commands.h"
#include "cli/Given.h"
#include "data/ExperimentFile.h"
#include "data/MeasuredTable.h"
#include "data/SafeSave.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kColumns = "--columns";
constexpr std::string_view kUnit = "--unit";
constexpr std::string_view kMolarMass = "--molar-mass";

struct Hint {
  TextId fault;
  TextId option;  // that decides it
};
constexpr std::array<Hint, 7> kHints = {{{TextId::CellOfTwoReadings, TextId::DecideMark},
                                         {TextId::ColumnUnclear, TextId::DecideColumn},
                                         {TextId::MissingColumn, TextId::DecideMissingColumn},
                                         {TextId::UnitUnknown, TextId::DecideUnit},
                                         {TextId::MolarMassMissing, TextId::DecideMolarMass},
                                         {TextId::CellGap, TextId::DecideMissing},
                                         {TextId::CellNA, TextId::DecideMissing}}};

std::string HintFor(const TableFault& fault, const Wording& say) {
  const auto hint = std::find_if(kHints.begin(), kHints.end(),
                                 [&](const Hint& each) { return each.fault == fault.text; });
  if (hint == kHints.end()) return "";
  return FaultReason({hint->option, fault.arguments}, say.In());
}

[[noreturn]] void Refuse(const TableFault& fault, const std::string& path, const Wording& say) {
  if (fault.text == TextId::LabelMissing)
    throw Failure{ExitCode::Refused,
                  say(TextId::NoSuchLabel, {path, fault.arguments.at(0), fault.arguments.at(1)})};
  throw Failure{ExitCode::File,
                PlaceInFile(path, fault.line) + FaultReason(fault, say.In()) + HintFor(fault, say)};
}

std::string QuantityNames(std::string_view option) {
  std::string names;
  for (const std::string_view name : kQuantityNames)
    if (option == kColumns || name != NameOf(Quantity::Experiment)) Join(names, name, " ");
  return names;
}

/// NAME=VALUE of an option: the quantity, and what it is to be.
std::pair<Quantity, std::string> Assigned(std::string_view option, std::string_view text,
                                          const Wording& say) {
  const std::size_t mark = text.find('=');
  if (mark == std::string_view::npos || mark + 1 == text.size())
    throw Failure{ExitCode::Usage, say(TextId::Malformed, {option, text, "NAME=VALUE"})};
  const std::string_view name = text.substr(0, mark);
  const auto at = std::find(kQuantityNames.begin(), kQuantityNames.end(), name);
  if (at == kQuantityNames.end() || (option != kColumns && at == kQuantityNames.begin()))
    throw Failure{ExitCode::Usage, say(TextId::UnknownName, {option, name, QuantityNames(option)})};
  return {Quantity{static_cast<int>(at - kQuantityNames.begin())},
          std::string(text.substr(mark + 1))};
}

void TakeColumns(std::string_view columns, TableOptions& table, const Wording& say) {
  while (!columns.empty()) {
    const std::string_view column = columns.substr(0, columns.find(','));
    columns.remove_prefix(std::min(column.size() + 1, columns.size()));
    auto [quantity, header] = Assigned(kColumns, column, say);
    table.columns[IndexOf(quantity)] = std::move(header);
  }
}

void TakeMarks(const ImportOptions& options, TableOptions& table, const Wording& say) {
  if (options.decimal) table.decimal = options.decimal == "comma" ? ',' : '.';
  for (const auto& [name, thousands] : kThousandsNames)
    if (options.thousands == name) table.thousands = thousands;
  if (options.decimal && options.decimal == options.thousands)
    throw Failure{ExitCode::Usage, say(TextId::MarksAlike, {*options.decimal})};
}

TableOptions TableOptionsOf(const ImportOptions& options, const Wording& say) {
  TableOptions table{options.only};
  TakeMarks(options, table, say);
  if (options.missing)
    table.missing = options.missing == "drop-row" ? Missing::DropRow : Missing::Interpolate;
  TakeColumns(options.columns, table, say);
  for (const std::string& text : options.units) {
    auto [quantity, unit] = Assigned(kUnit, text, say);
    table.units[IndexOf(quantity)] = std::move(unit);
  }
  for (const std::string& text : options.molarMasses) {
    const auto [quantity, mass] = Assigned(kMolarMass, text, say);
    const double value = NumberOf(kMolarMass, mass, say);
    if (quantity == Quantity::Time || !(value > 0))
      throw Failure{ExitCode::Usage, say(TextId::Malformed, {kMolarMass, text, "Cs=180.16"})};
    table.molarMasses[IndexOf(quantity)] = value;
  }
  return table;
}

}  // namespace

ExitCode Run(const ImportOptions& options, const Console& console) {
  RequireOtherFile(options.table, options.output, console.say);
  const TableOptions tableOptions = TableOptionsOf(options, console.say);
  const FileBytes file = ReadWholeFile(options.table);
  RequireDone(file.fault, console.say);
  const TableRead table = ReadTable(file.bytes, tableOptions);
  if (table.fault) Refuse(*table.fault, options.table, console.say);
  RequireDone(WriteExperiments(table.lists, options.output), console.say);
  console.Print(
      console.say(TextId::Written, {options.output, std::to_string(table.lists.Count())}) + "\n");
  for (const TableFault& remark : table.remarks)
    console.Print(PlaceInFile(options.table, remark.line) + FaultReason(remark, console.say.In()) +
                  "\n");
  return ExitCode::Done;
}

}  // namespace velmora::cli
