#include "inference/ActingSamples.h"

#include <cmath>

#include "kinetics/BatchBalances.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

/// Whether a sample that is scored, with the experiment's constants as in `candidate`, is as
/// `holds`.
template <class Holds>
bool AnySample(const FitProblem& problem, std::span<const double> candidate, Holds&& holds) {
  for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
    const Experiment& experiment = problem.experiments[e];
    KineticParameters p = problem.rows[e];
    for (std::size_t j = 0; j < candidate.size(); ++j)
      p[problem.variables[j].position] = candidate[j];
    for (std::size_t k = 0; k + 1 < experiment.time.size(); ++k)
      if (holds(p, BatchState{experiment.Cx[k], experiment.Cs[k], experiment.Cp[k]})) return true;
  }
  return false;
}

/// Which sample a parameter acts on, by the switches of its model.
std::optional<MissingSample> NeededFor(At position, const KineticParameters& p) {
  switch (position) {
    case At::Ks:
      if (p[At::B] == 1) return MissingSample::LowCsForCells;
      [[fallthrough]];
    case At::u:
      return p[At::u] == 1 ? MissingSample::LowCs : MissingSample::LowCsPower;
    case At::Kis:
    case At::v:
      return MissingSample::HighCs;
    case At::Kip:
      return p[At::G] == 1 ? MissingSample::HighCpAiba : MissingSample::HighCp;
    case At::CpAst:
    case At::n:
      return MissingSample::HalfOfCpAst;
    case At::CxAst:
    case At::m:
      return MissingSample::HalfOfCxAst;
    default:
      return std::nullopt;
  }
}

/// Whether a sample is one of those that `needed` names.
bool Shows(MissingSample needed, const KineticParameters& p, const BatchState& sample) {
  switch (needed) {
    case MissingSample::LowCs:
      return sample.Cs < 2 * p[At::Ks];
    case MissingSample::LowCsForCells:
      return sample.Cs < 2 * p[At::Ks] * sample.Cx;
    case MissingSample::LowCsPower:
      return sample.Cs < 2 * Power(p[At::Ks], 1 / p[At::u]);
    case MissingSample::HighCs:
      return sample.Cs > p[At::Kis];
    case MissingSample::HighCp:
      return sample.Cp > p[At::Kip];
    case MissingSample::HighCpAiba:
      return sample.Cp > Logarithm(2) / p[At::Kip];
    case MissingSample::HalfOfCpAst:
      return sample.Cp > p[At::CpAst] / 2;
    case MissingSample::HalfOfCxAst:
      return sample.Cx > p[At::CxAst] / 2;
  }
  return true;
}

}  // namespace

std::optional<MissingSample> MissingFor(At position, const FitProblem& problem,
                                        std::span<const double> candidate) {
  if (problem.rows.empty()) return std::nullopt;
  KineticParameters p = problem.rows.front();
  for (std::size_t i = 0; i < candidate.size(); ++i)
    p[problem.variables[i].position] = candidate[i];
  const std::optional<MissingSample> needed = NeededFor(position, p);
  const bool shown =
      needed && AnySample(problem, candidate, [&](const auto& at, const BatchState& sample) {
        return Shows(*needed, at, sample);
      });
  return shown ? std::nullopt : needed;
}

}  // namespace velmora
