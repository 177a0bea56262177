#include "charts/ChartContent.h"

namespace velmora {
namespace {

const std::vector<double>& MeasuredSeries(const Class1& experiment, PlotVariable variable) {
  switch (variable) {
    case PlotVariable::Cx:
      return experiment.NVetCx;
    case PlotVariable::Cp:
      return experiment.NVetCp;
    case PlotVariable::Cs:
      break;
  }
  return experiment.NVetCs;
}

const ModelCurve::Series& ModelSeries(const ModelCurve& curve, PlotVariable variable) {
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

template <class Times, class Values>
std::vector<PlotPoint> PointsOf(const Times& times, const Values& values,
                                const std::optional<TimeInterval>& interval) {
  std::vector<PlotPoint> points;
  points.reserve(times.size());
  for (std::size_t k = 0; k < times.size(); ++k)
    if (!interval || (times[k] >= interval->from && times[k] <= interval->to))
      points.push_back({times[k], values[k]});
  return points;
}

}  // namespace

ChartContent ContentOf(PlotVariable variable, const ExperimentLists& lists,
                       const ModelCurves* curves, bool gridLines, char separator,
                       const std::optional<TimeInterval>& interval) {
  const Extents extents = interval ? MaxMinZoom(lists, *interval) : MaxMin(lists);
  ChartContent content{variable, Escala(extents, variable, separator), gridLines, {}};
  for (int place = 1; place <= lists.Count(); ++place) {
    const Class1& experiment = lists.Experiment(place);
    const DisplayEntry& display = lists.Display(place);
    PlottedExperiment plotted{experiment.NExp,
                              display.NGrafVisivel,
                              display.NMarcador,
                              display.NCor,
                              display.NLinha,
                              {},
                              {}};
    if (plotted.visible)
      plotted.points =
          PointsOf(experiment.NVetTempo, MeasuredSeries(experiment, variable), interval);
    const auto index = static_cast<std::size_t>(place) - 1;
    if (curves != nullptr && index < curves->size())
      plotted.curve =
          PointsOf((*curves)[index].time, ModelSeries((*curves)[index], variable), interval);
    content.experiments.push_back(std::move(plotted));
  }
  return content;
}

}  // namespace velmora
