// Measured points from a spreadsheet's table.
#pragma once

#include <string>
#include <vector>

#include "cli/CsvTable.h"
#include "data/ExperimentLists.h"

namespace velmora::cli {

/// The experiments of the table in order of first appearance, checked, with markers and colours in
/// turn. Columns are found by the first word of their headers (experiment, experimento, exp; t,
/// time, tempo; Cs; Cx; Cp), others are ignored; without an experiment column all rows are one
/// experiment. An experiment's number is the whole number that its label ends in, where all
/// labels end in different ones, else its place; its final time is its largest. `only` names the
/// labels to keep; empty: all. Throws a `Failure` that names `path`, line, row and column for a
/// cell that is empty, no number or negative.
ExperimentLists ExperimentsOf(const CsvTable& table, const std::vector<std::string>& only,
                              const std::string& path, const Wording& say);

}  // namespace velmora::cli
