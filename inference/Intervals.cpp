#include "inference/Intervals.h"

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

}  // namespace

std::string_view NameOf(IntervalMethod method) {
  if (method == IntervalMethod::Linear) return "linear";
  return method == IntervalMethod::Profile ? "profile" : "bootstrap";
}

std::string Worded(const Intervals& intervals, std::span<const FitVariable> variables,
                   TextStyle style) {
  const auto worded = [&](const std::optional<double>& value) {
    return value ? Formatted(*value, kTwoToThirteen, style.separator) : std::string();
  };
  std::string text =
      Filled(HeadingOf(intervals.method), style.language, {std::to_string(intervals.replicates)}) +
      "\n";
  for (std::size_t j = 0; j < variables.size(); ++j) {
    const Interval& interval = intervals.of[j];
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
