// The growth models as kernels, composed at compile time from their terms. A kernel has no branch
// out, call back or store of its own: it computes, and adds up how far its values reach, so that
// the caller can tell whether anything may have left the range in which no operation can fault.
// All numbers are doubles, or vectors of lanes that are computed side by side.
#pragma once

#include "kinetics/BatchBalances.h"
#include "kinetics/Modelos.h"
#include "kinetics/Powers.h"
#include "kinetics/RateLaws.h"

namespace velmora::kernel {

/// A sum of magnitudes, and whether a divisor that only the general law uses was zero.
template <class Number>
struct Reach {
  Number sum = 0.0;
  decltype(Number{} == Number{}) zeroDivisor = Number(1.0) == Number(0.0);

  [[gnu::always_inline]] void Add(Number value) { sum = sum + Magnitude(value); }
};

template <SubstrateTerm>
struct Substrate;

/// muMax Cs / (Cs + Ks)  (Monod 1949)
template <>
struct Substrate<SubstrateTerm::Monod> {
  [[gnu::always_inline]] static auto Quotient(const auto& p, const auto& s, auto& reach) {
    const auto denominator = s.Cs + p[At::Ks];
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs / (Cs + Ks Cx)  (Contois 1959)
template <>
struct Substrate<SubstrateTerm::Contois> {
  [[gnu::always_inline]] static auto Quotient(const auto& p, const auto& s, auto& reach) {
    const auto denominator = s.Cs + p[At::Ks] * s.Cx;
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs^u / (Cs^u + Ks)  (Moser 1958)
template <>
struct Substrate<SubstrateTerm::Moser> {
  [[gnu::always_inline]] static auto Quotient(const auto& p, const auto& s, auto& reach) {
    const auto power = Power(s.Cs, p[At::u]);
    const auto denominator = power + p[At::Ks];
    reach.Add(denominator);
    return p[At::muMax] * power / denominator;
  }
};

/// muMax Cs / (Cs + Ks + Cs^2/Kis)  (Andrews 1968)
template <>
struct Substrate<SubstrateTerm::Andrews> {
  [[gnu::always_inline]] static auto Quotient(const auto& p, const auto& s, auto& reach) {
    const auto denominator = s.Cs + p[At::Ks] + s.Cs * (s.Cs / DivisorOf(p, At::Kis));
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs / (Cs + Ks + Cs (Cs/Kis)^v)  (Wu, Hao, Ou and Scholze 1988)
template <>
struct Substrate<SubstrateTerm::Wu> {
  [[gnu::always_inline]] static auto Quotient(const auto& p, const auto& s, auto& reach) {
    const auto inhibition = Power(s.Cs / DivisorOf(p, At::Kis), p[At::v]);
    const auto denominator = s.Cs + p[At::Ks] + s.Cs * inhibition;
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// The general law divides by Kip + B2 + Cp also where no Hoppe term uses the quotient.
[[gnu::always_inline]] inline void WatchHoppeDivisor(const auto& p, const auto& s, auto& reach) {
  reach.zeroDivisor = reach.zeroDivisor | (p[At::Kip] + p[At::B2] + s.Cp == 0.0);
}

/// Product inhibition: `Early` multiplies the rate before the cell term, `Late` after it.
template <ProductTerm>
struct Product {
  [[gnu::always_inline]] static void Guard(const auto&, auto&) {}
  [[gnu::always_inline]] static auto Early(const auto&, const auto&) { return 1.0; }
  [[gnu::always_inline]] static auto Late(const auto& p, const auto& s, auto& reach) {
    WatchHoppeDivisor(p, s, reach);
    return 1.0;
  }
};

/// Kip / (Kip + Cp)  (Hoppe and Hansford 1982)
template <>
struct Product<ProductTerm::Hoppe> {
  [[gnu::always_inline]] static void Guard(const auto&, auto&) {}
  [[gnu::always_inline]] static auto Early(const auto&, const auto&) { return 1.0; }
  [[gnu::always_inline]] static auto Late(const auto& p, const auto& s, auto&) {
    return p[At::Kip] / (p[At::Kip] + s.Cp);
  }
};

/// exp(-Kip Cp)  (Aiba, Shoda and Nagatani 1968)
template <>
struct Product<ProductTerm::Aiba> {
  [[gnu::always_inline]] static void Guard(const auto&, auto&) {}
  [[gnu::always_inline]] static auto Early(const auto&, const auto&) { return 1.0; }
  [[gnu::always_inline]] static auto Late(const auto& p, const auto& s, auto& reach) {
    WatchHoppeDivisor(p, s, reach);
    return Exponential(-p[At::Kip] * s.Cp);
  }
};

/// (1 - Cp/CpAst)^n, n not 0  (Levenspiel 1980)
template <>
struct Product<ProductTerm::Levenspiel> {
  [[gnu::always_inline]] static void Guard(const auto& p, auto& s) {
    s.Cp = Select(p[At::CpAst] < s.Cp, p[At::CpAst], s.Cp);
  }
  [[gnu::always_inline]] static auto Early(const auto& p, const auto& s) {
    return Power(1.0 - s.Cp / DivisorOf(p, At::CpAst), p[At::n]);
  }
  [[gnu::always_inline]] static auto Late(const auto& p, const auto& s, auto& reach) {
    WatchHoppeDivisor(p, s, reach);
    return 1.0;
  }
};

template <CellTerm>
struct Cells {
  [[gnu::always_inline]] static void Guard(const auto&, auto&) {}
  [[gnu::always_inline]] static auto Factor(const auto&, const auto&) { return 1.0; }
};

/// (1 - Cx/CxAst)^m, m not 0  (Lee, Pollard and Coulman 1983)
template <>
struct Cells<CellTerm::Lee> {
  [[gnu::always_inline]] static void Guard(const auto& p, auto& s) {
    s.Cx = Select(p[At::CxAst] < s.Cx, p[At::CxAst], s.Cx);
  }
  [[gnu::always_inline]] static auto Factor(const auto& p, const auto& s) {
    return Power(1.0 - s.Cx / DivisorOf(p, At::CxAst), p[At::m]);
  }
};

/// The specific growth rate, 1/h, of one composed model: bit for bit that of the general law with
/// the model's switches. Its guards change the state as those of the general law do.
template <SubstrateTerm S, ProductTerm P, CellTerm X, class Parameters, class Number>
[[gnu::always_inline]] inline Number GrowthRate(const Parameters& p, BasicState<Number>& s,
                                                Reach<Number>& reach) {
  s.Cs = Select(s.Cs < kSubstrateFloor, Number(0.0), s.Cs);
  Product<P>::Guard(p, s);
  Cells<X>::Guard(p, s);
  const Number mu = Substrate<S>::Quotient(p, s, reach) * Product<P>::Early(p, s) *
                    Cells<X>::Factor(p, s) * Product<P>::Late(p, s, reach);
  reach.Add(mu);
  return mu;
}

}  // namespace velmora::kernel
