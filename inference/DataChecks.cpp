#include "inference/DataChecks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <utility>

#include "inference/TimeCourse.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

// In standard deviations of the noise: of a single point, where the noise itself is known from few
// others, and of a difference of two points.
constexpr double kFarOff = 5;
const double kDifference = 3 * std::numbers::sqrt2;
constexpr double kEarlyProduct = 0.1;  // of all product, before ...
constexpr double kNoGrowth = 0.05;     // ... of all growth
// No broth grows faster, 1/h; and none whose cells at least double grows slower for so long.
constexpr double kFastestGrowth = 3;
constexpr double kSlowestGrowth = 0.01;
constexpr double kLongTime = 200;  // of a batch, h

/// One experiment, as it is looked at.
struct Batch {
  explicit Batch(const Experiment& measured)
      : experiment(measured),
        Cx(CourseOf(measured, measured.Cx)),
        Cs(CourseOf(measured, measured.Cs)),
        Cp(CourseOf(measured, measured.Cp)) {}

  const Experiment& experiment;
  TimeCourse Cx;
  TimeCourse Cs;
  TimeCourse Cp;
};

using Remarks = std::vector<Remark>;

/// The change of point i from the first one.
double Change(const TimeCourse& course, std::size_t i) {
  return course.value[i] - course.value.front();
}

void LookAtTimes(const Batch& batch, Remarks& remarks) {
  const std::vector<double>& time = batch.experiment.time;
  for (std::size_t k = 1; k < time.size(); ++k)
    if (time[k] < time[k - 1])
      remarks.push_back(
          {RemarkKind::TimesUnsorted, static_cast<int>(k) + 1, "t", {time[k], time[k - 1]}});
  const double first = batch.Cx.time.front();
  if (first != 0)
    remarks.push_back({RemarkKind::FirstSampleLate, batch.Cx.row.front(), "t", {first}});
}

void LookAtPossibility(const Batch& batch, Remarks& remarks) {
  const std::vector<double>& time = batch.experiment.time;
  const auto row = [](std::size_t k) { return static_cast<int>(k) + 1; };
  for (std::size_t k = 0; k < time.size(); ++k) {
    if (time[k] < 0) remarks.push_back({RemarkKind::NegativeTime, row(k), "t", {time[k]}});
    using Series = std::pair<std::string_view, const std::vector<double>&>;
    for (const auto& [variable, values] :
         {Series{"Cx", batch.experiment.Cx}, Series{"Cs", batch.experiment.Cs},
          Series{"Cp", batch.experiment.Cp}})
      if (values[k] < 0)
        remarks.push_back({RemarkKind::NegativeValue, row(k), variable, {values[k]}});
  }
  const double end = batch.experiment.finalTime, last = batch.Cx.time.back();
  if (end < last)
    remarks.push_back({RemarkKind::FinalTimeEarly, batch.Cx.row.back(), "t", {end, last}});
  else if (end <= 0)
    remarks.push_back({RemarkKind::NoDuration, batch.Cx.row.back(), "t", {end}});
}

void LookAtConcentrations(const Batch& batch, Remarks& remarks) {
  struct Limit {
    std::string_view variable;
    const TimeCourse& course;
    double most;  // g/L that a broth may hold
  };
  for (const auto& [variable, course, most] :
       {Limit{"Cx", batch.Cx, 200}, Limit{"Cs", batch.Cs, 1000}, Limit{"Cp", batch.Cp, 500}}) {
    const auto highest = std::max_element(course.value.begin(), course.value.end());
    const int row = course.row[static_cast<std::size_t>(highest - course.value.begin())];
    if (*highest > most)
      remarks.push_back({RemarkKind::TooConcentrated, row, variable, {*highest}});
    if (variable == "Cs" && *highest > 0 && *highest < 1)
      remarks.push_back({RemarkKind::LooksLikePercent, row, variable, {*highest}});
  }
}

void LookAtGrowthRate(const Batch& batch, Remarks& remarks) {
  const double rate = SteepestGrowth({&batch.experiment, 1});
  const bool doubled = Largest(batch.Cx) > 2 * batch.Cx.value.front();
  const int last = batch.Cx.row.back();
  if (rate == 0) return;
  const std::vector<double> doublingTime = {std::numbers::ln2 / rate};
  if (rate > kFastestGrowth)
    remarks.push_back({RemarkKind::LooksLikeDays, last, "t", doublingTime});
  if (doubled && rate < kSlowestGrowth && batch.Cx.time.back() > kLongTime)
    remarks.push_back({RemarkKind::LooksLikeMinutes, last, "t", doublingTime});
}

void LookAtFalls(const Batch& batch, Remarks& remarks) {
  if (const auto fall = FallOf(batch.Cx))
    remarks.push_back({RemarkKind::FallingCells,
                       batch.Cx.row[fall->to],
                       "Cx",
                       {batch.Cx.value[fall->from], batch.Cx.value[fall->to]}});
  if (const auto rise = FallOf(Mirrored(batch.Cs)))
    remarks.push_back({RemarkKind::RisingSubstrate,
                       batch.Cs.row[rise->to],
                       "Cs",
                       {batch.Cs.value[rise->from], batch.Cs.value[rise->to]}});
}

/// The first sample before the highest Cx in which product has clearly run ahead of growth.
void LookAtEarlyProduct(const Batch& batch, Remarks& remarks) {
  const auto highest = std::max_element(batch.Cx.value.begin(), batch.Cx.value.end());
  const auto peak = static_cast<std::size_t>(highest - batch.Cx.value.begin());
  const double growth = Change(batch.Cx, peak);
  const double production = Largest(batch.Cp) - batch.Cp.value.front();
  if (growth <= 0 || production <= 0) return;
  const double noise =
      kDifference * std::hypot(Noise(batch.Cp) / production, Noise(batch.Cx) / growth);
  for (std::size_t i = 1; i < peak; ++i) {
    const double product = Change(batch.Cp, i), cells = Change(batch.Cx, i);
    const double ahead = product / production - cells / growth;
    if (ahead <= std::max(noise, kEarlyProduct) || cells > kNoGrowth * growth) continue;
    remarks.push_back({RemarkKind::ProductBeforeGrowth, batch.Cp.row[i], "Cp", {product, cells}});
    return;
  }
}

/// The sample in which cells and product exceed the substrate used most.
void LookAtYields(const Batch& batch, Remarks& remarks) {
  double most = kDifference * std::hypot(Noise(batch.Cx), Noise(batch.Cs), Noise(batch.Cp));
  std::optional<Remark> worst;
  for (std::size_t i = 1; i < batch.Cs.Points(); ++i) {
    const double formed = Change(batch.Cx, i) + Change(batch.Cp, i);
    const double used = -Change(batch.Cs, i);
    if (formed - used <= most) continue;
    most = formed - used;
    worst = Remark{RemarkKind::YieldTooHigh, batch.Cs.row[i], "Cs", {formed, used}};
  }
  if (worst) remarks.push_back(*worst);
}

/// The value at `time` on the parabola through three neighbouring points from i on; on the line
/// through the outer two where two were sampled at once.
double ParabolaThrough(const TimeCourse& course, std::size_t i, double time) {
  const double a = course.time[i], b = course.time[i + 1], c = course.time[i + 2];
  if (a == b || b == c) return LineThrough(course, i, i + 2, time);
  const double left = LineThrough(course, i, i + 1, time);
  const double right = LineThrough(course, i + 1, i + 2, time);
  return ((c - time) * left + (time - a) * right) / (c - a);
}

/// What the points around point i let expect there: the lines through its neighbours, through two
/// points before and two behind it, and the parabolas through three before and three behind.
std::vector<double> Expectations(const TimeCourse& course, std::size_t i) {
  const double time = course.time[i];
  std::vector<double> expected = {LineThrough(course, i - 1, i + 1, time)};
  if (i >= 2) expected.push_back(LineThrough(course, i - 2, i - 1, time));
  if (i >= 3) expected.push_back(ParabolaThrough(course, i - 3, time));
  if (i + 2 < course.Points()) expected.push_back(LineThrough(course, i + 1, i + 2, time));
  if (i + 3 < course.Points()) expected.push_back(ParabolaThrough(course, i + 1, time));
  return expected;
}

/// How far point i lies off the curve: its distance from the range of what is expected there. A
/// bend, a kink or a jump of the curve leaves one expectation right (the choice of the smoothest
/// stencil: Harten, Engquist, Osher and Chakravarthy 1987), but next to an end of the course, where
/// they are all from one side, a point that lies between its neighbours is taken for right.
double DistanceOff(const TimeCourse& course, std::size_t i) {
  std::vector<double> expected = Expectations(course, i);
  if (i == 1 || i + 2 == course.Points())
    expected.insert(expected.end(), {course.value[i - 1], course.value[i + 1]});
  const auto [least, most] = std::minmax_element(expected.begin(), expected.end());
  return course.value[i] - std::clamp(course.value[i], *least, *most);
}

void LookAtSinglePoints(std::string_view variable, const TimeCourse& course, Remarks& remarks) {
  std::vector<double> off(course.Points(), 0);
  for (std::size_t i = 1; i + 1 < course.Points(); ++i) off[i] = DistanceOff(course, i);
  for (std::size_t i = 1; i + 1 < course.Points(); ++i) {
    const double distance = std::fabs(off[i]);
    // A point far off pulls the lines of its neighbours along.
    const bool isLargest = distance >= std::fabs(off[i - 1]) && distance >= std::fabs(off[i + 1]);
    if (!isLargest || distance <= kFarOff * NoiseAround(course, i)) continue;
    remarks.push_back(
        {RemarkKind::FarOff, course.row[i], variable, {course.value[i], course.value[i] - off[i]}});
  }
}

void LookAtAll(const Batch& batch, Remarks& remarks) {
  LookAtTimes(batch, remarks);
  LookAtPossibility(batch, remarks);
  LookAtConcentrations(batch, remarks);
  LookAtGrowthRate(batch, remarks);
  LookAtFalls(batch, remarks);
  LookAtEarlyProduct(batch, remarks);
  LookAtYields(batch, remarks);
  LookAtSinglePoints("Cx", batch.Cx, remarks);
  LookAtSinglePoints("Cs", batch.Cs, remarks);
  LookAtSinglePoints("Cp", batch.Cp, remarks);
}

Remarks Looking(std::span<const Experiment> experiments,
                void (*look)(const Batch& batch, Remarks& remarks)) {
  Remarks remarks;
  int place = 0;
  for (const Experiment& experiment : experiments) {
    ++place;
    if (experiment.Points() == 0) continue;
    const std::size_t before = remarks.size();
    look(Batch(experiment), remarks);
    for (std::size_t i = before; i < remarks.size(); ++i) {
      remarks[i].place = place;
      remarks[i].number = experiment.number;
    }
  }
  return remarks;
}

}  // namespace

std::vector<Remark> CheckData(std::span<const Experiment> experiments) {
  return Looking(experiments, LookAtAll);
}

std::vector<Remark> CheckPossible(std::span<const Experiment> experiments) {
  return Looking(experiments, LookAtPossibility);
}

std::string Worded(const Remark& remark, Language language) {
  constexpr int kDigits = 4;
  std::vector<std::string> words = {std::to_string(remark.number), std::to_string(remark.row),
                                    std::string(remark.variable)};
  for (const double value : remark.values) words.push_back(PlainText(value, '.', kDigits));
  return Filled(TextOf(TextId::FallingCells, remark.kind), language,
                std::vector<std::string_view>(words.begin(), words.end()));
}

}  // namespace velmora
