#include "app/shell/MDIForm1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QTimer>

#include "app/charts/PlotsPanel.h"
#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/settings/frmParametros.h"
#include "app/shell/ChartCommands.h"
#include "app/shell/FileCommands.h"
#include "app/shell/HelpDocument.h"
#include "app/shell/History.h"
#include "app/shell/MainMenu.h"
#include "app/shell/RecoveryKeeper.h"
#include "app/shell/WorkWindows.h"
#include "app/shell/frmSobre.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/ProgramFolder.h"
#include "session/Unsaved.h"

namespace velmora {
namespace {

constexpr const char* kProgramName = "Velmora";
constexpr QSize kUsualSize(1280, 800);
constexpr double kShareOfScreen = 0.85;  // each way, of one that is larger
constexpr int kTitleBar = 60;            // pixels, at most

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

FramePlace PlaceOn(const QSize& room) {
  // The usual size with its title bar would reach beyond a small screen.
  const bool small =
      room.width() <= kUsualSize.width() || room.height() <= kUsualSize.height() + kTitleBar;
  return {(kShareOfScreen * room).expandedTo(kUsualSize).boundedTo(room), small};
}

/// Runs routines of `target` from the menu items with these names.
template <typename Target>
void MDIForm1::Bind(Target* target,
                    std::initializer_list<std::pair<const char*, void (Target::*)()>> commands) {
  for (const auto& [item, run] : commands)
    connect(&menu_->Item(item), &QAction::triggered, target,
            [target, run = run] { (target->*run)(); });
}

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
  windows_ = new WorkWindows(session_, dialogs_, this);
  menu_ = new MainMenu(*this);
  history_ = new History(session_, this);
  files_ = new FileCommands(session_, dialogs_, *windows_, this);
  charts_ = new ChartCommands(session_, dialogs_, *windows_, menu_->Menu("mnuPopup"), this);
}

void MDIForm1::LayOut() {
  setCentralWidget(windows_);
  setAcceptDrops(true);
  qApp->installEventFilter(this);
  const auto [size, maximised] = PlaceOn(screen()->availableSize());
  resize(size);
  if (maximised) setWindowState(Qt::WindowMaximized);
}

void MDIForm1::Wire() {
  // clang-format off
  Bind(this, {{"mnuExcluir", &MDIForm1::ClearAll},
              {"mnuVoltar", &MDIForm1::Undo},
              {"mnuRefazer", &MDIForm1::Redo},
              {"mnuExportarDados", &MDIForm1::ExportCurves},
              {"mnuParED", &MDIForm1::ShowSettings},
              {"mnuSobre", &MDIForm1::ShowAbout},
              {"mnuTopAjuda", &MDIForm1::ShowHelp}});
  Bind(windows_, {{"mnuNovo", &WorkWindows::ShowExperiments},
                  {"mnuBatelada", &WorkWindows::ShowCultivation}});
  Bind(files_, {{"mnuAbrirExp", &FileCommands::OpenExperiments},
                {"mnuACondBat", &FileCommands::OpenConditions},
                {"mnuSalvarExp", &FileCommands::SaveExperiments},
                {"mnuSCondBat", &FileCommands::SaveConditions}});
  Bind(charts_, {{"mnuZoom", &ChartCommands::OpenZoom},
                 {"mnuCopiar", &ChartCommands::CopyChart},
                 {"mnuLegenda", &ChartCommands::ToggleLegend},
                 {"mnuLeg", &ChartCommands::ToggleLegend},
                 {"mnuLinhaGrade", &ChartCommands::ToggleGridLines},
                 {"mnuPublicacao", &ChartCommands::TogglePublication}});
  // clang-format on
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
  connect(charts_, &ChartCommands::Changed, this, &MDIForm1::Show);
}

void MDIForm1::ShowAtStart() {
  TranslateToolkit();
  Idiomas(*this, session_.language);
  LoadWindows();
  history_->Amend();
}

void MDIForm1::LoadWindows() {
  windows_->Load();
  const auto* const experiments = &windows_->Experiments();
  const auto* const cultivation = &windows_->Cultivation();
  connect(experiments, &frmMsFlexGrid::Changed, this, &MDIForm1::Show);
  connect(experiments, &frmMsFlexGrid::ChartMenu, charts_, &ChartCommands::ShowMenu);
  connect(experiments, &frmMsFlexGrid::Edited, this, [this](int place) {
    history_->Step(place);
    RefreshMenus();
  });
  connect(experiments, &frmMsFlexGrid::Moved, this, [this] {
    history_->Amend();
    RefreshMenus();
  });
  connect(cultivation, &frmCultBatelada::Edited, this, &MDIForm1::RefreshMenus);
  connect(cultivation, &frmCultBatelada::Changed, this, &MDIForm1::Show);
  connect(cultivation, &frmCultBatelada::RunningChanged, this, &MDIForm1::RefreshMenus);
  connect(cultivation, &frmCultBatelada::ChartMenu, charts_, &ChartCommands::ShowMenu);
  for (const PlotsPanel* const plots : windows_->findChildren<PlotsPanel*>())
    connect(plots, &PlotsPanel::EnlargementAsked, charts_, &ChartCommands::Enlarge);
  windows_->ShowExperiments();
  RefreshMenus();
}

void MDIForm1::OpenFiles(const QStringList& files) {
  files_->OpenFiles(files);
}

void MDIForm1::ClearAll() {
  // The search that is going runs inside the window that would be unloaded.
  if (RunGoing()) return;
  const auto question = AskBeforeClearing(files_->WhatIsUnsaved());
  if (question && !Confirmed(*question, Buttons::NoYes)) return;
  history_->Amend();
  const Change change = velmora::ClearAll(session_);
  LoadWindows();
  Show(change);
}

void MDIForm1::ExportCurves() {
  windows_->Cultivation().ExportarDados();
}

void MDIForm1::Show(const Change& change) {
  // Curves and results come of what is stored, and go and come back with it.
  if (change.lists || change.conditions)
    history_->Step();
  else
    history_->Amend();
  RefreshMenus();
  if (!change.lists && !change.curves) return;
  charts_->RefreshEnlarged();
}

void MDIForm1::ShowRestored(const Change& change) {
  windows_->Experiments().ShowRestored();
  windows_->Cultivation().Show(change);
  RefreshMenus();
  charts_->RefreshEnlarged();
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
  if (!windows_->CultivationActive()) (windows_->Experiments().*edit)();
}

void MDIForm1::ShowUnsaved() {
  const Unsaved unsaved = files_->WhatIsUnsaved();
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

void MDIForm1::ShowSettings() {
  ShowSmallWindow(settingsWindow_, session_, dialogs_, this);
}

void MDIForm1::ShowAbout() {
  ShowSmallWindow(aboutWindow_, session_, this);
}

void MDIForm1::ShowHelp() {
  OpenGuide(ProgramFolder(), session_.language, dialogs_, this);
}

void MDIForm1::SwitchLanguage(Language language) {
  session_.language = language;
  TranslateToolkit();
  RefreshMenus();
  QWidgetList loaded = QApplication::topLevelWidgets();
  loaded << &windows_->Experiments() << &windows_->Cultivation();
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

bool MDIForm1::RunGoing() const {
  return windows_->Cultivation().Running();
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
  windows_->Experiments().setEnabled(idle);
  menu_->Item("mnuLinhaGrade").setChecked(session_.gridLines);
  menu_->Item("mnuPublicacao").setChecked(session_.forPublication);
  menu_->Item("mnuPort").setChecked(session_.language == Language::Portuguese);
  menu_->Item("mnuIngles").setChecked(session_.language == Language::English);
  ShowUnsaved();
}

// A text box would take a file's name for a text.
bool MDIForm1::eventFilter(QObject* watched, QEvent* event) {
  const auto* const target = qobject_cast<const QWidget*>(watched);
  if (target == nullptr || target->window() != this) return false;
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return TakesFiles(*static_cast<QDropEvent*>(event));
    default:
      return false;
  }
}

bool MDIForm1::TakesFiles(QDropEvent& event) {
  QStringList files;
  for (const QUrl& url : event.mimeData()->urls())
    if (url.isLocalFile()) files.append(url.toLocalFile());
  if (files.isEmpty()) return false;
  event.setAccepted(!RunGoing());
  if (RunGoing()) return true;
  event.acceptProposedAction();
  // The program from which they come waits for the event's end, and not for answers.
  if (event.type() == QEvent::Drop)
    QTimer::singleShot(0, this, [this, files] { files_->OpenFiles(files); });
  return true;
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
  if (!event->spontaneous()) windows_->ShowActive();
}

void MDIForm1::closeEvent(QCloseEvent* event) {
  const Unsaved unsaved = files_->WhatIsUnsaved();
  const Answer answer = dialogs_.Show(this, AskBeforeQuitting(unsaved),
                                      unsaved.Any() ? Buttons::SaveYesNo : Buttons::YesNo);
  if (answer != Answer::Yes && (answer != Answer::Save || !files_->SaveAll())) {
    event->ignore();
    return;
  }
  if (RunGoing()) windows_->Cultivation().StopRun();
  if (keeper_ != nullptr) keeper_->End();
  event->accept();
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
  if (!change) {
    const std::string aside = file.SetAside();
    if (wanted)
      dialogs_.Show(this, {{TextId::FileError}, TextId::Error, Icon::Critical}, Buttons::Ok,
                    ShownPath(aside));
    return;
  }
  history_->Step();
  ShowRestored(*change);
}

}  // namespace velmora
