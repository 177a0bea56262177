// Power and exponential in lanes, by additions, multiplications and one division, without fused
// operations and tables: the bits are the same on every processor and at every width.
//
// The logarithm in two parts and the order in which errors are kept follow the usual scheme of
// mathematical libraries (Muller and others, Handbook of Floating-Point Arithmetic, 2018).
#pragma once

#include "kinetics/Lanes.h"

namespace velmora {
namespace {

constexpr double kInfinite = __builtin_inf();
constexpr double kNotANumber = __builtin_nan("");
constexpr double kLeastNormal = 0x1p-1022;
constexpr double kToInteger = 0x1.8p52;  // a double plus this has no places behind the point

/// With the last 27 bits cleared: the product of two such numbers is exact.
template <class Number>
[[gnu::always_inline]] inline Number Shortened(Number x) {
  return FromBits(BitsOf(x) & ~0x7FFFFFFULL);
}

/// 2^n for whole n between -1022 and 1024, given as kToInteger + n; 2^1024 is infinite.
template <class Number>
[[gnu::always_inline]] inline Number TwoToThe(Number shifted) {
  return FromBits((BitsOf(shifted) << 52) + 0x3FF0000000000000);
}

/// e^(g + low) for |g| up to ln(2)/2; `low` is what the double g lacks.
template <class Number>
[[gnu::always_inline]] inline Number NearOne(Number g, Number low) {
  Number q = 0x1.1f8b6c4e0b970p-29 * g + 0x1.af4e1a2e00bd7p-26;
  q = q * g + 0x1.27e4ccbb6c726p-22;
  q = q * g + 0x1.71de021a21669p-19;
  q = q * g + 0x1.a01a01ad023b8p-16;
  q = q * g + 0x1.a01a01abef696p-13;
  q = q * g + 0x1.6c16c16c151e9p-10;
  q = q * g + 0x1.11111111100cep-7;
  q = q * g + 0x1.5555555555558p-5;
  q = q * g + 0x1.5555555555557p-3;
  q = q * g + 0.5;
  const Number sum = 1.0 + g;
  return sum + ((g - (sum - 1.0)) + (g * g * q + low));
}

/// e^x; 0 below -708, infinite above 709.
template <class Number>
[[gnu::always_inline]] inline Number Exponential(Number x) {
  const Number shifted = x * 0x1.71547652b82fep+0 + kToInteger;
  const Number n = shifted - kToInteger;
  const Number high = x - n * 0x1.62e42fefa3800p-1;
  const Number rest = n * 0x1.ef35793c76730p-45;
  const Number g = high - rest;
  const Number power = NearOne(g, (high - g) - rest) * TwoToThe(shifted);
  return Select(x < -708.0, Number(0.0), Select(x > 709.0, Number(kInfinite), power));
}

/// A logarithm to the base 2 in two parts, the first of them short.
template <class Number>
struct TwoParts {
  Number first, second;
};

/// The logarithm to the base 2 of a normal, positive, finite x times 2^`exponent`.
template <class Number>
[[gnu::always_inline]] inline TwoParts<Number> BinaryLogarithm(Number x,
                                                               unsigned long long exponent = 0) {
  // x = m 2^n with m between sqrt(1/2) and sqrt(2).
  const auto biased = (BitsOf(x) + (0x3FF0000000000000 - 0x3FE6A09E667F3BCD)) & 0x7FF0000000000000;
  const Number m = FromBits(BitsOf(x) - biased + 0x3FF0000000000000);
  const Number n =
      FromBits(((biased >> 52) + exponent) + 0x4338000000000000) - (kToInteger + 1023.0);

  // s = (m - 1)/(m + 1), and what its double lacks.
  const Number w = m + 1.0;
  const Number v = 1.0 / w;
  const Number s = (m - 1.0) * v;
  const Number sHigh = Shortened(s);
  const Number wHigh = Shortened(w);
  const Number wLow = m - (wHigh - 1.0);
  const Number sLow = v * (((m - 1.0) - sHigh * wHigh) - sHigh * wLow);

  // 3/2 ln m = s (3 + s^2 + 3/5 s^4 + 3/7 s^6 + ...)
  const Number z = s * s;
  Number l = 0x1.682b530d44f9fp-3 * z + 0x1.679cb6a0712f4p-3;
  l = l * z + 0x1.99a534e7f0e6cp-3;
  l = l * z + 0x1.d89d608c94bcfp-3;
  l = l * z + 0x1.1745d19c2de58p-2;
  l = l * z + 0x1.555555552fabcp-2;
  l = l * z + 0x1.b6db6db6db7b4p-2;
  l = l * z + 0.6;
  const Number r = z * z * l + sLow * (sHigh + s);
  const Number q = sHigh * sHigh;
  const Number tHigh = Shortened(3.0 + (q + r));
  const Number tLow = r - ((tHigh - 3.0) - q);
  const Number a = sHigh * tHigh;
  const Number c = sLow * tHigh + tLow * s;
  const Number pHigh = Shortened(a + c);
  const Number pLow = c - (pHigh - a);

  // Times 2/(3 ln 2), in two parts.
  constexpr double kHigh = 0x1.ec709d8000000p-1, kLow = 0x1.0e80ff5d27f05p-27;
  const Number high = kHigh * pHigh;
  const Number low = kLow * pHigh + pLow * (kHigh + kLow);
  const Number first = Shortened((high + low) + n);
  return {first, low - ((first - n) - high)};
}

/// 2 to a logarithm times y.
template <class Number>
[[gnu::always_inline]] inline Number TwoToTheProduct(TwoParts<Number> logarithm, Number y) {
  const Number yHigh = Shortened(y);
  const Number high = yHigh * logarithm.first;
  const Number low = (y - yHigh) * logarithm.first + y * logarithm.second;
  const Number exponent = high + low;
  const Number shifted = exponent + kToInteger;
  const Number rest = high - (shifted - kToInteger);
  const Number restHigh = Shortened(rest + low);
  const Number restLow = (rest - restHigh) + low;
  constexpr double kLn2High = 0x1.62e42f8000000p-1, kLn2Low = 0x1.be8e7bcd5e4f2p-27;
  const Number gHigh = restHigh * kLn2High;
  const Number gLow = restLow * (kLn2High + kLn2Low) + restHigh * kLn2Low;
  const Number g = gHigh + gLow;
  const Number power = NearOne(g, gLow - (g - gHigh)) * TwoToThe(shifted);
  return Select(exponent < -1022.0, Number(0.0),
                Select(exponent > 1024.0, Number(kInfinite), power));
}

/// x^y for finite arguments; no number where x is negative or subnormal: these are left to the
/// general law.
template <class Number>
[[gnu::always_inline]] inline Number Power(Number x, Number y) {
  const Number power = TwoToTheProduct(BinaryLogarithm(x), y);
  const Number ofZero =
      Select(y > 0.0, Number(0.0), Select(y == 0.0, Number(1.0), Number(kInfinite)));
  return Select(x < kLeastNormal, Select(x == 0.0, ofZero, Number(kNotANumber)), power);
}

}  // namespace
}  // namespace velmora
