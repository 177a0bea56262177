// The experiment list and the display list: parallel by place, whatever happens in between.
#pragma once

#include <optional>
#include <vector>

#include "data/Experiment.h"
#include "language/Message.h"

namespace velmora {

/// Entry i of the one list and entry i of the other belong to the same experiment. A place counts
/// from 1; it is not the experiment's number: deletion goes by place, "already added" by number.
class ExperimentLists {
 public:
  /// Both lists take at most as many entries as a 16-bit place can count.
  static constexpr int kMostPlaces = 32767;

  int Count() const { return static_cast<int>(experiments_.size()); }
  bool Empty() const { return experiments_.empty(); }

  /// The records at `place`, 1..Count().
  const Experiment& At(int place) const;
  const DisplayEntry& Display(int place) const;
  DisplayEntry& Display(int place);
  const std::vector<Experiment>& Experiments() const { return experiments_; }

  /// The place of the experiment with this number, or 0.
  int PlaceOf(std::int16_t number) const;

  /// Appends to both lists. False, with nothing changed, where the lists are full.
  bool Append(Experiment experiment, DisplayEntry display);
  /// Overwrites both entries at `place`, 1..Count().
  void Replace(int place, Experiment experiment, DisplayEntry display);
  /// Removes entry `place` from both lists. For a place that is none: the refusal to show, nothing
  /// changed.
  std::optional<Message> Delete(int place);
  void Clear();

  friend bool operator==(const ExperimentLists&, const ExperimentLists&) = default;

 private:
  std::vector<Experiment> experiments_;
  std::vector<DisplayEntry> displays_;
};

/// What saving an experiment asks before anything changes.
struct SaveQuestions {
  std::optional<Message> replace;  // Yes/No: its number is in the list already
  std::optional<Message> refusal;  // it holds no data
  Message confirm;                 // OK/Cancel
};

/// The questions of saving `experiment`, in their order: replace, refusal, confirm.
SaveQuestions AskBeforeSaving(const ExperimentLists& lists, const Experiment& experiment);

/// Where an experiment with `number` is saved while the one at place `shown` (0: a new one) is on
/// the screen: there where it has that number; otherwise at the first place with that number, or
/// behind the last place.
int PlaceToSave(const ExperimentLists& lists, std::int16_t number, int shown);

/// Overwrites both entries at the place that `PlaceToSave` gives, or appends to both lists. False,
/// with nothing changed, where the lists are full.
bool SaveExperiment(ExperimentLists& lists, Experiment experiment, DisplayEntry display, int shown);

/// What to tell once where a file was read in which experiments share a number: which numbers.
std::optional<Message> TellRepeatedNumbers(const ExperimentLists& lists);

/// The refusal of writing a file from empty lists.
std::optional<Message> RefuseEmptyLists(const ExperimentLists& lists);

}  // namespace velmora
