#include "charts/ChartContent.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace velmora {
namespace {

const std::vector<double>& MeasuredSeries(const Experiment& experiment, PlotVariable variable) {
  switch (variable) {
    case PlotVariable::Cx:
      return experiment.Cx;
    case PlotVariable::Cp:
      return experiment.Cp;
    case PlotVariable::Cs:
      break;
  }
  return experiment.Cs;
}

/// The first `count` points.
template <class Times, class Values>
std::vector<PlotPoint> PointsOf(const Times& times, const Values& values, std::size_t count) {
  std::vector<PlotPoint> points;
  points.reserve(count);
  for (std::size_t k = 0; k < count; ++k) points.push_back({times[k], values[k]});
  return points;
}

void KeepInside(std::vector<PlotPoint>& points, const TimeInterval& interval) {
  std::erase_if(points, [&](const PlotPoint& point) {
    return point.x < interval.from || point.x > interval.to;
  });
}

PlotPoint Between(const PlotPoint& a, const PlotPoint& b, double time) {
  return {time, a.y + (b.y - a.y) * (time - a.x) / (b.x - a.x)};
}

PlottedExperiment Plotted(const Experiment& experiment, const DisplayEntry& display,
                          PlotVariable variable, const std::optional<TimeInterval>& interval) {
  PlottedExperiment plotted{experiment.number,
                            experiment.description,
                            display.visible,
                            display.marker,
                            display.colour,
                            display.line,
                            {},
                            {}};
  if (!plotted.visible) return plotted;
  plotted.points =
      PointsOf(experiment.time, MeasuredSeries(experiment, variable), experiment.time.size());
  if (interval) KeepInside(plotted.points, *interval);
  return plotted;
}

CheckedInterval Refused(TextId text, IntervalBox failed) {
  return {{}, Attention({text}, Icon::Exclamation), failed};
}

}  // namespace

const ModelCurve::Series& SeriesOf(const ModelCurve& curve, PlotVariable variable) {
  switch (variable) {
    case PlotVariable::Cx:
      return curve.Cx;
    case PlotVariable::Cp:
      return curve.Cp;
    case PlotVariable::Cs:
      break;
  }
  return curve.Cs;
}

std::vector<PlotPoint> Cut(const std::vector<PlotPoint>& curve, const TimeInterval& interval) {
  std::vector<PlotPoint> inside;
  for (std::size_t k = 1; k < curve.size(); ++k) {
    const PlotPoint& a = curve[k - 1];
    const PlotPoint& b = curve[k];
    if (!(a.x < b.x) || b.x < interval.from || a.x > interval.to) continue;
    if (inside.empty()) inside.push_back(Between(a, b, std::max(a.x, interval.from)));
    inside.push_back(Between(a, b, std::min(b.x, interval.to)));
  }
  return inside;
}

ChartContent ContentOf(PlotVariable variable, const ExperimentLists& lists,
                       const ModelCurves* curves, bool gridLines, char separator,
                       const std::optional<TimeInterval>& interval) {
  const Extents extents = interval ? MaxMinZoom(lists, *interval) : MaxMin(lists);
  ChartContent content{variable, Escala(extents, variable, separator), gridLines, separator, {}, {},
                       {}};
  for (int place = 1; place <= lists.Count(); ++place) {
    content.experiments.push_back(
        Plotted(lists.At(place), lists.Display(place), variable, interval));
    const auto index = static_cast<std::size_t>(place) - 1;
    if (curves == nullptr || index >= curves->size()) continue;
    const ModelCurve& curve = (*curves)[index];
    content.experiments.back().curve =
        PointsOf(curve.time, SeriesOf(curve, variable), static_cast<std::size_t>(curve.points));
    if (interval)
      content.experiments.back().curve = Cut(content.experiments.back().curve, *interval);
  }
  return content;
}

bool CanBeSized(const ChartContent& content) {
  const PlotScale& scale = content.scale;
  const double bounds[] = {scale.upperLeft.x, scale.upperLeft.y, scale.lowerRight.x,
                           scale.lowerRight.y};
  const auto shows = [](const PlottedExperiment& experiment) {
    return !experiment.points.empty() || !experiment.curve.empty();
  };
  return std::all_of(std::begin(bounds), std::end(bounds),
                     [](double bound) { return std::isfinite(bound); }) &&
         std::any_of(content.experiments.begin(), content.experiments.end(), shows);
}

std::vector<LegendRow> LegendRows(const ExperimentLists& lists) {
  std::vector<LegendRow> rows;
  for (int place = 1; place <= lists.Count(); ++place) {
    const DisplayEntry& display = lists.Display(place);
    if (display.visible) rows.push_back({lists.At(place).number, display.marker, display.colour});
  }
  return rows;
}

CheckedInterval CheckInterval(const TypedInterval& typed, const TimeInterval& measured) {
  if (!typed.from) return Refused(TextId::CheckBounds, IntervalBox::Minimum);
  if (!typed.to) return Refused(TextId::CheckBounds, IntervalBox::Maximum);
  if (*typed.to > measured.to) return Refused(TextId::TimeTooLarge, IntervalBox::Maximum);
  if (*typed.from < measured.from) return Refused(TextId::TimeTooSmall, IntervalBox::Minimum);
  if (*typed.from > *typed.to) return Refused(TextId::MinimumAboveMaximum, IntervalBox::Minimum);
  return {{*typed.from, *typed.to}, std::nullopt, IntervalBox::Minimum};
}

}  // namespace velmora
