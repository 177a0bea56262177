// What a candidate costs as experiments, points and members grow: time, memory and allocations of
// the stated search, each row in a process of its own.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "estimation/EvolucaoDiferencial.h"
#include "tests/support/Batches.h"

namespace {
std::size_t allocations = 0;
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace velmora {
namespace {

constexpr int kCandidates = 20'000;  // at least, of each row

FitProblem Problem(int experiments, int points) {
  FitProblem problem;
  for (int e = 0; e < experiments; ++e) {
    KineticParameters row = test::BatchOf("Andrews-Levenspiel");
    row[At::Cs0] = 40 + 5 * e;
    Experiment experiment;
    ModelCurve curve;
    Runge_Kutta().Integrate(row, curve);
    for (int k = 0; k < points; ++k) {
      const auto i = static_cast<std::size_t>(k * (kModelPoints - 1) / (points - 1));
      experiment.time.push_back(curve.time[i]);
      experiment.Cx.push_back(curve.Cx[i]);
      experiment.Cs.push_back(curve.Cs[i]);
      experiment.Cp.push_back(curve.Cp[i]);
    }
    problem.rows.push_back(row);
    problem.experiments.push_back(experiment);
  }
  problem.variables = {{At::muMax, 0.05, 1, 0.2},
                       {At::Ks, 1, 30, 10},
                       {At::Kis, 20, 300, 100},
                       {At::CpAst, 40, 120, 80},
                       {At::n, 0.3, 3, 1}};
  return problem;
}

double Megabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Counts what is allocated once the first generation is done.
struct Count : SearchObserver {
  std::size_t atFirst = 0;
  std::int32_t callsAtFirst = 0;
  void Report(const Generation& generation) override {
    if (generation.number != 1) return;
    atFirst = allocations;
    callsAtFirst = generation.functionCalls;
  }
};

void PrintRow(int experiments, int points, int NPOP) {
  const FitProblem problem = Problem(experiments, points);
  EstimationSettings settings;
  settings.NPOP = NPOP;
  settings.ITER = std::max(2, kCandidates / NPOP);
  settings.EPS = -1;  // to the last generation
  Count count;
  const auto begun = std::chrono::steady_clock::now();
  const SearchResult result = Search(problem, settings, count);
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
  const std::size_t allocated = allocations - count.atFirst;
  const double calls = result.functionCalls;
  std::printf("%11d %6d %8d %12.2f %26.2f %10.1f %22.5f\n", experiments, points, NPOP,
              1e6 * seconds / calls, 1e6 * seconds / calls / experiments, Megabytes(),
              static_cast<double>(allocated) / (calls - count.callsAtFirst));
}

void PrintRowApart(int experiments, int points, int NPOP) {
  std::fflush(stdout);
  const pid_t child = fork();
  if (child == 0) {
    PrintRow(experiments, points, NPOP);
    std::fflush(stdout);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
}

}  // namespace
}  // namespace velmora

int main() {
  std::puts(
      "experiments points     NPOP us/candidate us/candidate/experiment   peak MB "
      "allocations/candidate");
  for (const int experiments : {1, 3, 9})
    for (const int points : {13, 100})
      for (const int NPOP : {100, 1'000, 10'000, 100'000})
        velmora::PrintRowApart(experiments, points, NPOP);
}
