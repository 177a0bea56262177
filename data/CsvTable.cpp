#include "data/CsvTable.h"

#include <algorithm>
#include <array>
#include <optional>

namespace velmora {
namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kSeparators = "\t;,";  // the first of equals is taken
constexpr char kQuote = '"';
constexpr char kComment = '#';
constexpr std::string_view kSeparatorMark = "sep=";

class CsvParser {
 public:
  explicit CsvParser(std::string_view text) : rest_(text) { PassSeparatorLine(); }

  /// The next row that is neither a comment nor empty.
  std::optional<TableRow> NextRow();
  /// Goes on with the separator of the row that was read last.
  void KeepSeparator() { kept_ = true; }
  char Separator() const { return separator_; }

 private:
  void PassSeparatorLine();
  void PassIdleLines();
  void PassLineEnd();
  void PassBlanks();
  bool AtCellEnd() const;
  std::string Cell();
  std::string QuotedCell();

  std::string_view rest_;
  int line_ = 1;
  char separator_ = 0;
  bool kept_ = false;  // else each row has the separator of its own line
  TableSize size_;
};

/// The separator that stands most often in the line, outside quotes.
char SeparatorOf(std::string_view line) {
  std::array<int, kSeparators.size()> counts{};
  bool quoted = false;
  for (const char c : line) {
    if (c == kQuote) quoted = !quoted;
    const std::size_t index = kSeparators.find(c);
    if (!quoted && index != std::string_view::npos) ++counts[index];
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  return kSeparators[static_cast<std::size_t>(most - counts.begin())];
}

void CsvParser::PassLineEnd() {
  if (rest_.empty()) return;
  rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
  ++line_;
}

void CsvParser::PassSeparatorLine() {
  const std::string_view line = rest_.substr(0, rest_.find_first_of(kLineEnds));
  if (!line.starts_with(kSeparatorMark) || line.size() != kSeparatorMark.size() + 1) return;
  separator_ = line.back();
  kept_ = true;
  rest_.remove_prefix(line.size());
  PassLineEnd();
}

void CsvParser::PassBlanks() {
  const auto blank = [this](char c) { return c == ' ' || (c == '\t' && separator_ != '\t'); };
  while (!rest_.empty() && blank(rest_.front())) rest_.remove_prefix(1);
}

void CsvParser::PassIdleLines() {
  while (!rest_.empty()) {
    const std::string_view line = rest_.substr(0, rest_.find_first_of(kLineEnds));
    const std::size_t first = line.find_first_not_of(" \t");
    if (first != std::string_view::npos && line[first] != kComment) return;
    rest_.remove_prefix(line.size());
    PassLineEnd();
  }
}

bool CsvParser::AtCellEnd() const {
  return rest_.empty() || rest_.front() == separator_ ||
         kLineEnds.find(rest_.front()) != std::string_view::npos;
}

std::string CsvParser::QuotedCell() {
  std::string text;
  int lines = 0;
  for (rest_.remove_prefix(1);; rest_.remove_prefix(1)) {
    if (rest_.empty()) throw TableFault{TextId::BadQuote, {}, line_};
    if (rest_.front() == '\n' || (rest_.front() == '\r' && !rest_.starts_with("\r\n"))) ++lines;
    if (rest_.starts_with("\"\""))
      rest_.remove_prefix(1);
    else if (rest_.front() == kQuote)
      break;
    text += rest_.front();
  }
  rest_.remove_prefix(1);
  PassBlanks();
  if (!AtCellEnd()) throw TableFault{TextId::BadQuote, {}, line_};
  line_ += lines;
  return text;
}

std::string CsvParser::Cell() {
  PassBlanks();
  if (rest_.starts_with(kQuote)) return QuotedCell();
  std::string text;
  for (; !AtCellEnd(); rest_.remove_prefix(1)) text += rest_.front();
  while (text.ends_with(' ') || text.ends_with('\t')) text.pop_back();
  return text;
}

std::optional<TableRow> CsvParser::NextRow() {
  for (;;) {
    PassIdleLines();
    if (rest_.empty()) return std::nullopt;
    if (!kept_) separator_ = SeparatorOf(rest_.substr(0, rest_.find_first_of(kLineEnds)));
    TableRow row{line_, {Cell()}};
    while (!rest_.empty() && rest_.front() == separator_ && row.cells.size() <= kMostTableColumns) {
      rest_.remove_prefix(1);
      row.cells.push_back(Cell());
    }
    PassLineEnd();
    size_.Add(row);
    if (!IsBlank(row)) return row;
  }
}

/// The next row, nothing at the end and where a quote is bad.
std::optional<TableRow> Candidate(CsvParser& parser) {
  try {
    return parser.NextRow();
  } catch (const TableFault&) {
    return std::nullopt;
  }
}

/// How many rows stand above the header.
std::size_t TitlesOf(CsvParser parser, const HeaderSigns& signs) {
  std::size_t titles = 0;
  int most = 0;
  for (std::size_t row = 0; row <= kMostTitles; ++row) {
    const std::optional<TableRow> candidate = Candidate(parser);
    if (!candidate) break;
    const int named = signs.Named(candidate->cells);
    if (named <= most) continue;
    most = named;
    titles = row;
  }
  return titles;
}

}  // namespace

TableRows ParseCsv(std::string_view text, const HeaderSigns& signs) {
  CsvParser parser(text);
  TableRows table;
  for (std::size_t titles = TitlesOf(parser, signs); titles > 0; --titles)
    table.titles.push_back(parser.NextRow().value());
  std::optional<TableRow> header = parser.NextRow();
  if (!header) throw TableFault{TextId::NoHeader, {}};
  table.header = std::move(*header);
  parser.KeepSeparator();
  table.separator = parser.Separator();
  while (std::optional<TableRow> row = parser.NextRow()) table.rows.push_back(std::move(*row));
  return table;
}

}  // namespace velmora
