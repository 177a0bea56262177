// A smooth curve through the points of a simulation.
#pragma once

#include <optional>
#include <vector>

#include "charts/AxisScaling.h"

namespace velmora {

/// Through `points` of ascending x: cubic pieces that neither overshoot nor add a hump (Fritsch and
/// Carlson 1980, with the slopes of Fritsch and Butland 1984). Points that do not ascend are passed
/// over.
class SmoothCurve {
 public:
  explicit SmoothCurve(const std::vector<PlotPoint>& points);

  /// The curve's value at x; nothing outside its points.
  std::optional<double> At(double x) const;

  /// The curve between `from` and `to` in about `count` pieces, its own points among them.
  std::vector<PlotPoint> Between(double from, double to, int count) const;

 private:
  double Piece(std::size_t k, double x) const;  // on the piece from point k

  std::vector<PlotPoint> points_;
  std::vector<double> slopes_;
};

}  // namespace velmora
