// The cultivation window through its controls, as a user works with it.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>
#include <memory>
#include <ostream>

#include "app/cultivation/frmCultBatelada.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/widgets/Idiomas.h"
#include "cultivation/FitSetUp.h"
#include "data/SafeSave.h"
#include "estimation/ResultTexts.h"
#include "tests/data/FileTesting.h"
#include "tests/support/ScriptedDialogs.h"

namespace velmora {
namespace {

/// Yeast on molasses, 75 g/L of sugar (Zentou et al. 2019, Biomolecules 9, 308).
Experiment Molasses(std::int16_t number = 1) {
  Experiment e;
  e.number = number, e.finalTime = 45;
  e.time = {0, 2, 4, 6, 10, 16, 22, 34, 45};
  e.Cx = {1.1059872, 1.1495275, 1.9303926, 2.7112577, 5.3252807,
          11.72252,  21.279594, 21.328758, 21.27246};
  e.Cs = {75.04926, 73.038826, 70.92306, 68.06932, 58.518, 33.73693, 1.3718239, 0, 0};
  e.Cp = {0, 0.57032937, 1.6142677, 2.5530024, 6.1151433, 18.411366, 31.23335, 31.5461, 31.384602};
  return e;
}

/// A box that is typed into, or, without a text, a button that is clicked.
struct Edit {
  const char* control;
  const char* text = nullptr;
};

// clang-format off
const std::vector<Edit> kFilled = {
    {"optED"}, {"optPAC"}, {"cmdConfirmarModelo"}, {"optGlobal"}, {"txtYxs", "0.286"},
    {"txtYps", "0.431"}, {"chkMiMax"}, {"txtMiMax", "0.2"}, {"txtLimInf(1)", "0.05"},
    {"txtLimSup(1)", "0.5"}, {"chkKs"}, {"txtKs", "10"}, {"txtLimInf(2)", "1"},
    {"txtLimSup(2)", "40"}};
// clang-format on

class CultivationWindow : public testing::Test {
 protected:
  CultivationWindow() { session.language = Language::English; }

  void Open(int experiments = 1) {
    for (int i = 1; i <= experiments; ++i)
      session.lists.Append(Molasses(static_cast<std::int16_t>(i)), {});
    window = std::make_unique<frmCultBatelada>(session, dialogs);
    window->resize(1270, 740);
    window->show();
  }
  /// With the first experiment's conditions entered.
  void OpenFilled(int experiments = 1) {
    Open(experiments);
    Do(kFilled);
  }
  void Do(const std::vector<Edit>& edits) const {
    for (const Edit& edit : edits)
      edit.text != nullptr ? Type(edit.control, edit.text) : Click(edit.control);
  }
  void Estimate() {
    dialogs.answers.push_back(Answer::Yes);
    Click("cmdAjustar");
  }

  void Show(const Change& change) { window->Show(change); }

  template <class Widget>
  Widget* Find(const char* name) const {
    auto* const widget = window->findChild<Widget*>(QLatin1StringView(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  void Type(const char* box, const char* text) const {
    auto* const edit = Find<QLineEdit>(box);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, QLatin1StringView(text));
  }
  void Click(const char* button) const {
    auto* const widget = Find<QAbstractButton>(button);
    QTest::mouseClick(widget, Qt::LeftButton, {}, {8, widget->height() / 2});
  }
  void Choose(const char* model) const {
    auto* const list = Find<QComboBox>("cmbModelo");
    QTest::keyClick(list, Qt::Key_Home);
    const int index = list->findText(QLatin1StringView(model));
    while (list->currentIndex() < index) QTest::keyClick(list, Qt::Key_Down);
  }
  std::string TextOf(const char* box) const { return Find<QLineEdit>(box)->text().toStdString(); }
  bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
  std::string ToolTip(const char* name) const {
    return Find<QWidget>(name)->toolTip().toStdString();
  }
  std::string Results() const {
    return Find<QPlainTextEdit>("txtResultados")->toPlainText().toStdString();
  }

  Session session;
  ScriptedDialogs dialogs{session};
  std::unique_ptr<frmCultBatelada> window;
};

TEST_F(CultivationWindow, FitsWhatTheBoxesSayToTheLastDigit) {
  OpenFilled();
  Click("cdmSalvar");
  ASSERT_EQ(session.conditions.SavedCount(), 1);
  Estimate();

  const FitProblem problem = ProblemOf({Molasses()}, session.conditions);
  SearchObserver silent;
  const SearchResult result = Search(problem, session.settings, silent);
  const Deviations deviations = ComputeDeviations(problem, result.best);
  const TextStyle style{Language::English, '.'};
  EXPECT_TRUE(Results().ends_with(FinalText(problem, result, deviations, style)));
  EXPECT_EQ("µmáx = " + TextOf("txtMiMax") + "\nKs = " + TextOf("txtKs") + "\n",
            ParameterLines(problem.variables, result.best, style));
  EXPECT_EQ(session.curves[0], Objective(problem).Simulate(result.best).experiments[0].curve);
  EXPECT_TRUE(session.CurvesPresent());
  EXPECT_EQ(dialogs.shown.size(), 1U);  // the question alone

  // The estimated values are what the next run would start from, and are no edit of the user's.
  EXPECT_EQ(ToolTip("cmdIrVoltar"), "Return to the initial values of parameters");
  const std::string estimated = TextOf("txtKs");
  Click("cmdIrVoltar");
  EXPECT_EQ(TextOf("txtKs"), "10.00");
  session.language = Language::Portuguese;
  Idiomas(*window, session.language);
  EXPECT_EQ(ToolTip("cmdIrVoltar"), "Voltar aos valores dos parâmetros ajustados");
  EXPECT_EQ(Find<QLabel>("lblAjustePar")->text(), QStringLiteral("Parâmetros estimados:"));
  Click("cmdIrVoltar");
  EXPECT_EQ(TextOf("txtKs"), estimated);
  Click("cmdLimpar");
  EXPECT_EQ(Results(), "");
}

struct RefusalCase {
  const char* name;
  const char* button;
  int experiments;
  std::vector<Edit> edits;
  std::vector<Piece> pieces;
  Piece title = TextId::Attention;
};
void PrintTo(const RefusalCase& c, std::ostream* out) {
  *out << c.name;
}

class Refusing : public CultivationWindow, public testing::WithParamInterface<RefusalCase> {};

TEST_P(Refusing, TellsOnceAndChangesNothing) {
  const RefusalCase& c = GetParam();
  OpenFilled(c.experiments);
  const bool estimates = std::string_view(c.button) == "cmdAjustar";
  if (estimates && c.experiments > 0) Click("cdmSalvar");
  Do(c.edits);
  const CultivationConditions before = session.conditions;
  dialogs.shown.clear();
  Click(c.button);
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown[0].first.pieces, c.pieces) << dialogs.LastText();
  EXPECT_EQ(dialogs.shown[0].first.title, c.title);
  EXPECT_EQ(session.conditions, before);
  EXPECT_FALSE(session.CurvesPresent());
}

const std::vector<Piece> kNotFilled = {TextId::PossibleErrors, "\n", TextId::FitEntryMissing, "\n",
                                       TextId::BoundIsZero};
const std::vector<Piece> kNothingTicked = {"Escolha pelo menos um parâmetro para ajustar"};
const std::vector<Edit> kUntick = {{"chkKs"}, {"chkMiMax"}};
const std::vector<Edit> kSecondDiffers = {
    {"cdmNext(1)"}, {"cdmTrocarCinProd"}, {"optPNAC"}, {"cdmSalvar"}};
const std::vector<Edit> kMarquardt = {{"cdmTrocarAjuste"}, {"optLM"}};

// clang-format off
INSTANTIATE_TEST_SUITE_P(Saving, Refusing, testing::Values(
    RefusalCase{"NoExperiment", "cdmSalvar", 0, {}, {TextId::NoExperimentSelected}},
    RefusalCase{"LowerBoundOfZero", "cdmSalvar", 1, {{"txtLimInf(2)", "0"}}, kNotFilled},
    RefusalCase{"ValueOutside", "cdmSalvar", 1, {{"txtKs", "41"}}, {TextId::FitEntryOutOfBounds}},
    RefusalCase{"ModelNotConfirmed", "cdmSalvar", 1, {{"cdmTrocarModelo"}}, {TextId::ConfirmModel}},
    RefusalCase{"NothingTicked", "cdmSalvar", 1, kUntick, {TextId::NothingFitted}},
    RefusalCase{"EmptyYield", "cdmSalvar", 1, {{"txtYxs", ""}}, {TextId::YxsNotPositive}}));
INSTANTIATE_TEST_SUITE_P(Estimating, Refusing, testing::Values(
    RefusalCase{"EmptyBound", "cmdAjustar", 1, {{"txtLimSup(1)", ""}}, kNotFilled},
    RefusalCase{"ValueOutside", "cmdAjustar", 1, {{"txtMiMax", "0.04"}}, {TextId::FitEntryOutOfBounds}},
    RefusalCase{"NothingTicked", "cmdAjustar", 1, kUntick, kNothingTicked, "Aviso"},
    RefusalCase{"NoExperiment", "cmdAjustar", 0, {}, {TextId::NoExperiment}},
    RefusalCase{"OneOfTwoSaved", "cmdAjustar", 2, {}, {TextId::CountsDiffer, "\n", {TextId::ConditionsMissing, {"2"}}}},
    RefusalCase{"OptionsDiffer", "cmdAjustar", 2, kSecondDiffers, {TextId::OptionsDiffer, "\n", TextId::OptionsFootnote}},
    RefusalCase{"NoSuchMethodYet", "cmdAjustar", 1, kMarquardt,
                {TextId::NoLevenbergMarquardt}}));
// clang-format on

TEST_F(CultivationWindow, ShowsTheReportOfTheRunAndSavesIt) {
  OpenFilled();
  Click("cdmSalvar");
  Estimate();
  const std::string estimated = TextOf("txtKs");
  Click("cmdIrVoltar");
  const auto ofTheRun = ReportPictures(session.lists, session.curves, session.gridLines, '.');
  session.curves[0].Cx.fill(0);  // another calculation, after the run
  Click("cmdRelatorio");
  auto* const text = Find<QTextEdit>("RichTextBox1");
  ASSERT_TRUE(QTest::qWaitForWindowExposed(text->window()));
  EXPECT_EQ(text->verticalScrollBar()->value(), 0);
  EXPECT_GT(text->verticalScrollBar()->maximum(), 0);
  QTest::keyClicks(text, QStringLiteral("typed"));
  const auto shown = [&] { return text->toPlainText().toStdString(); };
  EXPECT_TRUE(shown().starts_with("Report of estimated kinetic parameters\nVersion 1.0\n"));
  EXPECT_NE(shown().find("\nKs = " + estimated + " +/- "), std::string::npos);
  const auto picture = [&](int index) {
    const QUrl url(QString::fromStdString(rich::PictureName(index)));
    return text->document()->resource(QTextDocument::ImageResource, url).value<QImage>();
  };
  for (int i = 0; i < 3; ++i) {
    const std::string& png = ofTheRun.at(static_cast<std::size_t>(i)).picture.png;
    EXPECT_EQ(picture(i), QImage::fromData(QByteArray::fromStdString(png)));
  }

  session.language = Language::Portuguese;
  Idiomas(*text->window(), session.language);
  EXPECT_TRUE(shown().starts_with("Relatório do ajuste de parâmetros cinéticos\n"));
  EXPECT_FALSE(picture(2).isNull());

  const TemporaryFolder folder;
  dialogs.files = {
      {}, QStringLiteral("/nowhere/report.rtf"), QString::fromStdString(folder / "report.rtf")};
  Click("cmdSalvar");  // cancelled
  EXPECT_EQ(dialogs.shown.size(), 1U);
  Click("cmdSalvar");
  EXPECT_NE(dialogs.details.back().indexOf(QStringLiteral("/nowhere")), -1);
  Click("cmdSalvar");
  const std::string report = ReadWholeFile(folder / "report.rtf").bytes;
  EXPECT_NE(report.find("Relat\\'f3rio"), std::string::npos);
  EXPECT_NE(report.find("Ks = " + estimated + " +/- "), std::string::npos);
  const QPointer<QWidget> open = text->window();
  QTest::keyClick(text->window(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return open.isNull(); }));
}

TEST_F(CultivationWindow, RefusesWhatIsNotChosenAndEqualBounds) {
  Open();
  Click("cdmSalvar");
  EXPECT_EQ(dialogs.LastText(), "Fitting method has not been selected.");
  Do({{"optManual"}, {"cdmSalvar"}});
  EXPECT_EQ(dialogs.LastText(), "The production kinetic model was not selected.");
  session.lists.Clear();
  dialogs.shown.clear();
  OpenFilled();
  Click("cdmSalvar");
  for (const char* box : {"txtMiMax", "txtLimInf(1)", "txtLimSup(1)"}) Type(box, "0.2");
  Click("cdmSalvar");
  Estimate();
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.LastText(), "Check the bound values.");
  EXPECT_FALSE(window->Running());
  EXPECT_FALSE(Enabled("cmdRelatorio"));
}

TEST_F(CultivationWindow, StopsBetweenGenerationsAndRunsAgain) {
  OpenFilled();
  Click("cdmSalvar");
  session.settings.EPS = 0;  // no generation converges
  session.settings.ITER = 1e6;
  QTimer::singleShot(200, window.get(), [this] {
    EXPECT_TRUE(window->Running());
    for (const char* name : {"cmdAjustar", "cdmSalvar", "txtKs", "cdmBackExp", "cmdLimpar"})
      EXPECT_FALSE(Enabled(name)) << name;
    for (const char* name : {"txtResultados", "picCx"}) EXPECT_TRUE(Enabled(name)) << name;
    Find<QPlainTextEdit>("txtResultados")->verticalScrollBar()->setValue(3);
    dialogs.answers = {Answer::No};
    Click("Command1");
  });
  QTimer::singleShot(500, window.get(), [this] {
    ASSERT_TRUE(window->Running());  // the answer was No
    EXPECT_EQ(Find<QPlainTextEdit>("txtResultados")->verticalScrollBar()->value(), 3);
    dialogs.answers = {Answer::Yes};
    Click("Command1");
  });
  Estimate();
  EXPECT_TRUE(Results().ends_with("Estimate was not completed:  \n"));
  EXPECT_TRUE(Enabled("cmdRelatorio") && Enabled("txtKs") && !Enabled("Command1"));
  EXPECT_EQ(dialogs.LastText(), "Are you sure you want to stop the estimation?");

  session.settings.EPS = 1e-5;
  Estimate();
  EXPECT_TRUE(Results().ends_with("End of estimation.\n"));
}

TEST_F(CultivationWindow, SimulatesWithoutQuestionOrTicksAndExports) {
  OpenFilled();
  Do({{"chkMiMax"}, {"chkKs"}, {"optManual"}, {"cdmSalvar"}, {"cmdAjustar"}});
  EXPECT_TRUE(dialogs.shown.empty());
  ASSERT_TRUE(session.CurvesPresent());
  window->ExportarDados();
  const QStringList lines = QApplication::clipboard()->text().split(QStringLiteral("\r\n"));
  ASSERT_EQ(lines.size(), 104);
  EXPECT_EQ(lines[0], QStringLiteral("Experimento: 1"));
  EXPECT_EQ(lines[2], QStringLiteral("0.0000\t1.1060\t75.0493\t0.0000"));

  // Without Kis the inhibition term divides by zero.
  Click("cdmTrocarModelo");
  Choose("Andrews");
  Do({{"cmdConfirmarModelo"}, {"cdmSalvar"}, {"cmdAjustar"}});
  EXPECT_EQ(Results(),
            "Estimate was not completed:  division by zero in the substrate-inhibition term "
            "(experiment 1, point 1 of 100)\n");
}

TEST_F(CultivationWindow, UntouchedBoxesKeepTheDigitsThatTheyDoNotShow) {
  OpenFilled(2);
  Click("cdmSalvar");
  ConditionsRow& row = session.conditions.At(1).row;
  row[At::Ks] = 10.123456789, row[At::muMax] = 0.05;
  session.conditions.fitted[1].upper = 10.12346;
  Do({{"cdmNext(1)"}, {"cdmNext(0)"}});
  EXPECT_EQ(TextOf("txtKs"), "10.1235");
  const ConditionsRow before = row;
  Click("cdmSalvar");
  EXPECT_TRUE(dialogs.shown.empty()) << "the rounded value lies above the bound";
  EXPECT_EQ(session.conditions.At(1).row, before);
  Do({{"txtKs", "10.1234"}, {"cdmSalvar"}});
  EXPECT_EQ(session.conditions.At(1).row[At::Ks], 10.1234);
}

TEST_F(CultivationWindow, YieldsAndProductionDecideAlphaAndBeta) {
  OpenFilled();
  Do({{"txtYxs", "0.3"}, {"txtYps", "0.2"}});
  EXPECT_TRUE(!Enabled("txtAlfa") && !Enabled("txtBeta") && !Enabled("txtCs2"));
  Click("cdmSalvar");
  EXPECT_EQ(TextOf("txtAlfa"), "0.6667");
  EXPECT_EQ(session.conditions.At(1).row[At::alpha], 0.2 / 0.3);
  Click("optEsteq");
  EXPECT_TRUE(Enabled("txtAlfa"));
  Do({{"cdmTrocarCinProd"}, {"optPPAC"}});
  EXPECT_TRUE(Enabled("txtAlfa") && Enabled("txtBeta") && Enabled("txtCs2"));
  Click("optPNAC");
  EXPECT_TRUE(!Enabled("txtAlfa") && Enabled("txtBeta"));
  Click("cdmSalvar");
  EXPECT_EQ(TextOf("txtAlfa"), "0");
}

TEST_F(CultivationWindow, AModelOffersItsParametersAndIsFixedOnceConfirmed) {
  Open();
  Choose("Wu-Levenspiel");
  for (const Parameter& parameter : kFittable) {
    const bool used = Uses(*FindModel("Wu-Levenspiel"), parameter.position);
    for (const char* prefix : {"chk", "txt", "lbl"})
      EXPECT_EQ(Enabled((prefix + std::string(parameter.name)).c_str()), used) << parameter.name;
  }
  Do({{"chkv"}, {"cmdConfirmarModelo"}});
  EXPECT_FALSE(Enabled("cmbModelo"));
  EXPECT_EQ(Find<QLabel>("lblModeloEscolhido")->text(), QStringLiteral("Wu-Levenspiel"));
  Click("cdmTrocarModelo");
  Choose("Monod");
  EXPECT_FALSE(Find<QAbstractButton>("chkv")->isChecked()) << "Monod has no v";
}

TEST_F(CultivationWindow, LeavesAnExperimentOnlyWhenItsChangesAreSaved) {
  OpenFilled(2);
  Click("cdmNext(1)");
  EXPECT_EQ(dialogs.shown.back().first.pieces,
            (std::vector<Piece>{TextId::SaveConditionsOf, "1", TextId::BeforeReturning}));
  EXPECT_EQ(TextOf("txtNExp"), "1");
  Do({{"cdmSalvar"}, {"cdmNext(1)"}});
  EXPECT_EQ(TextOf("txtNExp"), "2");
  EXPECT_EQ(TextOf("txtCs"), "75.04926");  // the first point is suggested
  EXPECT_TRUE(Find<QWidget>("lblNaoSalvo")->isVisible());
  Do({{"txtCs", "80"}, {"txtCs", "75.04926"}, {"cdmNext(0)"}});  // nothing differs any more
  EXPECT_EQ(TextOf("txtNExp"), "1");
  EXPECT_EQ(dialogs.shown.size(), 1U);
}

TEST_F(CultivationWindow, RefusesARunOverAnyUnsavedEdit) {
  OpenFilled();
  Click("cdmSalvar");
  const std::vector<std::vector<Edit>> unsaved = {{{"txtYxs", "0.3"}},
                                                  {{"txtLimSup(2)", "30"}},
                                                  {{"txtKs", "9"}},
                                                  {{"chkKs"}},
                                                  {{"cdmTrocarAjuste"}, {"optManual"}},
                                                  {{"cdmTrocarCinProd"}, {"optPPAC"}}};
  for (const std::vector<Edit>& edits : unsaved) {
    dialogs.shown.clear();
    Do(edits);
    Click("cmdAjustar");
    ASSERT_EQ(dialogs.shown.size(), 1U) << edits.back().control;
    EXPECT_EQ(dialogs.shown.back().first.pieces,
              (std::vector<Piece>{TextId::SaveConditionsOf, "1", TextId::BeforeRun}))
        << edits.back().control;
    EXPECT_FALSE(session.CurvesPresent());
    // Other words for what is saved are no edits.
    Do({{"txtYxs", "0.2860"}, {"txtLimSup(2)", "40.0"}, {"txtKs", "10.00"}});
    for (const char* chosen : {"optED", "optPAC"})
      if (!Find<QAbstractButton>(chosen)->isChecked()) Click(chosen);
    if (!Find<QAbstractButton>("chkKs")->isChecked()) Click("chkKs");
  }
  Estimate();
  EXPECT_TRUE(session.CurvesPresent());
}

TEST_F(CultivationWindow, StoresTheEstimatedValuesFromWhichTheNextRunStarts) {
  OpenFilled(2);
  Do({{"cdmSalvar"}, {"cdmNext(1)"}, {"cdmSalvar"}});
  Estimate();
  const std::vector<double> best = session.lastRun->outcome.result.best;
  EXPECT_EQ(session.conditions.At(1).row[At::Ks], 10) << "they are not the user's yet";
  session.settings.IU = 1234;
  Estimate();
  const FinishedRun& second = *session.lastRun;
  EXPECT_EQ(dialogs.shown.size(), 2U) << "the two questions alone";
  EXPECT_EQ(second.outcome.problem.variables[1].start, best[1]);
  EXPECT_EQ(session.conditions.fitted, second.outcome.problem.variables);
  for (const int place : {1, 2}) EXPECT_EQ(session.conditions.At(place).row[At::Ks], best[1]);

  dialogs.shown.clear();
  Do({{"cdmTrocarAjuste"}, {"optManual"}, {"cdmSalvar"}, {"cmdIrVoltar"}, {"cmdAjustar"}});
  EXPECT_EQ(dialogs.shown.back().first.pieces.front(), Piece(TextId::OptionsDiffer));
  Show(ClearAll(session));
  EXPECT_EQ(Results(), "");
  EXPECT_FALSE(Enabled("cmdRelatorio") || Enabled("cmdIrVoltar"));
}

TEST_F(CultivationWindow, KeepsUnsavedEntriesAsTheListChangesAndTellsOfThemAtTheFile) {
  OpenFilled(2);
  Do({{"cdmSalvar"}, {"cdmNext(1)"}, {"cdmSalvar"}, {"txtYxs", "0.33"}});
  Show(DeleteExperiment(session, 1).change);
  EXPECT_EQ(TextOf("txtNExp"), "2");
  EXPECT_EQ(TextOf("txtYxs"), "0.33");
  dialogs.answers = {Answer::No};
  window->SalvarArqCondBat();
  EXPECT_TRUE(dialogs.filters.empty()) << "no file is asked for";
  Experiment remeasured = Molasses(2);
  remeasured.Cx.front() = 0.9;
  Show(SaveExperiment(session, remeasured, {}, 1).change);
  EXPECT_EQ(TextOf("txtYxs"), "0.33");
  EXPECT_EQ(TextOf("txtCx"), "1.1059872") << "what is saved stays";

  Experiment third = Molasses(3);
  Show(SaveExperiment(session, third, {}, 0).change);
  Do({{"txtYxs", "0.286"}, {"cdmNext(1)"}, {"txtCs", "70"}});
  third.Cx.front() = 0.8, third.Cs.front() = 60;
  Show(SaveExperiment(session, third, {}, 2).change);
  EXPECT_EQ(TextOf("txtCx"), "0.8") << "a suggestion follows the data";
  EXPECT_EQ(TextOf("txtCs"), "70") << "what the user typed does not";
}

TEST_F(CultivationWindow, SavesAndReopensNineExperimentsAndRefusesATenth) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("conditions.abr"));
  dialogs.files.assign(5, file);
  OpenFilled(9);
  window->SalvarArqCondBat();
  EXPECT_EQ(dialogs.shown.back().first.pieces, std::vector<Piece>{TextId::NoConditionsAdded});
  for (int place = 1; place <= 9; ++place) Do({{"cdmSalvar"}, {"cdmNext(1)"}});
  window->SalvarArqCondBat();
  const CultivationConditions saved = session.conditions;
  ASSERT_EQ(saved.SavedCount(), 9);

  session.conditions.Clear();
  window->AbrirCondBat();
  EXPECT_EQ(session.conditions, saved);
  EXPECT_EQ(dialogs.shown.back().first.pieces,
            (std::vector<Piece>{TextId::ConditionsOf, " 1, 2, 3, 4, 5, 6, 7, 8, 9 ",
                                TextId::SuccessfullyInserted}));
  EXPECT_EQ(TextOf("txtNExp"), "1");
  EXPECT_FALSE(Enabled("cmbModelo")) << "the model is recognised";

  session.conditions.fitted[1].upper = 5;  // below the values
  window->SalvarArqCondBat();
  window->AbrirCondBat();
  EXPECT_EQ(dialogs.shown.back().first.pieces.back(), Piece(TextId::InsertedButReview));

  Show(SaveExperiment(session, Molasses(10), {}, 0).change);
  const CultivationConditions nine = session.conditions;
  for (int place = 2; place <= 10; ++place) Click("cdmNext(1)");
  Click("cdmSalvar");
  window->AbrirCondBat();
  EXPECT_EQ(dialogs.shown.back(), dialogs.shown.end()[-2]);
  EXPECT_EQ(dialogs.shown.back().first.pieces, std::vector<Piece>{TextId::CountsDiffer});
  EXPECT_EQ(session.conditions, nine);

  Show(DeleteExperiment(session, 1).change);
  EXPECT_EQ(session.conditions.At(1).number, 2) << "conditions follow their experiments";
}

}  // namespace
}  // namespace velmora
