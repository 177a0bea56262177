// How near the searches come to the best known score, over synthetic fermentations.
//   velmora-optimum [PROBLEMS [NOISE [FIRST]]]   noise as a share of the highest value
//   velmora-optimum quick                        60 problems with 3 %, without the stated search;
//                                                fails where Levenberg-Marquardt misses its aims
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "bench/SyntheticFermentations.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/Marquardt.h"

namespace velmora {
namespace {

constexpr int kQuickProblems = 60;
constexpr double kQuickNoise = 0.03;
constexpr double kClose = 1e-4, kNear = 1e-2, kFar = 0.1;  // above the best known score
constexpr double kPerfect = 1e-12;                         // score for each scored value
constexpr int kOtherSeeds = 2;                             // of Levenberg-Marquardt

struct Ran {
  double score = std::numeric_limits<double>::infinity();
  double evaluations = 0;
  double seconds = 0;

  void Add(const Ran& other) {
    score = std::min(score, other.score);
    evaluations += other.evaluations;
    seconds += other.seconds;
  }
};

template <class Method>
Ran Timed(Method method) {
  const auto began = std::chrono::steady_clock::now();
  const SearchResult result = method();
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - began;
  Ran ran{.evaluations = static_cast<double>(result.functionCalls), .seconds = seconds.count()};
  if (result.HasResult()) ran.score = result.score;
  return ran;
}

Ran Marquardt(const FitProblem& problem, std::int32_t seed) {
  SearchObserver silent;
  return Timed([&] { return SearchMarquardt(problem, {.IU = seed}, silent); });
}

Ran Evolution(const FitProblem& problem, std::int32_t seed) {
  SearchObserver silent;
  EstimationSettings settings;
  settings.IU = seed;
  return Timed([&] { return Search(problem, settings, silent); });
}

/// Levenberg-Marquardt that begins at the true values.
Ran FromTruth(const SyntheticFermentation& made) {
  FitProblem problem = made.problem;
  for (std::size_t j = 0; j < made.truth.size(); ++j) problem.variables[j].start = made.truth[j];
  return Marquardt(problem, 7777);
}

/// What a method came to over all problems.
struct Sum {
  int problems = 0, close = 0, near = 0, far = 0;
  double evaluations = 0, most = 0, seconds = 0;

  void Add(const Ran& ran, double best, double perfect) {
    const double excess = ran.score <= perfect ? 0 : ran.score / best - 1;
    ++problems;
    close += excess <= kClose, near += excess <= kNear, far += excess <= kFar;
    evaluations += ran.evaluations, seconds += ran.seconds;
    most = std::max(most, ran.evaluations);
  }

  double Share(int count) const { return 100.0 * count / problems; }
  double MeanEvaluations() const { return evaluations / problems; }

  void Print(const char* name) const {
    std::printf(
        "%-24s within 0.01 %%: %5.1f %%  1 %%: %5.1f %%  10 %%: %5.1f %%  "
        "evaluations %.0f (most %.0f)  %.3f s\n",
        name, Share(close), Share(near), Share(far), MeanEvaluations(), most, seconds / problems);
  }
};

Sum Measure(int first, int count, double noise, bool evolves) {
  Sum marquardt, evolution, tenSeeds;
  for (int number = first; number < first + count; ++number) {
    const SyntheticFermentation made = MakeFermentation(number, noise);
    const FitProblem& problem = made.problem;
    const Ran one = Marquardt(problem, 5471);
    double best = std::min(one.score, FromTruth(made).score);
    for (int other = 1; other <= kOtherSeeds; ++other)
      best = std::min(best, Marquardt(problem, 5471 + other).score);
    Ran stated, ten;
    if (evolves) {
      stated = Evolution(problem, 5471);
      for (int seed = 0; seed < 10; ++seed) ten.Add(Evolution(problem, 1000 + seed));
    }
    best = std::min({best, stated.score, ten.score});
    const double perfect = kPerfect * static_cast<double>(Objective(problem).Scored());
    marquardt.Add(one, best, perfect);
    evolution.Add(stated, best, perfect);
    tenSeeds.Add(ten, best, perfect);
    if (one.score > perfect && one.score > (1 + kClose) * best)
      std::printf("%d %s, %zu parameters: %.2e above the best known\n", number,
                  std::string(made.model->name).c_str(), made.truth.size(), one.score / best - 1);
    std::fflush(stdout);
  }
  marquardt.Print("Levenberg-Marquardt");
  if (!evolves) return marquardt;
  evolution.Print("differential evolution");
  tenSeeds.Print("the same, ten seeds");
  return marquardt;
}

/// Some percent less than what is aimed at over many problems: 60 scatter.
bool MeetsItsAims(const Sum& sum) {
  return sum.Share(sum.near) >= 98 && sum.Share(sum.close) >= 93 && sum.MeanEvaluations() <= 15'000;
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  using namespace velmora;
  if (argc > 1 && std::string(argv[1]) == "quick")
    return MeetsItsAims(Measure(0, kQuickProblems, kQuickNoise, false)) ? 0 : 1;
  const int count = argc > 1 ? std::atoi(argv[1]) : 1000;
  const double noise = argc > 2 ? std::atof(argv[2]) : kQuickNoise;
  Measure(argc > 3 ? std::atoi(argv[3]) : 0, count, noise, true);
}
