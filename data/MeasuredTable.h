// Measured points from a spreadsheet's table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/ExperimentLists.h"
#include "data/TableFault.h"
#include "data/TableOptions.h"

namespace velmora {

/// The experiments of a table, or why it cannot be read.
struct TableRead {
  ExperimentLists lists;
  std::vector<TableFault> remarks;  // what is to be told of a table that was read
  std::optional<TableFault> fault;
};

/// The experiments of a spreadsheet's CSV bytes in order of first appearance, checked, with markers
/// and colours in turn. Columns are found by their headers, others are ignored; without an
/// experiment column all rows are one experiment. An experiment's number is the whole number that
/// its label ends in, where all labels end in different ones, else its place; its final time is its
/// largest. A missing value is refused, its row
/// dropped, or it is interpolated in time, as `options.missing` says, and told. Units are those of
/// the headers, of a row below them or of `options`, else h and g/L. Lines behind the last row of
/// data that begin with no number are left out and told. A cell that is empty, no number, negative
/// or of two readings is a fault; a label that `options.only` names and the table lacks is one too
/// (`LabelMissing`, with the label and all that there are as its arguments).
TableRead ReadTable(std::string_view bytes, const TableOptions& options);

}  // namespace velmora
