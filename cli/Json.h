// What commands print as JSON: one line, its numbers the shortest that read back as the same
// double.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "cli/CurveText.h"
#include "cli/Inputs.h"
#include "cultivation/ConditionsFile.h"
#include "cultivation/CultivationForm.h"
#include "data/MeasuredTable.h"
#include "estimation/Deviations.h"
#include "estimation/SearchResult.h"
#include "inference/Comparison.h"
#include "inference/DataChecks.h"
#include "inference/Intervals.h"
#include "inference/Proposal.h"
#include "inference/Verdicts.h"

namespace velmora::cli {

/// A fit that has ended, with all that its results are printed from.
struct EndedFit {
  const Inputs& inputs;
  const FitProblem& problem;
  Method method;
  const SearchResult& result;
  const Deviations& deviations;
  const FitVerdict& verdict;
  const std::vector<Intervals>& intervals;  // by each method that was asked for
  std::string fault;   // what ended the search, in a sentence; empty where nothing did
  std::string remark;  // that the result is worse than the start values; empty where it is not
  const Provenance& made;
};

std::string JsonOf(const Failure& failure);
std::string JsonOf(const EndedFit& fit, const Wording& say);
/// The score with the share of each experiment's variables; `lists` holds the experiments.
std::string JsonOf(const SimulatedFit& fit, const ExperimentLists& lists, const Provenance& made);
/// Models compared; `inputs` are what they were fitted to.
std::string JsonOf(const Comparison& comparison, const Inputs& inputs, const Provenance& made,
                   const Wording& say);
std::string JsonOf(const std::vector<PlacedCurve>& curves, const Provenance& made);
/// The state of a search, as one of many lines.
std::string JsonOf(const Generation& generation, std::span<const FitVariable> variables);
/// The charts drawn into the file at `output`.
std::string JsonOfCharts(const std::string& output, std::size_t charts, const char* format,
                         const Provenance& made);
/// The state of a comparison, as one of many lines: models done, and the share of the work (0 to
/// 1).
std::string JsonOfComparison(std::size_t done, std::size_t models, double share);
/// What an experiment file holds, and what its data look like.
std::string JsonOf(const ExperimentLists& lists, const std::vector<Remark>& remarks,
                   const Wording& say);
/// The catalogue of models.
std::string JsonOfModels();
/// Tables that were imported into the file at `output`; `tables` are their paths.
std::string JsonOf(const TableRead& read, const std::vector<std::string>& tables,
                   const std::string& output, const Wording& say);
/// The conditions written to the file at `output`, and what of them was proposed.
std::string JsonOf(int experiments, const std::vector<ProposedValue>& values,
                   const std::vector<ProposedRange>& ranges, const std::string& output,
                   const Wording& say);
/// What a conditions file holds, read without a fault.
std::string JsonOf(const ConditionsRead& read);

}  // namespace velmora::cli
