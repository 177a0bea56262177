// The measured points of a table, by experiment.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "data/Experiment.h"
#include "data/TableBlocks.h"
#include "data/TableColumns.h"
#include "data/TableNumbers.h"
#include "data/TableOptions.h"
#include "data/TableUnits.h"

namespace velmora {

/// All throw a `TableFault` where the table cannot be read.
class TablePoints {
 public:
  /// `label` is that of the rows where no column says theirs; `options` must outlive this.
  TablePoints(TableRows table, std::string label, const TableOptions& options);

  void Teach(TableNumbers& numbers) const { numbers.LearnFrom(table_, columns_); }
  /// Whether rows have labels of their own.
  bool HasLabels() const { return columns_.Experiment().has_value(); }
  int HeaderLine() const { return table_.header.line; }
  char Separator() const { return table_.separator; }
  /// The labels in order of first appearance.
  std::vector<std::string> Labels() const;
  /// The experiments whose labels are wanted, in order of first appearance, without numbers.
  std::vector<Experiment> Experiments(const TableNumbers& numbers);
  /// What is to be told.
  std::vector<TableFault>& Remarks() { return remarks_; }

 private:
  void LeaveOutFooters();
  bool IsFooter(const TableRow& row, const std::set<std::string>& labels) const;
  void TellLeftOut(const TableRow& row);
  void TellAt(std::size_t row, Quantity quantity, TextId text, std::vector<std::string> arguments);
  void CheckWidth(std::size_t row) const;
  std::string Label(std::size_t row) const;
  Experiment& ExperimentLabelled(const std::string& label);
  bool DropsRow(std::size_t row);
  void AddPoint(std::size_t row, Experiment& experiment, const TableNumbers& numbers);
  double Value(std::size_t row, Quantity quantity, const TableNumbers& numbers) const;
  double MeasuredValue(std::size_t row, Quantity quantity, const TableNumbers& numbers) const;

  /// A value to be interpolated.
  struct Gap {
    std::size_t experiment;
    std::size_t point;
    std::size_t row;
    Quantity quantity;
  };
  double FilledValue(const Gap& gap);
  void FillGaps();

  TableRows table_;
  std::string label_;
  const TableOptions& options_;
  TableColumns columns_;
  std::vector<TableFault> remarks_;
  ByQuantity<TableUnit> units_;
  std::vector<Experiment> experiments_;
  std::set<std::size_t> unsorted_;  // of these, by place, those that are told
  std::vector<Gap> gaps_;
  std::map<std::string, std::size_t> places_;  // of the labels in experiments_
};

}  // namespace velmora
