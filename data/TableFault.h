// What is wrong with a spreadsheet's table, and what is to be told of one that was read.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "language/Texts.h"

namespace velmora {

/// Why a table cannot be read: thrown while it is, and worded where it is told. Of a table that was
/// read it is a remark.
struct TableFault {
  TextId text;
  std::vector<std::string> arguments;  // of the text
  int line = 0;                        // of the file, from 1; 0 where no line is concerned
  int row = 0;            // of the data, from 1, with its column: where a cell is meant
  std::string column{};   // its header
  std::size_t table = 0;  // which of the tables read together, from 0
};

/// The fault on one line, UTF-8, without the file's name and line.
std::string FaultReason(const TableFault& fault, Language language);

}  // namespace velmora
