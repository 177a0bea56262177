// Batches that tests and benchmarks of the kinetics and of the estimation start from.
#pragma once

#include <initializer_list>

#include "estimation/FitProblem.h"
#include "kinetics/Modelos.h"
#include "kinetics/Runge_Kutta.h"

namespace velmora::test {

/// A batch in the range of a yeast cultivation, with every term of the model at work.
inline KineticParameters BatchOf(const Model& model) {
  KineticParameters p;
  p[At::Cx0] = 0.5, p[At::Cs0] = 75, p[At::Cp0] = 0.1, p[At::T] = 45;
  p[At::Yxs] = 0.27, p[At::alpha] = 1.5, p[At::beta] = 0.01, p[At::Yps] = 0.45, p[At::Fp] = 1;
  p[At::muMax] = 0.3, p[At::Ks] = 8, p[At::Kis] = 90;
  p[At::Kip] = model.product == ProductTerm::Aiba ? 0.02 : 40;
  p[At::CxAst] = 40, p[At::CpAst] = 60, p[At::m] = 0.7, p[At::n] = 1.3;
  p[At::u] = 1.2, p[At::v] = 1.4;
  p[At::ms] = 0.01, p[At::Kd] = 0.005, p[At::Kdp] = 0.001, p[At::CsAst1] = 1, p[At::CsAst2] = 10;
  SetModelSwitches(model, p);
  return p;
}

inline KineticParameters BatchOf(std::string_view name) {
  return BatchOf(*FindModel(name));
}

/// Points read off the model's own curve: every tenth model point from the first on.
inline Experiment SampledFrom(const KineticParameters& row) {
  ModelCurve curve;
  Runge_Kutta().Integrate(row, curve);
  Experiment experiment;
  for (std::size_t i = 0; i < curve.time.size(); i += 10) {
    experiment.time.push_back(curve.time[i]);
    experiment.Cx.push_back(curve.Cx[i]);
    experiment.Cs.push_back(curve.Cs[i]);
    experiment.Cp.push_back(curve.Cp[i]);
  }
  return experiment;
}

/// The experiments of a fit whose right answer is known: batches that differ in Cs0 alone.
inline FitProblem SampledBatches(std::string_view model, std::initializer_list<double> Cs0) {
  FitProblem problem;
  for (const double substrate : Cs0) {
    problem.rows.push_back(BatchOf(model));
    problem.rows.back()[At::Cs0] = substrate;
    problem.experiments.push_back(SampledFrom(problem.rows.back()));
  }
  return problem;
}

/// Two batches of Andrews-Levenspiel with three of its parameters fitted: muMax 0.3, Ks 8 and n 1.3
/// made the data.
inline FitProblem TwoBatches() {
  FitProblem problem = SampledBatches("Andrews-Levenspiel", {40, 80});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::Ks, 1, 30, 10}, {At::n, 0.3, 3, 1}};
  return problem;
}

}  // namespace velmora::test
