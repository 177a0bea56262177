// The state and the three balances of a batch cultivation. Concentrations in g/L, rates in g/(L h),
// mu in 1/h.
#pragma once

namespace velmora {

/// Concentrations of cells, substrate and product, g/L; also their changes over one step.
struct State {
  double Cx = 0;
  double Cs = 0;
  double Cp = 0;
};

/// The two indicators that hold for all four stages of a step: 1 or 0.
struct Indicators {
  double deathOn = 0;       // Cs is at or below CsAst1
  double productionOn = 0;  // Cs is at or below CsAst2
};

namespace balance {

/// dCx/dt; `deathOn` is 1 while cells die, else 0.
inline double Cells(double Cx, double mu, double deathOn, double Kd) {
  return Cx * (mu - deathOn * Kd);
}

/// dCs/dt: maintenance, growth and product formation (Pirt 1965; Luedeking and Piret 1959).
inline double Substrate(double Cx, double ms, double mu, double Yxs, double Fp, double alpha,
                        double productionOn, double beta, double Yps) {
  return -Cx * (ms + mu / Yxs + Fp * (alpha * mu + productionOn * beta) / Yps);
}

/// dCp/dt: growth-associated and other product formation (Luedeking and Piret 1959), degradation.
inline double Product(double Cx, double alpha, double mu, double productionOn, double beta,
                      double Kdp, double Cp) {
  return Cx * (alpha * mu + productionOn * beta) - Kdp * Cp;
}

}  // namespace balance
}  // namespace velmora
