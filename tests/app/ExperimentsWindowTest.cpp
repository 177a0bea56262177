// The experiments window, by keys and mouse.
#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QMenu>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>
#include <QToolTip>

#include "app/charts/ChartView.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/widgets/Idiomas.h"
#include "data/ExperimentFile.h"
#include "data/SafeSave.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

Experiment Measured(std::int16_t number, double first) {
  return {number, "", {0, 8}, {first, 2}, {30, 20}, {0, 4}, 8, true};
}

class ExperimentsWindow : public testing::Test {
 protected:
  ExperimentsWindow() { session_.language = Language::English; }

  /// Opens the window over the lists as they are.
  void Open() {
    window_ = std::make_unique<frmMsFlexGrid>(session_, dialogs_);
    QObject::connect(window_.get(), &frmMsFlexGrid::Changed, window_.get(), [this] { ++changes_; });
    window_->resize(1270, 700);
    test::ShowActive(*window_);
  }
  void OpenOver(std::initializer_list<Experiment> experiments) {
    for (const Experiment& each : experiments) {
      session_.lists.Append(each, {});
      session_.conditions.At(session_.lists.Count()).number = each.number;
    }
    Open();
  }

  template <typename Widget = QWidget>
  Widget& The(const char* name) {
    return *test::Child<Widget>(*window_, name);
  }
  QTableView& Grid() { return The<QTableView>("MSFlexGrid1"); }
  QString Cell(int row, int column) { return Grid().model()->index(row, column).data().toString(); }
  std::string Text(const char* box) { return test::TextOf(*window_, box); }
  void Click(const char* button) { test::Click(*window_, button); }
  /// Keys go to whatever has the focus, as on a keyboard.
  void Keys(const char* keys) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(keys));
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }
  void Fill(const char* box, const char* keys) { test::Type(*window_, box, keys); }
  void Paste(const std::string& text) {
    QApplication::clipboard()->setText(QString::fromStdString(text));
    Key(Qt::Key_V, Qt::ControlModifier);
  }
  void GoTo(int row, int column) {
    Grid().setFocus();
    Grid().setCurrentIndex(Grid().model()->index(row, column));
  }
  void Save(std::deque<Answer> answers) {
    dialogs_.answers = std::move(answers);
    Click("cmdSalvar");
    EXPECT_TRUE(dialogs_.answers.empty());
  }
  /// The colour in the middle of where point `k` of the experiment at `place` is drawn.
  QColor Drawn(const char* plot, std::size_t place, std::size_t k) {
    auto& view = The<ChartView>(plot);
    const ChartContent& content = view.Content();
    const PlotPoint point = content.experiments.at(place - 1).points.at(k);
    const QPointF at = ToPaper(content.scale, view.rect(), point);
    return view.grab().toImage().pixelColor(at.toPoint());
  }

  Session session_;
  ScriptedDialogs dialogs_{session_};
  std::unique_ptr<frmMsFlexGrid> window_;
  int changes_ = 0;
};

TEST_F(ExperimentsWindow, TakesATypedExperiment) {
  Open();
  Fill("txtComentario", " Glucose, 30 g/L");
  Fill("txtTFinal", "8.5");
  GoTo(0, 0);
  Keys("0");
  Key(Qt::Key_Tab);
  Keys("30");
  Key(Qt::Key_Right);
  Keys(".");
  EXPECT_EQ(Cell(0, 2).toStdString(), "0.") << "a separator alone gets its zero";
  Keys("5");
  Key(Qt::Key_Right);
  Keys("1");
  Key(Qt::Key_Right);
  EXPECT_EQ(Grid().currentIndex().column(), 3) << "there is no column behind";
  Key(Qt::Key_Return);
  EXPECT_EQ(Text("txtNumPontos"), "2");
  for (const char* text : {"8", "20", "2,5", "4"}) {  // where typing of the first row began
    Keys(text);
    if (*text != '4') Key(Qt::Key_Tab);
  }
  Key(Qt::Key_Tab);
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(2, 0)) << "Tab adds a row as well";
  EXPECT_EQ(Text("txtNumPontos"), "3") << "an empty row has been added";
  Key(Qt::Key_Backtab);
  Key(Qt::Key_Backtab);
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(1, 2)) << "by cell, and over the end";
  Key(Qt::Key_Tab);
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(1, 3));
  Save({Answer::Ok});
  ASSERT_EQ(session_.lists.Count(), 1);
  const Experiment expected{1, "Glucose 30 g/L", {0, 8}, {0.5, 2.5}, {30, 20}, {1, 4}, 8.5, true};
  EXPECT_EQ(session_.lists.At(1), expected);
  EXPECT_EQ(Text("txtNumPontos"), "2");
  EXPECT_EQ(changes_, 1);
  GoTo(1, 3);
  Key(Qt::Key_Tab);
  EXPECT_FALSE(Grid().hasFocus()) << "through what was typed before, out of the grid";
  EXPECT_EQ(Text("txtNumPontos"), "2");
  EXPECT_EQ(Drawn("picCs", 1, 1), QColor(Qt::blue));
}

TEST_F(ExperimentsWindow, CopiesCutsAndPastesBlocks) {
  session_.separator = ',';
  OpenOver({Measured(1, 0.5)});
  QAction elsewhere;
  elsewhere.setShortcut(QKeySequence::Cut);
  QObject::connect(&elsewhere, &QAction::triggered, &elsewhere,
                   [] { ADD_FAILURE() << "a menu took the grid's key"; });
  window_->addAction(&elsewhere);
  GoTo(0, 2);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), "0,5\t0\r\n");
  EXPECT_TRUE(Cell(0, 2).isEmpty() && Cell(0, 3).isEmpty());
  GoTo(1, 0);
  Keys("9");
  Paste("1,5\t2.5\r\n3\t4\r\n5\t6\r\n");
  EXPECT_EQ(Text("txtNumPontos"), "4") << "a last line break is no row";
  EXPECT_EQ(Cell(1, 0).toStdString(), "1,5");
  EXPECT_EQ(Cell(3, 1).toStdString(), "6");
  Paste("1\t2\t3\t4\t5");
  EXPECT_EQ(dialogs_.LastTitle(), "Attention");
  EXPECT_EQ(Cell(1, 0).toStdString(), "1,5") << "nothing of a block that is too wide";
}

TEST_F(ExperimentsWindow, PastesATableByItsHeadersAndAsksOfOthers) {
  Open();
  GoTo(0, 3);
  Paste("Glucose;biomass\r\n60;0,5\r\n2;20\r\n");
  EXPECT_EQ(Cell(1, 1) + u'|' + Cell(1, 2), QStringLiteral("2|20")) << "wherever the cursor was";
  dialogs_.answers = {Answer::No};
  GoTo(0, 0);
  Paste("Foo\tBar\r\n1\t2\r\n");
  EXPECT_TRUE(Cell(0, 0).isEmpty());
  dialogs_.answers = {Answer::Yes, Answer::Yes};
  Paste("A\tB\tC\r\n0\t1\t50\r\n1\t5\t30\r\n2\t9\t3\r\n");
  EXPECT_EQ(Cell(2, 1) + u'|' + Cell(2, 2), QStringLiteral("3|9")) << "Cx fell, and Cs rose";
}

TEST_F(ExperimentsWindow, TakesRowsAwayAndPutsTheTableBack) {
  OpenOver({Measured(1, 0.5)});
  GoTo(0, 2);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_X, Qt::ControlModifier);
  EXPECT_TRUE(Cell(0, 0).isEmpty() && Cell(1, 3).isEmpty());
  Key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Cell(0, 2) + Cell(1, 3), QStringLiteral("0.54"));
  GoTo(1, 1);
  const auto choose = [this](int item) {
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(20, 20), QPoint(200, 200));
    QApplication::sendEvent(Grid().viewport(), &asked);
    auto* const menu = The("MSFlexGrid1").findChild<QMenu*>(QStringLiteral("mnuGrade"));
    QList<QAction*> items = menu->actions();
    items.removeIf([](const QAction* action) { return action->isSeparator(); });
    items.at(item)->trigger();
    delete menu;
  };
  choose(4);
  EXPECT_EQ(Text("txtNumPontos"), "3");
  EXPECT_TRUE(Cell(1, 1).isEmpty() && Cell(2, 0) == QStringLiteral("8"));
  choose(5);
  EXPECT_EQ(Text("txtNumPontos"), "2");
  EXPECT_EQ(Cell(1, 0), QStringLiteral("8"));
}

TEST_F(ExperimentsWindow, MarksWhatDeservesASecondLook) {
  Experiment odd = Measured(1, -0.5);
  odd.time = {8, 8}, odd.finalTime = 7;
  OpenOver({odd});
  const auto marked = [this](int row, int column) {
    return !Grid().model()->index(row, column).data(Qt::DecorationRole).isNull();
  };
  EXPECT_TRUE(marked(0, 2) && marked(1, 0));
  EXPECT_FALSE(marked(0, 0) || marked(1, 2));
  EXPECT_EQ(Grid().model()->index(1, 0).data(Qt::ToolTipRole).toString(),
            QStringLiteral("8\nThe time is not later than the one above"));
  QSignalSpy told(Grid().model(), &QAbstractItemModel::dataChanged);
  GoTo(0, 0);
  Keys("7");
  EXPECT_FALSE(marked(1, 0));
  EXPECT_EQ(told.at(0).at(1).toModelIndex().row(), 1) << "the cell below is painted anew";
  Key(Qt::Key_Escape);
  const auto early = [this] { return The("txtTFinal").actions().constFirst()->isVisible(); };
  EXPECT_TRUE(early());
  Fill("txtTFinal", "8");
  EXPECT_FALSE(early());
  Fill("txtTFinal", "-");
  EXPECT_TRUE(QToolTip::text().startsWith(QStringLiteral("\"-\" is not taken here")));
  Save({Answer::Yes, Answer::Ok});
  EXPECT_EQ(session_.lists.At(1).Cx[0], -0.5) << "a mark is no refusal";
}

TEST_F(ExperimentsWindow, OpensATableAfterShowingWhatItReads) {
  const TemporaryFolder folder;
  ASSERT_FALSE(SafeSave(folder / "lab.CSV", "t (h);Glucose;Cx;Cp\n0;60;0,5;0\n5;30;4;12\n"));
  ASSERT_FALSE(SafeSave(folder / "odd.csv", "t;Cs\n0;60\n"));
  Open();
  const auto open = [&](const char* name) {
    dialogs_.files = {QString::fromStdString(folder / name)};
    return window_->cmdAbrirOkSub();
  };
  EXPECT_FALSE(open("odd.csv"));
  EXPECT_NE(dialogs_.LastText().find("Cx"), std::string::npos) << "the missing column";
  dialogs_.answers = {Answer::Cancel};
  EXPECT_FALSE(open("lab.CSV"));
  dialogs_.answers = {Answer::Ok};
  EXPECT_TRUE(open("lab.CSV"));
  EXPECT_NE(dialogs_.LastText().find("5\t30\t4\t12"), std::string::npos) << dialogs_.LastText();
  EXPECT_EQ(session_.lists.At(1).Cs[1], 30);
  EXPECT_EQ(session_.experimentsFile, "") << "experiments are not written over a table";
}

TEST_F(ExperimentsWindow, RefusesACellThatIsNoNumber) {
  OpenOver({Measured(1, 0.5)});
  GoTo(1, 1);
  Keys("77");
  EXPECT_EQ(Cell(1, 1).toStdString(), "77");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Cell(1, 1).toStdString(), "20") << "the old text is back";
  Keys("1 000");
  EXPECT_EQ(Grid().currentIndex().data(Qt::ForegroundRole).value<QColor>().red(), 0xD0);
  GoTo(0, 0);
  Save({});
  EXPECT_EQ(dialogs_.LastTitle(), "Experiment not saved");
  EXPECT_EQ(Grid().currentIndex(), Grid().model()->index(1, 1));
  Key(Qt::Key_Delete);
  Save({});
  EXPECT_EQ(dialogs_.shown.size(), 2u) << "an empty cell is no zero";
  EXPECT_EQ(session_.lists.At(1), Measured(1, 0.5));
  EXPECT_EQ(changes_, 0);
}

TEST_F(ExperimentsWindow, AsksBeforeItReplaces) {
  OpenOver({Measured(4, 0.5), Measured(2, 0.6)});
  GoTo(0, 2);
  Keys("1");
  Save({Answer::No});
  EXPECT_EQ(dialogs_.LastTitle(), "Experiment already added");
  Save({Answer::Yes, Answer::Cancel});
  EXPECT_EQ(dialogs_.LastText(), "Confirm these data for Experiment 4");
  EXPECT_EQ(session_.lists.At(1).Cx[0], 0.5);
  Save({Answer::Yes, Answer::Ok});
  EXPECT_EQ(session_.lists.At(1).Cx[0], 1);
  EXPECT_EQ(session_.lists.Count(), 2);
  EXPECT_EQ(dialogs_.shown.at(0).second, Buttons::YesNo);
  Fill("txtExp", "2");
  Save({Answer::No});
  EXPECT_EQ(dialogs_.shown.back().second, Buttons::NoYes) << "another experiment would go";
  dialogs_.answers = {Answer::Yes};
  Click("cmdInserir");
  EXPECT_EQ(Text("txtExp"), "5");
  Save({});
  EXPECT_EQ(dialogs_.LastTitle(), "Experiment empty");
}

TEST_F(ExperimentsWindow, SavesWhereTwoShareANumberToTheOneShown) {
  const TemporaryFolder folder;
  ExperimentLists twice;
  twice.Append(Measured(4, 0.5), {});
  twice.Append(Measured(4, 0.6), {});
  ASSERT_FALSE(WriteExperiments(twice, folder / "twice.abr"));
  dialogs_.files = {QString::fromStdString(folder / "twice.abr")};
  Open();
  EXPECT_TRUE(window_->cmdAbrirOkSub());
  ASSERT_EQ(dialogs_.shown.size(), 1u) << "it is told once";
  EXPECT_NE(dialogs_.LastText().find("more than one experiment: 4."), std::string::npos);
  Click("cmdMostrar(2)");
  GoTo(0, 2);
  Keys("9");
  Save({Answer::Yes, Answer::Ok});
  EXPECT_EQ(session_.lists.At(1).Cx[0], 0.5);
  EXPECT_EQ(session_.lists.At(2).Cx[0], 9);
}

TEST_F(ExperimentsWindow, DeletesByPlace) {
  OpenOver({Measured(4, 0.5), Measured(2, 0.6)});
  The<QRadioButton>("Option1(1)").click();
  for (const char* place : {"0", "-1", "3"}) {
    Fill("txtExcluir", place);
    Click("cmdExcluir");
    EXPECT_EQ(dialogs_.LastTitle(), "Delete experiment");
    EXPECT_TRUE(The("txtExcluir").hasFocus());
  }
  EXPECT_EQ(session_.lists.Count(), 2);
  Fill("txtExcluir", "1");
  EXPECT_EQ(The("txtExcluir").toolTip(), QStringLiteral("Deletes experiment 4"));
  dialogs_.answers = {Answer::No, Answer::Yes};
  Click("cmdExcluir");
  EXPECT_EQ(dialogs_.LastText(),
            "This deletes experiment 4 (place 1) with its conditions and its curve. Delete it?");
  ASSERT_EQ(session_.lists.Count(), 2);
  Click("cmdExcluir");
  ASSERT_EQ(session_.lists.Count(), 1);
  EXPECT_EQ(Text("txtExp"), "2");
}

TEST_F(ExperimentsWindow, ClearsTheEntryAndNotTheList) {
  OpenOver({Measured(4, 0.5)});
  Click("cmdLimparTexto");
  EXPECT_EQ(dialogs_.LastTitle(), "Information");
  EXPECT_EQ(Text("txtExp") + Text("txtNumPontos") + Text("txtTFinal"), "");
  EXPECT_TRUE(Cell(0, 0).isEmpty());
  EXPECT_EQ(session_.lists.Count(), 1);
}

TEST_F(ExperimentsWindow, KeepsTheRowsBehindALowerNumberUntilSaving) {
  OpenOver({Measured(4, 0.5)});
  Fill("txtNumPontos", "1");
  EXPECT_EQ(Grid().model()->rowCount(), 1);
  Fill("txtNumPontos", "2");
  EXPECT_EQ(Cell(1, 0).toStdString(), "8");
  Fill("txtNumPontos", "1");
  Save({Answer::Yes, Answer::Ok});
  EXPECT_EQ(session_.lists.At(1).Points(), 1);
  Fill("txtNumPontos", "2");
  EXPECT_TRUE(Cell(1, 0).isEmpty());
}

TEST_F(ExperimentsWindow, TellsOfMoreThanNineAndShowsThemAll) {
  for (std::int16_t number = 1; number <= 9; ++number)
    session_.lists.Append(Measured(number, 1), {});
  Open();
  EXPECT_FALSE(The("cmbOutros").isVisible());
  Click("cmdInserir");
  GoTo(0, 0);
  Paste("0\t9\t1\t0\r\n4\t5\t2\t1\r\n");
  Save({Answer::Ok});
  EXPECT_NE(dialogs_.LastText().find("There are 10 experiments."), std::string::npos);
  EXPECT_EQ(session_.lists.At(10).finalTime, 4) << "left blank, it is the last sample's";
  Click("cmdMostrar(1)");
  EXPECT_EQ(The<QComboBox>("cmbOutros").placeholderText(), QStringLiteral("10."));
  The("cmbOutros").setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("txtExp"), "10");
}

TEST_F(ExperimentsWindow, AsksBeforeUnsavedDataGo) {
  OpenOver({Measured(4, 0.5), Measured(2, 0.6)});
  Click("cmdMostrar(2)");
  EXPECT_EQ(Text("txtExp"), "2");
  GoTo(0, 2);
  Keys("9");
  for (const char* button : {"cmdMostrar(1)", "cmdInserir"}) {
    dialogs_.answers = {Answer::No};
    Click(button);
    EXPECT_EQ(dialogs_.LastTitle(), "Experiment not saved");
    EXPECT_EQ(Cell(0, 2).toStdString(), "9");
  }
  dialogs_.answers = {Answer::Yes};
  Click("cmdInserir");
  EXPECT_EQ(Text("txtExp"), "5");
}

TEST_F(ExperimentsWindow, DrawsWhatTheChoosersSay) {
  OpenOver({Measured(4, 0.5), Measured(2, 1)});
  The("IcmbCor(2)").setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(session_.lists.Display(2).colour, 2);
  EXPECT_EQ(Drawn("picCx", 2, 0), QColor(Qt::red));
  Click("Check1(1)");
  EXPECT_FALSE(session_.lists.Display(1).visible);
  EXPECT_TRUE(The<ChartView>("picCx").Content().experiments.at(0).points.empty());
  Click("Check1(2)");
  EXPECT_TRUE(dialogs_.shown.empty());
  Click("cmdGrafico");
  EXPECT_EQ(dialogs_.LastTitle(), "Graph not selected");
}

TEST_F(ExperimentsWindow, OpensAndSavesTheSameBytes) {
  const TemporaryFolder folder;
  ExperimentLists saved;
  saved.Append(Measured(4, 0.5), {"Triang3", 6, 3, false});
  saved.Append(Measured(2, 1.0 / 3), {"QuadCheio", 2, 1, true});
  ASSERT_FALSE(WriteExperiments(saved, folder / "a.abr"));
  const std::string bytes = BytesOf(folder / "a.abr");
  ASSERT_FALSE(SafeSave(folder / "cut.abr", bytes.substr(0, bytes.size() - 6)));
  for (const char* name : {"", "none.abr", "a.abr", "b.abr"})
    dialogs_.files.push_back(*name == 0 ? QString() : QString::fromStdString(folder / name));
  OpenOver({Measured(7, 0.1)});
  EXPECT_FALSE(window_->cmdAbrirOkSub());
  EXPECT_TRUE(dialogs_.shown.empty()) << "cancelling tells nothing";
  EXPECT_FALSE(window_->cmdAbrirOkSub());
  EXPECT_EQ(dialogs_.LastText(), "Error opening the file.");
  EXPECT_TRUE(dialogs_.details.back().contains(QStringLiteral("none.abr")));
  EXPECT_EQ(session_.lists.At(1).number, 7) << "nothing to open, nothing lost";
  EXPECT_TRUE(window_->cmdAbrirOkSub());
  EXPECT_EQ(Text("txtExp"), "4");
  EXPECT_EQ(The<QComboBox>("IcmbEstiloLinha(1)").currentIndex(), 6);
  window_->OkSub();
  EXPECT_EQ(BytesOf(folder / "b.abr"), bytes);
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    dialogs_.files = {QString::fromStdString(folder / "cut.abr")};
    dialogs_.answers = {answer};
    EXPECT_EQ(window_->cmdAbrirOkSub(), answer == Answer::Yes);
    EXPECT_TRUE(
        dialogs_.details.at(dialogs_.details.size() - 2).contains(QStringLiteral("Line 23")));
    EXPECT_EQ(session_.lists.Count(), answer == Answer::Yes ? 1 : 2);
  }
}

TEST_F(ExperimentsWindow, TellsWhatAnEmptyListCannotDo) {
  Open();
  window_->OkSub();
  EXPECT_EQ(dialogs_.LastText(), "No experiment was added or it is not saved.");
  Click("picCp");
  EXPECT_EQ(dialogs_.LastTitle(), "Attention");
  session_.language = Language::Portuguese;
  Idiomas(*window_, session_.language);
  Click("picCs");
  EXPECT_EQ(dialogs_.LastTitle(), "Atenção");
  EXPECT_EQ(The("IcmbCor(3)").accessibleName().toStdString(), "Cor do símbolo 3");
}

TEST_F(ExperimentsWindow, KeepsTheDescriptionFitForItsFile) {
  Open();
  Fill("txtComentario", ",a");
  Paste("\nlote 2, \u03B2-glucan");
  EXPECT_EQ(Text("txtComentario"), "a lote 2; -glucan");
}

}  // namespace
}  // namespace velmora
