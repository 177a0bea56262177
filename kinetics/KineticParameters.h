// The kinetic parameter vector: what one experiment is simulated from.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

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

/// Positions 1..30 of a conditions row.
inline KineticParameters VectorOf(const ConditionsRow& row) {
  KineticParameters vector;
  for (int position = 1; position <= KineticParameters::kCount; ++position)
    vector[position] = row[position];
  return vector;
}

}  // namespace velmora
