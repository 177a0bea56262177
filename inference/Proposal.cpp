#include "inference/Proposal.h"

#include <algorithm>
#include <cmath>

#include "inference/TimeCourse.h"
#include "kinetics/Powers.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kRangeDigits = 2;
constexpr int kReasonDigits = 4;

/// The largest values that were measured, g/L, and the steepest growth, 1/h.
struct Extent {
  explicit Extent(std::span<const Experiment> experiments) : growth(SteepestGrowth(experiments)) {
    for (const Experiment& experiment : experiments) {
      Cx = std::max(Cx, Largest(CourseOf(experiment, experiment.Cx)));
      Cs = std::max(Cs, Largest(CourseOf(experiment, experiment.Cs)));
      Cp = std::max(Cp, Largest(CourseOf(experiment, experiment.Cp)));
    }
  }

  double Cx = 0;
  double Cs = 0;
  double Cp = 0;
  double growth;
};

/// A range as multiples of a measured quantity.
struct Rule {
  double base;
  double start;
  double lower;
  double upper;
  TextId text;
};

double Quotient(double dividend, double divisor) {
  return divisor > 0 ? dividend / divisor : 0;
}

/// The rule for the parameter at `position`; its base is 0 where the data say nothing of it. The
/// growth that is measured is muMax less saturation and inhibition. Ks and Kis act where they are
/// of the size of Cs, Kip and Cp* of Cp, Cx* of Cx; noise may lift a highest value above a limit.
Rule RuleOf(At position, const Model& model, const Extent& seen) {
  switch (position) {
    case At::muMax:
      return {seen.growth, 1.4, 0.4, 12, TextId::OfSteepestGrowth};
    case At::Ks:
      if (model.substrate == SubstrateTerm::Contois)
        return {Quotient(seen.Cs, seen.Cx), 0.1, 0.001, 3, TextId::OfCsOverCx};
      return {seen.Cs, 0.1, 0.001, 2, TextId::OfHighestCs};
    case At::Kis:
      return {seen.Cs, 1, 0.05, 20, TextId::OfHighestCs};
    case At::Kip:
      if (model.product == ProductTerm::Aiba)
        return {Quotient(1, seen.Cp), 1, 0.02, 20, TextId::OfInverseCp};
      return {seen.Cp, 1, 0.05, 50, TextId::OfHighestCp};
    case At::CpAst:
      return {seen.Cp, 1.2, 0.9, 10, TextId::OfHighestCp};
    case At::CxAst:
      return {seen.Cx, 1.2, 0.9, 10, TextId::OfHighestCx};
    case At::u:
      return {1, 1, 0.3, 3, TextId::UsualExponent};
    default:  // n, m, v
      return {1, 1, 0.2, 4, TextId::UsualExponent};
  }
}

/// The Moser term's Ks is a half-saturation concentration, for which `rule` holds, to the power u.
FitVariable MoserRange(const Rule& rule) {
  constexpr double kLeastPower = 0.5, kMostPower = 2.5;
  const double lower = rule.base * rule.lower, upper = rule.base * rule.upper;
  return {At::Ks, Power(lower, lower < 1 ? kMostPower : kLeastPower),
          Power(upper, upper < 1 ? kLeastPower : kMostPower), rule.base * rule.start};
}

ProposedRange RangeOf(At position, const Model& model, const Rule& rule) {
  FitVariable range = {position, rule.base * rule.lower, rule.base * rule.upper,
                       rule.base * rule.start};
  TextId text = rule.text;
  if (position == At::Ks && model.substrate == SubstrateTerm::Moser) {
    range = MoserRange(rule);
    text = TextId::OfHighestCsToU;
  }
  for (double FitVariable::*value : {&FitVariable::start, &FitVariable::lower, &FitVariable::upper})
    range.*value = RoundSignificant(range.*value, kRangeDigits);
  return {range, {text, {rule.base, rule.lower, rule.upper}}};
}

}  // namespace

std::string Worded(const Reason& reason, Language language) {
  std::vector<std::string> words;
  for (const double number : reason.numbers) words.push_back(PlainText(number, '.', kReasonDigits));
  return Filled(reason.text, language, std::vector<std::string_view>(words.begin(), words.end()));
}

Production ProposeProduction(std::span<const Experiment> experiments) {
  return Extent(experiments).Cp > 0 ? Production::PAC : Production::PNAC;
}

std::vector<ProposedRange> ProposeRanges(std::span<const Experiment> experiments,
                                         const Model& model) {
  const Extent seen(experiments);
  std::vector<ProposedRange> ranges;
  for (const Parameter& parameter : kFittable) {
    if (!Uses(model, parameter.position)) continue;
    const Rule rule = RuleOf(parameter.position, model, seen);
    if (rule.base > 0) ranges.push_back(RangeOf(parameter.position, model, rule));
  }
  return ranges;
}

std::vector<FitVariable> FittedOf(std::span<const ProposedRange> ranges) {
  std::vector<FitVariable> fitted;
  for (const ProposedRange& range : ranges) fitted.push_back(range.variable);
  return fitted;
}

void PutInto(CultivationForm& form, std::span<const ProposedValue> values, int place,
             char separator) {
  for (const ProposedValue& value : values)
    if (value.place == 0 || value.place == place)
      form.At(value.position) = Entry::Of(value.value, separator);
}

void PutInto(CultivationForm& form, const FitVariable& variable, char separator) {
  form.At(variable.position) = Entry::Of(variable.start, separator);
  if (form.method == Method::Manual) return;
  form.fit[static_cast<std::size_t>(FittableIndex(variable.position))] = {
      true, Entry::Of(variable.lower, separator), Entry::Of(variable.upper, separator)};
}

}  // namespace velmora
