#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "kinetics/KernelStep.h"
#include "kinetics/LaneMarches.h"
#include "kinetics/Powers.h"
#include "kinetics/Runge_Kutta.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

/// Batches of one model as the lanes take them, and what comes of them.
class Marched {
 public:
  Marched(const LaneMarches& marches, bool wide, std::size_t model,
          const std::vector<KineticParameters>& rows)
      : lanes_(wide ? marches.together : marches.width),
        parameters_(30 * lanes_),
        curve_(300 * lanes_),
        reach_(lanes_) {
    for (std::size_t lane = 0; lane < lanes_; ++lane)
      for (std::size_t position = 0; position < 30; ++position)
        parameters_[position * lanes_ + lane] = rows[lane].values[position];
    (wide ? marches.wide : marches.narrow)[model](parameters_.data(), curve_.data(), reach_.data());
  }

  bool Trusted(std::size_t lane) const { return reach_[lane] < kTame; }

  bool Holds(std::size_t lane, const ModelCurve& curve) const {
    for (std::size_t i = 0; i < curve.time.size(); ++i) {
      const double* point = curve_.data() + i * 3 * lanes_ + lane;
      if (point[0] != curve.Cx[i] || point[lanes_] != curve.Cs[i] ||
          point[2 * lanes_] != curve.Cp[i])
        return false;
    }
    return true;
  }

 private:
  std::size_t lanes_;
  std::vector<double> parameters_, curve_, reach_;
};

/// Rows of the model on both sides of its guards, some of them with a fault.
std::vector<KineticParameters> Rows(const Model& model, std::mt19937_64& random) {
  std::vector<KineticParameters> rows;
  const auto between = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() >> 11) * 0x1p-53;
  };
  for (std::size_t lane = 0; lane < kMostLanes; ++lane) {
    KineticParameters p = test::BatchOf(model);
    for (const At position : {At::muMax, At::Ks, At::Kis, At::Kip, At::CxAst, At::CpAst, At::m,
                              At::n, At::u, At::v, At::Cs0, At::T})
      p[position] *= between(0.3, 1.7);
    SetModelSwitches(model, p);
    if (lane % 7 == 1) p[At::Kip] = -p[At::B2] - p[At::Cp0];  // Hoppe's divisor is zero
    if (lane % 7 == 2)  // the divisors whose reciprocals are worst rounded
      for (const At position : {At::Yxs, At::Yps, At::Kis, At::CxAst, At::CpAst})
        p[position] = std::nextafter(std::exp2(std::ceil(std::log2(p[position]))), 0);
    if (lane % 7 == 3) {  // a product beyond any trace
      p[At::alpha] = 1e-322 * between(1, 100);
      p[At::Cp0] = 0;
      p[At::beta] = 0;
    }
    rows.push_back(p);
  }
  return rows;
}

TEST(Lanes, HoldTheBitsOfEachBatchAlone) {
  const LaneMarches* const marches = LaneMarchesHere();
  if (marches == nullptr) GTEST_SKIP() << "no lanes are wanted";
  std::mt19937_64 random{7};
  std::size_t trusted = 0, faults = 0;
  for (std::size_t model = 0; model < kModels.size(); ++model) {
    const std::vector<KineticParameters> rows = Rows(kModels[model], random);
    for (const bool wide : {false, true}) {
      const Marched marched(*marches, wide, model, rows);
      for (std::size_t lane = 0; lane < (wide ? marches->together : marches->width); ++lane) {
        ModelCurve curve;
        bool fault = false;
        try {
          Runge_Kutta().Integrate(rows[lane], curve, Law::General);
        } catch (const ArithmeticFault&) {
          fault = true;
        }
        faults += fault ? 1 : 0;
        ASSERT_FALSE(fault && marched.Trusted(lane)) << kModels[model].name;
        if (!marched.Trusted(lane)) continue;
        ++trusted;
        ASSERT_TRUE(marched.Holds(lane, curve)) << kModels[model].name << " lane " << lane;
      }
    }
  }
  EXPECT_GT(trusted, 32 * marches->together / 2);
  EXPECT_GT(faults, 10U);
}

/// The bits of many numbers in one.
class Signature {
 public:
  void Add(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    sum_ = (sum_ ^ bits) * 0x100000001b3;  // Fowler, Noll and Vo
  }
  std::uint64_t Sum() const { return sum_; }

 private:
  std::uint64_t sum_ = 0xcbf29ce484222325;
};

// The signature changes only with the numerical method, and then on purpose.
TEST(Powers, AreTheSameOnEveryMachine) {
  std::mt19937_64 random{11};
  const auto between = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() >> 11) * 0x1p-53;
  };
  Signature signature;
  // Drawn one after the other: compilers differ in the order of a call's arguments.
  const auto power = [&](double mostBase, double leastExponent, double mostExponent) {
    const double exponent = between(leastExponent, mostExponent);
    return Power(between(0, mostBase), exponent);
  };
  for (int i = 0; i < 100'000; ++i) {
    signature.Add(power(1, 0, 10));
    signature.Add(power(1000, -50, 50));
    signature.Add(Exponential(between(-700, 700)));
    signature.Add(Logarithm(between(0, 2)));
    signature.Add(Cosine(between(0, 7)));
  }
  EXPECT_EQ(signature.Sum(), 14039543505825043570U);
}

struct ExactPower {
  double base, exponent, power;
};

TEST(Powers, AreExactWhereTheResultIsADouble) {
  const double infinite = HUGE_VAL;
  for (const auto& [base, exponent, power] : {ExactPower{2, 10, 1024},
                                              {0.5, 3, 0.125},
                                              {9, 0.5, 3},
                                              {-2, 3, -8},
                                              {-2, 2, 4},
                                              {0, 2, 0},
                                              {0, -1, infinite},
                                              {0, 0, 1},
                                              {-5, 0, 1},
                                              {2, 1024, infinite},
                                              {2, -1100, 0},
                                              {0x1p-1060, 0.5, 0x1p-530},
                                              {1, 1e300, 1}})
    EXPECT_EQ(Power(base, exponent), power) << base << " " << exponent;
  EXPECT_TRUE(std::isnan(Power(-2, 0.5)));
  EXPECT_EQ(Exponential(0), 1);
  EXPECT_EQ(Exponential(710), infinite);
  EXPECT_EQ(Exponential(-750), 0);
  EXPECT_EQ(Logarithm(1), 0);
  EXPECT_EQ(Logarithm(0), -infinite);
  EXPECT_EQ(Cosine(0), 1);
}

// Within two units of the last place of the C library's, which is itself within one.
TEST(Powers, AgreeWithTheCLibrary) {
  std::mt19937_64 random{5};
  const auto between = [&](double least, double most) {
    return least + (most - least) * static_cast<double>(random() >> 11) * 0x1p-53;
  };
  const auto expectNear = [](double ours, double theirs) {
    ASSERT_LE(std::fabs(ours - theirs),
              2 * (std::nextafter(std::fabs(theirs), HUGE_VAL) - std::fabs(theirs)));
  };
  for (int i = 0; i < 100'000; ++i) {
    const double x = between(0, 1), y = between(0, 10);
    expectNear(Power(x, y), std::pow(x, y));
    expectNear(Power(100 * x, -y), std::pow(100 * x, -y));
    expectNear(Exponential(40 * x - 20), std::exp(40 * x - 20));
    expectNear(Logarithm(x), std::log(x));
    expectNear(Cosine(7 * x), std::cos(7 * x));
  }
}

}  // namespace
}  // namespace velmora
