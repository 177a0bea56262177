#include <gtest/gtest.h>

#include "data/ExperimentLists.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

using test::Lists;
using test::Measured;

TEST(ExperimentLists, DeleteByPlaceAndKeepNumbersAndDisplaysTogether) {
  ExperimentLists lists = Lists({5, 2, 6});
  EXPECT_FALSE(lists.Delete(2));
  ASSERT_EQ(lists.Count(), 2);
  EXPECT_EQ(lists.At(2).number, 6);
  EXPECT_EQ(lists.Display(1).colour, 5);
  EXPECT_EQ(lists.Display(2).colour, 6);
  for (const int place : {0, -1, 3, 40000}) {
    const auto refusal = lists.Delete(place);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(Worded(*refusal, Language::English), "Chosen experiment cannot be excluded.");
    EXPECT_EQ(refusal->title.In(Language::English), "Delete experiment");
  }
  EXPECT_EQ(lists.Count(), 2);
}

TEST(ExperimentLists, AskBeforeANumberIsReplaced) {
  const ExperimentLists lists = Lists({1, 2});
  EXPECT_FALSE(AskBeforeSaving(lists, Measured(3)).replace);
  const SaveQuestions questions = AskBeforeSaving(lists, Measured(2));
  ASSERT_TRUE(questions.replace);
  EXPECT_EQ(questions.replace->title.In(Language::English), "Experiment already added");
  EXPECT_FALSE(questions.refusal);
  EXPECT_EQ(Worded(questions.confirm, Language::English), "Confirm these data for Experiment 2");
}

TEST(ExperimentLists, SaveByNumberAndWhereTwoShareItToThePlaceShown) {
  ExperimentLists lists = Lists({7, 4, 7});
  EXPECT_EQ(PlaceToSave(lists, 4, 3), 2) << "the one that the question was about";
  EXPECT_EQ(PlaceToSave(lists, 7, 0), 1);
  EXPECT_EQ(PlaceToSave(lists, 5, 2), 4) << "a number of its own makes it a new experiment";
  ASSERT_TRUE(SaveExperiment(lists, Measured(7, 9), {"", 2, 1, true}, 3));
  EXPECT_EQ(lists.At(1), Measured(7));
  EXPECT_EQ(lists.At(3), Measured(7, 9));
  EXPECT_EQ(lists.Display(3).colour, 2);
  EXPECT_EQ(lists.Count(), 3);
}

TEST(ExperimentLists, TellWhichNumbersAreRepeated) {
  EXPECT_FALSE(TellRepeatedNumbers(Lists({1, 2, 3})));
  const auto told = TellRepeatedNumbers(Lists({12, 4, 3, 12, 4, 4}));
  ASSERT_TRUE(told);
  EXPECT_NE(Worded(*told, Language::English).find("experiment: 4, 12. "), std::string::npos);
}

}  // namespace
}  // namespace velmora
