// Charts for publication: their ticks, where their parts stand, and who can tell their series
// apart.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "charts/Appearance.h"
#include "charts/FigureLayout.h"
#include "charts/PictureFile.h"
#include "charts/SmoothCurve.h"
#include "charts/ZoomedChart.h"
#include "kinetics/Modelos.h"
#include "kinetics/Runge_Kutta.h"
#include "tests/support/NotingCanvas.h"

namespace velmora {
namespace {

using test::NotingCanvas;

constexpr PaperArea kPaper{0, 0, 600, 400};

std::string Labels(const AxisTicks& axis) {
  std::string text;
  for (const Tick& tick : axis.ticks)
    if (!tick.text.empty()) text += (text.empty() ? "" : " ") + tick.text;
  return text;
}

TEST(FigureTicks, AreRoundAndReachBothEnds) {
  struct Row {
    FigureAxis axis;
    int most;
    const char* labels;
  };
  for (const Row& row : {Row{{"", {0, 24}}, 6, "0 5 10 15 20 25"},
                         {{"", {0, 0.0043}}, 6, "0,000 0,001 0,002 0,003 0,004 0,005"},
                         {{"", {-0.3, 1.1}}, 5, "-0,5 0,0 0,5 1,0 1,5"},
                         {{"", {3.2, 4.9}, true}, 6, "3,5 4,0 4,5"},
                         {{"", {0, 0}}, 6, "0"},
                         {{"", {12.37, 12.37}}, 6, "12,37"},
                         {{"", {0.03, 40}, false, true}, 5, "0,1 1 10"},
                         {{"", {1.5, 40}, false, true}, 9, "1 2 5 10 20 50"},
                         {{"", {3.1, 3.9}, true, true}, 5, "3,2 3,4 3,6 3,8"}}) {
    const AxisTicks axis = TicksOf(row.axis, row.most, ',');
    EXPECT_EQ(Labels(axis), row.labels);
    EXPECT_LE(axis.range.from, row.axis.range.from);
    EXPECT_GE(axis.range.to, row.axis.range.to);
  }
  for (const double huge : {1e300, std::numeric_limits<double>::infinity()})
    EXPECT_GE(TicksOf({"", {-huge, huge}}, 6, '.').ticks.size(), 3U);
}

/// An experiment whose Cs falls along a straight line that the curve follows 1 g/L below.
ExperimentLists Falling(int count, double from = 60) {
  ExperimentLists lists;
  for (int i = 0; i < count; ++i) {
    const auto number = static_cast<std::int16_t>(i + 1);
    lists.Append({number, "molasses", {0, 5, 10}, {1, 2, 3}, {from, from / 2, 0}, {0, 0, 0}},
                 {std::string(kMarkers[static_cast<std::size_t>(i) % kMarkers.size()]), 1, 1});
  }
  return lists;
}

ModelCurves Below(double from) {
  ModelCurves curves{};
  curves[0].points = kModelPoints;
  for (std::size_t k = 0; k < 100; ++k) {
    curves[0].time[k] = 10 * static_cast<double>(k) / 99;
    curves[0].Cs[k] = from - from / 10 * curves[0].time[k] - 1;
  }
  return curves;
}

Figure CourseOf(const ExperimentLists& lists, const ModelCurves* curves = nullptr) {
  return CourseFigure(ContentOf(PlotVariable::Cs, lists, curves, true, '.'), {});
}

/// Each label in the middle under its tick, none touching the next, the last one at the axis's end;
/// nothing outside the paper.
TEST(FigureLayout, WritesLabelsUnderTheirTicksInsideThePaper) {
  for (const PaperArea& paper : {kPaper, PaperArea{10, 20, 220, 150}, PaperArea{0, 0, 300, 900}}) {
    Figure figure = CourseOf(Falling(1));
    figure.title = "A title that is far too long for one line above a chart as small as this one";
    NotingCanvas canvas;
    const FigureLayout layout = LayOut(figure, paper, canvas);
    canvas.SetFontHeight(layout.letters);
    double end = paper.left;
    for (const Tick& tick : layout.x.ticks.ticks) {
      const auto written =
          std::find_if(layout.texts.begin(), layout.texts.end(), [&](const LaidText& laid) {
            return laid.text == tick.text && laid.start.y > layout.frame.Bottom();
          });
      ASSERT_NE(written, layout.texts.end());
      const double half = canvas.WidthOf(tick.text) / 2;
      EXPECT_NEAR(written->start.x + half, layout.x.ToPaper(tick.at), 1e-9);
      EXPECT_GE(written->start.x, end);
      end = written->start.x + 2 * half;
    }
    EXPECT_LE(end, paper.Right());
    EXPECT_EQ(layout.x.ticks.ticks.back().at, layout.x.ticks.range.to);
    canvas.SetTitleFontHeight(layout.titleLetters);
    ASSERT_GE(layout.title.size(), 2U);
    for (const LaidText& line : layout.title) {
      EXPECT_GE(line.start.x, paper.left);
      EXPECT_LE(line.start.x + canvas.WidthOf(line.text), paper.Right());
      EXPECT_LT(line.start.y, layout.frame.top);
    }
    const PlotPoint point{3, 40};
    EXPECT_NEAR(layout.From(layout.At(point)).y, point.y, 1e-9);
  }
}

TEST(FigureLayout, WritesATitleOfTwoHundredLettersWhole) {
  Figure figure = CourseOf(Falling(1));
  for (int word = 0; word < 25; ++word) figure.title += word == 0 ? "titles" : " titling";
  NotingCanvas canvas;
  std::string written;
  for (const LaidText& line : LayOut(figure, kPaper, canvas).title)
    written += (written.empty() ? "" : " ") + line.text;
  EXPECT_EQ(written, figure.title);
}

TEST(FigureLayout, LetsChartsBelowEachOtherRunAlike) {
  NotingCanvas canvas;
  const double left = LayOut(CourseOf(Falling(1, 60)), kPaper, canvas).frame.left;
  for (const double Cs : {2.0, 9.0, 800.0})
    EXPECT_EQ(LayOut(CourseOf(Falling(1, Cs)), kPaper, canvas).frame.left, left);
}

TEST(FigureLayout, PutsTheLegendWhereNoDataAre) {
  NotingCanvas canvas;
  const auto covered = [](const Figure& figure, const FigureLayout& layout) {
    for (const FigureSeries& series : figure.series)
      for (const auto* points : {&series.points, &series.curve})
        for (const PlotPoint& point : *points)
          if (layout.legend->box.Contains(layout.At(point))) return true;
    return false;
  };
  const ModelCurves curves = Below(60);
  const Figure falling = CourseOf(Falling(3), &curves);
  const FigureLayout layout = LayOut(falling, kPaper, canvas);
  ASSERT_TRUE(layout.legend);
  EXPECT_EQ(layout.legend->rows.size(), 3U);
  EXPECT_EQ(layout.legend->rows[1].text, "Exp. 2: molasses");
  EXPECT_TRUE(layout.frame.Contains(layout.legend->box.Centre()));
  EXPECT_FALSE(covered(falling, layout));

  Figure crowded = falling;
  for (int i = 0; i <= 400; ++i)
    crowded.series[0].points.push_back({10.0 * (i % 21) / 20, 80.0 * (i / 21) / 19 - 20});
  const FigureLayout outside = LayOut(crowded, kPaper, canvas);
  EXPECT_FALSE(outside.frame.Contains(outside.legend->box.Centre()));
  EXPECT_FALSE(covered(crowded, outside));
  EXPECT_LE(outside.legend->box.Right(), kPaper.Right());
  Figure alike = falling;
  alike.legendOutside = true;
  EXPECT_EQ(LayOut(alike, kPaper, canvas).frame.Right(), outside.frame.Right());
}

/// Values below 0 have their place; hidden experiments have none, nor have their curves.
TEST(CourseFigure, ShowsNegativeValuesAndNothingHidden) {
  const ModelCurves curves = Below(60);
  ModelCurves rounding = Below(60);
  for (double& Cs : rounding[0].Cs) Cs = std::max(Cs, -1e-9);
  EXPECT_EQ(CourseOf(Falling(2), &rounding).y.range, (ValueRange{0, 60}));
  ExperimentLists lists = Falling(2);
  const Figure both = CourseOf(lists, &curves);
  EXPECT_EQ(both.y.range, (ValueRange{-1, 60}));
  const AxisTicks ticks = TicksOf(both.y, 7, '.');
  EXPECT_EQ(ticks.range, (ValueRange{-1, 60})) << "a curve's dip takes no room for a tick below it";
  EXPECT_EQ(ticks.ticks.front().text, "0");
  EXPECT_EQ(both.series.size(), 2U);
  EXPECT_GT(both.series[0].curve.size(), 400U);
  lists.Display(1).visible = false;
  const Figure one = CourseOf(lists, &curves);
  ASSERT_EQ(one.series.size(), 1U);
  EXPECT_TRUE(one.series[0].curve.empty());
}

/// The curve lies 1 g/L below each of the three points.
TEST(ResidualFigure, IsMeasuredMinusModel) {
  const ModelCurves curves = Below(60);
  const ChartContent content = ContentOf(PlotVariable::Cs, Falling(2), &curves, true, '.');
  const Figure residuals = ResidualFigure(content, {});
  ASSERT_EQ(residuals.series[0].points.size(), 3U);
  for (const PlotPoint& point : residuals.series[0].points) EXPECT_NEAR(point.y, 1, 1e-9);
  EXPECT_TRUE(residuals.series[1].points.empty()) << "it has no curve";
  const Figure parity = ParityFigure(content, {});
  EXPECT_NEAR(parity.series[0].points[1].x, 30, 1e-9);
  EXPECT_NEAR(parity.series[0].points[1].y, 29, 1e-9);
  EXPECT_EQ(parity.x.range, parity.y.range) << "the diagonal runs from corner to corner";
}

/// Cubic pieces hold a parabola near to its points, and neither overshoot a step nor add a hump.
TEST(SmoothCurve, FollowsItsPointsWithoutOvershooting) {
  std::vector<PlotPoint> parabola, step;
  for (int i = 0; i <= 10; ++i) {
    parabola.push_back({i / 10.0, i * i / 100.0});
    step.push_back({i / 10.0, i < 5 ? 0.0 : 1.0});
  }
  EXPECT_NEAR(*SmoothCurve(parabola).At(0.55), 0.3025, 2e-3);
  EXPECT_FALSE(SmoothCurve(parabola).At(1.01));
  double before = 0;
  for (const PlotPoint& point : SmoothCurve(step).Between(0, 1, 1000)) {
    EXPECT_GE(point.y, before - 1e-12);
    EXPECT_LE(point.y, 1 + 1e-12);
    before = point.y;
  }
}

// Colours as they are seen.

using Linear = std::array<double, 3>;

Linear LinearOf(Ink ink) {
  const auto linear = [](double value) {
    value /= 255;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return {linear(ink.red), linear(ink.green), linear(ink.blue)};
}

double Luminance(const Linear& c) {
  return 0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2];
}

/// CIELAB under D65.
std::array<double, 3> Lab(const Linear& c) {
  const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
  const double x = f((0.4124 * c[0] + 0.3576 * c[1] + 0.1805 * c[2]) / 0.9505);
  const double y = f(Luminance(c)), z = f((0.0193 * c[0] + 0.1192 * c[1] + 0.9505 * c[2]) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

/// What readers see who see red, green, or blue light not at all (Machado, Oliveira and Fernandes
/// 2009, severity 1), and all others.
constexpr double kEyes[4][3][3] = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                                   {{0.152286, 1.052583, -0.204868},
                                    {0.114503, 0.786281, 0.099216},
                                    {-0.003882, -0.048116, 1.051998}},
                                   {{0.367322, 0.860646, -0.227968},
                                    {0.280085, 0.672501, 0.047413},
                                    {-0.011820, 0.042940, 0.968881}},
                                   {{1.255528, -0.076749, -0.178779},
                                    {-0.078411, 0.930809, 0.147602},
                                    {0.004733, 0.691367, 0.303900}}};

/// Contrast by the WCAG 2 (3 is what it asks of graphics); a colour difference of 2.3 is just seen.
TEST(PublishedInks, ShowOnWhiteAndAreToldApart) {
  for (std::size_t i = 0; i < kPublishedInks.size(); ++i) {
    const Linear a = LinearOf(kPublishedInks[i]);
    EXPECT_GE(1.05 / (Luminance(a) + 0.05), 3) << i;
    for (std::size_t j = 0; j < i; ++j) {
      const Linear b = LinearOf(kPublishedInks[j]);
      EXPECT_GE(std::abs(Lab(a)[0] - Lab(b)[0]), 5) << "in grey print " << i << " " << j;
      for (const auto& eye : kEyes) {
        Linear seenA{}, seenB{};
        for (std::size_t row = 0; row < 3; ++row)
          for (std::size_t k = 0; k < 3; ++k)
            seenA[row] += eye[row][k] * a[k], seenB[row] += eye[row][k] * b[k];
        for (Linear* const seen : {&seenA, &seenB})
          for (double& part : *seen) part = std::clamp(part, 0.0, 1.0);
        const auto p = Lab(seenA), q = Lab(seenB);
        EXPECT_GE(std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]), 15) << i << " " << j;
      }
    }
  }
}

/// Nine experiments that all have the usual blue and the usual solid line; the ninth repeats the
/// first one's marker.
TEST(PublishedAppearances, TellNineAlikeExperimentsApart) {
  const ChartContent content = ContentOf(PlotVariable::Cs, Falling(9), nullptr, true, '.');
  const auto appearances = PublishedAppearances(content.experiments);
  std::set<std::array<int, 3>> inks;
  std::set<std::pair<std::string, LineKind>> looks;
  for (const Appearance& look : appearances) {
    inks.insert({look.ink.red, look.ink.green, look.ink.blue});
    looks.insert({look.marker, look.line});
  }
  EXPECT_EQ(inks.size(), 9U);
  EXPECT_EQ(looks.size(), 9U);
  EXPECT_EQ(appearances[0].ink.blue, kPublishedInks[0].blue);
  EXPECT_EQ(appearances[8].marker, appearances[0].marker) << "the marker is as chosen";
  for (std::size_t i = 0; i < 9; ++i)
    for (std::size_t j = 0; j < i; ++j) {
      if (appearances[i].line != appearances[j].line) continue;
      const auto [darker, lighter] = std::minmax(
          {Luminance(LinearOf(appearances[i].ink)), Luminance(LinearOf(appearances[j].ink))});
      EXPECT_GE((lighter + 0.05) / (darker + 0.05), 1.5) << "in grey print " << i << " " << j;
    }
}

TEST(ZoomedChart, ShowsPartsAndReturnsToTheWhole) {
  ZoomedChart chart{PlotVariable::Cs, Falling(1), Below(60)};
  EXPECT_FALSE(chart.Content(Language::English, '.').figure);
  chart.ShowPart({2, 4}, {10, 20});
  const ChartContent part = chart.Content(Language::English, '.');
  ASSERT_TRUE(part.figure);
  EXPECT_EQ(part.figure->x.range, (ValueRange{2, 4}));
  EXPECT_EQ(part.figure->y.range, (ValueRange{10, 20}));
  const ValueRange wide = Widened({2, 4}, 3, 2, false);
  EXPECT_EQ(wide, (ValueRange{1, 5}));
  EXPECT_NEAR(Widened({1, 100}, 10, 0.5, true).to, 31.6228, 1e-4);
  chart.bounds = {std::nullopt, 30};
  EXPECT_EQ(chart.Content(Language::English, '.').figure->y.range, (ValueRange{0, 30}));
  chart.ShowPart({-5, 50}, {-10, 100});
  EXPECT_TRUE(chart.IsPlain() && !chart.interval);
}

/// 160 mm at 300 dots an inch are 1890 pixels, 11811 of which are a metre.
TEST(PictureFile, IsOfTheFormatThatItsNameTells) {
  EXPECT_EQ(PictureFormatOf("a.b/chart.SVG"), PictureFormat::Svg);
  EXPECT_FALSE(PictureFormatOf("chart.bmp") || PictureFormatOf(".png"));
  std::vector<ChartContent> charts(1, ContentOf(PlotVariable::Cs, Falling(2), nullptr, true, '.'));
  charts[0].figure = CourseOf(Falling(2));
  const auto bytes = [&](PictureFormat format) { return PictureOf(charts, 1, {}, format, {}); };
  const std::string png = bytes(PictureFormat::Png);
  EXPECT_EQ(png.substr(12, 12), std::string("IHDR\0\0\x07\x62\0\0\x04\xF0", 12));
  EXPECT_EQ(png.substr(37, 13), std::string("pHYs\0\0\x2E\x23\0\0\x2E\x23\1", 13));
  EXPECT_EQ(png.substr(50, 4), "\x78\xA5\x3F\x76") << "the check sum of any picture at 300 dpi";
  EXPECT_NE(bytes(PictureFormat::Svg).find("<svg "), std::string::npos);
  EXPECT_TRUE(bytes(PictureFormat::Pdf).starts_with("%PDF-"));
}

/// Cells that die by half their number an hour, from point to point 1 h: between two points they
/// are exp(-0.5 (t - t1)) of those at the earlier one, within the error of the coarse step, 4e-4.
TEST(ZoomedChart, SimulatesCurvesBetweenTheModelsPointsUpToTheEndsOfItsInterval) {
  ZoomedChart chart;
  chart.variable = PlotVariable::Cx;
  chart.lists.Append({1, "", {0, 10}, {1000, 7}, {0, 0}, {0, 1}, 99, true}, {});
  KineticParameters dying;
  dying[At::Cx0] = 1000, dying[At::T] = 99, dying[At::Kd] = 0.5;
  for (const At divisor : {At::Yxs, At::Yps, At::Ks, At::Kis, At::CxAst, At::CpAst, At::u})
    dying[divisor] = 1;
  SetModelSwitches(kModels[0], dying);
  ModelCurve& curve = chart.curves[0];
  Runge_Kutta().Integrate(dying, curve);
  const auto drawn = [&] { return chart.Content(Language::English, '.').experiments[0].curve; };
  EXPECT_GT(drawn().size(), 5U * kModelPoints);
  chart.interval = TimeInterval{2.25, 8.5};
  EXPECT_EQ(drawn().front().x, 2.25);
  EXPECT_EQ(drawn().back().x, 8.5);
  for (const PlotPoint& point : drawn()) {
    const auto before = static_cast<std::size_t>(point.x);
    const double share = point.y / curve.Cx[before];
    EXPECT_NEAR(share, std::exp(-0.5 * (point.x - curve.time[before])), 2.5e-4) << point.x;
  }
  curve.parameters = {};  // nothing is known to simulate from
  EXPECT_EQ(drawn().size(), 8U);
  chart.published = true;
  EXPECT_FALSE(chart.Content(Language::English, '.').figure->series[0].curve.empty());
}

}  // namespace
}  // namespace velmora
