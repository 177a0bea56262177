#include "data/TableGaps.h"

#include <cmath>

#include "data/TableWords.h"

namespace velmora {
namespace {

constexpr Words kForNoValue = "na n/a #n/a nan null - --";

}  // namespace

bool IsGap(std::string_view cell) {
  return cell.empty() || Contains(kForNoValue, SmallLetters(cell));
}

std::optional<double> Interpolated(std::span<const double> times, std::span<const double> values,
                                   std::size_t at) {
  std::optional<std::size_t> before, behind;
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (std::isnan(values[i])) continue;
    if (times[i] <= times[at] && (!before || times[i] > times[*before])) before = i;
    if (times[i] >= times[at] && (!behind || times[i] < times[*behind])) behind = i;
  }
  if (!before || !behind) return std::nullopt;
  const double span = times[*behind] - times[*before];
  if (span == 0) return values[*before];
  return values[*before] +
         (values[*behind] - values[*before]) * (times[at] - times[*before]) / span;
}

}  // namespace velmora
