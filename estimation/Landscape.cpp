#include "estimation/Landscape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kPerfect = 1e-12;          // score for each scored value
constexpr std::int32_t kBetweenStops = 50;  // evaluations between two questions for a stop

bool IsLogarithmic(const FitVariable& variable) {
  return variable.lower > 0;
}

double ValueAt(const FitVariable& variable, double component) {
  const auto& [position, lower, upper, start] = variable;
  if (component <= 0) return lower;
  if (component >= 1) return upper;
  const double value = IsLogarithmic(variable)
                           ? lower * Exponential(component * Logarithm(upper / lower))
                           : lower + component * (upper - lower);
  return std::clamp(value, lower, upper);
}

}  // namespace

Landscape::Landscape(const FitProblem& problem, std::int32_t limit,
                     std::function<bool()> stopRequested, unsigned threads)
    : objective_(problem),
      variables_(problem.variables),
      limit_(limit),
      stopRequested_(std::move(stopRequested)),
      workspace_(0, threads) {}

bool Landscape::IsPerfect(double score) const {
  return score <= kPerfect * static_cast<double>(Scored());
}

std::vector<double> Landscape::CandidateAt(const Place& place) const {
  std::vector<double> candidate;
  for (Eigen::Index j = 0; j < Size(); ++j) candidate.push_back(ValueAt(Variable(j), place[j]));
  return candidate;
}

Place Landscape::PlaceOf(const std::vector<double>& candidate) const {
  Place place(Size());
  for (Eigen::Index j = 0; j < Size(); ++j)
    place[j] = ComponentOf(j, candidate[static_cast<std::size_t>(j)]);
  return place;
}

double Landscape::ComponentOf(Eigen::Index j, double value) const {
  const auto& [position, lower, upper, start] = Variable(j);
  const double inside = std::clamp(value, lower, upper);
  return IsLogarithmic(Variable(j)) ? Logarithm(inside / lower) / Logarithm(upper / lower)
                                    : (inside - lower) / (upper - lower);
}

void Landscape::Append(const Place& place) {
  for (Eigen::Index j = 0; j < Size(); ++j) candidates_.push_back(ValueAt(Variable(j), place[j]));
}

void Landscape::ScoreAppended(Eigen::Ref<Eigen::VectorXd> scores, std::span<double> residuals) {
  scores_.resize(static_cast<std::size_t>(scores.size()));
  // What a local method simulates has no count that could fill.
  workspace_.SetEvaluations(0);
  objective_.Score(candidates_, scores_, residuals, workspace_);
  for (Eigen::Index i = 0; i < scores.size(); ++i) {
    const CandidateScore& scored = scores_[static_cast<std::size_t>(i)];
    scores[i] = scored.fault ? std::numeric_limits<double>::infinity() : scored.score;
    if (scored.fault && !firstFault_) firstFault_ = scored.fault;
  }
  evaluations_ += static_cast<std::int32_t>(scores.size());
  candidates_.clear();
}

double Landscape::Score(const Place& place) {
  Eigen::VectorXd score(1);
  Append(place);
  ScoreAppended(score, {});
  return score[0];
}

double Landscape::Score(const Place& place, Eigen::VectorXd& residuals) {
  Eigen::VectorXd score(1);
  residuals.resize(Scored());
  Append(place);
  ScoreAppended(score, {residuals.data(), static_cast<std::size_t>(residuals.size())});
  return score[0];
}

Eigen::VectorXd Landscape::Score(const Eigen::MatrixXd& places, Eigen::MatrixXd& residuals) {
  Eigen::VectorXd scores(places.cols());
  residuals.resize(Scored(), places.cols());
  for (const auto& place : places.colwise()) Append(place);
  ScoreAppended(scores, {residuals.data(), static_cast<std::size_t>(residuals.size())});
  return scores;
}

std::vector<double> Landscape::Scores(const std::vector<Place>& places) {
  Eigen::VectorXd scores(static_cast<Eigen::Index>(places.size()));
  for (const Place& place : places) Append(place);
  ScoreAppended(scores, {});
  return {scores.begin(), scores.end()};
}

bool Landscape::Exhausted(Eigen::Index wanted) {
  spent_ = spent_ || evaluations_ + wanted > limit_;
  if (!stopped_ && evaluations_ - lastAsked_ >= kBetweenStops) {
    lastAsked_ = evaluations_;
    stopped_ = stopRequested_();
  }
  return stopped_ || Spent();
}

}  // namespace velmora
