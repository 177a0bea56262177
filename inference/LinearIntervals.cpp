#include <cmath>

#include "inference/Intervals.h"
#include "inference/Linearisation.h"
#include "inference/Student.h"
#include "kinetics/Powers.h"

namespace velmora {

Intervals LinearIntervals(const FitProblem& problem, std::span<const double> best) {
  Intervals intervals;
  intervals.method = IntervalMethod::Linear;
  intervals.of.resize(best.size());
  const Linearisation linear = Linearise(problem, best);
  if (!linear.Determined()) return intervals;
  const double t = StudentQuantile(kIntervalLevel, linear.freedom);
  for (std::size_t i = 0; i < linear.free.size(); ++i) {
    const std::size_t j = linear.free[i];
    const auto diagonal = static_cast<Eigen::Index>(i);
    const double half = t * std::sqrt(linear.covariance(diagonal, diagonal));
    const bool logarithmic = problem.variables[j].lower > 0;
    intervals.of[j].lower = logarithmic ? best[j] * Exponential(-half) : best[j] - half;
    intervals.of[j].upper = logarithmic ? best[j] * Exponential(half) : best[j] + half;
  }
  return intervals;
}

}  // namespace velmora
