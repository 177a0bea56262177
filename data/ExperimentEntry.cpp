#include "data/ExperimentEntry.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "data/Windows1252.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kMostNumber = std::numeric_limits<std::int16_t>::max();

/// The text found, and what to say of it where it is a number.
Piece Found(const std::string& text, bool outOfRange) {
  if (outOfRange) return {TextId::FileOutOfRange, {text}};
  return "\"" + text + "\"";
}

/// All that keeps an entry from being saved, a line each, and the first box or cell of them.
struct Faults {
  std::vector<Piece> pieces{TextId::PossibleErrors};
  std::optional<std::pair<EntryBox, GridCell>> first{};
  int count = 0;

  void Add(EntryBox box, GridCell cell, std::vector<Piece> sentence) {
    constexpr int kMostTold = 12;
    if (!first) first = {box, cell};
    if (++count > kMostTold) return;
    pieces.emplace_back("\n");
    for (Piece& piece : sentence) pieces.push_back(std::move(piece));
    told = count;
  }
  std::optional<EntryRead::Refusal> Refusal() {
    if (!first) return std::nullopt;
    if (count > told)
      pieces.insert(pieces.end(), {"\n", {TextId::AndMore, {std::to_string(count - told)}}});
    return EntryRead::Refusal{
        {pieces, TextId::ExperimentNotSaved, Icon::Exclamation}, first->first, first->second};
  }

  int told = 0;
};

Message TooMany(TextId what, const std::string& excess) {
  return Attention({TextId::PossibleErrors, "\n", what, ": " + excess}, Icon::Exclamation);
}

std::optional<std::int16_t> NumberOf(const std::string& text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc{} && end == text.data() + text.size();
  if (!whole || number < 1 || number > kMostNumber) return std::nullopt;
  return static_cast<std::int16_t>(number);
}

Piece BadCell(std::size_t row, std::size_t column, const std::string& text) {
  const std::string number = std::to_string(row + 1), header(kGridHeaders[column]);
  if (text.empty()) return {TextId::RowLacksValue, {number, header}};
  const TextId id = IsCellOutOfRange(text) ? TextId::RowOutOfRange : TextId::RowHoldsText;
  return {id, {number, text, header}};
}

void AddBadCells(std::span<const GridRow> rows, Faults& faults) {
  while (!rows.empty() && IsEmpty(rows.back())) rows = rows.first(rows.size() - 1);
  for (std::size_t row = 0; row < rows.size(); ++row)
    for (std::size_t column = 0; column < rows[row].size(); ++column)
      if (const std::string& text = rows[row][column]; !CellNumber(text))
        faults.Add(EntryBox::Cell, {static_cast<int>(row), static_cast<int>(column)},
                   {BadCell(row, column, text)});
}

int FilledCells(const std::vector<std::string>& row) {
  const auto last =
      std::find_if(row.rbegin(), row.rend(), [](const auto& c) { return !c.empty(); });
  return static_cast<int>(row.rend() - last);
}

/// "t (h), Cs (g/L)": the headers from `column` on.
std::string HeadersFrom(int column) {
  std::string text;
  for (std::size_t i = static_cast<std::size_t>(column); i < kGridHeaders.size(); ++i)
    text += (text.empty() ? "" : ", ") + std::string(kGridHeaders[i]);
  return text;
}

std::string Exceeds(int count, int most) {
  return std::to_string(count) + " > " + std::to_string(most);
}

constexpr std::string_view kLineEnd = "\r\n";

bool IsControl(std::string_view letter) {
  const auto code = static_cast<unsigned char>(letter.front());
  return code < 0x20 || code == 0x7F;
}

/// What stands for one letter, or one line break, of a pasted text; empty where it is left out.
std::string_view Fitting(std::string_view letter) {
  if (letter == ",") return ";";
  if (letter == kLineEnd || letter == "\r" || letter == "\n" || letter == "\t") return " ";
  if (IsControl(letter) || ToWindows1252(letter).letter) return {};
  return letter;
}

}  // namespace

EntryRead ReadEntry(const ExperimentHeader& header, std::span<const GridRow> rows, char separator) {
  GridPoints grid = ReadPoints(rows);
  EntryRead read{std::move(grid.points), std::nullopt};
  const std::optional<std::int16_t> number = NumberOf(header.number);
  const std::optional<double> finalTime = ReadBox(header.finalTime, separator);
  Faults faults;
  if (!number)
    faults.Add(EntryBox::Number, {}, {TextId::ExperimentNumber, ": ", Found(header.number, false)});
  if (!finalTime) {
    const bool outOfRange = IsOutOfRange(Normalised(header.finalTime, separator), separator);
    faults.Add(EntryBox::FinalTime, {},
               {TextId::FinalTime, ": ", Found(header.finalTime, outOfRange)});
  }
  if (grid.badCell) AddBadCells(rows, faults);
  read.refusal = faults.Refusal();
  read.experiment.number = number.value_or(0);
  const std::vector<double>& times = read.experiment.time;
  const bool blank = header.finalTime.find_first_not_of(' ') == std::string::npos;
  read.experiment.finalTime = blank && !times.empty()
                                  ? *std::max_element(times.begin(), times.end())
                                  : finalTime.value_or(0);
  read.experiment.description = header.description;
  read.experiment.verified = true;
  return read;
}

ExperimentHeader HeaderOf(const Experiment& experiment, char separator) {
  return {std::to_string(experiment.number), experiment.description,
          PlainText(experiment.finalTime, separator)};
}

int NextFreeNumber(const ExperimentLists& lists) {
  int largest = 0;
  for (const Experiment& experiment : lists.Experiments())
    largest = std::max<int>(largest, experiment.number);
  if (largest < kMostNumber) return largest + 1;
  std::vector<bool> used(static_cast<std::size_t>(kMostNumber) + 1);
  for (const Experiment& experiment : lists.Experiments())
    if (experiment.number > 0) used[static_cast<std::size_t>(experiment.number)] = true;
  const auto free = std::find(used.begin() + 1, used.end(), false);
  return free == used.end() ? 0 : static_cast<int>(free - used.begin());
}

DisplayEntry UsualDisplay(int place) {
  const auto index = static_cast<std::size_t>(place - 1);
  DisplayEntry display;
  display.marker = kMarkers[index % kMarkers.size()];
  display.colour = static_cast<std::int32_t>(index % kColours.size()) + 1;
  return display;
}

std::optional<Message> ReplaceUnknownDisplays(ExperimentLists& lists) {
  std::string replaced;
  for (int place = 1; place <= lists.Count(); ++place) {
    DisplayEntry& display = lists.Display(place);
    const DisplayEntry usual = UsualDisplay(place);
    std::string unknown;
    const auto replace = [&unknown](bool known, auto& value, const auto& instead,
                                    const std::string& found) {
      if (known) return;
      unknown += (unknown.empty() ? "\"" : ", \"") + found + "\"";
      value = instead;
    };
    replace(MarkerNumber(display.marker) != 0, display.marker, usual.marker, display.marker);
    replace(display.colour >= 1 && display.colour <= static_cast<int>(kColours.size()),
            display.colour, usual.colour, std::to_string(display.colour));
    replace(display.line >= 1 && display.line <= kLineStyles, display.line, usual.line,
            std::to_string(display.line));
    if (!unknown.empty()) replaced += "\n" + std::to_string(place) + ": " + unknown;
  }
  if (replaced.empty()) return std::nullopt;
  return Attention({TextId::DisplaysReplaced, replaced});
}

std::optional<Message> RefuseBlock(const GridBlock& block, GridCell at) {
  const int rows = at.row + static_cast<int>(block.size());
  if (rows > kMostPoints) return TooMany(TextId::PointsNumber, Exceeds(rows, kMostPoints));
  int columns = 0;
  for (const std::vector<std::string>& row : block) columns = std::max(columns, FilledCells(row));
  const int room = kGridColumns - at.column;
  if (columns <= room) return std::nullopt;
  return TooMany(TextId::ExperimentalData,
                 Exceeds(columns, room) + " (" + HeadersFrom(at.column) + ")");
}

Message RefuseFullLists() {
  constexpr int kMost = ExperimentLists::kMostPlaces;
  return TooMany(TextId::Experiments, Exceeds(kMost + 1, kMost));
}

Message UnsavedQuestion() {
  return {{TextId::ExperimentNotSaved, TextId::WriteWithoutEntries},
          TextId::ExperimentNotSaved,
          Icon::Question};
}

DescriptionText FittingDescription(std::string_view pasted) {
  DescriptionText fitting;
  while (!pasted.empty()) {
    const std::size_t length =
        pasted.starts_with(kLineEnd) ? 2 : std::max<std::size_t>(LetterLength(pasted), 1);
    const std::string_view letter = Fitting(pasted.substr(0, length));
    pasted.remove_prefix(length);
    if (letter.empty()) fitting.lettersLeftOut = true;
    if (letter != " " || !fitting.text.empty()) fitting.text += letter;
  }
  return fitting;
}

bool MayBeTyped(std::string_view text, bool first) {
  const std::string before = first ? "" : ".";
  return FittingDescription(before + std::string(text)).text == before + std::string(text);
}

}  // namespace velmora
