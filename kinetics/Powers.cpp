#include "kinetics/Powers.h"

#include <array>
#include <cmath>
#include <limits>

#include "kinetics/LanePowers.h"

namespace velmora {
namespace {

using Pair = Lanes<2, 1>;

constexpr double kLn2High = 0x1.62e42fefa3800p-1;  // of ln 2, with 11 last bits of zero
constexpr double kLn2Low = 0x1.ef35793c76730p-45;
constexpr int kLogarithmTerms = 14;
constexpr int kCosineTerms = 9;

double First(Pair pair) {
  return pair.of[0][0];
}

bool IsOdd(double whole) {
  return std::fmod(whole, 2) != 0;
}

/// x^y for positive, finite x and finite y.
double PositivePower(double x, double y) {
  constexpr unsigned long long kLift = 54;  // makes every positive double a normal one
  const TwoParts<Pair> logarithm =
      x < kLeastNormal ? BinaryLogarithm<Pair>(x * 0x1p54, -kLift) : BinaryLogarithm<Pair>(x);
  return First(TwoToTheProduct<Pair>(logarithm, y));
}

/// x = m 2^n with m between sqrt(1/2) and sqrt(2).
double Mantissa(double x, int& n) {
  const double m = std::frexp(x, &n);
  if (m >= 0x1.6a09e667f3bcdp-1) return m;
  --n;
  return 2 * m;
}

/// A number and what its double lacks.
struct Exact {
  double value, rest;
};

Exact Product(double a, double b) {
  constexpr double kSplit = 0x1p27 + 1;  // Dekker 1971
  const double aHigh = kSplit * a - (kSplit * a - a), aLow = a - aHigh;
  const double bHigh = kSplit * b - (kSplit * b - b), bLow = b - bHigh;
  const double value = a * b;
  return {value, ((aHigh * bHigh - value) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

Exact Sum(double a, double b) {  // |a| >= |b|, or a = 0
  const double value = a + b;
  return {value, b - (value - a)};
}

/// sum of z^k / (k + 1)! step by step: 1/(first (first+1)) - z/(first .. first+3) + ...
double AlternatingSeries(double z, int first) {
  double sum = 0;
  for (int k = kCosineTerms; k >= 0; --k) {
    const double divisor = (first + 2.0 * k) * (first + 2.0 * k + 1);
    sum = (1 - z * sum) / divisor;
  }
  return sum;
}

/// cos(r + rest) and sin(r + rest) for |r| up to pi/4.
double CosineNearZero(const Exact& r) {
  const double z = r.value * r.value;
  // cos r = 1 - z/2 + z^2/24 - ...
  const Exact sum = Sum(1, -z / 2);
  const Exact square = Product(r.value, r.value);
  const double beyond = z * z * AlternatingSeries(z, 3) / 2;
  return sum.value + (sum.rest + (beyond - square.rest / 2 - r.value * r.rest));
}

double SineNearZero(const Exact& r) {
  const double z = r.value * r.value;
  const double beyond = -r.value * z * AlternatingSeries(z, 2);
  return r.value + (beyond + r.rest * (1 - z / 2));
}

}  // namespace

double Power(double x, double y) {
  if (y == 1) return x;
  if (y == 0) return 1;
  // Zeros and what is not finite give exact results.
  if (!std::isfinite(x) || !std::isfinite(y) || x == 0) return std::pow(x, y);
  if (x > 0) return PositivePower(x, y);
  if (y != std::floor(y)) return std::numeric_limits<double>::quiet_NaN();
  return IsOdd(y) ? -PositivePower(-x, y) : PositivePower(-x, y);
}

double Exponential(double x) {
  return First(Exponential(Pair(x)));
}

double Logarithm(double x) {
  if (!(x > 0) || !std::isfinite(x)) return std::log(x);  // exact, or none
  int n = 0;
  const double m = Mantissa(x, n);
  // ln m = 2 (s + s^3/3 + s^5/5 + ...) with s = (m - 1)/(m + 1)
  const Exact divisor = m > 1 ? Sum(m, 1) : Sum(1, m);
  const double s = (m - 1) / divisor.value;
  const Exact product = Product(s, divisor.value);
  const double sRest =
      (((m - 1) - product.value) - product.rest - s * divisor.rest) / divisor.value;
  const double z = s * s;
  double series = 0;
  for (int k = kLogarithmTerms; k >= 1; --k) series = z * (1.0 / (2 * k + 1) + series);
  const Exact sum = Sum(n * kLn2High, 2 * s);
  return sum.value + (sum.rest + (2 * (sRest + s * series) + n * kLn2Low));
}

double Cosine(double x) {
  // pi/2 in three parts, the first two with 33 bits, so that their products with the quarter are
  // exact.
  constexpr double kQuarters = 0x1.45f306dc9c883p-1;
  constexpr double kFirst = 0x1.921fb544p+0, kSecond = 0x1.0b4611a6p-34,
                   kThird = 0x1.3198a2e037073p-69;
  const double quarter = std::nearbyint(x * kQuarters);
  const double high = x - quarter * kFirst;
  const double low = quarter * kSecond;
  const double value = high - low;
  const double rest = ((high - value) - low) - quarter * kThird;
  const Exact r = Sum(value, rest);
  switch (static_cast<int>(quarter - 4 * std::floor(quarter / 4))) {
    case 0:
      return CosineNearZero(r);
    case 1:
      return -SineNearZero(r);
    case 2:
      return -CosineNearZero(r);
    default:
      return SineNearZero(r);
  }
}

}  // namespace velmora
