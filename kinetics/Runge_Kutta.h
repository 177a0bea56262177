// The integrator: one batch experiment from time 0 to T in 99 equal fourth-order steps.
#pragma once

#include <cstdint>

#include "kinetics/ArithmeticFault.h"
#include "kinetics/BatchBalances.h"
#include "kinetics/KineticParameters.h"
#include "kinetics/ModelCurves.h"
#include "kinetics/RateLaws.h"

namespace velmora {

/// Of one integration: one at the start, 16 for each of the 99 steps.
inline constexpr std::int32_t kRateEvaluations = 1585;

/// Which rate law an integration evaluates. Both give the same bits, faults and counts.
enum class Law {
  Kernel,   // the kernel that the parameters' switches name, the general law where none does
  General,  // the general law
};

/// The classical Runge-Kutta method (Kutta 1901) on the three batch balances, at a fixed step.
class Runge_Kutta {
 public:
  /// Fills the 100 points of `curve`, point 1 being the initial values. Time is the repeated sum of
  /// the step T/99. Whether cells die and whether non-growth production acts is decided once a step
  /// from Cs at its start. Counts `kRateEvaluations`. A fault leaves at once as an
  /// `ArithmeticFault` with point and stage: the curve has the points before it.
  void Integrate(const KineticParameters& parameters, ModelCurve& curve, Law law = Law::Kernel);

  /// Rate evaluations since the object was made or reset; more than 2,147,483,647 are a fault.
  std::int32_t Evaluations() const { return laws_.Evaluations(); }
  void SetEvaluations(std::int32_t count) { laws_.SetEvaluations(count); }

 private:
  BatchState GeneralStep(BatchState state, double step);
  double GeneralGrowthRate(BatchState& state);
  template <class Step>
  void March(ModelCurve& curve, Step&& step);
  template <class Kernel>
  void MarchKernel(ModelCurve& curve);

  RateLaws laws_;
  KineticParameters working_;  // the guards' changes to CxAst and CpAst last for one integration
  int point_ = 0;
  int stage_ = 0;

  friend struct KernelTable;
};

}  // namespace velmora
