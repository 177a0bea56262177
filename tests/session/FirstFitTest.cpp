// Proposals in the form, and one form for all experiments.
#include <gtest/gtest.h>

#include <algorithm>

#include "session/FirstFit.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

using test::Measured;

/// Two batches, the second of which begins with 0.7 g/L of cells, and a form of which only the
/// model and Yxs are typed.
struct FirstFit : testing::Test {
  FirstFit() {
    session.separator = '.';
    session.lists.Append(Measured(1), {});
    session.lists.Append(Measured(2, 0.7), {});
    form.model = "Monod";
    form.At(At::Yxs) = "0.3";
  }
  Session session;
  CultivationForm form;
};

TEST_F(FirstFit, FillsWhatTheUserLeftEmpty) {
  const auto [filled, reasons] = ProposeForm(session, form, 2);
  EXPECT_EQ(filled.method, Method::LM);
  EXPECT_EQ(filled.production, Production::PAC);
  EXPECT_EQ(filled.yields, Yields::Global);
  EXPECT_EQ(filled.At(At::Cx0).text, "0.7");
  EXPECT_EQ(filled.At(At::Cs0).text, "60");
  EXPECT_EQ(filled.At(At::T).text, "30");
  EXPECT_EQ(filled.At(At::Yxs).text, "0.3") << "what is typed stays";
  for (std::size_t row = 0; row < filled.fit.size(); ++row)
    EXPECT_EQ(filled.fit[row].ticked, row < 2) << row;
  const auto told = [&, &all = reasons](At position) {
    return std::any_of(all.begin(), all.end(),
                       [=](const auto& each) { return each.first == position; });
  };
  EXPECT_TRUE(told(At::muMax) && told(At::Cx0));
  EXPECT_FALSE(told(At::Yxs));

  form.method = Method::ED;
  form.fit[1] = {true, "1", "2"};
  const CultivationForm again = ProposeForm(session, form, 2).form;
  EXPECT_EQ(again.method, Method::ED);
  EXPECT_EQ(again.fit[1].upper.text, "2");
}

TEST_F(FirstFit, StoresOneFormForAllEachWithItsOwnBeginning) {
  const CultivationForm filled = ProposeForm(session, form, 1).form;
  const ConditionsSaved saved = UseForAll(session, filled, 1);
  ASSERT_FALSE(saved.refusal);
  EXPECT_TRUE(saved.change.conditions);
  EXPECT_EQ(session.conditions.At(1).row[At::Cx0], 0.5);
  EXPECT_EQ(session.conditions.At(2).row[At::Cx0], 0.7);
  EXPECT_EQ(session.conditions.At(2).row[At::Yxs], 0.3);
  EXPECT_EQ(session.conditions.At(2).options.model, "Monod");

  CultivationForm other = filled;
  other.model = "Contois";
  EXPECT_EQ(OthersWithAnotherModel(session, other, 1), std::pair(1, std::string("Monod")));
  EXPECT_EQ(OthersWithAnotherModel(session, filled, 1).first, 0);

  // What is stored of an experiment counts more than its data.
  session.conditions.At(2).row[At::Cx0] = 0.9;
  EXPECT_FALSE(UseForAll(session, other, 1).refusal);
  EXPECT_EQ(session.conditions.At(2).row[At::Cx0], 0.9);

  const CultivationConditions before = session.conditions;
  other.At(At::Yxs) = "0";
  EXPECT_TRUE(UseForAll(session, other, 2).refusal);
  EXPECT_EQ(session.conditions, before) << "the first would have been stored before the second";
}

}  // namespace
}  // namespace velmora
