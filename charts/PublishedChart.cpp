#include "charts/PublishedChart.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "charts/FigureTicks.h"
#include "charts/SmoothCurve.h"

namespace velmora {
namespace {

constexpr int kParityTicks = 6;
constexpr int kSmoothPieces = 400;  // of a curve across the axes

/// The least and the largest of what is put into it; finite values alone count.
class Reach {
 public:
  explicit Reach(bool positive = false) : positive_(positive) {}

  void Include(double value) {
    if (!std::isfinite(value) || (positive_ && value <= 0)) return;
    least_ = std::min(least_, value), largest_ = std::max(largest_, value);
  }
  ValueRange Range() const {
    if (least_ > largest_) return positive_ ? ValueRange{0.1, 1} : ValueRange{0, 0};
    return {least_, largest_};
  }

 private:
  bool positive_;
  double least_ = std::numeric_limits<double>::infinity();
  double largest_ = -std::numeric_limits<double>::infinity();
};

/// "Cx", without its unit.
std::string SymbolOf(PlotVariable variable) {
  return PlotTitle(variable).substr(0, 2);
}

/// "Exp." is short for the word in both languages.
std::string NameOf(const PlottedExperiment& experiment) {
  const std::string name = "Exp. " + std::to_string(experiment.number);
  return experiment.description.empty() ? name : name + ": " + experiment.description;
}

std::vector<FigureSeries> SeriesOf(const ChartContent& content, const FigureView& view) {
  const auto appearances = view.palette == Palette::Published
                               ? PublishedAppearances(content.experiments)
                               : StatedAppearances(content.experiments);
  std::vector<FigureSeries> all;
  for (std::size_t i = 0; i < content.experiments.size(); ++i) {
    const PlottedExperiment& experiment = content.experiments[i];
    if (!experiment.visible) continue;
    const auto& [ink, curveInk, marker, line] = appearances[i];
    all.push_back(
        {NameOf(experiment), ink, curveInk, marker, line, experiment.points, experiment.curve});
  }
  return all;
}

template <class Visit>
void ForEachPoint(const std::vector<FigureSeries>& all, Visit visit) {
  for (const FigureSeries& series : all)
    for (const auto* points : {&series.points, &series.curve})
      std::for_each(points->begin(), points->end(), visit);
}

bool IsInside(double value, const std::optional<ValueRange>& range) {
  return !range || (value >= range->from && value <= range->to);
}

FigureAxis AxisOf(std::string title, const Reach& reach, const std::optional<ValueRange>& shown) {
  return {std::move(title), shown.value_or(reach.Range()), shown.has_value(), false};
}

Figure FigureWith(const ChartContent& content, const FigureView& view) {
  Figure figure;
  figure.title = content.title;
  figure.gridLines = content.gridLines;
  figure.legend = view.legend;
  figure.separator = view.separator;
  figure.series = SeriesOf(content, view);
  return figure;
}

FigureAxis TimeAxis(const std::vector<FigureSeries>& all, const FigureView& view) {
  Reach times;
  times.Include(0);
  ForEachPoint(all, [&](const PlotPoint& point) { times.Include(point.x); });
  return AxisOf("t (h)", times, view.times);
}

/// The guide along y = 0, as far as the axis may reach.
FigureGuide ZeroLine(const FigureAxis& x) {
  const double length = x.range.to - x.range.from;
  return {{x.range.from - length, 0}, {x.range.to + length, 0}, LineKind::Solid};
}

/// Where nothing measured lies below 0 and a curve does by a little, as steps overshoot its end at
/// 0, the axis begins there; what rounding leaves is not seen.
void BeginNearZero(FigureAxis& y, const std::vector<FigureSeries>& all) {
  constexpr double kInvisible = 0.002, kLittle = 0.1;  // of the axis
  const auto negative = [](const PlotPoint& point) { return point.y < 0; };
  if (y.exact || !(y.range.from < 0) || y.range.from < -kLittle * y.range.to ||
      std::any_of(all.begin(), all.end(), [&](const FigureSeries& series) {
        return std::any_of(series.points.begin(), series.points.end(), negative);
      }))
    return;
  y.exactBelow = true;
  if (y.range.from > -kInvisible * y.range.to) y.range.from = 0;
}

/// The measured points of each series beside the curve's values at their times.
template <class Make>
void PairWithCurves(std::vector<FigureSeries>& all, Make make) {
  for (FigureSeries& series : all) {
    const SmoothCurve curve(series.curve);
    std::vector<PlotPoint> pairs;
    for (const PlotPoint& point : series.points)
      if (const auto simulated = curve.At(point.x)) pairs.push_back(make(point, *simulated));
    series.points = std::move(pairs);
    series.curve.clear();
  }
}

std::string Titled(TextId text, const ChartContent& content, const FigureView& view) {
  return Filled(text, view.language, {SymbolOf(content.variable)});
}

}  // namespace

Figure CourseFigure(const ChartContent& content, const FigureView& view) {
  Figure figure = FigureWith(content, view);
  figure.x = TimeAxis(figure.series, view);
  Reach values(view.logarithmic);
  if (!view.logarithmic) values.Include(0);
  ForEachPoint(figure.series, [&](const PlotPoint& point) {
    if (IsInside(point.x, view.times)) values.Include(point.y);
  });
  figure.y = AxisOf(PlotTitle(content.variable), values, view.values);
  figure.y.logarithmic = view.logarithmic;
  BeginNearZero(figure.y, figure.series);
  for (FigureSeries& series : figure.series)
    series.curve =
        SmoothCurve(series.curve).Between(figure.x.range.from, figure.x.range.to, kSmoothPieces);
  if (figure.y.range.from < 0) figure.guides.push_back(ZeroLine(figure.x));
  return figure;
}

Figure ResidualFigure(const ChartContent& content, const FigureView& view) {
  Figure figure = FigureWith(content, view);
  PairWithCurves(figure.series, [](const PlotPoint& point, double simulated) {
    return PlotPoint{point.x, point.y - simulated};
  });
  figure.x = TimeAxis(figure.series, view);
  Reach values;
  values.Include(0);
  ForEachPoint(figure.series, [&](const PlotPoint& point) {
    if (IsInside(point.x, view.times)) values.Include(point.y);
  });
  figure.y = AxisOf(Titled(TextId::ResidualOf, content, view), values, view.values);
  figure.guides.push_back(ZeroLine(figure.x));
  return figure;
}

Figure ParityFigure(const ChartContent& content, const FigureView& view) {
  Figure figure = FigureWith(content, view);
  PairWithCurves(figure.series, [](const PlotPoint& point, double simulated) {
    return PlotPoint{point.y, simulated};
  });
  Reach both;
  both.Include(0);
  ForEachPoint(figure.series,
               [&](const PlotPoint& point) { both.Include(point.x), both.Include(point.y); });
  // Both axes end at the same round values.
  const ValueRange ends = TicksOf({{}, both.Range()}, kParityTicks, view.separator).range;
  figure.x = AxisOf(Titled(TextId::MeasuredOf, content, view), both, ends);
  figure.y = AxisOf(Titled(TextId::SimulatedOf, content, view), both, ends);
  const auto [from, to] = both.Range();
  const double length = to - from;
  figure.guides.push_back(
      {{from - length, from - length}, {to + length, to + length}, LineKind::Solid});
  return figure;
}

ValueRange Widened(const ValueRange& range, double about, double factor, bool logarithmic) {
  if (logarithmic && range.from > 0 && about > 0)
    return {about * std::pow(range.from / about, factor),
            about * std::pow(range.to / about, factor)};
  return {about + (range.from - about) * factor, about + (range.to - about) * factor};
}

ChartContent ContentOf(PlotVariable variable, const ExperimentLists& lists,
                       const ModelCurves& curves, const ChartLook& look) {
  ChartContent content = ContentOf(variable, lists, &curves, look.gridLines, look.separator);
  if (look.published) {
    FigureView view;
    view.language = look.language;
    view.separator = look.separator;
    view.legend = false;  // small plots have one legend beside them
    content.figure = CourseFigure(content, view);
  }
  return content;
}

}  // namespace velmora
