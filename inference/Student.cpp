#include "inference/Student.h"

#include <cmath>
#include <numbers>
#include <numeric>

namespace velmora {
namespace {

/// Where `isBelow` ends to hold between `low` and `high`, to the last bit.
template <class IsBelow>
double Bisected(double low, double high, IsBelow isBelow) {
  for (;;) {
    const double middle = std::midpoint(low, high);
    if (middle <= low || middle >= high) return middle;
    (isBelow(middle) ? low : high) = middle;
  }
}

}  // namespace

double StudentProbability(double t, int freedom) {
  const double angle = std::atan(t / std::sqrt(static_cast<double>(freedom)));
  const double cosine2 = std::cos(angle) * std::cos(angle);
  const bool odd = freedom % 2 == 1;
  if (freedom == 1) return 2 * angle / std::numbers::pi;
  double term = odd ? std::cos(angle) : 1;
  double sum = term;
  for (int k = odd ? 3 : 2; k < freedom; k += 2) {
    term *= cosine2 * (k - 1) / k;
    sum += term;
  }
  const double rest = std::sin(angle) * sum;
  return odd ? 2 / std::numbers::pi * (angle + rest) : rest;
}

double StudentQuantile(double probability, int freedom) {
  const auto isBelow = [=](double t) { return StudentProbability(t, freedom) < probability; };
  double high = 1;
  while (isBelow(high)) high *= 2;
  return Bisected(0, high, isBelow);
}

double NormalProbability(double z) {
  return std::erfc(-z / std::numbers::sqrt2) / 2;
}

double NormalQuantile(double probability) {
  constexpr double kFar = 40;
  return Bisected(-kFar, kFar, [=](double z) { return NormalProbability(z) < probability; });
}

}  // namespace velmora
