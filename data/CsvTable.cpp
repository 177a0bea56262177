#include "data/CsvTable.h"

#include <algorithm>
#include <array>
#include <optional>

#include "data/Windows1252.h"

namespace velmora {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kSeparators = "\t;,";  // the first of equals is taken
constexpr char kQuote = '"';
constexpr char kComment = '#';

class CsvParser {
 public:
  explicit CsvParser(std::string_view text) : rest_(text) {}

  /// The next row that is neither a comment nor empty.
  std::optional<CsvRow> NextRow();

 private:
  void PassIdleLines();
  void PassLineEnd();
  void PassBlanks();
  bool AtCellEnd() const;
  std::string Cell();
  std::string QuotedCell();

  std::string_view rest_;
  int line_ = 1;
  char separator_ = 0;  // until the header is seen
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
    if (rest_.front() == '\n') ++lines;
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

std::optional<CsvRow> CsvParser::NextRow() {
  for (;;) {
    PassIdleLines();
    if (rest_.empty()) return std::nullopt;
    if (separator_ == 0) separator_ = SeparatorOf(rest_.substr(0, rest_.find_first_of(kLineEnds)));
    CsvRow row{line_, {Cell()}};
    while (!rest_.empty() && rest_.front() == separator_) {
      rest_.remove_prefix(1);
      row.cells.push_back(Cell());
    }
    PassLineEnd();
    const auto empty = [](const std::string& cell) { return cell.empty(); };
    if (!std::all_of(row.cells.begin(), row.cells.end(), empty)) return row;
  }
}

void RequireUtf8(std::string_view text) {
  int line = 1;
  for (std::size_t length; !text.empty(); text.remove_prefix(length)) {
    length = LetterLength(text);
    if (length == 0) throw TableFault{TextId::NotUtf8, {}, line};
    if (text.front() == '\n') ++line;
  }
}

}  // namespace

std::string FaultReason(const TableFault& fault, Language language) {
  std::string reason =
      Filled(fault.text, language,
             std::vector<std::string_view>(fault.arguments.begin(), fault.arguments.end()));
  if (fault.row == 0) return reason;
  return Filled(TextId::AtCell, language, {std::to_string(fault.row), fault.column, reason});
}

CsvTable ParseCsv(std::string_view text) {
  RequireUtf8(text);
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  CsvParser parser(text);
  std::optional<CsvRow> header = parser.NextRow();
  if (!header) throw TableFault{TextId::NoHeader, {}};
  CsvTable table{std::move(*header), {}};
  while (std::optional<CsvRow> row = parser.NextRow()) table.rows.push_back(std::move(*row));
  return table;
}

}  // namespace velmora
