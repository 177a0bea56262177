// The conditions that are proposed from the data.
#include <algorithm>
#include <cmath>
#include <functional>

#include "inference/Proposal.h"
#include "inference/Regression.h"
#include "inference/TimeCourse.h"
#include "kinetics/Powers.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kDigits = 4;
constexpr double kClearErrors = 4;   // standard errors by which a yield differs from that of all
constexpr double kClearShare = 0.2;  // and of its value

/// What is proposed for the conditions, as it grows.
struct Values {
  std::vector<ProposedValue> list;

  void Add(At position, double value, Reason reason) {
    list.push_back({position, RoundSignificant(value, kDigits), std::move(reason), 0});
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
  const double value = *seen * Exponential(-rate * (time - Cx.time.front()));
  return {
      At::Cx0, RoundSignificant(value, kDigits), {TextId::FromLaterSample, {*seen, time, rate}}};
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

/// Whether an experiment's own slope lies clearly off that of all: one value does not serve them.
bool Differ(const std::vector<Changes>& ofEach, std::vector<double> Changes::*formed,
            const Line& ofAll) {
  return std::any_of(ofEach.begin(), ofEach.end(), [&](const Changes& changes) {
    const Line own = LineThroughOrigin(changes.substrate, changes.*formed);
    const double clear = std::max(kClearErrors * own.error, kClearShare * ofAll.slope);
    return own.slope > 0 && std::fabs(own.slope - ofAll.slope) > clear;
  });
}

/// A yield: one for all experiments, or each its own where these differ.
void AddYield(std::span<const Experiment> experiments, const Line& ofAll, int samples, At yield,
              Values& values) {
  const bool cells = yield == At::Yxs;
  const auto formed = cells ? &Changes::cells : &Changes::product;
  std::vector<Changes> ofEach;
  for (const Experiment& experiment : experiments) ofEach.push_back(ChangesOf({&experiment, 1}));
  values.Add(yield, ofAll, samples, cells ? TextId::CellYield : TextId::ProductYield);
  if (experiments.size() < 2 || !Differ(ofEach, formed, ofAll)) return;
  values.list.pop_back();
  for (std::size_t e = 0; e < ofEach.size(); ++e) {
    const Line own = LineThroughOrigin(ofEach[e].substrate, ofEach[e].*formed);
    const Line& line = own.slope > 0 ? own : ofAll;
    values.Add(yield, line, ofEach[e].Samples(),
               cells ? TextId::OwnCellYield : TextId::OwnProductYield);
    values.list.back().place = static_cast<int>(e) + 1;
  }
}

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
void AddGlobalYields(std::span<const Experiment> experiments, const Changes& changes,
                     const MeasuredYields& measured, Production production, Values& values) {
  const int samples = changes.Samples();
  const bool byGrowthAlone = production == Production::PAC;
  if (measured.cells.slope > 0 && byGrowthAlone)
    AddYield(experiments, measured.cells, samples, At::Yxs, values);
  else
    values.Add(At::Yxs, measured.cells, samples, TextId::CellYield);
  if (production == Production::PPAC && measured.cells.slope > 0 && measured.product.slope > 0) {
    const double alpha = LuedekingPiret(changes).alpha;
    values.Add(At::YpsTyped, alpha * measured.cells.slope, {TextId::YieldOfAlfa, {alpha}});
  } else if (measured.product.slope > 0 && byGrowthAlone) {
    AddYield(experiments, measured.product, samples, At::YpsTyped, values);
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

}  // namespace

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
    AddGlobalYields(experiments, changes, measured, production, values);
  else
    AddSharedYields(changes, values);
  AddProduction(experiments, changes, measured, production, yields, values);
  AddLosses(experiments, values);
  return values.list;
}

}  // namespace velmora
