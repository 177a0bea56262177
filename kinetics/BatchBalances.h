// The state and the three balances of a batch cultivation. Concentrations in g/L, rates in g/(L h),
// mu in 1/h.
#pragma once

namespace velmora {

/// Concentrations of cells, substrate and product, g/L; also their changes over one step. `Number`
/// is a double, or as many as are computed in lanes side by side.
template <class Number>
struct BasicState {
  Number Cx{};
  Number Cs{};
  Number Cp{};
};

using BatchState = BasicState<double>;

/// The two indicators that hold for all four stages of a step: 1 or 0.
template <class Number>
struct BasicIndicators {
  Number deathOn{};       // Cs is at or below CsAst1
  Number productionOn{};  // Cs is at or below CsAst2
};

namespace balance {

/// dCx/dt; `deathOn` is 1 while cells die, else 0.
template <class Number>
[[gnu::always_inline]] inline Number Cells(Number Cx, Number mu, Number deathOn, Number Kd) {
  return Cx * (mu - deathOn * Kd);
}

/// dCs/dt: maintenance, growth and product formation (Pirt 1965; Luedeking and Piret 1959).
template <class Number>
[[gnu::always_inline]] inline Number Substrate(Number Cx, Number ms, Number mu, const auto& Yxs,
                                               Number Fp, Number alpha, Number productionOn,
                                               Number beta, const auto& Yps) {
  return -Cx * (ms + mu / Yxs + Fp * (alpha * mu + productionOn * beta) / Yps);
}

/// dCp/dt: growth-associated and other product formation (Luedeking and Piret 1959), degradation.
template <class Number>
[[gnu::always_inline]] inline Number Product(Number Cx, Number alpha, Number mu,
                                             Number productionOn, Number beta, Number Kdp,
                                             Number Cp) {
  return Cx * (alpha * mu + productionOn * beta) - Kdp * Cp;
}

}  // namespace balance
}  // namespace velmora
