// Many integrations of one model at once, one in each lane of the processor's vectors.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "kinetics/KineticParameters.h"
#include "kinetics/ModelCurves.h"
#include "kinetics/Modelos.h"

namespace velmora {

/// Integrates `lanes` batches of one model. `parameters` holds 30 x `lanes` values, lane by lane
/// for each position; `curve` becomes 100 x 3 x `lanes`: Cx, Cs and Cp, g/L, at each model point.
/// `reach` becomes the sum of the magnitudes that each lane's integration came upon: where it is
/// below `kTame`, the lane holds bit for bit what `Runge_Kutta` computes and no fault can have
/// arisen, else the lane means nothing.
using LaneMarch = void (*)(const double* parameters, double* curve, double* reach);

/// The marches of all models, in catalogue order, over vectors of one width.
struct LaneMarches {
  using OfModels = std::array<LaneMarch, kModels.size()>;

  std::size_t width = 0;     // lanes of a vector
  std::size_t together = 0;  // lanes of several vectors side by side, which hide each other's waits
  OfModels narrow{};         // over `width` lanes
  OfModels wide{};           // over `together` lanes
};

/// The marches over the widest vectors that this processor has; VELMORA_LANES in the environment
/// may ask for narrower ones: 2, 4 or 8, and 1 for none. Null where lanes are not to be used.
const LaneMarches* LaneMarchesHere();

/// The most lanes that any processor takes together.
inline constexpr std::size_t kMostLanes = 32;

/// The place in the catalogue of the model whose kernel integrates a row with these switches; none
/// where only the general law serves.
std::ptrdiff_t KernelOf(const KineticParameters& parameters);

/// Whether a value at this position keeps an integration in the range in which it can fault only
/// through its state.
bool IsTame(At position, double value);

/// Whether lanes may take it besides: nothing tiny, which their divisions could not round.
bool SuitsLanes(At position, double value);

}  // namespace velmora
