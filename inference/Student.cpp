#include "inference/Student.h"

#include <cmath>
#include <numbers>

namespace velmora {

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
  double low = 0, high = 1;
  while (StudentProbability(high, freedom) < probability) high *= 2;
  for (;;) {
    const double middle = (low + high) / 2;
    if (middle <= low || middle >= high) return middle;
    (StudentProbability(middle, freedom) < probability ? low : high) = middle;
  }
}

double NormalProbability(double z) {
  return std::erfc(-z / std::numbers::sqrt2) / 2;
}

}  // namespace velmora
