// velmora-cli import: an experiment file from a table.
#include <algorithm>
#include <filesystem>

#include "cli/Assignments.h"
#include "cli/Commands.h"
#include "cli/Given.h"
#include "cli/Json.h"
#include "data/ExperimentFile.h"
#include "data/MeasuredTable.h"
#include "data/Windows1252.h"
#include "inference/DataChecks.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kColumns = "--columns";
constexpr std::string_view kUnit = "--unit";
constexpr std::string_view kMolarMass = "--molar-mass";

struct Hint {
  TextId fault;
  TextId option;  // that decides it
};
constexpr std::array<Hint, 8> kHints = {{{TextId::CellOfTwoReadings, TextId::DecideMark},
                                         {TextId::ColumnUnclear, TextId::DecideColumn},
                                         {TextId::MissingColumn, TextId::DecideMissingColumn},
                                         {TextId::OpticalDensity, TextId::DecideOpticalDensity},
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
                FaultReason(fault, say.In()) + HintFor(fault, say),
                {path, fault.line, fault.column}};
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
  TableOptions table{options.only, options.sheet};
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

TableRead ReadAll(const ImportOptions& options, const TableOptions& tableOptions,
                  const Console& console) {
  std::vector<std::string> bytes;
  std::vector<TableFile> files;
  for (const std::string& table : options.tables) bytes.push_back(console.Read(table));
  for (std::size_t i = 0; i < bytes.size(); ++i)
    files.push_back({bytes[i], std::filesystem::path(options.tables[i]).stem()});
  TableRead read = ReadTables(files, tableOptions);
  if (read.fault) Refuse(*read.fault, options.tables[read.fault->table], console.say);
  return read;
}

/// What is to be told of the tables, a line each.
std::string RemarksOn(const TableRead& read, const ImportOptions& options, const Wording& say) {
  std::string text;
  for (const TableFault& remark : read.remarks)
    text += PlaceInFile(options.tables[remark.table], remark.line) + FaultReason(remark, say.In()) +
            "\n";
  for (const Remark& remark : CheckPossible(read.lists.Experiments()))
    text += Worded(remark, say.In()) + "\n";
  return text;
}

}  // namespace

ExitCode Run(const ImportOptions& options, const Console& console) {
  const Wording& say = console.say;
  console.TryOutput(options.output, options.tables);
  TableOptions tableOptions = TableOptionsOf(options, say);
  tableOptions.limit = console.Options().limit;
  const TableRead read = ReadAll(options, tableOptions, console);
  if (options.output == kStandard)
    console.Print(ToWindows1252(ExperimentText(read.lists)).bytes);
  else
    RequireDone(WriteExperiments(read.lists, options.output), say);
  if (options.json) {
    console.PrintBeside(JsonOf(read, options.tables, options.output, say), options.output);
    return ExitCode::Done;
  }
  console.Tell(say(TextId::Written, {options.output, std::to_string(read.lists.Count())}) + "\n" +
                   RemarksOn(read, options, say),
               options.output);
  return ExitCode::Done;
}

}  // namespace velmora::cli
