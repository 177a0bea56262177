// The start window, the frame with its menus, the dialogs and the guide, by keys and mouse.
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTextEdit>
#include <chrono>
#include <filesystem>

#include "app/charts/ChartView.h"
#include "app/charts/frmZoom.h"
#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/shell/HelpDocument.h"
#include "app/shell/MDIForm1.h"
#include "app/shell/RecoveryKeeper.h"
#include "app/shell/frmSplash.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/ProgramFolder.h"
#include "data/ExperimentFile.h"
#include "session/Recovery.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

using test::Child;

constexpr Language kLanguages[] = {Language::English, Language::Portuguese};

/// The program from its start window on.
class Shell : public testing::Test {
 protected:
  void Start(Language language) {
    frame.reset();
    session = Session();
    frmSplash start(session);
    QObject::connect(&start, &frmSplash::Confirmed, &start,
                     [this] { frame = std::make_unique<MDIForm1>(session, dialogs); });
    test::ShowActive(start);
    EXPECT_EQ(session.language, Language::Portuguese);
    EXPECT_TRUE(Child<QPushButton>(start, "cmdOk")->hasFocus());
    if (language == Language::English)
      QTest::keyClick(Child<QWidget>(start, "optIdioma(0)"), Qt::Key_Space);
    EXPECT_EQ(Child<QLabel>(start, "lblversao")->text(), Caption(TextId::Version, language));
    EXPECT_EQ(Child<QPushButton>(start, "cmdOk")->text(), Caption(TextId::Start, language));
    QTest::keyClick(start.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(start.isVisible());
    ASSERT_NE(frame, nullptr);
    test::ShowActive(*frame);
  }

  QAction& Item(const char* name) { return *Child<QAction>(*frame, name); }
  frmMsFlexGrid& Experiments() { return *frame->findChild<frmMsFlexGrid*>(); }
  frmCultBatelada& Cultivation() { return *frame->findChild<frmCultBatelada*>(); }
  void Press(Qt::Key key) { QTest::keyClick(frame.get(), key, Qt::ControlModifier); }

  /// Experiments that the windows learn of by opening a file of them.
  void Open(int count) {
    ExperimentLists lists;
    for (int i = 1; i <= count; ++i)
      lists.Append({static_cast<std::int16_t>(i), "", {0, 5}, {1, 2}, {9, 3}, {0, 1}, 5, true}, {});
    const std::string path = folder / "some.abr";
    ASSERT_FALSE(WriteExperiments(lists, path));
    dialogs.files.push_back(QString::fromStdString(path));
    Item("mnuAbrirExp").trigger();
    ASSERT_EQ(session.lists.Count(), count);
  }

  const TemporaryFolder folder;
  Session session;
  ScriptedDialogs dialogs{session};
  std::unique_ptr<MDIForm1> frame;
};

/// The menu tree as text: caption, what is not usual of its state ("-" disabled, "#" hidden, "o"
/// unchecked, "x" checked), shortcut; the items of a menu in braces.
QString MenuText(const QList<QAction*>& items) {
  QString text;
  for (const QAction* const item : items) {
    text += item->isSeparator() ? QStringLiteral("---") : item->text();
    if (item->isCheckable()) text += QLatin1Char(item->isChecked() ? 'x' : 'o');
    if (!item->isVisible())
      text += QLatin1Char('#');
    else if (!item->isEnabled())
      text += QLatin1Char('-');
    text += item->shortcut().toString();
    if (const auto* const menu = item->menu<QMenu*>())
      text += QStringLiteral("{ ") + MenuText(menu->actions()) + QLatin1Char('}');
    text += QLatin1Char(' ');
  }
  return text;
}

TEST_F(Shell, StartsWithItsMenusInBothLanguages) {
  for (const Language language : kLanguages) {
    Start(language);
    EXPECT_EQ(frame->windowTitle(), QStringLiteral("Velmora"));
    const bool english = language == Language::English;
    EXPECT_EQ(Item("mnuPort").isChecked(), !english);
    EXPECT_EQ(Item("mnuIngles").isChecked(), english);
    Press(Qt::Key_E);
    EXPECT_TRUE(Child<QWidget>(Experiments(), "MSFlexGrid1")->hasFocus());
    EXPECT_EQ(
        MenuText(frame->menuBar()->actions()).toStdString(),
        "&File{ &Insert Open{ &Experiments Cultivation con&ditions-{ Batch- Fed batch# } } "
        "Save{ Experiment&s- Cultivati&on conditions-{ Batch Fed batch# } } Delete-Ctrl+X "
        "Export{ Data (Clipboard)-Ctrl+D } --- ExitCtrl+S } "
        "Popup Menu#{ Zoom Copy Legend } &Editar#{ DesfazerCtrl+Z } "
        "&Edit{ &Undo-Ctrl+Z &Redo-Ctrl+Y --- Cu&t Copy &Paste C&lear } "
        "Edit &graphic-{ Copy#Ctrl+C LegendCtrl+L Grid linesxCtrl+G For publicationo } "
        "Choo&se cultivation{ BatchCtrl+B Fed batch#Ctrl+A } Fitting &method{ EstimateCtrl+M } "
        "Language{ PortugueseoCtrl+P EnglishxCtrl+E } &Help{ About ... Help Topics } ");
    Press(Qt::Key_P);
    EXPECT_EQ(Item("mnuExportarDados").text(), QStringLiteral("Dados (Clipboard)"));
    EXPECT_EQ(Child<QMenu>(*frame, "mnuAjuda")->title(), QStringLiteral("A&juda"));
  }
}

TEST_F(Shell, ShowsOneWorkWindowLargeAndFindsThePutAwayOneAgain) {
  Start(Language::English);
  auto& experiments = *Child<QMdiSubWindow>(*frame, "frmMsFlexGridFrame");
  auto& cultivation = *Child<QMdiSubWindow>(*frame, "frmCultBateladaFrame");
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(experiments.isMaximized() && cultivation.isMinimized());
    EXPECT_EQ(session.activeWindow, "frmMsFlexGrid");
    Press(Qt::Key_B);
    EXPECT_TRUE(cultivation.isMaximized() && experiments.isMinimized());
    EXPECT_EQ(session.activeWindow, "frmCultBatelada");
    EXPECT_EQ(frame->windowTitle(), QStringLiteral("Velmora"));
    cultivation.close();
    EXPECT_TRUE(cultivation.isMinimized() && cultivation.isVisible());
    Press(Qt::Key_B);
    EXPECT_TRUE(cultivation.isMaximized() && Cultivation().isVisible());
    experiments.close();
    Item("mnuNovo").trigger();
    EXPECT_TRUE(Experiments().isVisible());
  }
}

TEST_F(Shell, FoldsAWorkWindowIntoTabsWhereItsColumnsHaveNoRoom) {
  for (const Language language : kLanguages) {
    Start(language);
    Open(1);
    frame->setWindowState(Qt::WindowNoState);
    const auto seen = [](const QWidget& control) {
      return control.visibleRegion().boundingRect().size() == control.size();
    };
    for (const bool cultivation : {false, true}) {
      QWidget& window = cultivation ? static_cast<QWidget&>(Cultivation()) : Experiments();
      if (cultivation) Press(Qt::Key_B);
      frame->resize(1600, 1000);
      QTest::qWait(1);
      EXPECT_EQ(window.findChild<QTabWidget*>(), nullptr);
      frame->resize(853, 500);  // 1280 x 800, scaled by 1.5
      QTest::qWait(1);
      EXPECT_NE(window.findChild<QTabWidget*>(), nullptr);
      for (const char* const chart : {"picCx", "picCs", "picCp"})
        EXPECT_TRUE(seen(*Child<ChartView>(window, chart))) << chart << window.width();
      frame->resize(640, 376);  // 1280 x 800, scaled by 2, less a title bar
      QTest::qWait(1);
      EXPECT_TRUE(seen(window)) << "without scrolling: " << window.objectName().toStdString();
      frame->resize(853, 500);
      QTest::qWait(1);
    }
    EXPECT_TRUE(seen(*Child<QPushButton>(Cultivation(), "cmdAjustar"))) << "without scrolling";
    auto* const box = Child<QLineEdit>(Cultivation(), "txtKs");
    EXPECT_FALSE(box->isVisible());
    test::Click(Cultivation(), "optLM");
    test::Click(Cultivation(), "optPAC");
    test::Click(Cultivation(), "cmdConfirmarModelo");
    Child<QCheckBox>(Cultivation(), "chkKs")->click();
    test::Click(Cultivation(), "cdmSalvar");
    const QWidget* const refused = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<const QLineEdit*>(refused), nullptr) << dialogs.LastText();
    EXPECT_TRUE(seen(*refused)) << "its tab comes to the front";
    Cultivation().findChild<QTabWidget*>()->setCurrentIndex(0);
    test::Click(Cultivation(), "cmdPropor");
    EXPECT_TRUE(seen(*box)) << "and that of what was proposed";
    frame->resize(853, 440);  // with the large letters of some desktops
    QTest::qWait(1);
    for (const char* const always : {"cmdAjustar", "picCp"})
      EXPECT_TRUE(seen(*Child<QWidget>(Cultivation(), always))) << "without scrolling";
    auto* const bound = Child<QLineEdit>(Cultivation(), "txtLimSup(2)");
    Cultivation().Reveal(*bound);
    EXPECT_TRUE(seen(*bound));
  }
}

TEST(Frame, OpensOnMostOfALargeScreenAndOnAllOfASmallOne) {
  struct Row {
    QSize room, size;
    bool maximised;
  };
  for (const auto& [room, size, maximised] : {Row{{3840, 2160}, {3264, 1836}, false},
                                              {{1920, 1080}, {1632, 918}, false},
                                              {{1440, 900}, {1280, 800}, false},
                                              {{1366, 768}, {1280, 768}, true},
                                              {{1280, 800}, {1280, 800}, true},
                                              {{853, 533}, {853, 533}, true}}) {
    const FramePlace place = PlaceOn(room);
    EXPECT_EQ(place.size, size) << room.width();
    EXPECT_EQ(place.maximised, maximised) << room.width();
  }
  Session session;
  ScriptedDialogs dialogs(session);
  const MDIForm1 frame(session, dialogs);
  const FramePlace place = PlaceOn(frame.screen()->availableSize());
  EXPECT_EQ(frame.isMaximized(), place.maximised);
  EXPECT_LE(frame.height(), frame.screen()->availableSize().height());
}

TEST_F(Shell, ScrollsAWorkWindowThatIsLargerThanItsFrame) {
  Start(Language::English);
  Open(1);
  frame->setWindowState(Qt::WindowNoState);
  frame->resize(600, 350);
  Press(Qt::Key_B);
  QTest::qWait(1);
  auto* const last = Child<QPushButton>(Cultivation(), "cmdAjustar");
  for (int i = 0; i < 80 && !last->hasFocus(); ++i)
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  ASSERT_TRUE(last->hasFocus());
  EXPECT_EQ(last->visibleRegion().boundingRect().size(), last->size())
      << "keys bring it into sight";
  EXPECT_GE(Cultivation().width(), Cultivation().minimumSizeHint().width()) << "nothing is cut";
}

TEST_F(Shell, KeepsTheShownWindowActiveAsItsControlWithTheKeyboardIsDisabled) {
  Start(Language::English);
  Open(1);
  Press(Qt::Key_B);
  test::Click(Cultivation(), "optLM");
  auto* const option = Child<QRadioButton>(Cultivation(), "optLM");
  ASSERT_TRUE(option->hasFocus());
  option->parentWidget()->setEnabled(false);
  for (int i = 0; i < 60; ++i) {  // once round, wherever it begins
    QWidget* const at = QApplication::focusWidget();
    QTest::keyClick(at != nullptr ? at : frame.get(), Qt::Key_Tab);
    ASSERT_EQ(session.activeWindow, "frmCultBatelada");
  }
}

TEST_F(Shell, RecaptionsEveryOpenWindowAtOnce) {
  Start(Language::Portuguese);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("7"));
  Press(Qt::Key_E);
  EXPECT_TRUE(Child<QWidget>(Experiments(), "MSFlexGrid1")->hasFocus()) << "out of a cell";
  Press(Qt::Key_M);
  Item("mnuSobre").trigger();
  for (const Language language : kLanguages) {
    Item(language == Language::English ? "mnuIngles" : "mnuPort").trigger();
    const std::pair<const char*, std::int16_t> titles[] = {{"frmParametros", 176},
                                                           {"frmSobre", 187},
                                                           {"frmMsFlexGrid", 149},
                                                           {"frmCultBatelada", 128}};
    for (const auto& [window, title] : titles)
      EXPECT_EQ(Child<QWidget>(*frame, window)->windowTitle(), Caption(TextId{title}, language))
          << window;
    EXPECT_EQ(Child<QLabel>(*frame, "lblTamPop")->text(), Caption(TextId{188}, language));
    EXPECT_EQ(Child<QLabel>(*frame, "lblAreaEstudo")->text(), Caption(TextId{109}, language));
  }
}

TEST_F(Shell, GivesCtrlXToABoxAndElseClearsAll) {
  Start(Language::English);
  Open(2);
  const QPointer<frmMsFlexGrid> before = &Experiments();
  QLineEdit box(frame.get());
  box.show();
  for (const bool readOnly : {true, false}) {
    box.setReadOnly(readOnly);
    box.setText(QStringLiteral("12"));
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box.text().isEmpty(), !readOnly);
    EXPECT_EQ(session.lists.Count(), 2);
  }
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.text(), QStringLiteral("12"));
  QTest::keyClick(&box, Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(session.language, Language::Portuguese);

  session.conditions.At(1).saved = true;
  session.curves[0].points = 100;
  QPushButton elsewhere(frame.get());
  elsewhere.show();
  elsewhere.setFocus();
  dialogs.answers = {Answer::No};
  QTest::keyClick(&elsewhere, Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(session.lists.Count(), 2);
  EXPECT_EQ(dialogs.LastText(),
            "Isto exclui todos os experimentos, condições de cultivo e curvas. Deseja "
            "excluí-los?\n\nNão gravado em arquivo:\n  - as condições de cultivo");
  EXPECT_EQ(dialogs.shown.back().second, Buttons::NoYes);
  dialogs.answers = {Answer::Yes};
  QTest::keyClick(&elsewhere, Qt::Key_X, Qt::ControlModifier);
  EXPECT_TRUE(session.lists.Empty() && session.conditions.SavedCount() == 0);
  EXPECT_FALSE(session.CurvesPresent());
  EXPECT_TRUE(before.isNull());
  EXPECT_TRUE(Experiments().isVisible());
  for (const char* item : {"mnuExcluir", "mnuSalvarExp", "mnuEditar", "mnuAbrirCond"})
    EXPECT_FALSE(Item(item).isEnabled()) << item;
  QTest::keyClick(frame.get(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(session.lists.Count(), 2);
  EXPECT_TRUE(session.CurvesPresent() && session.conditions.SavedCount() == 1);
  EXPECT_EQ(test::TextOf(Experiments(), "txtExp"), "1");
}

TEST_F(Shell, AsksBeforeOpeningOverExistingData) {
  Start(Language::English);
  Open(3);
  EXPECT_TRUE(dialogs.shown.empty());
  for (const char* item :
       {"mnuSalvarExp", "mnuEditar", "mnuAbrirCond", "mnuACondBat", "mnuExcluir"})
    EXPECT_TRUE(Item(item).isEnabled()) << item;
  session.conditions.At(2).saved = true;

  dialogs.answers = {Answer::No};
  Item("mnuAbrirExp").trigger();
  EXPECT_EQ(dialogs.LastText(),
            "To open another set of experiments is necessary to delete the 3 experiments already "
            "added. Would you like to replace them?");
  EXPECT_EQ(dialogs.LastTitle(), "Attention");
  EXPECT_EQ(dialogs.shown.back().second, Buttons::NoYes) << "conditions would be lost";
  dialogs.answers = {Answer::Yes};
  dialogs.files = {QString()};  // no file is chosen after all
  Item("mnuAbrirExp").trigger();
  EXPECT_EQ(session.lists.Count(), 3);
  EXPECT_EQ(session.conditions.SavedCount(), 1);

  Press(Qt::Key_P);
  dialogs.answers = {Answer::No};
  Item("mnuACondBat").trigger();
  EXPECT_EQ(dialogs.LastText(),
            "Para abrir outro conjunto de condições de cultivo é necessário 1 excluir as condições "
            "já adicionadas. Deseja substitui-las?");
  EXPECT_EQ(session.conditions.SavedCount(), 1);
  dialogs.answers = {Answer::Yes};
  Open(1);
  EXPECT_EQ(session.conditions.SavedCount(), 0);
}

TEST_F(Shell, WithdrawsTheCurveOfADeletedOrChangedExperimentEverywhere) {
  Start(Language::English);
  Open(3);
  for (ModelCurve& curve : session.curves) {
    curve.points = 100;
    for (std::size_t i = 0; i < 100; ++i) curve.time[i] = 0.05 * static_cast<double>(i);
  }
  session.clickedChart = "picCs";
  Item("mnuZoom").trigger();
  const auto curves = [](QWidget* window, const char* plot) {
    std::vector<bool> drawn;
    for (const auto& each : Child<ChartView>(*window, plot)->Content().experiments)
      drawn.push_back(!each.curve.empty());
    return drawn;
  };
  auto* const enlarged = Child<QWidget>(*frame, "frmZoom");
  ASSERT_EQ(curves(enlarged, "picZoom"), (std::vector{true, true, true}));

  auto* const place = Child<QLineEdit>(Experiments(), "txtExcluir");
  Child<QRadioButton>(Experiments(), "Option1(1)")->click();
  QTest::keyClicks(place, QStringLiteral("1"));
  QTest::keyClick(place, Qt::Key_Return);
  ASSERT_EQ(session.lists.Count(), 2);
  EXPECT_EQ(curves(enlarged, "picZoom"), (std::vector{true, true}));

  auto* const finalTime = Child<QLineEdit>(Experiments(), "txtTFinal");
  QTest::keyClicks(finalTime, QStringLiteral("6"));
  dialogs.answers = {Answer::Yes, Answer::Ok};
  test::Click(Experiments(), "cmdSalvar");
  EXPECT_EQ(curves(enlarged, "picZoom"), (std::vector{false, true}));
  for (QWidget* const window :
       {static_cast<QWidget*>(&Experiments()), static_cast<QWidget*>(&Cultivation())})
    EXPECT_EQ(curves(window, "picCs"), (std::vector{false, true}));
  EXPECT_TRUE(Item("mnuExportarDados").isEnabled());
}

TEST_F(Shell, TogglesGridLinesAndServesTheClickedChart) {
  Start(Language::English);
  Press(Qt::Key_G);  // nothing to draw: the menu is disabled
  EXPECT_TRUE(session.gridLines);
  Open(1);
  for (const bool shown : {false, true}) {
    Press(Qt::Key_G);
    EXPECT_EQ(session.gridLines, shown);
    EXPECT_EQ(Item("mnuLinhaGrade").isChecked(), shown);
  }
  for (const bool published : {true, false}) {
    Item("mnuPublicacao").trigger();
    EXPECT_EQ(Item("mnuPublicacao").isChecked(), published);
    const auto* const small = Experiments().findChild<ChartView*>(QStringLiteral("picCs"));
    EXPECT_EQ(small->Content().figure.has_value(), published);
  }
  QTest::mouseDClick(Experiments().findChild<ChartView*>(QStringLiteral("picCs")), Qt::LeftButton);
  ASSERT_EQ(frame->findChildren<frmZoom*>().size(), 1);
  frame->findChild<frmZoom*>()->close();
  emit Experiments().ChartMenu(QStringLiteral("picCs"), QPoint(200, 200));
  auto* const popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(popup != nullptr && popup->objectName() == QStringLiteral("mnuPopup"));
  QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(&Item("mnuCopiar")).center());
  EXPECT_EQ(session.clickedChart, "picCs");
  EXPECT_EQ(QApplication::clipboard()->pixmap().size(),
            Child<QWidget>(Experiments(), "picCs")->size());
}

TEST_F(Shell, AsksBeforeItEnds) {
  Start(Language::English);
  dialogs.answers = {Answer::No, Answer::No, Answer::Yes};
  Press(Qt::Key_S);
  EXPECT_FALSE(frame->close());
  EXPECT_TRUE(frame->isVisible());
  EXPECT_EQ(dialogs.shown.back(),
            (std::pair{Message{{TextId::AskToQuit}, "Velmora", Icon::Question}, Buttons::YesNo}));
  Press(Qt::Key_S);
  EXPECT_FALSE(frame->isVisible());
  EXPECT_EQ(dialogs.shown.size(), 3U);
}

TEST_F(Shell, NamesItsFileAndSavesBeforeItEnds) {
  Start(Language::English);
  Open(2);
  EXPECT_EQ(frame->windowTitle(), QStringLiteral("some.abr - Velmora"));
  auto* const description = Child<QLineEdit>(Experiments(), "txtComentario");
  QTest::keyClicks(description, QStringLiteral("new"));
  EXPECT_EQ(frame->windowTitle(), QStringLiteral("some.abr* - Velmora"));
  dialogs.answers = {Answer::No};
  EXPECT_FALSE(frame->close());
  EXPECT_EQ(dialogs.shown.back().second, Buttons::SaveYesNo);
  // It is saved to the list, as always after two questions, and the list to its file.
  dialogs.answers = {Answer::Save, Answer::Yes, Answer::Ok};
  dialogs.files = {QString::fromStdString(folder / "some.abr")};
  EXPECT_TRUE(frame->close());
  EXPECT_EQ(dialogs.offered.back(), QString::fromStdString(folder / "some.abr"));
  ExperimentLists written;
  EXPECT_FALSE(ReadExperiments(folder / "some.abr", written).fault);
  EXPECT_EQ(written.At(1).description, "new");
}

TEST_F(Shell, TakesStepsBackAndForth) {
  Start(Language::English);
  Open(1);
  const auto back = [&] { QTest::keyClick(frame.get(), Qt::Key_Z, Qt::ControlModifier); };
  const auto forth = [&] { QTest::keyClick(frame.get(), Qt::Key_Y, Qt::ControlModifier); };
  auto* const grid = Child<QWidget>(Experiments(), "MSFlexGrid1");
  const auto cells = [&] { return session.draft.rows; };
  const auto opened = cells();
  grid->setFocus();
  QTest::keyClicks(grid, QStringLiteral("7"));
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  QTest::keyClicks(grid, QStringLiteral("8"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  const auto typed = cells();
  ASSERT_EQ(typed[0][0] + typed[1][0], "758");
  back();
  EXPECT_EQ(qobject_cast<QTableView*>(grid)->currentIndex().row(), 1) << "what was taken back";
  EXPECT_EQ(cells()[1], opened[1]) << "a cell's typing is one step";
  EXPECT_EQ(cells()[0][0], "75");
  back();
  EXPECT_EQ(cells(), opened);
  EXPECT_EQ(frame->windowTitle(), QStringLiteral("some.abr - Velmora"));
  forth();
  forth();
  EXPECT_EQ(cells(), typed);
  dialogs.answers = {Answer::Yes, Answer::Ok};
  test::Click(Experiments(), "cmdSalvar");
  EXPECT_EQ(session.lists.At(1).time[0], 75);
  back();
  EXPECT_EQ(session.lists.At(1).time[0], 0);
  EXPECT_EQ(cells(), typed) << "what was typed is there again, unsaved";
  EXPECT_TRUE(session.draft.Unsaved());
  for (int i = 0; i < 3; ++i) back();
  EXPECT_TRUE(session.lists.Empty()) << "before the file was opened";
  EXPECT_EQ(test::TextOf(Experiments(), "txtExp"), "1") << "as at the start";
  EXPECT_FALSE(Item("mnuVoltar").isEnabled());
}

TEST_F(Shell, OffersWhatABrokenEndLeftBehind) {
  const std::string state = folder / "state";
  Session broken;
  broken.lists.Append({5, "", {0, 5}, {1, 2}, {9, 3}, {0, 1}, 5, true}, {});
  broken.draft = {{"5", "half typed", ""}, {{"1", "2", "", ""}}, 1, true};
  broken.formDraft.edited = true;
  broken.formDraft.place = 1;
  broken.formDraft.form.At(At::Ks) = "11.5";
  broken.formDraft.form.model = "Contois";
  ASSERT_FALSE(RecoveryFile(state).Write(RecoveryText(broken)));
  Start(Language::English);
  RecoveryFile file(state);
  dialogs.answers = {Answer::Yes};
  frame->KeepRecovery(file);
  EXPECT_EQ(session.lists, broken.lists);
  EXPECT_EQ(test::TextOf(Experiments(), "txtComentario"), "half typed");
  EXPECT_EQ(test::TextOf(Cultivation(), "txtKs"), "11.5");
  EXPECT_EQ(Child<QComboBox>(Cultivation(), "cmbModelo")->currentText(), QStringLiteral("Contois"));
  EXPECT_TRUE(Cultivation().EntryChanged());
  EXPECT_TRUE(Item("mnuExcluir").isEnabled());
  EXPECT_TRUE(file.Left()) << "until something is written";
  dialogs.answers = {Answer::Yes};
  EXPECT_TRUE(frame->close());
  EXPECT_FALSE(file.Left()) << "a normal end leaves none";
  ASSERT_FALSE(file.Write("no such text"));
  Start(Language::English);
  dialogs.answers = {Answer::Yes};
  frame->KeepRecovery(file);
  EXPECT_TRUE(dialogs.details.back().endsWith(QStringLiteral("recovery-declined"))) << "kept";
}

TEST(RecoveryKeeper, TriesAgainUntilThereIsRoom) {
  const TemporaryFolder folder;
  const std::string state = folder / "state";
  RecoveryFile file(state);
  Session session;
  session.lists.Append({5, "", {0, 5}, {1, 2}, {9, 3}, {0, 1}, 5, true}, {});
  RecoveryKeeper keeper(session, file, nullptr, std::chrono::milliseconds(20));
  QSignalSpy failed(&keeper, &RecoveryKeeper::Failed);
  std::filesystem::remove_all(state);
  keeper.Note(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return failed.count() == 1; }));
  QTest::qWait(100);
  EXPECT_EQ(failed.count(), 1) << "told once";
  std::filesystem::create_directory(state);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !std::filesystem::is_empty(state); }));
}

TEST(Dialogs, WordTheirButtonsAndTakeEscapeAsTheCautiousAnswer) {
  Session session;
  Dialogs dialogs(session);
  for (const auto& [key, answer] :
       {std::pair{Qt::Key_Escape, Answer::No}, {Qt::Key_Return, Answer::Yes}}) {
    QTimer::singleShot(0, qApp, [key = key] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->windowTitle(), QStringLiteral("Atenção"));
      EXPECT_EQ(box->text(), QStringLiteral("Deseja parar o ajuste? <b>\n\nline 3"));
      EXPECT_EQ(box->textFormat(), Qt::PlainText);
      EXPECT_EQ(box->button(QMessageBox::No)->text(), QStringLiteral("Não"));
      EXPECT_EQ(box->button(QMessageBox::Yes)->text(), QStringLiteral("Sim"));
      QTest::keyClick(box, key);
    });
    const Message question{{TextId::AskToStop, " <b>"}, TextId::Attention, Icon::Question};
    EXPECT_EQ(dialogs.Show(nullptr, question, Buttons::YesNo, QStringLiteral("line 3")), answer);
  }
}

TEST_F(Shell, OpensTheFilesOfItsStartEachInItsWindow) {
  const auto example = [](const char* name) {
    return QStringLiteral(VELMORA_SOURCE_FOLDER "/examples/") + QLatin1StringView(name);
  };
  Start(Language::English);
  frame->OpenFiles({example("molasses-conditions.abr"), example("molasses.abr")});
  EXPECT_EQ(session.lists.Count(), 1);
  EXPECT_EQ(session.conditions.SavedCount(), 1);
  EXPECT_TRUE(Cultivation().isVisible());
  EXPECT_EQ(dialogs.LastText(),
            "Cultivation conditions of the experiment 1 successfully inserted.");

  dialogs.answers = {Answer::No};
  frame->OpenFiles({example("yeast-nine.abr")});
  EXPECT_EQ(session.lists.Count(), 1) << "the experiments of before are asked for first";
  dialogs.answers = {Answer::No};
  frame->OpenFiles({example("molasses-conditions.abr")});
  EXPECT_TRUE(dialogs.answers.empty()) << "and the conditions";
  dialogs.answers = {Answer::Yes};
  Item("mnuExcluir").trigger();
  ASSERT_TRUE(session.lists.Empty());
  QWidget* const grid = Child<QWidget>(Experiments(), "MSFlexGrid1");
  grid->setFocus();
  QTest::keyClicks(grid, QStringLiteral("7"));
  const auto drop = [&](const char* name) {
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile(example(name))});
    auto* const box = Child<QWidget>(Experiments(), "txtComentario");
    QDragEnterEvent over({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box, &over);
    QDropEvent event({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(box, &event);
    QTest::qWait(1);
  };
  dialogs.answers = {Answer::No, Answer::Yes};
  drop("molasses.abr");
  EXPECT_EQ(session.draft.rows.at(0)[0], "7") << "and what has been typed";
  drop("molasses.abr");
  EXPECT_EQ(session.lists.Count(), 1) << "wherever it falls";

  Start(Language::English);
  dialogs.shown.clear();
  dialogs.files = {example("molasses.abr")};
  frame->OpenFiles({example("molasses-conditions.abr")});
  EXPECT_EQ(Worded(dialogs.shown.at(0).first, session.language),
            "The file holds cultivation conditions. Choose the file with the experiments that they "
            "belong to.");
  EXPECT_EQ(session.conditions.SavedCount(), 1);

  Start(Language::English);
  frame->OpenFiles({example("molasses.abr")});
  Press(Qt::Key_B);
  test::Type(Cultivation(), "txtms", "3");
  dialogs.answers = {Answer::No};
  frame->OpenFiles({example("molasses-conditions.abr")});
  EXPECT_EQ(test::TextOf(Cultivation(), "txtms"), "3") << "not without a question";

  Start(Language::English);
  frame->OpenFiles({QString::fromStdString(folder / "none.abr")});
  EXPECT_TRUE(dialogs.details.back().contains(QStringLiteral("cannot be opened")));
}

TEST(ProgramFolder, IsThatOfTheBuildOrTheSharedOneOfAnInstallation) {
  const TemporaryFolder folder;
  const QString program = QString::fromStdString(folder / "moved/bin");
  EXPECT_EQ(FilesOfProgramIn(program), QString::fromStdString(folder / "moved/share/velmora"));
  std::filesystem::create_directories(folder / "moved/bin/Imagens_Marcador");
  EXPECT_EQ(FilesOfProgramIn(program), program);
}

TEST(Guide, OpensInTheDesktopsViewerOrElseInAWindowOrElseIsMissed) {
  const TemporaryFolder folder;
  const QString place = QString::fromStdString(folder / "");
  const std::string opened = folder / "opened";
  const auto installViewer = [&](const char* exit) {
    std::ofstream(folder / "xdg-open") << "#!/bin/sh\nprintf %s \"$1\" > '" << opened << ".part'\n"
                                       << "mv '" << opened << ".part' '" << opened << "'\n"
                                       << "exit " << exit << "\n";
    std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
  };
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", place.toUtf8() + ':' + path);
  const Session session;
  ScriptedDialogs dialogs(session);
  QWidget owner;
  const auto window = [&] { return owner.findChild<QDialog*>(QStringLiteral("frmGuia")); };
  OpenGuide(place, Language::English, dialogs, &owner);
  EXPECT_NE(dialogs.LastText().find("HelpFile_Velmora"), std::string::npos) << "it is missing";
  std::ofstream(folder / "HelpFile_Velmora.pdf") << "%PDF";
  std::ofstream(folder / "HelpFile_Velmora.html") << "<html><p>What Velmora does</p></html>";
  installViewer("0");
  OpenGuide(place, Language::English, dialogs, &owner);
  EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(opened); }));
  EXPECT_EQ(BytesOf(opened), folder / "HelpFile_Velmora.pdf");
  EXPECT_EQ(window(), nullptr);
  installViewer("3");  // no program for the file
  for (const QByteArray& programs : {place.toUtf8() + ':' + path, place.toUtf8() + "none"}) {
    qputenv("PATH", programs);
    OpenGuide(place, Language::English, dialogs, &owner);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window() != nullptr; }));
    EXPECT_EQ(window()->findChild<QTextEdit*>()->toPlainText(),
              QStringLiteral("What Velmora does"));
    delete window();
  }
  qputenv("PATH", path);
}

}  // namespace
}  // namespace velmora
