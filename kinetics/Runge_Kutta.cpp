#include "kinetics/Runge_Kutta.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "kinetics/KernelStep.h"
#include "kinetics/LaneMarches.h"

namespace velmora {
namespace {

constexpr int kSteps = kModelPoints - 1;
constexpr std::int32_t kEvaluationsPerStep = 16;
constexpr std::int32_t kEvaluationsPerMarch = kSteps * kEvaluationsPerStep;

void RequireFinite(const BatchState& state) {
  if (!std::isfinite(state.Cx) || !std::isfinite(state.Cs) || !std::isfinite(state.Cp))
    throw ArithmeticFault{FaultKind::Overflow, FaultTerm::State};
}

/// Whether an integration of these parameters can fault only through its state.
bool Tame(const KineticParameters& p) {
  for (int position = 1; position <= KineticParameters::kCount; ++position)
    if (!IsTame(static_cast<At>(position), p[position])) return false;
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
    const std::ptrdiff_t kernel = KernelOf(p);
    return kernel < 0 ? nullptr : kMarches[static_cast<std::size_t>(kernel)];
  }
};

std::ptrdiff_t KernelOf(const KineticParameters& p) {
  const NamedTerms terms = TermsOf(p);
  if (!terms.found) return -1;
  const auto at = std::find_if(kModels.begin(), kModels.end(), [&](const Model& model) {
    return model.substrate == terms.substrate && model.product == terms.product &&
           model.cell == terms.cell;
  });
  return at == kModels.end() ? -1 : at - kModels.begin();
}

bool IsTame(At position, double value) {
  const auto magnitude = std::fabs(value);
  switch (position) {
    case At::Yxs:
    case At::Yps:
    case At::Kis:
    case At::CxAst:
    case At::CpAst:  // divisors
      return magnitude < kTame && magnitude > 1 / kTame;
    default:
      return magnitude < kTame;
  }
}

bool SuitsLanes(At position, double value) {
  if (position == At::u && value == 0) return false;  // growth without substrate
  return IsTame(position, value) && (value == 0 || std::fabs(value) > 1 / kTame);
}

double Runge_Kutta::GeneralGrowthRate(BatchState& s) {
  KineticParameters& p = working_;
  return laws_.GrowthRate(s.Cx, s.Cs, s.Cp, p[At::muMax], p[At::Ks], p[At::Kis], p[At::Kip],
                          p[At::CxAst], p[At::CpAst], p[At::m], p[At::n], p[At::u], p[At::v],
                          p[At::C], p[At::B], p[At::B1], p[At::B2], p[At::G], p[At::H1]);
}

BatchState Runge_Kutta::GeneralStep(BatchState state, double h) {
  const KineticParameters& p = working_;
  const BasicIndicators<double> on = IndicatorsAt(state, p);
  const BatchState end =
      ClassicalStep(WithoutTraces(state), 6.0, [&](int stage, BatchState& s) -> BatchState {
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
  BatchState state{curve.Cx[0], curve.Cs[0], curve.Cp[0]};
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
  March(curve, [&](const BatchState& state, double h) {
    kernel::Reach<double> reach;
    const BatchState end = Kernel::Step(parameters, state, h, 6.0, reach);
    // A step that left the safe range is taken again by the general law, which names the fault at
    // the operation where it arises, or finds that there is none.
    if (!(reach.sum < kTame) || reach.zeroDivisor) return GeneralStep(state, h);
    laws_.AddEvaluations(kEvaluationsPerStep);
    return end;
  });
}

void Runge_Kutta::Integrate(const KineticParameters& parameters, ModelCurve& curve, Law law) {
  working_ = parameters;
  curve.parameters = parameters;
  curve.time[0] = 0;
  curve.Cx[0] = parameters[At::Cx0];
  curve.Cs[0] = parameters[At::Cs0];
  curve.Cp[0] = parameters[At::Cp0];
  point_ = 1;
  stage_ = 0;
  try {
    // An initial state that the law cannot take faults here, at point 1.
    BatchState initial{curve.Cx[0], curve.Cs[0], curve.Cp[0]};
    GeneralGrowthRate(initial);
    const bool counts =
        laws_.Evaluations() <= std::numeric_limits<std::int32_t>::max() - kEvaluationsPerMarch;
    const bool kernels = law == Law::Kernel && counts && Tame(parameters);
    if (const auto march = kernels ? KernelTable::For(parameters) : nullptr)
      (this->*march)(curve);
    else
      March(curve, [this](const BatchState& state, double h) { return GeneralStep(state, h); });
    curve.points = kModelPoints;
  } catch (ArithmeticFault& fault) {
    curve.points = point_ - 1;
    fault.point = point_;
    fault.stage = stage_;
    throw;
  }
}

}  // namespace velmora
