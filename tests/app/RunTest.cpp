// Simulations and searches in the cultivation window, by keys and mouse.
#include <QProgressBar>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>

#include "app/charts/ChartView.h"
#include "app/cultivation/ScoreView.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/settings/frmParametros.h"
#include "app/widgets/Idiomas.h"
#include "cultivation/FitSetUp.h"
#include "data/FileBytes.h"
#include "estimation/EvolucaoDiferencial.h"
#include "estimation/ResultTexts.h"
#include "tests/data/FileTesting.h"
#include "tests/support/CultivationWindow.h"

namespace velmora {
namespace {

TEST_F(CultivationWindow, FitsWhatTheBoxesSayToTheLastDigit) {
  OpenSaved();
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

// Zentou et al. 2019 report 0.179 1/h and 11.37 g/L for these data with their own yields.
TEST_F(CultivationWindow, FitsByLevenbergMarquardt) {
  OpenFilled();
  Do({{"cdmTrocarAjuste"}, {"optLM"}});
  Click("cdmSalvar");
  Estimate();
  ASSERT_TRUE(session.lastRun) << dialogs.LastText();
  const SearchResult& result = session.lastRun->outcome.result;
  EXPECT_EQ(result.end, SearchEnd::Converged);
  const FitProblem problem = ProblemOf({Molasses()}, session.conditions);
  EXPECT_LT(result.score, Objective(problem).Simulate(std::vector{0.193, 16.1}).score);
  EXPECT_NE(Results().find("\nStarts that reached this optimum within 1 %: "), std::string::npos);
  EXPECT_EQ(dialogs.shown.size(), 1U);  // the question alone
}

TEST_F(CultivationWindow, TellsARefusalOnceAndChangesNothing) {
  OpenFilled();
  Do({{"chkKs"}, {"chkMiMax"}, {"cdmSalvar"}});
  ASSERT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(dialogs.shown.back().first, Attention({TextId::NothingFitted}));
  EXPECT_EQ(session.conditions, CultivationConditions());

  Do({{"chkKs"}, {"chkMiMax"}, {"cdmSalvar"}, {"txtMiMax", "0.04"}});
  const CultivationConditions before = session.conditions;
  Click("cmdAjustar");
  ASSERT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(dialogs.shown.back().first, Attention({TextId::FitEntryOutOfBounds}));
  EXPECT_EQ(session.conditions, before);

  for (const char* box : {"txtMiMax", "txtLimInf(1)", "txtLimSup(1)"}) Type(box, "0.2");
  Click("cdmSalvar");
  Estimate();
  EXPECT_EQ(dialogs.LastText(), "Check the bound values.");
  EXPECT_FALSE(window->Running() || Enabled("cmdRelatorio") || session.CurvesPresent());
}

TEST_F(CultivationWindow, ShowsTheReportOfTheRunAndSavesIt) {
  OpenSaved();
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
  EXPECT_TRUE(shown().starts_with("Report of estimated kinetic parameters\nSummary\n"));
  EXPECT_NE(shown().find("\nKs = " + estimated + " +/- "), std::string::npos);
  const auto picture = [&](int index) {
    const QUrl url(QString::fromStdString(rich::PictureName(index)));
    return text->document()->resource(QTextDocument::ImageResource, url).value<QImage>();
  };
  for (int i = 0; i < 3; ++i) {
    const std::string& png = ofTheRun.at(static_cast<std::size_t>(i)).picture.png;
    const QImage whole = QImage::fromData(QByteArray::fromStdString(png));
    EXPECT_EQ(picture(i), whole.scaledToWidth(picture(i).width(), Qt::SmoothTransformation));
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
  QTest::keyClick(text->window(), Qt::Key_Escape);
  EXPECT_FALSE(text->window()->isVisible());
}

TEST_F(CultivationWindow, StopsBetweenGenerationsAndRunsAgain) {
  OpenSaved();
  session.settings.EPS = 0;  // no generation converges
  session.settings.ITER = 1e6;
  QTimer::singleShot(600, window.get(), [this] {
    EXPECT_TRUE(window->Running());
    for (const char* name : {"cmdAjustar", "cdmSalvar", "txtKs", "cdmBackExp", "cmdLimpar"})
      EXPECT_FALSE(Enabled(name)) << name;
    for (const char* name : {"txtResultados", "picCx"}) EXPECT_TRUE(Enabled(name)) << name;
    Find<QPlainTextEdit>("txtResultados")->verticalScrollBar()->setValue(3);
    dialogs.answers = {Answer::No};
    Click("Command1");
  });
  QTimer::singleShot(900, window.get(), [this] {
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

TEST_F(CultivationWindow, StopsInsideALongGeneration) {
  OpenSaved();
  session.settings.NPOP = 1e6;
  QTimer::singleShot(50, window.get(), [this] {
    dialogs.answers = {Answer::Yes};
    Click("Command1");
  });
  Estimate();
  ASSERT_TRUE(session.lastRun);
  const SearchResult& result = session.lastRun->outcome.result;
  EXPECT_EQ(result.end, SearchEnd::Stopped);
  EXPECT_LT(result.functionCalls, 1e6) << "the population was scored to its end";
  EXPECT_TRUE(Enabled("cmdRelatorio"));
}

/// Half a percent and six decades are drawn over most of the height.
TEST(ScoreView, ShowsSmallGainsAndLargeOnes) {
  for (const double factor : {0.995, 1e-6}) {
    ScoreView view;
    view.resize(300, 200);
    for (const double score : {42.0, 42 * factor}) view.Add(score);
    const QImage shown = view.grab().toImage();
    int first = shown.height(), last = 0;
    for (int y = 0; y < shown.height(); ++y)
      for (int x = 0; x < shown.width(); ++x)
        if (const QColor ink = shown.pixelColor(x, y); ink.blue() > ink.red() + 60) {
          first = std::min(first, y);
          last = std::max(last, y);
        }
    EXPECT_GT(last - first, shown.height() / 3) << factor;
  }
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

TEST_F(CultivationWindow, RefusesARunOverAnyUnsavedEdit) {
  OpenSaved();
  for (const Edit& edit : {Edit{"txtYxs", "0.3"}, {"txtLimSup(2)", "30"}, {"chkKs"}}) {
    dialogs.shown.clear();
    Do({edit, {"cmdAjustar"}});
    ASSERT_EQ(dialogs.shown.size(), 1U) << edit.control;
    EXPECT_EQ(dialogs.shown.back().first.pieces,
              (std::vector<Piece>{TextId::SaveConditionsOf, "1", TextId::BeforeRun}));
    EXPECT_FALSE(session.CurvesPresent());
    // Other words for what is saved are no edits.
    Do({{"txtYxs", "0.2860"}, {"txtLimSup(2)", "40.0"}});
  }
  Click("chkKs");
  Estimate();
  EXPECT_TRUE(session.CurvesPresent());
}

TEST_F(CultivationWindow, StoresTheEstimatedValuesFromWhichTheNextRunStarts) {
  OpenSaved(2);
  Do({{"cdmNext(1)"}, {"cdmSalvar"}});
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

TEST_F(CultivationWindow, RunsWithTheSettingsOfItsStart) {
  OpenSaved();
  session.settings.EPS = -1;  // no generation converges
  const EstimationSettings atStart = session.settings;
  frmParametros settings(session, dialogs);
  settings.show();
  QTimer::singleShot(0, window.get(), [&] {
    ASSERT_TRUE(window->Running());
    for (const auto& [name, text] : {std::pair("txtNPOP", "5000"),
                                     {"txtITER", "999"},
                                     {"txtFACT", "0.5"},
                                     {"txtEPS", "0.0001"}})
      test::Type(settings, name, text);
    test::Click(settings, "cdmAtualizar");
    ASSERT_EQ(session.settings.NPOP, 5000) << dialogs.LastText();
  });
  Estimate();
  SearchObserver silent;
  const SearchOutcome& run = session.lastRun->outcome;
  const SearchResult expected = Search(run.problem, atStart, silent);
  EXPECT_EQ(run.result.best, expected.best);
  EXPECT_EQ(run.result.generations, 200);
  EXPECT_EQ(Find<QProgressBar>("progresso")->maximum(), 200);
}

/// With a Moser model whose exponent overflows the substrate's power from 164.4 on.
class Overflowing : public CultivationWindow {
 protected:
  Overflowing() {
    OpenFilled();
    Click("cdmTrocarModelo");
    Choose("Moser");
    Do({{"cmdConfirmarModelo"}, {"chku"}, {"txtLimInf(9)", "0.5"}, {"txtLimSup(9)", "165"}});
  }
};

TEST_F(Overflowing, ShowsWhatWasFoundBeforeALateFault) {
  Do({{"txtu", "1"}, {"cdmSalvar"}});
  session.settings = {20, 1e5, 0.8, 0.8, 0.01, -1, 1001};
  Estimate();
  const SearchResult& result = session.lastRun->outcome.result;
  ASSERT_EQ(result.end, SearchEnd::Fault);
  ASSERT_GT(result.generations, 1);
  EXPECT_NE(Results().find("Estimate was not completed:  overflow in the substrate power Cs^u"),
            std::string::npos);
  EXPECT_TRUE(Results().ends_with("found before this are those of generation " +
                                  std::to_string(result.bestGeneration) + ".\n"));
  EXPECT_EQ(TextOf("txtKs"), Formatted(result.best[1], kTwoToThirteen, '.'));
  EXPECT_EQ(Find<QLabel>("lblAjustePar")->text(), QStringLiteral("Estimated parameters:"));
  EXPECT_TRUE(Enabled("cmdRelatorio") && Enabled("cmdIrVoltar"));
  EXPECT_TRUE(session.CurvesPresent());
}

TEST_F(Overflowing, AnnouncesNoValuesWhereAFaultLeftNone) {
  Do({{"txtu", "165"}, {"cdmSalvar"}});  // the start itself overflows
  Estimate();
  EXPECT_TRUE(Results().starts_with("Estimate was not completed:  overflow"));
  EXPECT_FALSE(Find<QLabel>("lblAjustePar")->isVisible());
  EXPECT_FALSE(Enabled("cmdRelatorio") || Enabled("cmdIrVoltar") || session.CurvesPresent());
}

TEST_F(CultivationWindow, EmptiesOldResultsBeforeANewRefusal) {
  OpenSaved();
  Estimate();
  ASSERT_FALSE(Results().empty());
  Do({{"txtLimInf(1)", ""}, {"cmdAjustar"}});
  EXPECT_EQ(dialogs.shown.back().first.pieces,
            (std::vector<Piece>{TextId::PossibleErrors, "\n", TextId::FitEntryMissing, "\n",
                                TextId::BoundIsZero}));
  EXPECT_EQ(Results(), "");
  EXPECT_FALSE(Find<QLabel>("lblAjustePar")->isVisible());
  EXPECT_TRUE(Enabled("cmdRelatorio")) << "the report of the run is still to be had";
}

TEST_F(CultivationWindow, KeepsTheHeadingOfARunThroughASwitchOfTheLanguage) {
  OpenSaved();
  session.settings.EPS = -1;
  QTimer generation;
  QObject::connect(&generation, &QTimer::timeout, window.get(), [&] {
    if (Results().empty()) return;
    generation.stop();
    ASSERT_TRUE(window->Running());
    session.language = Language::Portuguese;
    Idiomas(*window, session.language);
    EXPECT_EQ(Find<QAbstractButton>("cdmSalvar")->text(), QStringLiteral("Salvar"));
    EXPECT_EQ(Find<QLabel>("lblAjustePar")->text(), QStringLiteral("Estimating parameters:"));
  });
  generation.start(0);
  Estimate();
  EXPECT_TRUE(Results().starts_with("**********Estimated parameters**********"));
  EXPECT_NE(Results().find("**********Parâmetros estimados**********"), std::string::npos);
  EXPECT_EQ(Find<QLabel>("lblAjustePar")->text(), QStringLiteral("Parâmetros estimados:"));
}

TEST_F(CultivationWindow, DrawsACurveUpToItsFault) {
  OpenFilled();
  // Death in steps of 1000 h at 1000/h grows without bound.
  Do({{"txtkd", "1000"},
      {"txtCs1", "999"},
      {"txtTempo", "99000"},
      {"optManual"},
      {"cdmSalvar"},
      {"cmdAjustar"}});
  const int points = session.curves[0].points;
  ASSERT_TRUE(points > 2 && points < 100);
  EXPECT_NE(Results().find("point " + std::to_string(points + 1) + " of 100"), std::string::npos);
  EXPECT_EQ(Find<ChartView>("picCx")->Content().experiments[0].curve.size(),
            static_cast<std::size_t>(points));
  window->ExportarDados();
  EXPECT_EQ(QApplication::clipboard()->text().count(QLatin1Char('\n')), points + 3);
}

}  // namespace
}  // namespace velmora
