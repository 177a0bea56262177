#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "estimation/Deviations.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/ResultTexts.h"
#include "language/Numbers.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

/// The stopping rule held open: no change of the best score is below a negative accuracy.
EstimationSettings Unstopped(double members = 100, double generations = 200) {
  EstimationSettings settings;
  settings.NPOP = members;
  settings.ITER = generations;
  settings.EPS = -1;
  return settings;
}

class Recorder : public SearchObserver {
 public:
  explicit Recorder(int generations = 1 << 30) : most_(generations) {}
  bool StopRequested() override { return static_cast<int>(scores.size()) >= most_; }
  void Report(const Generation& generation) override {
    scores.push_back(generation.score);
    calls = generation.functionCalls;
  }
  std::vector<double> scores;
  std::int32_t calls = 0;

 private:
  int most_;
};

TEST(Search, RecoversTheConstantsThatMadeTheData) {
  const FitProblem problem = test::TwoBatches();
  Recorder recorder;
  const SearchResult result = Search(problem, Unstopped(), recorder);
  ASSERT_EQ(result.end, SearchEnd::GenerationLimit);
  EXPECT_EQ(result.generations, 200);
  EXPECT_NEAR(result.best[0], 0.3, 1e-6);
  EXPECT_NEAR(result.best[1], 8, 1e-4);
  EXPECT_NEAR(result.best[2], 1.3, 1e-5);
  EXPECT_EQ(recorder.scores.size(), 200U);
  EXPECT_TRUE(std::is_sorted(recorder.scores.rbegin(), recorder.scores.rend()));
  // 100 members, 200 generations of 100 trials, and half the members drawn anew in each of the
  // generations 50, 100, 150 and 200 in which the draw falls below 0.9.
  EXPECT_EQ((result.functionCalls - 20100) % 50, 0);
  EXPECT_GT(result.functionCalls, 20100);
  EXPECT_LE(result.functionCalls, 20300);
}

TEST(Search, KeepsItsSignatureAndEndsWhereAGenerationGainsLessThanTheAccuracy) {
  const FitProblem problem = test::TwoBatches();
  EstimationSettings settings;
  settings.IU = 5748;
  Recorder recorder;
  const SearchResult result = Search(problem, settings, recorder);
  ASSERT_EQ(result.end, SearchEnd::Converged);
  const std::size_t last = recorder.scores.size() - 1;
  ASSERT_GE(last, 1U);
  for (std::size_t g = 1; g <= last; ++g)
    EXPECT_EQ(recorder.scores[g - 1] - recorder.scores[g] < settings.EPS, g == last);
  EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);
  // The signature of this run. It changes only with the numerical method, and then on purpose.
  EXPECT_EQ(ShortestText(result.score), "0.0011387672630201618");
  EXPECT_EQ(result.functionCalls, 800);
  Recorder shared;
  const SearchResult byThree = Search(problem, settings, shared, Objective::Workspace(0, 3));
  EXPECT_EQ(byThree.best, result.best);
  EXPECT_EQ(byThree.functionCalls, result.functionCalls);
  EXPECT_EQ(shared.scores, recorder.scores);
}

TEST(Search, KeepsItsSignatureThroughTheReinitialisations) {
  FitProblem problem = test::SampledBatches("Andrews-Hoppe", {20, 30, 40, 50, 60, 70, 80, 90, 100});
  // The data were made with Kis 90: the start lies below the bounds, and the best fit on one.
  problem.variables = {{At::muMax, 0.05, 1, 0.2},
                       {At::Ks, 1, 30, 10},
                       {At::Kis, 100, 300, 90},
                       {At::Kip, 10, 100, 20}};
  EstimationSettings settings = Unstopped(21, 120);
  settings.IU = 1466;
  Recorder recorder;
  const SearchResult result = Search(problem, settings, recorder);
  // 21 members, 120 generations of 21 trials, and the upper 11 places drawn anew in generation 50
  // but not in generation 100.
  EXPECT_EQ(result.functionCalls, 21 + 120 * 21 + 11);
  // The signature of this run. It changes only with the numerical method, and then on purpose.
  EXPECT_EQ(ShortestText(result.score), "0.001141585298008612");
  EXPECT_EQ(ShortestText(result.startScore), "5.588089583174631");
}

/// In generation 50 the first seed draws 0.89899, below the probability of 0.9, the other 0.90005.
TEST(Search, DrawsHalfThePopulationAnewWithItsProbability) {
  FitProblem problem = test::SampledBatches("Monod", {40});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}};
  EstimationSettings settings = Unstopped(20, 50);
  for (const auto& [seed, drawn] : {std::pair{3521, 10}, {2165, 0}}) {
    settings.IU = seed;
    Recorder recorder;
    EXPECT_EQ(Search(problem, settings, recorder).functionCalls, 20 + 50 * 20 + drawn);
  }
}

TEST(Search, MeasuresTheFirstGenerationsGainFromTheInitialPopulation) {
  const FitProblem problem = test::TwoBatches();
  const auto scoreAfter = [&](int generations) {
    Recorder recorder(generations);
    return Search(problem, Unstopped(), recorder).score;
  };
  const double population = scoreAfter(0), first = scoreAfter(1);
  ASSERT_LT(population - first, first / 2);
  EstimationSettings settings;
  settings.EPS = first / 2;
  Recorder recorder;
  EXPECT_EQ(Search(problem, settings, recorder).end, SearchEnd::Converged);
  EXPECT_EQ(recorder.scores.size(), 1U);
}

/// Changes all that the caller gave to a search while it runs, as a user may.
class Meddler : public Recorder {
 public:
  Meddler(FitProblem& problem, EstimationSettings& settings)
      : problem_(problem), settings_(settings) {}
  void Report(const Generation& generation) override {
    Recorder::Report(generation);
    settings_ = {1e6, 1, 0.5, 0.5, 0, 1e9, 1};
    problem_.variables.assign(1, {At::Kis, -1, -2, 0});
    problem_.rows.clear();
    problem_.experiments.clear();
  }

 private:
  FitProblem& problem_;
  EstimationSettings& settings_;
};

TEST(Search, ReadsNothingThatItsCallerChangesMeanwhile) {
  FitProblem problem = test::TwoBatches();
  EstimationSettings settings = Unstopped(20, 60);
  Recorder recorder;
  const SearchResult untouched = Search(problem, settings, recorder);
  Meddler meddler(problem, settings);
  const SearchResult result = Search(problem, settings, meddler);
  EXPECT_EQ(result.best, untouched.best);
  EXPECT_EQ(result.functionCalls, untouched.functionCalls);
  EXPECT_EQ(meddler.scores, recorder.scores);
}

TEST(Search, StopsBetweenGenerationsAndKeepsItsBest) {
  const FitProblem problem = test::TwoBatches();
  for (const int generations : {0, 3, 49}) {  // generation 50 would begin with members drawn anew
    Recorder recorder(generations);
    const SearchResult result = Search(problem, Unstopped(), recorder);
    EXPECT_EQ(result.end, SearchEnd::Stopped);
    EXPECT_EQ(result.generations, generations);
    EXPECT_EQ(result.functionCalls, 100 * (generations + 1));
    EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);
  }
}

/// Leaves the generation after `generations`, once it has been asked so many times in it.
class Leaver : public Recorder {
 public:
  Leaver(std::size_t generations, int times) : generations_(generations), times_(times) {}
  bool StopsAtOnce() override { return scores.size() >= generations_ && --times_ < 0; }

 private:
  std::size_t generations_;
  int times_;
};

TEST(Search, LeavesAGenerationAsIfItHadNotBegun) {
  const FitProblem problem = test::TwoBatches();
  const EstimationSettings settings = Unstopped(1000);
  for (const int generations : {1, 3, 49})  // generation 50 would begin with members drawn anew
    for (const int times : {0, 1, 4}) {
      Leaver leaver(static_cast<std::size_t>(generations), times);
      Recorder recorder(generations);
      const SearchResult left = Search(problem, settings, leaver);
      const SearchResult stopped = Search(problem, settings, recorder);
      EXPECT_EQ(left.end, SearchEnd::Stopped);
      EXPECT_EQ(left.best, stopped.best) << generations << " " << times;
      EXPECT_EQ(left.functionCalls, stopped.functionCalls);
      EXPECT_EQ(left.generations, generations);
      EXPECT_EQ(leaver.scores, recorder.scores);
    }
  Leaver inPopulation(0, 1);
  const SearchResult first = Search(problem, settings, inPopulation);
  EXPECT_EQ(first.end, SearchEnd::Stopped);
  EXPECT_TRUE(first.HasResult() && first.functionCalls < 1000) << first.functionCalls;
  EXPECT_EQ(Objective(problem).Simulate(first.best).score, first.score);
}

TEST(Search, ScoresAStartOnItsBoundsAsItStands) {
  FitProblem problem = test::TwoBatches();
  problem.variables[0].start = problem.variables[0].lower;
  problem.variables[1].start = problem.variables[1].upper;
  Recorder recorder(0);
  EXPECT_EQ(Search(problem, {}, recorder).startScore,
            Objective(problem).Simulate(std::array{0.05, 30.0, 1.0}).score);
}

TEST(Search, EndsWithTheFaultOfItsStart) {
  FitProblem problem = test::TwoBatches();
  problem.rows[1][At::Yxs] = 0;
  problem.experiments[1].number = 7;
  Recorder recorder;
  const SearchResult result = Search(problem, {}, recorder);
  EXPECT_EQ(result.end, SearchEnd::Fault);
  EXPECT_EQ(result.fault,
            (ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::SubstrateBalance, 2, 2, 1}));
  EXPECT_FALSE(result.HasResult());
  EXPECT_EQ(EndText(problem, result, Language::English),
            "Estimate was not completed:  division by zero in the substrate balance "
            "(experiment 7, point 2 of 100)\n");
}

/// A search that meets a fault here and there: above u = 161.97 no double holds 80^u.
SearchResult SearchOverflowing(std::int32_t seed, FitProblem& problem, Recorder& recorder) {
  problem = test::SampledBatches("Moser", {40, 80});
  problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::Ks, 1, 30, 10}, {At::u, 0.5, 162.5, 1}};
  EstimationSettings settings = Unstopped(30);
  settings.IU = seed;
  return Search(problem, settings, recorder);
}

TEST(Search, KeepsItsBestThroughALateFault) {
  FitProblem problem;
  Recorder recorder;
  const SearchResult result = SearchOverflowing(1010, problem, recorder);
  ASSERT_EQ(result.end, SearchEnd::Fault);
  EXPECT_EQ(result.fault,
            (ArithmeticFault{FaultKind::Overflow, FaultTerm::SubstratePower, 2, 1, 0}));
  ASSERT_EQ(result.generations, 12);
  // Its thirteenth generation found a better vector before it met the fault.
  EXPECT_LT(result.score, recorder.scores.back());
  EXPECT_EQ(result.bestGeneration, 13);
  EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);

  const Deviations deviations = ComputeDeviations(problem, result.best);
  const std::string text = FinalText(problem, result, deviations, {});
  EXPECT_NE(text.find("Sum of squared errors = " + ShortestText(result.score)), std::string::npos);
  EXPECT_TRUE(text.ends_with("\nThe best values found before this are those of generation 13.\n"));
}

TEST(Search, KeepsTheBestOfAPopulationThatFaults) {
  FitProblem problem;
  Recorder recorder;
  const SearchResult result = SearchOverflowing(1000, problem, recorder);
  ASSERT_EQ(result.end, SearchEnd::Fault);
  EXPECT_TRUE(recorder.scores.empty());
  EXPECT_LT(result.functionCalls, 30);
  EXPECT_EQ(result.bestGeneration, 0);
  EXPECT_EQ(Objective(problem).Simulate(result.best).score, result.score);
  EXPECT_TRUE(
      EndText(problem, result, Language::Portuguese)
          .ends_with(
              "\nOs melhores valores encontrados antes disso são os da população inicial.\n"));
}

/// What counts the rate evaluations of so many candidates of `test::TwoBatches`, and some more.
Objective::Workspace CounterFor(int candidates, int more) {
  return Objective::Workspace(std::numeric_limits<std::int32_t>::max() - candidates * 2 * 1585 -
                              more);
}

TEST(Search, EndsExactlyWhereTheCounterOfEvaluationsIsFull) {
  const FitProblem problem = test::TwoBatches();
  constexpr int kScored = 1 + 10 + 3 * 10;  // the start, ten members, three generations
  Recorder whole, cut;
  EXPECT_EQ(Search(problem, Unstopped(10, 3), whole, CounterFor(kScored, 0)).end,
            SearchEnd::GenerationLimit);
  const SearchResult result = Search(problem, Unstopped(10, 3), cut, CounterFor(kScored, -1));
  EXPECT_EQ(result.end, SearchEnd::Fault);
  EXPECT_EQ(result.fault,
            (ArithmeticFault{FaultKind::Overflow, FaultTerm::EvaluationCounter, 2, 100, 4}));
  EXPECT_EQ(result.generations, 2);
}

TEST(Search, KeepsItsBestWhereTheCounterIsFull) {
  const FitProblem problem = test::TwoBatches();
  Recorder stopping(2), cut;
  const SearchResult stopped = Search(problem, Unstopped(10, 5), stopping);
  const SearchResult full = Search(problem, Unstopped(10, 5), cut, CounterFor(1 + 10 + 2 * 10, 0));
  ASSERT_EQ(full.end, SearchEnd::Fault);
  EXPECT_EQ(full.fault->term, FaultTerm::EvaluationCounter);
  EXPECT_EQ(full.best, stopped.best);
  EXPECT_EQ(full.score, stopped.score);
  EXPECT_EQ(full.bestGeneration, stopped.bestGeneration);

  // What follows the search has counters of its own.
  const Deviations deviations = ComputeDeviations(problem, full.best);
  EXPECT_FALSE(deviations.fault);
  for (const Language language : {Language::English, Language::Portuguese}) {
    const std::string text = FinalText(problem, full, deviations, {language, '.'});
    for (const char* word : {" +/- ", "2147483647", "NPOP"})
      EXPECT_NE(text.find(word), std::string::npos) << text;
  }
}

TEST(Settings, AreRefusedJustOutsideTheirBounds) {
  const TypedSettings least{10, 200, 0.5, 0.5, 0, 0.0000001, 1000};
  const TypedSettings most{1e9, 1e9, 0.9, 0.9, 0.01, 0.0001, 9999};
  EXPECT_FALSE(CheckSettings(least).refused);
  EXPECT_FALSE(CheckSettings(most).refused);
  struct Row {
    std::optional<double> TypedSettings::*box;
    std::optional<double> below, above;
  };
  constexpr std::nullopt_t kNone = std::nullopt;  // no bound, and no number either
  const Row rows[] = {
      {&TypedSettings::NPOP, 9.99, kNone},    {&TypedSettings::ITER, 199, kNone},
      {&TypedSettings::PCROS, 0.499, 0.901},  {&TypedSettings::FACT, 0.499, 0.901},
      {&TypedSettings::FACT1, -0.001, 0.011}, {&TypedSettings::EPS, 0.00000009, 0.00011},
      {&TypedSettings::IU, 999, 10000}};
  for (std::size_t i = 0; i < std::size(rows); ++i)
    for (const std::optional<double> value : {rows[i].below, rows[i].above}) {
      TypedSettings typed = least;
      typed.*rows[i].box = value;
      EXPECT_EQ(CheckSettings(typed).refused, i);
    }
}

TEST(Settings, RoundTheSeedToTheNearestWholeNumberHalvesToEven) {
  TypedSettings typed{100, 200, 0.8, 0.8, 0.01, 0.00001, std::nullopt};
  for (const auto& [text, seed] : {std::pair{1234.5, 1234}, {1235.5, 1236}, {1235.51, 1236}}) {
    typed.IU = text;
    EXPECT_EQ(CheckSettings(typed).settings.IU, seed);
  }
}

}  // namespace
}  // namespace velmora
