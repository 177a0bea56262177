// Student's distribution.
#pragma once

namespace velmora {

/// The probability that a variable of Student's distribution with `freedom` > 0 degrees of freedom
/// lies between -t and t, by its finite sums (Abramowitz and Stegun 1964, 26.7.3 and 26.7.4).
double StudentProbability(double t, int freedom);

/// The t for which that probability is `probability`, above 0 and below 1.
double StudentQuantile(double probability, int freedom);

/// The standard normal distribution function, with an error of some 1e-16 (Abramowitz and Stegun
/// 1964, 26.2.11).
double NormalProbability(double z);

}  // namespace velmora
