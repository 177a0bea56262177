// How much faster is one integration through a model's kernel, and in lanes, than through the
// general law, and how many evaluations a second does a fit make with one and with two threads?

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "estimation/EvolucaoDiferencial.h"
#include "kinetics/LaneMarches.h"
#include "kinetics/Modelos.h"
#include "kinetics/Runge_Kutta.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

void IntegrateModel(benchmark::State& state, const Model& model, Law law) {
  const KineticParameters parameters = test::BatchOf(model);
  Runge_Kutta integrator;
  ModelCurve curve;
  for (auto _ : state) {
    integrator.SetEvaluations(0);
    integrator.Integrate(parameters, curve, law);
    benchmark::DoNotOptimize(curve.Cx.back());
  }
}

/// As many of the same batch as there are lanes.
void MarchModel(benchmark::State& state, std::size_t model, const LaneMarches& marches) {
  const KineticParameters batch = test::BatchOf(kModels[model]);
  const std::size_t lanes = marches.together;
  std::vector<double> parameters(30 * lanes), curves(300 * lanes), reach(lanes);
  for (std::size_t i = 0; i < parameters.size(); ++i) parameters[i] = batch.values[i / lanes];
  for (auto _ : state) {
    marches.wide[model](parameters.data(), curves.data(), reach.data());
    benchmark::DoNotOptimize(curves.back());
  }
  state.counters["lanes"] = static_cast<double>(lanes);
}

FitProblem ThreeExperiments(std::string_view model) {
  FitProblem problem = test::SampledBatches(model, {40, 60, 80});
  problem.variables = {{At::muMax, 0.05, 1, 0.2},
                       {At::Ks, 1, 30, 10},
                       {At::Kis, 20, 300, 100},
                       {At::CpAst, 40, 120, 80},
                       {At::n, 0.3, 3, 1}};
  return problem;
}

/// 100 members and 200 generations, the stopping rule held open: 20,100 evaluations.
void FitThreeExperiments(benchmark::State& state) {
  const FitProblem problem = ThreeExperiments("Andrews-Levenspiel");
  EstimationSettings settings;
  settings.EPS = -1;
  std::int32_t calls = 0;
  for (auto _ : state) {
    SearchObserver observer;
    calls = Search(problem, settings, observer,
                   Objective::Workspace(0, static_cast<unsigned>(state.range(0))))
                .functionCalls;
  }
  state.counters["evaluations"] = calls;
}

void RegisterAll() {
  if (const LaneMarches* const marches = LaneMarchesHere())
    for (std::size_t model = 0; model < kModels.size(); ++model)
      benchmark::RegisterBenchmark((std::string(kModels[model].name) + "/lanes").c_str(),
                                   MarchModel, model, *marches);
  for (const Model& model : kModels)
    for (const auto& [law, name] : {std::pair{Law::General, "general"}, {Law::Kernel, "kernel"}})
      benchmark::RegisterBenchmark((std::string(model.name) + "/" + name).c_str(), IntegrateModel,
                                   model, law);
  benchmark::RegisterBenchmark("fit/Andrews-Levenspiel", FitThreeExperiments)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime()
      ->Arg(1)
      ->Arg(2);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  velmora::RegisterAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
