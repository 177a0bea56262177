// velmora-cli score, simulate and export: what the values in the conditions come to.
#include <algorithm>
#include <cmath>

#include "cli/Commands.h"
#include "cli/Json.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/Simulation.h"
#include "estimation/Objective.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr Decimals kEight{8, 8};

std::string TableOf(const SimulatedFit& fit, const ExperimentLists& lists, const Wording& say) {
  constexpr std::size_t kWidth = 14;
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

struct Simulation {
  Inputs inputs;
  ModelCurves curves{};
  std::vector<ArithmeticFault> faults;

  /// The curves that met no fault, with `points` points, or as computed where that is 0.
  std::vector<PlacedCurve> Whole(int points) const;
};

std::vector<PlacedCurve> Simulation::Whole(int points) const {
  std::vector<PlacedCurve> whole;
  for (int place = 1; place <= inputs.Count(); ++place)
    if (std::none_of(faults.begin(), faults.end(),
                     [=](const ArithmeticFault& fault) { return fault.place == place; }))
      whole.push_back(CurveAt(place, inputs.lists.At(place).number,
                              curves[static_cast<std::size_t>(place) - 1], points));
  return whole;
}

/// Simulates all experiments and reports the faults.
Simulation Simulate(const InputOptions& options, const Console& console) {
  Simulation run{LoadInputs(options, console), {}, {}};
  RequireCultivation(run.inputs, console.say);
  run.faults = Manual(run.inputs.conditions, run.inputs.Count(), run.curves);
  for (const ArithmeticFault& fault : run.faults)
    console.Complain(Describe(fault, run.inputs, console.say));
  return run;
}

ExitCode CodeOf(const Simulation& run) {
  return run.faults.empty() ? ExitCode::Done : ExitCode::Arithmetic;
}

/// Four decimals, or the shortest text of a number that is too long for its column.
std::string Cell(double value) {
  constexpr double kLong = 1e6;
  return std::abs(value) < kLong ? Formatted(value, kFour, '.') : ShortestText(value);
}

std::string ColumnsOf(const PlacedCurve& curve) {
  constexpr std::size_t kWidth = 12;
  std::string text;
  for (const auto* heading : {"t (h)", "Cx (g/L)", "Cs (g/L)", "Cp (g/L)"})
    text += Right(heading, kWidth);
  text += "\n";
  for (std::size_t i = 0; i < curve.time.size(); ++i) {
    for (const auto* series : {&curve.time, &curve.Cx, &curve.Cs, &curve.Cp})
      text += " " + Right(Cell((*series)[i]), kWidth - 1);
    text += "\n";
  }
  return text + "\n";
}

std::string TextOf(const std::vector<PlacedCurve>& curves, const Wording& say) {
  std::string text;
  for (const PlacedCurve& curve : curves)
    text += say(TextId::ExperimentHeading,
                {std::to_string(curve.number), std::to_string(curve.place)}) +
            "\n" + ColumnsOf(curve);
  return text;
}

}  // namespace

ExitCode Run(const ScoreOptions& options, const Console& console) {
  const Inputs inputs = LoadInputs(options.inputs, console);
  RequireCultivation(inputs, console.say);
  WarnOfUnscaled(inputs.lists, console);
  try {
    const SimulatedFit fit =
        Objective(ProblemOf(inputs.lists.Experiments(), inputs.conditions)).Simulate({});
    console.Print(options.json ? JsonOf(fit, inputs.lists, ProvenanceOf(inputs, console))
                               : TableOf(fit, inputs.lists, console.say));
  } catch (const ArithmeticFault& fault) {
    throw Failure{ExitCode::Arithmetic, Describe(fault, inputs, console.say)};
  }
  return ExitCode::Done;
}

namespace {

/// The curves in the form that was asked for; nothing where that is the command's own text.
std::optional<std::string> InFormat(const CurveOptions& options, const Simulation& run,
                                    const Console& console) {
  const std::vector<PlacedCurve> curves = run.Whole(options.points);
  if (options.json || options.format == "json")
    return JsonOf(curves, ProvenanceOf(run.inputs, console));
  if (options.format == "csv") return TableOf(curves, ',');
  if (options.format == "tsv") return TableOf(curves, '\t');
  return std::nullopt;
}

}  // namespace

ExitCode Run(const SimulateOptions& options, const Console& console) {
  const Simulation run = Simulate(options.inputs, console);
  const auto text = InFormat(options, run, console);
  console.Print(text ? *text : TextOf(run.Whole(options.points), console.say));
  return CodeOf(run);
}

ExitCode Run(const ExportOptions& options, const Console& console) {
  const bool ownText = !options.json && options.format.empty();
  if (options.points != 0 && ownText)
    throw Failure{ExitCode::Usage, console.say(TextId::PointsNeedFormat)};
  const Simulation run = Simulate(options.inputs, console);
  if (!run.faults.empty()) return CodeOf(run);
  const auto text = InFormat(options, run, console);
  console.Print(text ? *text : ExportarDados(run.curves, run.inputs.Count(), '.'));
  return CodeOf(run);
}

}  // namespace velmora::cli
