// A first fit with few entries: proposals, one form for all, the verdict, better fits, other
// models.
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>

#include "app/widgets/Idiomas.h"
#include "tests/support/CultivationWindow.h"

namespace velmora {
namespace {

class FirstFit : public CultivationWindow {
 protected:
  std::string Summary() const {
    return Find<QPlainTextEdit>("txtResumo")->toPlainText().toStdString();
  }
};

TEST_F(FirstFit, TakesThreeClicksForAllExperiments) {
  Experiment late = Molasses(3);  // no cells were seen in its first sample
  late.Cx[0] = 0;
  for (const auto& each : {Molasses(1), Molasses(2), late}) session.lists.Append(each, {});
  Open(0);
  Type("txtKs", "9");
  Click("cmdPropor");
  EXPECT_EQ(TextOf("txtKs"), "9") << "what was typed stays";
  EXPECT_NE(TextOf("txtMiMax"), "");
  const QColor proposed = Find<QLineEdit>("txtMiMax")->palette().color(QPalette::Text);
  const auto ink = [this](const char* box) {
    return Find<QLineEdit>(box)->palette().color(QPalette::Text);
  };
  EXPECT_NE(proposed, ink("txtKs"));
  for (const char* bound : {"txtLimInf(1)", "txtLimSup(1)"}) EXPECT_EQ(ink(bound), proposed);
  Type("txtMiMax", "0.3");
  EXPECT_NE(ink("txtMiMax"), proposed);
  EXPECT_EQ(ink("txtYxs"), proposed);
  dialogs.answers = {Answer::Yes};
  Click("cmdUsarTodos");
  for (const char* box : {"txtYxs", "txtLimSup(1)"})
    EXPECT_NE(ink(box), proposed) << box << " was accepted";
  EXPECT_EQ(session.conditions.SavedCount(), 3);
  EXPECT_EQ(session.conditions.At(3).row[At::muMax], 0.3);
  EXPECT_GT(session.conditions.At(3).row[At::Cx0], 0);
  EXPECT_EQ(session.conditions.At(1).options.method, "LM");
  EXPECT_TRUE(dialogs.answers.empty());

  Estimate();
  ASSERT_TRUE(session.lastRun) << dialogs.LastText();
  EXPECT_TRUE(Summary().starts_with("Ended: all starts were searched")) << Summary();
  EXPECT_NE(Summary().find("R²: Cx 0.9"), std::string::npos) << Summary();
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return Summary().find(" g/L: ") != std::string::npos; }, 60000))
      << "the verdict follows: " << Summary();

  // As many digits as are certain, and all of them where they are copied.
  const std::string shown = Summary();
  auto* const summary = Find<QPlainTextEdit>("txtResumo");
  summary->selectAll();
  summary->copy();
  const std::string copied = QApplication::clipboard()->text().toStdString();
  const std::string best = PlainText(session.lastRun->outcome.result.best[1], '.');
  EXPECT_EQ(shown.find("Ks = " + best), std::string::npos);
  EXPECT_NE(copied.find("Ks = " + best + " ± "), std::string::npos) << copied;

  session.language = Language::Portuguese;
  Idiomas(*window, session.language);
  EXPECT_TRUE(Summary().starts_with("Fim: ")) << Summary();
  EXPECT_NE(Summary().find(" g/L: "), std::string::npos) << "with the verdict: " << Summary();
}

TEST_F(FirstFit, ImprovesAResultFromWhereItStands) {
  OpenSaved();
  session.settings.ITER = 2;
  session.settings.EPS = 0;  // no generation converges
  Estimate();
  const double before = session.lastRun->outcome.result.score;
  EXPECT_TRUE(Summary().starts_with("Ended: after all 2 generations")) << Summary();
  const std::size_t asked = dialogs.shown.size();
  Click("cmdMelhorar");
  EXPECT_EQ(dialogs.shown.size(), asked) << "without a question";
  EXPECT_LE(session.lastRun->outcome.result.score, before);
  EXPECT_LE(session.lastRun->outcome.result.startScore, before * (1 + 1e-9));
}

TEST_F(FirstFit, TakesAModelOverFromTheComparison) {
  Open(1);
  EXPECT_FALSE(Enabled("cmdComparar")) << "before conditions are saved";
  Do(kFilled);
  Click("cdmSalvar");
  Click("cmdComparar");
  auto* const table = Find<QTableWidget>("tabelaModelos");
  ASSERT_TRUE(QTest::qWaitFor([table] { return table->rowCount() > 20; }, 120000));
  const QString best = table->item(0, 0)->text();
  emit table->cellActivated(0, 0);
  EXPECT_EQ(Find<QComboBox>("cmbModelo")->currentText(), best);
  const auto ink = [this] { return Find<QLineEdit>("txtMiMax")->palette().color(QPalette::Text); };
  const QColor takenOver = ink();
  emit table->cellActivated(0, 0);
  EXPECT_EQ(Find<QLineEdit>("txtLimSup(1)")->palette().color(QPalette::Text), takenOver)
      << "also once it is taken over again";
  Type("txtMiMax", "0.3");
  EXPECT_NE(ink(), takenOver) << "what was taken over is marked until it is touched";
  for (const Language language : {Language::English, Language::Portuguese}) {
    session.language = language;
    Idiomas(*window, language);
    QTest::qWait(0);
    for (const char* name : {"cmdMelhorar", "cmdCerteza", "cmdComparar", "cmdAnterior"}) {
      const auto* const button = Find<QPushButton>(name);
      EXPECT_GE(button->width(), button->sizeHint().width()) << name << " is cut";
    }
  }
  Click("cmdAnterior");
  EXPECT_EQ(Find<QComboBox>("cmbModelo")->currentText(), QStringLiteral("Monod"));
  EXPECT_TRUE(TextOf("txtKs") == "10" && TextOf("txtLimSup(2)") == "40");
  EXPECT_FALSE(Find<QWidget>("cmdAnterior")->isVisible());
  emit table->cellActivated(0, 0);
  Click("cdmSalvar");
  EXPECT_EQ(session.conditions.At(1).options.model, best.toStdString());
  EXPECT_FALSE(session.conditions.fitted.empty());
}

TEST_F(FirstFit, SaysWhatAnotherModelDoesToTheOthers) {
  OpenSaved(2);
  Click("cdmNext(1)");
  Do({{"cmdConfirmarModelo"}});
  Click("cdmTrocarModelo");
  Choose("Andrews");
  Click("cmdConfirmarModelo");
  Do({{"txtKis", "100"}, {"txtLimInf(3)", "1"}, {"txtLimSup(3)", "500"}});
  Click("cdmSalvar");
  EXPECT_NE(dialogs.LastText().find("1 other experiment(s) are stored with the model Monod"),
            std::string::npos)
      << dialogs.LastText();
}

}  // namespace
}  // namespace velmora
