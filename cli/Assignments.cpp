#include "cli/Assignments.h"

#include <algorithm>
#include <array>

#include "kinetics/Modelos.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kSet = "--set";
constexpr std::string_view kFit = "--fit";
constexpr std::string_view kFittableForm = "NAME=VALUE";
constexpr std::string_view kConditionForm = "NAME=VALUE / PLACE:NAME=VALUE";
constexpr std::string_view kRangeForm = "NAME=START:LOWER:UPPER";

/// The values of a conditions row that are not fitted, in the order in which they are listed.
constexpr std::array kConditions = {At::Cx0,      At::Cs0,    At::Cp0,   At::T,  At::Yxs,
                                    At::YpsTyped, At::alpha,  At::beta,  At::ms, At::Kd,
                                    At::Kdp,      At::CsAst1, At::CsAst2};

[[noreturn]] void FailUsage(const std::string& line) {
  throw Failure{ExitCode::Usage, line};
}

std::optional<At> FittablePosition(std::string_view name) {
  const int index = FittableIndex(name);
  if (index < 0) return std::nullopt;
  return kFittable[static_cast<std::size_t>(index)].position;
}

std::optional<At> ConditionPosition(std::string_view name) {
  const auto at = std::find_if(kConditions.begin(), kConditions.end(),
                               [=](At position) { return ParameterAt(position).name == name; });
  return at == kConditions.end() ? FittablePosition(name) : *at;
}

/// Splits `text` at the first `mark`; the second part is nothing where there is none.
std::pair<std::string_view, std::optional<std::string_view>> Split(std::string_view text,
                                                                   char mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return {text, std::nullopt};
  return {text.substr(0, at), text.substr(at + 1)};
}

/// The place in front of the name, taken off it; 0 where none is given.
int TakePlace(std::string_view& name, const std::string& text, int experiments,
              const Wording& say) {
  const auto [front, behind] = Split(name, ':');
  if (!behind) return 0;
  name = *behind;
  const std::optional<double> place = ParseNumber(front, '.');
  if (!place) FailUsage(say(TextId::Malformed, {kSet, text, kConditionForm}));
  const bool exists = *place >= 1 && *place <= experiments;
  if (!exists || *place != static_cast<int>(*place))
    FailUsage(say(TextId::NoSuchPlace, {text, front, std::to_string(experiments)}));
  return static_cast<int>(*place);
}

FitVariable RangeOf(const std::string& text, const Wording& say) {
  const auto [name, values] = Split(text, '=');
  const auto [start, bounds] = Split(values.value_or(""), ':');
  const auto [lower, upper] = Split(bounds.value_or(""), ':');
  if (!values || !bounds || !upper) FailUsage(say(TextId::Malformed, {kFit, text, kRangeForm}));
  const std::optional<At> position = FittablePosition(name);
  if (!position) FailUsage(say(TextId::UnknownName, {kFit, name, FittableNames()}));
  const double first = NumberOf(kFit, start, say);
  const FitVariable range{*position, NumberOf(kFit, lower, say), NumberOf(kFit, *upper, say),
                          first};
  if (range.start < 0 || range.lower < 0 || range.upper < 0)
    FailUsage(say(TextId::Negative, {kFit, text}));
  return range;
}

bool IsAmong(At position, const std::vector<FitVariable>& ranges) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [=](const FitVariable& range) { return range.position == position; });
}

}  // namespace

std::string FittableNames() {
  std::string names;
  for (const Parameter& parameter : kFittable) Join(names, parameter.name, " ");
  return names;
}

std::string ConditionNames() {
  std::string names;
  for (const At position : kConditions) Join(names, ParameterAt(position).name, " ");
  Join(names, FittableNames(), " ");
  return names;
}

double NumberOf(std::string_view option, std::string_view text, const Wording& say) {
  if (const std::optional<double> number = ParseNumber(text, '.')) return *number;
  if (IsOutOfRange(text, '.'))
    FailUsage(std::string(option) + ": " + say(TextId::FileOutOfRange, {text}));
  const bool comma = ParseNumber(text, ',').has_value();
  FailUsage(say(comma ? TextId::DecimalComma : TextId::NotANumber, {option, text}));
}

Assignment FittableAssignment(const std::string& text, const Wording& say) {
  const auto [name, value] = Split(text, '=');
  if (!value) FailUsage(say(TextId::Malformed, {kSet, text, kFittableForm}));
  const std::optional<At> position = FittablePosition(name);
  if (!position) FailUsage(say(TextId::UnknownName, {kSet, name, FittableNames()}));
  return {std::string(name), *position, NumberOf(kSet, *value, say), 0};
}

Assignment ConditionAssignment(const std::string& text, int experiments, const Wording& say) {
  auto [name, value] = Split(text, '=');
  if (!value) FailUsage(say(TextId::Malformed, {kSet, text, kConditionForm}));
  const int place = TakePlace(name, text, experiments, say);
  const std::optional<At> position = ConditionPosition(name);
  if (!position) FailUsage(say(TextId::UnknownName, {kSet, name, ConditionNames()}));
  const double number = NumberOf(kSet, *value, say);
  if (number < 0) FailUsage(say(TextId::Negative, {kSet, text}));
  return {std::string(name), *position, number, place};
}

std::vector<FitVariable> FittedRanges(const std::vector<std::string>& texts, const Wording& say) {
  std::vector<FitVariable> ranges;
  for (const std::string& text : texts) {
    const FitVariable range = RangeOf(text, say);
    if (IsAmong(range.position, ranges))
      FailUsage(say(TextId::FittedTwice, {ParameterAt(range.position).name}));
    ranges.push_back(range);
  }
  return ranges;
}

void RequireNotFitted(const std::vector<Assignment>& values, const std::vector<FitVariable>& fitted,
                      const Wording& say) {
  for (const Assignment& value : values)
    if (IsAmong(value.position, fitted)) FailUsage(say(TextId::SetAndFitted, {value.name}));
}

}  // namespace velmora::cli
