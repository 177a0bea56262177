// One hand-made conditions file in which all 31 values of a row differ: each is checked where it
// acts, in the balances and in its box.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

#include "cultivation/ConditionsFile.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/Simulation.h"
#include "data/Windows1252.h"
#include "kinetics/BatchBalances.h"

namespace velmora {
namespace {

// Stoichiometric yields; at Cs0 product forms without growth and no cells die.
const std::string kFirst =
    "#1\r\n"
    "2\r\n30\r\n3\r\n9.9\r\n"                        // Cx0 Cs0 Cp0 T
    "0.35\r\n0.84375\r\n0.05\r\n"                    // Yxs alpha beta
    "0.4\r\n7\r\n60\r\n0.08\r\n50\r\n90\r\n"         // muMax Ks Kis Kip Cx* Cp*
    "1.1\r\n1.3\r\n0.95\r\n0.75\r\n"                 // m n u v
    "0.9\r\n0.25\r\n0.6\r\n0.15\r\n0.45\r\n0.5\r\n"  // C B B1 B2 G H1
    "0.02\r\n0.07\r\n0.03\r\n"                       // ms Kd Kdp
    "40\r\n20\r\n"                                   // Cs2 (product) Cs1 (death)
    "0.55\r\n1\r\n0.65\r\n"                          // Yps used, Fp, Yps typed
    "Manual\r\nCx Cs Cp\r\nPPAC\r\n\r\n\r\n0\r\n";
// Global yields; at Cs0 cells die and product forms with growth alone.
const std::string kSecond =
    "#2\r\n"
    "2\r\n30\r\n3\r\n9.9\r\n"
    "0.5\r\n0.03125\r\n0.05\r\n"
    "0.4\r\n7\r\n60\r\n0.08\r\n50\r\n90\r\n"
    "1.1\r\n1.3\r\n0.95\r\n0.75\r\n"
    "0.9\r\n0.25\r\n0.6\r\n0.15\r\n0.45\r\n0.35\r\n"
    "0.02\r\n0.07\r\n0.03\r\n"
    "20\r\n40\r\n"
    "1\r\n0\r\n0.015625\r\n"
    "ED\r\nCx Cs Cp\r\nPAC\r\n\r\n\r\n0\r\n";
// E2, E7 and F5 are â, ç and õ.
const std::string kFile =
    "Ajuste de par\xE2metros\r\nCondi\xE7\xF5\x65s de cultivo\r\nBatelada\r\n$2\r\n" + kFirst +
    kSecond;

ConditionsRead Read() {
  ConditionsRead read = ReadConditionsBytes(kFile, "");
  EXPECT_FALSE(read.fault);
  EXPECT_TRUE(read.remarks.empty());
  return read;
}

/// The changes at a state, 1/h, by the equations with the file's values typed in; the members are
/// what differs between the two experiments.
struct Written {
  double Yxs, Yps, Fp, alpha, H1, deathOn, productionOn;

  BatchState At(const BatchState& s) const {
    const double Cs_u = std::pow(s.Cs, 0.95);
    const double mu =
        0.4 * Cs_u /
        (Cs_u + 7 * std::pow(s.Cx + 0.6, 0.25) + 0.9 * s.Cs * std::pow(s.Cs / 60, 0.75)) *
        std::pow(1 - s.Cp / 90, 1.3) * std::pow(1 - s.Cx / 50, 1.1) *
        std::exp(-0.45 * 0.08 * s.Cp) * std::pow(0.08 / (0.08 + 0.15 + s.Cp), H1);
    const double product = alpha * mu + productionOn * 0.05;
    return {s.Cx * (mu - deathOn * 0.07), -s.Cx * (0.02 + mu / Yxs + Fp * product / Yps),
            s.Cx * product - 0.03 * s.Cp};
  }
};

BatchState Moved(const BatchState& from, const BatchState& change, double by) {
  return {from.Cx + by * change.Cx, from.Cs + by * change.Cs, from.Cp + by * change.Cp};
}

/// One step of the classical Runge-Kutta method from the initial values, 9.9 h / 99 long.
BatchState AfterOneStep(const Written& law) {
  constexpr double kStep = 0.1;
  const BatchState start{2, 30, 3};
  const BatchState a = law.At(start);
  const BatchState b = law.At(Moved(start, a, kStep / 2));
  const BatchState c = law.At(Moved(start, b, kStep / 2));
  const BatchState d = law.At(Moved(start, c, kStep));
  BatchState end = start;
  for (const auto& [change, weight] : {std::pair{a, 1.0}, {b, 2.0}, {c, 2.0}, {d, 1.0}})
    end = Moved(end, change, weight * kStep / 6);
  return end;
}

TEST(ConditionsRow, ActsValueByValueInTheBalances) {
  const Written laws[] = {{0.35, 0.55, 1, 0.84375, 0.5, 0, 1}, {0.5, 1, 0, 0.03125, 0.35, 1, 0}};
  ModelCurves curves{};
  ASSERT_TRUE(Manual(Read().conditions, 2, curves).empty());
  for (std::size_t i = 0; i < 2; ++i) {
    const ModelCurve& curve = curves[i];
    const BatchState expected = AfterOneStep(laws[i]);
    EXPECT_EQ(curve.Cx[0], 2);
    EXPECT_EQ(curve.Cs[0], 30);
    EXPECT_EQ(curve.Cp[0], 3);
    EXPECT_NEAR(curve.time.back(), 9.9, 1e-12);
    // Rounding alone may differ: the values themselves would show from the fourth digit on.
    EXPECT_NEAR(curve.Cx[1], expected.Cx, 1e-13) << i;
    EXPECT_NEAR(curve.Cs[1], expected.Cs, 1e-12) << i;
    EXPECT_NEAR(curve.Cp[1], expected.Cp, 1e-13) << i;
  }
}

TEST(ConditionsRow, IsShownValueByValueInItsBoxes) {
  const ConditionsRead read = Read();
  const CultivationForm first = FormOf(read.conditions.At(1), {}, '.');
  const char* const boxes[] = {"2",    "30",    "3",    "9.9",  "0.35", "0.84375", "0.05", "0.40",
                               "7.00", "60.00", "0.08", "50.0", "90.0", "1.1",     "1.3",  "0.95",
                               "0.75", "",      "",     "",     "",     "",        "",     "0.02",
                               "0.07", "0.03",  "40",   "20",   "",     "",        "0.65"};
  for (std::size_t i = 0; i < first.boxes.size(); ++i)
    EXPECT_EQ(first.boxes[i].text, boxes[i]) << "position " << i + 1;
  EXPECT_EQ(first.yields, Yields::Stoichiometric);
  EXPECT_EQ(first.method, Method::Manual);
  EXPECT_EQ(first.production, Production::PPAC);

  const CultivationForm second = FormOf(read.conditions.At(2), {}, ',');
  EXPECT_EQ(second.yields, Yields::Global);
  EXPECT_EQ(second.At(At::YpsTyped), Entry("0,015625", 0.015625));
  EXPECT_EQ(second.At(At::alpha), Entry("0,0312", 0.03125)) << "halves go to the even digit";
}

TEST(ConditionsRow, IsSavedAsItWasRead) {
  const ConditionsRead read = Read();
  EXPECT_EQ(ToWindows1252(ConditionsText(read.conditions, 2, true)).bytes, kFile);
  for (const int place : {1, 2}) {
    CultivationForm form = FormOf(read.conditions.At(place), {}, '.');
    form.method = Method::Manual;
    form.model = "Monod";
    form.modelConfirmed = true;
    CultivationConditions saved;
    ASSERT_FALSE(SalvarCondCult(form, place, 1, '.', saved).refusal);
    ConditionsRow expected = read.conditions.At(place).row;
    // The model decides its switches and the constants of the terms that it lacks; typed Yps is
    // what stoichiometric yields use.
    if (place == 1) expected[At::Yps] = 0.65;
    for (int position = 10; position <= 23; ++position)
      expected[position] = saved.At(place).row[position];
    EXPECT_EQ(saved.At(place).row, expected) << place;
  }
}

}  // namespace
}  // namespace velmora
