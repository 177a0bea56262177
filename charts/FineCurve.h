// A model's curve between its points, for drawing it enlarged.
#pragma once

#include <vector>

#include "charts/ChartContent.h"
#include "kinetics/ModelCurves.h"

namespace velmora {

/// The curve of `variable` in the interval in about `count` pieces, with the model's points that
/// lie there, up to the interval's very ends. Between two points it is simulated from the earlier
/// one in fine steps; by what these end beside the later one, the coarse step's error, it is bent
/// evenly on the way. A way that cannot be simulated is a straight line.
std::vector<PlotPoint> FineCurve(const ModelCurve& curve, PlotVariable variable,
                                 const TimeInterval& interval, int count);

}  // namespace velmora
