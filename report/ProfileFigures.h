// The likelihood profiles of fitted parameters, as charts.
#pragma once

#include <span>
#include <vector>

#include "charts/Figure.h"
#include "estimation/FitProblem.h"
#include "estimation/ResultTexts.h"
#include "estimation/SearchResult.h"
#include "inference/Intervals.h"
#include "kinetics/Modelos.h"

namespace velmora {

/// One figure for each of `variables`: the sum of squared errors with the parameter held and the
/// others fitted again, with the best value, the ends of its interval, and the highest sum with
/// which a value lies in it. `intervals` are those of the profile method; `model`
/// tells the units; null where the conditions name none.
std::vector<Figure> ProfileFigures(const Intervals& intervals,
                                   std::span<const FitVariable> variables,
                                   const SearchResult& result, const Model* model, TextStyle style);

}  // namespace velmora
