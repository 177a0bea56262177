#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "charts/AxisScaling.h"
#include "charts/ChartContent.h"

namespace velmora {
namespace {

ExperimentLists Points(std::vector<PlotPoint> points, bool visible = true) {
  Experiment experiment;
  for (const PlotPoint& point : points) {
    experiment.time.push_back(point.x);
    experiment.Cs.push_back(point.y);
    experiment.Cx.push_back(point.y / 10);
    experiment.Cp.push_back(0);
  }
  ExperimentLists lists;
  lists.Append(experiment, {"CircCheio", 1, 1, visible});
  return lists;
}

Extents Reaching(double time, double Cs) {
  Extents extents;
  extents.timeMax = time;
  extents.CsMax = Cs;
  return extents;
}

/// The lower bound of each row and its step, written down from the house's table of axes.
TEST(AxisSteps, ChangeExactlyAtTheirBounds) {
  const std::vector<std::pair<double, double>> time{
      {0, 0.25}, {2.5, 0.5}, {5, 1},   {9, 2},    {17, 3},   {25, 5},   {41, 5},
      {49, 8},   {57, 9},    {90, 15}, {150, 20}, {200, 30}, {400, 50}, {600, 100}};
  const std::vector<std::pair<double, double>> concentration{
      {0, 0.1},   {1, 0.25},   {2.5, 0.5},  {5, 1},      {9, 2},      {17, 3},   {25, 5},
      {41, 5},    {49, 8},     {57, 9},     {72, 10},    {90, 15},    {135, 20}, {180, 25},
      {200, 30},  {270, 40},   {360, 50},   {450, 60},   {540, 70},   {630, 90}, {810, 120},
      {960, 150}, {1200, 200}, {2000, 400}, {4000, 500}, {5000, 1000}};
  const auto expectSteps = [](const auto& table, double (*divisor)(double)) {
    for (std::size_t i = 0; i < table.size(); ++i) {
      EXPECT_EQ(divisor(table[i].first), table[i].second);
      EXPECT_EQ(divisor(std::nextafter(table[i].first, -1)), i == 0 ? 0 : table[i - 1].second);
    }
  };
  expectSteps(time, DivisorDeX);
  expectSteps(concentration, DivisorDeY);
  EXPECT_EQ(DivisorDeX(-1), 0);
  EXPECT_EQ(DivisorDeY(1e300), 1000);
}

TEST(Escala, RoundsTickCountsUpByTheRange) {
  struct Row {
    double time, Cs, Xmax, Ymax;
  };
  // Ymax: 0.95 -> 9.5 steps of 0.1; 95 > 0.95 -> 10. 1 -> 4 steps of 0.25; 16 > 1 -> 5. 30 -> 6
  // steps of 5; 6 < 30 -> 7. 7 -> 7 steps of 1; 7 is not below 7. 5000 -> 5 steps; 5 < 5000 -> 6.
  for (const Row& row : {Row{2.5, 0.95, 2.5, 1},
                         {10, 1, 10, 1.25},
                         {45, 30, 45, 35},
                         {7.5, 7, 8, 7},
                         {24, 7.5, 24, 8},
                         {601, 5000, 700, 6000}}) {
    const PlotScale scale = Escala(Reaching(row.time, row.Cs), PlotVariable::Cs, '.');
    EXPECT_DOUBLE_EQ(scale.Xmax, row.Xmax);
    EXPECT_DOUBLE_EQ(scale.Ymax, row.Ymax);
    EXPECT_DOUBLE_EQ(scale.upperLeft.x, -0.2 * row.Xmax);
    EXPECT_DOUBLE_EQ(scale.lowerRight.y, -0.2 * row.Ymax);
  }
}

TEST(Escala, PlacesGridTicksAndLabels) {
  const PlotScale scale = Escala(Reaching(4, 2), PlotVariable::Cs, ',');  // 8 x 0.5 h; 9 x 0.25 g/L
  ASSERT_EQ(scale.Ymax, 2.25);
  ASSERT_EQ(scale.levels.size(), 8U);
  EXPECT_EQ(scale.levels.back().from.y, 2.0) << "no horizontal line at Ymax";
  ASSERT_EQ(scale.moments.size(), 8U);
  EXPECT_EQ(scale.moments.back().from.x, 4) << "the last vertical line lies on the right end";
  EXPECT_EQ(scale.timeTicks.size(), 8U);
  EXPECT_EQ(scale.concentrationTicks.size(), 9U);
  ASSERT_EQ(scale.timeLabels.size(), 8U);
  EXPECT_EQ(scale.timeLabels[1].text, "0,50");
  EXPECT_EQ(scale.concentrationLabels[1].text, "0,25");
  EXPECT_DOUBLE_EQ(scale.concentrationLabels[1].at.x, -0.085 * 4);
  EXPECT_EQ(Escala(Reaching(45, 75), PlotVariable::Cs, ',').timeLabels[1].text, "5");
}

TEST(Escala, CopesWithNothingHugeAndEqualTimes) {
  const PlotScale none = Escala({}, PlotVariable::Cx, '.');
  EXPECT_EQ(none.Xmax, 0);
  EXPECT_EQ(none.stepX, 0.25);
  EXPECT_EQ(none.stepY, 0.1);
  EXPECT_EQ(none.upperLeft.y, 1e-16);
  Extents equal = Reaching(12, 5);
  equal.timeMin = 12;
  EXPECT_EQ(Escala(equal, PlotVariable::Cs, '.').Xmax, 12);
}

/// 50,000 h are 500 steps of 100 h, all kept. 1e9 g/L are a million steps of 1000 g/L and one, of
/// which every ten-thousandth is kept: a hundred grid lines behind 0.
TEST(Escala, KeepsNumbersOfAnyRange) {
  const PlotScale scale = Escala(Reaching(50000, 1e9), PlotVariable::Cs, '.');
  EXPECT_EQ(scale.stepX, 100);
  EXPECT_EQ(scale.stepY, 1000);
  EXPECT_EQ(scale.tickX, 100);
  EXPECT_EQ(scale.tickY, 1e7);
  EXPECT_EQ(scale.moments.size(), 500U);
  EXPECT_EQ(scale.levels.size(), 100U);
  EXPECT_EQ(scale.levels[1].from.y, 2e7);
  EXPECT_EQ(scale.timeLabels[499].text, "49900");
  EXPECT_EQ(scale.concentrationLabels.back().text, "1000000000");
  const double largest = std::numeric_limits<double>::max();
  const PlotScale huge = Escala(Reaching(largest, largest), PlotVariable::Cs, '.');
  EXPECT_GE(huge.Xmax, 1e300);
  EXPECT_TRUE(std::isfinite(huge.upperLeft.y) && std::isfinite(huge.lowerRight.x));
  for (const std::size_t lines :
       {huge.moments.size(), huge.levels.size(), huge.timeTicks.size(), huge.timeLabels.size(),
        huge.concentrationTicks.size(), huge.concentrationLabels.size()}) {
    EXPECT_GE(lines, 99U);
    EXPECT_LE(lines, 1001U);
  }
  for (std::size_t i = 1; i < 100; ++i) {
    const std::string text = huge.timeLabels[i].text;
    EXPECT_LE(text.size(), std::string("9.99E+299").size()) << text;
  }
}

TEST(MaxMin, CountsOnlyVisibleExperimentsAndTheInterval) {
  EXPECT_EQ(MaxMin(Points({{1, 5}, {3, 2}})).CsMax, 5);
  EXPECT_EQ(MaxMin(Points({{1, 5}, {3, 2}}, false)).timeMax, 0);
  EXPECT_EQ(MaxMin(Points({{-1, -5}})).CsMax, 0);
  const ExperimentLists lists = Points({{1, 5}, {3, 2}, {9, 1}});
  const Extents extents = MaxMinZoom(lists, {2, 9});
  EXPECT_EQ(extents.CsMax, 2);
  EXPECT_EQ(extents.timeMin, 2);
  const TimeInterval interval{2, 8};
  const ChartContent content = ContentOf(PlotVariable::Cs, lists, nullptr, true, '.', interval);
  ASSERT_EQ(content.experiments[0].points.size(), 1U);
  EXPECT_TRUE(content.experiments[0].curve.empty());
  EXPECT_EQ(MeasuredTimes(lists).from, 1);
  EXPECT_EQ(MeasuredTimes(lists).to, 9);
}

/// An interval that lies between two points of a curve still shows the curve, from end to end.
TEST(ContentOf, CutsCurvesAtTheIntervalsEnds) {
  ModelCurves curves{};
  curves[0].points = 100;
  for (std::size_t i = 0; i < 100; ++i) {
    curves[0].time[i] = static_cast<double>(i);
    curves[0].Cs[i] = 2 * static_cast<double>(i);
  }
  const auto curve =
      ContentOf(PlotVariable::Cs, Points({{1, 5}}), &curves, true, '.', TimeInterval{40.25, 40.75})
          .experiments[0]
          .curve;
  ASSERT_EQ(curve.size(), 2U);
  EXPECT_DOUBLE_EQ(curve[0].y, 80.5);
  EXPECT_DOUBLE_EQ(curve[1].y, 81.5);
}

TEST(Arredondamento, RoundsHalfUp) {
  EXPECT_EQ(Arredondamento(2.345, 2), 2.35);
  EXPECT_EQ(Arredondamento(-1.5, 0), -1);
  EXPECT_EQ(Arredondamento(-2.5, 0), -2);
}

}  // namespace
}  // namespace velmora
