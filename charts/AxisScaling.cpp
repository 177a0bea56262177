#include "charts/AxisScaling.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "language/Numbers.h"

namespace velmora {
namespace {

/// A row of a step table: ranges from the row before up to, not including, `below`.
struct StepRow {
  double below;
  double step;
};
constexpr double kNoBound = std::numeric_limits<double>::infinity();

constexpr StepRow kTimeSteps[] = {{2.5, 0.25}, {5, 0.5},  {9, 1},    {17, 2},        {25, 3},
                                  {41, 5},     {49, 5},   {57, 8},   {90, 9},        {150, 15},
                                  {200, 20},   {400, 30}, {600, 50}, {kNoBound, 100}};

constexpr StepRow kConcentrationSteps[] = {
    {1, 0.1},    {2.5, 0.25}, {5, 0.5},    {9, 1},      {17, 2},         {25, 3},   {41, 5},
    {49, 5},     {57, 8},     {72, 9},     {90, 10},    {135, 15},       {180, 20}, {200, 25},
    {270, 30},   {360, 40},   {450, 50},   {540, 60},   {630, 70},       {810, 90}, {960, 120},
    {1200, 150}, {2000, 200}, {4000, 400}, {5000, 500}, {kNoBound, 1000}};

// More ticks than this no paper can show.
constexpr double kMostTicks = 1000;

// From here on numbers are written with an exponent.
constexpr double kLeastExponentForm = 1e15;
constexpr int kLabelDigits = 12;

// Leaves room for the margins below the largest double.
constexpr double kLargestRange = 1e300;

// Keeps the paper's corners apart where a maximum is 0.
constexpr double kApart = 1e-16;

double StepFor(std::span<const StepRow> table, double range) {
  if (!(range >= 0)) return 0;
  for (const StepRow& row : table)
    if (range < row.below) return row.step;
  return table.back().step;
}

double TimeTicks(double range, double step) {
  const double count = range / step;
  return std::floor(count) < count ? std::floor(count) + 1 : std::floor(count);
}

/// The count is rounded up by comparing with the range, not with the count.
double ConcentrationTicks(double range, double step) {
  const double count = range / step;
  const bool fraction = step == 0.1 || step == 0.25 || step == 0.5;
  const bool up = fraction ? std::floor(count / step) > range : std::floor(count) < range;
  return up ? std::floor(count) + 1 : std::floor(count);
}

struct Range {
  double minimum;
  double maximum;
};

Range RangeOf(const Extents& extents, PlotVariable variable) {
  switch (variable) {
    case PlotVariable::Cx:
      return {extents.CxMin, extents.CxMax};
    case PlotVariable::Cp:
      return {extents.CpMin, extents.CpMax};
    case PlotVariable::Cs:
      break;
  }
  return {extents.CsMin, extents.CsMax};
}

template <class Visit>
void ForEachVisiblePoint(const ExperimentLists& lists, Visit&& visit) {
  for (int place = 1; place <= lists.Count(); ++place) {
    if (!lists.Display(place).visible) continue;
    const Experiment& experiment = lists.At(place);
    for (std::size_t k = 0; k < experiment.time.size(); ++k) visit(experiment, k);
  }
}

void Raise(double& maximum, double value) {
  if (value > maximum) maximum = value;
}

void RaiseConcentrations(Extents& extents, const Experiment& experiment, std::size_t k) {
  Raise(extents.CxMax, experiment.Cx[k]);
  Raise(extents.CsMax, experiment.Cs[k]);
  Raise(extents.CpMax, experiment.Cp[k]);
}

/// The ticks of one axis that are kept, counted from 0 at its beginning.
struct Ticks {
  double begin;
  double distance;
  double count;  // how often the distance goes into the axis

  Ticks(double from, double step, double steps) : begin(from), distance(step), count(steps) {
    for (; count > kMostTicks; count /= 10) distance *= 10;
  }
  double At(int tick) const { return begin + tick * distance; }
};

/// Places of a plot in fractions of its axes.
class Places {
 public:
  explicit Places(const PlotScale& scale) : scale_(scale), width_(scale.Xmax - scale.origin) {}

  PlotPoint At(double x, double y) const { return {X(x), y * scale_.Ymax}; }
  double X(double fraction) const { return scale_.origin + fraction * width_; }

 private:
  const PlotScale& scale_;
  double width_;
};

void AddGridLines(PlotScale& scale, const Ticks& time, const Ticks& concentration) {
  for (int i = 1; i < concentration.count; ++i)
    scale.levels.push_back(
        {{scale.origin, concentration.At(i)}, {scale.Xmax, concentration.At(i)}});
  for (int j = 1; j <= time.count; ++j)
    scale.moments.push_back({{time.At(j), 0}, {time.At(j), scale.Ymax}});
}

void AddTicks(PlotScale& scale, const Ticks& time, const Ticks& concentration) {
  const Places at(scale);
  for (int j = 0; j < time.count; ++j)
    scale.timeTicks.push_back({{time.At(j), 0}, {time.At(j), 0.013 * scale.Ymax}});
  for (int i = 0; i < concentration.count; ++i)
    scale.concentrationTicks.push_back(
        {{scale.origin, concentration.At(i)}, {at.X(0.006), concentration.At(i)}});
}

/// Four decimals, or twelve digits, hide what is only rounding.
std::string TimeText(double time, double timeMaximum, char separator) {
  if (timeMaximum < 10) return Formatted(time, {2, 2}, separator);
  return time < kLeastExponentForm ? Formatted(time, {0, 4}, separator)
                                   : PlainText(time, separator, kLabelDigits);
}

void AddTimeLabels(PlotScale& scale, const Ticks& time, double timeMaximum, char separator) {
  for (int j = 0; j < std::max(time.count, 1.0); ++j)
    scale.timeLabels.push_back(
        {{time.At(j), -0.01 * scale.Ymax}, TimeText(time.At(j), timeMaximum, separator)});
}

void AddConcentrationLabels(PlotScale& scale, const Ticks& concentration, char separator) {
  const bool oneDecimal = scale.stepY == 0.1 || scale.stepY == 0.5;
  const bool twoDecimals = scale.stepY == 0.25;
  const double left = oneDecimal ? -0.075 : twoDecimals ? -0.085 : -0.05;
  const Places at(scale);
  for (int i = 0; i <= concentration.count; ++i) {
    const double value = concentration.At(i);
    std::string text = oneDecimal    ? Formatted(value, {1, 1}, separator)
                       : twoDecimals ? Formatted(value, {2, 2}, separator)
                                     : PlainText(value, separator, kLabelDigits);
    scale.concentrationLabels.push_back({{at.X(left), value + 0.04 * scale.Ymax}, std::move(text)});
  }
}

}  // namespace

Extents MaxMin(const ExperimentLists& lists) {
  Extents extents;
  ForEachVisiblePoint(lists, [&](const Experiment& experiment, std::size_t k) {
    Raise(extents.timeMax, experiment.time[k]);
    RaiseConcentrations(extents, experiment, k);
  });
  return extents;
}

Extents MaxMinZoom(const ExperimentLists& lists, const TimeInterval& interval) {
  Extents extents;
  extents.timeMin = interval.from;
  extents.timeMax = interval.to;
  ForEachVisiblePoint(lists, [&](const Experiment& experiment, std::size_t k) {
    const double time = experiment.time[k];
    if (time >= interval.from && time <= interval.to) RaiseConcentrations(extents, experiment, k);
  });
  return extents;
}

TimeInterval MeasuredTimes(const ExperimentLists& lists) {
  TimeInterval times{kNoBound, -kNoBound};
  ForEachVisiblePoint(lists, [&](const Experiment& experiment, std::size_t k) {
    times.from = std::min(times.from, experiment.time[k]);
    times.to = std::max(times.to, experiment.time[k]);
  });
  return times.from <= times.to ? times : TimeInterval{};
}

double DivisorDeX(double range) {
  return StepFor(kTimeSteps, range);
}

double DivisorDeY(double range) {
  return StepFor(kConcentrationSteps, range);
}

double Arredondamento(double x, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return std::floor(x * scale + 0.5) / scale;
}

PlotScale Escala(const Extents& extents, PlotVariable variable, char separator) {
  const auto [minimum, maximum] = RangeOf(extents, variable);
  const double rangeX = std::min(extents.timeMax - extents.timeMin, kLargestRange);
  const double rangeY = std::min(maximum - minimum, kLargestRange);
  PlotScale scale;
  scale.stepX = DivisorDeX(rangeX);
  scale.stepY = DivisorDeY(rangeY);
  const double nX = scale.stepX > 0 ? TimeTicks(rangeX, scale.stepX) : 0;
  const double nY = scale.stepY > 0 ? ConcentrationTicks(rangeY, scale.stepY) : 0;
  scale.origin = extents.timeMin;
  scale.Xmax = scale.origin + nX * scale.stepX;
  scale.Ymax = nY * scale.stepY;

  const Places at(scale);
  scale.upperLeft = {at.X(-0.2), 1.2 * scale.Ymax + kApart};
  scale.lowerRight = {at.X(1.1) + kApart, -0.2 * scale.Ymax};
  // Left of the axis, where the paper leaves a fifth: inside the plot it would cover points.
  scale.titleAt = {at.X(-0.17), 1.15 * scale.Ymax / 3};
  scale.timeTitleAt = {at.X(0.5 - 0.03), -0.1 * scale.Ymax};
  scale.axes = {{at.At(0, 0), at.At(1, 0)}, {at.At(0, 0), at.At(0, 1)}};

  const Ticks time(scale.origin, scale.stepX, nX), concentration(0, scale.stepY, nY);
  scale.tickX = time.distance;
  scale.tickY = concentration.distance;
  AddGridLines(scale, time, concentration);
  AddTicks(scale, time, concentration);
  AddTimeLabels(scale, time, extents.timeMax, separator);
  AddConcentrationLabels(scale, concentration, separator);
  return scale;
}

std::string PlotTitle(PlotVariable variable) {
  switch (variable) {
    case PlotVariable::Cx:
      return "Cx (g/L)";
    case PlotVariable::Cp:
      return "Cp (g/L)";
    case PlotVariable::Cs:
      break;
  }
  return "Cs (g/L)";
}

}  // namespace velmora
