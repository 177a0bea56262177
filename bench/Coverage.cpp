// How often an interval of 95 % holds the true value, over data sets made with known parameters.
//   velmora-coverage [SETS [REPLICATES [MODEL...]]]
// The bootstrap, which costs most, is made for a hundred of the sets.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "estimation/Descent.h"
#include "inference/Intervals.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

constexpr int kPoints = 13;
constexpr int kResampled = 100;
constexpr double kNoise = 0.03;
constexpr double kRoom = 30;  // the bounds lie this many times below and above the true value

/// Two cultivations whose concentrations pass through the range in which every parameter acts.
std::vector<KineticParameters> BatchesOf(const Model& model) {
  KineticParameters p;
  p[At::Cx0] = 1, p[At::Cs0] = 90, p[At::Cp0] = 0.5;
  p[At::Yxs] = 0.2, p[At::alpha] = 2, p[At::Yps] = 1;
  p[At::muMax] = 0.4, p[At::Ks] = 12, p[At::Kis] = 60;
  if (model.substrate == SubstrateTerm::Contois) p[At::Ks] = 3;
  p[At::Kip] = model.product == ProductTerm::Aiba ? 0.03 : 20;
  p[At::CxAst] = 25, p[At::CpAst] = 45, p[At::m] = 1, p[At::n] = 1;
  p[At::u] = 1.5, p[At::v] = 1.5;
  SetModelSwitches(model, p);
  std::vector<KineticParameters> batches;
  for (const double Cs0 : {90.0, 45.0}) {
    p[At::Cs0] = Cs0;
    p[At::T] = 1.1 * test::GrowthTime(p);
    batches.push_back(p);
  }
  return batches;
}

std::vector<FitVariable> VariablesOf(const Model& model, const KineticParameters& truth) {
  std::vector<FitVariable> variables;
  for (const Parameter& parameter : kFittable) {
    const double value = truth[parameter.position];
    if (Uses(model, parameter.position))
      variables.push_back({parameter.position, value / kRoom, value * kRoom, value});
  }
  return variables;
}

/// The optimum beside the true values.
std::vector<double> BestOf(const FitProblem& problem) {
  Landscape landscape(problem, std::numeric_limits<std::int32_t>::max(), [] { return false; });
  std::vector<double> truth;
  for (const FitVariable& variable : problem.variables) truth.push_back(variable.start);
  Descent descent = BeginDescent(landscape.PlaceOf(truth), landscape);
  Descend(descent, 200, landscape);
  return landscape.CandidateAt(descent.at);
}

struct Tally {
  int held = 0, of = 0;

  void Add(const Interval& interval, double truth) {
    ++of;
    held += (!interval.lower || *interval.lower <= truth) &&
            (!interval.upper || *interval.upper >= truth);
  }
};

struct Tallies {
  Tally linear, profile, bootstrap;
  int undetermined = 0;
};

/// Counts only parameters that the data determine: both sides of their profile are closed.
void Count(const FitProblem& problem, int replicates, Tallies& tallies) {
  const std::vector<double> best = BestOf(problem);
  const Intervals linear = LinearIntervals(problem, best);
  const Intervals profile = ProfileIntervals(problem, best);
  Intervals bootstrap;
  if (replicates > 0)
    bootstrap = BootstrapIntervals(problem, best, replicates, 5471, [] { return false; });
  for (std::size_t j = 0; j < best.size(); ++j) {
    const double truth = problem.variables[j].start;
    if (!profile.of[j].lower || !profile.of[j].upper) {
      ++tallies.undetermined;
      continue;
    }
    tallies.linear.Add(linear.of[j], truth);
    tallies.profile.Add(profile.of[j], truth);
    if (replicates > 0) tallies.bootstrap.Add(bootstrap.of[j], truth);
  }
}

void Print(const char* name, const Tally& tally) {
  const double share = static_cast<double>(tally.held) / std::max(1, tally.of);
  const double error = std::sqrt(share * (1 - share) / std::max(1, tally.of));
  std::printf("  %s %5.1f +/- %.1f %%", name, 100 * share, 100 * error);
}

void Measure(const Model& model, bool proportional, int sets, int replicates) {
  const std::vector<KineticParameters> rows = BatchesOf(model);
  Tallies tallies;
  FitProblem problem{{}, rows, VariablesOf(model, rows.front())};
  for (int set = 0; set < sets; ++set) {
    test::Dice dice(static_cast<unsigned>(set) + 1);
    problem.experiments.clear();
    for (const KineticParameters& row : rows)
      problem.experiments.push_back(
          test::Measured(row, kPoints, kNoise, dice,
                         proportional ? test::Noise::Proportional : test::Noise::Uncut));
    const bool resampled = set % std::max(1, sets / kResampled) == 0;
    Count(problem, resampled ? replicates : 0, tallies);
  }
  std::printf("%-20s D %zu", std::string(model.name).c_str(), problem.variables.size());
  Print("linear", tallies.linear);
  Print("profile", tallies.profile);
  Print("bootstrap", tallies.bootstrap);
  std::printf("  not determined %d\n", tallies.undetermined);
  std::fflush(stdout);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  using namespace velmora;
  const int sets = argc > 1 ? std::atoi(argv[1]) : 1000;
  const int replicates = argc > 2 ? std::atoi(argv[2]) : kReplicates;
  std::vector<std::string> names = {"Monod",   "Contois",      "Moser",
                                    "Andrews", "Andrews-Aiba", "Andrews-Levenspiel"};
  if (argc > 3) names.assign(argv + 3, argv + argc);
  for (const bool proportional : {false, true}) {
    std::printf("noise of %.0f %% of %s\n", 100 * kNoise,
                proportional ? "each value" : "the highest value");
    for (const std::string& name : names) Measure(*FindModel(name), proportional, sets, replicates);
  }
}
