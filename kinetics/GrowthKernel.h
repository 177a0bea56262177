// The growth models as kernels, composed at compile time from their terms. A kernel has no branch
// out, call back or store of its own: it computes, and adds up how far its values reach, so that
// the caller can tell once a step whether anything may have left the range in which no operation
// can fault.
#pragma once

#include <cmath>

#include "kinetics/BatchBalances.h"
#include "kinetics/KineticParameters.h"
#include "kinetics/Modelos.h"
#include "kinetics/RateLaws.h"

namespace velmora::kernel {

/// A sum of magnitudes, and whether a divisor that only the general law uses was zero.
struct Reach {
  double sum = 0;
  bool zeroDivisor = false;

  void Add(double value) { sum += std::fabs(value); }
};

using Parameters = KineticParameters;

template <SubstrateTerm>
struct Substrate;

/// muMax Cs / (Cs + Ks)  (Monod 1949)
template <>
struct Substrate<SubstrateTerm::Monod> {
  static double Quotient(const Parameters& p, const State& s, Reach& reach) {
    const double denominator = s.Cs + p[At::Ks];
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs / (Cs + Ks Cx)  (Contois 1959)
template <>
struct Substrate<SubstrateTerm::Contois> {
  static double Quotient(const Parameters& p, const State& s, Reach& reach) {
    const double denominator = s.Cs + p[At::Ks] * s.Cx;
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs^u / (Cs^u + Ks)  (Moser 1958)
template <>
struct Substrate<SubstrateTerm::Moser> {
  static double Quotient(const Parameters& p, const State& s, Reach& reach) {
    const double power = std::pow(s.Cs, p[At::u]);
    const double denominator = power + p[At::Ks];
    reach.Add(denominator);
    return p[At::muMax] * power / denominator;
  }
};

/// muMax Cs / (Cs + Ks + Cs^2/Kis)  (Andrews 1968)
template <>
struct Substrate<SubstrateTerm::Andrews> {
  static double Quotient(const Parameters& p, const State& s, Reach& reach) {
    const double denominator = s.Cs + p[At::Ks] + s.Cs * (s.Cs / p[At::Kis]);
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// muMax Cs / (Cs + Ks + Cs (Cs/Kis)^v)  (Wu, Hao, Ou and Scholze 1988)
template <>
struct Substrate<SubstrateTerm::Wu> {
  static double Quotient(const Parameters& p, const State& s, Reach& reach) {
    const double inhibition = std::pow(s.Cs / p[At::Kis], p[At::v]);
    const double denominator = s.Cs + p[At::Ks] + s.Cs * inhibition;
    reach.Add(denominator);
    return p[At::muMax] * s.Cs / denominator;
  }
};

/// The general law divides by Kip + B2 + Cp also where no Hoppe term uses the quotient.
inline void WatchHoppeDivisor(const Parameters& p, const State& s, Reach& reach) {
  reach.zeroDivisor |= p[At::Kip] + p[At::B2] + s.Cp == 0;
}

/// Product inhibition: `Early` multiplies the rate before the cell term, `Late` after it.
template <ProductTerm>
struct Product {
  static void Guard(const Parameters&, State&) {}
  static double Early(const Parameters&, const State&) { return 1; }
  static double Late(const Parameters& p, const State& s, Reach& reach) {
    WatchHoppeDivisor(p, s, reach);
    return 1;
  }
};

/// Kip / (Kip + Cp)  (Hoppe and Hansford 1982)
template <>
struct Product<ProductTerm::Hoppe> {
  static void Guard(const Parameters&, State&) {}
  static double Early(const Parameters&, const State&) { return 1; }
  static double Late(const Parameters& p, const State& s, Reach&) {
    return p[At::Kip] / (p[At::Kip] + s.Cp);
  }
};

/// exp(-Kip Cp)  (Aiba, Shoda and Nagatani 1968)
template <>
struct Product<ProductTerm::Aiba> {
  static void Guard(const Parameters&, State&) {}
  static double Early(const Parameters&, const State&) { return 1; }
  static double Late(const Parameters& p, const State& s, Reach& reach) {
    WatchHoppeDivisor(p, s, reach);
    return std::exp(-p[At::Kip] * s.Cp);
  }
};

/// (1 - Cp/CpAst)^n, n not 0  (Levenspiel 1980)
template <>
struct Product<ProductTerm::Levenspiel> {
  static void Guard(const Parameters& p, State& s) {
    s.Cp = p[At::CpAst] < s.Cp ? p[At::CpAst] : s.Cp;
  }
  static double Early(const Parameters& p, const State& s) {
    return std::pow(1 - s.Cp / p[At::CpAst], p[At::n]);
  }
  static double Late(const Parameters& p, const State& s, Reach& reach) {
    WatchHoppeDivisor(p, s, reach);
    return 1;
  }
};

template <CellTerm>
struct Cells {
  static void Guard(const Parameters&, State&) {}
  static double Factor(const Parameters&, const State&) { return 1; }
};

/// (1 - Cx/CxAst)^m, m not 0  (Lee, Pollard and Coulman 1983)
template <>
struct Cells<CellTerm::Lee> {
  static void Guard(const Parameters& p, State& s) {
    s.Cx = p[At::CxAst] < s.Cx ? p[At::CxAst] : s.Cx;
  }
  static double Factor(const Parameters& p, const State& s) {
    return std::pow(1 - s.Cx / p[At::CxAst], p[At::m]);
  }
};

/// The specific growth rate, 1/h, of one composed model: bit for bit that of the general law with
/// the model's switches. Its guards change the state as those of the general law do.
template <SubstrateTerm S, ProductTerm P, CellTerm X>
double GrowthRate(const Parameters& p, State& s, Reach& reach) {
  s.Cs = s.Cs < kSubstrateFloor ? 0 : s.Cs;
  Product<P>::Guard(p, s);
  Cells<X>::Guard(p, s);
  const double mu = Substrate<S>::Quotient(p, s, reach) * Product<P>::Early(p, s) *
                    Cells<X>::Factor(p, s) * Product<P>::Late(p, s, reach);
  reach.Add(mu);
  return mu;
}

}  // namespace velmora::kernel
