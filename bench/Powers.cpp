// How far are power, exponential, logarithm and cosine from the true value, in units of the last
// place?
//   velmora-powers [ARGUMENTS]   of each function (default 1,000,000)
#include "kinetics/Powers.h"

#include <mpfr.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <limits>
#include <random>

namespace velmora {
namespace {

constexpr mpfr_prec_t kDouble = 53, kReference = 160;  // bits

class Reference {
 public:
  Reference() {
    mpfr_init2(x_, kDouble);
    mpfr_init2(y_, kDouble);
    mpfr_init2(result_, kReference);
  }
  ~Reference() { mpfr_clears(x_, y_, result_, nullptr); }

  using Function = std::function<void(mpfr_ptr, mpfr_srcptr, mpfr_srcptr)>;

  /// The error of `computed` for f(x, y), in units of the last place of the true value.
  double Error(const Function& f, double x, double y, double computed) {
    mpfr_set_d(x_, x, MPFR_RNDN);
    mpfr_set_d(y_, y, MPFR_RNDN);
    f(result_, x_, y_);
    const double rounded = std::fabs(mpfr_get_d(result_, MPFR_RNDN));
    mpfr_sub_d(result_, result_, computed, MPFR_RNDN);
    const double unit = std::nextafter(rounded, HUGE_VAL) - rounded;
    return std::fabs(mpfr_get_d(result_, MPFR_RNDN)) / unit;
  }

 private:
  mpfr_t x_, y_, result_;
};

class Arguments {
 public:
  double Between(double least, double most) {
    return least + (most - least) * static_cast<double>(engine_() >> 11) * 0x1p-53;
  }

 private:
  std::mt19937_64 engine_{20261121};
};

struct Measured {
  const char* name;
  std::function<double(Arguments&)> x, y;
  std::function<double(double, double)> ours;
  Reference::Function reference;
};

const auto kPower = [](mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr y) { mpfr_pow(r, x, y, MPFR_RNDN); };
const auto kNone = [](Arguments&) { return 0.0; };

const Measured kMeasured[] = {
    {"x^y, x in [0, 1], y in [0, 10]", [](Arguments& a) { return a.Between(0, 1); },
     [](Arguments& a) { return a.Between(0, 10); }, &Power, kPower},
    {"x^y, results to e^700", [](Arguments& a) { return std::exp(a.Between(-10, 10)); },
     [](Arguments& a) { return a.Between(-70, 70); }, &Power, kPower},
    {"e^x", [](Arguments& a) { return a.Between(-700, 700); }, kNone,
     [](double x, double) { return Exponential(x); },
     [](mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr) { mpfr_exp(r, x, MPFR_RNDN); }},
    {"ln x, x in [0, 2]", [](Arguments& a) { return a.Between(0, 2); }, kNone,
     [](double x, double) { return Logarithm(x); },
     [](mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr) { mpfr_log(r, x, MPFR_RNDN); }},
    {"cos x, x in [0, 7]", [](Arguments& a) { return a.Between(0, 7); }, kNone,
     [](double x, double) { return Cosine(x); },
     [](mpfr_ptr r, mpfr_srcptr x, mpfr_srcptr) { mpfr_cos(r, x, MPFR_RNDN); }},
};

void Measure(long count) {
  Reference reference;
  for (const auto& [name, x, y, ours, truth] : kMeasured) {
    Arguments arguments;
    double worst = 0;
    for (long i = 0; i < count; ++i) {
      const double base = x(arguments), exponent = y(arguments);
      worst = std::max(worst, reference.Error(truth, base, exponent, ours(base, exponent)));
    }
    std::printf("%-32s worst %.4f units in the last place of %ld\n", name, worst, count);
    std::fflush(stdout);
  }
}

}  // namespace
}  // namespace velmora

int main(int argc, char** argv) {
  velmora::Measure(argc > 1 ? std::atol(argv[1]) : 1'000'000);
}
