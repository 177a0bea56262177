#include "charts/FineCurve.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "kinetics/Runge_Kutta.h"

namespace velmora {
namespace {

constexpr int kSteps = kModelPoints - 1;

/// The way from point `k` to the next one, in as many steps as a whole curve has.
std::optional<ModelCurve> Simulated(const ModelCurve& curve, std::size_t k) {
  constexpr double kTrace = 1e-6;  // g/L; less is none, as in the steps of a whole curve
  const auto start = [k](const ModelCurve::Series& series) {
    return series[k] < kTrace ? 0 : series[k];
  };
  KineticParameters parameters = curve.parameters;
  parameters[At::Cx0] = start(curve.Cx);
  parameters[At::Cs0] = start(curve.Cs);
  parameters[At::Cp0] = start(curve.Cp);
  parameters[At::T] = curve.time[k + 1] - curve.time[k];
  try {
    ModelCurve way;
    Runge_Kutta().Integrate(parameters, way);
    return way;
  } catch (const ArithmeticFault&) {
    return std::nullopt;
  }
}

/// Whether the way from point `k` to the next one has a part in the interval.
bool Touches(const ModelCurve& curve, std::size_t k, const TimeInterval& interval) {
  return curve.time[k] < curve.time[k + 1] && curve.time[k] <= interval.to &&
         curve.time[k + 1] >= interval.from;
}

/// Appends the way from point `k` to the next one in `pieces` pieces.
void AppendWay(std::vector<PlotPoint>& course, const ModelCurve& curve, PlotVariable variable,
               std::size_t k, int pieces) {
  const ModelCurve::Series& model = SeriesOf(curve, variable);
  const PlotPoint from{curve.time[k], model[k]}, to{curve.time[k + 1], model[k + 1]};
  if (const auto way = Simulated(curve, k)) {
    const ModelCurve::Series& fine = SeriesOf(*way, variable);
    const double before = from.y - fine.front(), behind = to.y - fine.back();
    for (int piece = 1; piece < pieces; ++piece) {
      const auto j = static_cast<std::size_t>(piece * kSteps / pieces);
      const double share = static_cast<double>(j) / kSteps;
      course.push_back({from.x + way->time[j], fine[j] + before + (behind - before) * share});
    }
  }
  course.push_back(to);
}

}  // namespace

std::vector<PlotPoint> FineCurve(const ModelCurve& curve, PlotVariable variable,
                                 const TimeInterval& interval, int count) {
  std::vector<std::size_t> ways;
  for (std::size_t k = 0; k + 1 < static_cast<std::size_t>(curve.points); ++k)
    if (Touches(curve, k, interval)) ways.push_back(k);
  std::vector<PlotPoint> course;
  if (ways.empty()) return course;
  const std::size_t first = ways.front();
  course.push_back({curve.time[first], SeriesOf(curve, variable)[first]});
  const int pieces = std::clamp(count / static_cast<int>(ways.size()), 1, kSteps);
  for (const std::size_t k : ways) AppendWay(course, curve, variable, k, pieces);
  return Cut(course, interval);
}

}  // namespace velmora
