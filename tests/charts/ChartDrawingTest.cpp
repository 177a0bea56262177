// Which ticks, grid lines and labels a chart is drawn with, told by a canvas that only notes them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>
#include <string>

#include "charts/ChartDrawing.h"
#include "tests/support/NotingCanvas.h"

namespace velmora {
namespace {

using test::NotingCanvas;

constexpr PaperArea kPaper{0, 0, 560, 420};

ChartContent Reaching(double time, double Cs) {
  ExperimentLists lists;
  lists.Append({1, "", {0, time}, {0, 0}, {Cs, 0}, {0, 0}}, {});
  return ContentOf(PlotVariable::Cs, lists, nullptr, true, '.');
}

NotingCanvas Drawn(const ChartContent& content) {
  NotingCanvas canvas;
  DrawChart(canvas, kPaper, content);
  return canvas;
}

/// The places along one direction, without repetition.
std::set<double> Places(const std::vector<PaperLine>& lines, bool upright) {
  std::set<double> places;
  for (const auto& [from, to] : lines)
    if ((from.x == to.x) == upright) places.insert(upright ? from.x : from.y);
  return places;
}

double LeastDistance(const std::set<double>& places) {
  double least = kPaper.width;
  for (auto at = places.begin(); std::next(at) != places.end(); ++at)
    least = std::min(least, *std::next(at) - *at);
  return least;
}

TEST(ChartDrawing, LeavesAUsualChartAllItsLines) {
  const ChartContent content = Reaching(599, 4999);  // 12 steps of 50 h, 10 of 500 g/L
  const NotingCanvas canvas = Drawn(content);
  EXPECT_EQ(Places(canvas.grid, true).size(), 12U);
  EXPECT_EQ(Places(canvas.grid, false).size(), 9U);
}

/// The axes take 430 by 300 of the 560 by 420 units: room for a hundred upright lines and 75 level
/// ones, 4 units from each other.
TEST(ChartDrawing, ThinsWhatWouldRunTogether) {
  for (const auto& [time, Cs] : {std::pair{50000.0, 75.0},
                                 {45.0, 1e9},
                                 {50000.0, 1e9},
                                 {123456.0, 789012.0},
                                 {1e300, 1e300}}) {
    SCOPED_TRACE(std::to_string(time) + " " + std::to_string(Cs));
    const ChartContent content = Reaching(time, Cs);
    const NotingCanvas canvas = Drawn(content);
    for (const bool upright : {true, false}) {
      const std::set<double> lines = Places(canvas.grid, upright);
      EXPECT_GE(lines.size(), 7U);
      EXPECT_LE(lines.size(), upright ? 108U : 76U);
      EXPECT_GE(LeastDistance(lines), 3.99);
      EXPECT_GE(LeastDistance(Places(canvas.ticks, upright)), 3.99);
    }
  }
}

/// Below the axis each number stands in the middle under its own tick, and no two touch.
TEST(ChartDrawing, WritesNumbersUnderTheirTicks) {
  for (const double time : {1234.0, 50000.0, 123456.0, 7e9}) {
    const ChartContent content = Reaching(time, 75);
    const NotingCanvas canvas = Drawn(content);
    const double axis = ToPaper(content.scale, kPaper, {0, 0}).y;
    const std::set<double> ticks = Places(canvas.ticks, true);
    int numbers = 0;
    double end = 0;
    for (const auto& [start, text] : canvas.texts) {
      if (start.y < axis || text == "t (h)" || text == "0") continue;
      const double middle = start.x + canvas.WidthOf(text) / 2;
      const double stated = ToPaper(content.scale, kPaper, {std::atof(text.c_str()), 0}).x;
      EXPECT_NEAR(middle, stated, 1e-6) << text;
      EXPECT_TRUE(std::any_of(ticks.begin(), ticks.end(), [&](double tick) {
        return std::abs(tick - middle) < 1e-6;
      })) << text;
      EXPECT_GT(start.x, end);
      end = start.x + canvas.WidthOf(text);
      ++numbers;
    }
    EXPECT_GE(numbers, 3) << time;
  }
}

/// A long title takes several lines above the axes, in the middle over them, inside the paper.
class LongTitle : public testing::TestWithParam<const char*> {};

TEST_P(LongTitle, IsBrokenOverItsAxes) {
  ChartContent content = Reaching(45, 75);
  content.title = GetParam();
  const NotingCanvas canvas = Drawn(content);
  const double top = ToPaper(content.scale, kPaper, {0, content.scale.Ymax}).y;
  const double left = ToPaper(content.scale, kPaper, {0, 0}).x;
  std::string written;
  for (const auto& [start, text] : canvas.texts) {
    if (start.y > top || text.size() < 10) continue;
    written += (written.empty() ? "" : " ") + text;
    EXPECT_GE(start.x, left);
  }
  EXPECT_EQ(written, content.title);
}

INSTANTIATE_TEST_SUITE_P(
    ChartDrawing, LongTitle,
    testing::Values(
        "Ethanol from diluted molasses, fed once and left to itself for two days at 32 °C",
        "Growth of yeast on molasses with seventy-five grams of sugar a litre, thirty degrees, pH "
        "4.8, shaken at one hundred and fifty turns a minute, as measured by three laboratories in "
        "the year two thousand and nineteen"));

TEST(ChartDrawing, WritesNoNumbersNorTicksWhereThereAreNoAxes) {
  const NotingCanvas canvas = Drawn(ContentOf(PlotVariable::Cs, {}, nullptr, true, '.'));
  for (const auto& [start, text] : canvas.texts)
    EXPECT_TRUE(text == "t (h)" || text == "Cs (g/L)") << text;
  EXPECT_TRUE(canvas.ticks.empty() && canvas.grid.empty());
}

}  // namespace
}  // namespace velmora
