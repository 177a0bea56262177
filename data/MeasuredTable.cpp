#include "data/MeasuredTable.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>

#include "data/ExperimentEntry.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::size_t kNoColumn = std::string::npos;

struct Columns {
  std::size_t experiment = kNoColumn;
  std::size_t t = kNoColumn;
  std::size_t Cs = kNoColumn;
  std::size_t Cx = kNoColumn;
  std::size_t Cp = kNoColumn;
};

/// The first word of a header in small letters: "t" of "t (h)", "cs" of "Cs_g_per_L".
std::string FirstWord(std::string_view header) {
  std::string word;
  for (const char c : header) {
    const char small = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    const bool letter = small >= 'a' && small <= 'z';
    const bool digit = c >= '0' && c <= '9';
    const bool beyondAscii = static_cast<unsigned char>(c) >= 0x80;
    if (!letter && !digit && !beyondAscii) break;
    word += small;
  }
  return word;
}

class MeasuredTable {
 public:
  explicit MeasuredTable(const CsvTable& table) : table_(table) {}

  ExperimentLists Experiments(const std::vector<std::string>& only);

 private:
  void FindColumns();
  std::size_t Column(std::initializer_list<std::string_view> words, std::string_view name,
                     bool needed) const;
  void CheckWidth(std::size_t row) const;
  std::string Label(std::size_t row) const;
  Experiment& ExperimentLabelled(const std::string& label);
  void AddPoint(std::size_t row, Experiment& experiment);
  double Value(std::size_t row, std::size_t column);
  const std::string& Cell(std::size_t row, std::size_t column) const;
  void RequireLabels(const std::vector<std::string>& only) const;

  [[noreturn]] void FailAt(std::size_t row, std::size_t column, TextId text) const;

  const CsvTable& table_;
  Columns columns_;
  char mark_ = 0;  // the decimal mark, once a number has shown it
  std::vector<Experiment> experiments_;
  std::map<std::string, std::size_t> places_;  // of the labels in experiments_
};

void MeasuredTable::FailAt(std::size_t row, std::size_t column, TextId text) const {
  throw TableFault{text,
                   {OnOneLine(Cell(row, column))},
                   table_.rows[row].line,
                   static_cast<int>(row) + 1,
                   OnOneLine(table_.header.cells[column])};
}

std::size_t MeasuredTable::Column(std::initializer_list<std::string_view> words,
                                  std::string_view name, bool needed) const {
  const auto& headers = table_.header.cells;
  std::size_t found = kNoColumn;
  for (std::size_t column = 0; column < headers.size(); ++column) {
    if (std::find(words.begin(), words.end(), FirstWord(headers[column])) == words.end()) continue;
    if (found != kNoColumn)
      throw TableFault{TextId::ColumnTwice, {std::string(name)}, table_.header.line};
    found = column;
  }
  if (needed && found == kNoColumn)
    throw TableFault{TextId::MissingColumn, {std::string(name)}, table_.header.line};
  return found;
}

void MeasuredTable::FindColumns() {
  columns_.experiment = Column({"experiment", "experimento", "exp"}, "experiment", false);
  columns_.t = Column({"t", "time", "tempo"}, "t", true);
  columns_.Cs = Column({"cs"}, "Cs", true);
  columns_.Cx = Column({"cx"}, "Cx", true);
  columns_.Cp = Column({"cp"}, "Cp", true);
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

const std::string& MeasuredTable::Cell(std::size_t row, std::size_t column) const {
  static const std::string kAbsent;
  const auto& cells = table_.rows[row].cells;
  return column < cells.size() ? cells[column] : kAbsent;
}

std::string MeasuredTable::Label(std::size_t row) const {
  if (columns_.experiment == kNoColumn) return "";
  std::string label = Cell(row, columns_.experiment);
  label.erase(0, label.find_first_not_of(' '));
  if (label.empty()) FailAt(row, columns_.experiment, TextId::CellEmpty);
  if (FittingDescription(label).text != label) FailAt(row, columns_.experiment, TextId::LabelUnfit);
  return label;
}

/// A table has one decimal mark: a comma beside points would be a thousands separator.
double MeasuredTable::Value(std::size_t row, std::size_t column) {
  const std::string& cell = Cell(row, column);
  if (cell.empty()) FailAt(row, column, TextId::CellEmpty);
  const bool comma = cell.find(',') != std::string::npos;
  const std::optional<double> value = ParseNumber(cell, comma ? ',' : '.');
  if (!value) {
    const bool outOfRange = IsOutOfRange(cell, comma ? ',' : '.');
    FailAt(row, column, outOfRange ? TextId::FileOutOfRange : TextId::CellNotANumber);
  }
  if (*value < 0) FailAt(row, column, TextId::CellNegative);
  if (comma || cell.find('.') != std::string::npos) {
    const char mark = comma ? ',' : '.';
    if (mark_ != 0 && mark_ != mark) FailAt(row, column, TextId::CellMixedMarks);
    mark_ = mark;
  }
  return *value;
}

void MeasuredTable::AddPoint(std::size_t row, Experiment& experiment) {
  if (experiment.Points() == kMostPoints)
    throw TableFault{TextId::TooManyPoints, {}, table_.rows[row].line};
  const double time = Value(row, columns_.t);
  experiment.time.push_back(time);
  experiment.Cs.push_back(Value(row, columns_.Cs));
  experiment.Cx.push_back(Value(row, columns_.Cx));
  experiment.Cp.push_back(Value(row, columns_.Cp));
  experiment.finalTime = std::max(experiment.finalTime, time);
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

void MeasuredTable::RequireLabels(const std::vector<std::string>& only) const {
  if (!only.empty() && columns_.experiment == kNoColumn)
    throw TableFault{TextId::MissingColumn, {"experiment"}, table_.header.line};
  std::set<std::string> labels;
  std::string names;
  for (std::size_t row = 0; row < table_.rows.size(); ++row)
    if (const auto [label, isNew] = labels.insert(Label(row)); isNew)
      names += (names.empty() ? "" : ", ") + *label;
  for (const std::string& label : only)
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

ExperimentLists MeasuredTable::Experiments(const std::vector<std::string>& only) {
  FindColumns();
  RequireLabels(only);
  for (std::size_t row = 0; row < table_.rows.size(); ++row) {
    const std::string label = Label(row);
    if (!only.empty() && std::find(only.begin(), only.end(), label) == only.end()) continue;
    CheckWidth(row);
    AddPoint(row, ExperimentLabelled(label));
  }
  if (experiments_.empty()) throw TableFault{TextId::NoRows, {}};

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

TableRead ReadTable(std::string_view text, const std::vector<std::string>& only) {
  try {
    const CsvTable table = ParseCsv(text);
    return {MeasuredTable(table).Experiments(only), std::nullopt};
  } catch (const TableFault& fault) {
    return {{}, fault};
  }
}

}  // namespace velmora
