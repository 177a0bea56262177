// The settings of the differential-evolution search.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace velmora {

struct EstimationSettings {
  double NPOP = 100;       // population size; its whole part counts
  double ITER = 200;       // most generations; its whole part counts
  double PCROS = 0.8;      // crossover probability
  double FACT = 0.8;       // weight of the difference term
  double FACT1 = 0.01;     // weight of the second, centred difference term
  double EPS = 0.00001;    // accuracy of convergence
  std::int32_t IU = 5471;  // seed

  friend bool operator==(const EstimationSettings&, const EstimationSettings&) = default;
};

/// Seven typed numbers before they are settings; nothing stands for a box that holds no number.
struct TypedSettings {
  std::optional<double> NPOP, ITER, PCROS, FACT, FACT1, EPS, IU;
};

/// The settings that were typed, or the first that is out of its bounds (inclusive) or no number.
/// `IU` becomes the nearest integer, halves to even.
struct CheckedSettings {
  EstimationSettings settings;
  std::optional<std::size_t> refused;  // its index in the order of `TypedSettings`
};
CheckedSettings CheckSettings(const TypedSettings& typed);

}  // namespace velmora
