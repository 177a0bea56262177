#include "cli/CheckCommand.h"

#include "cli/FileKind.h"
#include "cli/Inputs.h"
#include "cultivation/ConditionsFile.h"
#include "cultivation/FitSetUp.h"
#include "data/ExperimentFile.h"
#include "data/SafeSave.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

std::string ExperimentsReport(const CheckOptions& options, std::string_view bytes,
                              const Wording& say) {
  ExperimentLists lists;
  const ExperimentsRead read = ReadExperimentBytes(bytes, options.file, lists);
  if (read.fault) throw Failure{ExitCode::File, say.Of(*read.fault)};
  std::string text =
      say(TextId::IsExperiments, {options.file, std::to_string(lists.Count())}) + "\n";
  for (int place = 1; place <= lists.Count(); ++place) {
    const Experiment& experiment = lists.At(place);
    text +=
        say(TextId::ExperimentLine, {std::to_string(place), std::to_string(experiment.number),
                                     std::to_string(experiment.Points()),
                                     ShortestText(experiment.finalTime), experiment.description}) +
        "\n";
  }
  return text;
}

std::string RecordLine(int place, const ConditionsRead& read, const Wording& say) {
  const ConditionsRecord& record = read.conditions.At(place);
  const std::string models = ModelNames(record, read.conditions.fitted);
  const bool global = record.row[At::Fp] == 0;
  return say(TextId::ConditionsLine,
             {std::to_string(place), std::to_string(record.number),
              models.empty() ? say(TextId::NoCatalogueModel) : models, record.options.method,
              record.options.production,
              say(global ? TextId::GlobalYields : TextId::StoichiometricYields)}) +
         "\n";
}

std::string FittedLines(const CultivationConditions& conditions, const Wording& say) {
  std::string text;
  for (const auto& [position, lower, upper, start] :
       StartingFrom(conditions.At(1).row, conditions.fitted)) {
    text += say(TextId::FittedLine, {ParameterAt(position).name, ShortestText(start),
                                     ShortestText(lower), ShortestText(upper)}) +
            "\n";
  }
  return text.empty() ? say(TextId::NoParameterFitted) + "\n" : text;
}

std::string ConditionsReport(const CheckOptions& options, std::string_view bytes,
                             const Wording& say) {
  const ConditionsRead read = ReadConditionsBytes(bytes, options.file);
  if (read.fault) throw Failure{ExitCode::File, say.Of(*read.fault)};
  std::string text =
      say(TextId::IsConditions, {options.file, std::to_string(read.experiments)}) + "\n";
  if (read.experiments == 0)
    return HasBatchLine(bytes) ? text : text + say(TextId::NoBatchLine) + "\n";
  for (int place = 1; place <= read.experiments; ++place) text += RecordLine(place, read, say);
  return text + FittedLines(read.conditions, say);
}

}  // namespace

ExitCode Run(const CheckOptions& options, const Console& console) {
  const FileBytes file = ReadWholeFile(options.file);
  if (file.fault) throw Failure{ExitCode::File, console.say.Of(*file.fault)};
  switch (KindOf(file.bytes)) {
    case FileKind::Experiments:
      console.Print(ExperimentsReport(options, file.bytes, console.say));
      break;
    case FileKind::Conditions:
      console.Print(ConditionsReport(options, file.bytes, console.say));
      break;
    case FileKind::Unknown:
      throw Failure{ExitCode::File,
                    PlaceInFile(options.file, 2) + console.say(TextId::NeitherFile)};
  }
  return ExitCode::Done;
}

}  // namespace velmora::cli
