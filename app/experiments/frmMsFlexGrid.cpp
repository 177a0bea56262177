#include "app/experiments/frmMsFlexGrid.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/charts/LegendView.h"
#include "app/charts/PlotsPanel.h"
#include "app/experiments/DisplayPanel.h"
#include "app/experiments/EntryPanel.h"
#include "app/experiments/ExperimentGridView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "app/widgets/ProgramFolder.h"
#include "session/Session.h"
#include "session/Unsaved.h"

namespace velmora {
namespace {
constexpr int kLegendWidth = 190;  // px; the heading fits on one line

}  // namespace

frmMsFlexGrid::frmMsFlexGrid(Session& session, Dialogs& dialogs, QWidget* parent)
    : FoldingWindow(parent), session_(session), dialogs_(dialogs), files_(session, dialogs, *this) {
  setObjectName(QLatin1StringView(kExperimentsWindow));
  BuildPanels();
  LayOut();
  Wire();
  ShowAtStart();
}

void frmMsFlexGrid::BuildPanels() {
  actions_ = new ActionsPanel(this);
  entry_ = new EntryPanel(session_.separator, this);
  displays_ = new DisplayPanel(this);
  legend_ = new LegendView(ProgramFolder(), this);
  plots_ = new PlotsPanel({kPicCs, kPicCx, kPicCp}, this);
}

void frmMsFlexGrid::LayOut() {
  graphs_ = Named<QGroupBox>("frmGrafico", this);
  auto* const plots = new QVBoxLayout(graphs_);
  plots->addWidget(plots_);
  legendCorner_ = LegendCorner();
  Above().addWidget(actions_);
}

/// Left what is entered, then how it is drawn, right the plots.
QWidget* frmMsFlexGrid::Arranged(Fold fold) {
  const bool folded = fold != Fold::Columns;
  actions_->SetShort(folded, fold == Fold::TabsAlone);
  auto* const body = new QWidget(this);
  auto* const columns = new QHBoxLayout(body);
  columns->setContentsMargins({});
  if (folded) {
    auto* const tabs = Named<QTabWidget>("abas", body);
    tabs->setAccessibleName(windowTitle());
    AddTab(*tabs, Caption(TextId::TabData, session_.language), {entry_});
    // The rows of nine experiments and their legend are higher than a small screen.
    auto* const legend = new QScrollArea(tabs);
    legend->setFrameShape(QFrame::NoFrame);
    legend->setFocusPolicy(Qt::NoFocus);
    legend->setWidgetResizable(true);
    legend->setWidget(legendCorner_);
    for (QWidget* const background : {legend->viewport(), legendCorner_})
      background->setAutoFillBackground(false);
    AddTab(*tabs, Caption(TextId::TabLook, session_.language), {displays_, legend});
    columns->addWidget(tabs);
    if (fold == Fold::TabsAlone) {
      AddTab(*tabs, Caption(TextId::TabPlots, session_.language), {graphs_});
      return body;
    }
  } else {
    auto* const choosers = new QVBoxLayout;
    choosers->addWidget(displays_);
    choosers->addWidget(legendCorner_);
    choosers->addStretch(1);
    columns->addWidget(entry_, 2);
    columns->addLayout(choosers);
  }
  columns->addWidget(graphs_, 5);
  return body;
}

QWidget* frmMsFlexGrid::LegendCorner() {
  auto* const corner = new QWidget(this);
  auto* const row = new QHBoxLayout(corner);
  row->setContentsMargins({});
  legend_->setMinimumWidth(kLegendWidth);
  row->addWidget(legend_);
  row->addStretch(1);
  return corner;
}

void frmMsFlexGrid::Wire() {
  connect(actions_, &ActionsPanel::Wanted, this, &frmMsFlexGrid::Do);
  connect(entry_, &EntryPanel::Refused, this,
          [this](const Message& refusal) { dialogs_.Show(this, refusal); });
  entry_->Grid().SetAsk([this](const Message& question) {
    return dialogs_.Show(this, question, Buttons::YesNo) == Answer::Yes;
  });
  connect(entry_, &EntryPanel::Edited, this, [this](int place) {
    NoteDraft();
    emit Edited(place);
  });
  connect(displays_, &DisplayPanel::Edited, this, [this] { Announce(Verficar_Valores()); });
  connect(displays_, &DisplayPanel::ShowWanted, this, &frmMsFlexGrid::ShowPlace);
  connect(plots_, &PlotsPanel::Activated, this, &frmMsFlexGrid::TellEmptyPlots);
  connect(plots_, &PlotsPanel::MenuAsked, this, &frmMsFlexGrid::ChartMenu);
}

void frmMsFlexGrid::ShowAtStart() {
  Idiomas(*this, session_.language);
  if (session_.lists.Empty())
    ShowNew();
  else
    Mostrar(1);
  Redraw();
}

void frmMsFlexGrid::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  displays_->NameControls(session_.language);
  actions_->SetLanguage(session_.language);
  entry_->SetLanguage(session_.language);
  Measure();
}

void frmMsFlexGrid::Do(ExperimentAction action) {
  switch (action) {
    case ExperimentAction::Insert:
      return Insert();
    case ExperimentAction::Save:
      return Save();
    case ExperimentAction::Clear:
      return Clear();
    case ExperimentAction::ViewGraphs:
      return GraficoSub();
    case ExperimentAction::GridLines:
      return ToggleGridLines();
    case ExperimentAction::Legend:
      return LegendaSub();
    case ExperimentAction::Delete:
      return Delete();
    case ExperimentAction::NextStep:
      return emit NextStep();
  }
}

void frmMsFlexGrid::Insert() {
  ShowPlace(0);
}

void frmMsFlexGrid::Save() {
  EntryRead entry = entry_->Entry();
  if (entry.refusal) {
    dialogs_.Show(this, entry.refusal->message);
    Reveal(*entry_);
    entry_->GoTo(*entry.refusal);
    return;
  }
  const SaveQuestions ask = AskBeforeSaving(session_.lists, entry.experiment);
  const bool another = PlaceToSave(session_.lists, entry.experiment.number, Shown()) != Shown();
  if (ask.replace &&
      dialogs_.Show(this, *ask.replace, another ? Buttons::NoYes : Buttons::YesNo) != Answer::Yes)
    return;
  if (ask.refusal) {
    dialogs_.Show(this, *ask.refusal);
    return;
  }
  if (dialogs_.Show(this, ask.confirm, Buttons::OkCancel) != Answer::Ok) return;
  Inserir_Experimento(std::move(entry.experiment));
}

void frmMsFlexGrid::Inserir_Experimento(Experiment experiment) {
  const int before = session_.lists.Count();
  DisplayEntry display = DisplayAt(PlaceToSave(session_.lists, experiment.number, Shown()));
  const ExperimentSaved saved =
      SaveExperiment(session_, std::move(experiment), std::move(display), Shown());
  if (saved.place == 0) {
    dialogs_.Show(this, RefuseFullLists());
    return;
  }
  Verficar_Valores();
  Mostrar(saved.place);
  Announce(saved.change);
  if (session_.lists.Count() == before) return;
  if (const auto remark = TellMoreThanNine(session_.lists)) dialogs_.Show(this, *remark);
}

DisplayEntry frmMsFlexGrid::DisplayAt(int place) const {
  if (place <= DisplayPanel::kRows) return displays_->Display(place);
  return place <= session_.lists.Count() ? session_.lists.Display(place) : UsualDisplay(place);
}

Change frmMsFlexGrid::Verficar_Valores() {
  std::vector<DisplayEntry> chosen;
  for (int place = 1; place <= DisplayPanel::kRows; ++place)
    chosen.push_back(displays_->Display(place));
  return TakeDisplays(session_, chosen);
}

void frmMsFlexGrid::ResetNextDisplays() {
  for (int place = session_.lists.Count() + 1; place <= DisplayPanel::kRows; ++place)
    displays_->SetDisplay(place, UsualDisplay(place));
}

void frmMsFlexGrid::Clear() {
  entry_->Clear();
  session_.draft.shown = 0;
  NoteDraft();
  ShowLists();
  emit Edited(0);
  dialogs_.Show(this, {{TextId::ClickDelete}, TextId::Information, Icon::Information});
}

void frmMsFlexGrid::Delete() {
  const int place = actions_->PlaceToDelete();
  if (place >= 1 && place <= session_.lists.Count()) {
    const auto question = AskBeforeDeleting(session_, place);
    if (question && dialogs_.Show(this, *question, Buttons::NoYes) != Answer::Yes) return;
  }
  const ExperimentDeleted deleted = DeleteExperiment(session_, place);
  if (deleted.refusal) {
    dialogs_.Show(this, *deleted.refusal);
    actions_->GoToPlace();
    return;
  }
  ResetNextDisplays();
  actions_->EndDeleting();
  ShowAfterDeleting(place);
  Announce(deleted.change);
}

void frmMsFlexGrid::ShowAfterDeleting(int place) {
  const bool wasShown = Shown() == place;
  if (Shown() > place) --session_.draft.shown;
  if (session_.EntryUnsaved() && !wasShown) return;
  if (session_.lists.Empty())
    ShowNew();
  else
    Mostrar(wasShown || Shown() == 0 ? std::min(place, session_.lists.Count()) : Shown());
}

void frmMsFlexGrid::Mostrar(int place) {
  const Experiment& experiment = session_.lists.At(place);
  entry_->SetEntry(HeaderOf(experiment, session_.separator),
                   RowsOf(experiment, session_.separator));
  session_.draft.shown = place;
  NoteDraft();
  ShowLists();
}

void frmMsFlexGrid::ShowNew() {
  ExperimentHeader header;
  if (const int number = NextFreeNumber(session_.lists); number != 0)
    header.number = std::to_string(number);
  entry_->SetEntry(header, std::vector<GridRow>(1));
  session_.draft.shown = 0;
  NoteDraft();
  ShowLists();
  entry_->Grid().GoTo({0, 0});
}

void frmMsFlexGrid::NoteDraft() {
  const int shown = Shown();
  session_.draft = entry_->Draft();
  session_.draft.shown = shown;
}

void frmMsFlexGrid::ShowPlace(int place) {
  const bool unsaved = session_.EntryUnsaved();
  if (!MayLeave()) return ShowLists();
  if (place == 0) Reveal(*entry_);
  if (place == 0)
    ShowNew();
  else
    Mostrar(place);
  if (unsaved)
    emit Edited(0);
  else
    emit Moved();
}

bool frmMsFlexGrid::MayLeave() {
  if (!session_.EntryUnsaved()) return true;
  return dialogs_.Show(this, {{TextId::AskToGiveUp}, TextId::ExperimentNotSaved, Icon::Question},
                       Buttons::NoYes) == Answer::Yes;
}

void frmMsFlexGrid::OkSub() {
  if (files_.Save()) emit Moved();
}

bool frmMsFlexGrid::cmdAbrirOkSub() {
  if (!MayLeave()) return false;
  const QString file = files_.Choose();
  return !file.isEmpty() && Open(file);
}

bool frmMsFlexGrid::Open(const QString& file) {
  std::optional<ExperimentsFile> read = files_.Read(file);
  if (!read) return false;
  const std::vector<Message> remarks = read->remarks;
  const Change change = TakeExperiments(session_, *std::move(read));
  ResetNextDisplays();
  Mostrar(1);
  Announce(change);
  files_.Tell(remarks);
  return true;
}

void frmMsFlexGrid::GraficoSub() {
  Redraw();
  const std::vector<LegendRow> visible = LegendRows(session_.lists);
  if (visible.empty())
    dialogs_.Show(this, {{TextId::NoGraphSelected, "\n", TextId::CheckVisible},
                         TextId::GraphNotSelected,
                         Icon::Information});
}

void frmMsFlexGrid::TellEmptyPlots() {
  if (session_.lists.Empty()) dialogs_.Show(this, Attention({TextId::NothingToPlot}));
}

void frmMsFlexGrid::ToggleGridLines() {
  Announce(velmora::ToggleGridLines(session_));
}

void frmMsFlexGrid::LegendaSub() {
  legend_->setVisible(legend_->isHidden());
  if (!legend_->isHidden()) Reveal(*legend_);
  Redraw();
}

void frmMsFlexGrid::Announce(const Change& change) {
  Show(change);
  emit Changed(change);
}

void frmMsFlexGrid::Show(const Change& change) {
  if (change.lists) ShowLists();
  if (change.lists || change.curves || change.gridLines) Redraw();
}

void frmMsFlexGrid::ShowRestored() {
  entry_->SetDraft(session_.draft);
  ResetNextDisplays();
  ShowLists();
  Redraw();
}

void frmMsFlexGrid::ShowLists() {
  std::vector<std::int16_t> numbers;
  for (const Experiment& experiment : session_.lists.Experiments())
    numbers.push_back(experiment.number);
  displays_->SetExperiments(numbers, Shown());
  actions_->SetExperiments(numbers);
  const int rows = std::min(session_.lists.Count(), DisplayPanel::kRows);
  for (int place = 1; place <= rows; ++place)
    displays_->SetDisplay(place, session_.lists.Display(place));
}

void frmMsFlexGrid::Redraw() {
  plots_->SetContent(session_.lists, session_.curves, LookOf(session_));
  legend_->SetRows(LegendRows(session_.lists, session_.forPublication));
  actions_->SetShown(session_.gridLines, !legend_->isHidden());
}

void frmMsFlexGrid::Sub_Copiar() {
  entry_->Grid().Copiar();
}

void frmMsFlexGrid::Sub_Recortar() {
  Sub_Copiar();
  Sub_Limpar();
}

void frmMsFlexGrid::Sub_Colar() {
  entry_->Grid().Colar();
}

void frmMsFlexGrid::Sub_Limpar() {
  entry_->Grid().Apagar();
}

}  // namespace velmora
