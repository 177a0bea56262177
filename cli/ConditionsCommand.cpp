// velmora-cli conditions: a conditions file by the rules of the cultivation window.
#include <algorithm>

#include "cli/Commands.h"
#include "cli/Given.h"
#include "cli/Json.h"
#include "cultivation/ConditionsFile.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/FitSetUp.h"
#include "data/Windows1252.h"
#include "inference/Proposal.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

/// The command line, understood: what is the same for every experiment, the values to set, and what
/// is proposed where nothing is given.
struct Plan {
  const Model& model;
  CultivationForm form;
  std::vector<Assignment> assignments;  // those for every experiment first
  std::vector<ProposedValue> values;
  std::vector<ProposedRange> ranges;
};

bool AlfaIsDecided(const CultivationForm& form) {
  return form.yields == Yields::Global || form.production == Production::PNAC;
}

/// Refuses a value that neither the model nor the choice of production and yields has a use for.
void RequireUse(const Plan& plan, const Assignment& assignment, const Wording& say) {
  const At at = assignment.position;
  if (FittableIndex(at) >= 0) cli::RequireUse(plan.model, at, say);
  if (at == At::alpha && AlfaIsDecided(plan.form))
    throw Failure{ExitCode::Refused, say(TextId::AlfaDecided)};
  if ((at == At::beta || at == At::CsAst2) && plan.form.production == Production::PAC)
    throw Failure{ExitCode::Refused, say(TextId::BetaNotOffered, {assignment.name})};
}

void TickFitRow(const FitVariable& range, Plan& plan, const Wording& say) {
  cli::RequireUse(plan.model, range.position, say);
  FitRow& row = plan.form.fit[static_cast<std::size_t>(FittableIndex(range.position))];
  row = {true, Entry::Of(range.lower, '.'), Entry::Of(range.upper, '.')};
  plan.form.At(range.position) = Entry::Of(range.start, '.');
}

Yields YieldsNamed(const std::string& name) {
  return name == "stoichiometric" ? Yields::Stoichiometric : Yields::Global;
}

Plan PlanOf(const ConditionsOptions& options, const std::vector<Experiment>& experiments,
            const Wording& say) {
  Plan plan{ModelNamed(options.model, say), {}, {}, {}, {}};
  plan.form.method = MethodNamed(options.method);
  plan.form.production =
      options.product.empty() ? ProposeProduction(experiments) : ProductionNamed(options.product);
  plan.form.yields = YieldsNamed(options.yields);
  plan.form.model = options.model;
  plan.form.modelConfirmed = true;
  for (const std::string& text : options.set)
    plan.assignments.push_back(
        ConditionAssignment(text, static_cast<int>(experiments.size()), say));
  std::stable_partition(plan.assignments.begin(), plan.assignments.end(),
                        [](const Assignment& assignment) { return assignment.place == 0; });
  for (const Assignment& assignment : plan.assignments) RequireUse(plan, assignment, say);
  const std::vector<FitVariable> ranges = FittedRanges(options.fit, say);
  for (const FitVariable& range : ranges) TickFitRow(range, plan, say);
  RequireNotFitted(plan.assignments, ranges, say);
  return plan;
}

/// Whether the command line sets the value at `position` of the experiment at `place`; with place 0
/// of all at once.
bool IsSet(const Plan& plan, At position, int place) {
  return std::any_of(
      plan.assignments.begin(), plan.assignments.end(), [=](const Assignment& given) {
        return given.position == position && (given.place == 0 || given.place == place);
      });
}

/// Adds what the data let propose, but for what the command line gives.
void Propose(const std::vector<Experiment>& experiments, Plan& plan) {
  plan.values = ProposeConditions(experiments, plan.form.production, plan.form.yields);
  std::erase_if(plan.values, [&](const ProposedValue& value) {
    return IsSet(plan, value.position, value.place);
  });
  plan.ranges = ProposeRanges(experiments, plan.model);
  std::erase_if(plan.ranges, [&](const ProposedRange& range) {
    const At at = range.variable.position;
    const bool isSet = std::any_of(plan.assignments.begin(), plan.assignments.end(),
                                   [=](const Assignment& given) { return given.position == at; });
    return isSet || !plan.form.At(at).text.empty();
  });
  for (const ProposedRange& range : plan.ranges) PutInto(plan.form, range.variable, '.');
}

/// One line for each proposal.
std::string Reasons(const Plan& plan, const Wording& say) {
  std::string text;
  for (const auto& [position, value, reason, place] : plan.values)
    text += say(place == 0 ? TextId::ProposedLine : TextId::ProposedLineAt,
                {ParameterAt(position).name, ShortestText(value), Worded(reason, say.In()),
                 std::to_string(place)}) +
            "\n";
  for (const auto& [range, reason] : plan.ranges)
    text += say(TextId::ProposedFit,
                {ParameterAt(range.position).name, ShortestText(range.start),
                 ShortestText(range.lower), ShortestText(range.upper), Worded(reason, say.In())}) +
            "\n";
  return text;
}

/// The form of the experiment at `place`; throws the text of what it lacks.
CultivationForm FormAt(int place, const Experiment& experiment, const Plan& plan,
                       const Wording& say) {
  CultivationForm form = plan.form;
  for (const auto& [position, entry] : SuggestedEntries(experiment, '.')) form.At(position) = entry;
  PutInto(form, plan.values, place, '.');
  for (const Assignment& assignment : plan.assignments)
    if (assignment.place == 0 || assignment.place == place)
      form.At(assignment.position) = Entry::Of(assignment.value, '.');
  for (const At initial : {At::Cx0, At::Cs0, At::Cp0})
    if (form.At(initial).text.empty()) throw Failure{ExitCode::Refused, say(TextId::NoPoints)};
  for (const Parameter& parameter : kFittable)
    if (Uses(plan.model, parameter.position) && form.At(parameter.position).text.empty())
      throw Failure{ExitCode::Refused,
                    say(TextId::ValueMissing, {plan.model.name, parameter.name})};
  return form;
}

void SaveConditions(int place, const Experiment& experiment, const Plan& plan, const Wording& say,
                    CultivationConditions& conditions) {
  try {
    const CultivationForm form = FormAt(place, experiment, plan, say);
    const Saved saved = SalvarCondCult(form, place, experiment.number, '.', conditions);
    if (saved.refusal) throw Failure{ExitCode::Refused, say.Of(saved.refusal->message)};
  } catch (Failure& failure) {
    failure.line = say(TextId::InExperiment,
                       {std::to_string(experiment.number), std::to_string(place), failure.line});
    throw;
  }
}

void RequireExperiments(int count, const Wording& say) {
  if (count == 0) throw Failure{ExitCode::Refused, say.Of(*RefuseRun({}, {}))};
  RequireRoom(count, say);
}

}  // namespace

ExitCode Run(const ConditionsOptions& options, const Console& console) {
  const Wording& say = console.say;
  if (MethodNamed(options.method) == Method::Manual && !options.fit.empty())
    throw Failure{ExitCode::Usage, say(TextId::FitWithManual)};
  ModelNamed(options.model, say);
  console.TryOutput(options.output, {options.experiments});
  const ExperimentLists lists = LoadExperiments(options.experiments, console);
  RequireExperiments(lists.Count(), say);

  Plan plan = PlanOf(options, lists.Experiments(), say);
  if (options.propose) Propose(lists.Experiments(), plan);
  CultivationConditions conditions;
  for (int place = 1; place <= lists.Count(); ++place)
    SaveConditions(place, lists.At(place), plan, say, conditions);
  if (!BoundsAreOrdered(conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(BoundsRefusal())};
  if (options.output == kStandard)
    console.Print(ToWindows1252(ConditionsText(conditions, lists.Count(), true)).bytes);
  else
    RequireDone(WriteConditions(conditions, lists.Count(), true, options.output), say);
  if (options.json) {
    console.PrintBeside(JsonOf(lists.Count(), plan.values, plan.ranges, options.output, say),
                        options.output);
    return ExitCode::Done;
  }
  console.Tell(say(TextId::Written, {options.output, std::to_string(lists.Count())}) + "\n" +
                   Reasons(plan, say),
               options.output);
  return ExitCode::Done;
}

}  // namespace velmora::cli
