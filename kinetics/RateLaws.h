// The general specific growth rate and the balances, each operation checked and each call counted.
#pragma once

#include <cstdint>

#include "kinetics/ArithmeticFault.h"

namespace velmora {

/// Below this Cs, in g/L, the growth rate sees no substrate.
inline constexpr double kSubstrateFloor = 0.0001;

/// The rate functions of one integrator, with its count of evaluations. Every one of the 32 models
/// is this one law with other switch values. A fault is thrown as an `ArithmeticFault` that names
/// kind and term; the call that it ends is not counted.
class RateLaws {
 public:
  /// The specific growth rate, 1/h:
  ///   mu = muMax Cs^u / (Cs^u + Ks (Cx + B1)^B + C Cs (Cs/Kis)^v)
  ///        (1 - Cp/CpAst)^n (1 - Cx/CxAst)^m exp(-G Kip Cp) (Kip/(Kip + B2 + Cp))^H1
  /// Its guards change the arguments: Cs below the floor becomes 0; where a term is absent and its
  /// state stands on the limit, the limit grows by a tenth; where it is present, a state beyond its
  /// limit is cut to it, so that no base becomes negative.
  double GrowthRate(double& Cx, double& Cs, double& Cp, const double& muMax, const double& Ks,
                    const double& Kis, const double& Kip, double& CxAst, double& CpAst,
                    const double& m, const double& n, const double& u, const double& v,
                    const double& C, const double& B, const double& B1, const double& B2,
                    const double& G, const double& H1);

  /// dCx/dt, g/(L h).
  double CellBalance(const double& Cx, const double& mu, const double& deathOn, const double& Kd);

  /// dCs/dt, g/(L h).
  double SubstrateBalance(const double& Cx, const double& ms, const double& mu, const double& Yxs,
                          const double& Fp, const double& alpha, const double& productionOn,
                          const double& beta, const double& Yps);

  /// dCp/dt, g/(L h).
  double ProductBalance(const double& Cx, const double& alpha, const double& mu,
                        const double& productionOn, const double& beta, const double& Kdp,
                        const double& Cp);

  /// How many calls of the four functions have ended since the last reset.
  std::int32_t Evaluations() const { return evaluations_; }
  void SetEvaluations(std::int32_t count) { evaluations_ = count; }

  /// Adds evaluations that were made and checked elsewhere; the sum must fit.
  void AddEvaluations(std::int32_t count) { evaluations_ += count; }

 private:
  double Counted(double rate);

  std::int32_t evaluations_ = 0;
};

}  // namespace velmora
