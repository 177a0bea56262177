// Power, exponential, logarithm and cosine whose bits do not depend on the processor, nor on the
// compiler: the C library's choose their way by what the processor has.
#pragma once

namespace velmora {

/// x^y as the C language defines it, but 0 where the result lies below 2^-1022: at most 0.68 units
/// in the last place off for x up to 1 and y up to 10, 0.83 anywhere. x^1 is x, and x^0 is 1.
double Power(double x, double y);

/// e^x, at most 0.68 units in the last place off; 0 below -708, infinite above 709.
double Exponential(double x);

/// The natural logarithm, at most 0.55 units in the last place off.
double Logarithm(double x);

/// The cosine, at most 0.8 units in the last place off while |x| is below 1000.
double Cosine(double x);

// What a kernel says of a single number in the words that it has for lanes.
inline double Select(bool condition, double yes, double no) {
  return condition ? yes : no;
}
inline double Magnitude(double x) {
  return x < 0 ? -x : x;
}

}  // namespace velmora
