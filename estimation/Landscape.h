// The scores of a problem over the box of its bounds: what every local method walks on.
#pragma once

#include <Eigen/Core>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "estimation/Objective.h"

namespace velmora {

/// A candidate as a place in the box: each component from 0, its lower bound, to 1, its upper one;
/// on a logarithmic scale, or a linear one where the lower bound is not above 0.
using Place = Eigen::VectorXd;

class Landscape {
 public:
  /// `limit` is the most evaluations; `stopRequested` is asked now and then.
  Landscape(const FitProblem& problem, std::int32_t limit, std::function<bool()> stopRequested,
            unsigned threads = 1);

  Eigen::Index Size() const { return static_cast<Eigen::Index>(variables_.size()); }
  const FitVariable& Variable(Eigen::Index j) const {
    return variables_[static_cast<std::size_t>(j)];
  }
  int Observations() const { return objective_.Observations(); }
  Eigen::Index Scored() const { return static_cast<Eigen::Index>(objective_.Scored()); }
  /// Whether a score is that of data without noise: nothing can be gained any more.
  bool IsPerfect(double score) const;

  /// The candidate at a place, and the place of a candidate, which is first moved inside its
  /// bounds.
  std::vector<double> CandidateAt(const Place& place) const;
  Place PlaceOf(const std::vector<double>& candidate) const;
  /// The component of a value of parameter `j`, between 0 and 1.
  double ComponentOf(Eigen::Index j, double value) const;

  /// The score at a place; infinite where a simulation meets an arithmetic fault.
  double Score(const Place& place);
  /// As above, with the residuals, `Scored()` of them.
  double Score(const Place& place, Eigen::VectorXd& residuals);
  /// As above for the places in the columns of `places`, the residuals in those of `residuals`.
  Eigen::VectorXd Score(const Eigen::MatrixXd& places, Eigen::MatrixXd& residuals);

  /// The scores of many places; one call is much faster than as many.
  std::vector<double> Scores(const std::vector<Place>& places);

  /// Simulations of all experiments so far.
  std::int32_t Evaluations() const { return evaluations_; }
  /// Whether a stop was requested, or the limit leaves no room for `wanted` more simulations, once
  /// and for all: nothing more should be scored.
  bool Exhausted(Eigen::Index wanted = 1);
  bool Spent() const { return spent_; }
  bool Stopped() const { return stopped_; }
  /// The fault of the first simulation that met one.
  const std::optional<ArithmeticFault>& FirstFault() const { return firstFault_; }

 private:
  void Append(const Place& place);
  void ScoreAppended(Eigen::Ref<Eigen::VectorXd> scores, std::span<double> residuals);

  const Objective objective_;
  const std::vector<FitVariable> variables_;
  const std::int32_t limit_;
  const std::function<bool()> stopRequested_;
  Objective::Workspace workspace_;
  std::vector<double> candidates_;  // row by row, to be scored together
  std::vector<CandidateScore> scores_;
  std::int32_t evaluations_ = 0;
  bool spent_ = false;
  std::int32_t lastAsked_ = 0;  // evaluations when a stop was asked for last
  bool stopped_ = false;
  std::optional<ArithmeticFault> firstFault_;
};

}  // namespace velmora
