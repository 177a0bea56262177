#include "inference/Regression.h"

#include <algorithm>
#include <cmath>

#include "inference/TimeCourse.h"
#include "kinetics/Powers.h"

namespace velmora {
namespace {

void AddChanges(const Experiment& experiment, Changes& changes) {
  const TimeCourse Cx = CourseOf(experiment, experiment.Cx);
  const TimeCourse Cs = CourseOf(experiment, experiment.Cs);
  const TimeCourse Cp = CourseOf(experiment, experiment.Cp);
  const auto fall = FallOf(Cx);
  const std::size_t end = fall ? fall->from + 1 : Cx.Points();
  double cellHours = 0;
  for (std::size_t i = 1; i < end; ++i) {
    cellHours += (Cx.value[i - 1] + Cx.value[i]) / 2 * (Cx.time[i] - Cx.time[i - 1]);
    changes.cells.push_back(Cx.value[i] - Cx.value.front());
    changes.substrate.push_back(Cs.value.front() - Cs.value[i]);
    changes.product.push_back(Cp.value[i] - Cp.value.front());
    changes.cellHours.push_back(cellHours);
  }
}

double SumOfProducts(const std::vector<double>& x, const std::vector<double>& y) {
  double sum = 0;
  for (std::size_t i = 0; i < x.size(); ++i) sum += x[i] * y[i];
  return sum;
}

/// The slope of -ln Cx from point `first` on; values of 0 are passed over.
double DeathRate(const TimeCourse& Cx, std::size_t first) {
  std::vector<double> time, logarithm;
  for (std::size_t i = first; i < Cx.Points(); ++i) {
    if (Cx.value[i] <= 0) continue;
    time.push_back(Cx.time[i]);
    logarithm.push_back(-Logarithm(Cx.value[i]));
  }
  return Slope(time, logarithm);
}

}  // namespace

Changes ChangesOf(std::span<const Experiment> experiments) {
  Changes changes;
  for (const Experiment& experiment : experiments) AddChanges(experiment, changes);
  return changes;
}

Line LineThroughOrigin(const std::vector<double>& x, const std::vector<double>& y) {
  const double xx = SumOfProducts(x, x), xy = SumOfProducts(x, y);
  if (!(xx > 0 && xy > 0)) return {};
  const double slope = xy / xx;
  const double residuals = std::max(0.0, SumOfProducts(y, y) - slope * xy);
  const double degreesOfFreedom = std::max(1.0, static_cast<double>(x.size()) - 1);
  return {slope, std::sqrt(residuals / degreesOfFreedom / xx)};
}

ProductionLaw LuedekingPiret(const Changes& c) {
  const double xx = SumOfProducts(c.cells, c.cells);
  const double xt = SumOfProducts(c.cells, c.cellHours);
  const double tt = SumOfProducts(c.cellHours, c.cellHours);
  const double xp = SumOfProducts(c.cells, c.product);
  const double tp = SumOfProducts(c.cellHours, c.product);
  const double determinant = xx * tt - xt * xt;
  const double alpha = (xp * tt - tp * xt) / determinant;
  const double beta = (tp * xx - xp * xt) / determinant;
  if (determinant > 0 && alpha > 0 && beta > 0) return {alpha, beta};
  return {LineThroughOrigin(c.cells, c.product).slope, 0};
}

std::optional<Death> DeathOf(std::span<const Experiment> experiments) {
  Death death;
  for (const Experiment& experiment : experiments) {
    const TimeCourse Cx = CourseOf(experiment, experiment.Cx);
    const auto fall = FallOf(Cx);
    if (!fall) continue;
    const double rate = DeathRate(Cx, fall->from);
    if (rate <= 0) continue;
    ++death.experiments;
    death.rate += (rate - death.rate) / death.experiments;
    const TimeCourse Cs = CourseOf(experiment, experiment.Cs);
    death.substrate = std::max(death.substrate, Cs.value[fall->to]);
  }
  if (death.experiments == 0) return std::nullopt;
  return death;
}

}  // namespace velmora
