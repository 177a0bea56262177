// One enlarged chart: what it shows, which part of it, and how.
#pragma once

#include <optional>
#include <string>

#include "charts/ChartContent.h"
#include "charts/PublishedChart.h"

namespace velmora {

struct ZoomedChart {
  PlotVariable variable = PlotVariable::Cs;
  ExperimentLists lists;
  ModelCurves curves{};
  std::string title{};  // UTF-8
  bool gridLines = true;
  bool legend = false;
  bool published = false;
  bool logarithmic = false;
  bool residuals = false;
  std::optional<TimeInterval> interval{};  // of the time axis; all of it where there is none
  TypedInterval bounds{};                  // of the upright axis; where one is missing, the data's

  /// Whether it is drawn as the small plots are, at most cut to an interval of time.
  bool IsPlain() const;
  ChartContent Content(Language language, char separator) const;

  void ShowWhole();
  /// Shows this part; all of the chart where the part holds it.
  void ShowPart(const ValueRange& times, const ValueRange& values);

 private:
  Figure FigureOf(const ChartContent& content, const FigureView& view) const;
  /// The reach of all its data.
  Figure Whole() const;
};

}  // namespace velmora
