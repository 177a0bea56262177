// The uniform random numbers of the search: the same seed gives the same numbers everywhere.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>

#include "kinetics/Powers.h"

namespace velmora {

/// 53-bit uniform numbers in [0, 1) from the Mersenne twister MT19937-64 (Matsumoto and Nishimura
/// 1998), whose output the language fixes bit by bit. The library's distributions are not used:
/// they differ between compilers.
class UniformGenerator {
 public:
  explicit UniformGenerator(std::int32_t seed) : engine_(static_cast<std::uint32_t>(seed)) {}

  double Draw() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }

  /// A whole number drawn uniformly from 1..count.
  int DrawIndex(int count) { return 1 + static_cast<int>(Draw() * count); }

  /// A standard normal number from two draws (Box and Muller 1958).
  double GaussianRandom() {
    const double u1 = Draw();
    const double u2 = Draw();
    return std::sqrt(-2 * Logarithm(u1)) * Cosine(6.283185307179586 * u2);
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace velmora
