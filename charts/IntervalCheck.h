// The check of a typed range of time.
#pragma once

#include <cstdint>
#include <optional>

#include "charts/AxisScaling.h"
#include "language/Message.h"

namespace velmora {

/// What the two boxes state, h; nothing where a box holds no number.
struct TypedInterval {
  std::optional<double> from;
  std::optional<double> to;
};

enum class IntervalBox : std::uint8_t { Minimum, Maximum };

struct CheckedInterval {
  TimeInterval interval;           // valid where nothing is refused
  std::optional<Message> refusal;  // what to tell the user
  IntervalBox failed = IntervalBox::Minimum;
};

/// The range must lie within `measured` and may be a single moment. Checked in this order: a box
/// without a number, the maximum too large, the minimum too small, the minimum above the maximum.
CheckedInterval CheckInterval(const TypedInterval& typed, const TimeInterval& measured);

}  // namespace velmora
