// Measured points from spreadsheets' tables.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/ExperimentLists.h"
#include "data/TableFault.h"
#include "data/TableOptions.h"

namespace velmora {

struct TableFile {
  std::string_view bytes;
  std::string name;  // labels its experiments where nothing else does and there are more files
};

/// The experiments of tables, or why they cannot be read.
struct TableRead {
  ExperimentLists lists;
  std::vector<TableFault> remarks;  // what is to be told of tables that were read
  std::optional<TableFault> fault;
};

/// The experiments of spreadsheets' tables, text (CSV) or Excel workbooks, in order of first
/// appearance, checked, with markers and colours in turn. Columns are found by their headers,
/// others are ignored. Rows are told apart by an experiment column, else by the blocks below each
/// other or side by side in which they stand, else by their files. An experiment's number is the
/// whole number that its label ends in, where all labels end in different ones, else its place; its
/// final time is its largest. Rows stay in their order. A missing value is refused, its row
/// dropped, or it is interpolated in time, as `options.missing` says, and told. Units are those of
/// the headers, of a row below them or of `options`, else h and g/L. Lines behind the last row of
/// data that begin with no number are left out and told. A cell that is empty, no number, negative
/// or of two readings is a fault; a label that `options.only` names and no table has is one too
/// (`LabelMissing`, with the label and all that there are as its arguments).
TableRead ReadTables(std::span<const TableFile> files, const TableOptions& options);

/// The same of one table.
TableRead ReadTable(std::string_view bytes, const TableOptions& options);

}  // namespace velmora
