#include <gtest/gtest.h>

#include <algorithm>

#include "cultivation/ConditionsSetUp.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/Simulation.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

using test::Filled;

struct RefusalCase {
  const char* name;
  void (*change)(CultivationForm&);
  TextId text;  // the message's first piece
  int place = 1;
};

const RefusalCase kRefused[] = {
    {"nothing selected comes first", [](auto& f) { f = {}; }, TextId::NoExperimentSelected, 0},
    {"start of zero", [](auto& f) { f.At(At::muMax) = "0"; }, TextId::PossibleErrors},
    {"bound of zero", [](auto& f) { f.fit[1].lower = "0", f.method = Method::None; },
     TextId::PossibleErrors},
    {"empty bound", [](auto& f) { f.fit[1].upper = ""; }, TextId::PossibleErrors},
    {"value outside", [](auto& f) { f.fit[1].upper = "9.9"; }, TextId::FitEntryOutOfBounds},
    {"no method", [](auto& f) { f.method = {}, f.production = {}; }, TextId::NoMethod},
    {"no production", [](auto& f) { f.production = {}, f.modelConfirmed = false; },
     TextId::NoProduction},
    {"model not confirmed", [](auto& f) { f.modelConfirmed = false, f.fit = {}; },
     TextId::ConfirmModel},
    {"nothing fitted", [](auto& f) { f.fit = {}; }, TextId::NothingFitted},
    {"no cells", [](auto& f) { f.At(At::Cx0) = ""; }, TextId::Cx0NotPositive},
    {"no substrate", [](auto& f) { f.At(At::Cs0) = "0"; }, TextId::Cs0NotPositive},
    {"no time", [](auto& f) { f.At(At::T) = "."; }, TextId::TimeNotPositive},
    {"no cell yield", [](auto& f) { f.At(At::Yxs) = "0"; }, TextId::YxsNotPositive},
    {"no product yield", [](auto& f) { f.At(At::YpsTyped) = "0"; }, TextId::YpsNotPositive},
    {"no double holds a bound", [](auto& f) { f.fit[1].upper = "1e399"; }, TextId::OutOfBounds},
    {"no double holds a start", [](auto& f) { f.At(At::Ks) = "1e-400"; }, TextId::OutOfBounds},
    {"no double holds the cells", [](auto& f) { f.At(At::Cx0) = "1e399"; }, TextId::OutOfBounds},
    {"not a number", [](auto& f) { f.At(At::ms) = "1,5"; }, TextId::OutOfBounds}};

TEST(Conditions, AreRefusedAndStoreNothing) {
  for (const RefusalCase& c : kRefused) {
    SCOPED_TRACE(c.name);
    CultivationForm form = Filled();
    c.change(form);
    CultivationConditions conditions;
    const Saved saved = SalvarCondCult(form, c.place, 1, '.', conditions);
    ASSERT_TRUE(saved.refusal);
    EXPECT_EQ(saved.refusal->message.pieces.front(), Piece(c.text));
    EXPECT_EQ(saved.refusal->message.title, Piece(TextId::Attention));
    EXPECT_EQ(conditions, CultivationConditions{});
  }
}

TEST(Conditions, DecideAlfaAndYields) {
  CultivationConditions conditions;
  CultivationForm form = Filled();
  EXPECT_FALSE(SalvarCondCult(form, 1, 1, '.', conditions).shownAlfa);
  const ConditionsRow& row = conditions.At(1).row;
  EXPECT_EQ(row[At::alpha], 1.25);
  EXPECT_EQ(row[At::Yps], 0.45);
  EXPECT_EQ(row[At::Fp], 1);

  form.yields = Yields::Global;
  form.At(At::YpsTyped) = "0,2";
  form.At(At::Yxs) = "0,3";
  for (Entry* box :
       {&form.At(At::Cx0), &form.At(At::alpha), &form.At(At::muMax), &form.fit[0].lower})
    std::replace(box->text.begin(), box->text.end(), '.', ',');
  EXPECT_EQ(SalvarCondCult(form, 1, 1, ',', conditions).shownAlfa, Entry("0,6667", 0.2 / 0.3));
  EXPECT_EQ(row[At::alpha], 0.2 / 0.3);
  EXPECT_EQ(row[At::Yps], 1);
  EXPECT_EQ(row[At::Fp], 0);
  EXPECT_EQ(row[At::YpsTyped], 0.2);

  form.production = Production::PNAC;
  EXPECT_EQ(SalvarCondCult(form, 1, 1, ',', conditions).shownAlfa, Entry("0", 0));
  EXPECT_EQ(row[At::alpha], 0);
}

TEST(Conditions, KeepTheFitTableInItsOwnOrder) {
  CultivationConditions conditions;
  CultivationForm form = Filled();
  form.model = "Monod-Levenspiel-Lee";
  for (const At position : {At::CxAst, At::CpAst, At::m, At::n}) form.At(position) = "2";
  for (std::size_t row = 4; row < 8; ++row) form.fit[row] = {true, "1", "3"};
  ASSERT_FALSE(SalvarCondCult(form, 1, 1, '.', conditions).refusal);
  EXPECT_EQ(PositionsOf(conditions.fitted),
            (std::vector<At>{At{8}, At{9}, At{13}, At{12}, At{15}, At{14}}));
  EXPECT_EQ(conditions.fitted[1], (FitVariable{At::Ks, 1, 30, 10}));
  EXPECT_EQ(conditions.At(1).options.fitted, "MiMax Ks CpAst CxAst n m");

  form.method = Method::Manual;
  form.fit = {};
  ASSERT_FALSE(SalvarCondCult(form, 2, 2, '.', conditions).refusal);
  EXPECT_EQ(conditions.fitted.size(), 6U);
  EXPECT_THROW(SalvarCondCult(form, 10, 10, '.', conditions), std::out_of_range);
}

TEST(Conditions, NameTheDataSetInItsOrder) {
  CultivationConditions conditions;
  CultivationForm form = Filled();
  form.dataSet = {false, true, false};
  ASSERT_FALSE(SalvarCondCult(form, 1, 1, '.', conditions).refusal);
  EXPECT_EQ(conditions.At(1).options.dataSet, "Cs");
  form.dataSet = {true, false, true};
  ASSERT_FALSE(SalvarCondCult(form, 1, 1, '.', conditions).refusal);
  EXPECT_EQ(conditions.At(1).options.dataSet, "Cx Cp");
}

TEST(Conditions, TakeAllVariablesWhereTheDataSetNamesNone) {
  ConditionsRecord record{true, 1, {}, {}};
  for (const auto& [text, ticks] : {std::pair{"Cs", std::array{false, true, false}},
                                    {"", {false, false, false}},
                                    {"all of it", {true, true, true}}}) {
    record.options.dataSet = text;
    EXPECT_EQ(FormOf(record, {}, '.').dataSet, ticks) << text;
  }
}

TEST(Conditions, ShowTheirBoxesInTheirFormats) {
  ConditionsRow row;
  row[At::Cx0] = 0.00001, row[At::muMax] = 0.5, row[At::Ks] = 0.123456;
  const CultivationForm form = FormOf({true, 1, row, {}}, {{At::Ks, 1.5, 30, 0}}, ',');
  EXPECT_EQ(form.fit[1], (FitRow{true, Entry("1,5", 1.5), Entry("30", 30)}));
  EXPECT_EQ(form.At(At::Cx0).text, "1E-05");
  EXPECT_EQ(form.At(At::muMax).text, "0,50");
  EXPECT_EQ(form.At(At::Ks), Entry("0,1235", 0.123456)) << "the number behind it keeps its digits";
}

TEST(Fit, AcceptsAValueOnItsBound) {
  const FitVariable onlyV{At::v, 1, 2, 2};
  EXPECT_FALSE(ChecarVarAjustadas(std::array{onlyV}));
}

TEST(Fit, SaysThatItsDeviationsOverflow) {
  EXPECT_EQ(Worded(InversionMessage(), Language::English),
            "                Overflow!\n\nTry to change the parameters!");
}

std::vector<Experiment> Numbered(std::initializer_list<std::int16_t> numbers) {
  return test::Lists(numbers).Experiments();
}

TEST(Run, NamesTheExperimentsThatLackConditions) {
  CultivationConditions conditions;
  ASSERT_FALSE(SalvarCondCult(Filled(), 2, 5, '.', conditions).refusal);
  const auto told = [&](const std::vector<Experiment>& experiments) {
    const auto refusal = RefuseMissing(experiments, conditions);
    return refusal ? Worded(*refusal, Language::English) : "";
  };
  const std::string counts =
      "The number of experiments is not equal to the number of added cultivation conditions.";
  EXPECT_EQ(told(Numbered({7, 5, 3})),
            counts + "\nConditions are missing for these experiments: 7, 3.");
  EXPECT_EQ(told(Numbered({5, 5})), counts + "\nConditions are missing for these experiments: 5.");
  EXPECT_EQ(told(Numbered({5})), "");
  EXPECT_EQ(told({}), counts) << "nothing lacks";
  // Ten experiments, of which nine can have conditions.
  EXPECT_TRUE(told(Numbered({5, 1, 2, 3, 4, 6, 7, 8, 9, 10})).ends_with(" 9, 10."));
}

TEST(Manual, SimulatesTheOthersWhereExperimentsFault) {
  CultivationConditions conditions;
  for (const int place : {1, 2, 3})
    ASSERT_FALSE(SalvarCondCult(Filled(), place, 1, '.', conditions).refusal);
  conditions.At(1).row[At::Yxs] = conditions.At(3).row[At::Yxs] = 0;
  ModelCurves curves{};
  const auto faults = Manual(conditions, 3, curves);
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_EQ(faults[0].place, 1);
  EXPECT_EQ(faults[1].place, 3);
  EXPECT_EQ(curves[0].points, faults[0].point - 1) << "it ends where it failed";
  EXPECT_EQ(curves[1].points, 100);
  EXPECT_GT(curves[1].Cx.back(), 10);
}

TEST(Export, StandsToTheCharacter) {
  ModelCurves curves{};
  curves[0].points = 100;
  curves[1].points = 3;  // a fault ended it
  curves[1].Cx[0] = 1.5;
  const std::string text = ExportarDados(curves, 2, ',');
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 103 + 6);
  EXPECT_EQ(text.find("Experimento: 1\r\nt(h)    Cx(g/L) Cs(g/L) Cp(g/L)\r\n0,0000\t0,0000\t"), 0U);
  EXPECT_NE(text.find("0,0000\r\n\r\nExperimento: 2\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\n0,0000\t1,5000\t0,0000\t0,0000\r\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("\r\n\r\n"));
}

}  // namespace
}  // namespace velmora
