#include "estimation/EvolucaoDiferencial.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <limits>
#include <new>

namespace velmora {
namespace {

constexpr double kHalf = 0.5;
constexpr double kSecondFormProbability =
    0.1;  // of a Gaussian mutation, of an exponential crossover
constexpr double kReinitialiseProbability = 0.9;  // in a generation that ends a cycle
constexpr int kReinitialiseCycle = 50;            // generations

constexpr double kMostCounted = std::numeric_limits<int>::max();

/// The whole part of NPOP. A population that no memory could hold is refused as such.
int Members(double NPOP) {
  if (!(NPOP <= kMostCounted)) throw std::bad_alloc();
  return static_cast<int>(NPOP);
}

/// One search: the population table and the best vector found.
class Evolution {
 public:
  Evolution(Objective& objective, std::span<const FitVariable> variables,
            const EstimationSettings& settings)
      : objective_(objective),
        variables_(variables),
        settings_(settings),
        random_(settings.IU),
        members_(Members(settings.NPOP)),
        population_(static_cast<std::size_t>(members_) * variables.size()),
        scores_(static_cast<std::size_t>(members_)),
        mutant_(variables.size()),
        trial_(variables.size()),
        best_(variables.size()) {}

  void Run(SearchObserver& observer, SearchResult& result);

 private:
  std::span<double> Member(int i) {
    return std::span(population_).subspan(static_cast<std::size_t>(i - 1) * Size(), Size());
  }
  double& Score(int i) { return scores_[static_cast<std::size_t>(i - 1)]; }
  std::size_t Size() const { return variables_.size(); }

  double ScoreStart();
  void DrawMember(int i);
  void ScoreMember(int i);
  void Populate();
  void ReinitialisePartly();
  std::array<int, 4> DrawFour(int target);
  void Mutate(const std::array<int, 4>& drawn);
  void CrossOver(int target);
  void BinomialCrossOver();
  void ExponentialCrossOver();
  void EvaluateAndSelect(int target);
  void KeepIfBest(std::span<const double> x, double score);
  bool Converged() const { return std::fabs(previousScore_ - bestScore_) < settings_.EPS; }

  Objective& objective_;
  std::span<const FitVariable> variables_;
  const EstimationSettings& settings_;
  UniformGenerator random_;
  int members_;
  std::vector<double> population_;  // row = member, column = fitted parameter
  std::vector<double> scores_;
  std::vector<double> mutant_;
  std::vector<double> trial_;
  std::vector<double> best_;
  double bestScore_ = 0;
  double previousScore_ = 0;
  int cycle_ = 0;
};

void Evolution::Run(SearchObserver& observer, SearchResult& result) {
  result.startScore = ScoreStart();
  Populate();
  result.end = SearchEnd::GenerationLimit;
  const int limit = static_cast<int>(std::min(settings_.ITER, kMostCounted));
  for (int generation = 1; generation <= limit; ++generation) {
    if (observer.StopRequested()) {
      result.end = SearchEnd::Stopped;
      break;
    }
    ReinitialisePartly();
    for (int target = 1; target <= members_; ++target) {
      Mutate(DrawFour(target));
      CrossOver(target);
      EvaluateAndSelect(target);
    }
    result.generations = generation;
    observer.Report({generation, best_, bestScore_, objective_.FunctionCalls(), objective_});
    if (Converged()) {
      result.end = SearchEnd::Converged;
      break;
    }
    previousScore_ = bestScore_;
  }
  result.best = best_;
  result.functionCalls = objective_.FunctionCalls();
  result.score = objective_.EvaluateCandidate(result.best, random_);
}

double Evolution::ScoreStart() {
  std::transform(variables_.begin(), variables_.end(), trial_.begin(),
                 [](const FitVariable& variable) { return variable.start; });
  const double score = objective_.EvaluateCandidate(trial_, random_);
  // A start outside the bounds costs draws; the search itself always begins with those of the seed.
  random_ = UniformGenerator(settings_.IU);
  objective_.ResetFunctionCalls();
  return score;
}

void Evolution::DrawMember(int i) {
  const std::span<double> x = Member(i);
  for (std::size_t j = 0; j < Size(); ++j)
    x[j] = variables_[j].lower + random_.Draw() * (variables_[j].upper - variables_[j].lower);
}

void Evolution::ScoreMember(int i) {
  Score(i) = objective_.CountedEvaluate(Member(i), random_);
  KeepIfBest(Member(i), Score(i));
}

void Evolution::Populate() {
  for (int i = 1; i <= members_; ++i) DrawMember(i);
  for (int i = 1; i <= members_; ++i) {
    if (i == 1) bestScore_ = std::numeric_limits<double>::infinity();
    ScoreMember(i);
  }
  previousScore_ = bestScore_;
}

void Evolution::ReinitialisePartly() {
  const bool drawn = random_.Draw() <= kReinitialiseProbability;
  const int kept = drawn ? static_cast<int>(settings_.NPOP * kHalf) : members_;
  cycle_ = (cycle_ + 1) % kReinitialiseCycle;
  if (cycle_ != 0) return;
  for (int i = kept + 1; i <= members_; ++i) DrawMember(i);
  for (int i = kept + 1; i <= members_; ++i) ScoreMember(i);
}

std::array<int, 4> Evolution::DrawFour(int target) {
  std::array<int, 4> drawn{};
  for (std::size_t k = 0; k < drawn.size(); ++k) {
    const auto before = drawn.begin() + static_cast<std::ptrdiff_t>(k);
    do {
      drawn[k] = random_.DrawIndex(members_);
    } while (drawn[k] == target || std::find(drawn.begin(), before, drawn[k]) != before);
  }
  return drawn;
}

void Evolution::Mutate(const std::array<int, 4>& drawn) {
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
  std::size_t n = static_cast<std::size_t>(random_.DrawIndex(static_cast<int>(Size()))) - 1;
  std::size_t taken = 0;
  do {
    trial_[n] = mutant_[n];
    n = (n + 1) % Size();
    ++taken;
  } while (taken < Size() && random_.Draw() < settings_.PCROS);
}

void Evolution::EvaluateAndSelect(int target) {
  const double score = objective_.CountedEvaluate(trial_, random_);
  if (score < Score(target)) {
    std::copy(trial_.begin(), trial_.end(), Member(target).begin());
    Score(target) = score;
  }
  KeepIfBest(trial_, score);
}

void Evolution::KeepIfBest(std::span<const double> x, double score) {
  if (!(score < bestScore_)) return;
  std::copy(x.begin(), x.end(), best_.begin());
  bestScore_ = score;
}

}  // namespace

std::optional<Message> RefuseBounds(std::span<const FitVariable> variables) {
  const bool ordered = std::all_of(variables.begin(), variables.end(), [](const FitVariable& v) {
    return std::isfinite(v.lower) && std::isfinite(v.upper) && v.lower < v.upper;
  });
  if (ordered) return std::nullopt;
  return Attention({TextId::CheckBounds});
}

SearchResult Search(Objective& objective, std::span<const FitVariable> variables,
                    const EstimationSettings& settings, SearchObserver& observer) {
  assert(settings.NPOP >= 10);
  SearchResult result;
  result.refusal = RefuseBounds(variables);
  if (result.refusal) return result;
  try {
    Evolution(objective, variables, settings).Run(observer, result);
  } catch (const ArithmeticFault& fault) {
    result.end = SearchEnd::Fault;
    result.fault = fault;
  }
  return result;
}

}  // namespace velmora
