#include "charts/FigureTicks.h"

#include <algorithm>
#include <cmath>

#include "language/Numbers.h"

namespace velmora {
namespace {

// Beyond these a number is written with as many digits as it has, or with an exponent.
constexpr int kMostDecimals = 6;
constexpr int kLabelDigits = 6;

constexpr double kBarely = 1e-9;  // of a step: rounding, not a place of its own
constexpr double kRoundSteps[] = {1, 2, 5, 10};

/// Where axes end whose data are beyond what their arithmetic holds.
constexpr double kLargest = 1e300;

double Bounded(double value) {
  return std::clamp(std::isnan(value) ? 0.0 : value, -kLargest, kLargest);
}

/// The least round step of which at most `most` intervals cover `length`.
double RoundStep(double length, int most) {
  const double wanted = length / most;
  const double decade = std::pow(10.0, std::floor(std::log10(wanted)));
  for (const double step : kRoundSteps)
    if (step * decade >= wanted * (1 - kBarely)) return step * decade;
  return 10 * decade;
}

int DecimalsOf(double step) {
  return std::max(0, static_cast<int>(std::ceil(-std::log10(step) - kBarely)));
}

std::string TextOf(double value, int decimals, char separator) {
  return decimals <= kMostDecimals ? Formatted(value, {decimals, decimals}, separator)
                                   : PlainText(value, separator, kLabelDigits);
}

AxisTicks SingleValue(double value, char separator) {
  const double around = value == 0 ? 1 : 0.5 * std::abs(value);
  return {{value == 0 ? 0 : value - around, value + around},
          {{value, PlainText(value, separator, kLabelDigits)}}};
}

AxisTicks LinearTicks(const FigureAxis& shown, int most, char separator) {
  const auto [from, to] = shown.range;
  const bool exactBelow = shown.exact || shown.exactBelow;
  const double step = RoundStep(to - from, std::max(1, most - 1));
  const double first =
      exactBelow ? std::ceil(from / step - kBarely) : std::floor(from / step + kBarely);
  const double last =
      shown.exact ? std::floor(to / step + kBarely) : std::ceil(to / step - kBarely);
  AxisTicks axis{{exactBelow ? from : first * step, shown.exact ? to : last * step}, {}};
  const int count = static_cast<int>(std::min(last - first, 2.0 * most)) + 1;
  for (int i = 0; i < count; ++i) {
    const double at = first + i == 0 ? 0 : (first + i) * step;
    axis.ticks.push_back({at, TextOf(at, DecimalsOf(step), separator)});
  }
  return axis;
}

/// 1, 2, 5, ... times a power of ten: the largest at or below `value`, or the least at or above.
double RoundBelow(double value) {
  const double decade = std::pow(10.0, std::floor(std::log10(value) + kBarely));
  return (value < 2 * decade * (1 - kBarely)   ? 1
          : value < 5 * decade * (1 - kBarely) ? 2
                                               : 5) *
         decade;
}
double RoundAbove(double value) {
  const double decade = std::pow(10.0, std::floor(std::log10(value) + kBarely));
  for (const double step : kRoundSteps)
    if (step * decade >= value * (1 - kBarely)) return step * decade;
  return 10 * decade;
}

/// All digits of all decades; labelled are 1, 2 and 5 where these have room, else every decade or
/// every second, third, ... of them.
AxisTicks DecadeTicks(const ValueRange& range, int most, char separator) {
  AxisTicks axis{range, {}};
  const int first = static_cast<int>(std::floor(std::log10(range.from) + kBarely));
  const int last = static_cast<int>(std::ceil(std::log10(range.to) - kBarely));
  const bool between = 3 * (last - first) < most;
  const int stride = std::max(1, (last - first + most - 1) / most);
  for (int decade = first; decade <= last; ++decade)
    for (int digit = 1; digit <= 9; ++digit) {
      const double at = digit * std::pow(10.0, decade);
      if (at < range.from * (1 - kBarely) || at > range.to * (1 + kBarely)) continue;
      const bool labelled =
          (digit == 1 && (decade - first) % stride == 0) || (between && (digit == 2 || digit == 5));
      if (labelled || stride == 1)
        axis.ticks.push_back({at, labelled ? PlainText(at, separator, kLabelDigits) : ""});
    }
  return axis;
}

AxisTicks LogarithmicTicks(const FigureAxis& axis, int most, char separator) {
  const ValueRange range =
      axis.exact ? axis.range : ValueRange{RoundBelow(axis.range.from), RoundAbove(axis.range.to)};
  AxisTicks decades = DecadeTicks(range, most, separator);
  const auto labelled = std::count_if(decades.ticks.begin(), decades.ticks.end(),
                                      [](const Tick& tick) { return !tick.text.empty(); });
  return labelled >= 2 ? decades : LinearTicks({{}, range, true}, most, separator);
}

}  // namespace

AxisTicks TicksOf(const FigureAxis& axis, int most, char separator) {
  FigureAxis bounded = axis;
  bounded.range = {Bounded(axis.range.from), Bounded(axis.range.to)};
  const auto [from, to] = bounded.range;
  const double least = std::max(std::abs(from), std::abs(to)) * 1e-12;
  if (!(to - from > least)) return SingleValue(from, separator);
  most = std::max(most, 2);
  if (bounded.logarithmic && from > 0) return LogarithmicTicks(bounded, most, separator);
  return LinearTicks(bounded, most, separator);
}

}  // namespace velmora
