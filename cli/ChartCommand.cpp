// velmora-cli chart: pictures to be published.
#include <algorithm>
#include <new>
#include <stdexcept>

#include "charts/PictureFile.h"
#include "charts/PublishedChart.h"
#include "cli/Commands.h"
#include "cli/FitProgress.h"
#include "cli/Json.h"
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
  Inputs inputs;
  ModelCurves curves{};
  FitProblem problem;
  SearchResult result;
  EstimationSettings settings;

  bool Fitted() const { return result.HasResult(); }
};

PictureFormat FormatOf(const ChartOptions& options, const Wording& say) {
  const auto named = std::find(kChartFormats.begin(), kChartFormats.end(), options.format);
  if (named != kChartFormats.end())
    return static_cast<PictureFormat>(named - kChartFormats.begin());
  if (options.output == kStandard) return PictureFormat::Svg;
  if (const auto format = PictureFormatOf(options.output)) return *format;
  throw Failure{ExitCode::Usage, say(TextId::PictureSuffix, {options.output})};
}

Method MethodOf(const Drawn& drawn) {
  return MethodNamed(drawn.inputs.conditions.At(1).options.method);
}

/// Conditions that are a simulation's, or of which the user wants the values as they stand, are
/// not fitted.
bool IsToBeFitted(const ChartOptions& options, const Drawn& drawn) {
  const Method method = MethodOf(drawn);
  return !options.asGiven && !drawn.inputs.conditions.fitted.empty() &&
         (method == Method::LM || method == Method::ED);
}

void RequireBounds(const CultivationConditions& conditions, const Wording& say) {
  if (const auto refusal = ChecarVarAjustadas(conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(refusal->message)};
  if (!BoundsAreOrdered(conditions.fitted))
    throw Failure{ExitCode::Refused, say.Of(BoundsRefusal())};
}

void Fit(Drawn& drawn, unsigned threads, const StopSignals& signals, const Console& console) {
  RequireBounds(drawn.inputs.conditions, console.say);
  drawn.problem = ProblemOf(drawn.inputs.lists.Experiments(), drawn.inputs.conditions);
  const Method method = MethodOf(drawn);
  FitProgress progress(drawn.problem.variables, method, ProgressForm::None, signals, console);
  drawn.result = SearchBy(method, drawn.problem, drawn.settings, progress, threads);
  if (!drawn.Fitted()) throw Failure{ExitCode::Arithmetic, console.say(TextId::NoProfile)};
  drawn.curves = Objective(drawn.problem).Simulate(drawn.result.best).Curves();
}

/// What is asked for that only a model can answer.
std::string NeedOfModel(const ChartOptions& options) {
  if (options.inputs.model) return "--model";
  if (!options.inputs.set.empty()) return "--set";
  if (!options.inputs.fit.empty()) return "--fit";
  return options.kind == kChartKinds[0] ? "" : "--kind " + options.kind;
}

Drawn Load(const ChartOptions& options, const StopSignals& signals, const Console& console) {
  const bool points = options.inputs.conditions.empty();
  if (const std::string need = NeedOfModel(options); points && !need.empty())
    throw Failure{ExitCode::Usage, console.say(TextId::ConditionsNeeded, {need})};
  SettingTexts settings;
  settings[kSeedOption] = options.seed;
  Drawn drawn;
  drawn.settings = SettingsOf(settings, console.say);
  InputOptions inputs = options.inputs;
  inputs.fits = !options.asGiven;
  drawn.inputs = LoadInputs(inputs, console);
  if (points) return drawn;
  RequireCultivation(drawn.inputs, console.say);
  if (IsToBeFitted(options, drawn)) {
    Fit(drawn, options.threads, signals, console);
    return drawn;
  }
  for (const ArithmeticFault& fault :
       Manual(drawn.inputs.conditions, drawn.inputs.Count(), drawn.curves))
    console.Complain(Describe(fault, drawn.inputs, console.say));
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
    ChartContent content = ContentOf(variable, drawn.inputs.lists, &drawn.curves, true, '.');
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
  const Model* const model =
      RecognisedModel(drawn.inputs.conditions.At(1), drawn.problem.variables);
  std::vector<ChartContent> charts;
  for (Figure& figure :
       ProfileFigures(intervals, drawn.problem.variables, drawn.result, model, {say.In(), '.'})) {
    if (charts.empty()) figure.title = options.title;
    charts.push_back(With(std::move(figure)));
  }
  return charts;
}

std::vector<ChartContent> ChartsOf(const ChartOptions& options, const Drawn& drawn,
                                   const Wording& say) {
  auto charts =
      options.kind == kChartKinds[3] ? Profiles(options, drawn, say) : Charts(options, drawn, say);
  if (charts.empty())
    throw Failure{ExitCode::Refused, say(TextId::NothingToDraw, {options.inputs.experiments})};
  return charts;
}

/// The charts below each other, profiles two beside each other.
std::string BytesOf(std::vector<ChartContent> charts, const ChartOptions& options,
                    PictureFormat format) {
  const int count = static_cast<int>(charts.size());
  const int columns = options.kind == kChartKinds[3] ? std::min(kProfileColumns, count) : 1;
  const int rows = (count + columns - 1) / columns;
  try {
    return PictureOf(std::move(charts), columns, {}, format,
                     {options.width, options.height.value_or(rows * kRowHeight), options.dpi});
  } catch (const std::runtime_error& failure) {
    throw Failure{ExitCode::File, std::string(failure.what())};
  }
}

void Tell(const ChartOptions& options, PictureFormat format, std::size_t charts, const Drawn& drawn,
          const Console& console) {
  if (!options.json)
    return console.Tell(
        console.say(TextId::ChartsWritten, {options.output, std::to_string(charts)}) + "\n",
        options.output);
  Provenance made = ProvenanceOf(drawn.inputs, console);
  if (!options.inputs.conditions.empty())
    made.model = ModelNames(drawn.inputs.conditions.At(1), drawn.inputs.conditions.fitted);
  if (drawn.Fitted()) {
    if (MethodOf(drawn) == Method::ED) made.settings = drawn.settings;
    made.seed = drawn.settings.IU;
    made.threads = options.threads;
  }
  const char* const name = kChartFormats.at(static_cast<std::size_t>(format));
  console.PrintBeside(JsonOfCharts(options.output, charts, name, made), options.output);
}

}  // namespace

ExitCode Run(const ChartOptions& options, const Console& console) {
  const Wording& say = console.say;
  const PictureFormat format = FormatOf(options, say);
  console.TryOutput(options.output, {options.inputs.experiments, options.inputs.conditions});
  const StopSignals signals;
  const Drawn drawn = Load(options, signals, console);
  const std::vector<ChartContent> charts = ChartsOf(options, drawn, say);
  const std::string bytes = BytesOf(charts, options, format);
  if (options.output == kStandard)
    console.Print(bytes);
  else
    RequireDone(SafeSave(options.output, bytes), say);
  Tell(options, format, charts.size(), drawn, console);
  return drawn.result.end == SearchEnd::Stopped ? StoppedBy(signals.Noted()) : ExitCode::Done;
}

}  // namespace velmora::cli
