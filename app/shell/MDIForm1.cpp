#include "app/shell/MDIForm1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QScreen>

#include "app/charts/ChartView.h"
#include "app/charts/PlotsPanel.h"
#include "app/charts/frmZoom.h"
#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/settings/frmParametros.h"
#include "app/shell/ChildFrame.h"
#include "app/shell/HelpDocument.h"
#include "app/shell/History.h"
#include "app/shell/MainMenu.h"
#include "app/shell/RecoveryKeeper.h"
#include "app/shell/frmSobre.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/ProgramFolder.h"
#include "data/ExperimentFile.h"
#include "session/Session.h"

namespace velmora {
namespace {

constexpr const char* kProgramName = "Velmora";
constexpr QSize kUsualSize(1280, 800);
constexpr int kTitleBar = 60;  // pixels, at most

/// Shows the small window, which lives until it is closed; an open one comes to the front.
template <typename Window, typename... Arguments>
void ShowSmallWindow(QPointer<Window>& window, Arguments&&... arguments) {
  if (window.isNull()) {
    window = new Window(arguments...);
    window->setAttribute(Qt::WA_DeleteOnClose);
  }
  window->show();
  window->raise();
  window->activateWindow();
}

}  // namespace

MDIForm1::MDIForm1(Session& session, Dialogs& dialogs, QWidget* parent)
    : QMainWindow(parent),
      session_(session),
      dialogs_(dialogs),
      title_(QLatin1StringView(kProgramName)) {
  setObjectName(QStringLiteral("MDIForm1"));
  BuildPanels();
  LayOut();
  Wire();
  ShowAtStart();
}

void MDIForm1::BuildPanels() {
  area_ = new QMdiArea(this);
  area_->setObjectName(QStringLiteral("mdiArea"));
  area_->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
  menu_ = new MainMenu(*this);
  history_ = new History(session_, this);
}

void MDIForm1::LayOut() {
  setCentralWidget(area_);
  setAcceptDrops(true);
  const QSize room = screen()->availableSize();
  resize(kUsualSize.boundedTo(room));
  // The usual size with its title bar would reach beyond a small screen.
  if (room.width() <= kUsualSize.width() || room.height() <= kUsualSize.height() + kTitleBar)
    setWindowState(Qt::WindowMaximized);
}

void MDIForm1::Wire() {
  struct Command {
    const char* item;
    void (MDIForm1::*run)();
  };
  constexpr Command kCommands[] = {{"mnuNovo", &MDIForm1::ShowExperiments},
                                   {"mnuAbrirExp", &MDIForm1::OpenExperiments},
                                   {"mnuACondBat", &MDIForm1::OpenConditions},
                                   {"mnuSalvarExp", &MDIForm1::SaveExperiments},
                                   {"mnuSCondBat", &MDIForm1::SaveConditions},
                                   {"mnuExcluir", &MDIForm1::ClearAll},
                                   {"mnuVoltar", &MDIForm1::Undo},
                                   {"mnuRefazer", &MDIForm1::Redo},
                                   {"mnuExportarDados", &MDIForm1::ExportCurves},
                                   {"mnuZoom", &MDIForm1::OpenZoom},
                                   {"mnuCopiar", &MDIForm1::CopyChart},
                                   {"mnuLegenda", &MDIForm1::ToggleLegend},
                                   {"mnuLeg", &MDIForm1::ToggleLegend},
                                   {"mnuLinhaGrade", &MDIForm1::ToggleGridLines},
                                   {"mnuPublicacao", &MDIForm1::TogglePublication},
                                   {"mnuBatelada", &MDIForm1::ShowCultivation},
                                   {"mnuParED", &MDIForm1::ShowSettings},
                                   {"mnuSobre", &MDIForm1::ShowAbout},
                                   {"mnuTopAjuda", &MDIForm1::ShowHelp}};
  for (const Command& command : kCommands)
    connect(&menu_->Item(command.item), &QAction::triggered, this,
            [this, run = command.run] { (this->*run)(); });
  constexpr std::pair<const char*, void (frmMsFlexGrid::*)()> kCellCommands[] = {
      {"mnuRecortar", &frmMsFlexGrid::Sub_Recortar},
      {"mnuCopiarCelulas", &frmMsFlexGrid::Sub_Copiar},
      {"mnuColar", &frmMsFlexGrid::Sub_Colar},
      {"mnuLimpar", &frmMsFlexGrid::Sub_Limpar}};
  for (const auto& [item, edit] : kCellCommands)
    connect(&menu_->Item(item), &QAction::triggered, this,
            [this, edit = edit] { EditCells(edit); });
  connect(history_, &History::Restored, this, &MDIForm1::ShowRestored);
  connect(&menu_->Item("mnuSair"), &QAction::triggered, this, &MDIForm1::close);
  connect(&menu_->Item("mnuPort"), &QAction::triggered, this,
          [this] { SwitchLanguage(Language::Portuguese); });
  connect(&menu_->Item("mnuIngles"), &QAction::triggered, this,
          [this] { SwitchLanguage(Language::English); });
  connect(menu_, &MainMenu::Opening, this, &MDIForm1::RefreshMenus);
  connect(area_, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* active) {
    if (const auto* const frame = qobject_cast<ChildFrame*>(active))
      session_.activeWindow = frame->Window().objectName().toStdString();
  });
}

void MDIForm1::ShowAtStart() {
  TranslateToolkit();
  Idiomas(*this, session_.language);
  LoadChildren();
}

void MDIForm1::LoadChildren() {
  experiments_ = new frmMsFlexGrid(session_, dialogs_);
  cultivation_ = new frmCultBatelada(session_, dialogs_);
  experimentsFrame_ = Frame(experiments_);
  cultivationFrame_ = Frame(cultivation_);
  connect(experiments_, &frmMsFlexGrid::Changed, cultivation_, &frmCultBatelada::Show);
  connect(experiments_, &frmMsFlexGrid::Changed, this, &MDIForm1::Show);
  connect(experiments_, &frmMsFlexGrid::NextStep, this, &MDIForm1::ShowCultivation);
  connect(experiments_, &frmMsFlexGrid::ChartMenu, this, &MDIForm1::ShowChartMenu);
  connect(experiments_, &frmMsFlexGrid::Edited, this, [this](int place) {
    history_->Step(place);
    RefreshMenus();
  });
  connect(experiments_, &frmMsFlexGrid::Moved, this, [this] {
    history_->Amend();
    RefreshMenus();
  });
  connect(cultivation_, &frmCultBatelada::Edited, this, &MDIForm1::RefreshMenus);
  connect(cultivation_, &frmCultBatelada::Changed, experiments_, &frmMsFlexGrid::Show);
  connect(cultivation_, &frmCultBatelada::Changed, this, &MDIForm1::Show);
  connect(cultivation_, &frmCultBatelada::RunningChanged, this, &MDIForm1::RefreshMenus);
  connect(cultivation_, &frmCultBatelada::BackToExperiments, this, &MDIForm1::ShowExperiments);
  connect(cultivation_, &frmCultBatelada::ChartMenu, this, &MDIForm1::ShowChartMenu);
  for (QWidget* const window :
       {static_cast<QWidget*>(experiments_), static_cast<QWidget*>(cultivation_)})
    for (const PlotsPanel* const plots : window->findChildren<PlotsPanel*>())
      connect(plots, &PlotsPanel::EnlargementAsked, this, &MDIForm1::Enlarge);
  ShowExperiments();
  RefreshMenus();
}

ChildFrame* MDIForm1::Frame(QWidget* child) {
  auto* const frame = new ChildFrame(child);
  area_->addSubWindow(frame);
  // addSubWindow sets it; only clearing the lists unloads a work window.
  frame->setAttribute(Qt::WA_DeleteOnClose, false);
  return frame;
}

void MDIForm1::UnloadChildren() {
  for (ChildFrame* const frame : {experimentsFrame_, cultivationFrame_}) {
    area_->removeSubWindow(frame);
    delete frame;
  }
}

void MDIForm1::Bring(ChildFrame* front, ChildFrame* back) {
  back->PutAway();
  area_->setActiveSubWindow(front);
  front->BringUp();
}

void MDIForm1::ShowExperiments() {
  Bring(experimentsFrame_, cultivationFrame_);
}

void MDIForm1::ShowCultivation() {
  Bring(cultivationFrame_, experimentsFrame_);
}

bool MDIForm1::MayOpenExperiments() {
  const auto question = AskBeforeOpeningExperiments(session_);
  return !question || Confirmed(*question, WhatIsUnsaved().Any() ? Buttons::NoYes : Buttons::YesNo);
}

void MDIForm1::OpenExperiments() {
  if (MayOpenExperiments() && experiments_->cmdAbrirOkSub()) ShowOpenedExperiments();
}

void MDIForm1::ShowOpenedExperiments() {
  if (!session_.lists.Empty()) experiments_->GraficoSub();
  ShowExperiments();
}

void MDIForm1::OpenFiles(const QStringList& files) {
  QStringList conditions;
  for (const QString& file : files) {
    if (HoldsConditions(LocalPath(file)))
      conditions.append(file);
    else if (MayOpenExperiments() && experiments_->Open(file))
      ShowOpenedExperiments();
  }
  for (const QString& file : conditions) {
    if (session_.lists.Empty()) {
      dialogs_.Show(this, Attention({TextId::ExperimentsFirst}));
      OpenExperiments();
    }
    if (session_.lists.Empty()) return;
    cultivation_->Open(file);
    ShowCultivation();
  }
}

void MDIForm1::OpenConditions() {
  const auto question = AskBeforeOpeningConditions(session_);
  const Unsaved unsaved = WhatIsUnsaved();
  const bool loses = unsaved.conditions || unsaved.form;
  if (!question || Confirmed(*question, loses ? Buttons::NoYes : Buttons::YesNo))
    cultivation_->AbrirCondBat();
}

void MDIForm1::SaveExperiments() {
  experiments_->OkSub();
}

void MDIForm1::SaveConditions() {
  cultivation_->SalvarArqCondBat();
}

void MDIForm1::ClearAll() {
  // The search that is going runs inside the window that would be unloaded.
  if (RunGoing()) return;
  const auto question = AskBeforeClearing(WhatIsUnsaved());
  if (question && !Confirmed(*question, Buttons::NoYes)) return;
  history_->Amend();
  const Change change = velmora::ClearAll(session_);
  UnloadChildren();
  LoadChildren();
  Show(change);
}

void MDIForm1::ExportCurves() {
  cultivation_->ExportarDados();
}

void MDIForm1::Enlarge(const QString& chart) {
  session_.clickedChart = chart.toStdString();
  if (!session_.lists.Empty()) OpenZoom();
}

void MDIForm1::OpenZoom() {
  GraficoZoomSub(session_, dialogs_, this);
}

void MDIForm1::CopyChart() {
  const QWidget* const window = CultivationActive() ? static_cast<QWidget*>(cultivation_)
                                                    : static_cast<QWidget*>(experiments_);
  auto* const chart = window->findChild<ChartView*>(QString::fromStdString(session_.clickedChart));
  if (chart != nullptr) CopyPicture(PictureOf(*chart), DrawingOf(chart->Content(), chart->size()));
}

void MDIForm1::ToggleLegend() {
  if (CultivationActive())
    cultivation_->LegendaSub();
  else
    experiments_->LegendaSub();
}

void MDIForm1::ToggleGridLines() {
  const Change change = velmora::ToggleGridLines(session_);
  cultivation_->Show(change);
  experiments_->Show(change);
  Show(change);
  if (!CultivationActive()) experiments_->GraficoSub();
}

void MDIForm1::TogglePublication() {
  const Change change = velmora::TogglePublication(session_);
  cultivation_->Show(change);
  experiments_->Show(change);
  Show(change);
}

void MDIForm1::Show(const Change& change) {
  // Curves and results come of what is stored, and go and come back with it.
  if (change.lists || change.conditions)
    history_->Step();
  else
    history_->Amend();
  RefreshMenus();
  if (!change.lists && !change.curves) return;
  for (frmZoom* const enlarged : findChildren<frmZoom*>()) enlarged->ShowSession();
}

void MDIForm1::ShowRestored(const Change& change) {
  experiments_->ShowRestored();
  cultivation_->Show(change);
  RefreshMenus();
  for (frmZoom* const enlarged : findChildren<frmZoom*>()) enlarged->ShowSession();
}

void MDIForm1::Undo() {
  history_->Undo();
  RefreshMenus();
}

void MDIForm1::Redo() {
  history_->Redo();
  RefreshMenus();
}

void MDIForm1::EditCells(void (frmMsFlexGrid::*edit)()) {
  if (!CultivationActive()) (experiments_->*edit)();
}

Unsaved MDIForm1::WhatIsUnsaved() const {
  return UnsavedOf(session_, cultivation_->EntryChanged());
}

void MDIForm1::ShowUnsaved() {
  const Unsaved unsaved = WhatIsUnsaved();
  QStringList names;
  for (const auto& [path, changed] :
       {std::pair{session_.experimentsFile, unsaved.experiments > 0 || unsaved.entry},
        {session_.conditionsFile, unsaved.conditions || unsaved.form}})
    if (!path.empty())
      names << QFileInfo(ShownPath(path)).fileName() + QLatin1StringView(changed ? "*" : "");
  title_ = QLatin1StringView(kProgramName);
  if (!names.isEmpty()) title_ = names.join(QStringLiteral(", ")) + QStringLiteral(" - ") + title_;
  if (unsaved.Any() && !title_.contains(u'*')) title_ += u'*';
  setWindowTitle(title_);
  if (keeper_ != nullptr) keeper_->Note(unsaved.Any());
}

void MDIForm1::ShowChartMenu(const QString& chart, const QPoint& globalPosition) {
  session_.clickedChart = chart.toStdString();
  menu_->Menu("mnuPopup").popup(globalPosition);
}

void MDIForm1::ShowSettings() {
  ShowSmallWindow(settingsWindow_, session_, dialogs_, this);
}

void MDIForm1::ShowAbout() {
  ShowSmallWindow(aboutWindow_, session_, this);
}

void MDIForm1::ShowHelp() {
  OpenHelpDocument(ProgramFolder(), session_.language);
}

void MDIForm1::SwitchLanguage(Language language) {
  session_.language = language;
  TranslateToolkit();
  RefreshMenus();
  QWidgetList loaded = QApplication::topLevelWidgets();
  loaded << experiments_ << cultivation_;
  Idiomas(*this, language);
  for (QWidget* const window : loaded)
    if (window != this) Idiomas(*window, language);
}

void MDIForm1::TranslateToolkit() {
  QCoreApplication::removeTranslator(&toolkitTexts_);
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (session_.language == Language::Portuguese &&
      toolkitTexts_.load(QStringLiteral("qtbase_pt_BR"), folder))
    QCoreApplication::installTranslator(&toolkitTexts_);
}

bool MDIForm1::CultivationActive() const {
  return session_.activeWindow == kCultivationWindow;
}

bool MDIForm1::RunGoing() const {
  return cultivation_->Running();
}

bool MDIForm1::Confirmed(const Message& question, Buttons buttons) {
  return dialogs_.Show(this, question, buttons) == Answer::Yes;
}

void MDIForm1::RefreshMenus() {
  const bool experiments = !session_.lists.Empty();
  const bool conditions = session_.conditions.SavedCount() > 0;
  const bool idle = !RunGoing();
  const std::pair<const char*, bool> enabled[] = {
      {"mnuAbrirExp", idle},
      {"mnuAbrirCond", experiments && idle},
      {"mnuACondBat", experiments && idle},
      {"mnuSalvarExp", experiments},
      {"mnuSalvarCond", conditions},
      {"mnuExcluir", (experiments || conditions) && idle},
      {"mnuExportarDados", session_.CurvesPresent()},
      {"mnuVoltar", history_->CanUndo() && idle},
      {"mnuRefazer", history_->CanRedo() && idle},
      {"mnuEditar", experiments}};
  for (const auto& [item, on] : enabled) menu_->Item(item).setEnabled(on);
  experiments_->setEnabled(idle);
  menu_->Item("mnuLinhaGrade").setChecked(session_.gridLines);
  menu_->Item("mnuPublicacao").setChecked(session_.forPublication);
  menu_->Item("mnuPort").setChecked(session_.language == Language::Portuguese);
  menu_->Item("mnuIngles").setChecked(session_.language == Language::English);
  ShowUnsaved();
}

void MDIForm1::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && !RunGoing()) event->acceptProposedAction();
}

void MDIForm1::dropEvent(QDropEvent* event) {
  QStringList files;
  for (const QUrl& url : event->mimeData()->urls())
    if (url.isLocalFile()) files.append(url.toLocalFile());
  event->acceptProposedAction();
  OpenFiles(files);
}

void MDIForm1::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // A maximised child would write its own title behind the program's.
  if (event->type() == QEvent::LanguageChange) menu_->SetLanguage(session_.language);
  if (event->type() == QEvent::WindowTitleChange && windowTitle() != title_) setWindowTitle(title_);
}

void MDIForm1::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  // Only now can a child become active; left alone, the area would choose the minimised one.
  if (!event->spontaneous())
    Bring(CultivationActive() ? cultivationFrame_ : experimentsFrame_,
          CultivationActive() ? experimentsFrame_ : cultivationFrame_);
}

void MDIForm1::closeEvent(QCloseEvent* event) {
  const Unsaved unsaved = WhatIsUnsaved();
  const Answer answer = dialogs_.Show(this, AskBeforeQuitting(unsaved),
                                      unsaved.Any() ? Buttons::SaveYesNo : Buttons::YesNo);
  if (answer != Answer::Yes && (answer != Answer::Save || !SaveAll())) {
    event->ignore();
    return;
  }
  if (RunGoing()) cultivation_->StopRun();
  if (keeper_ != nullptr) keeper_->End();
  event->accept();
}

bool MDIForm1::SaveAll() {
  if (WhatIsUnsaved().entry) experiments_->Save();
  if (WhatIsUnsaved().form) cultivation_->SalvarCondCult();
  const Unsaved unsaved = WhatIsUnsaved();
  if (unsaved.entry || unsaved.form) return false;
  if (unsaved.experiments > 0) experiments_->OkSub();
  if (unsaved.conditions) {
    // Only from their own window are they written so that they can be read again.
    ShowCultivation();
    cultivation_->SalvarArqCondBat();
  }
  return !WhatIsUnsaved().Any();
}

void MDIForm1::KeepRecovery(RecoveryFile& file) {
  OfferRecovery(file);
  keeper_ = new RecoveryKeeper(session_, file, this);
  connect(keeper_, &RecoveryKeeper::Failed, this,
          [this](const FileFault& fault) { dialogs_.TellFault(this, fault); });
  ShowUnsaved();
}

void MDIForm1::OfferRecovery(RecoveryFile& file) {
  const std::optional<std::string> left = file.Left();
  if (!left) return;
  const bool wanted = Confirmed(Attention({TextId::AskToRecover}, Icon::Question));
  const std::optional<Change> change = wanted ? Recover(session_, *left) : std::nullopt;
  if (!change) return file.SetAside();
  history_->Step();
  ShowRestored(*change);
}

}  // namespace velmora
