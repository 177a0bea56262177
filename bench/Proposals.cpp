// How often the look at the data errs, and how often proposed bounds hold the truth, over synthetic
// fermentations of all models.
//   velmora-proposals [SEEDS]
#include <cstdio>
#include <cstdlib>

#include "inference/DataChecks.h"
#include "inference/Proposal.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

/// Calls `visit(model, problem)` for `seeds` fermentations of every model; returns how many.
template <class Visit>
int ForEach(unsigned seeds, double noise, Visit&& visit) {
  int count = 0;
  for (const Model& model : kModels)
    for (unsigned seed = 1; seed <= seeds; ++seed, ++count)
      visit(model, test::Fermentations(model, seed, noise));
  return count;
}

void FalseAlarms(unsigned seeds, double noise) {
  int told = 0;
  const int sets = ForEach(seeds, noise, [&](const Model&, const FitProblem& problem) {
    told += !CheckData(problem.experiments).empty();
  });
  std::printf("noise %2.0f %%: %d of %d sets remarked on\n", 100 * noise, told, sets);
}

/// One inner value of each set is moved by `slip` times the largest of its variable.
void FoundSlips(unsigned seeds, double slip) {
  test::Dice dice(1);
  int found = 0;
  const int sets = ForEach(seeds, 0.03, [&](const Model&, FitProblem problem) {
    Experiment& experiment = problem.experiments.front();
    std::vector<double>* const series[] = {&experiment.Cx, &experiment.Cs, &experiment.Cp};
    std::vector<double>& values = *series[static_cast<int>(dice.Uniform(0, 3))];
    const auto k = static_cast<std::size_t>(dice.Uniform(1, experiment.Points() - 1));
    const double moved = slip * *std::max_element(values.begin(), values.end());
    values[k] += values[k] > moved ? -moved : moved;
    for (const Remark& remark : CheckData({&experiment, 1}))
      if (remark.kind == RemarkKind::FarOff && remark.row == static_cast<int>(k) + 1)
        return void(++found);
  });
  std::printf("slip of %2.0f %% of the largest value: found in %d of %d\n", 100 * slip, found,
              sets);
}

void HeldTruths(unsigned seeds, double noise) {
  int held = 0, parameters = 0, inside = 0;
  const int sets = ForEach(seeds, noise, [&](const Model& model, const FitProblem& problem) {
    int outside = 0;
    for (const FitVariable& range : FittedOf(ProposeRanges(problem.experiments, model))) {
      const double truth = problem.rows.front()[range.position];
      outside += truth < range.lower || truth > range.upper;
      ++parameters, ++inside;
    }
    inside -= outside;
    held += outside == 0;
  });
  std::printf("noise %2.0f %%: bounds hold %d of %d parameters, all of them in %d of %d sets\n",
              100 * noise, inside, parameters, held, sets);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  const unsigned seeds = argc > 1 ? static_cast<unsigned>(std::atoi(argv[1])) : 100;
  for (const double noise : {0.0, 0.03, 0.1}) velmora::FalseAlarms(seeds, noise);
  for (const double slip : {0.2, 0.3, 0.5}) velmora::FoundSlips(seeds, slip);
  for (const double noise : {0.0, 0.03, 0.1}) velmora::HeldTruths(seeds, noise);
}
