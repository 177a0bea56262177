// One step of the classical Runge-Kutta method (Kutta 1901) on the batch balances, with a growth
// kernel inside: for doubles and for lanes alike.
#pragma once

#include "kinetics/BatchBalances.h"
#include "kinetics/GrowthKernel.h"
#include "kinetics/KineticParameters.h"

namespace velmora {

// Below this a concentration is none.
inline constexpr double kTrace = 0.000001;

// While parameters, states, denominators and rates stay below kTame, and divisors above 1/kTame, no
// operation of the rate laws can overflow, nor divide by zero: the largest product is of order
// kTame^6, a double reaches 10^308.
inline constexpr double kTame = 1e40;

template <class Number>
[[gnu::always_inline]] inline BasicState<Number> operator+(const BasicState<Number>& a,
                                                           const BasicState<Number>& b) {
  return {a.Cx + b.Cx, a.Cs + b.Cs, a.Cp + b.Cp};
}
template <class Number>
[[gnu::always_inline]] inline BasicState<Number> operator*(double d, const BasicState<Number>& a) {
  return {d * a.Cx, d * a.Cs, d * a.Cp};
}
template <class Number>
[[gnu::always_inline]] inline BasicState<Number> operator/(const BasicState<Number>& a,
                                                           const auto& d) {
  return {a.Cx / d, a.Cs / d, a.Cp / d};
}

template <class Number>
[[gnu::always_inline]] inline BasicIndicators<Number> IndicatorsAt(const BasicState<Number>& state,
                                                                   const auto& p) {
  const auto oneWhere = [](auto condition) { return Select(condition, Number(1.0), Number(0.0)); };
  return {oneWhere(state.Cs <= p[At::CsAst1]), oneWhere(state.Cs <= p[At::CsAst2])};
}

template <class Number>
[[gnu::always_inline]] inline BasicState<Number> WithoutTraces(const BasicState<Number>& state) {
  const auto without = [](const Number& c) { return Select(c < kTrace, Number(0.0), c); };
  return {without(state.Cx), without(state.Cs), without(state.Cp)};
}

/// One classical step. `changes(stage, state)` gives the step's length times the three balances;
/// its guards act on the state that it is handed, in stage 1 the state of the cultivation itself.
/// `six` is the number of that name, in whatever form is best divided by.
template <class Number, class Changes>
[[gnu::always_inline]] inline BasicState<Number> ClassicalStep(BasicState<Number> state,
                                                               const auto& six, Changes&& changes) {
  constexpr double kWeight[] = {1, 2, 2, 1};
  constexpr double kNext[] = {0.5, 0.5, 1, 0};  // how far the next stage goes along the change
  BasicState<Number> at = state, sum{0.0, 0.0, 0.0};
  // Four copies of a kernel would not fit in the processor's cache of instructions.
#pragma GCC unroll 1
  for (int stage = 1; stage <= 4; ++stage) {
    const BasicState<Number> k = changes(stage, at);
    if (stage == 1) state = at;
    sum = sum + kWeight[stage - 1] * k;
    at = state + kNext[stage - 1] * k;
  }
  return state + sum / six;
}

/// A growth kernel and the balances around it.
template <SubstrateTerm S, ProductTerm P, CellTerm X>
struct ComposedKernel {
  /// The state after a step of length `h`, in h, from `start`.
  template <class Number>
  [[gnu::always_inline]] static BasicState<Number> Step(const auto& p,
                                                        const BasicState<Number>& start,
                                                        const Number& h, const auto& six,
                                                        kernel::Reach<Number>& reach) {
    const BasicIndicators<Number> on = IndicatorsAt(start, p);
    const auto changes = [&](int, BasicState<Number>& s) __attribute__((always_inline)) {
      AddState(s, reach);
      const Number mu = GrowthRate(p, s, reach);
      return BasicState<Number>{
          h * balance::Cells<Number>(s.Cx, mu, on.deathOn, p[At::Kd]),
          h * balance::Substrate<Number>(s.Cx, p[At::ms], mu, DivisorOf(p, At::Yxs), p[At::Fp],
                                         p[At::alpha], on.productionOn, p[At::beta],
                                         DivisorOf(p, At::Yps)),
          h * balance::Product<Number>(s.Cx, p[At::alpha], mu, on.productionOn, p[At::beta],
                                       p[At::Kdp], s.Cp)};
    };
    const BasicState<Number> end = ClassicalStep(WithoutTraces(start), six, changes);
    AddState(end, reach);
    return end;
  }

  template <class Number>
  [[gnu::always_inline]] static Number GrowthRate(const auto& p, BasicState<Number>& s,
                                                  kernel::Reach<Number>& reach) {
    return kernel::GrowthRate<S, P, X>(p, s, reach);
  }

 private:
  template <class Number>
  [[gnu::always_inline]] static void AddState(const BasicState<Number>& s,
                                              kernel::Reach<Number>& reach) {
    reach.Add(s.Cx);
    reach.Add(s.Cs);
    reach.Add(s.Cp);
  }
};

}  // namespace velmora
