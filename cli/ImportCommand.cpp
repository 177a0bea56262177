#include "cli/ImportCommand.h"

#include "cli/Inputs.h"
#include "data/CsvTable.h"
#include "data/ExperimentFile.h"
#include "data/MeasuredTable.h"
#include "data/SafeSave.h"

namespace velmora::cli {
namespace {

[[noreturn]] void Refuse(const TableFault& fault, const std::string& path, const Wording& say) {
  if (fault.text == TextId::NoSuchLabel)
    throw Failure{ExitCode::Refused,
                  say(fault.text, {path, fault.arguments.at(0), fault.arguments.at(1)})};
  throw Failure{ExitCode::File, PlaceInFile(path, fault.line) + FaultReason(fault, say.In())};
}

}  // namespace

ExitCode Run(const ImportOptions& options, const Console& console) {
  RequireOtherFile(options.table, options.output, console.say);
  const FileBytes file = ReadWholeFile(options.table);
  if (file.fault) throw Failure{ExitCode::File, console.say.Of(*file.fault)};
  const TableRead table = ReadTable(file.bytes, options.only);
  if (table.fault) Refuse(*table.fault, options.table, console.say);
  if (const auto fault = WriteExperiments(table.lists, options.output))
    throw Failure{ExitCode::File, console.say.Of(*fault)};
  console.Print(
      console.say(TextId::Written, {options.output, std::to_string(table.lists.Count())}) + "\n");
  return ExitCode::Done;
}

}  // namespace velmora::cli
