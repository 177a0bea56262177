#include "charts/ZoomedChart.h"

#include "charts/FineCurve.h"

namespace velmora {
namespace {

constexpr int kPieces = 600;

bool Holds(const ValueRange& part, const ValueRange& whole) {
  return part.from <= whole.from && part.to >= whole.to;
}

/// Has the curves of `content` simulated between the model's points, up to the ends of the
/// interval.
void Refine(ChartContent& content, const ModelCurves& curves,
            const std::optional<TimeInterval>& interval) {
  for (std::size_t i = 0; i < content.experiments.size() && i < curves.size(); ++i)
    if (const ModelCurve& curve = curves[i]; curve.points > 0) {
      const auto last = static_cast<std::size_t>(curve.points) - 1;
      const TimeInterval whole{curve.time.front(), curve.time[last]};
      content.experiments[i].curve =
          FineCurve(curve, content.variable, interval.value_or(whole), kPieces);
    }
}

}  // namespace

bool ZoomedChart::IsPlain() const {
  return !published && !logarithmic && !residuals && !bounds.from && !bounds.to;
}

Figure ZoomedChart::FigureOf(const ChartContent& content, const FigureView& view) const {
  return residuals ? ResidualFigure(content, view) : CourseFigure(content, view);
}

Figure ZoomedChart::Whole() const {
  FigureView view;
  view.logarithmic = logarithmic;
  return FigureOf(velmora::ContentOf(variable, lists, &curves, gridLines, '.'), view);
}

ChartContent ZoomedChart::Content(Language language, char separator) const {
  const bool plain = IsPlain();
  ChartContent content = velmora::ContentOf(variable, lists, &curves, gridLines, separator,
                                            plain ? interval : std::nullopt);
  content.title = title;
  // Residuals are those of the points that were fitted.
  if (!residuals) Refine(content, curves, interval);
  if (plain) return content;
  FigureView view;
  view.language = language;
  view.separator = separator;
  view.palette = published ? Palette::Published : Palette::Stated;
  view.legend = published && legend;
  view.logarithmic = logarithmic;
  if (interval && interval->from < interval->to)
    view.times = ValueRange{interval->from, interval->to};
  if (bounds.from || bounds.to) {
    const ValueRange data = FigureOf(content, view).y.range;
    const ValueRange wanted{bounds.from.value_or(data.from), bounds.to.value_or(data.to)};
    if (wanted.from < wanted.to && (!logarithmic || wanted.from > 0)) view.values = wanted;
  }
  content.figure = FigureOf(content, view);
  return content;
}

void ZoomedChart::ShowWhole() {
  interval.reset();
  bounds = {};
}

void ZoomedChart::ShowPart(const ValueRange& times, const ValueRange& values) {
  const Figure whole = Whole();
  if (Holds(times, whole.x.range) && Holds(values, whole.y.range)) return ShowWhole();
  if (!(times.from < times.to) || !(values.from < values.to)) return;
  interval = TimeInterval{times.from, times.to};
  bounds = {values.from, values.to};
}

}  // namespace velmora
