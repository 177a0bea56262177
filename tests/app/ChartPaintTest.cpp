// What is painted, read off the picture at computed points.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>

#include "app/charts/ChartPainter.h"
#include "app/charts/LegendView.h"
#include "app/charts/Markers.h"

namespace velmora {
namespace {

const QRectF kPaper(0, 0, 400, 300);

/// Two experiments of one point each, blue at (2, 30) and red at (8, 60); the second has a level
/// curve at 45.
struct Plot {
  ExperimentLists lists;
  ModelCurves curves{};

  Plot() {
    Add(1, 2, 30);
    Add(2, 8, 60);
    curves[1].points = 100;
    for (std::size_t i = 0; i < 100; ++i) {
      curves[1].time[i] = 0.1 * static_cast<double>(i);
      curves[1].Cs[i] = 45;
    }
  }

  void Add(std::int16_t number, double time, double Cs) {
    lists.Append({number, "", {time}, {0}, {Cs}, {0}}, {"CircCheio", number});
  }

  ChartContent Content(bool withCurves) const {
    return ContentOf(PlotVariable::Cs, lists, withCurves ? &curves : nullptr, false, '.');
  }
};

QImage Painted(const ChartContent& content, const ChartStyle& style = {}) {
  QImage image(400, 300, QImage::Format_RGB32);
  QPainter painter(&image);
  PaintChart(painter, kPaper, content, style);
  return image;
}

QColor At(const QImage& image, const ChartContent& content, double time, double value) {
  return image.pixelColor(ToPaper(content.scale, kPaper, {time, value}).toPoint());
}

bool HasColour(const QImage& image, const QColor& colour) {
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y) == colour) return true;
  return false;
}

TEST(ChartPainter, PutsDotsOfTheRightColourAtTheRightPlace) {
  const Plot plot;
  const ChartContent content = plot.Content(false);
  const QImage image = Painted(content);
  EXPECT_EQ(At(image, content, 2, 30), QColor(Qt::blue));
  EXPECT_EQ(At(image, content, 8, 60), QColor(Qt::red));
  EXPECT_EQ(At(image, content, 5, 45), QColor(Qt::white)) << "no curve where there is none";
}

TEST(ChartPainter, DrawsTheCurveOfAHiddenExperimentButNotItsDots) {
  Plot plot;
  plot.lists.Display(2).visible = false;
  const ChartContent content = plot.Content(true);
  const QImage image = Painted(content);
  EXPECT_FALSE(HasColour(image, Qt::red));
  EXPECT_EQ(content.scale.Ymax, 35) << "it does not count in the extents";
  plot.lists.Display(2).visible = true;
  const ChartContent shown = plot.Content(true);
  const QColor line = At(Painted(shown), shown, 5, 45);
  EXPECT_LT(line.lightness(), 160);
}

TEST(ChartPainter, CutsCurvesAtThePaper) {
  Plot plot;
  for (std::size_t i = 0; i < 100; ++i) plot.curves[1].Cs[i] = i % 2 == 0 ? 1e12 : -500;
  const ChartContent content = plot.Content(true);
  QImage image(600, 300, QImage::Format_RGB32);
  image.fill(Qt::green);
  QPainter painter(&image);
  PaintChart(painter, kPaper, content);
  for (int y = 0; y < 300; ++y) EXPECT_EQ(image.pixelColor(410, y), QColor(Qt::green));
}

/// The curve leaves the paper between two of its points: the way to its edge is seen.
TEST(ChartPainter, DrawsTheWayOutOfThePaper) {
  Plot plot;
  for (std::size_t i = 0; i < 100; ++i) plot.curves[1].Cs[i] = i < 50 ? 0 : 1e300;
  const ChartContent content = plot.Content(true);
  const QImage image = Painted(content);
  const double time = plot.curves[1].time[49];
  for (const double value : {20.0, 60.0, 80.0}) {
    const QPoint at = ToPaper(content.scale, kPaper, {time, value}).toPoint();
    int darkest = 255;
    for (int x = -2; x <= 2; ++x)
      darkest = std::min(darkest, image.pixelColor(at + QPoint(x, 0)).lightness());
    EXPECT_LT(darkest, 160) << value;
  }
}

TEST(ChartPainter, KeepsThePlotOfNoProductInSight) {
  const ChartContent content = ContentOf(PlotVariable::Cp, Plot().lists, nullptr, false, '.');
  ASSERT_EQ(content.scale.Ymax, 0);
  const QPointF dot = ToPaper(content.scale, kPaper, {2, 0});
  EXPECT_TRUE(kPaper.adjusted(20, 20, -20, -20).contains(dot));
  EXPECT_EQ(At(Painted(content), content, 2, 0), QColor(Qt::blue));
}

/// The figure stamped on the screen is the one that a page gets.
TEST(Markers, AreDrawnAlikeOneByOneAndByTheThousand) {
  for (const std::string_view marker : kMarkers) {
    QImage one(20, 20, QImage::Format_RGB32);
    one.fill(Qt::white);
    QImage many = one;
    QPainter onOne(&one), onMany(&many);
    DrawMarker(onOne, marker, {10, 10}, 10, Qt::red, 1.5);
    DrawMarkers(onMany, marker, QPolygonF({QPointF(10.2, 9.8)}), 10, Qt::red, 1.5);
    EXPECT_EQ(one, many) << marker;
  }
}

TEST(ChartPainter, ReadsPositionsBack) {
  const ChartContent content = Plot().Content(false);
  const PlotPoint point = FromPaper(content.scale, kPaper, ToPaper(content.scale, kPaper, {3, 40}));
  EXPECT_NEAR(point.x, 3, 1e-9);
  EXPECT_NEAR(point.y, 40, 1e-9);
}

TEST(Markers, AreTheSameFigureInTheLegendAndOnTheChart) {
  // A triangle that points up is widest at its foot, also where it is a picture of the legend.
  const QImage up = MarkerPixmap("Triang1", 32).toImage();
  const auto dark = [&](int y) {
    int count = 0;
    for (int x = 0; x < 32; ++x) count += up.pixelColor(x, y).lightness() < 128;
    return count;
  };
  EXPECT_GT(dark(22), dark(9) + 8);
  QImage open = MarkerPixmap("QuadVazio", 32).toImage();
  EXPECT_EQ(open.pixelColor(16, 16), QColor(Qt::white));
  EXPECT_EQ(MarkerPixmap("QuadCheio", 32).toImage().pixelColor(16, 16), QColor(Qt::black));
}

}  // namespace
}  // namespace velmora
