// The squared errors of many curves of one experiment at once, one curve in each lane.
#pragma once

#include <cstddef>

#include "estimation/NormalisedExperiment.h"

namespace velmora {

/// What values in lanes are divided by, the same in every lane.
struct KnownDivisor {
  KnownDivisor() = default;
  explicit KnownDivisor(double divisor);

  double value = 1, reciprocal = 1, rest = 0;  // 1/value = reciprocal + rest
};

/// A measured point between two model points.
struct ComparedPoint {
  std::size_t upper;             // the model point behind it, from 0
  double since;                  // h, from the model point before it
  KnownDivisor width;            // h, between the two
  PerVariable<double> measured;  // over the scales
};

/// The scored points of an experiment: all but its last.
struct ComparedPoints {
  const ComparedPoint* points;
  std::size_t count;
  const PerVariable<KnownDivisor>& scale;
};

/// Adds to `sums`, one for each lane of one vector, the squared errors of the curves, 100 x 3 x
/// `lanes`. Writes the residuals, measured minus model over the scale, as (3 x points) x lanes of
/// one vector, where there is a place for them.
using LaneResiduals = void (*)(const double* curves, std::size_t lanes,
                               const ComparedPoints& measured, double* sums, double* residuals);

/// For the vectors of `LaneMarchesHere`.
LaneResiduals LaneResidualsFor(std::size_t width);

}  // namespace velmora
