#include "estimation/Objective.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>

namespace velmora {
namespace {

// How often a candidate's experiments are summed; the last sum is its score. The simulation is
// deterministic, so that once is enough.
constexpr int kScoringPasses = 1;

double Square(double value) {
  return value * value;
}

std::vector<double> Divided(const std::vector<double>& values, double scale) {
  std::vector<double> quotients(values.size());
  std::transform(values.begin(), values.end(), quotients.begin(),
                 [scale](double value) { return value / scale; });
  return quotients;
}

/// The straight line between two neighbouring model points, at one measured time.
class Interpolation {
 public:
  Interpolation(const ModelCurve& curve, std::size_t upper, double time)
      : lower_(upper - 1), upper_(upper), since_(time - curve.time[lower_]) {
    width_ = curve.time[upper_] - curve.time[lower_];
    if (width_ == 0) throw ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::Interpolation};
  }

  double Of(const ModelCurve::Series& y) const {
    return since_ * (y[upper_] - y[lower_]) / width_ + y[lower_];
  }

 private:
  std::size_t lower_;
  std::size_t upper_;
  double since_;
  double width_;
};

/// Calls `visit(k, values)` with the model's values, g/L, at each measured time. The segment is the
/// one that ends at the first model point not before that time; outside the curve its first or
/// last segment is carried on.
template <class Visit>
void InterpolateModelAtMeasurements(const ModelCurve& curve, const std::vector<double>& time,
                                    Visit&& visit) {
  const std::size_t last = curve.time.size() - 1;
  std::size_t upper = 1;
  for (std::size_t k = 0; k < time.size(); ++k) {
    // Where the times ascend, the segment is at or beyond that of the point before.
    if (k > 0 && time[k] < time[k - 1]) upper = 1;
    while (upper < last && curve.time[upper] < time[k]) ++upper;
    const Interpolation at(curve, upper, time[k]);
    visit(k, PerVariable<double>{at.Of(curve.Cx), at.Of(curve.Cs), at.Of(curve.Cp)});
  }
}

/// A visitor of experiments that keeps the residuals that are scored, where there is room for them.
struct Residuals {
  std::span<double> rest;

  void Curve(std::size_t, const ModelCurve&) {}

  void Point(std::size_t, bool scored, const PerVariable<double>&,
             const PerVariable<double>& residual) {
    if (!scored || rest.empty()) return;
    rest[0] = residual.Cx;
    rest[1] = residual.Cs;
    rest[2] = residual.Cp;
    rest = rest.subspan(3);
  }
};

/// A visitor of experiments that keeps all.
struct Recording {
  std::vector<SimulatedExperiment>& experiments;

  void Curve(std::size_t e, const ModelCurve& curve) { experiments[e].curve = curve; }

  void Point(std::size_t e, bool scored, const PerVariable<double>& model,
             const PerVariable<double>& residual) {
    SimulatedExperiment& experiment = experiments[e];
    experiment.simulated.Cx.push_back(model.Cx);
    experiment.simulated.Cs.push_back(model.Cs);
    experiment.simulated.Cp.push_back(model.Cp);
    if (!scored) return;
    experiment.share.Cx += Square(residual.Cx);
    experiment.share.Cs += Square(residual.Cs);
    experiment.share.Cp += Square(residual.Cp);
  }
};

}  // namespace

ModelCurves SimulatedFit::Curves() const {
  ModelCurves curves{};
  for (std::size_t i = 0; i < experiments.size(); ++i) curves.at(i) = experiments[i].curve;
  return curves;
}

double Objective::NormalisationScale(std::span<const double> values) {
  double scale = 0;
  for (const double value : values)
    if (value >= scale) scale = value;
  return scale;
}

std::vector<NormalisedExperiment> Objective::Normalised(const FitProblem& problem, int& unscaled) {
  const auto scaleOf = [&](const std::vector<double>& values) {
    const double scale = NormalisationScale(values);
    if (scale != 0) return scale;
    ++unscaled;
    return 1.0;
  };
  std::vector<NormalisedExperiment> experiments;
  for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
    const Experiment& record = problem.experiments[e];
    const PerVariable<double> scale{scaleOf(record.Cx), scaleOf(record.Cs), scaleOf(record.Cp)};
    experiments.push_back(
        {record.time,
         {Divided(record.Cx, scale.Cx), Divided(record.Cs, scale.Cs), Divided(record.Cp, scale.Cp)},
         scale,
         problem.rows.at(e)});
  }
  return experiments;
}

Objective::Objective(const FitProblem& problem)
    : experiments_(Normalised(problem, unscaledVariables_)),
      variables_(problem.variables),
      lanes_(experiments_, variables_) {}

int Objective::Observations() const {
  std::size_t values = 0;
  for (const NormalisedExperiment& experiment : experiments_) values += 3 * experiment.time.size();
  return static_cast<int>(values);
}

void Objective::Integrate(std::span<const double> x, const NormalisedExperiment& experiment,
                          Workspace::OfThread& memory) const {
  memory.parameters = experiment.parameters;
  for (std::size_t i = 0; i < x.size(); ++i) memory.parameters[variables_[i].position] = x[i];
  memory.integrator.Integrate(memory.parameters, memory.curve);
}

/// Hands each experiment's curve to `visitor`, then the model's values at each measured point with
/// the normalised residuals. Returns the sum of their squares, to which an experiment's last
/// point adds nothing: it is simulated and reported all the same.
template <class Visitor>
double Objective::SumOverExperiments(std::span<const double> x, Workspace::OfThread& memory,
                                     Visitor&& visitor) const {
  double sum = 0;
  for (std::size_t e = 0; e < experiments_.size(); ++e) {
    const std::vector<double>& time = experiments_[e].time;
    const MeasuredSeries& normalised = experiments_[e].normalised;
    const PerVariable<double>& scale = experiments_[e].scale;
    try {
      Integrate(x, experiments_[e], memory);
      visitor.Curve(e, memory.curve);
      InterpolateModelAtMeasurements(
          memory.curve, time, [&](std::size_t k, const PerVariable<double>& model) {
            const PerVariable<double> residual{normalised.Cx[k] - model.Cx / scale.Cx,
                                               normalised.Cs[k] - model.Cs / scale.Cs,
                                               normalised.Cp[k] - model.Cp / scale.Cp};
            const bool scored = k + 1 < time.size();
            visitor.Point(e, scored, model, residual);
            if (scored) sum += Square(residual.Cx) + Square(residual.Cs) + Square(residual.Cp);
          });
      if (!std::isfinite(sum)) throw ArithmeticFault{FaultKind::Overflow, FaultTerm::Score};
    } catch (ArithmeticFault& fault) {
      fault.place = static_cast<int>(e) + 1;
      throw;
    }
  }
  return sum;
}

Objective::Workspace::Workspace(std::int32_t evaluations, unsigned threads)
    : evaluations_(evaluations),
      threads_(std::max(1U, threads)),
      workers_(std::make_unique<Workers>(std::max(1U, threads))) {}

CandidateScore Objective::ScoreAlone(std::span<const double> x, std::span<double> residuals,
                                     std::int32_t evaluations, Workspace::OfThread& memory) const {
  memory.integrator.SetEvaluations(evaluations);
  CandidateScore scored;
  try {
    for (int pass = 0; pass < kScoringPasses; ++pass)
      scored.score = SumOverExperiments(x, memory, Residuals{residuals});
  } catch (const ArithmeticFault& fault) {
    scored.fault = fault;
  }
  scored.rateEvaluations = memory.integrator.Evaluations() - evaluations;
  return scored;
}

std::int32_t Objective::RateEvaluations() const {
  return kRateEvaluations * static_cast<std::int32_t>(experiments_.size());
}

bool Objective::Counts(std::size_t candidates, const Workspace& workspace) const {
  const std::int32_t room = std::numeric_limits<std::int32_t>::max() - workspace.Evaluations();
  return candidates <= static_cast<std::size_t>(room / std::max(1, RateEvaluations()));
}

std::size_t Objective::Scored() const {
  std::size_t values = 0;
  for (const NormalisedExperiment& experiment : experiments_)
    if (!experiment.time.empty()) values += 3 * (experiment.time.size() - 1);
  return values;
}

/// How many candidates go into one block: no more than each thread's share, where they take more
/// lanes than go together.
std::size_t Objective::BlockSize(std::size_t candidates, unsigned threads) const {
  if (!lanes_.Serve() || variables_.empty()) return 1;
  if (candidates * experiments_.size() <= lanes_.Together()) return candidates;
  return std::min((candidates + threads - 1) / threads, lanes_.Together());
}

void Objective::Score(std::span<const double> candidates, std::span<CandidateScore> scores,
                      std::span<double> residuals, Workspace& workspace) const {
  if (scores.empty()) return;
  if (!Counts(scores.size(), workspace))
    return ScoreInTurn(candidates, scores, residuals, workspace);
  const std::size_t size = variables_.size(), row = residuals.empty() ? 0 : Scored();
  const std::size_t block = BlockSize(scores.size(), workspace.Threads());
  const std::size_t blocks = (scores.size() + block - 1) / block;
  const auto score = [&](std::size_t item, unsigned worker) {
    const std::size_t first = item * block, count = std::min(block, scores.size() - first);
    ScoreBlock(candidates.subspan(first * size, count * size), scores.subspan(first, count),
               residuals.subspan(first * row, count * row), workspace.threads_[worker]);
  };
  workspace.workers_->ForEach(blocks, std::ref(score));  // by value it would be allocated
  for (const CandidateScore& scored : scores)
    workspace.SetEvaluations(workspace.Evaluations() + scored.rateEvaluations);
}

/// One by one, where the counter of rate evaluations may not hold those of all.
void Objective::ScoreInTurn(std::span<const double> candidates, std::span<CandidateScore> scores,
                            std::span<double> residuals, Workspace& workspace) const {
  const std::size_t size = variables_.size(), row = residuals.empty() ? 0 : Scored();
  for (std::size_t i = 0; i < scores.size(); ++i) {
    scores[i] = ScoreAlone(candidates.subspan(i * size, size), residuals.subspan(i * row, row),
                           workspace.Evaluations(), workspace.threads_.front());
    workspace.SetEvaluations(workspace.Evaluations() + scores[i].rateEvaluations);
  }
}

/// A candidate of which the lanes cannot tell is scored alone, where a fault is named.
void Objective::ScoreBlock(std::span<const double> candidates, std::span<CandidateScore> scores,
                           std::span<double> residuals, Workspace::OfThread& memory) const {
  const std::size_t size = variables_.size(), row = residuals.size() / scores.size();
  std::array<double, kMostLanes> sums;
  sums.fill(std::numeric_limits<double>::quiet_NaN());
  // One simulation alone takes less time than a vector of them.
  if (lanes_.Serve() && scores.size() * experiments_.size() > 1 && !variables_.empty())
    lanes_.Score(candidates, std::span(sums).first(scores.size()), residuals, memory.lanes);
  for (std::size_t i = 0; i < scores.size(); ++i) {
    if (std::isfinite(sums[i]))
      scores[i] = {sums[i], std::nullopt, RateEvaluations()};
    else
      scores[i] = ScoreAlone(candidates.subspan(i * size, size), residuals.subspan(i * row, row), 0,
                             memory);
  }
}

SimulatedFit Objective::Simulate(std::span<const double> x) const {
  Workspace::OfThread memory;
  SimulatedFit fit;
  fit.experiments.resize(experiments_.size());
  fit.score = SumOverExperiments(x, memory, Recording{fit.experiments});
  return fit;
}

}  // namespace velmora
