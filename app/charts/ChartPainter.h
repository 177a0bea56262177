// Charts as Qt paints them: on the screen, in a picture, on paper.
#pragma once

#include <QFont>
#include <QPointF>
#include <QRectF>

#include "charts/ChartDrawing.h"

class QFontMetricsF;
class QPainter;
class QPen;

namespace velmora {

/// Draws in the painter's coordinates, with the painter's font.
class PainterCanvas : public ChartCanvas {
 public:
  explicit PainterCanvas(QPainter& painter);

  void OpenPaper(const PaperArea& area) override;
  void ClosePaper() override;
  void SetFontHeight(double height) override;
  void SetTitleFontHeight(double height) override;
  double FontHeight() const override;
  double Ascent() const override;
  double Descent() const override;
  double WidthOf(std::string_view text) const override;
  void Write(const PaperPoint& start, std::string_view text) override;
  void WriteUpwards(const PaperPoint& start, std::string_view text) override;
  void DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) override;
  void DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) override;
  void DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) override;
  void DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres, double size,
                   Ink ink, double lineWidth) override;

 private:
  QFontMetricsF Metrics() const;

  QPainter& painter_;
  QFont font_;  // of labels
};

/// Paints the chart on `paper`, in the painter's coordinates, over a white ground. Curves and
/// points outside the plot's paper are cut off.
void PaintChart(QPainter& painter, const QRectF& paper, const ChartContent& content,
                const ChartStyle& style = {});

/// Where a point in user coordinates stands on `paper`, and which point stands there.
QPointF ToPaper(const PlotScale& scale, const QRectF& paper, const PlotPoint& point);
PlotPoint FromPaper(const PlotScale& scale, const QRectF& paper, const QPointF& position);

}  // namespace velmora
