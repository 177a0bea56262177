#include "app/cultivation/RunDisplay.h"

#include <QThread>
#include <utility>

#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ResultsPanel.h"
#include "app/cultivation/RunPanel.h"
#include "app/cultivation/ScoreView.h"
#include "app/cultivation/frmCerteza.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/widgets/Idiomas.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "inference/FitSummary.h"
#include "inference/VerdictTexts.h"
#include "language/Message.h"
#include "language/Numbers.h"
#include "report/FitLines.h"
#include "report/Relatorio.h"

namespace velmora {
namespace {

constexpr int kBoundDigits = 6;
constexpr int kResultsWidth = 430;  // the longest heading on one line

/// "µmáx: 0.5 >= 0.2" of each parameter whose lower bound is not below its upper one.
QString Disordered(const std::vector<FitVariable>& variables) {
  QStringList lines;
  for (const FitVariable& variable : variables)
    if (!(variable.lower < variable.upper))
      lines << SpokenName(variable.position) +
                   QStringLiteral(": %1 ≥ %2").arg(variable.lower).arg(variable.upper);
  return lines.join(u'\n');
}

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
  connect(results_, &ResultsPanel::HowSureAsked, this, &RunDisplay::ShowHowSure);
  connect(results_, &ResultsPanel::ToggleAsked, this, [this] { ShowParameters(!estimatedShown_); });
  connect(run_, &RunControl::NotNormalised, this, [this] {
    dialogs_.Show(Window(), {{std::string(kNotNormalised)}, "Velmora", Icon::None});
  });
  connect(run_, &RunControl::Started, this, &RunDisplay::BeginResults);
  connect(run_, &RunControl::Ticked, panel_, &RunPanel::ShowSeconds);
  connect(run_, &RunControl::GenerationEnded, this, &RunDisplay::ShowGeneration);
  connect(run_, &RunControl::CurvesChanged, this, [this](const ModelCurves& curves) {
    ShowCurves(session_, curves);
    if (running_) ShowCourse();
    emit CurvesMoved();
  });
}

RunDisplay::~RunDisplay() {
  for (QThread* const judge : findChildren<QThread*>()) judge->wait();
}

void RunDisplay::SetLanguage(Language language) {
  panel_->SetLanguage(language);
  results_->SetLanguage(language);
  score_->SetHeading(Caption(TextId::ReportedSum, language).trimmed(), session_.separator);
  if (session_.lastRun && !running_ && results_->ShowsSummary())
    results_->ShowSummary(Summary(verdict_.get()));
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
  const QWidget* const keyboard = Keyboard();
  SetRunning(false);
  // From a command that works no more the keyboard goes on to what comes next.
  const bool leftAlone = keyboard == nullptr || !keyboard->isEnabled();
  if (leftAlone) panel_->TakeKeyboard();
  if (!outcome) {
    dialogs_.Show(Window(), Attention({TextId::OutOfBounds}));
    return;
  }
  outcome->method = method;
  outcome->settings = settings;
  outcome->files = files;
  const Change change = EndSearch(session_, *outcome);
  ShowOutcome(*outcome);
  if (leftAlone && outcome->result.HasResult()) results_->TakeKeyboard();
  emit Changed(change);
}

QWidget* RunDisplay::Keyboard() const {
  return Window()->window()->focusWidget();
}

void RunDisplay::SetRunning(bool running) {
  running_ = running;
  const QWidget* const keyboard = Keyboard();
  entry_.SetEnabled(!running);
  panel_->SetRunning(running);
  results_->SetRunning(running);
  if (running && keyboard != nullptr && !keyboard->isEnabled()) panel_->TakeKeyboard();
  emit RunningChanged(running);
}

void RunDisplay::BeginResults() {
  panel_->SetHeading(TextId::Estimating);
  panel_->ShowSeconds(0);
  panel_->ShowProgress(0, generations_);
  reached_ = {};
  elapsed_.start();
}

void RunDisplay::ShowGeneration(const Generation& generation,
                                const std::vector<FitVariable>& variables) {
  results_->Append(ProgressText(variables, generation, Style()));
  score_->Add(generation.score);
  panel_->ShowProgress(generation.number, generations_);
  reached_ = {generation.number, generation.functionCalls};
}

void RunDisplay::ShowCourse() {
  if (reached_.generation == 0) return;
  const std::string number = std::to_string(reached_.generation);
  const std::string evaluations = std::to_string(reached_.evaluations);
  if (generations_ == 0)
    return results_->ShowSummary(
        {{Filled(TextId::RunCourseOpen, session_.language, {number, evaluations})}});
  const qint64 left =
      elapsed_.elapsed() * (generations_ - reached_.generation) / reached_.generation;
  results_->ShowSummary({{Filled(TextId::RunCourse, session_.language,
                                 {number, std::to_string(generations_), evaluations,
                                  ClockText(static_cast<int>(left / 1000)).toStdString()})}});
}

void RunDisplay::ShowOutcome(const SearchOutcome& outcome) {
  if (outcome.result.HasResult()) return ShowResult(outcome);
  panel_->SetHeading(std::nullopt);
  if (outcome.result.end != SearchEnd::Refused)
    results_->Append(EndText(outcome.problem, outcome.result, session_.language));
  else
    dialogs_.Show(Window(), BoundsRefusal(), Buttons::Ok, Disordered(outcome.problem.variables));
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
  verdict_.reset();
  results_->ShowSummary(Summary(nullptr));
  auto verdict = std::make_shared<FitVerdict>();
  QThread* const judge = QThread::create([run, verdict] {
    *verdict = JudgeFit(run->outcome.problem, run->outcome.result, run->outcome.deviations);
  });
  judge->setParent(this);
  connect(judge, &QThread::finished, this, [this, run, verdict, judge] {
    judge->deleteLater();
    if (session_.lastRun != run) return;
    verdict_ = verdict;
    ShowVerdict(*verdict);
  });
  judge->start();
}

std::vector<SummaryLine> RunDisplay::Summary(const FitVerdict* verdict) const {
  const auto& [outcome, lists, conditions] = *session_.lastRun;
  const FitProblem& problem = outcome.problem;
  std::vector<SummaryLine> lines;
  for (std::string& line :
       SummaryLines(problem, outcome.result, static_cast<int>(outcome.settings.ITER), Style()))
    lines.push_back({std::move(line)});
  const Model* const model = RecognisedModel(conditions.At(1), problem.variables);
  for (EstimateLine& line : EstimateLines(problem, outcome.result, outcome.deviations, model,
                                          verdict ? &verdict->parameters : nullptr, Style()))
    lines.push_back({std::move(line.text), std::move(line.number), std::move(line.all)});
  if (verdict == nullptr) return lines;
  for (std::string& line : RunVerdictLines(*verdict, problem, Style()))
    lines.push_back({std::move(line)});
  return lines;
}

void RunDisplay::ShowVerdict(const FitVerdict& verdict) {
  results_->ShowSummary(Summary(&verdict));
  if (estimatedShown_) MarkBounds(verdict.parameters);
}

void RunDisplay::MarkBounds(const ParameterVerdicts& verdicts) {
  const SearchOutcome& last = session_.lastRun->outcome;
  for (std::size_t j = 0; j < verdicts.of.size(); ++j)
    for (const Finding& finding : verdicts.of[j].findings) {
      if (finding.kind != FindingKind::AtLowerBound && finding.kind != FindingKind::AtUpperBound)
        continue;
      const std::string why = Filled(TextId::AtItsBound, session_.language,
                                     {PlainText(finding.value, session_.separator, kBoundDigits)});
      entry_.Mark(last.problem.variables[j].position, NumberBox::Mark::AtBound,
                  QString::fromStdString(why));
    }
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

void RunDisplay::ShowHowSure() {
  delete howSureWindow_;
  howSureWindow_ = new frmCerteza(session_, session_.lastRun, Window()->window());
  howSureWindow_->setAttribute(Qt::WA_DeleteOnClose);
  howSureWindow_->show();
}

/// The search waits for the answer: nothing is reported behind the question.
void RunDisplay::AskToStop() {
  if (run_->Stopping()) return;
  const Message question = Attention({TextId::AskToStop}, Icon::Question);
  run_->Hold(true);
  if (dialogs_.Show(Window(), question, Buttons::NoYes) == Answer::Yes) run_->Stop();
  run_->Hold(false);
  // What is left of the search takes a moment: that the stop was heard is seen at once.
  if (run_->Stopping()) panel_->ShowProgress(0, 0);
}

}  // namespace velmora
