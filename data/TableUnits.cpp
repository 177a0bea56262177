#include "data/TableUnits.h"

#include <algorithm>
#include <array>
#include <utility>

#include "data/TableWords.h"

namespace velmora {
namespace {

struct UnitRow {
  Words names;  // simplified, see below
  double times;
  double over;
  bool molar;
};

constexpr std::array<UnitRow, 4> kTimes = {
    {{"h hr hrs hour hours hora horas", 1, 1, false},
     {"min mins minute minutes minuto minutos", 1, 60, false},
     {"s sec secs second seconds seg segundo segundos", 1, 3600, false},
     {"d day days dia dias", 24, 1, false}}};

constexpr std::array<UnitRow, 9> kConcentrations = {
    {{"g/l gl-1 g/dm3 gdm-3 kg/m3 kgm-3 mg/ml mgml-1 mg/cm3 mgcm-3", 1, 1, false},
     {"mg/l mgl-1 ug/ml ugml-1 g/m3 gm-3 mg/dm3 mgdm-3", 1, 1000, false},
     {"ug/l ugl-1 ng/ml ngml-1 mg/m3 mgm-3", 1, 1e6, false},
     {"g/100ml g/dl gdl-1", 10, 1, false},
     {"mg/100ml mg/dl mgdl-1", 1, 100, false},
     {"g/ml gml-1 kg/l kgl-1 g/cm3 gcm-3", 1000, 1, false},
     {"molar mol/l moll-1 mol/dm3 moldm-3 mmol/ml", 1, 1, true},
     {"millimolar mmol/l mmoll-1 mol/m3 molm-3 umol/ml", 1, 1000, true},
     {"micromolar umol/l umoll-1 nmol/ml", 1, 1e6, true}}};

/// Units of other quantities and scales: a column in them is not to be taken for h or g/L.
constexpr Words kForeign =
    "ms week weeks semana semanas month months mes meses m mm mol mmol g mg kg l ml ppm ppb od "
    "od600 "
    "au cfu brix bx °bx °brix";

constexpr std::array<std::pair<std::string_view, std::string_view>, 11> kSpellings = {
    {{"\u00B5", "u"},
     {"\u03BC", "u"},
     {"\u00B3", "3"},
     {"\u207B\u00B9", "-1"},
     {"\u207B\u00B3", "-3"},
     {"\u2212", "-"},
     {"\u00B7", ""},
     {"_per_", "/"},
     {" per ", "/"},
     {"_por_", "/"},
     {" por ", "/"}}};
/// What is weighed tells nothing of the unit: g DCW/L.
constexpr std::array<std::string_view, 5> kSubstances = {"cdw", "dcw", "dw", "glucose", "ethanol"};
constexpr std::string_view kMarks = " ._*^()[]{}";

void ReplaceAll(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at))
    text.replace(at, from.size(), to);
}

/// One spelling for all: "gl-1" of "(g L⁻¹)" and "g.L^-1". Only M and m differ by their size.
std::string Simplified(std::string_view unit) {
  std::string text(unit);
  for (const auto& [from, to] : kSpellings) ReplaceAll(text, from, to);
  std::erase_if(text, [](char c) { return kMarks.find(c) != std::string_view::npos; });
  if (text == "M") return "molar";
  if (text == "mM") return "millimolar";
  if (text == "uM") return "micromolar";
  text = SmallLetters(text);
  for (const std::string_view substance : kSubstances) ReplaceAll(text, substance, "");
  return text;
}

bool LooksLikeAUnit(std::string_view piece) {
  const std::string text = Simplified(piece);
  return text.find_first_of("/%") != std::string::npos || text.find("-1") != std::string::npos ||
         text.ends_with("molar") || Contains(kForeign, text);
}

std::string_view Stripped(std::string_view piece) {
  constexpr std::string_view kAround = " \t_/";
  piece.remove_prefix(std::min(piece.find_first_not_of(kAround), piece.size()));
  for (const std::string_view in : {"in ", "em "})
    if (piece.starts_with(in)) piece.remove_prefix(in.size());
  return piece.substr(0, piece.find_last_not_of(kAround) + 1);
}

template <class Rows>
std::optional<TableUnit> FindIn(const Rows& rows, std::string_view text) {
  const std::string simplified = Simplified(text);
  for (const auto& [names, times, over, molar] : rows)
    if (Contains(names, simplified)) return TableUnit{std::string(text), times, over, molar};
  return std::nullopt;
}

}  // namespace

std::optional<TableUnit> UnitNamed(std::string_view text, Quantity quantity) {
  if (quantity == Quantity::Time) return FindIn(kTimes, text);
  return FindIn(kConcentrations, text);
}

std::string_view UnitsKnown(Quantity quantity) {
  if (quantity == Quantity::Time) return "s, min, h, d";
  return "g/L, mg/L, mg/mL, kg/m3, g/100 mL, mM";
}

HeaderUnit UnitBehindName(std::string_view rest, Quantity quantity) {
  constexpr std::string_view kBetween = "()[]{},;:\n\r";
  HeaderUnit found;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(kBetween), rest.size());
    const std::string_view piece = Stripped(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (auto unit = UnitNamed(piece, quantity)) return {std::move(*unit)};
    if (found.unknown.empty() && LooksLikeAUnit(piece)) found.unknown = piece;
  }
  return found;
}

}  // namespace velmora
