#include "kinetics/Runge_Kutta.h"

#include <cmath>
#include <limits>
#include <utility>

#include "kinetics/BatchBalances.h"
#include "kinetics/GrowthKernel.h"

namespace velmora {
namespace {

constexpr int kSteps = kModelPoints - 1;
constexpr std::int32_t kEvaluationsPerStep = 16;
constexpr std::int32_t kEvaluationsPerMarch = kSteps * kEvaluationsPerStep;

// Below this a concentration is none.
constexpr double kTrace = 0.000001;

// While parameters, states, denominators and rates stay below kTame, and divisors above 1/kTame, no
// operation of the rate laws can overflow, nor divide by zero: the largest product is of order
// kTame^6, a double reaches 10^308.
constexpr double kTame = 1e40;

State operator+(const State& a, const State& b) {
  return {a.Cx + b.Cx, a.Cs + b.Cs, a.Cp + b.Cp};
}
State operator/(const State& a, double d) {
  return {a.Cx / d, a.Cs / d, a.Cp / d};
}

Indicators IndicatorsAt(const State& state, const KineticParameters& p) {
  return {state.Cs <= p[At::CsAst1] ? 1.0 : 0.0, state.Cs <= p[At::CsAst2] ? 1.0 : 0.0};
}

State WithoutTraces(const State& state) {
  return {state.Cx < kTrace ? 0 : state.Cx, state.Cs < kTrace ? 0 : state.Cs,
          state.Cp < kTrace ? 0 : state.Cp};
}

/// One classical step. `changes(stage, state)` gives the step's length times the three balances;
/// its guards act on the state that it is handed, in stage 1 the state of the cultivation itself.
template <class Changes>
State ClassicalStep(State state, Changes&& changes) {
  const State k1 = changes(1, state);
  State at2 = state + k1 / 2;
  const State k2 = changes(2, at2);
  State at3 = state + k2 / 2;
  const State k3 = changes(3, at3);
  State at4 = state + k3;
  const State k4 = changes(4, at4);
  return {state.Cx + (k1.Cx + 2 * k2.Cx + 2 * k3.Cx + k4.Cx) / 6,
          state.Cs + (k1.Cs + 2 * k2.Cs + 2 * k3.Cs + k4.Cs) / 6,
          state.Cp + (k1.Cp + 2 * k2.Cp + 2 * k3.Cp + k4.Cp) / 6};
}

void RequireFinite(const State& state) {
  if (!std::isfinite(state.Cx) || !std::isfinite(state.Cs) || !std::isfinite(state.Cp))
    throw ArithmeticFault{FaultKind::Overflow, FaultTerm::State};
}

/// A growth kernel and the balances around it, for one step.
template <SubstrateTerm S, ProductTerm P, CellTerm X>
struct ComposedKernel {
  static State Step(const KineticParameters& p, const State& start, double h,
                    kernel::Reach& reach) {
    const Indicators on = IndicatorsAt(start, p);
    const State end = ClassicalStep(WithoutTraces(start), [&](int, State& s) -> State {
      AddState(s, reach);
      const double mu = kernel::GrowthRate<S, P, X>(p, s, reach);
      return {h * balance::Cells(s.Cx, mu, on.deathOn, p[At::Kd]),
              h * balance::Substrate(s.Cx, p[At::ms], mu, p[At::Yxs], p[At::Fp], p[At::alpha],
                                     on.productionOn, p[At::beta], p[At::Yps]),
              h * balance::Product(s.Cx, p[At::alpha], mu, on.productionOn, p[At::beta], p[At::Kdp],
                                   s.Cp)};
    });
    AddState(end, reach);
    return end;
  }

 private:
  static void AddState(const State& s, kernel::Reach& reach) {
    reach.Add(s.Cx);
    reach.Add(s.Cs);
    reach.Add(s.Cp);
  }
};

/// Whether an integration of these parameters can fault only through its state.
bool Tame(const KineticParameters& p) {
  for (const double value : p.values)
    if (!(std::fabs(value) < kTame)) return false;
  for (const At divisor : {At::Yxs, At::Yps, At::Kis, At::CxAst, At::CpAst})
    if (!(std::fabs(p[divisor]) > 1 / kTame)) return false;
  return true;
}

/// The terms that a row's switches name. None where they name no composition of terms. A power
/// whose exponent is 0 is 1, so its term is absent.
struct NamedTerms {
  bool found = false;
  SubstrateTerm substrate = SubstrateTerm::Monod;
  ProductTerm product = ProductTerm::None;
  CellTerm cell = CellTerm::None;
};

NamedTerms TermsOf(const KineticParameters& p) {
  const bool plain = p[At::B] == 0 && (p[At::C] != 0 || p[At::v] == 0);
  const bool linear = p[At::u] == 1;
  NamedTerms terms;
  if (plain && p[At::C] == 1 && linear)
    terms.substrate = p[At::v] == 1 ? SubstrateTerm::Andrews : SubstrateTerm::Wu;
  else if (plain && p[At::C] == 0)
    terms.substrate = linear ? SubstrateTerm::Monod : SubstrateTerm::Moser;
  else if (p[At::B] == 1 && p[At::B1] == 0 && p[At::C] == 0 && p[At::v] == 0 && linear)
    terms.substrate = SubstrateTerm::Contois;
  else
    return terms;

  const bool levenspiel = p[At::n] != 0;
  if (p[At::G] == 0 && p[At::H1] == 0)
    terms.product = levenspiel ? ProductTerm::Levenspiel : ProductTerm::None;
  else if (p[At::G] == 1 && p[At::H1] == 0 && !levenspiel)
    terms.product = ProductTerm::Aiba;
  else if (p[At::G] == 0 && p[At::H1] == 1 && p[At::B2] == 0 && !levenspiel)
    terms.product = ProductTerm::Hoppe;
  else
    return terms;

  terms.cell = p[At::m] != 0 ? CellTerm::Lee : CellTerm::None;
  terms.found = true;
  return terms;
}

}  // namespace

/// The march of each catalogue model's kernel, in catalogue order.
struct KernelTable {
  using March = void (Runge_Kutta::*)(ModelCurve&);

  template <std::size_t... Index>
  static constexpr auto Make(std::index_sequence<Index...>) {
    return std::array<March, sizeof...(Index)>{&Runge_Kutta::MarchKernel<
        ComposedKernel<kModels[Index].substrate, kModels[Index].product, kModels[Index].cell>>...};
  }

  /// The march for a row's switches, or null where only the general law serves.
  static March For(const KineticParameters& p) {
    static constexpr auto kMarches = Make(std::make_index_sequence<kModels.size()>{});
    const NamedTerms terms = TermsOf(p);
    for (std::size_t i = 0; terms.found && i < kModels.size(); ++i)
      if (kModels[i].substrate == terms.substrate && kModels[i].product == terms.product &&
          kModels[i].cell == terms.cell)
        return kMarches[i];
    return nullptr;
  }
};

double Runge_Kutta::GeneralGrowthRate(State& s) {
  KineticParameters& p = working_;
  return laws_.GrowthRate(s.Cx, s.Cs, s.Cp, p[At::muMax], p[At::Ks], p[At::Kis], p[At::Kip],
                          p[At::CxAst], p[At::CpAst], p[At::m], p[At::n], p[At::u], p[At::v],
                          p[At::C], p[At::B], p[At::B1], p[At::B2], p[At::G], p[At::H1]);
}

State Runge_Kutta::GeneralStep(State state, double h) {
  const KineticParameters& p = working_;
  const Indicators on = IndicatorsAt(state, p);
  const State end = ClassicalStep(WithoutTraces(state), [&](int stage, State& s) -> State {
    stage_ = stage;
    RequireFinite(s);
    const double mu = GeneralGrowthRate(s);
    return {h * laws_.CellBalance(s.Cx, mu, on.deathOn, p[At::Kd]),
            h * laws_.SubstrateBalance(s.Cx, p[At::ms], mu, p[At::Yxs], p[At::Fp], p[At::alpha],
                                       on.productionOn, p[At::beta], p[At::Yps]),
            h * laws_.ProductBalance(s.Cx, p[At::alpha], mu, on.productionOn, p[At::beta],
                                     p[At::Kdp], s.Cp)};
  });
  RequireFinite(end);
  return end;
}

template <class Step>
void Runge_Kutta::March(ModelCurve& curve, Step&& step) {
  const double h = working_[At::T] / kSteps;
  State state{curve.Cx[0], curve.Cs[0], curve.Cp[0]};
  double time = 0;
  for (std::size_t i = 1; i < curve.time.size(); ++i) {
    point_ = static_cast<int>(i) + 1;
    state = step(state, h);
    time += h;
    curve.time[i] = time;
    curve.Cx[i] = state.Cx;
    curve.Cs[i] = state.Cs;
    curve.Cp[i] = state.Cp;
  }
}

template <class Kernel>
void Runge_Kutta::MarchKernel(ModelCurve& curve) {
  const KineticParameters parameters = working_;
  March(curve, [&](const State& state, double h) {
    kernel::Reach reach;
    const State end = Kernel::Step(parameters, state, h, reach);
    // A step that left the safe range is taken again by the general law, which names the fault at
    // the operation where it arises, or finds that there is none.
    if (!(reach.sum < kTame) || reach.zeroDivisor) return GeneralStep(state, h);
    laws_.AddEvaluations(kEvaluationsPerStep);
    return end;
  });
}

void Runge_Kutta::Integrate(const KineticParameters& parameters, ModelCurve& curve, Law law) {
  working_ = parameters;
  curve.time[0] = 0;
  curve.Cx[0] = parameters[At::Cx0];
  curve.Cs[0] = parameters[At::Cs0];
  curve.Cp[0] = parameters[At::Cp0];
  point_ = 1;
  stage_ = 0;
  try {
    // An initial state that the law cannot take faults here, at point 1.
    State initial{curve.Cx[0], curve.Cs[0], curve.Cp[0]};
    GeneralGrowthRate(initial);
    const bool counts =
        laws_.Evaluations() <= std::numeric_limits<std::int32_t>::max() - kEvaluationsPerMarch;
    const bool kernels = law == Law::Kernel && counts && Tame(parameters);
    if (const auto march = kernels ? KernelTable::For(parameters) : nullptr)
      (this->*march)(curve);
    else
      March(curve, [this](const State& state, double h) { return GeneralStep(state, h); });
    curve.points = kModelPoints;
  } catch (ArithmeticFault& fault) {
    curve.points = point_ - 1;
    fault.point = point_;
    fault.stage = stage_;
    throw;
  }
}

}  // namespace velmora
