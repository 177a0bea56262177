// Vectors of doubles, one number a lane. To be included only where one instruction set is compiled:
// everything stands in an anonymous namespace, so that no copy for one processor is ever linked
// into what runs on another.
//
// The vectors are those of the compiler's vector extension, which GCC and Clang share: it needs no
// library whose inline functions could be compiled for the wrong processor, and each operation is
// the IEEE one in every lane, so that a lane's bits depend neither on the width nor on what stands
// beside it.
#pragma once

#ifdef __FMA__
#include <immintrin.h>
#endif

namespace velmora {
namespace {

// Vectors side by side are independent of each other: while one waits for its result, the next is
// computed. The statement is repeated for each `i`, not looped over: vectors that a loop has ever
// reached by a variable index stay in memory, or take the compiler minutes to get out of it.
#define VELMORA_SIDE_BY_SIDE(count, ...)  \
  do {                                    \
    static_assert(count <= 4);            \
    VELMORA_VECTOR(0, count, __VA_ARGS__) \
    VELMORA_VECTOR(1, count, __VA_ARGS__) \
    VELMORA_VECTOR(2, count, __VA_ARGS__) \
    VELMORA_VECTOR(3, count, __VA_ARGS__) \
  } while (false)
#define VELMORA_VECTOR(place, count, ...) \
  if constexpr (place < count) {          \
    constexpr unsigned i = place;         \
    __VA_ARGS__;                          \
  }

template <unsigned Width>
struct VectorTypes {
  using Doubles [[gnu::vector_size(sizeof(double) * Width)]] = double;
  using Integers [[gnu::vector_size(sizeof(double) * Width)]] = unsigned long long;
  using Stored [[gnu::vector_size(sizeof(double) * Width), gnu::aligned(8), gnu::may_alias]] =
      double;
};

/// `Width` x `Count` integers of 64 bits: bit patterns, or masks whose lanes are all ones or zero.
template <unsigned Width, unsigned Count>
struct LaneBits {
  typename VectorTypes<Width>::Integers of[Count];
};

/// `Width` x `Count` doubles.
template <unsigned Width, unsigned Count>
struct Lanes {
  using Vector = typename VectorTypes<Width>::Doubles;
  using Bits = LaneBits<Width, Count>;
  static constexpr unsigned kLanes = Width * Count;

  Vector of[Count];

  Lanes() = default;
  [[gnu::always_inline]] Lanes(double value) {
    VELMORA_SIDE_BY_SIDE(Count, of[i] = value - Vector{});
  }

  [[gnu::always_inline]] static Lanes From(const double* values) {
    Lanes lanes;
    VELMORA_SIDE_BY_SIDE(Count, lanes.of[i] = *reinterpret_cast<const Stored*>(values + i * Width));
    return lanes;
  }
  [[gnu::always_inline]] void To(double* values) const {
    VELMORA_SIDE_BY_SIDE(Count, *reinterpret_cast<Stored*>(values + i * Width) = of[i]);
  }

 private:
  using Stored = typename VectorTypes<Width>::Stored;
};

#define VELMORA_LANES_OPERATOR(op)                                                      \
  template <unsigned W, unsigned C>                                                     \
  [[gnu::always_inline]] inline Lanes<W, C> operator op(Lanes<W, C> a, Lanes<W, C> b) { \
    VELMORA_SIDE_BY_SIDE(C, a.of[i] = a.of[i] op b.of[i]);                              \
    return a;                                                                           \
  }                                                                                     \
  template <unsigned W, unsigned C>                                                     \
  [[gnu::always_inline]] inline Lanes<W, C> operator op(Lanes<W, C> a, double b) {      \
    VELMORA_SIDE_BY_SIDE(C, a.of[i] = a.of[i] op b);                                    \
    return a;                                                                           \
  }                                                                                     \
  template <unsigned W, unsigned C>                                                     \
  [[gnu::always_inline]] inline Lanes<W, C> operator op(double a, Lanes<W, C> b) {      \
    VELMORA_SIDE_BY_SIDE(C, b.of[i] = a op b.of[i]);                                    \
    return b;                                                                           \
  }
VELMORA_LANES_OPERATOR(+)
VELMORA_LANES_OPERATOR(-)
VELMORA_LANES_OPERATOR(*)
VELMORA_LANES_OPERATOR(/)
#undef VELMORA_LANES_OPERATOR

template <unsigned W, unsigned C>
[[gnu::always_inline]] inline Lanes<W, C> operator-(Lanes<W, C> a) {
  VELMORA_SIDE_BY_SIDE(C, a.of[i] = -a.of[i]);
  return a;
}

#define VELMORA_LANES_COMPARISON(op)                                                              \
  template <unsigned W, unsigned C>                                                               \
  [[gnu::always_inline]] inline LaneBits<W, C> operator op(Lanes<W, C> a, Lanes<W, C> b) {        \
    LaneBits<W, C> mask;                                                                          \
    VELMORA_SIDE_BY_SIDE(                                                                         \
        C, mask.of[i] = reinterpret_cast<typename VectorTypes<W>::Integers>(a.of[i] op b.of[i])); \
    return mask;                                                                                  \
  }                                                                                               \
  template <unsigned W, unsigned C>                                                               \
  [[gnu::always_inline]] inline LaneBits<W, C> operator op(Lanes<W, C> a, double b) {             \
    return a op Lanes<W, C>(b);                                                                   \
  }
VELMORA_LANES_COMPARISON(<)
VELMORA_LANES_COMPARISON(<=)
VELMORA_LANES_COMPARISON(==)
VELMORA_LANES_COMPARISON(>)
#undef VELMORA_LANES_COMPARISON

#define VELMORA_BITS_OPERATOR(op)                                                                \
  template <unsigned W, unsigned C>                                                              \
  [[gnu::always_inline]] inline LaneBits<W, C> operator op(LaneBits<W, C> a, LaneBits<W, C> b) { \
    VELMORA_SIDE_BY_SIDE(C, a.of[i] = a.of[i] op b.of[i]);                                       \
    return a;                                                                                    \
  }                                                                                              \
  template <unsigned W, unsigned C>                                                              \
  [[gnu::always_inline]] inline LaneBits<W, C> operator op(LaneBits<W, C> a,                     \
                                                           unsigned long long b) {               \
    VELMORA_SIDE_BY_SIDE(C, a.of[i] = a.of[i] op b);                                             \
    return a;                                                                                    \
  }
VELMORA_BITS_OPERATOR(+)
VELMORA_BITS_OPERATOR(-)
VELMORA_BITS_OPERATOR(&)
VELMORA_BITS_OPERATOR(|)
VELMORA_BITS_OPERATOR(<<)
VELMORA_BITS_OPERATOR(>>)
#undef VELMORA_BITS_OPERATOR

template <unsigned W, unsigned C>
[[gnu::always_inline]] inline LaneBits<W, C> BitsOf(Lanes<W, C> a) {
  LaneBits<W, C> bits;
  VELMORA_SIDE_BY_SIDE(C,
                       bits.of[i] = reinterpret_cast<typename VectorTypes<W>::Integers>(a.of[i]));
  return bits;
}

template <unsigned W, unsigned C>
[[gnu::always_inline]] inline Lanes<W, C> FromBits(LaneBits<W, C> bits) {
  Lanes<W, C> a;
  VELMORA_SIDE_BY_SIDE(C, a.of[i] = reinterpret_cast<typename VectorTypes<W>::Doubles>(bits.of[i]));
  return a;
}

/// Lane by lane `yes` where the mask is set, else `no`.
template <unsigned W, unsigned C>
[[gnu::always_inline]] inline Lanes<W, C> Select(LaneBits<W, C> mask, Lanes<W, C> yes,
                                                 Lanes<W, C> no) {
  VELMORA_SIDE_BY_SIDE(C, no.of[i] = mask.of[i] ? yes.of[i] : no.of[i]);
  return no;
}

#ifdef __FMA__
[[gnu::always_inline]] inline __m256d ProductAndSum(__m256d a, __m256d b, __m256d c) {
  return _mm256_fmadd_pd(a, b, c);
}
#ifdef __AVX512F__
[[gnu::always_inline]] inline __m512d ProductAndSum(__m512d a, __m512d b, __m512d c) {
  return _mm512_fmadd_pd(a, b, c);
}
#endif

/// a b + c, rounded once.
template <unsigned W, unsigned C>
[[gnu::always_inline]] inline Lanes<W, C> ProductAndSum(Lanes<W, C> a, Lanes<W, C> b,
                                                        Lanes<W, C> c) {
  VELMORA_SIDE_BY_SIDE(C, c.of[i] = ProductAndSum(a.of[i], b.of[i], c.of[i]));
  return c;
}
#endif

/// What many numbers are divided by. The quotient is that of one division, correctly rounded, from
/// four multiplications and sums that take an eighth of its time: a first quotient with the
/// reciprocal in two parts is one of the two doubles beside the true one, and its remainder, which
/// is exact, tells which (Markstein 1990). That holds while neither quotient nor remainder leaves
/// the normal range; of two zeros it may give the other one.
template <class Number>
struct Divisor {
  Number value, reciprocal, rest;  // 1/value = reciprocal + rest

  Divisor() = default;
  [[gnu::always_inline]] Divisor(Number divisor, Number itsReciprocal, Number itsRest)
      : value(divisor), reciprocal(itsReciprocal), rest(itsRest) {}
  [[gnu::always_inline]] explicit Divisor(Number divisor) : value(divisor) {
#ifdef __FMA__
    reciprocal = 1.0 / value;
    rest = ProductAndSum(-value, reciprocal, Number(1.0)) * reciprocal;
#endif
  }
};

template <class Number>
[[gnu::always_inline]] inline Number operator/(Number dividend, const Divisor<Number>& by) {
#ifdef __FMA__
  const Number quotient = ProductAndSum(dividend, by.reciprocal, dividend * by.rest);
  const Number excess = ProductAndSum(by.value, quotient, -dividend);
  return ProductAndSum(-excess, by.reciprocal, quotient);
#else
  return dividend / by.value;
#endif
}

template <unsigned W, unsigned C>
[[gnu::always_inline]] inline Lanes<W, C> Magnitude(Lanes<W, C> a) {
  return FromBits(BitsOf(a) & 0x7FFFFFFFFFFFFFFF);
}

}  // namespace
}  // namespace velmora
