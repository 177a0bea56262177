#include "inference/Randomness.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kLevel = 0.05;

/// The logarithms of binomial coefficients up to those of `most`.
class LogChoose {
 public:
  explicit LogChoose(int most) {
    for (int n = 1; n <= most; ++n)
      factorials_.push_back(factorials_.back() + Logarithm(static_cast<double>(n)));
  }
  double operator()(int n, int k) const { return Factorial(n) - Factorial(k) - Factorial(n - k); }

 private:
  double Factorial(int n) const { return factorials_[static_cast<std::size_t>(n)]; }

  std::vector<double> factorials_{0};
};

/// Orders of the signs that have `pieces` runs above and `others` below, beginning with a run
/// above, among all orders.
double ShareOfOrders(int above, int below, int pieces, int others, const LogChoose& choose) {
  if (pieces < 1 || others < 1 || pieces > above || others > below) return 0;
  return Exponential(choose(above - 1, pieces - 1) + choose(below - 1, others - 1) -
                     choose(above + below, above));
}

/// One variable of one experiment: what was measured beside the model.
struct Series {
  int place;
  std::string_view variable;
  const std::vector<double>& time;
  const std::vector<double>& measured;
  const std::vector<double>& simulated;
  double scale;

  std::size_t Scored() const { return measured.empty() ? 0 : measured.size() - 1; }
  double Residual(std::size_t k) const { return (measured[k] - simulated[k]) / scale; }
};

std::vector<Series> SeriesOf(const FitProblem& problem, const SimulatedFit& fit) {
  std::vector<Series> all;
  for (std::size_t e = 0; e < problem.experiments.size(); ++e) {
    const Experiment& experiment = problem.experiments[e];
    const MeasuredSeries& simulated = fit.experiments[e].simulated;
    const auto add = [&](std::string_view variable, const std::vector<double>& measured,
                         const std::vector<double>& model) {
      const double largest = Objective::NormalisationScale(measured);
      all.push_back({static_cast<int>(e) + 1, variable, experiment.time, measured, model,
                     largest > 0 ? largest : 1});
    };
    add("Cx", experiment.Cx, simulated.Cx);
    add("Cs", experiment.Cs, simulated.Cs);
    add("Cp", experiment.Cp, simulated.Cp);
  }
  return all;
}

/// The runs test of one series.
struct Test {
  Trend trend;
  double least = 1;  // the least probability that its signs can come to
};

Test TestOf(const Series& series) {
  std::vector<std::size_t> order(series.Scored());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return series.time[a] < series.time[b]; });
  int above = 0, below = 0, runs = 0;
  double last = 0;
  for (const std::size_t k : order) {
    const double residual = series.Residual(k);
    if (residual == 0) continue;
    ++(residual > 0 ? above : below);
    if (last == 0 || (residual > 0) != (last > 0)) ++runs;
    last = residual;
  }
  return {{series.place, series.variable, runs, above + below, RunsProbability(above, below, runs)},
          RunsProbability(above, below, 2)};
}

/// The level of each test: with k the least number for which no more than k tests can come to 5 %
/// divided by k, that quotient (Tarone 1990).
double LevelOfEach(const std::vector<Test>& tests) {
  double k = 1;
  const auto capable = [&] {
    return std::count_if(tests.begin(), tests.end(),
                         [&](const Test& test) { return test.least <= kLevel / k; });
  };
  while (static_cast<double>(capable()) > k) ++k;
  return kLevel / k;
}

std::optional<WorstPoint> WorstOf(const std::vector<Series>& all) {
  std::optional<WorstPoint> worst;
  double largest = 0, squares = 0, values = 0;
  for (const Series& series : all)
    for (std::size_t k = 0; k < series.Scored(); ++k) {
      const double residual = std::fabs(series.Residual(k));
      squares += residual * residual;
      ++values;
      if (residual <= largest) continue;
      largest = residual;
      worst = {series.place, series.variable, series.time[k], series.measured[k],
               series.simulated[k]};
    }
  if (worst) worst->multiple = largest / std::sqrt(squares / values);
  return worst;
}

}  // namespace

double RunsProbability(int above, int below, int runs) {
  if (above + below == 0) return 1;
  if (above == 0 || below == 0) return std::ldexp(1, 1 - above - below);
  const LogChoose choose(above + below);
  double sum = 0;
  for (int r = 2; r <= runs; ++r) {
    const int more = (r + 1) / 2, fewer = r / 2;
    sum += ShareOfOrders(above, below, more, fewer, choose) +
           ShareOfOrders(above, below, fewer, more, choose);
  }
  return std::min(1.0, sum);
}

ResidualPattern PatternOf(const FitProblem& problem, const SimulatedFit& fit) {
  const std::vector<Series> all = SeriesOf(problem, fit);
  std::vector<Test> tests;
  for (const Series& series : all) tests.push_back(TestOf(series));
  const double level = LevelOfEach(tests);
  ResidualPattern pattern;
  for (const Test& test : tests)
    if (test.trend.probability <= level) pattern.trends.push_back(test.trend);
  pattern.worst = WorstOf(all);
  return pattern;
}

}  // namespace velmora
