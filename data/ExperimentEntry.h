// An experiment as it stands in the entry boxes, and the record that it becomes.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "data/ExperimentLists.h"
#include "data/GridText.h"
#include "language/Message.h"

namespace velmora {

/// The texts of the boxes above the grid.
struct ExperimentHeader {
  std::string number;
  std::string description;  // UTF-8
  std::string finalTime;    // h

  friend bool operator==(const ExperimentHeader&, const ExperimentHeader&) = default;
};

enum class EntryBox { Number, FinalTime, Cell };

/// What was entered as a record; or what to say of all boxes and cells that cannot be read, and the
/// first of them.
struct EntryRead {
  struct Refusal {
    Message message;
    EntryBox box;
    GridCell cell;  // for a cell
  };
  Experiment experiment;
  std::optional<Refusal> refusal;
};

/// Reads the boxes with the locale's `separator`. The number is 1..32767; where
/// the final time is left blank, it is the last sample's.
EntryRead ReadEntry(const ExperimentHeader& header, std::span<const GridRow> rows, char separator);

/// The boxes that show an experiment.
ExperimentHeader HeaderOf(const Experiment& experiment, char separator);

/// The first number behind the largest in use, or the smallest free one where that is none; 0 where
/// all are in use.
int NextFreeNumber(const ExperimentLists& lists);

/// How an experiment is drawn until the user chooses: places differ in marker and colour.
DisplayEntry UsualDisplay(int place);

/// Gives each experiment whose marker, colour or line style is none of the known ones the usual one
/// of its place. What to tell then: the experiments, and what was replaced.
std::optional<Message> ReplaceUnknownDisplays(ExperimentLists& lists);

/// The refusal of a block that, pasted from `at` on, would run past the last column or the most
/// points that a record can hold. Empty cells past the last column do not count.
std::optional<Message> RefuseBlock(const GridBlock& block, GridCell at);

/// The refusal of one experiment more than the lists can hold.
Message RefuseFullLists();

/// Asks whether a file is to be written although the entries of the experiment
/// shown are not saved and so will not be in it.
Message UnsavedQuestion();

/// A description as it may enter, UTF-8.
struct DescriptionText {
  std::string text;
  bool lettersLeftOut = false;
};

/// Makes a pasted text fit: a comma, which would end the field, becomes a semicolon, a line break
/// or TAB a blank; other ASCII control characters and letters outside Windows-1252 are left out;
/// leading blanks are dropped.
DescriptionText FittingDescription(std::string_view pasted);

/// Whether a typed text may enter as it stands, `first` where nothing stands before it.
bool MayBeTyped(std::string_view text, bool first);

}  // namespace velmora
