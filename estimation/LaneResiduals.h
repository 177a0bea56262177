// The squared errors of many curves of one experiment at once, one curve in each lane.
#pragma once

#include <cstddef>

#include "estimation/NormalisedExperiment.h"

namespace velmora {

/// A measured point between two model points.
struct ComparedPoint {
  std::size_t upper;             // the model point behind it, from 0
  double since;                  // h, from the model point before it
  double width;                  // h, between the two
  PerVariable<double> measured;  // over the scales
};

/// The scored points of an experiment: all but its last.
struct ComparedPoints {
  const ComparedPoint* points;
  std::size_t count;
  PerVariable<double> scale;
};

/// Adds to `sums`, one for each lane, the squared errors of the curves, 100 x 3 x lanes. Writes
/// the residuals, measured minus model over the scale, as (3 x points) x lanes, where there is a
/// place for them.
using LaneResiduals = void (*)(const double* curves, const ComparedPoints& measured, double* sums,
                               double* residuals);

struct LaneResidualsOfWidth {
  LaneResiduals narrow, wide;  // over one vector, and over as many as are marched together
};

/// For the vectors of `LaneMarchesHere`.
LaneResidualsOfWidth LaneResidualsFor(std::size_t width);

}  // namespace velmora
