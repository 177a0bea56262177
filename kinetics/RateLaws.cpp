#include "kinetics/RateLaws.h"

#include <cmath>
#include <limits>

#include "kinetics/BatchBalances.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

// A limit on which the state stands grows by this factor where its term is absent.
constexpr double kLimitGrowth = 1.1;

[[noreturn]] void Fail(FaultKind kind, FaultTerm term) {
  throw ArithmeticFault{kind, term};
}

// Every check looks at the value itself. The status flags of the floating-point unit would not do:
// the compiler may move an operation past their test.
double Finite(double value, FaultTerm term) {
  if (!std::isfinite(value)) Fail(FaultKind::Overflow, term);
  return value;
}

double Divided(double numerator, double denominator, FaultTerm term) {
  if (denominator == 0) Fail(FaultKind::DivisionByZero, term);
  return Finite(numerator / denominator, term);
}

double CheckedPower(double base, double exponent, FaultTerm term) {
  const double power = Power(base, exponent);
  if (std::isfinite(power)) return power;
  const bool invalid =
      (base == 0 && exponent < 0) || (base < 0 && exponent != std::floor(exponent));
  Fail(invalid ? FaultKind::InvalidPower : FaultKind::Overflow, term);
}

}  // namespace

double RateLaws::Counted(double rate) {
  if (evaluations_ == std::numeric_limits<std::int32_t>::max())
    Fail(FaultKind::Overflow, FaultTerm::EvaluationCounter);
  ++evaluations_;
  return rate;
}

double RateLaws::GrowthRate(double& Cx, double& Cs, double& Cp, const double& muMax,
                            const double& Ks, const double& Kis, const double& Kip, double& CxAst,
                            double& CpAst, const double& m, const double& n, const double& u,
                            const double& v, const double& C, const double& B, const double& B1,
                            const double& B2, const double& G, const double& H1) {
  if (Cs < kSubstrateFloor) Cs = 0;
  if (Cp == CpAst && n == 0) CpAst *= kLimitGrowth;
  if (Cx == CxAst && m == 0) CxAst *= kLimitGrowth;
  if (CpAst < Cp && n != 0) Cp = CpAst;
  if (CxAst < Cx && m != 0) Cx = CxAst;

  const double substratePower = CheckedPower(Cs, u, FaultTerm::SubstratePower);
  const double cellPower = CheckedPower(Cx + B1, B, FaultTerm::CellPower);
  const double inhibition = CheckedPower(Divided(Cs, Kis, FaultTerm::SubstrateInhibition), v,
                                         FaultTerm::SubstrateInhibition);
  const double denominator =
      Finite(substratePower + Ks * cellPower + C * Cs * inhibition, FaultTerm::SubstrateQuotient);
  double mu = Divided(muMax * substratePower, denominator, FaultTerm::SubstrateQuotient);
  mu *= CheckedPower(1 - Divided(Cp, CpAst, FaultTerm::Levenspiel), n, FaultTerm::Levenspiel);
  mu *= CheckedPower(1 - Divided(Cx, CxAst, FaultTerm::Lee), m, FaultTerm::Lee);
  mu *= Finite(Exponential(Finite(-G * Kip * Cp, FaultTerm::Aiba)), FaultTerm::Aiba);
  mu *= CheckedPower(Divided(Kip, Kip + B2 + Cp, FaultTerm::Hoppe), H1, FaultTerm::Hoppe);
  return Counted(Finite(mu, FaultTerm::SubstrateQuotient));
}

double RateLaws::CellBalance(const double& Cx, const double& mu, const double& deathOn,
                             const double& Kd) {
  return Counted(Finite(balance::Cells(Cx, mu, deathOn, Kd), FaultTerm::CellBalance));
}

double RateLaws::SubstrateBalance(const double& Cx, const double& ms, const double& mu,
                                  const double& Yxs, const double& Fp, const double& alpha,
                                  const double& productionOn, const double& beta,
                                  const double& Yps) {
  if (Yxs == 0 || Yps == 0) Fail(FaultKind::DivisionByZero, FaultTerm::SubstrateBalance);
  return Counted(Finite(balance::Substrate(Cx, ms, mu, Yxs, Fp, alpha, productionOn, beta, Yps),
                        FaultTerm::SubstrateBalance));
}

double RateLaws::ProductBalance(const double& Cx, const double& alpha, const double& mu,
                                const double& productionOn, const double& beta, const double& Kdp,
                                const double& Cp) {
  return Counted(Finite(balance::Product(Cx, alpha, mu, productionOn, beta, Kdp, Cp),
                        FaultTerm::ProductBalance));
}

}  // namespace velmora
