#include "cli/CurveText.h"

#include <algorithm>

#include "language/Numbers.h"

namespace velmora::cli {
namespace {

void AddPoint(const ModelCurve& curve, double time, PlacedCurve& placed) {
  const auto end = curve.time.begin() + curve.points;
  const auto behind = std::min(std::upper_bound(curve.time.begin(), end, time), end - 1);
  const auto j = static_cast<std::size_t>(behind - curve.time.begin());
  const std::size_t i = j == 0 ? 0 : j - 1;
  const double span = curve.time[j] - curve.time[i];
  const double share = span > 0 ? std::min((time - curve.time[i]) / span, 1.0) : 0;
  const auto between = [&](const ModelCurve::Series& series) {
    return series[i] + (series[j] - series[i]) * share;
  };
  placed.time.push_back(time);
  placed.Cx.push_back(between(curve.Cx));
  placed.Cs.push_back(between(curve.Cs));
  placed.Cp.push_back(between(curve.Cp));
}

}  // namespace

PlacedCurve CurveAt(int place, int number, const ModelCurve& curve, int points) {
  PlacedCurve placed{place, number, {}, {}, {}, {}};
  if (points == 0) {
    const auto all = [&](const ModelCurve::Series& series) {
      return std::vector<double>(series.begin(), series.begin() + curve.points);
    };
    return {place, number, all(curve.time), all(curve.Cx), all(curve.Cs), all(curve.Cp)};
  }
  const double last = curve.time[static_cast<std::size_t>(curve.points) - 1];
  for (int point = 0; point < points; ++point) AddPoint(curve, last * point / (points - 1), placed);
  return placed;
}

std::string TableOf(std::span<const PlacedCurve> curves, char separator) {
  std::string text;
  const auto line = [&](std::span<const std::string> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i)
      (text += i == 0 ? "" : std::string(1, separator)) += cells[i];
    text += "\n";
  };
  line(std::array<std::string, 5>{"experiment", "t_h", "Cx_g_per_L", "Cs_g_per_L", "Cp_g_per_L"});
  for (const PlacedCurve& curve : curves)
    for (std::size_t i = 0; i < curve.time.size(); ++i)
      line(std::array<std::string, 5>{std::to_string(curve.number), ShortestText(curve.time[i]),
                                      ShortestText(curve.Cx[i]), ShortestText(curve.Cs[i]),
                                      ShortestText(curve.Cp[i])});
  return text;
}

}  // namespace velmora::cli
