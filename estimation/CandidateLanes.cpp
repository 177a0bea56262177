#include "estimation/CandidateLanes.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "kinetics/KernelStep.h"

namespace velmora {
namespace {

constexpr double kInOneVector = 0.55;  // of the lanes together: so few go vector by vector

constexpr std::size_t kPositions = KineticParameters::kCount;

bool IsExponentOfLimit(At position) {
  return position == At::m || position == At::n;
}

/// The times of the model points, by which a curve is compared: the repeated sum of the step.
ModelCurve::Series TimesTo(double T) {
  ModelCurve::Series times{};
  for (std::size_t i = 1; i < times.size(); ++i) times[i] = times[i - 1] + T / (kModelPoints - 1);
  return times;
}

/// The first model point not before `time`; for what lies outside the curve its end segments.
std::size_t UpperPoint(const ModelCurve::Series& times, double time) {
  const auto upper = std::find_if(times.begin() + 1, times.end() - 1,
                                  [time](double modelTime) { return !(modelTime < time); });
  return static_cast<std::size_t>(upper - times.begin());
}

}  // namespace

double* CandidateLanes::Memory::Take(std::vector<Line>& lines, std::size_t values) {
  if (lines.size() * 8 < values) lines.resize((values + 7) / 8);
  return lines.front().of;
}

CandidateLanes::CandidateLanes(const std::vector<NormalisedExperiment>& experiments,
                               std::vector<FitVariable> variables)
    : variables_(std::move(variables)), marches_(LaneMarchesHere()) {
  if (marches_ == nullptr) return;
  compare_ = LaneResidualsFor(marches_->width);
  if (!std::all_of(experiments.begin(), experiments.end(),
                   [this](const NormalisedExperiment& experiment) { return Add(experiment); }))
    experiments_.clear();
}

/// Whether lanes can march it: its kernel is that of every candidate, whose own values are looked
/// at when they come.
bool CandidateLanes::Add(const NormalisedExperiment& experiment) {
  constexpr double kOrdinary = 0.5;  // as no exponent that would change the kernel
  KineticParameters row = experiment.parameters;
  for (const FitVariable& variable : variables_) row[variable.position] = kOrdinary;
  for (int position = 1; position <= KineticParameters::kCount; ++position)
    if (!IsTame(static_cast<At>(position), row[position])) return false;
  const std::ptrdiff_t kernel = KernelOf(row);
  if (kernel < 0) return false;

  LaneExperiment lanes{
      static_cast<std::size_t>(kernel), experiment.parameters, {}, experiment.scale};
  const ModelCurve::Series times = TimesTo(row[At::T]);
  for (std::size_t k = 0; k + 1 < experiment.time.size(); ++k) {
    const std::size_t upper = UpperPoint(times, experiment.time[k]);
    lanes.points.push_back(
        {upper,
         experiment.time[k] - times[upper - 1],
         times[upper] - times[upper - 1],
         {experiment.normalised.Cx[k], experiment.normalised.Cs[k], experiment.normalised.Cp[k]}});
  }
  // The last point is not scored, but a fault in its interpolation is one.
  if (!(times[1] > 0) || !(times[times.size() - 1] > times[times.size() - 2])) return false;
  experiments_.push_back(std::move(lanes));
  return true;
}

std::size_t CandidateLanes::BlockOf(std::size_t left) const {
  const bool wide = static_cast<double>(left) > kInOneVector * static_cast<double>(Together());
  return std::min(left, wide ? Together() : marches_->width);
}

/// Whether the candidate's own values leave its kernel's range.
bool CandidateLanes::IsFit(std::span<const double> candidate) const {
  for (std::size_t j = 0; j < variables_.size(); ++j) {
    const At position = variables_[j].position;
    if (!IsTame(position, candidate[j])) return false;
    if (IsExponentOfLimit(position) && candidate[j] == 0) return false;
  }
  return true;
}

/// The parameters of an experiment with each candidate's values, lane by lane; lanes that are left
/// over hold the last candidate.
void CandidateLanes::Spread(const LaneExperiment& experiment, std::span<const double> candidates,
                            std::size_t lanes, double* parameters) const {
  for (std::size_t position = 0; position < kPositions; ++position)
    std::fill_n(parameters + position * lanes, lanes, experiment.parameters.values[position]);
  const std::size_t size = variables_.size(), count = candidates.size() / size;
  for (std::size_t j = 0; j < size; ++j) {
    double* values = parameters + (static_cast<std::size_t>(variables_[j].position) - 1) * lanes;
    for (std::size_t i = 0; i < lanes; ++i)
      values[i] = candidates[std::min(i, count - 1) * size + j];
  }
}

void CandidateLanes::Score(std::span<const double> candidates, std::span<double> scores,
                           std::span<double> residuals, Memory& memory) const {
  const bool wide = scores.size() > marches_->width;
  const std::size_t lanes = wide ? marches_->together : marches_->width;
  const std::size_t size = variables_.size(), row = residuals.size() / scores.size();
  double* const parameters = memory.Take(memory.parameters_, kPositions * lanes);
  double* const curves = memory.Take(memory.curves_, 3 * kModelPoints * lanes);
  double* const reach = memory.Take(memory.reach_, lanes);
  double* const sums = memory.Take(memory.sums_, lanes);
  std::fill_n(sums, lanes, 0.0);
  std::size_t written = 0;
  for (const LaneExperiment& experiment : experiments_) {
    Spread(experiment, candidates, lanes, parameters);
    (wide ? marches_->wide : marches_->narrow)[experiment.kernel](parameters, curves, reach);
    const std::size_t values = 3 * experiment.points.size();
    double* const ofLanes =
        row == 0 ? nullptr : memory.Take(memory.residuals_, values * lanes + lanes);
    (wide ? compare_.wide : compare_.narrow)(
        curves, {experiment.points.data(), experiment.points.size(), experiment.scale}, sums,
        ofLanes);
    for (std::size_t i = 0; i < scores.size(); ++i) {
      if (!(reach[i] < kTame)) sums[i] = std::numeric_limits<double>::quiet_NaN();
      for (std::size_t value = 0; row != 0 && value < values; ++value)
        residuals[i * row + written + value] = ofLanes[value * lanes + i];
    }
    written += values;
  }
  for (std::size_t i = 0; i < scores.size(); ++i)
    scores[i] = IsFit(candidates.subspan(i * size, size))
                    ? sums[i]
                    : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace velmora
