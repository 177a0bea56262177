#include "charts/SmoothCurve.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

double Secant(const PlotPoint& a, const PlotPoint& b) {
  return (b.y - a.y) / (b.x - a.x);
}

/// 0 where the secants' signs differ, else their harmonic mean, weighted by the distances.
double InnerSlope(const PlotPoint& a, const PlotPoint& b, const PlotPoint& c) {
  const double before = Secant(a, b), behind = Secant(b, c);
  if (!(before * behind > 0)) return 0;
  const double first = b.x - a.x, second = c.x - b.x;
  return 3 * (first + second) / ((2 * second + first) / before + (second + 2 * first) / behind);
}

}  // namespace

SmoothCurve::SmoothCurve(const std::vector<PlotPoint>& points) {
  for (const PlotPoint& point : points)
    if (std::isfinite(point.x) && std::isfinite(point.y) &&
        (points_.empty() || point.x > points_.back().x))
      points_.push_back(point);
  slopes_.assign(points_.size(), 0);
  if (points_.size() < 2) return;
  slopes_.front() = Secant(points_[0], points_[1]);
  slopes_.back() = Secant(points_[points_.size() - 2], points_.back());
  for (std::size_t k = 1; k + 1 < points_.size(); ++k)
    slopes_[k] = InnerSlope(points_[k - 1], points_[k], points_[k + 1]);
}

/// The cubic Hermite polynomial.
double SmoothCurve::Piece(std::size_t k, double x) const {
  const PlotPoint& a = points_[k];
  const PlotPoint& b = points_[k + 1];
  const double length = b.x - a.x;
  const double s = (x - a.x) / length, r = 1 - s;
  return r * r * (1 + 2 * s) * a.y + s * s * (1 + 2 * r) * b.y +
         s * r * length * (r * slopes_[k] - s * slopes_[k + 1]);
}

std::optional<double> SmoothCurve::At(double x) const {
  if (points_.empty() || !(x >= points_.front().x && x <= points_.back().x)) return std::nullopt;
  if (points_.size() == 1) return points_.front().y;
  const auto behind = std::upper_bound(points_.begin() + 1, points_.end() - 1, x,
                                       [](double at, const PlotPoint& p) { return at < p.x; });
  return Piece(static_cast<std::size_t>(behind - points_.begin()) - 1, x);
}

std::vector<PlotPoint> SmoothCurve::Between(double from, double to, int count) const {
  std::vector<PlotPoint> curve;
  if (points_.size() < 2) return curve;
  from = std::max(from, points_.front().x), to = std::min(to, points_.back().x);
  if (!(from < to)) return curve;
  std::vector<double> places;
  for (int i = 0; i <= count; ++i) places.push_back(from + (to - from) * i / count);
  for (const PlotPoint& point : points_)
    if (point.x > from && point.x < to) places.push_back(point.x);
  std::sort(places.begin(), places.end());
  for (const double x : places)
    if (const auto y = At(std::clamp(x, points_.front().x, points_.back().x)))
      curve.push_back({x, *y});
  return curve;
}

}  // namespace velmora
