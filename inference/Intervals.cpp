#include "inference/Intervals.h"

#include <algorithm>
#include <cmath>

#include "language/Numbers.h"

namespace velmora {
namespace {

TextId TextOf(const Interval& interval) {
  if (interval.lower && interval.upper) return TextId::IntervalBetween;
  if (interval.lower) return TextId::IntervalAbove;
  return interval.upper ? TextId::IntervalBelow : TextId::IntervalOpen;
}

TextId HeadingOf(IntervalMethod method) {
  if (method == IntervalMethod::Linear) return TextId::LinearIntervalsHeading;
  return method == IntervalMethod::Profile ? TextId::ProfileIntervalsHeading
                                           : TextId::BootstrapIntervalsHeading;
}

/// A tenth of half the width, and of a limit that is smaller or stands alone.
double UncertaintyOf(double limit, const Interval& interval) {
  const double magnitude = std::abs(limit);
  if (!interval.lower || !interval.upper) return magnitude / 10;
  return std::min(magnitude, (*interval.upper - *interval.lower) / 2) / 10;
}

}  // namespace

std::string_view NameOf(IntervalMethod method) {
  if (method == IntervalMethod::Linear) return "linear";
  return method == IntervalMethod::Profile ? "profile" : "bootstrap";
}

std::string Worded(const Intervals& intervals, std::span<const FitVariable> variables,
                   bool allDigits, TextStyle style) {
  std::string text =
      Filled(HeadingOf(intervals.method), style.language, {std::to_string(intervals.replicates)}) +
      "\n";
  for (std::size_t j = 0; j < variables.size(); ++j) {
    const Interval& interval = intervals.of[j];
    const auto worded = [&](const std::optional<double>& limit) {
      if (!limit) return std::string();
      return allDigits ? Formatted(*limit, kTwoToThirteen, style.separator)
                       : CertainText(*limit, UncertaintyOf(*limit, interval), style.separator);
    };
    text +=
        std::string(ParameterAt(variables[j].position).label) + " " +
        Filled(TextOf(interval), style.language, {worded(interval.lower), worded(interval.upper)}) +
        "\n";
  }
  if (intervals.betterScore)
    text += Filled(TextId::BetterScoreFound, style.language,
                   {PlainText(*intervals.betterScore, style.separator)}) +
            "\n";
  return text;
}

}  // namespace velmora
