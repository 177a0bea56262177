// The marches of all models over vectors of one width. To be included only where one instruction
// set is compiled.
#pragma once

#include <utility>

#include "kinetics/KernelStep.h"
#include "kinetics/LaneMarches.h"
#include "kinetics/LanePowers.h"

namespace velmora {
namespace {

/// The parameters of as many batches as there are lanes.
template <class Number>
class LaneParameters {
 public:
  [[gnu::always_inline]] explicit LaneParameters(const double* values) : values_(values) {
    for (const At position : {At::Yxs, At::Yps, At::Kis, At::CxAst, At::CpAst})
      divisors_[IndexOf(position)] = Divisor<Number>((*this)[position]);
  }

  [[gnu::always_inline]] Number operator[](At position) const {
    return Number::From(values_ + (static_cast<unsigned>(position) - 1) * Number::kLanes);
  }
  [[gnu::always_inline]] friend const Divisor<Number>& DivisorOf(const LaneParameters& parameters,
                                                                 At position) {
    return parameters.divisors_[IndexOf(position)];
  }

 private:
  static constexpr unsigned IndexOf(At position) {
    return position == At::Yxs     ? 0
           : position == At::Yps   ? 1
           : position == At::Kis   ? 2
           : position == At::CxAst ? 3
                                   : 4;
  }

  const double* values_;
  Divisor<Number> divisors_[5];
};

/// The point `i` of curves in lanes.
template <class Number>
struct LanePoint {
  double* values;

  [[gnu::always_inline]] BasicState<Number> Load() const {
    return {Number::From(values), Number::From(values + Number::kLanes),
            Number::From(values + 2 * Number::kLanes)};
  }
  [[gnu::always_inline]] void Store(const BasicState<Number>& state) const {
    state.Cx.To(values);
    state.Cs.To(values + Number::kLanes);
    state.Cp.To(values + 2 * Number::kLanes);
  }
};

template <class Number>
[[gnu::always_inline]] inline LanePoint<Number> PointOf(double* curve, unsigned i) {
  return {curve + i * 3 * Number::kLanes};
}

/// What the rate law reaches in the initial state, which it takes as it stands.
template <class Number, class Kernel>
[[gnu::noinline]] void LookAtStart(const double* parameters, double* curve, double* reach) {
  const LaneParameters<Number> p(parameters);
  BasicState<Number> initial{p[At::Cx0], p[At::Cs0], p[At::Cp0]};
  PointOf<Number>(curve, 0).Store(initial);
  kernel::Reach<Number> reached;
  Kernel::GrowthRate(p, initial, reached);
  Select(reached.zeroDivisor, Number(kInfinite), reached.sum).To(reach);
}

/// Whether a product has just come to be, in a trace beyond what divisions in lanes can round. All
/// else that is added to a state is next to nothing there, or not so small.
template <class Number>
[[gnu::always_inline]] inline auto IsBeyondTrace(Number Cp) {
  const Number magnitude = Magnitude(Cp);
  return (magnitude < 1e-200) & (magnitude > 0.0);
}

template <class Number, class Kernel>
void MarchLanes(const double* parameters, double* curve, double* reach) {
  LookAtStart<Number, Kernel>(parameters, curve, reach);
  const LaneParameters<Number> p(parameters);
  const Number h = p[At::T] / static_cast<double>(kModelPoints - 1);
  const Divisor<Number> six(Number(6.0));
  kernel::Reach<Number> reached;
  reached.sum = Number::From(reach);
  for (unsigned i = 1; i < static_cast<unsigned>(kModelPoints); ++i) {
    const BasicState<Number> start = PointOf<Number>(curve, i - 1).Load();
    const BasicState<Number> end = Kernel::Step(p, start, h, six, reached);
    PointOf<Number>(curve, i).Store(end);
    reached.zeroDivisor = reached.zeroDivisor | IsBeyondTrace(end.Cp);
  }
  Select(reached.zeroDivisor, Number(kInfinite), reached.sum).To(reach);
}

template <class Number, std::size_t... Index>
constexpr LaneMarches::OfModels MarchesOver(std::index_sequence<Index...>) {
  return {&MarchLanes<Number, ComposedKernel<kModels[Index].substrate, kModels[Index].product,
                                             kModels[Index].cell>>...};
}

/// The marches over vectors of `Width` lanes, one alone and `Count` together.
template <unsigned Width, unsigned Count>
constexpr LaneMarches MarchesOf() {
  constexpr std::make_index_sequence<kModels.size()> kAll;
  return {Width, Width * Count, MarchesOver<Lanes<Width, 1>>(kAll),
          MarchesOver<Lanes<Width, Count>>(kAll)};
}

}  // namespace
}  // namespace velmora
