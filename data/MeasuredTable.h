// Measured points from a spreadsheet's table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/CsvTable.h"
#include "data/ExperimentLists.h"

namespace velmora {

/// The experiments of a table, or why it cannot be read.
struct TableRead {
  ExperimentLists lists;
  std::optional<TableFault> fault;
};

/// The experiments of a spreadsheet's CSV text in order of first appearance, checked, with markers
/// and colours in turn. Columns are found by the first word of their headers (experiment,
/// experimento, exp; t, time, tempo; Cs; Cx; Cp), others are ignored; without an experiment column
/// all rows are one experiment. An experiment's number is the whole number that its label ends in,
/// where all labels end in different ones, else its place; its final time is its largest. `only`
/// names the labels to keep; empty: all. A cell that is empty, no number or negative is a fault;
/// a label that `only` names and the table lacks is one too (`LabelMissing`, with the label and all
/// that there are as its arguments).
TableRead ReadTable(std::string_view text, const std::vector<std::string>& only);

}  // namespace velmora
