#include "data/MeasuredTable.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <set>

#include "data/CsvTable.h"
#include "data/ExperimentEntry.h"
#include "data/TableColumns.h"
#include "data/TableGaps.h"
#include "data/TableText.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::array kConcentrations = {Quantity::Substrate, Quantity::Cells, Quantity::Product};
constexpr std::array kMeasured = {Quantity::Time, Quantity::Substrate, Quantity::Cells,
                                  Quantity::Product};

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  return text.substr(0, text.find_last_not_of(" \t") + 1);
}

bool IsEmpty(const std::string& cell) {
  return cell.empty();
}

class MeasuredTable {
 public:
  MeasuredTable(CsvTable table, const TableOptions& options);

  ExperimentLists Experiments();
  /// What is not data, told.
  std::vector<TableFault>& Remarks() { return remarks_; }

 private:
  void FindUnits();
  HeaderUnit UnitSaid(Quantity quantity, const CsvRow* row) const;
  TableUnit UnitOf(Quantity quantity, const CsvRow* row) const;
  void TellColumn(Quantity quantity);
  const CsvRow* UnitsRow() const;
  void LeaveOutFooters();
  bool IsFooter(const CsvRow& row, const std::set<std::string>& labels) const;
  void TellLeftOut(const CsvRow& row);
  void FindMarks();
  std::optional<char> DecimalMarkIn(std::string_view number) const;
  bool HasTwoReadings(std::string_view number) const;
  void CheckWidth(std::size_t row) const;
  std::string Label(std::size_t row) const;
  Experiment& ExperimentLabelled(const std::string& label);
  void AddPoint(std::size_t row, Experiment& experiment);
  bool DropsRow(std::size_t row);
  void FillGaps();
  double Value(std::size_t row, Quantity quantity) const;
  double MeasuredValue(std::size_t row, Quantity quantity);
  std::string PlainNumber(std::size_t row, std::size_t column) const;
  void RequireLabels() const;

  [[noreturn]] void FailAt(std::size_t row, std::size_t column, TextId text,
                           std::vector<std::string> more = {}) const;

  /// A value to be interpolated.
  struct Gap {
    std::size_t experiment;
    std::size_t point;
    std::size_t row;
    Quantity quantity;
  };
  double FilledValue(const Gap& gap);
  void TellAt(std::size_t row, Quantity quantity, TextId text, std::vector<std::string> arguments);

  CsvTable table_;
  const TableOptions& options_;
  TableColumns columns_;
  ByQuantity<TableUnit> units_;
  NumberMarks marks_;
  std::vector<TableFault> remarks_;
  std::vector<Experiment> experiments_;
  std::vector<Gap> gaps_;
  std::map<std::string, std::size_t> places_;  // of the labels in experiments_
};

const std::string& CellOf(const CsvRow& row, std::size_t column) {
  static const std::string kAbsent;
  return column < row.cells.size() ? row.cells[column] : kAbsent;
}

/// Where a given place has a number in the first line too, the table has no header: its columns are
/// named by their places.
CsvTable WithHeader(CsvTable table, const TableOptions& options) {
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

MeasuredTable::MeasuredTable(CsvTable table, const TableOptions& options)
    : table_(WithHeader(std::move(table), options)),
      options_(options),
      columns_(table_.header, options.columns) {
  for (const CsvRow& title : table_.titles) TellLeftOut(title);
  FindUnits();
  LeaveOutFooters();
  FindMarks();
}

void MeasuredTable::TellLeftOut(const CsvRow& row) {
  const auto first = std::find_if_not(row.cells.begin(), row.cells.end(), IsEmpty);
  remarks_.push_back({TextId::LineLeftOut, {OnOneLine(*first)}, row.line});
}

/// The row below the header, where it has units: "(h)", "(g/L)".
const CsvRow* MeasuredTable::UnitsRow() const {
  if (table_.rows.empty()) return nullptr;
  const CsvRow& row = table_.rows.front();
  return UnitNamed(CellOf(row, columns_.Of(Quantity::Time)), Quantity::Time) ? &row : nullptr;
}

/// Of what is given, the row of units and the header, the first that is there.
HeaderUnit MeasuredTable::UnitSaid(Quantity quantity, const CsvRow* row) const {
  if (const auto& given = options_.units[IndexOf(quantity)]) {
    const std::optional<TableUnit> unit = UnitNamed(*given, quantity);
    return unit ? HeaderUnit{*unit} : HeaderUnit{{}, *given};
  }
  const std::size_t column = columns_.Of(quantity);
  if (row) return UnitBehindName(CellOf(*row, column), quantity);
  return UnitInHeader(table_.header.cells[column], quantity);
}

TableUnit MeasuredTable::UnitOf(Quantity quantity, const CsvRow* row) const {
  const HeaderUnit found = UnitSaid(quantity, row);
  if (!found.unknown.empty())
    throw TableFault{
        TextId::UnitUnknown,
        {found.unknown, std::string(NameOf(quantity)), std::string(UnitsKnown(quantity))},
        table_.header.line};
  const bool hasMass = options_.molarMasses[IndexOf(quantity)].has_value();
  if (found.unit.molar != hasMass)
    throw TableFault{hasMass ? TextId::UnitNotMolar : TextId::MolarMassMissing,
                     {std::string(NameOf(quantity)), found.unit.name},
                     table_.header.line};
  return found.unit;
}

void MeasuredTable::TellColumn(Quantity quantity) {
  const std::string& header = table_.header.cells[columns_.Of(quantity)];
  const std::string name(NameOf(quantity));
  if (!options_.columns[IndexOf(quantity)] && IsByAnotherName(header, quantity))
    remarks_.push_back({TextId::ColumnTaken, {OnOneLine(header), name}, table_.header.line});
  const TableUnit& unit = units_[IndexOf(quantity)];
  const std::string own = quantity == Quantity::Time ? "h" : "g/L";
  if (!unit.IsOwn())
    remarks_.push_back(
        {TextId::UnitConverted, {name, OnOneLine(unit.name), own}, table_.header.line});
}

void MeasuredTable::FindUnits() {
  const CsvRow* const row = UnitsRow();
  if (columns_.Experiment()) TellColumn(Quantity::Experiment);
  for (const Quantity quantity : kMeasured) {
    units_[IndexOf(quantity)] = UnitOf(quantity, row);
    TellColumn(quantity);
  }
  if (row) table_.rows.erase(table_.rows.begin());
}

/// A sum or a remark below the data; a row of a known experiment or with a gap for its time is
/// none.
bool MeasuredTable::IsFooter(const CsvRow& row, const std::set<std::string>& labels) const {
  const auto experiment = columns_.Experiment();
  if (experiment && labels.contains(CellOf(row, *experiment))) return false;
  const std::string& time = CellOf(row, columns_.Of(Quantity::Time));
  if (!time.empty() && IsGap(time)) return false;
  const auto first = std::find_if_not(row.cells.begin(), row.cells.end(), IsEmpty);
  return !BeginsLikeANumber(*first) && !BeginsLikeANumber(time);
}

void MeasuredTable::LeaveOutFooters() {
  const auto isData = [this](const CsvRow& row) {
    return BeginsLikeANumber(CellOf(row, columns_.Of(Quantity::Time)));
  };
  const auto end = std::find_if(table_.rows.rbegin(), table_.rows.rend(), isData).base();
  std::set<std::string> labels;
  if (const auto experiment = columns_.Experiment())
    for (auto row = table_.rows.begin(); row != end; ++row)
      labels.insert(CellOf(*row, *experiment));
  const bool allFooters =
      std::all_of(end, table_.rows.end(), [&](const CsvRow& row) { return IsFooter(row, labels); });
  if (end == table_.rows.begin() || !allFooters) return;
  for (auto row = end; row != table_.rows.end(); ++row) TellLeftOut(*row);
  table_.rows.erase(end, table_.rows.end());
}

/// Where other marks stand between thousands, each point or comma is the decimal mark.
std::optional<char> MeasuredTable::DecimalMarkIn(std::string_view number) const {
  if (options_.thousands && TwoReadings(number)) return number[number.find_first_of(".,")];
  return DecimalMarkShownBy(number);
}

void MeasuredTable::FindMarks() {
  marks_.thousands = options_.thousands;
  if (options_.thousands == Thousands::Point) marks_.decimal = ',';
  if (options_.thousands == Thousands::Comma) marks_.decimal = '.';
  if (options_.decimal) marks_.decimal = *options_.decimal;
  for (const CsvRow& row : table_.rows)
    for (const Quantity quantity : kMeasured)
      if (marks_.decimal == 0)
        marks_.decimal = DecimalMarkIn(Trimmed(CellOf(row, columns_.Of(quantity)))).value_or(0);
}

void MeasuredTable::FailAt(std::size_t row, std::size_t column, TextId text,
                           std::vector<std::string> more) const {
  more.insert(more.begin(), OnOneLine(CellOf(table_.rows[row], column)));
  throw TableFault{text, std::move(more), table_.rows[row].line, static_cast<int>(row) + 1,
                   OnOneLine(table_.header.cells[column])};
}

void MeasuredTable::CheckWidth(std::size_t row) const {
  const auto& cells = table_.rows[row].cells;
  const std::size_t width = table_.header.cells.size();
  const auto filled = [](const std::string& cell) { return !cell.empty(); };
  if (cells.size() <= width) return;
  const auto beyond = cells.begin() + static_cast<std::ptrdiff_t>(width);
  if (std::any_of(beyond, cells.end(), filled))
    throw TableFault{TextId::TooManyCells,
                     {std::to_string(row + 1), std::to_string(cells.size()), std::to_string(width)},
                     table_.rows[row].line};
}

std::string MeasuredTable::Label(std::size_t row) const {
  const auto column = columns_.Experiment();
  if (!column) return "";
  std::string label = CellOf(table_.rows[row], *column);
  label.erase(0, label.find_first_not_of(' '));
  if (label.empty()) FailAt(row, *column, TextId::CellEmpty);
  if (FittingDescription(label).text != label) FailAt(row, *column, TextId::LabelUnfit);
  return label;
}

/// A point alone is the decimal mark, but between semicolons, which go with decimal commas.
bool MeasuredTable::HasTwoReadings(std::string_view number) const {
  const bool comma = number.find(',') != std::string_view::npos;
  return marks_.decimal == 0 && (comma || table_.separator == ';') && TwoReadings(number);
}

std::string MeasuredTable::PlainNumber(std::size_t row, std::size_t column) const {
  const std::string_view cell = Trimmed(CellOf(table_.rows[row], column));
  if (cell.empty()) FailAt(row, column, TextId::CellEmpty);
  if (HasTwoReadings(cell)) {
    const auto [decimal, whole] = TwoReadings(cell).value();
    FailAt(row, column, TextId::CellOfTwoReadings, {decimal, whole});
  }
  NumberMarks marks = marks_;
  if (marks.decimal == 0) marks.decimal = '.';
  if (const auto plain = WithPoint(cell, marks)) return *plain;
  const bool otherMark = DecimalMarkIn(cell).value_or(marks.decimal) != marks.decimal;
  FailAt(row, column, otherMark ? TextId::CellMixedMarks : TextId::CellNotANumber);
}

double MeasuredTable::Value(std::size_t row, Quantity quantity) const {
  const std::size_t column = columns_.Of(quantity);
  const std::string plain = PlainNumber(row, column);
  const std::optional<double> value = ParseNumber(plain, '.');
  if (!value)
    FailAt(row, column, IsOutOfRange(plain, '.') ? TextId::FileOutOfRange : TextId::CellNotANumber);
  if (*value < 0) FailAt(row, column, TextId::CellNegative);
  const TableUnit& unit = units_[IndexOf(quantity)];
  const double mass = options_.molarMasses[IndexOf(quantity)].value_or(1);
  const double converted = *value * unit.times * mass / unit.over;
  if (!std::isfinite(converted)) FailAt(row, column, TextId::FileOutOfRange);
  return converted;
}

std::vector<double>& SeriesOf(Experiment& experiment, Quantity quantity) {
  if (quantity == Quantity::Substrate) return experiment.Cs;
  return quantity == Quantity::Cells ? experiment.Cx : experiment.Cp;
}

/// NaN where a value is to be interpolated.
double MeasuredTable::MeasuredValue(std::size_t row, Quantity quantity) {
  const std::size_t column = columns_.Of(quantity);
  const std::string_view cell = Trimmed(CellOf(table_.rows[row], column));
  if (!IsGap(cell)) return Value(row, quantity);
  if (options_.missing == Missing::Refuse)
    FailAt(row, column, cell.empty() ? TextId::CellGap : TextId::CellNA);
  return std::numeric_limits<double>::quiet_NaN();
}

void MeasuredTable::AddPoint(std::size_t row, Experiment& experiment) {
  if (experiment.Points() == kMostPoints)
    throw TableFault{TextId::TooManyPoints, {}, table_.rows[row].line};
  const double time = Value(row, Quantity::Time);
  experiment.time.push_back(time);
  for (const Quantity quantity : kConcentrations) {
    std::vector<double>& series = SeriesOf(experiment, quantity);
    series.push_back(MeasuredValue(row, quantity));
    if (std::isnan(series.back()))
      gaps_.push_back({places_.at(experiment.description), series.size() - 1, row, quantity});
  }
  experiment.finalTime = std::max(experiment.finalTime, time);
}

void MeasuredTable::TellAt(std::size_t row, Quantity quantity, TextId text,
                           std::vector<std::string> arguments) {
  remarks_.push_back({text, std::move(arguments), table_.rows[row].line, static_cast<int>(row) + 1,
                      OnOneLine(table_.header.cells[columns_.Of(quantity)])});
}

bool MeasuredTable::DropsRow(std::size_t row) {
  if (options_.missing != Missing::DropRow) return false;
  for (const Quantity quantity : kConcentrations) {
    if (!IsGap(Trimmed(CellOf(table_.rows[row], columns_.Of(quantity))))) continue;
    TellAt(row, quantity, TextId::RowDropped, {});
    return true;
  }
  return false;
}

double MeasuredTable::FilledValue(const Gap& gap) {
  Experiment& experiment = experiments_[gap.experiment];
  const auto value = Interpolated(experiment.time, SeriesOf(experiment, gap.quantity), gap.point);
  if (!value) FailAt(gap.row, columns_.Of(gap.quantity), TextId::CellNotBetween);
  TellAt(gap.row, gap.quantity, TextId::ValueInterpolated, {ShortestText(*value)});
  return *value;
}

/// A value filled in is none to interpolate from: all are told, then all are set.
void MeasuredTable::FillGaps() {
  std::vector<double> values;
  for (const Gap& gap : gaps_) values.push_back(FilledValue(gap));
  for (std::size_t i = 0; i < gaps_.size(); ++i)
    SeriesOf(experiments_[gaps_[i].experiment], gaps_[i].quantity)[gaps_[i].point] = values[i];
}

Experiment& MeasuredTable::ExperimentLabelled(const std::string& label) {
  const auto [at, isNew] = places_.try_emplace(label, experiments_.size());
  if (!isNew) return experiments_[at->second];
  if (experiments_.size() == ExperimentLists::kMostPlaces)
    throw TableFault{TextId::TooManyInTable, {std::to_string(ExperimentLists::kMostPlaces)}};
  Experiment& added = experiments_.emplace_back();
  added.description = label;
  added.verified = true;
  return added;
}

void MeasuredTable::RequireLabels() const {
  if (!options_.only.empty() && !columns_.Experiment())
    throw TableFault{TextId::MissingColumn, {"experiment"}, table_.header.line};
  std::set<std::string> labels;
  std::string names;
  for (std::size_t row = 0; row < table_.rows.size(); ++row)
    if (const auto [label, isNew] = labels.insert(Label(row)); isNew)
      names += (names.empty() ? "" : ", ") + *label;
  for (const std::string& label : options_.only)
    if (!labels.contains(label)) throw TableFault{TextId::LabelMissing, {label, names}};
}

/// The whole number that a label ends in, where it can be an experiment's number.
std::optional<std::int16_t> TrailingNumber(const std::string& label) {
  const std::size_t digits = label.find_last_not_of("0123456789") + 1;
  std::int16_t number = 0;
  const char* const end = label.data() + label.size();
  const auto [stop, error] = std::from_chars(label.data() + digits, end, number);
  if (digits == label.size() || error != std::errc{} || stop != end || number < 1)
    return std::nullopt;
  return number;
}

/// One number for each experiment: those of the labels where they are all there and differ.
std::vector<std::int16_t> NumbersOf(const std::vector<Experiment>& experiments) {
  std::vector<std::int16_t> numbers;
  std::set<std::int16_t> seen;
  for (const Experiment& experiment : experiments) {
    const auto number = TrailingNumber(experiment.description);
    if (!number || !seen.insert(*number).second) break;
    numbers.push_back(*number);
  }
  if (numbers.size() == experiments.size()) return numbers;
  numbers.clear();
  for (std::size_t i = 1; i <= experiments.size(); ++i)
    numbers.push_back(static_cast<std::int16_t>(i));
  return numbers;
}

ExperimentLists MeasuredTable::Experiments() {
  const std::vector<std::string>& only = options_.only;
  RequireLabels();
  for (std::size_t row = 0; row < table_.rows.size(); ++row) {
    const std::string label = Label(row);
    if (!only.empty() && std::find(only.begin(), only.end(), label) == only.end()) continue;
    CheckWidth(row);
    if (DropsRow(row)) continue;
    AddPoint(row, ExperimentLabelled(label));
  }
  if (experiments_.empty()) throw TableFault{TextId::NoRows, {}};
  FillGaps();

  ExperimentLists lists;
  const std::vector<std::int16_t> numbers = NumbersOf(experiments_);
  for (std::size_t i = 0; i < experiments_.size(); ++i) {
    experiments_[i].number = numbers[i];
    DisplayEntry display = UsualDisplay(static_cast<int>(i) + 1);
    lists.Append(std::move(experiments_[i]), std::move(display));
  }
  return lists;
}

}  // namespace

TableRead ReadTable(std::string_view bytes, const TableOptions& options) {
  try {
    const TableText text = DecodeTable(bytes);
    MeasuredTable table(ParseCsv(text.text, QuantityHeader(options.columns)), options);
    ExperimentLists lists = table.Experiments();
    std::vector<TableFault> remarks = std::move(table.Remarks());
    if (text.windows1252) remarks.push_back({TextId::ReadAsWindows1252, {}});
    return {std::move(lists), std::move(remarks), std::nullopt};
  } catch (const TableFault& fault) {
    return {{}, {}, fault};
  }
}

}  // namespace velmora
