// velmora-cli models and check: the catalogue, and what files hold.
#include "cli/Commands.h"
#include "cli/Given.h"
#include "cli/Json.h"
#include "cultivation/ConditionsFile.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/FitSetUp.h"
#include "data/ExperimentFile.h"
#include "inference/DataChecks.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

std::string ExperimentsReport(const CheckOptions& options, std::string_view bytes,
                              const Wording& say) {
  ExperimentLists lists;
  const ExperimentsRead read = ReadExperimentBytes(bytes, options.file, lists);
  RequireDone(read.fault, say);
  const std::vector<Remark> remarks = CheckData(lists.Experiments());
  if (options.json) return JsonOf(lists, remarks, say);
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
  if (const auto repeated = TellRepeatedNumbers(lists)) text += say.Of(*repeated) + "\n";
  for (const Remark& remark : remarks) text += Worded(remark, say.In()) + "\n";
  return text;
}

std::string YieldsText(const ConditionsRow& row, const Wording& say) {
  switch (YieldsOf(row)) {
    case Yields::Global:
      return say(TextId::GlobalYields);
    case Yields::Stoichiometric:
      return say(TextId::StoichiometricYields);
    case Yields::None:
      break;
  }
  return "Fp = " + ShortestText(row[At::Fp]);
}

std::string RecordLine(int place, const ConditionsRead& read, const Wording& say) {
  const ConditionsRecord& record = read.conditions.At(place);
  const std::string models = ModelNames(record, read.conditions.fitted);
  return say(TextId::ConditionsLine,
             {std::to_string(place), std::to_string(record.number),
              models.empty() ? say(TextId::NoCatalogueModel) : models, record.options.method,
              record.options.production, YieldsText(record.row, say)}) +
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
  RequireDone(read.fault, say);
  if (options.json) return JsonOf(read);
  std::string text =
      say(TextId::IsConditions, {options.file, std::to_string(read.experiments)}) + "\n";
  if (read.experiments == 0)
    return HasBatchLine(bytes) ? text : text + say(TextId::NoBatchLine) + "\n";
  for (int place = 1; place <= read.experiments; ++place) text += RecordLine(place, read, say);
  text += FittedLines(read.conditions, say);
  for (const FileFault& remark : read.remarks) text += say.Of(remark) + "\n";
  return text;
}

}  // namespace

ExitCode Run(const ModelsOptions& options, const Console& console) {
  if (options.json) {
    console.Print(JsonOfModels());
    return ExitCode::Done;
  }
  constexpr std::size_t kNameWidth = 24;
  constexpr std::size_t kParametersWidth = 39;
  const auto line = [](std::string_view name, std::string_view parameters, std::string_view rate) {
    return Left(name, kNameWidth) + Left(parameters, kParametersWidth) + std::string(rate) + "\n";
  };
  std::string text = line(console.say(TextId::ModelHeading), console.say(TextId::ParametersHeading),
                          console.say(TextId::EquationHeading));
  for (const Model& model : kModels)
    text += line(model.name, ParameterNames(model), Equation(model));
  console.Print(text);
  return ExitCode::Done;
}

ExitCode Run(const CheckOptions& options, const Console& console) {
  const std::string bytes = console.Read(options.file);
  switch (KindOf(bytes)) {
    case FileKind::Experiments:
      console.Print(ExperimentsReport(options, bytes, console.say));
      break;
    case FileKind::Conditions:
      console.Print(ConditionsReport(options, bytes, console.say));
      break;
    case FileKind::Unknown:
      throw Failure{ExitCode::File, console.say(TextId::NeitherFile), {options.file, 2}};
  }
  return ExitCode::Done;
}

}  // namespace velmora::cli
