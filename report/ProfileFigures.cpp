#include "report/ProfileFigures.h"

#include <algorithm>
#include <optional>
#include <string>

#include "charts/Appearance.h"
#include "charts/SmoothCurve.h"
#include "kinetics/KineticParameters.h"
#include "language/Texts.h"

namespace velmora {
namespace {

constexpr int kPieces = 200;

/// "Ks (g/L)"; without a unit for an exponent.
std::string TitleOf(At position, const Model* model) {
  const Parameter& parameter = ParameterAt(position);
  std::string label(parameter.label);
  label.erase(label.find_last_not_of(" =") + 1);
  const std::string_view unit = model == nullptr ? parameter.unit : UnitOf(position, *model);
  return unit.empty() ? label : label + " (" + std::string(unit) + ")";
}

/// The sum at the ends of the interval, which both reach where neither is open.
std::optional<double> LimitOf(const Interval& interval, const SmoothCurve& curve) {
  for (const auto& end : {interval.lower, interval.upper})
    if (end)
      if (const auto sum = curve.At(*end)) return sum;
  return std::nullopt;
}

Figure FigureOf(const Interval& interval, const std::string& title, double best, double score,
                TextStyle style) {
  Figure figure;
  figure.separator = style.separator;
  figure.legend = false;
  figure.x.title = title;
  figure.y.title = std::string(Text(TextId::SquaresAxis, style.language));
  FigureSeries series{"", kPublishedInks[1], kPublishedInks[0], "CircCheio", {}, {{best, score}},
                      {}};
  std::vector<PlotPoint> points;
  for (const ProfilePoint& point : interval.profile) points.push_back({point.value, point.score});
  figure.x.range =
      points.empty() ? ValueRange{best, best} : ValueRange{points.front().x, points.back().x};
  figure.y.range = {score, score};
  for (const PlotPoint& point : points) {
    figure.y.range.from = std::min(figure.y.range.from, point.y);
    figure.y.range.to = std::max(figure.y.range.to, point.y);
  }
  const SmoothCurve curve(points);
  series.curve = curve.Between(figure.x.range.from, figure.x.range.to, kPieces);
  figure.series = {std::move(series)};
  const double far = figure.x.range.to - figure.x.range.from;
  if (const auto limit = LimitOf(interval, curve))
    figure.guides.push_back(
        {{figure.x.range.from - far, *limit}, {figure.x.range.to + far, *limit}});
  for (const auto& end : {interval.lower, interval.upper})
    if (end) figure.guides.push_back({{*end, 0}, {*end, 2 * figure.y.range.to}, LineKind::Dotted});
  return figure;
}

}  // namespace

std::vector<Figure> ProfileFigures(const Intervals& intervals,
                                   std::span<const FitVariable> variables,
                                   const SearchResult& result, const Model* model,
                                   TextStyle style) {
  std::vector<Figure> figures;
  for (std::size_t j = 0; j < variables.size(); ++j)
    figures.push_back(FigureOf(intervals.of[j], TitleOf(variables[j].position, model),
                               result.best[j], result.score, style));
  return figures;
}

}  // namespace velmora
