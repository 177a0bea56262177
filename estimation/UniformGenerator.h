// The uniform random numbers of the search: the same seed gives the same numbers everywhere.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "kinetics/Powers.h"

namespace velmora {

/// What is drawn by means of the uniform numbers in [0, 1) of `Source`.
template <class Source>
class Draws {
 public:
  /// A whole number drawn uniformly from 1..count.
  int DrawIndex(int count) { return 1 + static_cast<int>(Uniform() * count); }

  /// A standard normal number from two draws (Box and Muller 1958).
  double GaussianRandom() {
    const double u1 = Uniform();
    const double u2 = Uniform();
    return std::sqrt(-2 * Logarithm(u1)) * Cosine(6.283185307179586 * u2);
  }

 private:
  double Uniform() { return static_cast<Source&>(*this).Draw(); }
};

/// 53-bit uniform numbers in [0, 1) from the Mersenne twister MT19937-64 (Matsumoto and Nishimura
/// 1998), whose output the language fixes bit by bit. The library's distributions are not used:
/// they differ between compilers.
class UniformGenerator : public Draws<UniformGenerator> {
 public:
  explicit UniformGenerator(std::int32_t seed) : engine_(static_cast<std::uint32_t>(seed)) {}

  double Draw() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }

 private:
  std::mt19937_64 engine_;
};

/// The same numbers, which can be drawn again.
class RepeatableGenerator : public Draws<RepeatableGenerator> {
 public:
  explicit RepeatableGenerator(std::int32_t seed) : source_(seed) {}

  double Draw() {
    if (next_ == drawn_.size()) drawn_.push_back(source_.Draw());
    return drawn_[next_++];
  }

  /// Where the next number stands, until numbers are forgotten.
  std::size_t Position() const { return next_; }
  void ReturnTo(std::size_t position) { next_ = position; }
  /// Forgets the numbers before the next one, which are not drawn again.
  void Forget() {
    drawn_.erase(drawn_.begin(), drawn_.begin() + static_cast<std::ptrdiff_t>(next_));
    next_ = 0;
  }

 private:
  UniformGenerator source_;
  std::vector<double> drawn_;
  std::size_t next_ = 0;
};

}  // namespace velmora
