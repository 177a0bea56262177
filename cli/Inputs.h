// The two files that most commands work on, read and checked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Console.h"
#include "cli/Provenance.h"
#include "cultivation/CultivationConditions.h"
#include "data/ExperimentLists.h"
#include "kinetics/ArithmeticFault.h"

namespace velmora::cli {

/// What the command line says of them.
struct InputOptions {
  std::string experiments;
  std::string conditions;
  std::optional<std::string> model;  // to use in place of the conditions' own
  std::vector<std::string> set;      // NAME=VALUE, for every experiment
  std::vector<std::string> fit;      // NAME=START:LOWER:UPPER
  bool fits = false;                 // the command takes `fit`
};

struct Inputs {
  ExperimentLists lists;
  CultivationConditions conditions;
  std::vector<ReadFile> files;

  int Count() const { return lists.Count(); }
};

/// Which of the program's two files a text is.
enum class FileKind { Experiments, Conditions, Unknown };

/// By the second line of a file's bytes.
FileKind KindOf(std::string_view bytes);

/// Whether the third line is "Batelada", without which a conditions file reads as no experiments.
bool HasBatchLine(std::string_view bytes);

/// The experiments of a file; throws a `Failure` (File) where it cannot be read.
ExperimentLists LoadExperiments(const std::string& path, const Console& console);
ExperimentLists ExperimentsIn(std::string_view bytes, const std::string& path, const Wording& say);

/// Reads both files, or the experiments alone where no conditions are named, and puts what the
/// command line states into the conditions, as `PutInto` does.
Inputs LoadInputs(const InputOptions& options, const Console& console);

/// What a result of these inputs was made from.
Provenance ProvenanceOf(const Inputs& inputs, const Console& console);

/// Throws a `Failure` (Refused) where experiments and conditions do not make up one cultivation.
void RequireCultivation(const Inputs& inputs, const Wording& say);
/// Throws a `Failure` (Refused) for more experiments than a cultivation takes.
void RequireRoom(int experiments, const Wording& say);

/// Says which values no measurement gives and no simulation can follow.
void WarnOfImpossible(const ExperimentLists& lists, const Console& console);

/// Says once for each measured variable without a positive value that its data could not be
/// normalised, and where it is.
void WarnOfUnscaled(const ExperimentLists& lists, const Console& console);

/// What happened, in which experiment and when.
std::string Describe(const ArithmeticFault& fault, const Inputs& inputs, const Wording& say);

/// The names of the models that a row's switches stand for, joined by ", ": the one that the
/// option texts name where it is among them; empty where there is none.
std::string ModelNames(const ConditionsRecord& record, const std::vector<FitVariable>& fitted);

}  // namespace velmora::cli
