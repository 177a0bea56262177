#include "data/TableColumns.h"

#include <algorithm>
#include <charconv>

#include "data/TableWords.h"

namespace velmora {
namespace {

struct QuantityWords {
  std::string_view name;
  Words own;    // these win where a table has columns of both kinds
  Words other;  // as people call it
};

constexpr Words kOfExperiment = "experiment experimento exp";
constexpr Words kOfTime = "t time tempo";
constexpr Words kOfSubstrate = "cs";
constexpr Words kOfCells = "cx";
constexpr Words kOfProduct = "cp";
constexpr Words kAlsoExperiment = "batch run batelada ensaio corrida lote";
// Units of time, which headers consist of.
constexpr Words kAlsoTime = "h hours horas min minutes minutos days dias";
constexpr Words kAlsoSubstrate =
    "s substrate substrato glucose glicose sugar sugars açúcar açucar açúcares sucrose sacarose";
constexpr Words kAlsoCells = "x biomass biomassa cell cells células celulas célula cdw dcw";
constexpr Words kAlsoProduct = "p product produto ethanol etanol";

constexpr std::array<QuantityWords, kQuantities> kWords = {
    {{"experiment", kOfExperiment, kAlsoExperiment},
     {"t", kOfTime, kAlsoTime},
     {"Cs", kOfSubstrate, kAlsoSubstrate},
     {"Cx", kOfCells, kAlsoCells},
     {"Cp", kOfProduct, kAlsoProduct}}};

constexpr Words kOpticalDensity = "od absorbance absorbância optical";

/// They may stand before the word that tells what a column holds.
constexpr Words kPassedOver =
    "concentration conc concentração concentracao of de do da dry residual culture total elapsed "
    "fermentation";

/// The first word of a header, taken off it: "t" of "t (h)", "cs" of "cs_g_per_l".
std::string_view TakeWord(std::string_view& small) {
  const auto inWord = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80;
  };
  const auto end = std::find_if_not(small.begin(), small.end(), inWord);
  const std::string_view word = small.substr(0, static_cast<std::size_t>(end - small.begin()));
  small.remove_prefix(word.size());
  return word;
}

/// What a header says behind the word of `words` that it begins with; `passing`: also where words
/// like "concentration of" stand in front. Nothing where it begins otherwise.
std::optional<std::string> BehindName(std::string_view header, Words words, bool passing) {
  const std::string small = SmallLetters(header);
  std::string_view rest = small, word = TakeWord(rest);
  while (passing && Contains(kPassedOver, word) && !rest.empty()) {
    rest.remove_prefix(1);
    word = TakeWord(rest);
  }
  if (!Contains(words, word)) return std::nullopt;
  const bool isUnit = words == kAlsoTime;
  return (isUnit ? std::string(word) + " " : "") +
         std::string(header.substr(small.size() - rest.size()));
}

bool MayBe(std::string_view header, const QuantityWords& words) {
  return BehindName(header, words.own, true) || BehindName(header, words.other, true);
}

/// "OD", "OD600 (-)", "absorbance": cells, but in a scale that only its owner can turn into g/L.
bool IsOpticalDensity(std::string_view header) {
  const std::string small = SmallLetters(header);
  std::string_view rest = small;
  std::string_view word = TakeWord(rest);
  if (word.starts_with("od")) word = word.substr(0, word.find_last_not_of("0123456789") + 1);
  return Contains(kOpticalDensity, word);
}

template <class Fits>
std::vector<std::size_t> ColumnsWhere(const std::vector<std::string>& headers, Fits fits) {
  std::vector<std::size_t> columns;
  for (std::size_t column = 0; column < headers.size(); ++column)
    if (fits(headers[column])) columns.push_back(column);
  return columns;
}

std::vector<std::size_t> ColumnsOfOwn(const TableRow& header, const QuantityWords& words) {
  return ColumnsWhere(header.cells, [&](const std::string& cell) {
    return BehindName(cell, words.own, false).has_value();
  });
}

std::vector<std::size_t> ColumnsOfOther(const TableRow& header, const QuantityWords& words) {
  return ColumnsWhere(header.cells, [&](const std::string& cell) { return MayBe(cell, words); });
}

std::optional<std::size_t> Find(const TableRow& header, const QuantityWords& words) {
  const auto own = ColumnsOfOwn(header, words);
  if (own.size() > 1) throw TableFault{TextId::ColumnTwice, {std::string(words.name)}, header.line};
  if (!own.empty()) return own.front();
  const auto other = ColumnsOfOther(header, words);
  if (other.size() > 1)
    throw TableFault{TextId::ColumnUnclear,
                     {OnOneLine(header.cells[other[0]]), OnOneLine(header.cells[other[1]]),
                      std::string(words.name)},
                     header.line};
  if (!other.empty()) return other.front();
  return std::nullopt;
}

[[noreturn]] void RefuseWithout(Quantity quantity, const TableRow& header) {
  const std::string name(NameOf(quantity));
  const auto densities = ColumnsWhere(header.cells, IsOpticalDensity);
  if (quantity == Quantity::Cells && !densities.empty())
    throw TableFault{
        TextId::OpticalDensity, {name, OnOneLine(header.cells[densities.front()])}, header.line};
  throw TableFault{TextId::MissingColumn, {name}, header.line};
}

/// The place from 1 that a given column states, as an index.
std::optional<std::size_t> PlaceIn(const std::string& given) {
  std::size_t place = 0;
  const char* const end = given.data() + given.size();
  const auto [stop, error] = std::from_chars(given.data(), end, place);
  if (error != std::errc{} || stop != end || place == 0) return std::nullopt;
  return place - 1;
}

bool IsGiven(const std::string& header, const std::string& given) {
  return OnOneLine(SmallLetters(header)) == OnOneLine(SmallLetters(given));
}

std::size_t FindGiven(const TableRow& header, const std::string& given, Quantity quantity) {
  const auto same =
      ColumnsWhere(header.cells, [&](const std::string& cell) { return IsGiven(cell, given); });
  if (same.size() == 1) return same.front();
  const auto place = PlaceIn(given);
  if (place && *place < header.cells.size()) return *place;
  std::string names;
  for (const std::string& cell : header.cells)
    if (!cell.empty()) names += (names.empty() ? "" : ", ") + OnOneLine(cell);
  throw TableFault{
      TextId::NoSuchColumn, {given, std::string(NameOf(quantity)), names}, header.line};
}

}  // namespace

TableColumns::TableColumns(const TableRow& header,
                           const ByQuantity<std::optional<std::string>>& given) {
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const Quantity quantity{static_cast<int>(i)};
    columns_[i] = given[i] ? FindGiven(header, *given[i], quantity) : Find(header, kWords[i]);
    if (!columns_[i] && quantity != Quantity::Experiment) RefuseWithout(quantity, header);
  }
}

std::vector<std::size_t> ColumnsNaming(const TableRow& header, Quantity quantity) {
  const QuantityWords& words = kWords[IndexOf(quantity)];
  const auto own = ColumnsOfOwn(header, words);
  return own.empty() ? ColumnsOfOther(header, words) : own;
}

bool IsByAnotherName(std::string_view header, Quantity quantity) {
  return !BehindName(header, kWords[IndexOf(quantity)].own, false);
}

HeaderUnit UnitInHeader(std::string_view header, Quantity quantity) {
  const QuantityWords& words = kWords[IndexOf(quantity)];
  for (const Words names : {words.own, words.other})
    if (const auto rest = BehindName(header, names, true)) return UnitBehindName(*rest, quantity);
  return UnitBehindName(header, quantity);
}

int QuantityHeader::Named(const std::vector<std::string>& cells) const {
  int named = 0;
  for (std::size_t i = 0; i < kQuantities; ++i) {
    const auto place = given_[i] ? PlaceIn(*given_[i]) : std::nullopt;
    const auto names = [&](const std::string& cell) {
      return given_[i] ? IsGiven(cell, *given_[i]) : MayBe(cell, kWords[i]);
    };
    const bool atPlace = place && *place < cells.size() && !cells[*place].empty() &&
                         !BeginsLikeANumber(cells[*place]);
    if (atPlace || std::any_of(cells.begin(), cells.end(), names)) ++named;
  }
  return named;
}

}  // namespace velmora
