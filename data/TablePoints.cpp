#include "data/TablePoints.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/ColumnUnits.h"
#include "data/ExperimentEntry.h"
#include "data/ExperimentLists.h"
#include "data/TableGaps.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

/// Where a given place has a number in the first line too, the table has no header: its columns are
/// named by their places.
TableRows WithHeader(TableRows table, const TableOptions& options) {
  const auto& time = options.columns[IndexOf(Quantity::Time)];
  const std::optional<double> place = time ? ParseNumber(*time, '.') : std::nullopt;
  if (!place || !(*place >= 1 && *place <= static_cast<double>(table.header.cells.size())) ||
      !BeginsLikeANumber(table.header.cells[static_cast<std::size_t>(*place) - 1]))
    return table;
  std::size_t width = 0;
  table.rows.insert(table.rows.begin(), table.header);
  for (std::string& cell : table.header.cells) cell = std::to_string(++width);
  return table;
}

std::vector<double>& SeriesOf(Experiment& experiment, Quantity quantity) {
  if (quantity == Quantity::Substrate) return experiment.Cs;
  return quantity == Quantity::Cells ? experiment.Cx : experiment.Cp;
}

}  // namespace

TablePoints::TablePoints(TableRows table, std::string label, const TableOptions& options)
    : table_(WithHeader(std::move(table), options)),
      label_(std::move(label)),
      options_(options),
      columns_(table_.header, options.columns) {
  for (const TableRow& title : table_.titles) TellLeftOut(title);
  units_ = TakeUnits(table_, columns_, options_, remarks_);
  LeaveOutFooters();
}

void TablePoints::TellLeftOut(const TableRow& row) {
  remarks_.push_back({TextId::LineLeftOut, {OnOneLine(FirstCell(row))}, row.line});
}

void TablePoints::TellAt(std::size_t row, Quantity quantity, TextId text,
                         std::vector<std::string> arguments) {
  remarks_.push_back({text, std::move(arguments), table_.rows[row].line, static_cast<int>(row) + 1,
                      OnOneLine(table_.header.cells[columns_.Of(quantity)])});
}

/// A sum or a remark below the data; a row of a known experiment or with a gap for its time is
/// none.
bool TablePoints::IsFooter(const TableRow& row, const std::set<std::string>& labels) const {
  const auto experiment = columns_.Experiment();
  if (experiment && labels.contains(CellOf(row, *experiment))) return false;
  const std::string& time = CellOf(row, columns_.Of(Quantity::Time));
  if (!time.empty() && IsGap(time)) return false;
  return !BeginsLikeANumber(FirstCell(row)) && !BeginsLikeANumber(time);
}

void TablePoints::LeaveOutFooters() {
  const auto isData = [this](const TableRow& row) {
    return BeginsLikeANumber(CellOf(row, columns_.Of(Quantity::Time)));
  };
  const auto end = std::find_if(table_.rows.rbegin(), table_.rows.rend(), isData).base();
  std::set<std::string> labels;
  if (const auto experiment = columns_.Experiment())
    for (auto row = table_.rows.begin(); row != end; ++row)
      labels.insert(CellOf(*row, *experiment));
  const bool allFooters = std::all_of(end, table_.rows.end(),
                                      [&](const TableRow& row) { return IsFooter(row, labels); });
  if (end == table_.rows.begin() || !allFooters) return;
  for (auto row = end; row != table_.rows.end(); ++row) TellLeftOut(*row);
  table_.rows.erase(end, table_.rows.end());
}

/// More cells than headers are decimal commas between commas; beside a sheet's table they are
/// notes.
void TablePoints::CheckWidth(std::size_t row) const {
  const auto& cells = table_.rows[row].cells;
  const std::size_t width = table_.header.cells.size();
  const auto filled = [](const std::string& cell) { return !cell.empty(); };
  if (table_.separator == 0 || cells.size() <= width) return;
  const auto beyond = cells.begin() + static_cast<std::ptrdiff_t>(width);
  if (std::any_of(beyond, cells.end(), filled))
    throw TableFault{TextId::TooManyCells,
                     {std::to_string(row + 1), std::to_string(cells.size()), std::to_string(width)},
                     table_.rows[row].line};
}

std::string TablePoints::Label(std::size_t row) const {
  const auto column = columns_.Experiment();
  if (!column) return label_;
  std::string label = CellOf(table_.rows[row], *column);
  label.erase(0, label.find_first_not_of(' '));
  if (label.empty()) throw FaultAt(table_, row, *column, TextId::CellEmpty);
  if (FittingDescription(label).text != label)
    throw FaultAt(table_, row, *column, TextId::LabelUnfit);
  return label;
}

std::vector<std::string> TablePoints::Labels() const {
  std::vector<std::string> labels;
  std::set<std::string> seen;
  for (std::size_t row = 0; row < table_.rows.size(); ++row)
    if (const auto [label, isNew] = seen.insert(Label(row)); isNew) labels.push_back(*label);
  return labels;
}

double TablePoints::Value(std::size_t row, Quantity quantity, const TableNumbers& numbers) const {
  const std::size_t column = columns_.Of(quantity);
  const double value = numbers.Value(table_, row, column);
  const TableUnit& unit = units_[IndexOf(quantity)];
  const double mass = options_.molarMasses[IndexOf(quantity)].value_or(1);
  const double converted = value * unit.times * mass / unit.over;
  if (!std::isfinite(converted)) throw FaultAt(table_, row, column, TextId::FileOutOfRange);
  return converted;
}

/// NaN where a value is to be interpolated.
double TablePoints::MeasuredValue(std::size_t row, Quantity quantity,
                                  const TableNumbers& numbers) const {
  const std::size_t column = columns_.Of(quantity);
  const std::string_view cell = Trimmed(CellOf(table_.rows[row], column));
  if (!IsGap(cell)) return Value(row, quantity, numbers);
  if (options_.missing == Missing::Refuse)
    throw FaultAt(table_, row, column, cell.empty() ? TextId::CellGap : TextId::CellNA);
  return std::numeric_limits<double>::quiet_NaN();
}

void TablePoints::AddPoint(std::size_t row, Experiment& experiment, const TableNumbers& numbers) {
  if (experiment.Points() == kMostPoints)
    throw TableFault{TextId::TooManyPoints, {}, table_.rows[row].line};
  const std::size_t place = places_.at(experiment.description);
  const double time = Value(row, Quantity::Time, numbers);
  if (!experiment.time.empty() && time < experiment.time.back() && unsorted_.insert(place).second)
    TellAt(row, Quantity::Time, TextId::RowsUnsorted,
           {ShortestText(time), ShortestText(experiment.time.back())});
  experiment.time.push_back(time);
  for (const Quantity quantity : kConcentrations) {
    std::vector<double>& series = SeriesOf(experiment, quantity);
    series.push_back(MeasuredValue(row, quantity, numbers));
    if (std::isnan(series.back())) gaps_.push_back({place, series.size() - 1, row, quantity});
  }
  experiment.finalTime = std::max(experiment.finalTime, time);
}

bool TablePoints::DropsRow(std::size_t row) {
  if (options_.missing != Missing::DropRow) return false;
  for (const Quantity quantity : kConcentrations) {
    if (!IsGap(Trimmed(CellOf(table_.rows[row], columns_.Of(quantity))))) continue;
    TellAt(row, quantity, TextId::RowDropped, {});
    return true;
  }
  return false;
}

double TablePoints::FilledValue(const Gap& gap) {
  Experiment& experiment = experiments_[gap.experiment];
  const auto value = Interpolated(experiment.time, SeriesOf(experiment, gap.quantity), gap.point);
  if (!value) throw FaultAt(table_, gap.row, columns_.Of(gap.quantity), TextId::CellNotBetween);
  TellAt(gap.row, gap.quantity, TextId::ValueInterpolated, {ShortestText(*value)});
  return *value;
}

/// A value filled in is none to interpolate from: all are told, then all are set.
void TablePoints::FillGaps() {
  std::vector<double> values;
  for (const Gap& gap : gaps_) values.push_back(FilledValue(gap));
  for (std::size_t i = 0; i < gaps_.size(); ++i)
    SeriesOf(experiments_[gaps_[i].experiment], gaps_[i].quantity)[gaps_[i].point] = values[i];
}

Experiment& TablePoints::ExperimentLabelled(const std::string& label) {
  const auto [at, isNew] = places_.try_emplace(label, experiments_.size());
  if (!isNew) return experiments_[at->second];
  if (experiments_.size() == ExperimentLists::kMostPlaces)
    throw TableFault{TextId::TooManyInTable, {std::to_string(ExperimentLists::kMostPlaces)}};
  Experiment& added = experiments_.emplace_back();
  added.description = label;
  added.verified = true;
  return added;
}

std::vector<Experiment> TablePoints::Experiments(const TableNumbers& numbers) {
  const std::vector<std::string>& only = options_.only;
  for (std::size_t row = 0; row < table_.rows.size(); ++row) {
    const std::string label = Label(row);
    if (!only.empty() && std::find(only.begin(), only.end(), label) == only.end()) continue;
    CheckWidth(row);
    if (DropsRow(row)) continue;
    AddPoint(row, ExperimentLabelled(label), numbers);
  }
  FillGaps();
  return std::move(experiments_);
}

}  // namespace velmora
