// What keeps the user's work: what is known to be unsaved, snapshots, the recovery file.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "session/Recovery.h"
#include "session/Snapshot.h"
#include "session/Unsaved.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Forms.h"

namespace velmora {
namespace {

/// Two experiments, the second with conditions, and a third that is being typed.
Session Working() {
  Session session;
  session.lists.Append(test::Measured(4), {});
  session.lists.Append(test::Measured(2), {});
  EXPECT_FALSE(SaveConditions(session, test::Filled(), 2).refusal);
  session.draft = {{"7", "lote 3; \u03B1", "1."}, {{"0", "5,", "", "x"}, {}}, 2, true};
  return session;
}

TEST(Unsaved, IsWhatNoFileHolds) {
  const TemporaryFolder folder;
  Session session = Working();
  session.activeWindow = kCultivationWindow;
  EXPECT_EQ(UnsavedOf(session, true).experiments, 2);
  EXPECT_TRUE(AskBeforeClearing(UnsavedOf(session, false)));
  EXPECT_TRUE(AskBeforeDeleting(session, 1));
  ASSERT_FALSE(WriteExperimentsFile(session, folder / "e.abr"));
  session.lists.Display(1).visible = false;
  EXPECT_TRUE(AskBeforeDeleting(session, 1)) << "how it is drawn stands in the file as well";
  ASSERT_FALSE(WriteExperimentsFile(session, folder / "e.abr"));
  EXPECT_FALSE(AskBeforeDeleting(session, 1));
  EXPECT_TRUE(AskBeforeDeleting(session, 2)) << "what is entered of it would go";
  const Unsaved left = UnsavedOf(session, false);
  EXPECT_TRUE(left.experiments == 0 && left.conditions && left.entry && !left.form);
  EXPECT_EQ(Worded(AskBeforeQuitting(left), Language::English),
            "Are you sure you want to quit?\n\nNot written to a file:\n  - the cultivation "
            "conditions\n  - what is being entered in the experiments window");
  ASSERT_FALSE(WriteConditionsFile(session, folder / "c.abr"));
  session.draft.edited = false;
  EXPECT_FALSE(UnsavedOf(session, false).Any() || AskBeforeDeleting(session, 2));
  session.conditions.At(2).row[At::Ks] = 11;
  EXPECT_TRUE(AskBeforeDeleting(session, 2)) << "and its conditions";
  EXPECT_TRUE(UnsavedOf(session, false).conditions);
  const Experiment& shown = session.lists.At(2);
  session.draft = {HeaderOf(shown, '.'), RowsOf(shown, '.'), 2, true};
  session.draft.rows.emplace_back();
  EXPECT_FALSE(session.EntryUnsaved()) << "typed, and given back";
  session.draft.rows[0][0] = "0.5";
  EXPECT_TRUE(session.EntryUnsaved());
}

TEST(Snapshot, GivesEverythingBackAndKnowsWhatItsFileHolds) {
  const TemporaryFolder folder;
  Session session = Working();
  session.curves[1].points = 100;
  session.lastRun = std::make_shared<const FinishedRun>();
  ASSERT_FALSE(WriteExperimentsFile(session, folder / "e.abr"));
  const ExperimentLists lists = session.lists;
  const ExperimentDraft draft = session.draft;
  const Snapshot before = TakeSnapshot(session, {});
  ClearAll(session);
  EXPECT_TRUE(session.draft == ExperimentDraft() && session.experimentsFile.empty());
  const Change change = Restore(session, before);
  EXPECT_TRUE(change.lists && change.conditions && change.results && change.restored);
  EXPECT_TRUE(session.lists == lists && session.draft == draft && session.conditions.At(2).saved);
  EXPECT_TRUE(session.CurvesPresent() && session.lastRun);
  EXPECT_EQ(UnsavedOf(session, false).experiments, 0);

  DeleteExperiment(session, 1);
  ASSERT_FALSE(WriteExperimentsFile(session, folder / "e.abr"));
  Restore(session, before);
  EXPECT_EQ(UnsavedOf(session, false).experiments, 2) << "the file of this name holds one by now";
}

TEST(Recovery, TakesUpWhereTheWorkStood) {
  Session session = Working();
  session.experimentsFile = "/data/two words.abr";
  session.formDraft = {test::Filled(), 2, true};
  session.formDraft.form.At(At::Ks) = {"16.10", 16.104999999999997};
  Session next;
  const auto change = Recover(next, RecoveryText(session));
  ASSERT_TRUE(change && change->replaced);
  EXPECT_EQ(next.lists, session.lists);
  EXPECT_EQ(next.conditions, session.conditions) << "the first experiment has none stored";
  EXPECT_EQ(next.draft, session.draft);
  EXPECT_TRUE(change->form && next.formDraft.edited && next.formDraft.place == 2);
  EXPECT_TRUE(SameEntries(next.formDraft.form, session.formDraft.form)) << "to the last digit";
  EXPECT_TRUE(next.formDraft.form.modelConfirmed);
  EXPECT_EQ(next.experimentsFile, session.experimentsFile);
  EXPECT_EQ(UnsavedOf(next, false).experiments, 2);

  const std::string text = RecoveryText(session);
  for (std::size_t length = 0; length < text.size() - 6; length += 7) {
    Session untouched = Working();
    ASSERT_FALSE(Recover(untouched, text.substr(0, length))) << length;
    ASSERT_EQ(untouched.lists.Count(), 2);
  }
}

TEST(RecoveryFile, IsHeldByOneProgramAndLeftToTheNext) {
  const TemporaryFolder folder;
  const std::string place = folder / "state/velmora";
  {
    RecoveryFile first(place), second(place);
    EXPECT_FALSE(first.Left() || second.Left());
    EXPECT_FALSE(first.Write("first"));
    EXPECT_FALSE(second.Write("second"));
    EXPECT_FALSE(RecoveryFile(place).Left()) << "both still run";
    first.Remove();
  }
  {
    RecoveryFile next(place);
    EXPECT_EQ(next.Left(), "second") << "although a lower name is free";
    next.SetAside();
    EXPECT_FALSE(next.Left());
  }
  EXPECT_FALSE(RecoveryFile(place).Left());
  EXPECT_EQ(BytesOf(folder / "state/velmora/recovery-declined"), "second");
}

TEST(RecoveryFile, DoesNothingWithoutAFolder) {
  const TemporaryFolder folder;
  std::ofstream(folder / "file") << "no folder";
  for (const std::string& place : {std::string(), folder / "file/velmora"}) {
    EXPECT_FALSE(RecoveryFile(place).Write("work")) << place;
    EXPECT_FALSE(RecoveryFile(place).Left()) << place;
  }
}

/// Works on, an experiment more at each step, and says each that is in the recovery file.
[[noreturn]] void WorkOn(const std::string& folder, int out) {
  RecoveryFile file(folder);
  Session session;
  for (std::int16_t number = 1;; ++number) {
    session.lists.Append(test::Measured(number), {});
    if (file.Write(RecoveryText(session))) _exit(1);
    if (write(out, &number, sizeof number) != sizeof number) _exit(1);
  }
}

TEST(RecoveryFile, SurvivesAKillAtAnyMoment) {
  const char* const wanted = std::getenv("VELMORA_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 12;
  std::mt19937 random(5471);
  const TemporaryFolder folder;
  for (int kill_ = 0; kill_ < kills; ++kill_) {
    const std::string place = folder / std::to_string(kill_);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) WorkOn(place, ends[1]);
    close(ends[1]);
    std::int16_t said = 0, number = 0;
    ASSERT_EQ(read(ends[0], &said, sizeof said), static_cast<ssize_t>(sizeof said));
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 60000));
    kill(child, SIGKILL);
    while (read(ends[0], &number, sizeof number) == sizeof number) said = number;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    Session next;
    const RecoveryFile left(place);
    ASSERT_TRUE(left.Left());
    ASSERT_TRUE(Recover(next, *left.Left())) << "whole or not at all";
    EXPECT_GE(next.lists.Count(), said) << "nothing is lost that was in the file once";
    EXPECT_LE(next.lists.Count(), said + 1);
  }
}

}  // namespace
}  // namespace velmora
