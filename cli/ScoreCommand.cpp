#include "cli/ScoreCommand.h"

#include "cli/Assignments.h"
#include "cli/Columns.h"
#include "cli/Json.h"
#include "cli/Normalisation.h"
#include "cultivation/FitSetUp.h"
#include "estimation/Objective.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr Decimals kEight{8, 8};
constexpr std::size_t kWidth = 14;

void SetInEveryRow(const Assignment& assignment, Inputs& inputs, const Wording& say) {
  if (inputs.model != nullptr) RequireUse(*inputs.model, assignment.position, say);
  for (int place = 1; place <= inputs.Count(); ++place)
    inputs.conditions.At(place).row[assignment.position] = assignment.value;
}

std::string JsonOf(const SimulatedFit& fit, const ExperimentLists& lists) {
  std::vector<std::string> experiments;
  for (int place = 1; place <= lists.Count(); ++place) {
    const PerVariable<double>& share =
        fit.experiments.at(static_cast<std::size_t>(place) - 1).share;
    experiments.push_back(json::Object({{"place", json::Number(place)},
                                        {"number", json::Number(lists.At(place).number)},
                                        {"Cx", json::Number(share.Cx)},
                                        {"Cs", json::Number(share.Cs)},
                                        {"Cp", json::Number(share.Cp)}}));
  }
  return json::Object(
             {{"score", json::Number(fit.score)}, {"experiments", json::Array(experiments)}}) +
         "\n";
}

std::string TableOf(const SimulatedFit& fit, const ExperimentLists& lists, const Wording& say) {
  std::string text = Left(say(TextId::ExperimentColumn), kWidth);
  for (const std::string_view heading : {"Cx", "Cs", "Cp"}) text += Right(heading, kWidth);
  text += Right(say(TextId::Sum), kWidth) + "\n";
  for (int place = 1; place <= lists.Count(); ++place) {
    const auto& [Cx, Cs, Cp] = fit.experiments.at(static_cast<std::size_t>(place) - 1).share;
    text += Left(std::to_string(lists.At(place).number), kWidth);
    for (const double value : {Cx, Cs, Cp, Cx + Cs + Cp})
      text += Right(Formatted(value, kEight, '.'), kWidth);
    text += "\n";
  }
  return text + say(TextId::Score) + " = " + ShortestText(fit.score) + "\n";
}

}  // namespace

ExitCode Run(const ScoreOptions& options, const Console& console) {
  std::vector<Assignment> assignments;
  for (const std::string& text : options.set)
    assignments.push_back(FittableAssignment(text, console.say));
  Inputs inputs = LoadInputs(options.inputs, console.say);
  RequireCultivation(inputs, console.say);
  for (const Assignment& assignment : assignments) SetInEveryRow(assignment, inputs, console.say);

  WarnOfUnscaled(inputs.lists, console);
  try {
    const SimulatedFit fit =
        Objective(ProblemOf(inputs.lists.Experiments(), inputs.conditions)).Simulate({});
    console.Print(options.json ? JsonOf(fit, inputs.lists)
                               : TableOf(fit, inputs.lists, console.say));
  } catch (const ArithmeticFault& fault) {
    throw Failure{ExitCode::Arithmetic, Describe(fault, inputs, console.say)};
  }
  return ExitCode::Done;
}

}  // namespace velmora::cli
