#include "app/cultivation/RunDisplay.h"

#include <QThread>
#include <memory>
#include <utility>

#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ResultsPanel.h"
#include "app/cultivation/RunPanel.h"
#include "app/cultivation/ScoreView.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/widgets/Idiomas.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/FitSetUp.h"
#include "inference/FitSummary.h"
#include "inference/VerdictTexts.h"
#include "language/Message.h"
#include "language/Numbers.h"
#include "report/Relatorio.h"

namespace velmora {
namespace {

constexpr int kResultsWidth = 430;  // the longest heading on one line

/// The names of the files that held the session's experiments and conditions.
std::vector<std::string> FilesOf(const Session& session) {
  std::vector<std::string> names;
  for (const std::string& path : {session.experimentsFile, session.conditionsFile})
    if (!path.empty()) names.push_back(path.substr(path.rfind('/') + 1));
  return names;
}

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
  connect(run_, &RunControl::CurvesChanged, this, [this](const ModelCurves& curves) {
    ShowCurves(session_, curves);
    emit CurvesMoved();
  });
}

RunDisplay::~RunDisplay() {
  for (QThread* const judge : findChildren<QThread*>()) judge->wait();
}

void RunDisplay::SetLanguage(Language language) {
  panel_->SetLanguage(language);
  results_->SetLanguage(language);
  score_->SetHeading(Caption(TextId::ReportedSum, language).trimmed());
}

QWidget* RunDisplay::Window() const {
  return qobject_cast<QWidget*>(parent());
}

void RunDisplay::StopQuietly() {
  quiet_ = true;
  run_->Stop();
}

void RunDisplay::FormShowsStored() {
  estimatedShown_ = false;
  results_->SetDirection(ResultsPanel::Direction::ToEstimated);
}

void RunDisplay::Clear() {
  panel_->SetHeading(std::nullopt);
  results_->Clear();
  score_->Clear();
}

void RunDisplay::ShowLast() {
  Clear();
  FormShowsStored();
  results_->SetAvailable(session_.lastRun != nullptr);
  if (session_.lastRun) ShowResult(session_.lastRun->outcome);
}

void RunDisplay::Simulate() {
  const Simulated simulated = velmora::Simulate(session_);
  for (const ArithmeticFault& fault : simulated.faults)
    results_->Append(
        std::string(Text(TextId::NotCompleted, session_.language)) +
        FaultDescription(fault, session_.lists.At(fault.place).number, session_.language) + "\n");
  emit Changed(simulated.change);
}

void RunDisplay::Estimate() {
  const Message question{{TextId::AskToEstimate}, TextId::ParametersEstimation, Icon::Question};
  if (dialogs_.Show(Window(), question, Buttons::YesNo) == Answer::Yes)
    Search(entry_.Form().method);
}

void RunDisplay::Search(Method method) {
  const EstimationSettings settings = session_.settings;
  const CultivationForm form = entry_.Form();
  generations_ = method == Method::ED ? static_cast<int>(settings.ITER) : 0;
  quiet_ = false;
  SetRunning(true);
  const std::vector<std::string> files = FilesOf(session_);
  std::optional<SearchOutcome> outcome = run_->Run(StartSearch(session_, form), method, settings);
  SetRunning(false);
  if (!outcome) {
    dialogs_.Show(Window(), Attention({TextId::OutOfBounds}));
    return;
  }
  outcome->method = method;
  outcome->settings = settings;
  outcome->files = files;
  const Change change = EndSearch(session_, *outcome);
  ShowOutcome(*outcome);
  emit Changed(change);
}

void RunDisplay::SetRunning(bool running) {
  running_ = running;
  entry_.SetEnabled(!running);
  panel_->SetRunning(running);
  results_->SetRunning(running);
  emit RunningChanged(running);
}

void RunDisplay::BeginResults() {
  panel_->SetHeading(TextId::Estimating);
  panel_->ShowSeconds(0);
  panel_->ShowProgress(0, generations_);
}

void RunDisplay::ShowGeneration(const Generation& generation,
                                const std::vector<FitVariable>& variables) {
  results_->Append(ProgressText(variables, generation, Style()));
  score_->Add(generation.score);
  panel_->ShowProgress(generation.number, generations_);
}

void RunDisplay::ShowOutcome(const SearchOutcome& outcome) {
  if (outcome.result.HasResult()) return ShowResult(outcome);
  panel_->SetHeading(std::nullopt);
  if (outcome.result.end != SearchEnd::Refused)
    results_->Append(EndText(outcome.problem, outcome.result, session_.language));
  else
    dialogs_.Show(Window(), BoundsRefusal());
}

void RunDisplay::ShowResult(const SearchOutcome& outcome) {
  panel_->SetHeading(TextId::EstimatedParameters);
  results_->Append(FinalText(outcome.problem, outcome.result, outcome.deviations, Style()));
  results_->SetAvailable(true);
  ShowParameters(true);
  ShowSummary();
  if (outcome.deviations.fault && !quiet_) dialogs_.Show(Window(), InversionMessage());
}

void RunDisplay::ShowSummary() {
  const auto run = session_.lastRun;
  const SearchOutcome& outcome = run->outcome;
  summary_ = SummaryLines(outcome.problem, outcome.result, static_cast<int>(outcome.settings.ITER),
                          Style());
  results_->ShowSummary(summary_);
  auto verdict = std::make_shared<FitVerdict>();
  QThread* const judge = QThread::create([run, verdict] {
    *verdict = JudgeFit(run->outcome.problem, run->outcome.result, run->outcome.deviations);
  });
  judge->setParent(this);
  connect(judge, &QThread::finished, this, [this, run, verdict, judge] {
    judge->deleteLater();
    if (session_.lastRun == run) ShowVerdict(*verdict);
  });
  judge->start();
}

void RunDisplay::ShowVerdict(const FitVerdict& verdict) {
  const FitProblem& problem = session_.lastRun->outcome.problem;
  std::vector<std::string> lines = summary_;
  for (std::string& line : ParameterVerdictLines(verdict, problem, Style()))
    lines.push_back(std::move(line));
  for (std::string& line : RunVerdictLines(verdict, problem, Style()))
    lines.push_back(std::move(line));
  results_->ShowSummary(lines);
}

void RunDisplay::ShowParameters(bool estimated) {
  const SearchOutcome& last = session_.lastRun->outcome;
  for (std::size_t j = 0; j < last.problem.variables.size(); ++j) {
    const auto& [position, lower, upper, start] = last.problem.variables[j];
    const double best = last.result.best[j];
    if (estimated)
      entry_.SetBox(position, {Formatted(best, kTwoToThirteen, session_.separator), best},
                    NumberBox::Mark::Estimated);
    else
      entry_.SetBox(position, Shown(position, start, session_.separator));
  }
  estimatedShown_ = estimated;
  results_->SetDirection(estimated ? ResultsPanel::Direction::ToInitial
                                   : ResultsPanel::Direction::ToEstimated);
}

void RunDisplay::Relatorio() {
  delete reportWindow_;
  const auto& [outcome, lists, conditions] = *session_.lastRun;
  ReportContent report =
      ReportOf(outcome.problem, conditions, outcome.result, outcome.deviations,
               JudgeFit(outcome.problem, outcome.result, outcome.deviations), Style());
  report.summary =
      SummaryOf(outcome.problem, outcome.result, outcome.method, outcome.settings, outcome.files);
  report.pictures = ReportPictures(lists, outcome.curves, session_.gridLines, session_.separator);
  reportWindow_ = new frmRelatorio(session_, dialogs_, std::move(report), Window()->window());
  reportWindow_->setAttribute(Qt::WA_DeleteOnClose);
  reportWindow_->show();
}

/// The search waits for the answer: nothing is reported behind the question.
void RunDisplay::AskToStop() {
  const Message question = Attention({TextId::AskToStop}, Icon::Question);
  run_->Hold(true);
  if (dialogs_.Show(Window(), question, Buttons::NoYes) == Answer::Yes) run_->Stop();
  run_->Hold(false);
}

}  // namespace velmora
