// What the user does to the state. Each operation returns what it changed, by which the windows
// know what to show anew.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cultivation/ConditionsSetUp.h"
#include "cultivation/CultivationForm.h"
#include "data/FileFault.h"
#include "kinetics/ArithmeticFault.h"
#include "language/Message.h"
#include "session/Session.h"

namespace velmora {

struct Change {
  bool lists = false;       // the experiments, or how they are drawn
  bool conditions = false;  // what is stored of them
  bool curves = false;
  bool results = false;    // of the last run: they are forgotten
  bool gridLines = false;  // or how else charts are drawn
  bool replaced = false;   // all experiments, with all that belonged to them, are others
  bool restored = false;   // by undo, redo or recovery: what was entered is another as well
  bool form = false;       // what stands in the cultivation window's boxes is another
  int deleted = 0;         // the place that went; later ones moved down by one. 0: none
  int remeasured = 0;      // the place whose experiment has other data. 0: none
};

// Experiments.

/// Whether the lists hold an experiment with the measurements of this one; how it is described does
/// not count.
bool HoldsMeasurements(const ExperimentLists& lists, const Experiment& experiment);

/// Where an experiment was saved; place 0, with nothing changed, where the lists are full.
struct ExperimentSaved {
  int place = 0;
  Change change;
};

/// Saves the experiment while the one at place `shown` (0: a new one) is on the screen, to the
/// place that `PlaceToSave` gives. The curve of an experiment that gets other data goes.
ExperimentSaved SaveExperiment(Session& session, Experiment experiment, DisplayEntry display,
                               int shown);

/// What was deleted; or the refusal, for a place that is none.
struct ExperimentDeleted {
  std::optional<Message> refusal;
  Change change;
};

/// Removes the experiment at `place` with its conditions and its curve; those of later places move
/// down by one. With the last conditions the results of the last run go.
ExperimentDeleted DeleteExperiment(Session& session, int place);

/// Takes over how the experiments at places 1, 2, ... are drawn; entries behind the last place are
/// passed over.
Change TakeDisplays(Session& session, std::span<const DisplayEntry> displays);

/// What is asked, yes or no, before a file of experiments takes the place of those in the list;
/// nothing where there are none.
std::optional<Message> AskBeforeOpeningExperiments(const Session& session);

/// A file of experiments, or a spreadsheet's table (*.csv, *.tsv, *.txt, *.xlsx), before anything
/// of it is taken over. A fault may come after experiments that were read.
struct ExperimentsFile {
  std::string path;
  ExperimentLists lists;
  std::optional<FileFault> fault;
  std::vector<Message> remarks{};  // to be told once
  /// What is asked, yes or no, before `lists` is taken over: it is not the whole file, and there
  /// are experiments that would go for it.
  std::optional<Message> question{};
  std::optional<Message> refusal{};  // of a table
  std::optional<Message> preview{};  // of a table: what was read, to be agreed to

  /// Whether there is anything to take over.
  bool Usable() const { return !lists.Empty(); }
};
ExperimentsFile ReadExperimentsFile(const Session& session, const std::string& path);

/// Puts the experiments of a file in place of the session's, whose conditions, curves and results
/// go.
Change TakeExperiments(Session& session, ExperimentsFile file);

/// Writes all experiments to a file, which is then theirs.
std::optional<FileFault> WriteExperimentsFile(Session& session, const std::string& path);

/// What to tell where there are more experiments than a cultivation takes; nothing where not.
std::optional<Message> TellMoreThanNine(const ExperimentLists& lists);

/// Removes all experiments, with conditions, curves and results.
Change ClearAll(Session& session);

// Conditions.

/// As `Saved`, and what changed.
struct ConditionsSaved : Saved {
  Change change;
};

/// Checks the form and stores the conditions of the experiment at `place` (0: none is selected).
ConditionsSaved SaveConditions(Session& session, const CultivationForm& form, int place);

/// Clears what is stored of the experiment at `place`, and with the last one the fitted-parameter
/// table. A place without a record is passed over.
Change ClearConditions(Session& session, int place);

/// What is asked, yes or no, before a file of conditions takes the place of those stored; nothing
/// where there are none.
std::optional<Message> AskBeforeOpeningConditions(const Session& session);

/// What opening a conditions file came to: a fault of the file, or a refusal, with nothing changed;
/// or what the user is told of what was opened.
struct ConditionsOpened {
  std::optional<FileFault> fault;
  std::optional<Message> refusal;
  std::vector<Message> messages;
  Change change;
};

/// Puts the conditions of a file in place of the session's; the curves go.
ConditionsOpened OpenConditions(Session& session, const std::string& path);

/// What writing the conditions file is refused for, before a file is asked for.
std::optional<Message> RefuseConditionsFile(const Session& session);
/// Writes the conditions to a file, which is then theirs.
std::optional<FileFault> WriteConditionsFile(Session& session, const std::string& path);

// Runs.

/// What a simulation or a search is refused for while `form`, the form of the experiment at
/// `place`, is on the screen: its fit rows, the experiments and conditions, its method, and what
/// the user has entered and not saved.
std::optional<Refusal> RefuseStart(const Session& session, const CultivationForm& form, int place);

/// What a simulation came to: the faults that ended curves, with their places.
struct Simulated {
  std::vector<ArithmeticFault> faults;
  Change change;
};

/// Simulates every experiment with its stored conditions. `RefuseStart` must have passed.
Simulated Simulate(Session& session);

/// The problem of the search that begins, for which `RefuseStart` must have passed. The values from
/// which it starts, estimated ones of the last run among them, are stored with the conditions of
/// all experiments, unless the bounds will be refused.
FitProblem StartSearch(Session& session, const CultivationForm& form);

/// Takes over the curves and the results of a search; where it has no result, nothing changes.
Change EndSearch(Session& session, SearchOutcome outcome);

// Plots.

Change ShowCurves(Session& session, const ModelCurves& curves);
Change ToggleGridLines(Session& session);
Change TogglePublication(Session& session);

}  // namespace velmora
