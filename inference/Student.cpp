#include "inference/Student.h"

#include <cmath>
#include <numbers>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

/// The angle with this tangent, by the series for an eighth of the angle.
double ArcTangent(double tangent) {
  constexpr int kHalvings = 3, kTerms = 12;
  for (int i = 0; i < kHalvings; ++i) tangent /= 1 + std::sqrt(1 + tangent * tangent);
  const double square = tangent * tangent;
  double sum = 0;
  for (int k = kTerms; k >= 0; --k) sum = 1.0 / (2 * k + 1) - square * sum;
  return std::ldexp(tangent * sum, kHalvings);
}

}  // namespace

double StudentProbability(double t, int freedom) {
  const double tangent = t / std::sqrt(static_cast<double>(freedom));
  const double angle = ArcTangent(tangent);
  const double cosine2 = 1 / (1 + tangent * tangent);
  const bool odd = freedom % 2 == 1;
  if (freedom == 1) return 2 * angle / std::numbers::pi;
  double term = odd ? std::sqrt(cosine2) : 1;
  double sum = term;
  for (int k = odd ? 3 : 2; k < freedom; k += 2) {
    term *= cosine2 * (k - 1) / k;
    sum += term;
  }
  const double rest = tangent * std::sqrt(cosine2) * sum;
  return odd ? 2 / std::numbers::pi * (angle + rest) : rest;
}

double StudentQuantile(double probability, int freedom) {
  double low = 0, high = 1;
  while (StudentProbability(high, freedom) < probability) high *= 2;
  for (;;) {
    const double middle = (low + high) / 2;
    if (middle <= low || middle >= high) return middle;
    (StudentProbability(middle, freedom) < probability ? low : high) = middle;
  }
}

double NormalProbability(double z) {
  // 1/2 + density (z + z^3/3 + z^5/(3 5) + ...), beyond nine deviations 0 or 1.
  if (std::fabs(z) > 9) return z < 0 ? 0 : 1;
  double sum = 0, term = z;
  for (int k = 3; sum + term != sum; k += 2) {
    sum += term;
    term *= z * z / k;
  }
  return 0.5 + Exponential(-z * z / 2) / std::sqrt(2 * std::numbers::pi) * sum;
}

}  // namespace velmora
