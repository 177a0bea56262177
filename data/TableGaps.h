// Values that a table lacks.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace velmora {

/// Whether a cell stands for no value: empty, NA, N/A, NaN, null, "-". Not "n.d.": what was not
/// detected is known to be small.
bool IsGap(std::string_view cell);

/// The value at point `at` on the straight line between its nearest neighbours in time that have
/// one, in whatever order the points stand; nothing where it has none before or none behind.
/// `values` are as many as `times`, NaN where one is missing.
std::optional<double> Interpolated(std::span<const double> times, std::span<const double> values,
                                   std::size_t at);

}  // namespace velmora
