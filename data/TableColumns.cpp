#include "data/TableColumns.h"

#include <algorithm>

namespace velmora {
namespace {

using Words = std::string_view;  // between blanks

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
constexpr Words kAlsoTime = "h hours horas";
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

/// They may stand before the word that tells what a column holds.
constexpr Words kPassedOver =
    "concentration conc concentração concentracao of de do da dry residual culture total elapsed "
    "fermentation";

bool Contains(Words words, std::string_view word) {
  while (!words.empty()) {
    const std::string_view next = words.substr(0, words.find(' '));
    if (next == word) return true;
    words.remove_prefix(std::min(next.size() + 1, words.size()));
  }
  return false;
}

/// Small letters for A to Z and for the accented ones of Latin 1 (C3 80 to C3 9E in UTF-8).
std::string SmallLetters(std::string_view text) {
  std::string small;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool accented = small.ends_with('\xC3') && byte >= 0x80 && byte <= 0x9E;
    const bool capital = c >= 'A' && c <= 'Z';
    small += capital || accented ? static_cast<char>(byte + 0x20) : c;
  }
  return small;
}

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

bool Names(std::string_view header, Words words) {
  const std::string small = SmallLetters(header);
  std::string_view rest = small;
  return Contains(words, TakeWord(rest));
}

bool NamesBehindOthers(std::string_view header, Words words) {
  const std::string small = SmallLetters(header);
  std::string_view rest = small, word = TakeWord(rest);
  while (Contains(kPassedOver, word) && !rest.empty()) {
    rest.remove_prefix(1);
    word = TakeWord(rest);
  }
  return Contains(words, word);
}

bool MayBe(std::string_view header, const QuantityWords& words) {
  return NamesBehindOthers(header, words.own) || NamesBehindOthers(header, words.other);
}

template <class Fits>
std::vector<std::size_t> ColumnsWhere(const std::vector<std::string>& headers, Fits fits) {
  std::vector<std::size_t> columns;
  for (std::size_t column = 0; column < headers.size(); ++column)
    if (fits(headers[column])) columns.push_back(column);
  return columns;
}

std::optional<std::size_t> Find(const CsvRow& header, const QuantityWords& words) {
  const auto own = ColumnsWhere(header.cells, [&](auto& cell) { return Names(cell, words.own); });
  if (own.size() > 1) throw TableFault{TextId::ColumnTwice, {std::string(words.name)}, header.line};
  if (!own.empty()) return own.front();
  const auto other = ColumnsWhere(header.cells, [&](auto& cell) { return MayBe(cell, words); });
  if (other.size() > 1)
    throw TableFault{TextId::ColumnUnclear,
                     {OnOneLine(header.cells[other[0]]), OnOneLine(header.cells[other[1]]),
                      std::string(words.name)},
                     header.line};
  if (!other.empty()) return other.front();
  return std::nullopt;
}

}  // namespace

std::string_view NameOf(Quantity quantity) {
  return kWords[static_cast<std::size_t>(quantity)].name;
}

TableColumns::TableColumns(const CsvRow& header) {
  for (std::size_t i = 0; i < kQuantities; ++i) {
    columns_[i] = Find(header, kWords[i]);
    if (!columns_[i] && Quantity{static_cast<int>(i)} != Quantity::Experiment)
      throw TableFault{TextId::MissingColumn, {std::string(kWords[i].name)}, header.line};
  }
}

int QuantityHeader::Named(const std::vector<std::string>& cells) const {
  const auto named = [&](const QuantityWords& words) {
    return std::any_of(cells.begin(), cells.end(),
                       [&](const std::string& cell) { return MayBe(cell, words); });
  };
  return static_cast<int>(std::count_if(kWords.begin(), kWords.end(), named));
}

}  // namespace velmora
