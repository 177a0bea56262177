// The entries of the cultivation window, by keys and mouse.
#include <QTemporaryDir>

#include "tests/support/CultivationWindow.h"

namespace velmora {
namespace {

TEST_F(CultivationWindow, UntouchedBoxesKeepTheDigitsThatTheyDoNotShow) {
  OpenSaved(2);
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

TEST_F(CultivationWindow, OffersTheDataSetAndSavesItsChoice) {
  OpenFilled();
  const std::pair<const char*, const char*> boxes[] = {
      {"chk(0)", "Cp versus time"}, {"chk(1)", "Cs versus time"}, {"chk(2)", "Cx versus time"}};
  int left = -1;
  for (const auto& [name, caption] : boxes) {
    auto* const box = Find<QAbstractButton>(name);
    EXPECT_EQ(box->text(), QLatin1StringView(caption));
    EXPECT_LT(std::exchange(left, box->x()), box->x());
  }
  Do({{"chk(0)"}, {"cdmSalvar"}});
  EXPECT_EQ(session.conditions.At(1).options.dataSet, "Cx Cs");
  Show(SaveExperiment(session, Molasses(2), {}, 0).change);
  Do({{"cdmNext(1)"}, {"cdmNext(0)"}, {"cdmSalvar"}});
  EXPECT_EQ(session.conditions.At(1).options.dataSet, "Cx Cs") << "shown as it was stored";
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

TEST_F(CultivationWindow, KeepsUnsavedEntriesAsTheListChangesAndTellsOfThemAtTheFile) {
  OpenSaved(2);
  Do({{"cdmNext(1)"}, {"cdmSalvar"}, {"txtYxs", "0.33"}});
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
  dialogs.files.assign(4, file);
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
  EXPECT_EQ(dialogs.shown.back().first.pieces, std::vector<Piece>{TextId::CountsDiffer});
  EXPECT_EQ(session.conditions, nine);
}

}  // namespace
}  // namespace velmora
