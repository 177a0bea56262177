// One measured variable in order of time, and what its points tell of noise, falls and growth.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "data/Experiment.h"

namespace velmora {

/// The measured values of one variable, ordered by time; all three are equally long.
struct TimeCourse {
  std::vector<double> time;   // h
  std::vector<double> value;  // g/L
  std::vector<int> row;       // of the experiment, counted from 1

  std::size_t Points() const { return time.size(); }
};

/// `values` is Cx, Cs or Cp of `experiment`.
TimeCourse CourseOf(const Experiment& experiment, const std::vector<double>& values);

/// The same with the sign of each value changed.
TimeCourse Mirrored(TimeCourse course);

/// The largest magnitude; 0 where there is no point.
double Largest(const TimeCourse& course);

/// The value at `time` on the straight line through the points i and j; their mean where they were
/// sampled at once.
double LineThrough(const TimeCourse& course, std::size_t i, std::size_t j, double time);

/// The standard deviation of the measurement, g/L: the median magnitude of the points' distances
/// from the line through their neighbours, for normal noise (Hampel 1974). Curvature adds to it. At
/// least 3 % of the largest value, as concentrations in a broth are hardly measured better.
double Noise(const TimeCourse& course);

/// The same around point i, as told by up to 20 points on either side of it and without it.
double NoiseAround(const TimeCourse& course, std::size_t i);

/// A fall beyond the noise: from the highest point before it to its first low point.
struct Fall {
  std::size_t from;
  std::size_t to;
};

/// The first fall that two neighbouring points before it and two behind it agree in: a single point
/// far off is none. Where there is but one, at an end of the course, it must be twice as deep.
std::optional<Fall> FallOf(const TimeCourse& course);

/// The slope of the least-squares line of y over x, which are equally long and not empty; 0 where
/// all x are alike.
double Slope(std::span<const double> x, std::span<const double> y);

/// The share of an experiment's largest Cx below which noise hides the cells.
inline constexpr double kSeenCells = 0.05;

/// The largest slope of ln Cx, 1/h, fitted to three samples in a row of any experiment; values that
/// noise hides count as the least that is seen. 0 where nothing grows.
double SteepestGrowth(std::span<const Experiment> experiments);

}  // namespace velmora
