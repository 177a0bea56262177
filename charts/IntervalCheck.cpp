#include "charts/IntervalCheck.h"

namespace velmora {
namespace {

constexpr int kAttention = 307, kMinimumAboveMaximum = 336, kTooSmall = 343, kTooLarge = 344;
constexpr int kCheckBounds = 359;

CheckedInterval Refused(int text, IntervalBox failed) {
  return {{}, Message{{text}, kAttention, Icon::Exclamation}, failed};
}

}  // namespace

CheckedInterval CheckInterval(const TypedInterval& typed, const TimeInterval& measured) {
  if (!typed.from) return Refused(kCheckBounds, IntervalBox::Minimum);
  if (!typed.to) return Refused(kCheckBounds, IntervalBox::Maximum);
  if (*typed.to > measured.to) return Refused(kTooLarge, IntervalBox::Maximum);
  if (*typed.from < measured.from) return Refused(kTooSmall, IntervalBox::Minimum);
  if (*typed.from > *typed.to) return Refused(kMinimumAboveMaximum, IntervalBox::Minimum);
  return {{*typed.from, *typed.to}, std::nullopt, IntervalBox::Minimum};
}

}  // namespace velmora
