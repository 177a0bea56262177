// What the user's operations change in the state, and what they leave as it is.
#include <gtest/gtest.h>

#include <fstream>
#include <memory>

#include "data/ExperimentFile.h"
#include "data/SafeSave.h"
#include "session/Operations.h"
#include "session/Unsaved.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

using test::Filled;
using test::Measured;

/// Experiments 1, 2, ... with their conditions and with curves that are told apart.
Session Cultivation(int experiments) {
  Session session;
  session.separator = '.';
  for (int place = 1; place <= experiments; ++place) {
    session.lists.Append(Measured(static_cast<std::int16_t>(place)), {});
    if (place > kMostExperiments) continue;
    EXPECT_FALSE(SaveConditions(session, Filled(), place).refusal);
    ModelCurve& curve = session.curves.at(static_cast<std::size_t>(place) - 1);
    curve.points = 100;
    curve.Cx[0] = place;
  }
  return session;
}

const Message kUnsaved = Attention({TextId::SaveConditionsOf, "2", TextId::BeforeRun});

std::shared_ptr<const FinishedRun> RunWith(double estimatedKs) {
  FinishedRun run;
  run.outcome.problem.variables = {{At::muMax, 0.05, 1, 0.2}, {At::Ks, 1, 30, 10}};
  run.outcome.result.best = {0.3, estimatedKs};
  return std::make_shared<const FinishedRun>(std::move(run));
}

TEST(DeleteExperiment, TakesConditionsAndCurveAlongAndMovesTheLaterOnes) {
  Session session = Cultivation(10);
  session.lastRun = RunWith(12);
  EXPECT_TRUE(DeleteExperiment(session, 11).refusal);
  EXPECT_EQ(session.lists.Count(), 10);
  const ExperimentDeleted deleted = DeleteExperiment(session, 2);
  EXPECT_TRUE(deleted.change.lists && deleted.change.conditions && deleted.change.curves);
  EXPECT_EQ(deleted.change.deleted, 2);
  EXPECT_EQ(session.lists.At(2).number, 3);
  EXPECT_EQ(session.conditions.At(2).number, 3);
  EXPECT_EQ(session.curves[1].Cx[0], 3);
  EXPECT_EQ(session.curves[7].Cx[0], 9);
  EXPECT_EQ(session.curves[8].points, 0);
  EXPECT_EQ(session.conditions.At(8).number, 9);
  EXPECT_EQ(session.conditions.At(9), ConditionsRecord()) << "the tenth had none";
  EXPECT_TRUE(session.lastRun) << "others were fitted as well";

  while (session.conditions.SavedCount() > 1) DeleteExperiment(session, 1);
  EXPECT_TRUE(DeleteExperiment(session, 1).change.results);
  EXPECT_FALSE(session.lastRun);
}

TEST(SaveExperiment, WithdrawsTheCurveOfOtherData) {
  Session session = Cultivation(3);
  Experiment described = Measured(2);
  described.description = "glucose";
  const Change same = SaveExperiment(session, described, {}, 2).change;
  EXPECT_TRUE(same.lists && !same.curves && same.remeasured == 0);
  const Change other = SaveExperiment(session, Measured(2, 0.7), {}, 2).change;
  EXPECT_TRUE(other.curves);
  EXPECT_EQ(other.remeasured, 2);
  EXPECT_EQ(session.curves[1].points, 0);
  EXPECT_EQ(session.curves[2].points, 100);
  EXPECT_TRUE(session.conditions.At(2).saved);

  EXPECT_FALSE(SaveExperiment(session, Measured(2, 0.9), {}, 2).change.curves) << "it had none";
  SaveExperiment(session, Measured(2, 0.7), {}, 2);

  session.lists.Append(Measured(2), {});  // as a file may have it
  EXPECT_EQ(SaveExperiment(session, Measured(2, 0.8), {}, 4).place, 4);
  EXPECT_EQ(session.lists.At(2), Measured(2, 0.7));
  EXPECT_EQ(SaveExperiment(session, Measured(9), {}, 4).place, 5);
}

TEST(OpenExperiments, ReplacesAllOrNothing) {
  const TemporaryFolder folder;
  Session session = Cultivation(2);
  session.lastRun = RunWith(12);
  ASSERT_FALSE(SafeSave(folder / "bad.abr", "one\r\ntwo\r\nthree\r\n"));
  const ExperimentsFile bad = ReadExperimentsFile(session, folder / "bad.abr");
  EXPECT_TRUE(bad.fault && !bad.Usable() && !bad.question);

  ExperimentLists twice;
  for (const double first : {0.5, 0.6}) twice.Append(Measured(4, first), {});
  ASSERT_FALSE(WriteExperiments(twice, folder / "twice.abr"));
  ExperimentsFile file = ReadExperimentsFile(session, folder / "twice.abr");
  EXPECT_TRUE(file.Usable() && file.remarks.size() == 1 && !file.question);
  EXPECT_TRUE(session.lists.Count() == 2 && session.lastRun && session.CurvesPresent());
  EXPECT_TRUE(TakeExperiments(session, std::move(file)).replaced);
  EXPECT_EQ(session.lists.At(2).Cx[0], 0.6);
  EXPECT_EQ(session.conditions, CultivationConditions());
  EXPECT_FALSE(session.lastRun || session.CurvesPresent());
}

TEST(OpenExperiments, AsksBeforeADamagedFileTakesTheOldOnesAway) {
  const TemporaryFolder folder;
  Session session = Cultivation(1);
  ASSERT_FALSE(WriteExperiments(test::Lists({7, 8}), folder / "whole.abr"));
  const std::string bytes = BytesOf(folder / "whole.abr");
  ASSERT_FALSE(SafeSave(folder / "cut.abr", bytes.substr(0, bytes.size() - 6)));
  const ExperimentsFile cut = ReadExperimentsFile(session, folder / "cut.abr");
  EXPECT_TRUE(cut.fault && cut.lists.Count() == 1 && cut.question);
  EXPECT_FALSE(ReadExperimentsFile(Session(), folder / "cut.abr").question) << "nothing would go";
  TakeExperiments(session, cut);
  EXPECT_EQ(session.experimentsFile, "") << "one that is damaged is not written over unasked";
  EXPECT_EQ(UnsavedOf(session, false).experiments, 1);

  ASSERT_FALSE(SafeSave(folder / "none.abr", "one\r\ntwo\r\n$0\r\n"));
  const ExperimentsFile none = ReadExperimentsFile(session, folder / "none.abr");
  EXPECT_TRUE(!none.fault && !none.Usable() && none.remarks.size() == 1);
}

TEST(OpenExperiments, ReplacesHowNobodyCanDraw) {
  const TemporaryFolder folder;
  ExperimentLists lists;
  for (const DisplayEntry& display : {DisplayEntry{"Triang3", 6, 3, false}, {"odd", 9, 8, true}})
    lists.Append(Measured(static_cast<std::int16_t>(lists.Count() + 1)), display);
  ASSERT_FALSE(WriteExperiments(lists, folder / "odd.abr"));
  const ExperimentsFile file = ReadExperimentsFile(Session(), folder / "odd.abr");
  ASSERT_EQ(file.remarks.size(), 1U);
  const std::string told = Worded(file.remarks[0], Language::English);
  EXPECT_NE(told.find("2: \"odd\", \"9\", \"8\""), std::string::npos) << told;
  EXPECT_EQ(told.find("1: "), std::string::npos) << told;
  EXPECT_EQ(file.lists.Display(1), lists.Display(1));
  EXPECT_EQ(file.lists.Display(2), (DisplayEntry{"CircVazio", 2, 1, true}));
}

TEST(OpenConditions, ChangesNothingUnlessTheyBelongToTheExperiments) {
  const TemporaryFolder folder;
  Session session = Cultivation(2);
  session.activeWindow = kCultivationWindow;
  ASSERT_FALSE(WriteConditionsFile(session, folder / "two.abr"));
  session.lists.Append(Measured(3), {});
  const CultivationConditions before = session.conditions;
  const ConditionsOpened refused = OpenConditions(session, folder / "two.abr");
  EXPECT_TRUE(refused.refusal && !refused.change.conditions);
  EXPECT_TRUE(OpenConditions(session, folder / "none.abr").fault);
  EXPECT_TRUE(session.conditions == before && session.CurvesPresent());

  DeleteExperiment(session, 3);
  ClearConditions(session, 1);
  EXPECT_EQ(session.conditions.fitted.size(), 2U);
  ClearConditions(session, 2);
  EXPECT_TRUE(session.conditions.fitted.empty()) << "the table goes with the last";
  const ConditionsOpened opened = OpenConditions(session, folder / "two.abr");
  EXPECT_TRUE(opened.change.conditions && opened.messages.size() == 1);
  EXPECT_EQ(session.conditions, before);
  EXPECT_FALSE(session.CurvesPresent());
}

TEST(WriteConditionsFile, TellsTheActiveWindow) {
  const TemporaryFolder folder;
  Session session = Cultivation(1);
  for (const char* window : {kExperimentsWindow, kCultivationWindow}) {
    session.activeWindow = window;
    ASSERT_FALSE(WriteConditionsFile(session, folder / "c.abr"));
    EXPECT_EQ(BytesOf(folder / "c.abr").find("Batelada") != std::string::npos,
              window == kCultivationWindow);
  }
}

TEST(SaveConditions, RefusesATenthExperiment) {
  Session session = Cultivation(10);
  const ConditionsSaved saved = SaveConditions(session, Filled(), 10);
  ASSERT_TRUE(saved.refusal);
  EXPECT_EQ(saved.refusal->message, Attention({TextId::CountsDiffer}));
  EXPECT_FALSE(saved.change.conditions);
}

TEST(RefuseStart, TakesEveryEditAlike) {
  const Session session = Cultivation(2);
  EXPECT_FALSE(RefuseStart(session, Filled(), 2));
  void (*const edits[])(CultivationForm&) = {
      [](CultivationForm& f) { f.At(At::Yxs) = "0.31"; },
      [](CultivationForm& f) { f.At(At::T) = "."; },
      [](CultivationForm& f) { f.At(At::muMax) = "0.21"; },
      [](CultivationForm& f) { f.fit[0].lower = "0.06"; },
      [](CultivationForm& f) { f.fit[1].upper = "31"; },
      [](CultivationForm& f) { f.fit[1].ticked = false; },
      [](CultivationForm& f) { f.method = Method::Manual; },
      [](CultivationForm& f) { f.production = Production::PPAC; },
      [](CultivationForm& f) { f.yields = Yields::Global; },
      [](CultivationForm& f) { f.dataSet[2] = false; },
      [](CultivationForm& f) { f.model = "Contois"; }};
  for (std::size_t i = 0; i < std::size(edits); ++i) {
    CultivationForm form = Filled();
    edits[i](form);
    const auto refusal = RefuseStart(session, form, 2);
    ASSERT_TRUE(refusal) << i;
    EXPECT_EQ(refusal->message, kUnsaved) << i;
  }
  CultivationForm same = Filled();
  same.At(At::Yxs) = "0.30", same.fit[1].upper = "30.0";
  same.At(At::Kis) = "7", same.fit[3].lower = "2";  // which the model has not, or nobody ticked
  same.modelConfirmed = false;
  EXPECT_FALSE(RefuseStart(session, same, 2));
}

TEST(RefuseStart, KnowsAnEstimatedValueFromAnEdit) {
  Session session = Cultivation(2);
  session.lastRun = RunWith(12.3456789);
  CultivationForm form = Filled();
  form.At(At::Ks) = {"12.3457", 12.3456789};
  EXPECT_FALSE(RefuseStart(session, form, 2));
  form.At(At::Ks) = "12.3457";
  EXPECT_EQ(RefuseStart(session, form, 2)->message, kUnsaved);
  // A simulation would not use it.
  CultivationForm simulates = Filled();
  simulates.method = Method::Manual;
  for (const int place : {1, 2}) ASSERT_FALSE(SaveConditions(session, simulates, place).refusal);
  EXPECT_FALSE(RefuseStart(session, simulates, 2));
  simulates.At(At::Ks) = {"12.3457", 12.3456789};
  EXPECT_EQ(RefuseStart(session, simulates, 2)->message, kUnsaved);
}

TEST(RefuseStart, ChecksInOrder) {
  Session session;
  session.separator = '.';
  CultivationForm form = Filled();
  form.fit[0].lower = "0";
  EXPECT_EQ(RefuseStart(session, form, 0)->box, At::muMax);
  EXPECT_EQ(RefuseStart(session, Filled(), 0)->message, Attention({TextId::NoExperiment}));
  session = Cultivation(2);
  form.fit[0].lower = "0.3";
  EXPECT_EQ(RefuseStart(session, form, 2)->message, Attention({TextId::FitEntryOutOfBounds}));
  form.fit = {};
  const Message nothingFitted = RefuseStart(session, form, 2)->message;
  EXPECT_EQ(nothingFitted.pieces,
            std::vector<Piece>{"Escolha pelo menos um parâmetro para ajustar"});
  EXPECT_EQ(nothingFitted.title, Piece("Aviso"));
  form = Filled();
  form.method = Method::None;
  EXPECT_EQ(RefuseStart(session, form, 2)->message, Attention({TextId::NoMethod}));
  form.method = Method::ED, form.production = Production::PPAC;
  ASSERT_FALSE(SaveConditions(session, form, 2).refusal);
  EXPECT_EQ(RefuseStart(session, form, 2)->message.pieces,
            (std::vector<Piece>{TextId::OptionsDiffer, "\n", TextId::OptionsFootnote}));
  ClearConditions(session, 1);
  EXPECT_EQ(RefuseStart(session, form, 2)->message.pieces.front(), Piece(TextId::CountsDiffer));
}

TEST(StartSearch, StoresItsStartValuesForAllExperiments) {
  Session session = Cultivation(2);
  session.lastRun = RunWith(12);
  CultivationForm form = Filled();
  form.At(At::Ks) = "12";
  const FitProblem problem = StartSearch(session, form);
  EXPECT_EQ(problem.variables[1], (FitVariable{At::Ks, 1, 30, 12}));
  EXPECT_EQ(session.conditions.fitted, problem.variables);
  for (const int place : {1, 2}) EXPECT_EQ(session.conditions.At(place).row[At::Ks], 12);
  EXPECT_FALSE(session.conditions.At(3).saved);

  form.fit[1] = {true, "12", "12"};  // which the search will refuse
  const CultivationConditions before = session.conditions;
  StartSearch(session, form);
  EXPECT_EQ(session.conditions, before);
}

TEST(OpenExperiments, ShowsATableBeforeItIsTakenOrSaysWhyNot) {
  const TemporaryFolder folder;
  std::ofstream(folder / "good.csv") << "run,t_min,Cs,Cx,Cp\n7,0,10,1,0\n7,60,8,2,1\n8,0,9,1,0\n";
  std::ofstream(folder / "bad.csv") << "t,Cs,Cx,Cp\n0,10,x,0\n";
  const Session session = Cultivation(0);
  const ExperimentsFile good = ReadExperimentsFile(session, folder / "good.csv");
  ASSERT_TRUE(good.preview && good.Usable());
  const std::string preview = OnOneLine(Worded(*good.preview, Language::English));
  EXPECT_NE(preview.find("holds 2 experiment(s)"), std::string::npos) << preview;
  EXPECT_NE(preview.find("Cp (g/L)\t 0\t10\t1\t0\t 1\t8\t2\t1"), std::string::npos) << preview;
  const ExperimentsFile bad = ReadExperimentsFile(session, folder / "bad.csv");
  ASSERT_TRUE(bad.refusal && !bad.Usable());
  const std::string refusal = OnOneLine(Worded(*bad.refusal, Language::English));
  EXPECT_NE(refusal.find("bad.csv Line 2: Cx: "), std::string::npos) << refusal;
}

TEST(EndSearch, KeepsTheLastRunWithAResultAsItWas) {
  Session session = Cultivation(2);
  SearchOutcome outcome = RunWith(12)->outcome;
  outcome.curves[1].points = 100;
  EXPECT_TRUE(EndSearch(session, outcome).curves);
  DeleteExperiment(session, 1);
  EXPECT_EQ(session.lastRun->lists.Count(), 2);
  EXPECT_TRUE(session.lastRun->conditions.At(2).saved);

  outcome.result = {};  // a fault before there was a best vector
  outcome.curves = {};
  EXPECT_FALSE(EndSearch(session, outcome).curves);
  EXPECT_EQ(session.lastRun->outcome.result.best[1], 12);
  EXPECT_TRUE(session.CurvesPresent());
}

}  // namespace
}  // namespace velmora
