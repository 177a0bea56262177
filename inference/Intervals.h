// Between which values a fitted parameter lies, by three methods.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "estimation/FitProblem.h"
#include "estimation/ResultTexts.h"

namespace velmora {

enum class IntervalMethod : std::uint8_t { Linear, Profile, Bootstrap };

/// "linear", "profile" or "bootstrap".
std::string_view NameOf(IntervalMethod method);

/// A place of a profile: the sum of squared errors with one parameter held and the others fitted.
struct ProfilePoint {
  double value = 0;
  double score = 0;
};

/// A side without a value is open: the data set no limit there inside the bounds of the search.
struct Interval {
  std::optional<double> lower;
  std::optional<double> upper;
  std::vector<ProfilePoint> profile;  // ascending values; of the profile method alone
};

/// One interval for each fitted parameter, at the level `kIntervalLevel`.
struct Intervals {
  IntervalMethod method = IntervalMethod::Linear;
  std::vector<Interval> of;
  int replicates = 0;  // fits to resampled data; of the bootstrap alone
  // A score that a profile found clearly below that of the given optimum, which is then none.
  std::optional<double> betterScore;
};

inline constexpr double kIntervalLevel = 0.95;
inline constexpr int kReplicates = 500;

// `best` is the problem's optimum, as long as its variables. All three methods take the residuals
// that were minimised, n of them, with the variance s² = SSE / (n - D). Where n <= D every side is
// open. A parameter with a lower bound above 0 is taken on a logarithmic scale, on which it was
// searched.

/// By the linear theory (Bates and Watts 1988): p exp(+/- t s sqrt(inv(J'J)(j,j))) on the
/// logarithmic scale, with Student's t for n - D degrees of freedom. Parameters at a bound are held
/// there for the others, and open.
Intervals LinearIntervals(const FitProblem& problem, std::span<const double> best);

/// By the likelihood profile (Bates and Watts 1988): the values at which the score, the other
/// parameters fitted again, exceeds the least one by the factor 1 + t²/(n - D). Each thread takes
/// one parameter after the other. Ends, with sides that look open, where `stopRequested` says so.
Intervals ProfileIntervals(
    const FitProblem& problem, std::span<const double> best, unsigned threads = 1,
    const std::function<bool()>& stopRequested = [] { return false; });

/// By fits to `replicates` sets of resampled data: the model's values and residuals drawn with
/// replacement from those of the same variable and experiment, widened by sqrt(n/(n - D)) (Davison
/// and Hinkley 1997). The interval is the expanded percentile one (Hesterberg 2015). The draws
/// begin from `seed`; ends sooner where `stopRequested` says so. The intervals do not depend on the
/// number of threads.
Intervals BootstrapIntervals(const FitProblem& problem, std::span<const double> best,
                             int replicates, std::int32_t seed,
                             const std::function<bool()>& stopRequested, unsigned threads = 1);

/// The intervals in words: a heading, and a line for each of `variables`, whose intervals they are.
/// A limit has one digit more than the interval's width leaves certain, or all of them.
std::string Worded(const Intervals& intervals, std::span<const FitVariable> variables,
                   bool allDigits, TextStyle style);

}  // namespace velmora
