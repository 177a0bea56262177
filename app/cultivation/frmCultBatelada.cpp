#include "app/cultivation/frmCultBatelada.h"

#include <QClipboard>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "app/cultivation/ChartsPanel.h"
#include "app/cultivation/ExperimentPanel.h"
#include "app/cultivation/FormEntry.h"
#include "app/cultivation/ResultsPanel.h"
#include "app/cultivation/RunDisplay.h"
#include "app/cultivation/RunPanel.h"
#include "app/cultivation/ScoreView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/NumberEntry.h"
#include "app/widgets/PanelParts.h"
#include "cultivation/ConditionsSetUp.h"
#include "cultivation/CultivationForm.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "cultivation/Simulation.h"
#include "data/ExperimentEntry.h"
#include "data/FileFault.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kRoomForScore = 860;  // window height from which the score's course has room

/// What is fixed stays readable although it cannot be changed.
QPalette ReadablePalette(QPalette colours) {
  constexpr QColor kFixed(0x70, 0x70, 0x70);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    colours.setColor(QPalette::Disabled, role, kFixed);
  return colours;
}

}  // namespace

frmCultBatelada::frmCultBatelada(Session& session, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent), session_(session), dialogs_(dialogs) {
  setObjectName(QStringLiteral("frmCultBatelada"));
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
  auto* const numbers = new NumberEntry(session_.separator, this);
  for (NumberBox* const box : findChildren<NumberBox*>()) numbers->Watch(*box);
}

/// Left what is chosen and entered, in the middle the parameters, the run and its results, right
/// the plots: these take the room that a large window has.
void frmCultBatelada::LayOut() {
  auto* const choices = new QVBoxLayout;
  for (QWidget* const panel : {entry_->Choices(), entry_->Model(), entry_->Conditions()})
    choices->addWidget(panel);
  choices->addStretch();
  choices->addWidget(&run_->Score(), 1);
  auto* const run = new QVBoxLayout;
  run->addWidget(entry_->Parameters());
  run->addWidget(&run_->Panel());
  run->addWidget(&run_->Results(), 1);
  auto* const columns = new QHBoxLayout;
  columns->setSpacing(kSpacing);
  columns->addLayout(choices);
  columns->addLayout(run, 2);
  columns->addWidget(charts_, 3);
  auto* const all = new QVBoxLayout(this);
  TightenInside(*all);
  all->addWidget(experiment_);
  all->addLayout(columns, 1);
}

void frmCultBatelada::Wire() {
  connect(experiment_, &ExperimentPanel::StepAsked, this, &frmCultBatelada::Step);
  connect(experiment_, &ExperimentPanel::BackAsked, this, &frmCultBatelada::BackToExperiments);
  connect(entry_, &FormEntry::Edited, this, &frmCultBatelada::ShowStanding);
  connect(&run_->Panel(), &RunPanel::SaveAsked, this, &frmCultBatelada::SalvarCondCult);
  connect(&run_->Panel(), &RunPanel::StartAsked, this, &frmCultBatelada::Ajustar);
  connect(run_, &RunDisplay::RunningChanged, experiment_, &QWidget::setDisabled);
  connect(run_, &RunDisplay::CurvesChanged, this, &frmCultBatelada::GraficoSub);
  connect(run_, &RunDisplay::SessionChanged, this, &frmCultBatelada::SessionChanged);
  connect(charts_, &ChartsPanel::MenuAsked, this, &frmCultBatelada::ChartMenu);
  connect(charts_, &ChartsPanel::Activated, this, [this] {
    if (session_.lists.Empty()) Tell(Attention({TextId::NothingToPlot}));
  });
}

void frmCultBatelada::ShowAtStart() {
  Idiomas(*this, session_.language);
  ExperimentsChanged();
}

void frmCultBatelada::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  const Language language = session_.language;
  experiment_->SetLanguage(language);
  entry_->SetLanguage(language);
  run_->SetLanguage(language);
}

void frmCultBatelada::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  run_->Score().setVisible(height() >= kRoomForScore);
}

void frmCultBatelada::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  session_.activeWindow = objectName().toStdString();
}

Answer frmCultBatelada::Tell(const Message& message, Buttons buttons, const QString& detail) {
  return dialogs_.Show(this, message, buttons, detail);
}

void frmCultBatelada::Refuse(const Refusal& refusal) {
  Tell(refusal.message);
  if (refusal.box) entry_->Focus(*refusal.box);
}

// The experiment shown.

int frmCultBatelada::NumExperimentos() const {
  return session_.lists.Count();
}

bool frmCultBatelada::IsSaved(int place) const {
  return place >= 1 && place <= kMostExperiments && session_.conditions.At(place).saved;
}

bool frmCultBatelada::ShownIsCurrent(int place) const {
  return place == place_ && session_.lists.At(place) == shown_ && IsSaved(place) == shownSaved_;
}

void frmCultBatelada::ExperimentsChanged() {
  AlignConditions(session_.lists.Experiments(), session_.conditions);
  std::vector<std::int16_t> numbers;
  for (const Experiment& experiment : session_.lists.Experiments())
    numbers.push_back(experiment.number);
  if (numbers != numbers_) session_.curvesPresent = false;  // they stand by place
  if (numbers != numbers_ && session_.conditions.SavedCount() == 0) run_->Forget();
  numbers_ = numbers;

  const int place = place_ == 0 ? 0 : session_.lists.PlaceOf(shown_.number);
  if (place == 0)
    MostrarCondCult(session_.lists.Empty() ? 0 : 1);
  else if (KeepsEntries(place))
    TakePlace(place);
  else if (!ShownIsCurrent(place))
    MostrarCondCult(place);
  ShowStanding();
  GraficoSub();
}

bool frmCultBatelada::KeepsEntries(int place) const {
  return entry_->Changed() && IsSaved(place) == shownSaved_ &&
         SuggestedEntries(session_.lists.At(place), session_.separator) ==
             SuggestedEntries(shown_, session_.separator);
}

void frmCultBatelada::TakePlace(int place) {
  place_ = place;
  shown_ = place == 0 ? Experiment() : session_.lists.At(place);
  shownSaved_ = IsSaved(place);
}

void frmCultBatelada::MostrarCondCult(int place) {
  TakePlace(place);
  if (shownSaved_)
    ShowStored(session_.conditions.At(place));
  else if (place != 0)
    ShowSuggested(shown_);
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
void frmCultBatelada::ShowSuggested(const Experiment& experiment) {
  for (const auto& [position, entry] : SuggestedEntries(experiment, session_.separator))
    entry_->SetBox(position, entry);
  entry_->MarkStored();
}

void frmCultBatelada::ShowStanding() {
  const bool saved = IsSaved(place_) && !entry_->Changed();
  experiment_->SetStanding(
      {place_, NumExperimentos(), shown_.number, saved, session_.conditions.SavedCount()});
  run_->Panel().SetSimulates(entry_->Form().method == Method::Manual);
}

void frmCultBatelada::Step(int step) {
  if (entry_->Changed()) {
    Tell(Attention(
        {TextId::SaveConditionsOf, std::to_string(shown_.number), TextId::BeforeReturning}));
    return;
  }
  MostrarCondCult(place_ + step);
}

void frmCultBatelada::SalvarCondCult() {
  if (place_ > kMostExperiments) {
    Tell(Attention({TextId::CountsDiffer}));
    return;
  }
  const Saved saved = velmora::SalvarCondCult(entry_->Form(), place_, shown_.number,
                                              session_.separator, session_.conditions);
  if (saved.refusal) return Refuse(*saved.refusal);
  if (saved.shownAlfa) entry_->SetBox(At::alpha, *saved.shownAlfa);
  entry_->MarkStored();
  entry_->SetFixed(true);
  shownSaved_ = true;
  ShowStanding();
  emit SessionChanged();
}

void frmCultBatelada::LimpaVet(int place) {
  if (place < 1 || place > kMostExperiments) return;
  session_.conditions.LimpaVet(place);
  if (session_.conditions.SavedCount() == 0) session_.conditions.Clear();
  if (place == place_) MostrarCondCult(place);
  ShowStanding();
  emit SessionChanged();
}

void frmCultBatelada::LimpaCaixaTexto() {
  entry_->Clear();
}

// The run.

void frmCultBatelada::Ajustar() {
  const CultivationForm form = entry_->Form();
  const std::vector<FitVariable> table = VarAjustadas(form, session_.separator);
  // A simulation fits nothing, so that nothing need be ticked.
  const auto refusal =
      form.method == Method::Manual ? RefuseFitRows(table) : ChecarVarAjustadas(table);
  if (refusal) return Refuse(*refusal);
  if (const auto message = RefuseRun(session_.lists.Experiments(), session_.conditions)) {
    Tell(*message);
    return;
  }
  const bool entered = entry_->Changed() || run_->ShowsEstimated();
  const bool computes = form.method == Method::Manual || form.method == Method::ED;
  if (computes && entered && RunPassesOver(form, place_, session_.separator, session_.conditions)) {
    Tell(Attention({TextId::SaveConditionsOf, std::to_string(shown_.number), TextId::BeforeRun}));
    return;
  }
  switch (form.method) {
    case Method::Manual:
      return run_->Simulate();
    case Method::ED:
      return run_->Estimate(table);
    case Method::LM:
      Tell(Attention({TextId::NoLevenbergMarquardt}));
      return;
    case Method::None:
      Tell(Attention({TextId::NoMethod}));
  }
}

bool frmCultBatelada::Running() const {
  return run_->Running();
}

void frmCultBatelada::StopRun() {
  run_->StopQuietly();
}

// Plots, export and the conditions file.

void frmCultBatelada::GraficoSub() {
  charts_->Draw(session_.lists, session_.curvesPresent ? &session_.curves : nullptr,
                session_.gridLines, session_.separator);
}

void frmCultBatelada::LegendaSub() {
  charts_->ToggleLegend();
}

void frmCultBatelada::ExportarDados() {
  if (!session_.curvesPresent) return;
  const int experiments = std::min(NumExperimentos(), kMostExperiments);
  QGuiApplication::clipboard()->setText(QString::fromStdString(
      velmora::ExportarDados(session_.curves, experiments, session_.separator)));
}

void frmCultBatelada::SalvarArqCondBat() {
  const int experiments = NumExperimentos();
  if (experiments < 1 || session_.conditions.SavedCount() == 0) {
    Tell(Attention({TextId::NoConditionsAdded}));
    return;
  }
  if (const auto missing = RefuseMissing(session_.lists.Experiments(), session_.conditions)) {
    Tell(*missing);
    return;
  }
  const Message question = UnsavedQuestion();
  if (entry_->Changed() && Tell(question, Buttons::YesNo) != Answer::Yes) return;
  const QString file =
      dialogs_.SaveFile(this, QStringLiteral("Arquivos Textos (*.abr)"), QStringLiteral("abr"));
  if (file.isEmpty()) return;
  const bool active = session_.activeWindow == objectName().toStdString();
  TellFault(WriteConditions(session_.conditions, experiments, active,
                            QFile::encodeName(file).toStdString()));
}

void frmCultBatelada::AbrirCondBat() {
  const QString file = dialogs_.OpenFile(this, QStringLiteral("ABR abr(*.abr)"));
  if (file.isEmpty()) return;
  const ConditionsRead read = ReadConditions(QFile::encodeName(file).toStdString());
  if (read.fault) return TellFault(read.fault);
  const OpenedConditions opened = CompareWithLists(read, session_.lists.Experiments());
  if (opened.refusal) {
    Tell(*opened.refusal);
    return;
  }
  if (session_.conditions.SavedCount() == 0) LimpaCaixaTexto();
  session_.conditions = opened.conditions;
  session_.curvesPresent = false;
  MostrarCondCult(1);
  GraficoSub();
  for (const Message& message : opened.messages) Tell(message);
  emit SessionChanged();
}

void frmCultBatelada::TellFault(const std::optional<FileFault>& fault) {
  if (!fault) return;
  Tell({{TextId::FileError}, TextId::Error, Icon::Critical}, Buttons::Ok,
       QString::fromStdString(FaultDetail(*fault, session_.language)));
}

}  // namespace velmora
