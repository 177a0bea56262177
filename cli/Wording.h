// The command line's own phrases in both languages, and sentences for the faults of the core.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "app/Bilingual.h"
#include "app/Message.h"
#include "app/Texts.h"
#include "data/FileFault.h"
#include "kinetics/ArithmeticFault.h"

namespace velmora::cli {

enum class Phrase {
  // The command line.
  NotANumber,
  DecimalComma,
  Negative,
  Malformed,
  UnknownName,
  UnknownModel,
  NoSuchPlace,
  SetAndFitted,
  FittedTwice,
  FitWithManual,
  SameFile,
  SeeHelp,
  NoSuchCommand,
  // Rules that only the command line has.
  ModelLacks,
  ValueMissing,
  AlfaDecided,
  BetaNotOffered,
  TooManyExperiments,
  NumbersDiffer,
  SimulationOnly,
  NoPoints,
  NoSuchLabel,
  InExperiment,
  // Tables from a spreadsheet.
  NotUtf8,
  NoHeader,
  MissingColumn,
  ColumnTwice,
  NoRows,
  BadQuote,
  TooManyCells,
  AtCell,
  CellEmpty,
  CellNotANumber,
  CellNegative,
  CellMixedMarks,
  LabelUnfit,
  TooManyPoints,
  TooManyInTable,
  // What the commands print.
  Model,
  Parameters,
  Equation,
  Experiments,
  ExperimentHeading,
  ExperimentsWithValues,
  Generations,
  GenerationLine,
  Score,
  Sum,
  UnscaledAt,
  IsExperiments,
  IsConditions,
  NoBatchLine,
  NeitherFile,
  ExperimentsWanted,
  ConditionsWanted,
  ExperimentLine,
  ConditionsLine,
  NoCatalogueModel,
  GlobalYields,
  StoichiometricYields,
  FittedLine,
  NothingFitted,
  Written,
  // The machine.
  OutputFailed,
  NoCharts,
  OutOfMemory,
  OutOfMemoryInFit,
};

/// Words what is to be said in one language, UTF-8.
class Wording {
 public:
  explicit Wording(Language language) : language_(language) {}
  Language In() const { return language_; }

  /// The phrase with {1}, {2}, ... replaced by the arguments.
  std::string operator()(Phrase phrase,
                         std::initializer_list<std::string_view> arguments = {}) const;

  /// A rule's text on one line.
  std::string Of(const Message& message) const;
  /// "FILE:LINE: what is wrong and what to do".
  std::string Of(const FileFault& fault) const;
  /// Kind, term, and the place, point and time of the fault; `time` (h) is that of the point.

 private:
  Language language_;
};

/// `text` with line breaks and runs of blanks each made one blank, none at the ends.
std::string OnOneLine(std::string_view text);

/// "PATH:LINE: ", or "PATH: " where `line` is 0.
std::string PlaceInFile(const std::string& path, int line);

/// A pattern with {1}, {2}, ... replaced by the arguments.
std::string Filled(std::string_view pattern, std::initializer_list<std::string_view> arguments);

}  // namespace velmora::cli
