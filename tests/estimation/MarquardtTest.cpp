#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "estimation/Descent.h"
#include "estimation/Marquardt.h"
#include "estimation/Polish.h"
#include "language/Numbers.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

class Counting : public SearchObserver {
 public:
  explicit Counting(int questions = std::numeric_limits<int>::max()) : most_(questions) {}
  bool StopRequested() override { return ++asked >= most_; }
  void Report(const Generation& generation) override {
    scores.push_back(generation.score);
    calls = generation.functionCalls;
  }
  std::vector<double> scores;
  std::int32_t calls = 0;
  int asked = 0;

 private:
  int most_;
};

SearchResult Find(const FitProblem& problem, MarquardtSettings settings = {}) {
  SearchObserver silent;
  return SearchMarquardt(problem, settings, silent);
}

TEST(Marquardt, RecoversTheConstantsThatMadeTheDataFromAnyStart) {
  FitProblem problem = test::TwoBatches();
  // The last start lies outside its bounds.
  for (const double start : {0.05, 0.2, 3.0}) {
    problem.variables[0].start = start;
    Counting observer;
    const SearchResult result = SearchMarquardt(problem, {}, observer);
    EXPECT_EQ(result.end, SearchEnd::Converged);
    EXPECT_NEAR(result.best[0], 0.3, 1e-6);
    EXPECT_NEAR(result.best[1], 8, 1e-4);
    EXPECT_NEAR(result.best[2], 1.3, 1e-5);
    EXPECT_EQ(result.score, Objective(problem).Simulate(result.best).score);
    EXPECT_GT(2 * result.agreeing, result.starts);
    EXPECT_TRUE(std::is_sorted(observer.scores.rbegin(), observer.scores.rend()));
    EXPECT_EQ(result.generations, static_cast<int>(observer.scores.size()));
  }
}

/// Two limits with exponents, and a value that no vector fits: the score has kinks.
FitProblem Kinked() {
  FitProblem problem = test::SampledBatches("Moser-Levenspiel-Lee", {60});
  problem.experiments[0].Cx[4] *= 1.1;
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::CxAst, 5, 80, 60}, {At::m, 0.1, 3, 1}};
  return problem;
}

TEST(Marquardt, GivesTheSameForTheSameSeed) {
  const FitProblem problem = Kinked();
  const SearchResult first = Find(problem, {.IU = 1234});
  const SearchResult again = Find(problem, {.IU = 1234});
  EXPECT_EQ(first.best, again.best);
  EXPECT_EQ(first.functionCalls, again.functionCalls);
  const SearchResult shared = Find(problem, {.IU = 1234, .threads = 3});
  EXPECT_EQ(first.best, shared.best);
  EXPECT_EQ(first.functionCalls, shared.functionCalls);
  // The signature of this run, over lanes of any width. It changes only with the numerical method,
  // and then on purpose.
  EXPECT_EQ(ShortestText(first.score), "0.008167429994699176");
  EXPECT_EQ(first.functionCalls, 12651);
  FitProblem smooth = test::TwoBatches();
  smooth.experiments[0].Cx[4] *= 1.1;
  const SearchResult without = Find(smooth);
  EXPECT_EQ(ShortestText(without.score), "0.008239844824113208");
  EXPECT_EQ(without.functionCalls, 2109);
  const SearchResult other = Find(problem, {.IU = 1235});
  EXPECT_NE(first.functionCalls, other.functionCalls);
  EXPECT_NEAR(first.score, other.score, 1e-4 * first.score);
}

TEST(Landscape, HasTheBoundsAtItsEdges) {
  FitProblem problem = test::TwoBatches();
  problem.variables = {{At::muMax, 0, 4, 1}, {At::Ks, 0.5, 32, 10}};
  const Landscape landscape(problem, 1, [] { return false; });
  const Place middle = landscape.PlaceOf({2, 4});
  EXPECT_NEAR(middle[0], 0.5, 1e-15);
  EXPECT_NEAR(middle[1], 0.5, 1e-15) << "on the logarithmic scale";
  EXPECT_NEAR(landscape.CandidateAt(middle)[0], 2, 1e-14);
  EXPECT_NEAR(landscape.CandidateAt(middle)[1], 4, 1e-14);
  EXPECT_EQ(landscape.CandidateAt(Place{{0, 0}}), (std::vector{0.0, 0.5}));
  EXPECT_EQ(landscape.CandidateAt(Place{{1, 1}}), (std::vector{4.0, 32.0}));
}

// From each of these places the first step would leave the box: what the components at its edge
// leave of it promises nothing.
TEST(Descent, GoesOnFromTheEdgeOfTheBox) {
  FitProblem problem = test::SampledBatches("Moser-Levenspiel-Lee", {60});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::CxAst, 5, 80, 60}, {At::m, 0.1, 3, 1}};
  Landscape landscape(problem, 1'000'000, [] { return false; });
  for (const Place& from :
       {Place{{0.3, 0.3, 0.5}}, Place{{0.9, 0.3, 0.1}}, Place{{0.9, 0.7, 0.5}}}) {
    Descent descent = BeginDescent(from, landscape);
    const double before = descent.score;
    Descend(descent, 150, landscape);
    EXPECT_LT(descent.score, 0.01 * before) << from;
  }
}

// The signatures change only with the numerical method, and then on purpose.
TEST(Polish, KeepsItsSignature) {
  Landscape landscape(Kinked(), 1'000'000, [] { return false; });
  Descent descent = BeginDescent(Place{{0.3, 0.9, 0.5}}, landscape);
  Descend(descent, 3, landscape);
  UniformGenerator random(1234);
  Found adapted{descent.at, descent.score};
  AdaptCovariance(adapted, ShapeAround(descent, 0.3), 7, 600, landscape, random);
  EXPECT_EQ(ShortestText(adapted.score), "0.008185198390714576");
  Found walked{descent.at, descent.score};
  WalkSimplex(walked, 0.05 * Eigen::MatrixXd::Identity(3, 3), 400, landscape);
  EXPECT_EQ(ShortestText(walked.score), "0.008167570379966033");
  EXPECT_EQ(landscape.Evaluations(), 1012);
}

// Data made with muMax 0.3 and Ks 8, looked for where they are not.
TEST(Marquardt, EndsAtABoundAndInAFlatValley) {
  FitProblem problem = test::TwoBatches();
  problem.variables = {{At::muMax, 0.31, 1, 0.5}, {At::Ks, 1, 30, 10}};
  SearchResult result = Find(problem);
  EXPECT_EQ(result.end, SearchEnd::Converged);
  EXPECT_EQ(result.best[0], 0.31);
  EXPECT_GT(result.best[1], 8);

  // The model has no term in which Kip acts.
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::Kip, 1, 100, 10}};
  result = Find(problem);
  EXPECT_EQ(result.end, SearchEnd::Converged);
  EXPECT_NEAR(result.best[0], 0.3, 1e-6);
}

// 75^u is above the largest double, 1.8e308, where u is above 164.4.
TEST(Marquardt, WalksAroundFaults) {
  FitProblem problem = test::SampledBatches("Moser", {75});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::u, 0.5, 10'000, 5'000}};
  Counting observer;
  SearchResult result = SearchMarquardt(problem, {}, observer);
  EXPECT_EQ(result.end, SearchEnd::Converged);
  const auto& scores = observer.scores;
  EXPECT_EQ(result.bestGeneration,
            std::find(scores.begin(), scores.end(), result.score) - scores.begin() + 1);
  EXPECT_NEAR(result.best[0], 0.3, 1e-5);
  EXPECT_NEAR(result.best[1], 1.2, 1e-4);
  EXPECT_FALSE(result.fault);

  problem.variables[1] = {At::u, 1'000, 10'000, 5'000};
  result = Find(problem);
  EXPECT_EQ(result.end, SearchEnd::Fault);
  EXPECT_FALSE(result.HasResult());
  ASSERT_TRUE(result.fault);
  EXPECT_EQ(result.fault->kind, FaultKind::Overflow);
  EXPECT_EQ(result.fault->place, 1);
}

TEST(Marquardt, EndsSoonWhereItIsStoppedAndAtItsLimit) {
  const FitProblem problem = test::SampledBatches("Andrews-Levenspiel", {40, 80});
  FitProblem noisy = problem;
  noisy.variables = test::TwoBatches().variables;
  noisy.experiments[0].Cs[3] *= 1.2;
  for (const int questions : {1, 2, 8}) {
    Counting observer(questions);
    const SearchResult stopped = SearchMarquardt(noisy, {}, observer);
    EXPECT_EQ(stopped.end, SearchEnd::Stopped);
    EXPECT_TRUE(stopped.HasResult());
    EXPECT_LE(stopped.score, stopped.startScore);
    // It is asked after the 200 of the hypercube, and then about every 60, which 20 descents make
    // side by side.
    EXPECT_LE(stopped.functionCalls, 200 + 110 * questions);
    EXPECT_EQ(observer.asked, questions);
  }
  const SearchResult limited = Find(noisy, {.limit = 700});
  EXPECT_EQ(limited.end, SearchEnd::EvaluationLimit);
  EXPECT_LE(limited.functionCalls, 700);
  EXPECT_GE(limited.functionCalls, 700 - 60);
}

TEST(Marquardt, RefusesBoundsOutOfOrder) {
  FitProblem problem = test::TwoBatches();
  problem.variables[1].upper = problem.variables[1].lower;
  EXPECT_EQ(Find(problem).end, SearchEnd::Refused);
}

}  // namespace
}  // namespace velmora
