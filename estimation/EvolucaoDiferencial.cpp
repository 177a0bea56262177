#include "estimation/EvolucaoDiferencial.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>
#include <new>
#include <utility>

#include "estimation/UniformGenerator.h"

namespace velmora {
namespace {

constexpr double kHalf = 0.5;  // of the centred difference, and of the population kept
// Of a Gaussian mutation, and of an exponential crossover.
constexpr double kSecondFormProbability = 0.1;
constexpr double kReinitialiseProbability = 0.9;  // in a generation that ends a cycle
constexpr int kReinitialiseCycle = 50;            // generations
constexpr int kIndexOffset = 1;                   // members and components are counted from 1
constexpr std::size_t kDrawnMembers = 4;          // for a mutant
constexpr int kReportEvery = 1;                   // generations

// A component outside its bounds is brought back inside before it is scored.
constexpr bool kRepairsBounds = true;

// Members of a population that is scored whole, for each block that is scored at once.
constexpr int kBlocksOfMembers = 4;
// Trials that stand ready, at most, for each that is scored at once.
constexpr std::size_t kReadyTrials = 4;

// A population so many times as large as what lanes hold seldom has a member replaced that a trial
// ahead was made from.
constexpr double kLarge = 12;

constexpr double kMostCounted = std::numeric_limits<int>::max();

/// The whole part of NPOP. A population that no memory could hold is refused as such.
int Members(double NPOP) {
  if (!(NPOP <= kMostCounted)) throw std::bad_alloc();
  return static_cast<int>(NPOP);
}

/// A trial that was made before its turn. It holds while none of its members has been replaced
/// since.
struct TrialAhead {
  int madeAt = 0;  // the target whose turn it was
  std::array<int, kDrawnMembers> drawn{};
  std::size_t position = 0;  // of its first random number
  std::vector<double> x;
  bool isScored = false;
  CandidateScore scored;
};

/// One search: the population table and the best vector found.
class Evolution {
 public:
  Evolution(const FitProblem& problem, const EstimationSettings& settings,
            Objective::Workspace workspace)
      : objective_(problem),
        variables_(problem.variables),
        settings_(settings),
        workspace_(std::move(workspace)),
        random_(settings.IU),
        members_(Members(settings.NPOP)),
        population_(static_cast<std::size_t>(members_) * variables_.size()),
        scores_(static_cast<std::size_t>(members_)),
        mutant_(variables_.size()),
        trial_(variables_.size()),
        replaced_(static_cast<std::size_t>(members_) + kIndexOffset),
        together_(members_ < kLarge * static_cast<double>(objective_.Together(workspace_))
                      ? objective_.Filling(workspace_)
                      : objective_.Together(workspace_)),
        ready_(kReadyTrials * together_),
        before_(ready_.size()) {
    for (auto* trials : {&ready_, &before_})
      for (TrialAhead& trial : *trials) trial.x.resize(Size());
  }

  SearchResult Run(SearchObserver& observer);

 private:
  std::span<double> MembersFrom(int i, int count) {
    return std::span(population_)
        .subspan(static_cast<std::size_t>(i - kIndexOffset) * Size(),
                 static_cast<std::size_t>(count) * Size());
  }
  std::span<double> Member(int i) { return MembersFrom(i, 1); }
  double& Score(int i) { return scores_[static_cast<std::size_t>(i - kIndexOffset)]; }
  std::size_t Size() const { return variables_.size(); }

  double ScoreStart();
  void Populate(SearchObserver& observer);
  SearchEnd Evolve(SearchObserver& observer);
  bool Breed(SearchObserver& observer);
  void DrawMember(int i);
  void ScoreMembers(int first, int last, SearchObserver& observer);
  void ReinitialisePartly(SearchObserver& observer);
  std::array<int, kDrawnMembers> DrawFour(int target);
  void Mutate(const std::array<int, kDrawnMembers>& drawn);
  void CrossOver(int target);
  void BinomialCrossOver();
  void ExponentialCrossOver();
  TrialAhead& MakeTrial(int target, int turn);
  bool IsStale(const TrialAhead& trial, int target) const;
  void LookAhead(int turn);
  void ScoreTrials(std::size_t count);
  void Select(int target, const TrialAhead& trial);
  void KeepIfBest(std::span<const double> x, double score);
  bool Converged() const { return std::fabs(previousScore_ - result_.score) < settings_.EPS; }

  void RepairBounds(std::span<double> x);
  double EvaluateCandidate(std::span<double> x);
  void CountCall();

  const Objective objective_;
  const std::vector<FitVariable> variables_;
  const EstimationSettings settings_;
  Objective::Workspace workspace_;
  RepeatableGenerator random_;
  int members_;
  std::vector<double> population_;  // row = member, column = fitted parameter
  std::vector<double> scores_;
  std::vector<double> mutant_;
  std::vector<double> trial_;
  std::vector<char> replaced_;  // members, in this generation
  // The trials that are made but have not had their turn: ready_[first_] to ready_[last_ - 1].
  const std::size_t together_;  // trials that are scored in one call
  std::vector<TrialAhead> ready_, before_;
  std::size_t first_ = 0, last_ = 0;
  std::vector<double> unscored_;
  std::vector<CandidateScore> scored_;
  SearchResult result_;
  double previousScore_ = 0;
  int generation_ = 0;
  int cycle_ = 0;
};

SearchResult Evolution::Run(SearchObserver& observer) {
  try {
    result_.startScore = ScoreStart();
    Populate(observer);
    result_.end = Evolve(observer);
  } catch (const ArithmeticFault& fault) {
    result_.end = SearchEnd::Fault;
    result_.fault = fault;
  }
  return std::move(result_);
}

double Evolution::ScoreStart() {
  std::transform(variables_.begin(), variables_.end(), trial_.begin(),
                 [](const FitVariable& variable) { return variable.start; });
  const double score = EvaluateCandidate(trial_);
  // A start outside the bounds costs draws; the search itself always begins with those of the seed.
  random_ = RepeatableGenerator(settings_.IU);
  return score;
}

/// The best score before the first generation is that of the population: a first generation that
/// gains nothing on it has converged, as every later one.
void Evolution::Populate(SearchObserver& observer) {
  for (int i = kIndexOffset; i <= members_; ++i) DrawMember(i);
  ScoreMembers(kIndexOffset, members_, observer);
  previousScore_ = result_.score;
}

SearchEnd Evolution::Evolve(SearchObserver& observer) {
  const int limit = static_cast<int>(std::min(settings_.ITER, kMostCounted));
  for (generation_ = 1; generation_ <= limit; ++generation_) {
    if (observer.StopRequested()) return SearchEnd::Stopped;
    SearchResult before = result_;
    if (!Breed(observer)) {
      result_ = std::move(before);
      return SearchEnd::Stopped;
    }
    result_.generations = generation_;
    if (generation_ % kReportEvery == 0)
      observer.Report({generation_, result_.best, result_.score, result_.functionCalls,
                       objective_.Observations()});
    if (Converged()) return SearchEnd::Converged;
    previousScore_ = result_.score;
  }
  return SearchEnd::GenerationLimit;
}

/// One generation; false where it was left.
bool Evolution::Breed(SearchObserver& observer) {
  ReinitialisePartly(observer);
  std::fill(replaced_.begin(), replaced_.end(), char{0});
  for (int target = kIndexOffset; target <= members_; ++target) {
    if (first_ == last_ || IsStale(ready_[first_], target)) {
      if (observer.StopsAtOnce()) return false;
      LookAhead(target);
    }
    Select(target, ready_[first_++]);
  }
  return true;
}

void Evolution::DrawMember(int i) {
  const std::span<double> x = Member(i);
  for (std::size_t j = 0; j < Size(); ++j)
    x[j] = variables_[j].lower + random_.Draw() * (variables_[j].upper - variables_[j].lower);
}

/// What is drawn does not depend on scores, so that many members are scored in one call.
void Evolution::ScoreMembers(int first, int last, SearchObserver& observer) {
  const int together = kBlocksOfMembers * static_cast<int>(objective_.Together(workspace_));
  for (int block = first; block <= last; block += together) {
    if (result_.HasResult() && observer.StopsAtOnce()) return;
    const int count = std::min(together, last - block + 1);
    for (int i = block; i < block + count; ++i) RepairBounds(Member(i));
    random_.Forget();
    scored_.resize(static_cast<std::size_t>(count));
    objective_.Score(MembersFrom(block, count), scored_, workspace_);
    for (int i = block; i < block + count; ++i) {
      const CandidateScore& scored = scored_[static_cast<std::size_t>(i - block)];
      CountCall();
      if (scored.fault) throw *scored.fault;
      Score(i) = scored.score;
      KeepIfBest(Member(i), scored.score);
    }
  }
}

/// Every generation draws whether to, though only the last of a cycle acts on it.
void Evolution::ReinitialisePartly(SearchObserver& observer) {
  const bool reinitialises = random_.Draw() <= kReinitialiseProbability;
  const int kept = reinitialises ? static_cast<int>(settings_.NPOP * kHalf) : members_;
  cycle_ = (cycle_ + 1) % kReinitialiseCycle;
  if (cycle_ != 0) return;
  for (int i = kept + 1; i <= members_; ++i) DrawMember(i);
  ScoreMembers(kept + 1, members_, observer);
}

std::array<int, kDrawnMembers> Evolution::DrawFour(int target) {
  std::array<int, kDrawnMembers> drawn{};
  for (std::size_t k = 0; k < drawn.size(); ++k) {
    const auto before = drawn.begin() + static_cast<std::ptrdiff_t>(k);
    do {
      drawn[k] = random_.DrawIndex(members_);
    } while (drawn[k] == target || std::find(drawn.begin(), before, drawn[k]) != before);
  }
  return drawn;
}

void Evolution::Mutate(const std::array<int, kDrawnMembers>& drawn) {
  const std::span<const double> x1 = Member(drawn[0]), x2 = Member(drawn[1]);
  const std::span<const double> x3 = Member(drawn[2]), x4 = Member(drawn[3]);
  const bool gaussian = random_.Draw() < kSecondFormProbability;
  const double normal = gaussian ? random_.GaussianRandom() : 0;
  for (std::size_t j = 0; j < Size(); ++j) {
    const double second =
        gaussian ? normal * (x1[j] + x4[j] - 2 * x3[j]) : x3[j] - kHalf * x4[j] - kHalf * x1[j];
    mutant_[j] = x1[j] + settings_.FACT * (x2[j] - x3[j]) + settings_.FACT1 * second;
  }
}

void Evolution::CrossOver(int target) {
  std::copy_n(Member(target).begin(), Size(), trial_.begin());
  if (random_.Draw() < kSecondFormProbability)
    ExponentialCrossOver();
  else
    BinomialCrossOver();
}

void Evolution::BinomialCrossOver() {
  for (std::size_t j = 0; j < Size(); ++j)
    if (random_.Draw() <= settings_.PCROS) trial_[j] = mutant_[j];
}

void Evolution::ExponentialCrossOver() {
  std::size_t n =
      static_cast<std::size_t>(random_.DrawIndex(static_cast<int>(Size()))) - kIndexOffset;
  std::size_t taken = 0;
  do {
    trial_[n] = mutant_[n];
    n = (n + 1) % Size();
    ++taken;
  } while (taken < Size() && random_.Draw() < settings_.PCROS);
}

/// The trial of a target from the population as it stands, inside the bounds.
TrialAhead& Evolution::MakeTrial(int target, int turn) {
  TrialAhead& made = ready_[last_++];
  made.madeAt = turn;
  made.position = random_.Position();
  made.drawn = DrawFour(target);
  Mutate(made.drawn);
  CrossOver(target);
  RepairBounds(trial_);
  std::copy(trial_.begin(), trial_.end(), made.x.begin());
  made.isScored = false;
  return made;
}

bool Evolution::IsStale(const TrialAhead& trial, int target) const {
  return std::any_of(trial.drawn.begin(), trial.drawn.end(), [&](int member) {
    return member >= trial.madeAt && member < target && replaced_[static_cast<std::size_t>(member)];
  });
}

/// Makes the trials from this turn on, as many as can be scored at once beside those whose score
/// is known from before, and scores them. What is drawn for a trial does not depend on scores; only
/// where a trial changes, because one of its members has been replaced, may the random numbers fall
/// otherwise on those behind it. So all are made anew, with the numbers that are theirs.
void Evolution::LookAhead(int turn) {
  before_.swap(ready_);
  const std::size_t first = first_, last = last_;
  if (first == last)
    random_.Forget();
  else
    random_.ReturnTo(before_[first].position);
  first_ = last_ = 0;
  const std::size_t together = objective_.Counts(together_, workspace_) ? together_ : 1;
  unscored_.clear();
  std::size_t fresh = 0;
  for (int target = turn; target <= members_ && fresh < together && last_ < ready_.size();
       ++target) {
    TrialAhead& made = MakeTrial(target, turn);
    const std::size_t same = first + static_cast<std::size_t>(target - turn);
    if (same < last && before_[same].x == made.x) {
      made.scored = before_[same].scored;
      made.isScored = true;
    } else {
      ++fresh;
      unscored_.insert(unscored_.end(), made.x.begin(), made.x.end());
    }
  }
  ScoreTrials(fresh);
}

/// Scores the trials that are not. Those whose turn never comes are not counted.
void Evolution::ScoreTrials(std::size_t count) {
  const std::int32_t counted = workspace_.Evaluations();
  scored_.resize(count);
  objective_.Score(unscored_, scored_, workspace_);
  workspace_.SetEvaluations(counted);
  std::size_t next = 0;
  for (std::size_t i = first_; i < last_; ++i)
    if (!ready_[i].isScored) ready_[i].scored = scored_[next++];
  result_.simulations += static_cast<std::int64_t>(count);
}

void Evolution::Select(int target, const TrialAhead& trial) {
  CountCall();
  workspace_.SetEvaluations(workspace_.Evaluations() + trial.scored.rateEvaluations);
  if (trial.scored.fault) throw *trial.scored.fault;
  const double score = trial.scored.score;
  if (score < Score(target)) {
    std::copy(trial.x.begin(), trial.x.end(), Member(target).begin());
    Score(target) = score;
    replaced_[static_cast<std::size_t>(target)] = 1;
  }
  KeepIfBest(trial.x, score);
}

void Evolution::KeepIfBest(std::span<const double> x, double score) {
  if (result_.HasResult() && !(score < result_.score)) return;
  result_.best.assign(x.begin(), x.end());
  result_.score = score;
  result_.bestGeneration = generation_;
}

void Evolution::RepairBounds(std::span<double> x) {
  if constexpr (!kRepairsBounds) return;
  for (std::size_t j = 0; j < x.size(); ++j) {
    const auto& [position, lower, upper, start] = variables_[j];
    if (x[j] < lower || x[j] > upper) x[j] = lower + random_.Draw() * (upper - lower);
  }
}

/// The score of candidate `x`, which is first brought inside the bounds; throws its fault.
double Evolution::EvaluateCandidate(std::span<double> x) {
  RepairBounds(x);
  CandidateScore scored;
  objective_.Score(x, std::span(&scored, 1), workspace_);
  if (scored.fault) throw *scored.fault;
  return scored.score;
}

void Evolution::CountCall() {
  if (result_.functionCalls == std::numeric_limits<std::int32_t>::max())
    throw ArithmeticFault{FaultKind::Overflow, FaultTerm::EvaluationCounter};
  ++result_.functionCalls;
}

}  // namespace

SearchResult Search(const FitProblem& problem, EstimationSettings settings,
                    SearchObserver& observer, Objective::Workspace workspace) {
  assert(settings.NPOP >= 10);
  if (!BoundsAreOrdered(problem.variables)) return {};
  return Evolution(problem, settings, std::move(workspace)).Run(observer);
}

}  // namespace velmora
