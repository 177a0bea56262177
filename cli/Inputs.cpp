#include "cli/Inputs.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "cli/Given.h"
#include "cultivation/ConditionsFile.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "data/ExperimentFile.h"
#include "data/FileText.h"
#include "estimation/Objective.h"
#include "estimation/ResultTexts.h"
#include "inference/DataChecks.h"
#include "kinetics/ModelCurves.h"
#include "language/Message.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kBetween = ", ";

/// Line `number` (from 1) of a text, whose lines end in CR LF, LF or CR, without leading blanks.
std::string LineOf(std::string_view text, int number) {
  std::string_view rest = text;
  std::string_view line;
  for (int i = 1; i <= number; ++i) {
    line = rest.substr(0, rest.find_first_of("\r\n"));
    rest.remove_prefix(line.size());
    if (!rest.empty()) rest.remove_prefix(rest.starts_with("\r\n") ? 2 : 1);
  }
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return std::string(line);
}

/// The file's bytes. Throws a `Failure` (File) where it cannot be read, or is the other kind.
std::string LoadBytes(const std::string& path, FileKind wanted, const Console& console) {
  std::string bytes = console.Read(path);
  const FileKind kind = KindOf(bytes);
  const TextId other =
      wanted == FileKind::Experiments ? TextId::ExperimentsWanted : TextId::ConditionsWanted;
  if (kind != wanted && kind != FileKind::Unknown)
    throw Failure{ExitCode::File, console.say(other), {path, 2}};
  return bytes;
}

CultivationConditions ConditionsIn(std::string_view bytes, const std::string& path,
                                   const Wording& say) {
  ConditionsRead read = ReadConditionsBytes(bytes, path);
  RequireDone(read.fault, say);
  return std::move(read.conditions);
}

}  // namespace

FileKind KindOf(std::string_view bytes) {
  const std::string title = LineOf(DecodeFile(bytes).text, 2);
  if (title == kExperimentsTitle) return FileKind::Experiments;
  // Many an editor writes UTF-8 without a mark.
  const bool conditions = title == kConditionsTitle || LineOf(bytes, 2) == kConditionsTitle;
  return conditions ? FileKind::Conditions : FileKind::Unknown;
}

bool HasBatchLine(std::string_view bytes) {
  return LineOf(DecodeFile(bytes).text, 3) == kBatchLine;
}

ExperimentLists LoadExperiments(const std::string& path, const Console& console) {
  return ExperimentsIn(LoadBytes(path, FileKind::Experiments, console), path, console.say);
}

ExperimentLists ExperimentsIn(std::string_view bytes, const std::string& path, const Wording& say) {
  ExperimentLists lists;
  const ExperimentsRead read = ReadExperimentBytes(bytes, path, lists);
  RequireDone(read.fault, say);
  return lists;
}

Inputs LoadInputs(const InputOptions& options, const Console& console) {
  const Given given = GivenBy(options.model, options.set, options.fit, console.say);
  if (options.experiments == kStandard && options.conditions == kStandard)
    throw Failure{ExitCode::Usage, console.say(TextId::StandardInputTwice)};
  const auto& [experiments, conditions] = std::tie(options.experiments, options.conditions);
  const std::string experimentBytes = LoadBytes(experiments, FileKind::Experiments, console);
  Inputs inputs{ExperimentsIn(experimentBytes, experiments, console.say),
                {},
                {ReadFileOf(experiments, experimentBytes)}};
  if (conditions.empty()) return inputs;
  const std::string conditionBytes = LoadBytes(conditions, FileKind::Conditions, console);
  inputs.conditions = ConditionsIn(conditionBytes, conditions, console.say);
  inputs.files.push_back(ReadFileOf(conditions, conditionBytes));
  for (const UnitChange& change : UnitChanges(inputs.conditions, given))
    console.Warn(console.say(TextId::KeptInOtherUnit,
                             {change.name, change.before, change.model, change.now}));
  PutInto(inputs.conditions, given, options.fits, console.say);
  return inputs;
}

Provenance ProvenanceOf(const Inputs& inputs, const Console& console) {
  Provenance made{console.Options().arguments, inputs.files};
  if (!console.Options().timed) made.start.reset();
  return made;
}

void RequireRoom(int experiments, const Wording& say) {
  if (experiments <= kMostExperiments) return;
  throw Failure{ExitCode::Refused,
                say(TextId::TooManyExperiments,
                    {std::to_string(experiments), std::to_string(kMostExperiments)})};
}

void RequireCultivation(const Inputs& inputs, const Wording& say) {
  RequireRoom(inputs.Count(), say);
  if (const auto refusal = RefuseRun(inputs.lists.Experiments(), inputs.conditions))
    throw Failure{ExitCode::Refused, say.Of(*refusal)};
  for (int place = 1; place <= inputs.Count(); ++place) {
    const int number = inputs.lists.At(place).number;
    const int stored = inputs.conditions.At(place).number;
    if (number != stored)
      throw Failure{ExitCode::Refused,
                    say(TextId::NumbersDiffer,
                        {std::to_string(place), std::to_string(number), std::to_string(stored)})};
  }
}

void WarnOfImpossible(const ExperimentLists& lists, const Console& console) {
  for (const Remark& remark : CheckPossible(lists.Experiments()))
    console.Warn(Worded(remark, console.say.In()));
}

void WarnOfUnscaled(const ExperimentLists& lists, const Console& console) {
  for (int place = 1; place <= lists.Count(); ++place) {
    const Experiment& experiment = lists.At(place);
    using Named = std::pair<const char*, const std::vector<double>*>;
    for (const auto& [name, values] :
         {Named{"Cx", &experiment.Cx}, Named{"Cs", &experiment.Cs}, Named{"Cp", &experiment.Cp}})
      if (Objective::NormalisationScale(*values) == 0)
        console.Warn(std::string(kNotNormalised) +
                     console.say(TextId::UnscaledAt, {std::to_string(place), name}));
  }
}

std::string Describe(const ArithmeticFault& fault, const Inputs& inputs, const Wording& say) {
  const int number = fault.place == 0 ? 0 : inputs.lists.At(fault.place).number;
  std::string text = FaultDescription(fault, number, say.In());
  if (fault.place == 0 || fault.point == 0) return text;
  const double duration = inputs.conditions.At(fault.place).row[At::T];
  const double time = duration / (kModelPoints - 1) * (fault.point - 1);
  return text + ", t = " + Formatted(time, kFour, '.') + " h";
}

std::string ModelNames(const ConditionsRecord& record, const std::vector<FitVariable>& fitted) {
  if (const Model* model = RecognisedModel(record, fitted)) return std::string(model->name);
  std::string names;
  for (const Model* model : ModelsOf(VectorOf(record.row), PositionsOf(fitted)))
    Join(names, model->name, kBetween);
  return names;
}

}  // namespace velmora::cli
