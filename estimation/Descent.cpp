#include "estimation/Descent.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace velmora {
namespace {

constexpr double kDifference = 1e-7;     // of a component
constexpr double kScaleFloor = 1e-8;     // of the largest element of the diagonal
constexpr double kLongestStep = 0.5;     // of a component
constexpr double kQuietGain = 1e-10;     // of the score
constexpr int kMostQuiet = 3;            // iterations
constexpr double kPromise = 1e-6;        // of the score: a promise that a smooth score would keep
constexpr double kKeptPromise = 0.5;     // share of the promised gain: the derivatives were right
constexpr int kMostUpdates = 8;          // of derivatives, before they are taken anew
constexpr double kShortestStep = 1e-14;  // of a component
constexpr double kWidest = 0.3;          // of a shape, in components

constexpr double kKinkMove = 1e-5;     // of a component
constexpr double kKinkRise = 2e-5;     // of the score, beyond its curvature
constexpr double kKinkCurvature = 20;  // times what the curvature explains

/// The step for one damping: components that would leave the box stop at its edge, and the others
/// are solved for anew.
class BoundedStep {
 public:
  BoundedStep(const Descent& descent)
      : descent_(descent), step_(Eigen::VectorXd::Zero(descent.at.size())) {
    const Eigen::VectorXd diagonal = descent.normal.diagonal();
    scale_ = diagonal.cwiseMax(kScaleFloor * diagonal.maxCoeff());
    for (Eigen::Index j = 0; j < step_.size(); ++j)
      if (descent.held != j && !PointsOut(j)) free_.push_back(j);
  }

  /// Zero where nothing can move.
  Eigen::VectorXd Solve() {
    while (!free_.empty()) {
      SolveFree();
      if (!HoldOneAtTheEdge()) break;
    }
    const double longest = step_.cwiseAbs().maxCoeff();
    if (longest > kLongestStep) step_ *= kLongestStep / longest;
    return step_;
  }

 private:
  bool PointsOut(Eigen::Index j) const {
    const double place = descent_.at[j], slope = descent_.gradient[j];
    return (place <= 0 && slope >= 0) || (place >= 1 && slope <= 0);
  }

  void SolveFree() {
    const Eigen::VectorXd slope = descent_.gradient + descent_.normal * Held();
    Eigen::MatrixXd normal = descent_.normal(free_, free_);
    normal.diagonal() += descent_.damping * scale_(free_);
    const Eigen::VectorXd force = -slope(free_);
    const Eigen::VectorXd solved = normal.ldlt().solve(force);
    step_(free_) = solved;
  }

  /// The step with the free components at 0.
  Eigen::VectorXd Held() const {
    Eigen::VectorXd held = step_;
    for (const Eigen::Index j : free_) held[j] = 0;
    return held;
  }

  /// Holds every free component that leaves the box; whether there was one.
  bool HoldOneAtTheEdge() {
    const std::size_t before = free_.size();
    std::erase_if(free_, [this](Eigen::Index j) {
      const double room = step_[j] < 0 ? -descent_.at[j] : 1 - descent_.at[j];
      if (std::fabs(step_[j]) <= std::fabs(room)) return false;
      step_[j] = room;
      return true;
    });
    return free_.size() < before;
  }

  const Descent& descent_;
  Eigen::VectorXd step_;
  Eigen::VectorXd scale_;
  std::vector<Eigen::Index> free_;
};

double Promised(const Descent& descent, const Eigen::VectorXd& step) {
  return -2 * descent.gradient.dot(step) - step.dot(descent.normal * step);
}

void Accept(Descent& descent, const Place& place, double score, Eigen::VectorXd& residuals,
            double gainRatio) {
  const double gain = (descent.score - score) / descent.score;
  const double beyondHalf = 2 * gainRatio - 1;
  descent.quiet = gain < kQuietGain ? descent.quiet + 1 : 0;
  descent.at = place;
  descent.score = score;
  descent.residuals.swap(residuals);
  descent.damping *= std::max(1.0 / 3, 1 - beyondHalf * beyondHalf * beyondHalf);
  descent.growth = 2;
  descent.ended = descent.quiet >= kMostQuiet;
}

/// The residuals and scores of places as the data of a descent give them.
void MeasureBy(const OtherData* measured, Eigen::Ref<Eigen::VectorXd> scores,
               Eigen::Ref<Eigen::MatrixXd> residuals) {
  if (measured == nullptr) return;
  for (Eigen::Index i = 0; i < scores.size(); ++i) {
    if (!std::isfinite(scores[i])) continue;
    residuals.col(i) = (residuals.col(i) + measured->shift).cwiseProduct(measured->factor).eval();
    scores[i] = residuals.col(i).squaredNorm();
  }
}

/// The component whose derivative a column of the places beside a descent gives.
Eigen::Index ComponentOf(Eigen::Index column, const Descent& descent) {
  return descent.held && column >= *descent.held ? column + 1 : column;
}

/// The places at which the derivatives are taken, one for each component that may move.
Eigen::MatrixXd Beside(const Descent& descent) {
  Eigen::MatrixXd places = descent.at.replicate(1, descent.at.size() - (descent.held ? 1 : 0));
  for (Eigen::Index column = 0; column < places.cols(); ++column) {
    double& moved = places(ComponentOf(column, descent), column);
    moved += moved + kDifference <= 1 ? kDifference : -kDifference;
  }
  return places;
}

void SetNormal(Descent& descent) {
  descent.normal = descent.jacobian.transpose() * descent.jacobian;
  descent.gradient = descent.jacobian.transpose() * descent.residuals;
}

void SetDerivatives(Descent& descent, const Eigen::MatrixXd& places, const Eigen::VectorXd& scores,
                    const Eigen::MatrixXd& residuals) {
  descent.jacobian.setZero(residuals.rows(), descent.at.size());
  for (Eigen::Index column = 0; column < places.cols(); ++column) {
    if (!std::isfinite(scores[column])) continue;
    const Eigen::Index j = ComponentOf(column, descent);
    descent.jacobian.col(j) =
        (residuals.col(column) - descent.residuals) / (places(j, column) - descent.at[j]);
  }
  descent.updates = 0;
  SetNormal(descent);
}

/// The derivatives after an accepted step, as far as the step itself tells of them (Broyden 1965).
void Update(Descent& descent, const Eigen::VectorXd& step, const Eigen::VectorXd& before) {
  const Eigen::VectorXd untold = descent.residuals - before - descent.jacobian * step;
  descent.jacobian += untold * step.transpose() / step.squaredNorm();
  ++descent.updates;
  SetNormal(descent);
}

/// A descent on its way: it asks for scores of places, and goes on by them.
class Walk {
 public:
  Walk(Descent& descent, int iterations) : descent_(&descent), left_(iterations) {}

  /// The places that it wants to know of; none where it is at its end.
  Eigen::MatrixXd Ask(const Landscape& landscape) {
    if (descent_->ended) return {};
    if (state_ == State::Between) {
      descent_->ended = landscape.IsPerfect(descent_->score);
      if (descent_->ended || left_-- == 0) return {};
      mostPromised_ = 0;
      state_ = State::Trying;
      if (!fresh_) Differentiating();
    }
    if (state_ == State::Trying) Try();
    return places_;
  }

  void Hear(Eigen::VectorXd scores, Eigen::MatrixXd residuals) {
    MeasureBy(descent_->measured, scores, residuals);
    if (state_ == State::Differentiating) {
      SetDerivatives(*descent_, places_, scores, residuals);
      fresh_ = true;
      state_ = State::Trying;
    } else if (scores[0] < descent_->score) {
      Take(scores[0], residuals.col(0));
    } else if (descent_->updates > 0) {
      Differentiating();
    } else {
      Shorten();
    }
  }

 private:
  enum class State : std::uint8_t { Between, Differentiating, Trying };

  void Differentiating() {
    places_ = Beside(*descent_);
    state_ = State::Differentiating;
  }

  /// Accepts the trial. Where it kept its promise, it also tells enough of the derivatives.
  void Take(double score, const Eigen::VectorXd& residuals) {
    const double gainRatio = (descent_->score - score) / promised_;
    const Eigen::VectorXd step = places_.col(0) - descent_->at;
    Eigen::VectorXd taken = residuals;
    Accept(*descent_, places_.col(0), score, taken, gainRatio);
    fresh_ = gainRatio > kKeptPromise && descent_->updates < kMostUpdates && descent_->quiet == 0;
    if (fresh_) Update(*descent_, step, taken);
    state_ = State::Between;
  }

  /// Components held at the edge of the box may leave a step that promises nothing; a shorter one
  /// does.
  void Try() {
    for (;; Shorten()) {
      const Eigen::VectorXd step = BoundedStep(*descent_).Solve();
      if (!(step.cwiseAbs().maxCoeff() > kShortestStep)) break;
      promised_ = Promised(*descent_, step);
      if (!(promised_ > 0) && descent_->updates > 0) break;
      if (!(promised_ > 0)) continue;
      mostPromised_ = std::max(mostPromised_, promised_);
      places_ = (descent_->at + step).cwiseMax(0).cwiseMin(1);
      return;
    }
    if (descent_->updates > 0) return Differentiating();
    descent_->ended = true;
    descent_->blocked = mostPromised_ > kPromise * descent_->score;
    places_.resize(0, 0);
  }

  void Shorten() {
    descent_->damping *= descent_->growth;
    descent_->growth *= 2;
  }

  Descent* descent_;
  int left_;  // iterations
  State state_ = State::Between;
  bool fresh_ = false;  // the derivatives hold at the descent's place
  Eigen::MatrixXd places_;
  double promised_ = 0;
  double mostPromised_ = 0;  // by a trial of this iteration
};

}  // namespace

std::vector<Descent> BeginDescents(const std::vector<Place>& places, Landscape& landscape) {
  std::vector<Descent> descents(places.size());
  Eigen::MatrixXd columns(landscape.Size(), static_cast<Eigen::Index>(places.size()));
  for (std::size_t i = 0; i < places.size(); ++i)
    columns.col(static_cast<Eigen::Index>(i)) = places[i];
  Eigen::MatrixXd residuals;
  const Eigen::VectorXd scores = landscape.Score(columns, residuals);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const auto column = static_cast<Eigen::Index>(i);
    descents[i].at = places[i];
    descents[i].score = scores[column];
    descents[i].residuals = residuals.col(column);
    descents[i].ended = !std::isfinite(scores[column]);
  }
  return descents;
}

Descent BeginDescent(const Place& place, Landscape& landscape) {
  return BeginDescents({place}, landscape).front();
}

Descent BeginWith(const OtherData& measured, const Descent& descent) {
  Descent begun;
  begun.at = descent.at;
  begun.measured = &measured;
  begun.ended = !std::isfinite(descent.score);
  begun.residuals = (descent.residuals + measured.shift).cwiseProduct(measured.factor);
  begun.score = begun.residuals.squaredNorm();
  return begun;
}

void Differentiate(Descent& descent, Landscape& landscape) {
  const Eigen::MatrixXd places = Beside(descent);
  Eigen::MatrixXd residuals;
  Eigen::VectorXd scores = landscape.Score(places, residuals);
  MeasureBy(descent.measured, scores, residuals);
  SetDerivatives(descent, places, scores, residuals);
}

void Descend(std::span<Descent> descents, int iterations, Landscape& landscape) {
  std::vector<Walk> walks;
  for (Descent& descent : descents) walks.emplace_back(descent, iterations);
  while (!walks.empty()) {
    std::vector<Eigen::MatrixXd> asked;
    std::erase_if(walks, [&](Walk& walk) {
      Eigen::MatrixXd places = walk.Ask(landscape);
      const bool ended = places.size() == 0;
      if (!ended) asked.push_back(std::move(places));
      return ended;
    });
    Eigen::Index count = 0;
    for (const Eigen::MatrixXd& places : asked) count += places.cols();
    if (count == 0 || landscape.Exhausted(count)) return;
    Eigen::MatrixXd together(landscape.Size(), count), residuals;
    Eigen::Index first = 0;
    for (const Eigen::MatrixXd& places : asked) {
      together.middleCols(first, places.cols()) = places;
      first += places.cols();
    }
    const Eigen::VectorXd scores = landscape.Score(together, residuals);
    first = 0;
    for (std::size_t i = 0; i < walks.size(); ++i) {
      const Eigen::Index cols = asked[i].cols();
      walks[i].Hear(scores.segment(first, cols), residuals.middleCols(first, cols));
      first += cols;
    }
  }
}

void Descend(Descent& descent, int iterations, Landscape& landscape) {
  Descend(std::span(&descent, 1), iterations, landscape);
}

Eigen::MatrixXd ShapeAround(const Descent& descent, double spread) {
  const Eigen::Index size = descent.at.size();
  const Eigen::MatrixXd widest = Eigen::MatrixXd::Identity(size, size) / (kWidest * kWidest);
  return (descent.normal / (spread * descent.score) + widest).inverse();
}

bool HasKink(const Descent& descent, Landscape& landscape) {
  std::vector<Place> places;
  std::vector<double> explained;
  for (Eigen::Index j = 0; j < descent.at.size(); ++j)
    for (const double move : {-kKinkMove, kKinkMove}) {
      Place place = descent.at;
      place[j] = std::clamp(place[j] + move, 0.0, 1.0);
      if (place[j] == descent.at[j]) continue;
      places.push_back(place);
      explained.push_back(kKinkRise * descent.score +
                          kKinkCurvature * descent.normal(j, j) * move * move);
    }
  const std::vector<double> scores = landscape.Scores(places);
  for (std::size_t i = 0; i < places.size(); ++i)
    if (scores[i] > descent.score + explained[i]) return true;
  return false;
}

}  // namespace velmora
