#include "estimation/Marquardt.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <utility>

#include "estimation/Elite.h"
#include "estimation/Hops.h"
#include "estimation/Polish.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

// The starts. All descend some steps, the best of these on, the best of those to their ends.
constexpr int kPlaces = 200;  // of the hypercube
struct Stage {
  std::size_t descents;
  int iterations;
};
constexpr Stage kStages[] = {{20, 8}, {8, 25}, {4, 150}};

// A round.
constexpr int kHops = 12;
constexpr double kOtherBase = 0.3;         // probability of a hop from another place than the best
constexpr double kOtherBaseWithin = 1.05;  // times the best
constexpr int kHopIterations = 15;
constexpr int kPromisingIterations = 85;  // more, where a hop comes
constexpr double kPromising = 1.05;       // this near to the best
constexpr double kKinkNear = 1.02;        // times the best: where a kink matters

// A round that gains less is quiet.
constexpr double kQuietGain = 1e-5;
constexpr int kQuietRoundsAtKinks = 6;
constexpr int kQuietRounds = 2;
constexpr int kQuietRoundsWhereFewAgree = 5;
constexpr int kFew = 8;  // one of so many descents

// The polish, with evaluations for each parameter.
constexpr double kNarrow = 0.02, kWide = 0.3;  // spreads of the first population
constexpr int kNarrowEvaluations = 200, kWideEvaluations = 400, kSimplexEvaluations = 60;
constexpr int kLastIterations = 40;

class ManyStarts {
 public:
  ManyStarts(const FitProblem& problem, const MarquardtSettings& settings, SearchObserver& observer)
      : problem_(problem),
        observer_(observer),
        landscape_(
            problem, settings.limit, [&observer] { return observer.StopRequested(); },
            settings.threads),
        random_(settings.IU),
        hops_(problem, landscape_, random_) {}

  SearchResult Run() {
    Start();
    while (!ShouldEnd()) {
      if (quietRounds_ + 1 == QuietRoundsWanted())
        StartAfresh();
      else
        Hop();
      Polish();
      EndRound();
    }
    if (bestReport_ > reports_) Report();
    return Result();
  }

 private:
  void Start();
  void StartAfresh();
  void DescendInStages(std::vector<Descent>& descents);
  Descent UserStart();
  std::vector<Descent> BestOfHypercube(std::size_t count);
  void Hop();
  const Descent& Base();
  void FollowPromising(std::vector<Descent>& descents);
  void Polish();
  void EndRound();
  bool ShouldEnd();
  int QuietRoundsWanted() const;
  SearchResult Result() const;

  void Admit(const Descent& descent);
  void LookForKinks(const Descent& descent);
  void Report();

  const FitProblem& problem_;
  SearchObserver& observer_;
  Landscape landscape_;
  UniformGenerator random_;
  Hops hops_;
  Elite elite_;
  bool kinked_ = false;  // near the best the score has a kink: it wants the polish
  double startScore_ = 0;
  double scoreBeforeRound_ = 0;
  int quietRounds_ = 0;  // in a row
  int reports_ = 0;
  int bestReport_ = 0;
};

void ByScore(std::vector<Descent>& descents) {
  std::stable_sort(descents.begin(), descents.end(),
                   [](const Descent& a, const Descent& b) { return a.score < b.score; });
}

void ManyStarts::Start() {
  std::vector<Descent> descents{UserStart()};
  for (Descent& descent : BestOfHypercube(kStages[0].descents - 1))
    descents.push_back(std::move(descent));
  DescendInStages(descents);
  if (!elite_.Empty()) LookForKinks(elite_.Best());
}

/// Before the end, once more from anywhere: hops may never leave a wide basin.
void ManyStarts::StartAfresh() {
  scoreBeforeRound_ = elite_.BestScore();
  std::vector<Descent> descents = BestOfHypercube(kStages[0].descents);
  DescendInStages(descents);
  LookForKinks(elite_.Best());
}

void ManyStarts::DescendInStages(std::vector<Descent>& descents) {
  const bool reports = reports_ == 0;
  for (const auto& [count, iterations] : kStages) {
    ByScore(descents);
    descents.resize(std::min(descents.size(), count));
    Descend(descents, iterations, landscape_);
    for (const Descent& descent : descents) {
      Admit(descent);
      if (reports && count == kStages[0].descents) Report();
    }
  }
  for (const Descent& descent : descents) elite_.NoteEnd(descent.score);
}

/// The start values, which are a result as soon as they are scored.
Descent ManyStarts::UserStart() {
  std::vector<double> start;
  for (const FitVariable& variable : problem_.variables) start.push_back(variable.start);
  Descent descent = BeginDescent(landscape_.PlaceOf(start), landscape_);
  startScore_ = descent.score;
  Admit(descent);
  return descent;
}

std::vector<Descent> ManyStarts::BestOfHypercube(std::size_t count) {
  std::vector<Place> places = hops_.Hypercube(kPlaces);
  if (landscape_.Exhausted(kPlaces)) return {};
  std::vector<Descent> descents = BeginDescents(places, landscape_);
  ByScore(descents);
  descents.resize(std::min(descents.size(), count));
  return descents;
}

/// Descents from beside the best, all at once.
void ManyStarts::Hop() {
  scoreBeforeRound_ = elite_.BestScore();
  std::vector<Place> places;
  for (int hop = 0; hop < kHops && !landscape_.Exhausted(); ++hop) {
    const Place place = hops_.From(Base());
    if (place.allFinite()) places.push_back(place.cwiseMax(0).cwiseMin(1));
  }
  if (places.empty() || landscape_.Exhausted(kHops)) return;
  std::vector<Descent> descents = BeginDescents(places, landscape_);
  Descend(descents, kHopIterations, landscape_);
  FollowPromising(descents);
  for (const Descent& descent : descents) {
    elite_.NoteEnd(descent.score);
    Admit(descent);
  }
  for (const Descent& descent : descents) LookForKinks(descent);
}

/// Those that came near to the best go on.
void ManyStarts::FollowPromising(std::vector<Descent>& descents) {
  double best = elite_.BestScore();
  for (const Descent& descent : descents) best = std::min(best, descent.score);
  const auto rest =
      std::partition(descents.begin(), descents.end(),
                     [best](const Descent& descent) { return descent.score < kPromising * best; });
  Descend({descents.begin(), rest}, kPromisingIterations, landscape_);
}

/// Mostly the best; sometimes another one that is about as good.
const Descent& ManyStarts::Base() {
  const std::size_t near = elite_.CountWithin(kOtherBaseWithin);
  if (near == 1 || random_.Draw() >= kOtherBase) return elite_.Best();
  return elite_.Member(static_cast<std::size_t>(random_.DrawIndex(static_cast<int>(near) - 1)));
}

void ManyStarts::LookForKinks(const Descent& descent) {
  if (kinked_ || landscape_.Exhausted(2 * landscape_.Size())) return;
  if (!(descent.score <= kKinkNear * elite_.BestScore())) return;
  kinked_ = descent.blocked || HasKink(descent, landscape_);
}

void ManyStarts::Polish() {
  const Descent& from = elite_.Best();
  if (!kinked_ || landscape_.Exhausted() || landscape_.IsPerfect(from.score)) return;
  const int size = static_cast<int>(landscape_.Size());
  const int population = 4 + static_cast<int>(3 * Logarithm(static_cast<double>(size)));
  Found best{from.at, from.score};
  AdaptCovariance(best, ShapeAround(from, kNarrow), population, kNarrowEvaluations * size,
                  landscape_, random_);
  AdaptCovariance(best, ShapeAround(from, kWide), 3 * population, kWideEvaluations * size,
                  landscape_, random_);
  const Eigen::MatrixXd edges = ShapeAround(from, kNarrow).llt().matrixL();
  WalkSimplex(best, edges, kSimplexEvaluations * size, landscape_);
  if (!(best.score < from.score)) return;
  Descent descent = BeginDescent(best.at, landscape_);
  Descend(descent, kLastIterations, landscape_);
  elite_.NoteEnd(descent.score);
  Admit(descent);
}

void ManyStarts::Admit(const Descent& descent) {
  if (elite_.Admit(descent, landscape_)) bestReport_ = reports_ + 1;
}

void ManyStarts::EndRound() {
  const bool quiet = scoreBeforeRound_ - elite_.BestScore() <= kQuietGain * scoreBeforeRound_;
  quietRounds_ = quiet ? quietRounds_ + 1 : 0;
  Report();
}

bool ManyStarts::ShouldEnd() {
  if (elite_.Empty() || landscape_.IsPerfect(elite_.BestScore()) || landscape_.Exhausted())
    return true;
  if (quietRounds_ == 0) return false;
  return quietRounds_ >= QuietRoundsWanted();
}

int ManyStarts::QuietRoundsWanted() const {
  if (kinked_) return kQuietRoundsAtKinks;
  const bool fewAgree = kFew * elite_.Agreeing(landscape_) < static_cast<int>(elite_.Ends());
  return fewAgree ? kQuietRoundsWhereFewAgree : kQuietRounds;
}

void ManyStarts::Report() {
  if (elite_.Empty()) return;
  ++reports_;
  observer_.Report({reports_, landscape_.CandidateAt(elite_.Best().at), elite_.BestScore(),
                    landscape_.Evaluations(), landscape_.Observations()});
}

SearchResult ManyStarts::Result() const {
  SearchResult result;
  result.functionCalls = landscape_.Evaluations();
  result.generations = reports_;
  result.startScore = startScore_;
  result.end = landscape_.Stopped() ? SearchEnd::Stopped
               : elite_.Empty()     ? SearchEnd::Fault
               : landscape_.Spent() ? SearchEnd::EvaluationLimit
                                    : SearchEnd::Converged;
  if (result.end == SearchEnd::Fault) result.fault = landscape_.FirstFault();
  if (elite_.Empty()) return result;
  result.best = landscape_.CandidateAt(elite_.Best().at);
  result.score = elite_.BestScore();
  result.bestGeneration = bestReport_;
  result.starts = static_cast<int>(elite_.Ends());
  result.agreeing = elite_.Reached(landscape_);
  return result;
}

}  // namespace

SearchResult SearchMarquardt(const FitProblem& problem, MarquardtSettings settings,
                             SearchObserver& observer) {
  if (!BoundsAreOrdered(problem.variables)) return {};
  return ManyStarts(problem, settings, observer).Run();
}

}  // namespace velmora
