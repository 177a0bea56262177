// velmora-cli chart: pictures to be published.
#include <algorithm>
#include <new>
#include <stdexcept>

#include "charts/PictureFile.h"
#include "charts/PublishedChart.h"
#include "cli/Commands.h"
#include "cli/FitProgress.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "cultivation/Simulation.h"
#include "data/SafeSave.h"
#include "report/ProfileFigures.h"

namespace velmora::cli {
namespace {

constexpr double kRowHeight = 75;  // mm of a chart, of whatever width
constexpr int kProfileColumns = 2;

constexpr PlotVariable kVariables[] = {PlotVariable::Cx, PlotVariable::Cs, PlotVariable::Cp};

/// What is drawn: experiments, the curves of the values that are drawn, and the fit, if any.
struct Drawn {
  ExperimentLists lists;
  ModelCurves curves{};
  CultivationConditions conditions;
  FitProblem problem;
  SearchResult result;

  bool Fitted() const { return result.HasResult(); }
};

PictureFormat FormatOf(const ChartOptions& options, const Wording& say) {
  if (const auto format = PictureFormatOf(options.output)) return *format;
  throw Failure{ExitCode::Usage, say(TextId::PictureSuffix, {options.output})};
}

/// Conditions that are a simulation's, or of which the user wants the values as they stand, are
/// not fitted.
bool IsToBeFitted(const ChartOptions& options, const CultivationConditions& conditions) {
  const Method method = MethodNamed(conditions.At(1).options.method);
  return !options.asGiven && !conditions.fitted.empty() &&
         (method == Method::LM || method == Method::ED);
}

void RequireBounds(const CultivationConditions& conditions, const Wording& say) {
  if (const auto refusal = ChecarVarAjustadas(conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(refusal->message)};
  if (!BoundsAreOrdered(conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(BoundsRefusal())};
}

void Fit(Drawn& drawn, const StopSignals& signals, const Console& console) {
  RequireBounds(drawn.conditions, console.say);
  drawn.problem = ProblemOf(drawn.lists.Experiments(), drawn.conditions);
  const Method method = MethodNamed(drawn.conditions.At(1).options.method);
  FitProgress progress(drawn.problem.variables, method, ProgressForm::None, signals, console);
  drawn.result = SearchBy(method, drawn.problem, {}, progress);
  if (!drawn.Fitted()) throw Failure{ExitCode::Arithmetic, console.say(TextId::NoProfile)};
  drawn.curves = Objective(drawn.problem).Simulate(drawn.result.best).Curves();
}

Drawn Load(const ChartOptions& options, const StopSignals& signals, const Console& console) {
  Drawn drawn;
  if (options.inputs.conditions.empty()) {
    if (options.kind != kChartKinds[0])
      throw Failure{ExitCode::Usage, console.say(TextId::ConditionsNeeded, {options.kind})};
    drawn.lists = LoadExperiments(options.inputs.experiments, console);
    return drawn;
  }
  Inputs inputs = LoadInputs(options.inputs, console);
  RequireCultivation(inputs, console.say);
  drawn.lists = inputs.lists;
  drawn.conditions = inputs.conditions;
  if (IsToBeFitted(options, inputs.conditions)) {
    Fit(drawn, signals, console);
    return drawn;
  }
  for (const ArithmeticFault& fault : Manual(inputs.conditions, inputs.Count(), drawn.curves))
    console.Complain(Describe(fault, inputs, console.say));
  return drawn;
}

ChartContent With(Figure figure) {
  ChartContent content;
  content.figure = std::move(figure);
  return content;
}

/// The title stands above the first chart, the legend beside or in it.
std::vector<ChartContent> Charts(const ChartOptions& options, const Drawn& drawn,
                                 const Wording& say) {
  FigureView view;
  view.language = say.In();
  view.logarithmic = options.logarithmic;
  std::vector<ChartContent> charts;
  for (const PlotVariable variable : kVariables) {
    ChartContent content = ContentOf(variable, drawn.lists, &drawn.curves, true, '.');
    if (!CanBeSized(content)) continue;
    if (charts.empty()) content.title = options.title;
    if (options.kind == kChartKinds[0])
      content.figure = CourseFigure(content, view);
    else
      content.figure = options.kind == kChartKinds[1] ? ResidualFigure(content, view)
                                                      : ParityFigure(content, view);
    charts.push_back(std::move(content));
  }
  return charts;
}

std::vector<ChartContent> Profiles(const ChartOptions& options, const Drawn& drawn,
                                   const Wording& say) {
  if (!drawn.Fitted()) throw Failure{ExitCode::Refused, say(TextId::NoProfile)};
  const Intervals intervals = ProfileIntervals(drawn.problem, drawn.result.best);
  const Model* const model = RecognisedModel(drawn.conditions.At(1), drawn.problem.variables);
  std::vector<ChartContent> charts;
  for (Figure& figure :
       ProfileFigures(intervals, drawn.problem.variables, drawn.result, model, {say.In(), '.'})) {
    if (charts.empty()) figure.title = options.title;
    charts.push_back(With(std::move(figure)));
  }
  return charts;
}

}  // namespace

ExitCode Run(const ChartOptions& options, const Console& console) {
  const Wording& say = console.say;
  const PictureFormat format = FormatOf(options, say);
  console.TryOutput(options.output, {options.inputs.experiments, options.inputs.conditions});
  const StopSignals signals;
  const Drawn drawn = Load(options, signals, console);
  const bool profile = options.kind == kChartKinds[3];
  const auto charts = profile ? Profiles(options, drawn, say) : Charts(options, drawn, say);
  if (charts.empty())
    throw Failure{ExitCode::Refused, say(TextId::NothingToDraw, {options.inputs.experiments})};
  const int count = static_cast<int>(charts.size());
  const int columns = profile ? std::min(kProfileColumns, count) : 1;
  const int rows = (count + columns - 1) / columns;
  try {
    const std::string bytes =
        PictureOf(charts, columns, {}, format,
                  {options.width, options.height.value_or(rows * kRowHeight), options.dpi});
    RequireDone(SafeSave(options.output, bytes), say);
  } catch (const std::runtime_error& failure) {
    throw Failure{ExitCode::File, std::string(failure.what())};
  }
  console.Print(say(TextId::ChartsWritten, {options.output, std::to_string(count)}) + "\n");
  return drawn.result.end == SearchEnd::Stopped ? StoppedBy(signals.Noted()) : ExitCode::Done;
}

}  // namespace velmora::cli
