#include <gtest/gtest.h>

#include <cmath>

#include "estimation/Marquardt.h"
#include "inference/Intervals.h"
#include "inference/Linearisation.h"
#include "inference/Student.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

bool Never() {
  return false;
}

/// One batch of Monod with noise of 2 %: muMax 0.3 and Ks 8 made it, and `fitted` of them is
/// fitted.
struct NoisyBatch {
  explicit NoisyBatch(const std::vector<FitVariable>& fitted, std::string_view model = "Monod") {
    KineticParameters row;
    row[At::Cx0] = 1, row[At::Cs0] = 60, row[At::Yxs] = 0.2, row[At::alpha] = 2;
    row[At::Yps] = 1, row[At::muMax] = 0.3, row[At::Ks] = 8, row[At::Kis] = 5'000;
    SetModelSwitches(*FindModel(model), row);
    row[At::T] = test::GrowthTime(row);
    test::Dice dice(7);
    problem = {{test::Measured(row, 13, 0.02, dice)}, {row}, fitted};
    SearchObserver silent;
    best = SearchMarquardt(problem, {}, silent).best;
  }
  FitProblem problem;
  std::vector<double> best;
};

constexpr FitVariable kMuMax{At::muMax, 0.05, 1, 0.2};
constexpr FitVariable kKs{At::Ks, 0.1, 100, 10};

// From printed tables of Student's t.
TEST(Student, HasItsQuantiles) {
  EXPECT_NEAR(StudentQuantile(0.95, 1), 12.7062, 5e-5);
  EXPECT_NEAR(StudentQuantile(0.95, 2), 4.3027, 5e-5);
  EXPECT_NEAR(StudentQuantile(0.95, 10), 2.2281, 5e-5);
  EXPECT_NEAR(StudentQuantile(0.99, 25), 2.7874, 5e-5);
  EXPECT_NEAR(StudentQuantile(0.95, 2000), 1.9612, 5e-5);
  EXPECT_NEAR(NormalProbability(-1.959964), 0.025, 1e-7);
}

/// Rounded by hand: a tenth of half the width, or of the limit where that is smaller.
TEST(Intervals, AreWordedInTheDigitsThatTheirWidthLeaves) {
  Intervals intervals;
  intervals.of = {{0.16342, 0.19917, {}}, {0.0213, 9.04, {}}, {123.4, std::nullopt, {}}};
  const std::vector<FitVariable> variables = {kMuMax, kKs, kKs};
  const std::string text = Worded(intervals, variables, false, {});
  EXPECT_NE(text.find("\nµmáx = 0.1634 to 0.1992\nKs = 0.021 to 9.0\nKs = 123 or more;"),
            std::string::npos)
      << text;
  EXPECT_NE(Worded(intervals, variables, true, {}).find("0.16342 to 0.19917"), std::string::npos);
}

// With one parameter the profile is the score itself: its limits are where the score, looked at in
// small steps, passes SSE (1 + t²/(n - 1)); here n is 3 variables of 12 scored points.
TEST(Intervals, ProfileEndsWhereTheScorePassesItsLimit) {
  const NoisyBatch batch({kMuMax});
  const Objective objective(batch.problem);
  const auto score = [&](double muMax) { return objective.Simulate(std::vector{muMax}).score; };
  const double limit = score(batch.best[0]) * (1 + 2.0301 * 2.0301 / 35);
  double below = batch.best[0], above = below;
  while (score(below) < limit) below *= 0.99999;
  while (score(above) < limit) above *= 1.00001;
  const Interval interval = ProfileIntervals(batch.problem, batch.best).of[0];
  EXPECT_NEAR(interval.lower.value(), below, 3e-3 * (batch.best[0] - below));
  EXPECT_NEAR(interval.upper.value(), above, 3e-3 * (above - batch.best[0]));
}

// Near the optimum the model is almost linear: then the three methods have the same answer.
TEST(Intervals, AgreeWhereTheModelIsAlmostLinear) {
  const NoisyBatch batch({kMuMax, kKs});
  const Intervals linear = LinearIntervals(batch.problem, batch.best);
  const Intervals profile = ProfileIntervals(batch.problem, batch.best);
  const Intervals bootstrap =
      BootstrapIntervals(batch.problem, batch.best, kReplicates, 5471, Never);
  EXPECT_EQ(bootstrap.replicates, kReplicates);
  for (std::size_t j = 0; j < 2; ++j) {
    const double width = profile.of[j].upper.value() - profile.of[j].lower.value();
    EXPECT_LT(linear.of[j].lower.value(), batch.best[j]);
    EXPECT_GT(linear.of[j].upper.value(), batch.best[j]);
    for (const Intervals& other : {linear, bootstrap}) {
      EXPECT_NEAR(other.of[j].lower.value(), profile.of[j].lower.value(), 0.15 * width);
      EXPECT_NEAR(other.of[j].upper.value(), profile.of[j].upper.value(), 0.15 * width);
    }
  }
  const Intervals again = BootstrapIntervals(batch.problem, batch.best, kReplicates, 5471, Never);
  EXPECT_EQ(again.of[1].lower, bootstrap.of[1].lower);
  EXPECT_FALSE(profile.betterScore);
}

// Kis of 5000 g/L acts nowhere below 60 g/L; Kip stands in no term of the model.
TEST(Intervals, AreOpenWhereTheDataSetNoLimit) {
  const NoisyBatch andrews({kMuMax, {At::Kis, 10, 1e6, 100}}, "Andrews");
  const Interval Kis = ProfileIntervals(andrews.problem, andrews.best).of[1];
  EXPECT_TRUE(Kis.lower);
  EXPECT_FALSE(Kis.upper);
  const NoisyBatch idle({kMuMax, {At::Kip, 1, 100, 10}});
  for (const Intervals& intervals :
       {LinearIntervals(idle.problem, idle.best), ProfileIntervals(idle.problem, idle.best)}) {
    EXPECT_FALSE(intervals.of[1].lower);
    EXPECT_FALSE(intervals.of[1].upper);
  }
  EXPECT_TRUE(ProfileIntervals(idle.problem, idle.best).of[0].upper);
}

TEST(Intervals, TellOfABetterOptimum) {
  const NoisyBatch batch({kMuMax, kKs});
  const std::vector<double> off = {batch.best[0], 1.2 * batch.best[1]};
  const double score = Objective(batch.problem).Simulate(batch.best).score;
  EXPECT_NEAR(ProfileIntervals(batch.problem, off).betterScore.value(), score, 0.01 * score);
}

TEST(Intervals, EndWhereTheyAreStopped) {
  const NoisyBatch batch({kMuMax});
  int asked = 0;
  const Intervals stopped = BootstrapIntervals(batch.problem, batch.best, kReplicates, 5471,
                                               [&asked] { return ++asked > 30; });
  EXPECT_GT(stopped.replicates, 0);
  EXPECT_LT(stopped.replicates, kReplicates);
  EXPECT_TRUE(stopped.of[0].lower);
}

TEST(Linearisation, LeavesOutParametersAtTheirBounds) {
  const NoisyBatch batch({{At::muMax, 0.05, 0.25, 0.2}, kKs});
  ASSERT_EQ(batch.best[0], 0.25);
  const Linearisation linear = Linearise(batch.problem, batch.best);
  EXPECT_EQ(linear.free, (std::vector<std::size_t>{1}));
  EXPECT_EQ(linear.freedom, 34);
  const Intervals intervals = LinearIntervals(batch.problem, batch.best);
  EXPECT_FALSE(intervals.of[0].upper);
  EXPECT_TRUE(intervals.of[1].upper);
}

}  // namespace
}  // namespace velmora
