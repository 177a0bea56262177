#include <gtest/gtest.h>

#include <string>

#include "inference/DataChecks.h"
#include "tests/support/Fermentations.h"

namespace velmora {
namespace {

/// A batch drawn by hand: Yxs 0.3 and Yps 0.4, all of 20 g/L used by 10 h. Nothing about it is odd.
Experiment Plain() {
  Experiment e;
  e.time = {0, 2, 4, 6, 8, 10, 12, 14, 16};
  e.Cx = {1, 1.5, 2.3, 3.6, 5.4, 7, 7, 7, 7};
  e.Cs = {20, 18.3, 15.7, 11.3, 5.3, 0, 0, 0, 0};
  e.Cp = {0, 0.7, 1.7, 3.5, 5.9, 8, 8, 8, 8};
  e.finalTime = 16;
  return e;
}

std::string Told(const std::vector<Remark>& remarks) {
  std::string text;
  for (const Remark& remark : remarks) text += Worded(remark, Language::English) + "\n";
  return text;
}

struct Slip {
  RemarkKind kind;
  int row;
  std::string_view variable;
  std::vector<double> values;
  void (*make)(Experiment&);
};

// Each slip is told in its row, with its values, as nothing else, and of its experiment alone.
TEST(DataChecks, TellsEachSlip) {
  using enum RemarkKind;
  using E = Experiment;
  const std::vector<Slip> slips = {
      {FallingCells, 7, "Cx", {7, 4}, [](E& e) { e.Cx[6] = e.Cx[7] = e.Cx[8] = 4; }},
      {RisingSubstrate, 8, "Cs", {0, 5}, [](E& e) { e.Cs[7] = e.Cs[8] = 5; }},
      {ProductBeforeGrowth,
       2,
       "Cp",
       {4, 0},
       [](E& e) { e.Cx[1] = 1, e.Cp = {0, 4, 5, 6, 7, 8, 8, 8, 8}; }},
      {YieldTooHigh,
       6,
       "Cs",
       {30, 20},
       [](E& e) {
         for (double& Cp : e.Cp) Cp *= 3;
       }},
      {FirstSampleLate,
       1,
       "t",
       {3},
       [](E& e) {
         for (double& t : e.time) t += 3;
         e.finalTime = 19;
       }},
      {TimesUnsorted,
       5,
       "t",
       {6, 8},
       [](E& e) {
         for (auto series : {&E::time, &E::Cx, &E::Cs, &E::Cp})
           std::swap((e.*series)[3], (e.*series)[4]);
       }},
      {FinalTimeEarly, 9, "t", {12, 16}, [](E& e) { e.finalTime = 12; }},
      {FarOff, 3, "Cs", {1.57, 14.8}, [](E& e) { e.Cs[2] = 1.57; }},
      {LooksLikePercent,
       1,
       "Cs",
       {0.8},
       [](E& e) {
         for (auto series : {&E::Cx, &E::Cs, &E::Cp})
           for (double& value : e.*series) value *= 0.04;
       }},
      {TooConcentrated,
       1,
       "Cs",
       {20000},
       [](E& e) {
         for (double& Cs : e.Cs) Cs *= 1000;
       }},
      // ln Cx rises by ln(3.6 / 1.5) in 240 h.
      {LooksLikeMinutes,
       9,
       "t",
       {190.02},
       [](E& e) {
         for (double& t : e.time) t *= 60;
         e.finalTime = 960;
       }},
      {LooksLikeDays,
       9,
       "t",
       {190.02 / 1440},
       [](E& e) {
         for (double& t : e.time) t /= 24;
       }},
  };
  for (const auto& [kind, row, variable, values, make] : slips) {
    std::vector<Experiment> experiments = {Plain(), Plain()};
    experiments[1].number = 7;
    make(experiments[1]);
    const auto remarks = CheckData(experiments);
    ASSERT_EQ(remarks.size(), 1u) << static_cast<int>(kind) << Told(remarks);
    const Remark& told = remarks.front();
    EXPECT_EQ(told.kind, kind) << Told(remarks);
    EXPECT_EQ(told.row, row) << Told(remarks);
    EXPECT_EQ(told.variable, variable);
    EXPECT_EQ(told.place, 2);
    EXPECT_EQ(told.number, 7);
    ASSERT_EQ(told.values.size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
      EXPECT_NEAR(told.values[i], values[i], 0.001 * values[i]) << Told(remarks);
  }
}

// Of 96 fermentations with 3 % noise, and as many without, hardly one is remarked on.
TEST(DataChecks, TakesNoiseForNoise) {
  int remarks = 0;
  std::string told;
  for (const double noise : {0.0, 0.03})
    for (const Model& model : kModels)
      for (unsigned seed = 1; seed <= 3; ++seed) {
        const auto made = CheckData(test::Fermentations(model, seed, noise).experiments);
        remarks += static_cast<int>(made.size());
        told += Told(made);
      }
  EXPECT_LE(remarks, 2) << told;
}

TEST(DataChecks, AsksNothingOfABatchWithoutProduct) {
  Experiment batch = Plain();
  batch.Cx[1] = batch.Cx[0];
  batch.Cp.assign(batch.Cp.size(), 0);
  const auto remarks = CheckData({&batch, 1});
  EXPECT_TRUE(remarks.empty()) << Told(remarks);
}

TEST(DataChecks, WordsARemarkInBothLanguages) {
  const Remark remark{RemarkKind::FarOff, 3, "Cs", {1.57, 14.79999}, 2, 7};
  EXPECT_EQ(Worded(remark, Language::English),
            "experiment 7, row 3: Cs = 1.57 g/L lies far off the other points, which let expect "
            "14.8 g/L");
  EXPECT_TRUE(
      Worded(remark, Language::Portuguese).starts_with("experimento 7, linha 3: Cs = 1.57"));
}

// Experiments without points, with one, two or three, and with points sampled at once.
TEST(DataChecks, LooksAtFewPointsWithoutAFault) {
  Experiment experiment;
  for (const double time : {0.0, 0.0, 1.0, 1.0, 1.0}) {
    EXPECT_EQ(CheckData({&experiment, 1}).size(), 0u);
    experiment.time.push_back(time);
    experiment.Cx.push_back(1);
    experiment.Cs.push_back(10);
    experiment.Cp.push_back(0);
    experiment.finalTime = 2;
  }
}

TEST(DataChecks, TellsWhatNoSimulationCanFollow) {
  const Experiment experiments[] = {{1, "", {0, -1}, {1, 2}, {10, -5}, {0, 0}, 4, true},
                                    {2, "", {0}, {1}, {1}, {1}, 0, true},
                                    {3, "", {0, 3}, {1, 2}, {10, 5}, {0, 0}, 2, true},
                                    {4, "", {3, 0}, {2, 1}, {1, 9}, {0, 0}, 3, true}};
  std::string told;
  for (const Remark& remark : CheckPossible(experiments))
    told += std::to_string(remark.number) + ":" + std::to_string(remark.row) + " " +
            std::string(remark.variable) + " ";
  EXPECT_EQ(told, "1:2 t 1:2 Cs 2:1 t 3:2 t ");
}

}  // namespace
}  // namespace velmora
