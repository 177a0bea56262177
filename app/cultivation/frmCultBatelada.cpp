#include "app/cultivation/frmCultBatelada.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "app/cultivation/ChartsPanel.h"
#include "app/cultivation/ExperimentPanel.h"
#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ResultsPanel.h"
#include "app/cultivation/RunDisplay.h"
#include "app/cultivation/RunPanel.h"
#include "app/cultivation/ScoreView.h"
#include "app/cultivation/frmComparacao.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"
#include "cultivation/OpenedConditions.h"
#include "cultivation/Simulation.h"
#include "data/ExperimentEntry.h"
#include "inference/Proposal.h"
#include "session/FirstFit.h"

namespace velmora {
namespace {

constexpr int kRoomForScore = 860;  // window height from which the score's course has room

/// What is fixed stays readable although it cannot be changed, on a light ground and on a dark one.
QPalette ReadablePalette(QPalette colours) {
  constexpr double kFaded = 0.47;  // of the way from the text's colour to the ground's
  const QColor text = colours.color(QPalette::Active, QPalette::WindowText);
  const QColor ground = colours.color(QPalette::Active, QPalette::Window);
  const auto mixed = [](int from, int to) {
    return from + static_cast<int>(std::lround(kFaded * (to - from)));
  };
  const QColor fixed(mixed(text.red(), ground.red()), mixed(text.green(), ground.green()),
                     mixed(text.blue(), ground.blue()));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    colours.setColor(QPalette::Disabled, role, fixed);
  return colours;
}

}  // namespace

frmCultBatelada::frmCultBatelada(Session& session, Dialogs& dialogs, QWidget* parent)
    : FoldingWindow(parent), session_(session), dialogs_(dialogs) {
  setObjectName(QLatin1StringView(kCultivationWindow));
  setPalette(ReadablePalette(palette()));
  BuildPanels();
  LayOut();
  Wire();
  ShowAtStart();
}

void frmCultBatelada::BuildPanels() {
  experiment_ = new ExperimentPanel(this);
  entry_ = new FormEntry(this);
  run_ = new RunDisplay(session_, dialogs_, *entry_, this);
  charts_ = new ChartsPanel(this);
  numbers_ = new NumberEntry(session_.separator, this);
  for (NumberBox* const box : findChildren<NumberBox*>()) numbers_->Watch(*box);
}

void frmCultBatelada::LayOut() {
  Above().addWidget(experiment_);
}

QWidget* frmCultBatelada::Arranged(Fold fold) {
  QWidget* const body = fold == Fold::Columns ? Columns() : Tabs(fold == Fold::TabsAlone);
  PlaceScore();
  return body;
}

/// Left what is chosen and entered, in the middle the parameters, the run and its results, right
/// the plots: these take the room that a large window has.
QWidget* frmCultBatelada::Columns() {
  experiment_->TakeInfo();
  auto* const body = new QWidget(this);
  auto* const columns = new QHBoxLayout(body);
  Tighten(*columns);
  choicesColumn_ = new QVBoxLayout;
  for (QWidget* const panel : {entry_->Choices(), entry_->Model(), entry_->Conditions()})
    choicesColumn_->addWidget(panel);
  choicesColumn_->addStretch();
  runColumn_ = new QVBoxLayout;
  runColumn_->addWidget(entry_->Parameters());
  runColumn_->addWidget(&run_->Panel());
  runColumn_->addWidget(&run_->Score(), 1);
  runColumn_->addWidget(&run_->Results(), 1);
  columns->addLayout(choicesColumn_);
  columns->addLayout(runColumn_, 2);
  columns->addWidget(charts_, 3);
  return body;
}

/// Left the panels one behind the other, above the run, right the plots, or one of the tabs.
QWidget* frmCultBatelada::Tabs(bool alone) {
  const auto caption = [this](TextId text) { return Caption(text, session_.language); };
  auto* const body = new QWidget(this);
  auto* const columns = new QHBoxLayout(body);
  Tighten(*columns);
  auto* const tabs = Named<QTabWidget>("abas", body);
  tabs->setAccessibleName(windowTitle());
  AddTab(*tabs, caption(TextId::TabModel),
         {entry_->Choices(), entry_->Model(), &experiment_->Info(), new QWidget});
  AddTab(*tabs, caption(TextId::TabConditions), {entry_->Conditions(), new QWidget});
  AddTab(*tabs, caption(TextId::TabParameters), {entry_->Parameters(), new QWidget});
  AddTab(*tabs, caption(TextId::TabResults), {&run_->Score(), &run_->Results()});
  auto* const left = new QVBoxLayout;
  left->addWidget(tabs, 1);
  left->addWidget(&run_->Panel());
  columns->addLayout(left, alone ? 1 : 0);
  if (alone)
    AddTab(*tabs, caption(TextId::TabPlots), {charts_});
  else
    columns->addWidget(charts_, 1);
  return body;
}

void frmCultBatelada::PlaceScore() {
  ScoreView& score = run_->Score();
  const bool tall = !Folded() && height() >= kRoomForScore;
  if (!Folded()) {
    QVBoxLayout& column = tall ? *choicesColumn_ : *runColumn_;
    if (column.indexOf(&score) < 0)
      column.insertWidget(tall ? column.count() : column.indexOf(&run_->Results()), &score, 1);
  }
  score.setVisible(tall || Running());
}

void frmCultBatelada::Wire() {
  connect(experiment_, &ExperimentPanel::StepAsked, this, &frmCultBatelada::Step);
  connect(experiment_, &ExperimentPanel::BackAsked, this, &frmCultBatelada::BackToExperiments);
  connect(entry_, &FormEntry::Edited, this, &frmCultBatelada::ShowStanding);
  connect(entry_, &FormEntry::Edited, this, &frmCultBatelada::Edited);
  connect(&run_->Panel(), &RunPanel::SaveAsked, this, &frmCultBatelada::SalvarCondCult);
  connect(&run_->Panel(), &RunPanel::ProposeAsked, this, &frmCultBatelada::Propose);
  connect(&run_->Panel(), &RunPanel::UseForAllAsked, this, &frmCultBatelada::UseForAll);
  connect(&run_->Results(), &ResultsPanel::ImproveAsked, this, &frmCultBatelada::Improve);
  connect(&run_->Results(), &ResultsPanel::CompareAsked, this, &frmCultBatelada::CompareModels);
  connect(&run_->Results(), &ResultsPanel::PreviousAsked, this, &frmCultBatelada::ReturnToPrevious);
  connect(&run_->Panel(), &RunPanel::StartAsked, this, &frmCultBatelada::Ajustar);
  connect(run_, &RunDisplay::RunningChanged, experiment_, &QWidget::setDisabled);
  connect(run_, &RunDisplay::RunningChanged, this, [this](bool running) {
    PlaceScore();
    if (running) Reveal(run_->Results());
    emit RunningChanged(running);
  });
  connect(run_, &RunDisplay::CurvesMoved, this, &frmCultBatelada::GraficoSub);
  connect(run_, &RunDisplay::Changed, this, &frmCultBatelada::Announce);
  connect(charts_, &ChartsPanel::MenuAsked, this, &frmCultBatelada::ChartMenu);
  connect(charts_, &ChartsPanel::Activated, this, [this] {
    if (session_.lists.Empty()) Tell(Attention({TextId::NothingToPlot}));
  });
}

void frmCultBatelada::ShowAtStart() {
  Idiomas(*this, session_.language);
  MostrarCondCult(session_.lists.Empty() ? 0 : 1);
  GraficoSub();
}

void frmCultBatelada::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  const Language language = session_.language;
  experiment_->SetLanguage(language);
  entry_->SetLanguage(language);
  run_->SetLanguage(language);
  numbers_->SetLanguage(language);
  Measure();
}

void frmCultBatelada::resizeEvent(QResizeEvent* event) {
  FoldingWindow::resizeEvent(event);
  PlaceScore();
}

void frmCultBatelada::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  session_.activeWindow = kCultivationWindow;
}

Answer frmCultBatelada::Tell(const Message& message, Buttons buttons) {
  return dialogs_.Show(this, message, buttons);
}

void frmCultBatelada::Refuse(const Refusal& refusal) {
  const bool parameter = refusal.box && FittableIndex(*refusal.box) >= 0;
  const std::string named = parameter ? Filled(TextId::BoundsOf, session_.language,
                                               {SpokenName(*refusal.box).toStdString()})
                                      : std::string();
  dialogs_.Show(this, refusal.message, Buttons::Ok, QString::fromStdString(named));
  if (!refusal.box) return;
  Reveal(entry_->PanelOf(*refusal.box));
  entry_->Focus(*refusal.box);
}

// The experiment shown.

int frmCultBatelada::NumExperimentos() const {
  return session_.lists.Count();
}

bool frmCultBatelada::IsSaved(int place) const {
  return place >= 1 && place <= kMostExperiments && session_.conditions.At(place).saved;
}

std::int16_t frmCultBatelada::Number() const {
  return place_ == 0 ? std::int16_t{0} : session_.lists.At(place_).number;
}

void frmCultBatelada::Announce(const Change& change) {
  Show(change);
  emit Changed(change);
}

void frmCultBatelada::Show(const Change& change) {
  const FormDraft draft = session_.formDraft;
  if (change.results) run_->ShowLast();
  if (change.lists || change.restored) ShowPlaceAfter(change);
  if (change.form) ShowDraft(draft);
  ShowStanding();
  if (change.lists || change.curves || change.gridLines) GraficoSub();
}

void frmCultBatelada::ShowPlaceAfter(const Change& change) {
  if (change.restored && !change.conditions && place_ > 0 && place_ <= NumExperimentos()) return;
  if (change.restored && place_ > 0 && place_ <= NumExperimentos()) return MostrarCondCult(place_);
  if (change.restored || change.replaced || place_ == change.deleted)
    return MostrarCondCult(session_.lists.Empty() ? 0 : 1);
  if (change.deleted != 0 && change.deleted < place_) --place_;
  const bool first = place_ == 0 && !session_.lists.Empty();
  if (first) place_ = 1;
  if ((first || change.remeasured == place_) && !IsSaved(place_)) ShowSuggested();
}

void frmCultBatelada::MostrarCondCult(int place) {
  place_ = place;
  if (IsSaved(place)) {
    ShowStored(session_.conditions.At(place));
  } else if (place != 0) {
    entry_->MarkStored();  // what was entered belonged to another experiment
    ShowSuggested();
  }
  entry_->SetFixed(session_.conditions.SavedCount() > 0);
  ShowStanding();
}

void frmCultBatelada::ShowStored(const ConditionsRecord& record) {
  CultivationForm form = FormOf(record, session_.conditions.fitted, session_.separator);
  // Experiments that are only simulated leave the ticks and bounds as they stand.
  if (session_.conditions.fitted.empty()) form.fit = entry_->Form().fit;
  entry_->SetStored(form, RecognisedModel(record, session_.conditions.fitted));
  run_->FormShowsStored();
}

/// Choices, yields and parameters stay as they stand: most of them are the same for all
/// experiments.
void frmCultBatelada::ShowSuggested() {
  for (const auto& [position, entry] :
       SuggestedEntries(session_.lists.At(place_), session_.separator))
    if (entry_->Untouched(position)) entry_->SetBox(position, entry);
}

void frmCultBatelada::ShowDraft(const FormDraft& draft) {
  MostrarCondCult(draft.place);
  if (const velmora::Model* const model = FindModel(draft.form.model)) entry_->SetModel(*model);
  entry_->SetProposed(draft.form, {});
}

void frmCultBatelada::ShowStanding() {
  session_.formDraft = {entry_->Form(), place_, entry_->Changed()};
  const bool saved = IsSaved(place_) && !entry_->Changed();
  experiment_->SetStanding(
      {place_, NumExperimentos(), Number(), saved, session_.conditions.SavedCount()});
  run_->Panel().SetSimulates(entry_->Form().method == Method::Manual);
  run_->Panel().SetExperiments(NumExperimentos());
  run_->Results().SetComparable(!RefuseRun(session_.lists.Experiments(), session_.conditions));
}

void frmCultBatelada::Step(int step) {
  if (entry_->Changed()) {
    Tell(Attention({TextId::SaveConditionsOf, std::to_string(Number()), TextId::BeforeReturning}));
    return;
  }
  MostrarCondCult(place_ + step);
}

void frmCultBatelada::SalvarCondCult() {
  const ConditionsSaved saved = SaveConditions(session_, entry_->Form(), place_);
  if (saved.refusal) return Refuse(*saved.refusal);
  if (saved.shownAlfa) entry_->SetBox(At::alpha, *saved.shownAlfa);
  entry_->MarkStored();
  entry_->SetFixed(true);
  Announce(saved.change);
  const auto [others, model] = OthersWithAnotherModel(session_, entry_->Form(), place_);
  if (others > 0) Tell(Attention({{TextId::OthersKeepModel, {std::to_string(others), model}}}));
}

void frmCultBatelada::Propose() {
  const ProposedForm proposed = ProposeForm(session_, entry_->Form(), place_);
  std::vector<std::pair<At, QString>> why;
  for (const auto& [position, reason] : proposed.reasons)
    why.emplace_back(position,
                     QString::fromStdString(Filled(TextId::ProposedHint, session_.language,
                                                   {Worded(reason, session_.language)})));
  entry_->SetProposed(proposed.form, why);
  Reveal(*entry_->Parameters());
}

void frmCultBatelada::UseForAll() {
  const std::string count = std::to_string(std::min(NumExperimentos(), kMostExperiments));
  const Message question = Attention({{TextId::AskToUseForAll, {count}}}, Icon::Question);
  if (Tell(question, Buttons::YesNo) != Answer::Yes) return;
  const ConditionsSaved saved = velmora::UseForAll(session_, entry_->Form(), place_);
  if (saved.refusal) return Refuse(*saved.refusal);
  if (saved.shownAlfa) entry_->SetBox(At::alpha, *saved.shownAlfa);
  entry_->MarkStored();
  entry_->SetFixed(true);
  Announce(saved.change);
}

void frmCultBatelada::LimpaVet(int place) {
  const Change change = ClearConditions(session_, place);
  if (place == place_) MostrarCondCult(place);
  Announce(change);
}

void frmCultBatelada::LimpaCaixaTexto() {
  entry_->Clear();
}

// The run.

void frmCultBatelada::Ajustar() {
  run_->Clear();
  const CultivationForm form = entry_->Form();
  if (const auto refusal = RefuseStart(session_, form, place_)) return Refuse(*refusal);
  if (form.method == Method::Manual)
    run_->Simulate();
  else
    run_->Estimate();
}

void frmCultBatelada::Improve() {
  run_->ShowEstimated();
  if (const auto refusal = RefuseStart(session_, entry_->Form(), place_)) return Refuse(*refusal);
  run_->Clear();
  run_->Search(Method::LM);
}

void frmCultBatelada::CompareModels() {
  delete comparison_;
  comparison_ = new frmComparacao(session_, this);
  comparison_->setAttribute(Qt::WA_DeleteOnClose);
  connect(comparison_, &frmComparacao::ModelTaken, this, &frmCultBatelada::TakeModel);
  comparison_->show();
}

void frmCultBatelada::TakeModel(const ComparedModel& compared) {
  if (Running()) return;
  // Of several models that are tried one after the other the way back leads before the first.
  if (!previous_ || !entry_->Changed()) previous_ = entry_->Form();
  run_->Results().SetReturnable(true);
  entry_->SetModel(*compared.model);
  CultivationForm form = entry_->Form();
  for (const Parameter& parameter : kFittable) form.At(parameter.position) = {};
  form.fit = {};
  std::vector<std::pair<At, QString>> why;
  for (std::size_t j = 0; j < compared.variables.size(); ++j) {
    FitVariable variable = compared.variables[j];
    variable.start = compared.result.best[j];
    PutInto(form, variable, session_.separator);
    why.emplace_back(variable.position, Caption(TextId::TakenOverHint, session_.language));
  }
  entry_->SetProposed(form, why);
  if (NumExperimentos() > 1) UseForAll();
}

void frmCultBatelada::ReturnToPrevious() {
  if (!previous_) return;
  if (const velmora::Model* const model = FindModel(previous_->model)) entry_->SetModel(*model);
  entry_->SetProposed(*previous_, {});
  previous_.reset();
  run_->Results().SetReturnable(false);
}

bool frmCultBatelada::EntryChanged() const {
  return entry_->Changed();
}

bool frmCultBatelada::Running() const {
  return run_->Running();
}

void frmCultBatelada::StopRun() {
  run_->StopQuietly();
}

// Plots, export and the conditions file.

void frmCultBatelada::GraficoSub() {
  charts_->Draw(session_.lists, session_.curves, LookOf(session_));
}

void frmCultBatelada::LegendaSub() {
  charts_->ToggleLegend();
}

void frmCultBatelada::ExportarDados() {
  if (!session_.CurvesPresent()) return;
  const int experiments = std::min(NumExperimentos(), kMostExperiments);
  QGuiApplication::clipboard()->setText(QString::fromStdString(
      velmora::ExportarDados(session_.curves, experiments, session_.separator)));
}

void frmCultBatelada::SalvarArqCondBat() {
  if (const auto refusal = RefuseConditionsFile(session_)) {
    Tell(*refusal);
    return;
  }
  const Message question = UnsavedQuestion();
  if (entry_->Changed() && Tell(question, Buttons::YesNo) != Answer::Yes) return;
  const QString file =
      dialogs_.SaveFile(this, kSaveFilter, kSuffix, ShownPath(session_.conditionsFile));
  if (file.isEmpty()) return;
  if (const auto fault = WriteConditionsFile(session_, LocalPath(file)))
    dialogs_.TellFault(this, *fault);
  emit Edited();
}

void frmCultBatelada::AbrirCondBat() {
  const QString file = dialogs_.OpenFile(this, kOpenFilter);
  if (!file.isEmpty()) Open(file);
}

void frmCultBatelada::Open(const QString& file) {
  const bool first = session_.conditions.SavedCount() == 0;
  const ConditionsOpened opened = OpenConditions(session_, LocalPath(file));
  if (opened.fault) return dialogs_.TellFault(this, *opened.fault);
  if (opened.refusal) {
    Tell(*opened.refusal);
    return;
  }
  if (first) LimpaCaixaTexto();
  MostrarCondCult(1);
  Announce(opened.change);
  for (const Message& message : opened.messages) Tell(message);
}

}  // namespace velmora
