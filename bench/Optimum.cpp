// How near the searches come to the best known score, over synthetic problems.
//   velmora-optimum FIRST COUNT NOISE [SEEDS]
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

#include "bench/SyntheticFermentations.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/Marquardt.h"
#include "estimation/UniformGenerator.h"
#include "kinetics/Modelos.h"

namespace velmora {
namespace {

struct Ran {
  double score = std::numeric_limits<double>::infinity();
  double calls = 0, seconds = 0;
};

template <class Run>
Ran Timed(Run run) {
  const auto began = std::chrono::steady_clock::now();
  const SearchResult result = run();
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  return {result.HasResult() ? result.score : std::numeric_limits<double>::infinity(),
          static_cast<double>(result.functionCalls), seconds};
}

/// The best of a start at the truth and its surroundings.
double FromTruth(const SyntheticFermentation& made) {
  FitProblem problem = made.problem;
  for (std::size_t j = 0; j < made.truth.size(); ++j) problem.variables[j].start = made.truth[j];
  SearchObserver silent;
  return SearchMarquardt(problem, {77, 60'000}, silent).score;
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  using namespace velmora;
  const int first = argc > 1 ? std::atoi(argv[1]) : 0, count = argc > 2 ? std::atoi(argv[2]) : 20;
  const double noise = argc > 3 ? std::atof(argv[3]) : 0.03;
  const int seeds = argc > 4 ? std::atoi(argv[4]) : 3;
  SearchObserver silent;
  struct Sum {
    double calls = 0, seconds = 0;
    int near4 = 0, near2 = 0, near1 = 0;
  };
  Sum lm, de, ten;
  const auto add = [](Sum& sum, const Ran& ran, double best, double perfect) {
    const double excess = ran.score <= perfect ? 0 : ran.score / best - 1;
    sum.near4 += excess <= 1e-4, sum.near2 += excess <= 1e-2, sum.near1 += excess <= 0.1;
    sum.calls += ran.calls, sum.seconds += ran.seconds;
  };
  for (int i = first; i < first + count; ++i) {
    const SyntheticFermentation made = MakeFermentation(i, noise);
    const Ran one = Timed([&] { return SearchMarquardt(made.problem, {5471, 60'000}, silent); });
    double best = std::min(one.score, FromTruth(made));
    for (int s = 1; s < seeds; ++s)
      best = std::min(best, SearchMarquardt(made.problem, {5471 + s, 60'000}, silent).score);
    EstimationSettings settings;
    const Ran stated = Timed([&] { return Search(made.problem, settings, silent); });
    Ran tenSeeds;
    for (int s = 0; s < 10; ++s) {
      settings.IU = 1000 + s;
      const Ran ran = Timed([&] { return Search(made.problem, settings, silent); });
      tenSeeds.score = std::min(tenSeeds.score, ran.score);
      tenSeeds.calls += ran.calls, tenSeeds.seconds += ran.seconds;
    }
    const double perfect = 1e-12 * static_cast<double>(Objective(made.problem).Scored());
    add(lm, one, best, perfect), add(de, stated, best, perfect), add(ten, tenSeeds, best, perfect);
    const double excess = one.score <= perfect ? 0 : one.score / best - 1;
    std::printf("%4d %-24s e%zu D%zu best %.6g lm %+.1e calls %.0f  de x%.2f ten x%.2f\n", i,
                std::string(made.model->name).c_str(), made.problem.experiments.size(),
                made.truth.size(), best, excess, one.calls, stated.score / best,
                tenSeeds.score / best);
    std::fflush(stdout);
  }
  const auto print = [&](const char* name, const Sum& sum) {
    std::printf("%-12s 1e-4 %.1f%%  1%% %.1f%%  10%% %.1f%%  calls %.0f  %.3f s\n", name,
                100.0 * sum.near4 / count, 100.0 * sum.near2 / count, 100.0 * sum.near1 / count,
                sum.calls / count, sum.seconds / count);
  };
  print("Marquardt", lm), print("stated", de), print("ten seeds", ten);
}
