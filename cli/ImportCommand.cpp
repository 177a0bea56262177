#include "cli/ImportCommand.h"

#include "cli/CsvTable.h"
#include "cli/Inputs.h"
#include "cli/MeasuredTable.h"
#include "data/ExperimentFile.h"
#include "data/SafeSave.h"

namespace velmora::cli {

ExitCode Run(const ImportOptions& options, const Console& console) {
  RequireOtherFile(options.table, options.output, console.say);
  const FileBytes file = ReadWholeFile(options.table);
  if (file.fault) throw Failure{ExitCode::File, console.say.Of(*file.fault)};
  const CsvTable table = ParseCsv(file.bytes, options.table, console.say);
  const ExperimentLists lists = ExperimentsOf(table, options.only, options.table, console.say);
  if (const auto fault = WriteExperiments(lists, options.output))
    throw Failure{ExitCode::File, console.say.Of(*fault)};
  console.Print(console.say(Phrase::Written, {options.output, std::to_string(lists.Count())}) +
                "\n");
  return ExitCode::Done;
}

}  // namespace velmora::cli
