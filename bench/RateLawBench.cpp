// How much faster is one integration through a model's kernel than through the general law, and how
// many evaluations a second does a fit make?

#include <benchmark/benchmark.h>

#include <string>

#include "estimation/EvolucaoDiferencial.h"
#include "kinetics/Modelos.h"
#include "kinetics/Runge_Kutta.h"

namespace velmora {
namespace {

/// A batch in the range of a yeast cultivation, with every term of the model at work.
KineticParameters BatchOf(const Model& model) {
  KineticParameters p;
  p[At::Cx0] = 0.5, p[At::Cs0] = 75, p[At::Cp0] = 0.1, p[At::T] = 45;
  p[At::Yxs] = 0.27, p[At::alpha] = 1.5, p[At::beta] = 0.01;
  p[At::muMax] = 0.3, p[At::Ks] = 8, p[At::Kis] = 90;
  p[At::Kip] = model.product == ProductTerm::Aiba ? 0.02 : 40;
  p[At::CxAst] = 40, p[At::CpAst] = 60, p[At::m] = 0.7, p[At::n] = 1.3, p[At::u] = 1.2,
  p[At::v] = 1.4;
  p[At::ms] = 0.01, p[At::Kd] = 0.005, p[At::Kdp] = 0.001, p[At::CsAst1] = 1, p[At::CsAst2] = 10;
  p[At::Yps] = 0.45, p[At::Fp] = 1;
  SetModelSwitches(model, p);
  return p;
}

void IntegrateModel(benchmark::State& state, const Model& model, Law law) {
  const KineticParameters parameters = BatchOf(model);
  Runge_Kutta integrator;
  ModelCurve curve;
  for (auto _ : state) {
    integrator.SetEvaluations(0);
    integrator.Integrate(parameters, curve, law);
    benchmark::DoNotOptimize(curve.Cx.back());
  }
}

FitProblem ThreeExperiments(const Model& model) {
  FitProblem problem;
  for (const double Cs0 : {40.0, 60.0, 80.0}) {
    KineticParameters row = BatchOf(model);
    row[At::Cs0] = Cs0;
    ModelCurve curve;
    Runge_Kutta().Integrate(row, curve);
    Class1 experiment;
    for (std::size_t i = 4; i < curve.time.size(); i += 10) {
      experiment.NVetTempo.push_back(curve.time[i]);
      experiment.NVetCx.push_back(curve.Cx[i]);
      experiment.NVetCs.push_back(curve.Cs[i]);
      experiment.NVetCp.push_back(curve.Cp[i]);
    }
    experiment.NDados = static_cast<std::int16_t>(experiment.NVetTempo.size());
    problem.experiments.push_back(experiment);
    problem.rows.push_back(row);
  }
  problem.variables = {{At::muMax, 0.05, 1, 0.2},
                       {At::Ks, 1, 30, 10},
                       {At::Kis, 20, 300, 100},
                       {At::CpAst, 40, 120, 80},
                       {At::n, 0.3, 3, 1}};
  return problem;
}

/// 100 members and 200 generations, the stopping rule held open: 20,100 evaluations.
void FitThreeExperiments(benchmark::State& state) {
  const FitProblem problem = ThreeExperiments(*FindModel("Andrews-Levenspiel"));
  EstimationSettings settings;
  settings.EPS = -1;
  std::int32_t calls = 0;
  for (auto _ : state) {
    Objective objective(problem);
    SearchObserver observer;
    calls = Search(objective, problem.variables, settings, observer).functionCalls;
  }
  state.counters["evaluations"] = calls;
}

void RegisterAll() {
  for (const Model& model : kModels)
    for (const auto& [law, name] : {std::pair{Law::General, "general"}, {Law::Kernel, "kernel"}})
      benchmark::RegisterBenchmark((std::string(model.name) + "/" + name).c_str(), IntegrateModel,
                                   model, law);
  benchmark::RegisterBenchmark("fit/Andrews-Levenspiel", FitThreeExperiments)
      ->Unit(benchmark::kMillisecond);
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  velmora::RegisterAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
