#include "inference/Proposal.h"

#include <algorithm>
#include <cmath>

#include "inference/Regression.h"
#include "inference/TimeCourse.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kValueDigits = 4;
constexpr int kRangeDigits = 2;

/// `value`, not negative, to so many significant digits.
double Rounded(double value, int digits) {
  if (value == 0) return 0;
  const int decimals = digits - 1 - static_cast<int>(std::floor(std::log10(value)));
  const double scale = std::pow(10, std::abs(decimals));
  return decimals >= 0 ? std::round(value * scale) / scale : std::round(value / scale) * scale;
}

/// What is proposed for the conditions, as it grows.
struct Values {
  std::vector<ProposedValue> list;

  void Add(At position, double value, Reason reason) {
    list.push_back({position, Rounded(value, kValueDigits), std::move(reason), 0});
  }
  /// Adds a slope, unless the data give none.
  void Add(At position, const Line& line, int samples, TextId text) {
    if (line.slope > 0)
      Add(position, line.slope, {text, {line.error, static_cast<double>(samples)}});
  }
};

/// The cells of the earliest sample; where it has none, those of the first sample in which they are
/// clearly seen, taken back in time at the steepest growth of the experiment.
ProposedValue InitialCells(const Experiment& experiment, const TimeCourse& Cx) {
  const double first = Cx.value.front();
  if (first > 0) return {At::Cx0, first, {TextId::FromFirstSample, {Cx.time.front()}}};
  const double least = kSeenCells * Largest(Cx);
  const auto seen =
      std::find_if(Cx.value.begin(), Cx.value.end(), [=](double value) { return value >= least; });
  const double time = Cx.time[static_cast<std::size_t>(seen - Cx.value.begin())];
  const double rate = SteepestGrowth({&experiment, 1});
  const double value = *seen * std::exp(-rate * (time - Cx.time.front()));
  return {At::Cx0, Rounded(value, kValueDigits), {TextId::FromLaterSample, {*seen, time, rate}}};
}

std::vector<ProposedValue> InitialValues(const Experiment& experiment) {
  const TimeCourse Cx = CourseOf(experiment, experiment.Cx);
  if (Cx.Points() == 0) return {};
  const Reason first = {TextId::FromFirstSample, {Cx.time.front()}};
  std::vector<ProposedValue> values = {
      {At::Cs0, CourseOf(experiment, experiment.Cs).value.front(), first},
      {At::Cp0, CourseOf(experiment, experiment.Cp).value.front(), first},
      {At::T, Cx.time.back(), {TextId::FromLastSample, {}}}};
  if (Largest(Cx) > 0) values.insert(values.begin(), InitialCells(experiment, Cx));
  return values;
}

/// The yields of what is formed over what is used as they are measured.
struct MeasuredYields {
  explicit MeasuredYields(const Changes& changes)
      : cells(LineThroughOrigin(changes.substrate, changes.cells)),
        product(LineThroughOrigin(changes.substrate, changes.product)) {}

  Line cells;
  Line product;
};

/// Both yields as the slope of cells and product together.
void AddSharedYields(const Changes& changes, Values& values) {
  std::vector<double> formed = changes.cells;
  std::transform(formed.begin(), formed.end(), changes.product.begin(), formed.begin(),
                 std::plus());
  const Line line = LineThroughOrigin(changes.substrate, formed);
  for (const At yield : {At::Yxs, At::YpsTyped})
    values.Add(yield, line, changes.Samples(), TextId::SharedYield);
}

/// With global yields alpha is Yps/Yxs: where production is not by growth alone, Yps is made so
/// that this is the alpha of the production law.
void AddGlobalYields(const Changes& changes, const MeasuredYields& measured, Production production,
                     Values& values) {
  const int samples = changes.Samples();
  values.Add(At::Yxs, measured.cells, samples, TextId::CellYield);
  if (production == Production::PPAC && measured.cells.slope > 0 && measured.product.slope > 0) {
    const double alpha = LuedekingPiret(changes).alpha;
    values.Add(At::YpsTyped, alpha * measured.cells.slope, {TextId::YieldOfAlfa, {alpha}});
  } else if (measured.product.slope > 0) {
    values.Add(At::YpsTyped, measured.product, samples, TextId::ProductYield);
  } else if (production == Production::PNAC) {
    values.Add(At::YpsTyped, 1, {TextId::NoProductYield, {}});
  }
}

/// alpha where it is not decided otherwise, beta and CsAst2 where production has them.
void AddProduction(std::span<const Experiment> experiments, const Changes& changes,
                   const MeasuredYields& measured, Production production, Yields yields,
                   Values& values) {
  const auto samples = static_cast<double>(changes.Samples());
  const bool alphaIsOpen = yields == Yields::Stoichiometric && production != Production::PNAC;
  const ProductionLaw law = LuedekingPiret(changes);
  if (alphaIsOpen && production == Production::PPAC)
    values.Add(At::alpha, law.alpha, {TextId::ProductionRegression, {samples}});
  else if (alphaIsOpen && measured.cells.slope > 0)
    values.Add(At::alpha, measured.product.slope / measured.cells.slope,
               {TextId::AlfaOfYields, {measured.product.slope, measured.cells.slope}});
  if (production == Production::PAC) return;
  if (production == Production::PPAC)
    values.Add(At::beta, law.beta, {TextId::ProductionRegression, {samples}});
  else
    values.Add(At::beta, LineThroughOrigin(changes.cellHours, changes.product), changes.Samples(),
               TextId::ProductOverCells);
  double highest = 0;
  for (const Experiment& experiment : experiments)
    highest = std::max(highest, Largest(CourseOf(experiment, experiment.Cs)));
  values.Add(At::CsAst2, highest, {TextId::BetaFromStart, {}});
}

void AddLosses(std::span<const Experiment> experiments, Values& values) {
  const std::optional<Death> death = DeathOf(experiments);
  if (death) {
    const auto count = static_cast<double>(death->experiments);
    values.Add(At::Kd, death->rate, {TextId::DeathFromFall, {count}});
    values.Add(At::CsAst1, death->substrate, {TextId::DeathBelow, {}});
  } else {
    values.Add(At::Kd, 0, {TextId::NoDeath, {}});
  }
  for (const At loss : {At::ms, At::Kdp}) values.Add(loss, 0, {TextId::LeftOut, {}});
}

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
  return {At::Ks, std::pow(lower, lower < 1 ? kMostPower : kLeastPower),
          std::pow(upper, upper < 1 ? kLeastPower : kMostPower), rule.base * rule.start};
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
    range.*value = Rounded(range.*value, kRangeDigits);
  return {range, {text, {rule.base, rule.lower, rule.upper}}};
}

}  // namespace

std::string Worded(const Reason& reason, Language language) {
  std::vector<std::string> words;
  for (const double number : reason.numbers) words.push_back(PlainText(number, '.', kValueDigits));
  return Filled(reason.text, language, std::vector<std::string_view>(words.begin(), words.end()));
}

Production ProposeProduction(std::span<const Experiment> experiments) {
  return Extent(experiments).Cp > 0 ? Production::PAC : Production::PNAC;
}

std::vector<ProposedValue> ProposeConditions(std::span<const Experiment> experiments,
                                             Production production, Yields yields) {
  Values values;
  for (std::size_t e = 0; e < experiments.size(); ++e)
    for (ProposedValue& value : InitialValues(experiments[e])) {
      value.place = static_cast<int>(e) + 1;
      values.list.push_back(value);
    }
  const Changes changes = ChangesOf(experiments);
  const MeasuredYields measured(changes);
  if (yields == Yields::Global)
    AddGlobalYields(changes, measured, production, values);
  else
    AddSharedYields(changes, values);
  AddProduction(experiments, changes, measured, production, yields, values);
  AddLosses(experiments, values);
  return values.list;
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
