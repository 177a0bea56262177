// The kinetic parameter vector: what one experiment is simulated from, and the names of its
// quantities.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <string_view>

namespace velmora {

/// Positions in the kinetic parameter vector and the conditions row, counted from 1. Concentrations
/// in g/L, time in h, rates in 1/h.
enum class At {
  Cx0 = 1,   // initial cell concentration
  Cs0,       // initial substrate concentration
  Cp0,       // initial product concentration
  T,         // final time
  Yxs,       // substrate-to-cell yield, g cells/g substrate
  alpha,     // production associated with growth, g product/g cells
  beta,      // production not associated with growth, g product/(g cells h)
  muMax,     // maximum specific growth rate
  Ks,        // saturation constant
  Kis,       // substrate inhibition constant
  Kip,       // product inhibition constant, g/L (Hoppe) or L/g (Aiba)
  CxAst,     // cell concentration at which growth stops (Lee)
  CpAst,     // product concentration at which growth stops (Levenspiel)
  m,         // exponent of the Lee term
  n,         // exponent of the Levenspiel term
  u,         // exponent of the substrate concentration (Moser)
  v,         // exponent of the substrate-inhibition term (Wu)
  C,         // switch: substrate inhibition
  B,         // switch: Contois form
  B1,        // 1 - B
  B2,        // 1 with an Aiba term
  G,         // switch: Aiba term
  H1,        // switch: Hoppe term
  ms,        // maintenance coefficient, g substrate/(g cells h)
  Kd,        // cell death constant
  Kdp,       // product degradation constant
  CsAst2,    // Cs at or below which beta acts
  CsAst1,    // Cs at or below which Kd acts
  Yps,       // substrate-to-product yield as the substrate balance uses it, g/g
  Fp,        // weight of product formation in the substrate balance, 0 or 1
  YpsTyped,  // substrate-to-product yield as typed; only in a conditions row
};

/// `Count` doubles indexed by position, 1..Count.
template <int Count>
struct PositionedValues {
  static constexpr int kCount = Count;
  std::array<double, static_cast<std::size_t>(Count)> values{};

  double& operator[](At position) { return values[Index(static_cast<int>(position))]; }
  const double& operator[](At position) const { return values[Index(static_cast<int>(position))]; }
  double& operator[](int position) { return values[Index(position)]; }
  const double& operator[](int position) const { return values[Index(position)]; }

  friend bool operator==(const PositionedValues&, const PositionedValues&) = default;

 private:
  static constexpr std::size_t Index(int position) {
    assert(position >= 1 && position <= Count);
    return static_cast<std::size_t>(position - 1);
  }
};

using KineticParameters = PositionedValues<30>;
using ConditionsRow = PositionedValues<31>;

/// A parameter that a kernel divides by; lanes have it in a form of their own.
inline const double& DivisorOf(const KineticParameters& parameters, At position) {
  return parameters[position];
}

/// Positions 1..30 of a conditions row.
inline KineticParameters VectorOf(const ConditionsRow& row) {
  KineticParameters vector;
  for (int position = 1; position <= KineticParameters::kCount; ++position)
    vector[position] = row[position];
  return vector;
}

/// The names of one position. All texts are UTF-8.
struct Parameter {
  At position;
  std::string_view name;      // on the command line, and in the names of its controls: chkMiMax
  std::string_view label;     // in results; empty where it is never fitted
  std::string_view reported;  // in the report
  std::string_view symbol;    // rich text
  std::string_view unit;      // empty where it has none
};

/// By position. The units of Ks and Kip are those that most models give them: see `UnitOf`.
// clang-format off
inline constexpr std::array<Parameter, 31> kParameters = {{
    {At::Cx0,      "Cx0",    "",        "Cx0: ",    "C<sub>x0</sub>",  "g/L"},
    {At::Cs0,      "Cs0",    "",        "Cs0: ",    "C<sub>s0</sub>",  "g/L"},
    {At::Cp0,      "Cp0",    "",        "Cp0: ",    "C<sub>p0</sub>",  "g/L"},
    {At::T,        "T",      "",        "T: ",      "t",               "h"},
    {At::Yxs,      "Yxs",    "",        "Yxs: ",    "Y<sub>x/s</sub>", "g/g"},
    {At::alpha,    "Alfa",   "",        "Alfa: ",   "α",               "g/g"},
    {At::beta,     "Beta",   "",        "Beta: ",   "β",               "g/(g·h)"},
    {At::muMax,    "MiMax",  "µmáx =",  "Mimax: ",  "µ<sub>max</sub>", "1/h"},
    {At::Ks,       "Ks",     "Ks =",    "Ks: ",     "K<sub>s</sub>",   "g/L"},
    {At::Kis,      "Kis",    "Kis =",   "Kis: ",    "K<sub>is</sub>",  "g/L"},
    {At::Kip,      "Kip",    "Kip =",   "Kp: ",     "K<sub>ip</sub>",  "g/L"},
    {At::CxAst,    "CxAst",  "Cx* =",   "CxAst: ",  "C<sub>x</sub>*",  "g/L"},
    {At::CpAst,    "CpAst",  "Cp* =",   "CpAst: ",  "C<sub>p</sub>*",  "g/L"},
    {At::m,        "m",      "m =",     "m: ",      "m",               ""},
    {At::n,        "n",      "n =",     "n: ",      "n",               ""},
    {At::u,        "u",      "u =",     "u: ",      "u",               ""},
    {At::v,        "v",      "v =",     "v: ",      "v",               ""},
    {At::C,        "C",      "",        "C: ",      "C",               ""},
    {At::B,        "B",      "",        "B: ",      "B",               ""},
    {At::B1,       "B1",     "",        "B1: ",     "B1",              ""},
    {At::B2,       "B2",     "",        "B2: ",     "B2",              ""},
    {At::G,        "G",      "",        "G: ",      "G",               ""},
    {At::H1,       "H1",     "",        "H1: ",     "H1",              ""},
    {At::ms,       "ms",     "",        "ms: ",     "m<sub>s</sub>",   "g/(g·h)"},
    {At::Kd,       "Kd",     "",        "Kd: ",     "k<sub>d</sub>",   "1/h"},
    {At::Kdp,      "Kdp",    "",        "Kdp: ",    "k<sub>dp</sub>",  "1/h"},
    {At::CsAst2,   "CsAst2", "",        "CsAst2: ", "C<sub>s2</sub>",  "g/L"},
    {At::CsAst1,   "CsAst1", "",        "CsAst1: ", "C<sub>s1</sub>",  "g/L"},
    {At::Yps,      "",       "",        "",         "Y<sub>p/s</sub>", "g/g"},
    {At::Fp,       "",       "",        "",         "F<sub>p</sub>",   ""},
    {At::YpsTyped, "Yps",    "",        "Yps: ",    "Y<sub>p/s</sub>", "g/g"},
}};
// clang-format on

static_assert([] {
  int position = 0;
  for (const Parameter& row : kParameters)
    if (row.position != At{++position}) return false;
  return true;
}());

constexpr const Parameter& ParameterAt(At position) {
  return kParameters[static_cast<std::size_t>(position) - 1];
}

/// Whether the user enters it; the others follow from model and yields.
constexpr bool IsEntered(At position) {
  const bool isSwitch = position >= At::C && position <= At::H1;
  return !isSwitch && position != At::Yps && position != At::Fp;
}

/// The ten parameters that may be fitted, in the order of their check boxes, of the
/// fitted-parameter vector, of the bounds table and of every listing.
inline constexpr std::array<Parameter, 10> kFittable = {
    {ParameterAt(At::muMax), ParameterAt(At::Ks), ParameterAt(At::Kis), ParameterAt(At::Kip),
     ParameterAt(At::CpAst), ParameterAt(At::CxAst), ParameterAt(At::n), ParameterAt(At::m),
     ParameterAt(At::u), ParameterAt(At::v)}};

/// The index in `kFittable` of the parameter at a position 8..17, or of a name; -1 where none.
constexpr int FittableIndex(At position) {
  for (std::size_t i = 0; i < kFittable.size(); ++i)
    if (kFittable[i].position == position) return static_cast<int>(i);
  return -1;
}
constexpr int FittableIndex(std::string_view name) {
  for (std::size_t i = 0; i < kFittable.size(); ++i)
    if (kFittable[i].name == name) return static_cast<int>(i);
  return -1;
}

}  // namespace velmora
