#include "app/cultivation/RunDisplay.h"

#include <utility>

#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ResultsPanel.h"
#include "app/cultivation/RunPanel.h"
#include "app/cultivation/ScoreView.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/widgets/Idiomas.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/Simulation.h"
#include "estimation/ResultTexts.h"
#include "language/FaultWords.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kResultsWidth = 430;  // the longest heading on one line

}  // namespace

RunDisplay::RunDisplay(Session& session, Dialogs& dialogs, FormEntry& entry, QWidget* parent)
    : QObject(parent),
      session_(session),
      dialogs_(dialogs),
      entry_(entry),
      panel_(new RunPanel(parent)),
      results_(new ResultsPanel(parent)),
      score_(new ScoreView(parent)),
      run_(new RunControl(this)) {
  results_->setMinimumWidth(kResultsWidth);
  score_->hide();
  Wire();
}

void RunDisplay::Wire() {
  connect(panel_, &RunPanel::StopAsked, this, &RunDisplay::AskToStop);
  connect(results_, &ResultsPanel::ReportAsked, this, &RunDisplay::Relatorio);
  connect(results_, &ResultsPanel::ToggleAsked, this, [this] { ShowParameters(!estimatedShown_); });
  connect(run_, &RunControl::NotNormalised, this, [this] {
    dialogs_.Show(Window(), {{std::string(kNotNormalised)}, "Velmora", Icon::None});
  });
  connect(run_, &RunControl::Started, this, &RunDisplay::BeginResults);
  connect(run_, &RunControl::Ticked, panel_, &RunPanel::ShowSeconds);
  connect(run_, &RunControl::GenerationEnded, this, &RunDisplay::ShowGeneration);
  connect(run_, &RunControl::CurvesChanged, this, &RunDisplay::TakeCurves);
}

void RunDisplay::SetLanguage(Language language) {
  panel_->SetLanguage(language);
  results_->SetLanguage(language);
  score_->SetHeading(Caption(TextId::ReportedSum, language).trimmed());
}

QWidget* RunDisplay::Window() const {
  return qobject_cast<QWidget*>(parent());
}

bool RunDisplay::Running() const {
  return run_->Running();
}

void RunDisplay::StopQuietly() {
  quiet_ = true;
  run_->Stop();
}

void RunDisplay::FormShowsStored() {
  estimatedShown_ = false;
  results_->SetDirection(ResultsPanel::Direction::ToEstimated);
}

void RunDisplay::Forget() {
  lastRun_.reset();
  FormShowsStored();
  panel_->SetHeading(std::nullopt);
  results_->Clear();
  results_->SetAvailable(false);
  score_->Clear();
}

void RunDisplay::Simulate() {
  ModelCurves curves;
  panel_->SetHeading(std::nullopt);
  results_->Clear();
  for (const ArithmeticFault& fault : Manual(session_.conditions, session_.lists.Count(), curves))
    AppendFault(fault);
  TakeCurves(curves);
  emit SessionChanged();
}

void RunDisplay::Estimate(const std::vector<FitVariable>& variables) {
  const Message question{{TextId::AskToEstimate}, TextId::ParametersEstimation, Icon::Question};
  if (dialogs_.Show(Window(), question, Buttons::YesNo) != Answer::Yes) return;
  FitProblem problem = ProblemOf(session_.lists.Experiments(), session_.conditions);
  problem.variables = variables;
  quiet_ = false;
  SetRunning(true);
  const RunOutcome outcome = run_->Run(std::move(problem), session_.settings);
  SetRunning(false);
  ShowOutcome(outcome);
  emit SessionChanged();
}

void RunDisplay::SetRunning(bool running) {
  entry_.SetEnabled(!running);
  panel_->SetRunning(running);
  results_->SetRunning(running);
  emit RunningChanged(running);
}

void RunDisplay::BeginResults() {
  results_->Clear();
  score_->Clear();
  panel_->SetHeading(TextId::Estimating);
  panel_->ShowSeconds(0);
  panel_->ShowProgress(0, static_cast<int>(session_.settings.ITER));
  emit SessionChanged();
}

void RunDisplay::ShowGeneration(const Generation& generation,
                                const std::vector<FitVariable>& variables) {
  results_->Append(ProgressText(variables, generation, {session_.language, session_.separator}));
  score_->Add(generation.score);
  panel_->ShowProgress(generation.number, static_cast<int>(session_.settings.ITER));
}

void RunDisplay::ShowOutcome(const RunOutcome& outcome) {
  if (outcome.result.HasResult()) return ShowResult(outcome);
  panel_->SetHeading(outcome.result.fault ? std::optional(TextId::EstimatedParameters)
                                          : std::nullopt);
  if (outcome.result.fault) return AppendFault(*outcome.result.fault);
  if (outcome.outOfMemory)
    dialogs_.Show(Window(), Attention({TextId::OutOfBounds}));
  else if (outcome.result.end == SearchEnd::Refused)
    dialogs_.Show(Window(), BoundsRefusal());
}

void RunDisplay::ShowResult(const RunOutcome& outcome) {
  lastRun_ = outcome;
  const TextStyle style{session_.language, session_.separator};
  report_ =
      ReportOf(outcome.problem, session_.conditions, outcome.result, outcome.deviations, style);
  reportedLists_ = session_.lists;
  reportedCurves_ = outcome.curves;
  panel_->SetHeading(TextId::EstimatedParameters);
  results_->Append(FinalText(outcome.problem, outcome.result, outcome.deviations, style));
  results_->SetAvailable(true);
  ShowParameters(true);
  if (outcome.deviations.fault && !quiet_) dialogs_.Show(Window(), InversionMessage());
}

void RunDisplay::AppendFault(const ArithmeticFault& fault) {
  const Language language = session_.language;
  const int number = fault.place == 0 ? 0 : session_.lists.At(fault.place).number;
  results_->Append(std::string(Text(TextId::NotCompleted, language)) +
                   FaultDescription(fault, number, language) + "\n");
}

void RunDisplay::ShowParameters(bool estimated) {
  const char separator = session_.separator;
  const std::vector<FitVariable>& variables = lastRun_->problem.variables;
  for (std::size_t j = 0; j < variables.size(); ++j) {
    const auto& [position, lower, upper, start] = variables[j];
    const double best = lastRun_->result.best[j];
    if (estimated)
      entry_.SetBox(position, {Formatted(best, kTwoToThirteen, separator), best},
                    NumberBox::Mark::Estimated);
    else
      entry_.SetBox(position, Shown(position, start, separator));
  }
  estimatedShown_ = estimated;
  results_->SetDirection(estimated ? ResultsPanel::Direction::ToInitial
                                   : ResultsPanel::Direction::ToEstimated);
}

void RunDisplay::Relatorio() {
  delete reportWindow_;
  report_.pictures =
      ReportPictures(reportedLists_, reportedCurves_, session_.gridLines, session_.separator);
  reportWindow_ = new frmRelatorio(session_, dialogs_, report_, Window()->window());
  reportWindow_->setAttribute(Qt::WA_DeleteOnClose);
  reportWindow_->show();
}

void RunDisplay::AskToStop() {
  const Message question = Attention({TextId::AskToStop}, Icon::Question);
  if (dialogs_.Show(Window(), question, Buttons::YesNo) == Answer::Yes) run_->Stop();
}

void RunDisplay::TakeCurves(const ModelCurves& curves) {
  session_.curves = curves;
  session_.curvesPresent = true;
  emit CurvesChanged();
}

}  // namespace velmora
