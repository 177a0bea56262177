// The one painter of all charts: on the screen, in a picture, on paper, in the report.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include "charts/ChartContent.h"

class QPainter;

namespace velmora {

enum class PointStyle { Dots, Markers };

struct ChartStyle {
  PointStyle points = PointStyle::Dots;
  double unit = 1;        // the width of a thin line, in the painter's coordinates
  double fontHeight = 0;  // of labels, in units; 0 for one that suits the paper
};

/// Paints the chart on `paper`, in the painter's coordinates, over a white ground. Curves and
/// points outside the plot's paper are cut off.
void PaintChart(QPainter& painter, const QRectF& paper, const ChartContent& content,
                const ChartStyle& style = {});

/// Where a point in user coordinates stands on `paper`, and which point stands there.
QPointF ToPaper(const PlotScale& scale, const QRectF& paper, const PlotPoint& point);
PlotPoint FromPaper(const PlotScale& scale, const QRectF& paper, const QPointF& position);

}  // namespace velmora
