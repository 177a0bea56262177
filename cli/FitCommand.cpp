// velmora-cli fit: the search, its results and its report.
#include <new>
#include <stdexcept>

#include "cli/Assignments.h"
#include "cli/Commands.h"
#include "cli/FitProgress.h"
#include "cli/Json.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "estimation/Deviations.h"
#include "estimation/ResultTexts.h"
#include "estimation/SearchResult.h"
#include "inference/VerdictTexts.h"
#include "report/Relatorio.h"
#include "report/ReportCharts.h"
#include "report/Summary.h"

namespace velmora::cli {

EstimationSettings SettingsOf(const SettingTexts& settings, const Wording& say) {
  const EstimationSettings defaults;
  TypedSettings typed{defaults.NPOP,
                      defaults.ITER,
                      defaults.PCROS,
                      defaults.FACT,
                      defaults.FACT1,
                      defaults.EPS,
                      static_cast<double>(defaults.IU)};
  for (std::size_t i = 0; i < kSettingOptions.size(); ++i)
    if (const auto& text = settings[i])
      typed.*kSettingOptions[i].typed = NumberOf(kSettingOptions[i].option, *text, say);
  const CheckedSettings checked = CheckSettings(typed);
  if (!checked.refused) return checked.settings;
  throw Failure{ExitCode::Refused, std::string(kSettingOptions[*checked.refused].option) + ": " +
                                       say.Of(SettingsRefusal())};
}

namespace {

/// The method by which the fit is made. Of the settings only the seed means something to LM.
Method MethodOf(const FitOptions& options, const Inputs& inputs, const Wording& say) {
  const Method method =
      MethodNamed(options.method ? *options.method : inputs.conditions.At(1).options.method);
  if (method == Method::LM)
    for (std::size_t i = 0; i < kSettingOptions.size(); ++i)
      if (i != kSeedOption && options.settings[i])
        throw Failure{ExitCode::Usage, say(TextId::SettingOfED, {kSettingOptions[i].option})};
  return method;
}

/// What is fitted, once all that a fit asks for is in place. Conditions that are a simulation's, or
/// none, hold no fitted parameters: that is said before these are asked for.
FitProblem CheckedProblem(Inputs& inputs, Method method, const Wording& say) {
  const ConditionsRecord& first = inputs.conditions.At(1);
  if (method == Method::Manual) throw Failure{ExitCode::Refused, say(TextId::SimulationOnly)};
  if (inputs.conditions.SavedCount() == 0) RequireCultivation(inputs, say);
  inputs.conditions.fitted = StartingFrom(first.row, inputs.conditions.fitted);
  if (const auto refusal = ChecarVarAjustadas(inputs.conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(refusal->message)};
  RequireCultivation(inputs, say);
  if (method == Method::None)
    throw Failure{ExitCode::Refused, std::string(Text(TextId::NoMethod, say.In()))};
  if (!BoundsAreOrdered(inputs.conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(BoundsRefusal())};
  return ProblemOf(inputs.lists.Experiments(), inputs.conditions);
}

std::string WordedFault(const ArithmeticFault& fault, const Inputs& inputs, const Wording& say) {
  return std::string(Text(TextId::NotCompleted, say.In())) + Describe(fault, inputs, say);
}

/// That the search ended above where the user began, which a small population may.
std::string RemarkOn(Method method, const SearchResult& result, const Wording& say) {
  return method == Method::ED && result.score > result.startScore ? say(TextId::WorseThanStart)
                                                                  : "";
}

/// A fault before any vector was scored leaves nothing to print.
SearchResult SearchOrFail(Method method, const FitProblem& problem,
                          const EstimationSettings& settings, unsigned threads,
                          FitProgress& progress, const Inputs& inputs, const Console& console) {
  SearchResult result;
  try {
    result = SearchBy(method, problem, settings, progress, threads);
  } catch (const std::bad_alloc&) {
    throw Failure{ExitCode::Refused, console.say(TextId::OutOfMemoryInFit)};
  }
  progress.ClearLine();
  if (!result.HasResult() && result.fault)
    throw Failure{ExitCode::Arithmetic, WordedFault(*result.fault, inputs, console.say)};
  return result;
}

/// Each parameter on a line, with its deviation and in the digits that this leaves certain.
std::string LinesInShort(const EndedFit& fit, bool allDigits) {
  std::string text;
  if (fit.deviations.fault) return text;
  const Model* const model =
      RecognisedModel(fit.inputs.conditions.At(1), fit.inputs.conditions.fitted);
  for (std::size_t j = 0; j < fit.problem.variables.size(); ++j)
    text += ShortLine(fit.problem.variables[j], fit.result.best[j], fit.deviations.values[j], model,
                      allDigits, '.') +
            "\n";
  return text;
}

std::string TextOf(const EndedFit& fit, bool allDigits, const Wording& say) {
  std::string text;
  const std::string model = ModelNames(fit.inputs.conditions.At(1), fit.inputs.conditions.fitted);
  if (!model.empty()) text += say(TextId::ModelHeading) + ": " + model + "\n";
  text += say(TextId::ExperimentsWithValues,
              {std::to_string(fit.inputs.Count()), std::to_string(fit.deviations.observations)});
  text += "\n";
  if (fit.method == Method::ED)
    text += say(TextId::Generations, {std::to_string(fit.result.generations)}) + "\n";
  text += std::string(kFunctionCalls) + std::to_string(fit.result.functionCalls) + "\n";
  text += say(TextId::StartScore, {ShortestText(fit.result.startScore)}) + "\n";
  if (!fit.remark.empty()) text += fit.remark + "\n";
  text += FinalText(fit.problem, fit.result, fit.deviations, {say.In(), '.'});
  text += VerdictsText(fit.verdict, fit.problem, {say.In(), '.'});
  for (const Intervals& intervals : fit.intervals)
    text += Worded(intervals, fit.problem.variables, allDigits, {say.In(), '.'});
  return text + LinesInShort(fit, allDigits);
}

std::vector<ReportPicture> PicturesOf(const EndedFit& fit, const Console& console) {
  try {
    const SimulatedFit best = Objective(fit.problem).Simulate(fit.result.best);
    return ChartPictures(fit.inputs.lists, best.Curves());
  } catch (const std::runtime_error& failure) {
    console.Complain(console.say(TextId::NoCharts, {failure.what()}));
    return {};
  }
}

std::optional<FileFault> WriteReport(const EndedFit& fit, const FitOptions& options,
                                     const Console& console) {
  const EstimationSettings settings = SettingsOf(options.settings, console.say);
  ReportContent report = ReportOf(fit.problem, fit.inputs.conditions, fit.result, fit.deviations,
                                  fit.verdict, {console.say.In(), '.'});
  report.pictures = PicturesOf(fit, console);
  report.summary = SummaryOf(fit.problem, fit.result, fit.method, settings,
                             {options.inputs.experiments, options.inputs.conditions});
  return SaveReport(report, *options.report);
}

ExitCode CodeOf(const EndedFit& fit, const StopSignals& signals) {
  if (fit.result.end == SearchEnd::Stopped) return StoppedBy(signals.Noted());
  return fit.result.fault || fit.deviations.fault ? ExitCode::Arithmetic : ExitCode::Done;
}

/// A report that cannot be written is told before the search.
void TryReport(const FitOptions& options, const Console& console) {
  if (options.report)
    console.TryOutput(*options.report, {options.inputs.experiments, options.inputs.conditions});
}

/// The intervals that were asked for, of a search that came to its end.
std::vector<Intervals> IntervalsOf(const FitProblem& problem, const SearchResult& result,
                                   const FitOptions& options, const EstimationSettings& settings,
                                   const StopSignals& signals) {
  std::vector<Intervals> all;
  if (result.fault || !result.HasResult()) return all;
  for (const std::string& name : options.uncertainty) {
    if (signals.Noted() != 0) break;
    if (name == "linear") all.push_back(LinearIntervals(problem, result.best));
    if (name == "profile") all.push_back(ProfileIntervals(problem, result.best, options.threads));
    if (name == "bootstrap")
      all.push_back(BootstrapIntervals(
          problem, result.best, options.replicates, settings.IU,
          [&signals] { return signals.Noted() != 0; }, options.threads));
  }
  return all;
}

/// Prints the fit and writes its report: a long search is not lost where only one of the two can be
/// written. Whether the report could.
bool Show(const EndedFit& fit, const FitOptions& options, const FitProgress& progress,
          const Console& console) {
  std::optional<FileFault> unsaved;
  if (options.report) unsaved = WriteReport(fit, options, console);
  if (unsaved) console.Complain(console.say.Of(*unsaved));
  if (progress.Unwritten()) throw *progress.Unwritten();
  console.PrintOrRescue(options.json ? JsonOf(fit, console.say)
                                     : TextOf(fit, options.allDigits, console.say));
  return !unsaved;
}

}  // namespace

ExitCode Run(const FitOptions& options, const Console& console) {
  const Wording& say = console.say;
  TryReport(options, console);
  const EstimationSettings settings = SettingsOf(options.settings, say);
  Inputs inputs = LoadInputs(options.inputs, console);
  Provenance made = ProvenanceOf(inputs, console);
  const Method method = MethodOf(options, inputs, say);
  const FitProblem problem = CheckedProblem(inputs, method, say);
  WarnOfImpossible(inputs.lists, console);
  WarnOfUnscaled(inputs.lists, console);

  const StopSignals signals;
  FitProgress progress(problem.variables, method,
                       FormOf(options.progress, options.json, console.Options().quiet), signals,
                       console);
  const SearchResult result =
      SearchOrFail(method, problem, settings, options.threads, progress, inputs, console);
  const std::string fault = result.fault ? WordedFault(*result.fault, inputs, say) : "";
  if (result.fault) console.Complain(fault);
  const Deviations deviations = ComputeDeviations(problem, result.best);
  if (deviations.fault) console.Complain(say.Of(InversionMessage()));

  const std::vector<Intervals> intervals = IntervalsOf(problem, result, options, settings, signals);
  made.model = ModelNames(inputs.conditions.At(1), inputs.conditions.fitted);
  if (method == Method::ED) made.settings = settings;
  made.seed = settings.IU;
  made.threads = options.threads;
  const FitVerdict verdict = JudgeFit(problem, result, deviations);
  const EndedFit fit{inputs,    problem,          method,
                     result,    deviations,       verdict,
                     intervals, OnOneLine(fault), RemarkOn(method, result, say),
                     made};
  return Show(fit, options, progress, console) ? CodeOf(fit, signals) : ExitCode::File;
}

}  // namespace velmora::cli
