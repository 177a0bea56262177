#include "estimation/CandidateLanes.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "kinetics/KernelStep.h"

namespace velmora {
namespace {

constexpr double kFilled = 0.93;  // of the lanes that candidates take

constexpr double kNoScore = std::numeric_limits<double>::quiet_NaN();

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
  FindFilling();
}

void CandidateLanes::FindFilling() {
  const auto filled = [this] {
    const std::size_t items = filling_ * experiments_.size();
    const std::size_t marches = (items + Together() - 1) / Together();
    return static_cast<double>(items) / static_cast<double>(marches * Together());
  };
  while (Serve() && filling_ < Together() && filled() < kFilled) ++filling_;
}

/// Whether lanes can march it: its kernel is that of every candidate, whose own values are looked
/// at when they come.
bool CandidateLanes::Add(const NormalisedExperiment& experiment) {
  constexpr double kOrdinary = 0.5;  // as no exponent that would change the kernel
  KineticParameters row = experiment.parameters;
  for (const FitVariable& variable : variables_) row[variable.position] = kOrdinary;
  for (int position = 1; position <= KineticParameters::kCount; ++position)
    if (!SuitsLanes(static_cast<At>(position), row[position])) return false;
  const auto& [Cx, Cs, Cp] = experiment.scale;
  for (const double scale : {Cx, Cs, Cp})
    if (!(scale < kTame && scale > 1 / kTame)) return false;
  const std::ptrdiff_t kernel = KernelOf(row);
  if (kernel < 0) return false;

  LaneExperiment lanes{static_cast<std::size_t>(kernel),
                       experiment.parameters,
                       {},
                       {KnownDivisor(Cx), KnownDivisor(Cs), KnownDivisor(Cp)},
                       0};
  if (!experiments_.empty())
    lanes.residual = experiments_.back().residual + 3 * experiments_.back().points.size();
  const ModelCurve::Series times = TimesTo(row[At::T]);
  for (std::size_t k = 0; k + 1 < experiment.time.size(); ++k) {
    const std::size_t upper = UpperPoint(times, experiment.time[k]);
    lanes.points.push_back(
        {upper,
         experiment.time[k] - times[upper - 1],
         KnownDivisor(times[upper] - times[upper - 1]),
         {experiment.normalised.Cx[k], experiment.normalised.Cs[k], experiment.normalised.Cp[k]}});
  }
  // The last point is not scored, but a fault in its interpolation is one.
  if (!(times[1] > 0) || !(times[times.size() - 1] > times[times.size() - 2])) return false;
  experiments_.push_back(std::move(lanes));
  return true;
}

/// Whether the candidate's own values leave its kernel's range.
bool CandidateLanes::IsFit(std::span<const double> candidate) const {
  for (std::size_t j = 0; j < variables_.size(); ++j) {
    const At position = variables_[j].position;
    if (!SuitsLanes(position, candidate[j])) return false;
    if (IsExponentOfLimit(position) && candidate[j] == 0) return false;
  }
  return true;
}

CandidateLanes::Run CandidateLanes::RunFrom(std::size_t first) const {
  Run run{first, 1};
  while (run.first + run.count < experiments_.size() &&
         experiments_[run.first + run.count].kernel == experiments_[first].kernel)
    ++run.count;
  return run;
}

/// The parameters of items of a run, lane by lane; lanes that are left over hold the last one.
void CandidateLanes::Spread(const Run& run, std::size_t item, std::size_t items, std::size_t lanes,
                            const Block& block, double* parameters) const {
  const std::size_t size = variables_.size(), candidates = block.scores.size();
  for (std::size_t lane = 0; lane < lanes; ++lane) {
    const std::size_t at = item + std::min(lane, items - 1);
    const LaneExperiment& experiment = experiments_[run.first + at / candidates];
    for (std::size_t position = 0; position < kPositions; ++position)
      parameters[position * lanes + lane] = experiment.parameters.values[position];
    for (std::size_t j = 0; j < size; ++j) {
      const auto position = static_cast<std::size_t>(variables_[j].position) - 1;
      parameters[position * lanes + lane] = block.candidates[at % candidates * size + j];
    }
  }
}

/// Adds the squared errors of `count` candidates from `candidate` on, whose curves in one
/// experiment stand in neighbouring lanes.
void CandidateLanes::Compare(const LaneExperiment& experiment, const double* curves,
                             std::size_t lanes, const double* reach, std::size_t candidate,
                             std::size_t count, const Block& block) const {
  const ComparedPoints measured{experiment.points.data(), experiment.points.size(),
                                experiment.scale};
  const std::size_t values = 3 * measured.count, width = marches_->width;
  const std::size_t row = block.residuals.size() / block.scores.size();
  double* const residuals =
      row == 0 ? nullptr : block.memory.Take(block.memory.residuals_, (values + 1) * width);
  for (std::size_t first = 0; first < count; first += width) {
    const auto scores = block.scores.subspan(candidate + first, std::min(width, count - first));
    std::array<double, kMostLanes> sums{};
    std::copy(scores.begin(), scores.end(), sums.begin());
    compare_(curves + first, lanes, measured, sums.data(), residuals);
    for (std::size_t i = 0; i < scores.size(); ++i) {
      scores[i] = reach[first + i] < kTame ? sums[i] : kNoScore;
      double* const ofCandidate =
          block.residuals.data() + (candidate + first + i) * row + experiment.residual;
      for (std::size_t value = 0; row != 0 && value < values; ++value)
        ofCandidate[value] = residuals[value * width + i];
    }
  }
}

/// Marches `items` items of a run from `item` on, and compares them.
void CandidateLanes::March(const Run& run, std::size_t item, std::size_t items,
                           const Block& block) const {
  const bool wide = items > marches_->width;
  const std::size_t lanes = wide ? marches_->together : marches_->width;
  Memory& memory = block.memory;
  double* const parameters = memory.Take(memory.parameters_, kPositions * lanes);
  // A vector of the last lanes' curves may begin anywhere.
  double* const curves = memory.Take(memory.curves_, 3 * kModelPoints * lanes + kMostLanes);
  double* const reach = memory.Take(memory.reach_, lanes);
  Spread(run, item, items, lanes, block, parameters);
  const std::size_t kernel = experiments_[run.first].kernel;
  (wide ? marches_->wide : marches_->narrow)[kernel](parameters, curves, reach);

  const std::size_t candidates = block.scores.size();
  for (std::size_t lane = 0; lane < items;) {
    const std::size_t candidate = (item + lane) % candidates;
    const std::size_t count = std::min(candidates - candidate, items - lane);
    Compare(experiments_[run.first + (item + lane) / candidates], curves + lane, lanes,
            reach + lane, candidate, count, block);
    lane += count;
  }
}

void CandidateLanes::Score(std::span<const double> candidates, std::span<double> scores,
                           std::span<double> residuals, Memory& memory) const {
  std::fill(scores.begin(), scores.end(), 0.0);
  const Block block{candidates, scores, residuals, memory};
  for (std::size_t first = 0; first < experiments_.size();) {
    const Run run = RunFrom(first);
    const std::size_t items = run.count * scores.size();
    for (std::size_t item = 0; item < items; item += Together())
      March(run, item, std::min(Together(), items - item), block);
    first += run.count;
  }
  for (std::size_t i = 0; i < scores.size(); ++i)
    if (!IsFit(candidates.subspan(i * variables_.size(), variables_.size()))) scores[i] = kNoScore;
}

}  // namespace velmora
