#include "data/MeasuredTable.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <set>

#include "data/Archive.h"
#include "data/CsvTable.h"
#include "data/ExperimentEntry.h"
#include "data/TablePoints.h"
#include "data/TableText.h"
#include "data/Workbook.h"

namespace velmora {
namespace {

/// What files of old Excel and encrypted workbooks begin with.
constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0";

/// The tables as they are read, one file after another.
class TableReading {
 public:
  TableReading(std::span<const TableFile> files, const TableOptions& options)
      : files_(files), options_(options) {}

  TableRead Read();

 private:
  TableRows RowsOf(std::string_view bytes);
  std::string LabelOf(const TableBlock& block, std::size_t place, std::size_t blocks) const;
  std::vector<TablePoints> PointsOf(const TableFile& file);
  void RequireLabels(const std::vector<TablePoints>& tables);
  void AddFile();
  void Add(TablePoints& table, const TableNumbers& numbers);
  void RequireAllFound() const;
  ExperimentLists Lists();

  std::span<const TableFile> files_;
  const TableOptions& options_;
  std::size_t file_ = 0;  // that is read
  std::vector<Experiment> experiments_;
  std::vector<std::string> labels_;  // of all rows
  std::set<std::string> known_;      // the same
  std::vector<TableFault> remarks_;
};

TableRows TableReading::RowsOf(std::string_view bytes) {
  const QuantityHeader signs(options_.columns);
  if (bytes.starts_with(kCompoundFile)) throw TableFault{TextId::OldWorkbook, {}};
  if (IsArchive(bytes)) {
    SheetRead sheet = ReadSheet(bytes, options_.sheet, options_.limit);
    std::string others;
    for (const std::string& name : sheet.others) others += (others.empty() ? "" : ", ") + name;
    if (!options_.sheet && !others.empty())
      remarks_.push_back({TextId::SheetTaken, {sheet.name, others}, 0, 0, "", file_});
    return TableOf(std::move(sheet.rows), signs);
  }
  if (options_.sheet) throw TableFault{TextId::SheetOfText, {}};
  const TableText text = DecodeTable(bytes);
  TableRows rows = ParseCsv(text.text, signs);
  if (text.windows1252) remarks_.push_back({TextId::ReadAsWindows1252, {}, 0, 0, "", file_});
  return rows;
}

/// A name and a title may hold what a description in an experiment file cannot.
std::string TableReading::LabelOf(const TableBlock& block, std::size_t place,
                                  std::size_t blocks) const {
  if (!block.label.empty()) return FittingDescription(block.label).text;
  std::string label = files_.size() > 1 ? FittingDescription(files_[file_].name).text : "";
  if (blocks > 1) label += (label.empty() ? "" : " ") + std::to_string(place);
  return label;
}

std::vector<TablePoints> TableReading::PointsOf(const TableFile& file) {
  TableRows rows = RowsOf(file.bytes);
  const bool given = std::any_of(options_.columns.begin(), options_.columns.end(),
                                 [](const auto& column) { return column.has_value(); });
  std::vector<TableBlock> blocks;
  if (given)
    blocks.push_back({std::move(rows), ""});
  else
    blocks = BlocksOf(std::move(rows));
  std::vector<TablePoints> tables;
  for (TableBlock& block : blocks) {
    std::string label = LabelOf(block, tables.size() + 1, blocks.size());
    tables.emplace_back(std::move(block.table), std::move(label), options_);
  }
  return tables;
}

/// Each experiment stands in one table.
void TableReading::RequireLabels(const std::vector<TablePoints>& tables) {
  for (const TablePoints& table : tables) {
    if (!options_.only.empty() && !table.HasLabels() && files_.size() * tables.size() == 1)
      throw TableFault{TextId::MissingColumn, {"experiment"}, table.HeaderLine()};
    for (std::string& label : table.Labels()) {
      if (!known_.insert(label).second)
        throw TableFault{TextId::ExperimentTwice, {label}, table.HeaderLine()};
      labels_.push_back(std::move(label));
    }
  }
}

void TableReading::Add(TablePoints& table, const TableNumbers& numbers) {
  for (Experiment& experiment : table.Experiments(numbers))
    experiments_.push_back(std::move(experiment));
  if (experiments_.size() > ExperimentLists::kMostPlaces)
    throw TableFault{TextId::TooManyInTable, {std::to_string(ExperimentLists::kMostPlaces)}};
  for (TableFault& remark : table.Remarks()) {
    remark.table = file_;
    remarks_.push_back(std::move(remark));
  }
}

void TableReading::AddFile() {
  const std::size_t before = experiments_.size();
  std::vector<TablePoints> tables = PointsOf(files_[file_]);
  RequireLabels(tables);
  TableNumbers numbers(options_, tables.front().Separator());
  for (const TablePoints& table : tables) table.Teach(numbers);
  for (TablePoints& table : tables) Add(table, numbers);
  if (options_.only.empty() && experiments_.size() == before) throw TableFault{TextId::NoRows, {}};
}

void TableReading::RequireAllFound() const {
  std::string names;
  for (const std::string& label : labels_) names += (names.empty() ? "" : ", ") + label;
  for (const std::string& label : options_.only)
    if (!known_.contains(label)) throw TableFault{TextId::LabelMissing, {label, names}};
  if (experiments_.empty()) throw TableFault{TextId::NoRows, {}};
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

ExperimentLists TableReading::Lists() {
  ExperimentLists lists;
  const std::vector<std::int16_t> numbers = NumbersOf(experiments_);
  for (std::size_t i = 0; i < experiments_.size(); ++i) {
    experiments_[i].number = numbers[i];
    DisplayEntry display = UsualDisplay(static_cast<int>(i) + 1);
    lists.Append(std::move(experiments_[i]), std::move(display));
  }
  return lists;
}

TableRead TableReading::Read() {
  try {
    for (file_ = 0; file_ < files_.size(); ++file_) AddFile();
    file_ = 0;
    RequireAllFound();
    return {Lists(), std::move(remarks_), std::nullopt};
  } catch (TableFault& fault) {
    fault.table = file_;
    return {{}, {}, std::move(fault)};
  }
}

}  // namespace

TableRead ReadTables(std::span<const TableFile> files, const TableOptions& options) {
  return TableReading(files, options).Read();
}

TableRead ReadTable(std::string_view bytes, const TableOptions& options) {
  const TableFile file{bytes, ""};
  return ReadTables({&file, 1}, options);
}

}  // namespace velmora
