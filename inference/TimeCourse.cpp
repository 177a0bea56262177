#include "inference/TimeCourse.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "kinetics/Powers.h"

namespace velmora {
namespace {

constexpr double kLeastNoise = 0.03;     // of the largest value
constexpr double kFallInNoise = 3;       // standard deviations that make a fall
constexpr std::size_t kAround = 20;      // points on either side
constexpr double kMadOfNormal = 1.4826;  // standard deviation of normal values over their MAD

double Square(double value) {
  return value * value;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// The distance of point i from the line through its neighbours, in the standard deviation that a
/// single value would have to have for it.
double ScaledDistance(const TimeCourse& course, std::size_t i) {
  const double width = course.time[i + 1] - course.time[i - 1];
  const double share = width > 0 ? (course.time[i] - course.time[i - 1]) / width : 0.5;
  const double distance = course.value[i] - LineThrough(course, i - 1, i + 1, course.time[i]);
  return std::fabs(distance) / std::sqrt(1 + Square(share) + Square(1 - share));
}

/// The noise by the points [first, last), which have neighbours, without point `left` and the two
/// beside it.
double NoiseOf(const TimeCourse& course, std::size_t first, std::size_t last, std::size_t left) {
  const double least = kLeastNoise * Largest(course);
  std::vector<double> distances;
  for (std::size_t i = first; i < last; ++i)
    if (i + 1 < left || i > left + 1) distances.push_back(ScaledDistance(course, i));
  return distances.empty() ? least : std::max(least, kMadOfNormal * Median(std::move(distances)));
}

}  // namespace

double Slope(std::span<const double> x, std::span<const double> y) {
  const auto count = static_cast<double>(x.size());
  const double meanX = std::accumulate(x.begin(), x.end(), 0.0) / count;
  const double meanY = std::accumulate(y.begin(), y.end(), 0.0) / count;
  double xx = 0, xy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    xx += Square(x[i] - meanX);
    xy += (x[i] - meanX) * (y[i] - meanY);
  }
  return xx > 0 ? xy / xx : 0;
}

TimeCourse CourseOf(const Experiment& experiment, const std::vector<double>& values) {
  std::vector<std::size_t> order(values.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return experiment.time[a] < experiment.time[b];
  });
  TimeCourse course;
  for (const std::size_t k : order) {
    course.time.push_back(experiment.time[k]);
    course.value.push_back(values[k]);
    course.row.push_back(static_cast<int>(k) + 1);
  }
  return course;
}

TimeCourse Mirrored(TimeCourse course) {
  for (double& value : course.value) value = -value;
  return course;
}

double Largest(const TimeCourse& course) {
  double largest = 0;
  for (const double value : course.value) largest = std::max(largest, std::fabs(value));
  return largest;
}

double LineThrough(const TimeCourse& course, std::size_t i, std::size_t j, double time) {
  const double width = course.time[j] - course.time[i];
  const double share = width != 0 ? (time - course.time[i]) / width : 0.5;
  return course.value[i] + share * (course.value[j] - course.value[i]);
}

double Noise(const TimeCourse& course) {
  const std::size_t inner = std::max<std::size_t>(course.Points(), 2) - 1;
  return NoiseOf(course, 1, inner, course.Points() + 1);
}

double NoiseAround(const TimeCourse& course, std::size_t i) {
  const std::size_t first = std::max(i, kAround + 1) - kAround;
  return NoiseOf(course, first, std::min(i + kAround + 1, course.Points() - 1), i);
}

std::optional<Fall> FallOf(const TimeCourse& course) {
  const std::vector<double>& value = course.value;
  const double threshold = kFallInNoise * Noise(course);
  double held = value.empty() ? 0 : value.front();  // agreed in by two points before the fall
  for (std::size_t i = 1; i < value.size(); ++i) {
    if (i > 1) held = std::max(held, std::min(value[i - 2], value[i - 1]));
    const double low = i + 1 < value.size() ? std::max(value[i], value[i + 1]) : value[i];
    const bool isAlone = i == 1 || i + 1 == value.size();
    if (held - low <= (isAlone ? 2 : 1) * threshold) continue;
    const auto fallen = value.begin() + static_cast<std::ptrdiff_t>(i);
    const auto highest = std::max_element(value.begin(), fallen);
    return Fall{static_cast<std::size_t>(highest - value.begin()), i};
  }
  return std::nullopt;
}

double SteepestGrowth(std::span<const Experiment> experiments) {
  constexpr std::size_t kWindow = 3;
  double steepest = 0;
  for (const Experiment& experiment : experiments) {
    TimeCourse cells = CourseOf(experiment, experiment.Cx);
    const double least = kSeenCells * Largest(cells);
    if (least == 0) continue;
    for (double& value : cells.value) value = Logarithm(std::max(value, least));
    const std::size_t window = std::min(kWindow, cells.Points());
    for (std::size_t i = 0; i + window <= cells.Points(); ++i)
      steepest = std::max(steepest, Slope(std::span(cells.time).subspan(i, window),
                                          std::span(cells.value).subspan(i, window)));
  }
  return steepest;
}

}  // namespace velmora
