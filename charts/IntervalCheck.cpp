#include "charts/IntervalCheck.h"

namespace velmora {
namespace {

CheckedInterval Refused(TextId text, IntervalBox failed) {
  return {{}, Attention({text}, Icon::Exclamation), failed};
}

}  // namespace

CheckedInterval CheckInterval(const TypedInterval& typed, const TimeInterval& measured) {
  if (!typed.from) return Refused(TextId::CheckBounds, IntervalBox::Minimum);
  if (!typed.to) return Refused(TextId::CheckBounds, IntervalBox::Maximum);
  if (*typed.to > measured.to) return Refused(TextId::TimeTooLarge, IntervalBox::Maximum);
  if (*typed.from < measured.from) return Refused(TextId::TimeTooSmall, IntervalBox::Minimum);
  if (*typed.from > *typed.to) return Refused(TextId::MinimumAboveMaximum, IntervalBox::Minimum);
  return {{*typed.from, *typed.to}, std::nullopt, IntervalBox::Minimum};
}

}  // namespace velmora
