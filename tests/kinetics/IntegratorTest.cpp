#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <set>

#include "kinetics/Runge_Kutta.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

using test::BatchOf;

std::optional<ArithmeticFault> Integrated(const KineticParameters& p, ModelCurve& curve,
                                          Law law = Law::Kernel, std::int32_t* count = nullptr) {
  Runge_Kutta integrator;
  std::optional<ArithmeticFault> fault;
  try {
    integrator.Integrate(p, curve, law);
  } catch (const ArithmeticFault& thrown) {
    fault = thrown;
  }
  if (count != nullptr) *count = integrator.Evaluations();
  return fault;
}

ModelCurve CurveOf(const KineticParameters& p, Law law = Law::Kernel) {
  ModelCurve curve;
  EXPECT_FALSE(Integrated(p, curve, law));
  return curve;
}

/// Growth at muMax whatever Cs: with Ks = 0 the Monod quotient is exactly 1.
KineticParameters Unlimited() {
  KineticParameters p = BatchOf("Monod");
  for (const At position : {At::Ks, At::ms, At::Kd, At::Kdp, At::alpha, At::beta}) p[position] = 0;
  return p;
}

/// Cells of 1 g/L that do not grow, in steps of 1 h.
KineticParameters Resting() {
  KineticParameters p = Unlimited();
  p[At::muMax] = 0, p[At::Ks] = 1, p[At::Cx0] = 1, p[At::Cp0] = 0, p[At::Fp] = 0, p[At::T] = 99;
  return p;
}

TEST(Integrator, FollowsExponentialGrowth) {
  KineticParameters p = Unlimited();
  p[At::Cx0] = 0.01, p[At::T] = 10, p[At::muMax] = 0.3;
  const ModelCurve curve = CurveOf(p);
  double time = 0;
  for (std::size_t i = 0; i < curve.time.size(); ++i) {
    EXPECT_EQ(curve.time[i], time) << "the steps are added up";
    const double exact = 0.01 * std::exp(0.3 * time);
    // The method's own error: T mu (mu h)^4 / 120 = 2e-8 of the value.
    EXPECT_NEAR(curve.Cx[i], exact, 4e-8 * exact);
    EXPECT_NEAR(curve.Cs[i], 75 - (exact - 0.01) / 0.27, 4e-8 * 75);
    time += 10.0 / 99;
  }
}

TEST(Integrator, StandsStillWithoutTime) {
  KineticParameters p = BatchOf("Wu-Levenspiel-Lee");
  p[At::T] = 0;
  const ModelCurve still = CurveOf(p);
  EXPECT_EQ(still.time.back(), 0);
  EXPECT_EQ(still.Cx.back(), 0.5);
  EXPECT_EQ(still.Cs.back(), 75);
}

TEST(Integrator, StoresNegativeSubstrateAndGoesOnFromZero) {
  KineticParameters p = Resting();
  p[At::Cs0] = 0.01, p[At::ms] = 0.011;
  const ModelCurve curve = CurveOf(p);
  EXPECT_NEAR(curve.Cs[1], -0.001, 1e-15);
  EXPECT_NEAR(curve.Cs[2], -0.011, 1e-15);
}

TEST(Integrator, GoesOnFromZeroWhereAStepBeginsWithATrace) {
  KineticParameters p = Resting();
  for (const Law law : {Law::Kernel, Law::General}) {
    p[At::Cx0] = p[At::Cp0] = 0.000001;
    const ModelCurve enough = CurveOf(p, law);
    EXPECT_EQ(enough.Cx[1], 0.000001);
    EXPECT_EQ(enough.Cp[1], 0.000001);
    p[At::Cx0] = p[At::Cp0] = std::nextafter(0.000001, 0);
    const ModelCurve trace = CurveOf(p, law);
    EXPECT_GT(trace.Cx[0], 0) << "the first point is the initial values";
    EXPECT_EQ(trace.Cx[1], 0);
    EXPECT_EQ(trace.Cp[1], 0);
  }
}

TEST(Integrator, SwitchesProductionAndDeathAtTheirOwnLimits) {
  KineticParameters p = Resting();
  p[At::T] = 9.9, p[At::beta] = 0.02, p[At::Kd] = 0.1;  // Cs stands at 75
  for (const Law law : {Law::Kernel, Law::General}) {
    p[27] = 75, p[28] = std::nextafter(75, 0);
    const ModelCurve producing = CurveOf(p, law);
    EXPECT_NEAR(producing.Cp.back(), 0.02 * 9.9, 1e-12) << "production at CsAst2";
    EXPECT_EQ(producing.Cx.back(), 1) << "no death above CsAst1";

    std::swap(p[27], p[28]);
    const ModelCurve dying = CurveOf(p, law);
    EXPECT_EQ(dying.Cp.back(), 0) << "no production above CsAst2";
    // The method's own error: 0.99 (0.1 h)^4 / 120 = 8e-11 of the value.
    EXPECT_NEAR(dying.Cx.back(), std::exp(-0.99), 4e-11) << "death at CsAst1";
  }
}

TEST(Integrator, DecidesTheSwitchesFromTheStepsFirstSubstrate) {
  KineticParameters p = Resting();
  p[At::Cs0] = 1, p[At::ms] = 0.4, p[At::beta] = 0.02, p[At::CsAst2] = 0.8;
  const ModelCurve curve = CurveOf(p);
  EXPECT_NEAR(curve.Cs[1], 0.6, 1e-15);
  EXPECT_EQ(curve.Cp[1], 0) << "Cs fell below CsAst2 within the step";
  EXPECT_NEAR(curve.Cp[2], 0.02, 1e-15);
}

struct FaultCase {
  const char* name;
  const char* model;
  std::vector<std::pair<At, double>> set;
  ArithmeticFault fault;
};

using enum FaultKind;
using enum FaultTerm;
// clang-format off
const FaultCase kFaults[] = {
    {"yield of zero", "Monod", {{At::Yxs, 0}}, {DivisionByZero, FaultTerm::SubstrateBalance, 0, 2, 1}},
    {"product yield of zero", "Monod", {{At::Yps, 0}}, {DivisionByZero, FaultTerm::SubstrateBalance, 0, 2, 1}},
    {"no saturation, no substrate", "Monod", {{At::Ks, 0}, {At::Cs0, 0}}, {DivisionByZero, SubstrateQuotient, 0, 1, 0}},
    {"inhibition constant of zero", "Andrews", {{At::Kis, 0}}, {DivisionByZero, SubstrateInhibition, 0, 1, 0}},
    {"negative power of no substrate", "Moser", {{At::u, -1}, {At::Cs0, 0}}, {InvalidPower, SubstratePower, 0, 1, 0}},
    {"negative power at the limit", "Lee", {{At::CxAst, 0.5}, {At::m, -1}}, {InvalidPower, FaultTerm::Lee, 0, 1, 0}},
    {"fractional power of a negative", "Wu", {{At::Kis, -3}, {At::v, 0.5}}, {InvalidPower, SubstrateInhibition, 0, 1, 0}},
    {"product quotient of zero", "Hoppe", {{At::Kip, -0.1}}, {DivisionByZero, FaultTerm::Hoppe, 0, 1, 0}},
    // Also where no Levenspiel, Lee or Hoppe term is: the law divides by them all the same.
    {"product limit of zero", "Monod", {{At::CpAst, 0}}, {DivisionByZero, FaultTerm::Levenspiel, 0, 1, 0}},
    {"cell limit of zero", "Monod", {{At::CxAst, 0}}, {DivisionByZero, FaultTerm::Lee, 0, 1, 0}},
    {"unused quotient of zero", "Aiba", {{At::Kip, -1.125}, {At::Cp0, 0.125}}, {DivisionByZero, FaultTerm::Hoppe, 0, 1, 0}},
    // The product's trace becomes 0 when the first step begins.
    {"Hoppe divisor gone", "Levenspiel", {{At::Kip, 0}, {At::Cp0, 1e-9}}, {DivisionByZero, FaultTerm::Hoppe, 0, 2, 1}},
    {"the same beside Aiba", "Aiba", {{At::Kip, -1}, {At::Cp0, 1e-9}}, {DivisionByZero, FaultTerm::Hoppe, 0, 2, 1}},
    // Cs rises by 0.227 a step; at 89.9 g/L no double holds Cs/Kis, which Monod does not use.
    {"unused quotient", "Monod", {{At::Kis, 5e-307}, {At::muMax, 0}, {At::ms, -1}}, {Overflow, SubstrateInhibition, 0, 67, 2}},
    // At 87.3 g/L no double holds Cs (Cs/Kis)^v, by which the rate would be divided.
    {"denominator on the way", "Wu", {{At::Kis, 1}, {At::v, 157.8}, {At::muMax, 0}, {At::ms, -1}}, {Overflow, SubstrateQuotient, 0, 56, 2}},
    // Each step multiplies Cx by (1e13)^4/24; the seventh would reach 10^354.
    {"exploding growth", "Monod", {{At::muMax, 0}, {At::ms, 0}, {At::Kd, -1e9}, {At::CsAst1, 100}, {At::T, 990000}},
     {Overflow, FaultTerm::CellBalance, 0, 8, 1}},
    {"hidden denominator", "Wu", {{At::v, 400}, {At::Kis, 1}}, {Overflow, SubstrateInhibition, 0, 1, 0}},
    {"exponential", "Aiba", {{At::Kip, -1e6}}, {Overflow, FaultTerm::Aiba, 0, 1, 0}},
    // Product forms in the first step until no double holds Kip Cp; exp(-Kip Cp) would be 0.
    {"hidden exponent", "Aiba", {{At::Kip, 1e160}, {At::Cp0, 1e140}, {At::beta, 1e160}, {At::CsAst2, 100}, {At::Fp, 0}},
     {Overflow, FaultTerm::Aiba, 0, 2, 2}}};
// clang-format on

TEST(Integrator, LeavesAtOnceOnAFault) {
  for (const auto& [name, model, set, expected] : kFaults) {
    SCOPED_TRACE(name);
    KineticParameters p = BatchOf(model);
    for (const auto& [position, value] : set) p[position] = value;
    for (const Law law : {Law::Kernel, Law::General}) {
      ModelCurve curve;
      curve.Cx.fill(-7);
      const auto fault = Integrated(p, curve, law);
      EXPECT_EQ(fault, expected);
      for (std::size_t i = 0; i < curve.Cx.size(); ++i)
        EXPECT_EQ(curve.Cx[i] == -7,
                  i + 1 >= static_cast<std::size_t>(std::max(expected.point, 2)));
    }
  }
}

TEST(Integrator, CountsEveryEvaluationAndFaultsPastTheLargestCount) {
  Runge_Kutta integrator;
  ModelCurve curve;
  for (const Law law : {Law::Kernel, Law::General}) {
    integrator.SetEvaluations(0);
    integrator.Integrate(BatchOf("Monod"), curve, law);
    EXPECT_EQ(integrator.Evaluations(), 1585);
    // 33 evaluations fit: the one at the start, two steps of 16.
    integrator.SetEvaluations(std::numeric_limits<std::int32_t>::max() - 33);
    try {
      integrator.Integrate(BatchOf("Monod"), curve, law);
      ADD_FAILURE() << "no fault";
    } catch (const ArithmeticFault& fault) {
      EXPECT_EQ(fault, (ArithmeticFault{Overflow, EvaluationCounter, 0, 4, 1}));
    }
  }
}

/// Rows around and beyond every guard and fault of the rate laws.
class OddRows {
 public:
  KineticParameters Next(const Model& model) {
    KineticParameters p = BatchOf(model);
    for (int i = Below(4); i > 0; --i) Disturb(p[1 + Below(30)]);
    SetModelSwitches(model, p);
    if (Below(3) == 0) Place(p);
    if (Below(10) == 0) p[18 + Below(6)] = Below(3);  // switches that name no model
    return p;
  }

 private:
  int Below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

  void Disturb(double& value) {
    static constexpr std::array kOdd{0.0,  1.0,    2.0,   -1.0,  0.5,   -0.5,   1e-5,   5e-7,
                                     1e-9, -1e-41, 1e300, 1e160, -1e80, 1e-320, 1000.0, 30.0};
    if (Below(2) == 0)
      value = kOdd[static_cast<std::size_t>(Below(kOdd.size()))];
    else
      value *= 0.1 * Below(100);
  }

  /// Puts the initial state on or beyond a limit, or where an unused divisor is zero.
  void Place(KineticParameters& p) {
    const double floor = Below(2) == 0 ? 0.00005 : kSubstrateFloor;
    const std::pair<At, double> places[] = {{At::Cp0, p[At::CpAst]}, {At::Cp0, 1.5 * p[At::CpAst]},
                                            {At::Cx0, p[At::CxAst]}, {At::Cx0, 2 * p[At::CxAst]},
                                            {At::Cp0, -p[At::Kip]},  {At::Cs0, floor}};
    const auto& [position, value] = places[Below(6)];
    p[position] = value;
  }

  std::mt19937_64 random_{20261121};
};

TEST(Integrator, GivesTheSameBitsFaultsAndCountsThroughBothLaws) {
  OddRows rows;
  std::set<std::pair<FaultKind, FaultTerm>> faults;
  std::array<int, 5> guards{};
  int whole = 0;
  for (int round = 0; round < 150; ++round) {
    for (const Model& model : kModels) {
      const KineticParameters p = rows.Next(model);
      ModelCurve byKernel, byGeneral;
      std::int32_t kernelCount = 0, generalCount = 0;
      const auto kernelFault = Integrated(p, byKernel, Law::Kernel, &kernelCount);
      const auto generalFault = Integrated(p, byGeneral, Law::General, &generalCount);
      ASSERT_EQ(kernelFault, generalFault) << model.name << " round " << round;
      ASSERT_EQ(byKernel, byGeneral) << model.name << " round " << round;
      ASSERT_EQ(kernelCount, generalCount) << model.name << " round " << round;
      if (generalFault) faults.emplace(generalFault->kind, generalFault->term);
      whole += generalFault ? 0 : 1;
      guards[0] += p[At::Cs0] < kSubstrateFloor;
      guards[1] += p[At::Cp0] == p[At::CpAst] && p[At::n] == 0;
      guards[2] += p[At::Cx0] == p[At::CxAst] && p[At::m] == 0;
      guards[3] += p[At::CpAst] < p[At::Cp0] && p[At::n] != 0;
      guards[4] += p[At::CxAst] < p[At::Cx0] && p[At::m] != 0;
    }
  }
  for (const int reached : guards) EXPECT_GT(reached, 20);
  EXPECT_GT(whole, 2000);
  EXPECT_GE(faults.size(), 12U);
}

}  // namespace
}  // namespace velmora
