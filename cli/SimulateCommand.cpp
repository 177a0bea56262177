#include "cli/SimulateCommand.h"

#include <algorithm>
#include <cmath>

#include "cli/Columns.h"
#include "cli/Json.h"
#include "cultivation/Simulation.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

struct Simulation {
  Inputs inputs;
  ModelCurves curves{};
  std::vector<ArithmeticFault> faults;

  const ModelCurve& Curve(int place) const { return curves[static_cast<std::size_t>(place - 1)]; }
  bool Failed(int place) const {
    return std::any_of(faults.begin(), faults.end(),
                       [=](const ArithmeticFault& fault) { return fault.place == place; });
  }
};

/// Simulates all experiments and reports the faults.
Simulation Simulate(const InputOptions& options, const Console& console) {
  Simulation run{LoadInputs(options, console.say), {}, {}};
  RequireCultivation(run.inputs, console.say);
  run.faults = Manual(run.inputs.conditions, run.inputs.Count(), run.curves);
  for (const ArithmeticFault& fault : run.faults)
    console.Complain(Describe(fault, run.inputs, console.say));
  return run;
}

ExitCode CodeOf(const Simulation& run) {
  return run.faults.empty() ? ExitCode::Done : ExitCode::Arithmetic;
}

std::string JsonOf(int place, int number, const ModelCurve& curve) {
  return json::Object({{"place", json::Number(place)},
                       {"number", json::Number(number)},
                       {"time", json::Numbers(curve.time)},
                       {"Cx", json::Numbers(curve.Cx)},
                       {"Cs", json::Numbers(curve.Cs)},
                       {"Cp", json::Numbers(curve.Cp)}});
}

/// Four decimals, or the shortest text of a number that is too long for its column.
std::string Cell(double value) {
  constexpr double kLong = 1e6;
  return std::abs(value) < kLong ? Formatted(value, kFour, '.') : ShortestText(value);
}

std::string TableOf(const ModelCurve& curve) {
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

}  // namespace

ExitCode Run(const SimulateOptions& options, const Console& console) {
  const Simulation run = Simulate(options.inputs, console);
  std::vector<std::string> members;
  std::string text;
  for (int place = 1; place <= run.inputs.Count(); ++place) {
    if (run.Failed(place)) continue;
    const int number = run.inputs.lists.At(place).number;
    members.push_back(JsonOf(place, number, run.Curve(place)));
    text +=
        console.say(TextId::ExperimentHeading, {std::to_string(number), std::to_string(place)}) +
        "\n" + TableOf(run.Curve(place));
  }
  console.Print(options.json ? json::Object({{"experiments", json::Array(members)}}) + "\n" : text);
  return CodeOf(run);
}

ExitCode Run(const ExportOptions& options, const Console& console) {
  const Simulation run = Simulate(options.inputs, console);
  if (run.faults.empty()) console.Print(ExportarDados(run.curves, run.inputs.Count(), '.'));
  return CodeOf(run);
}

}  // namespace velmora::cli
