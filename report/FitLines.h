// Where a fit stands, in lines for the window.
#pragma once

#include <string>
#include <vector>

#include "estimation/Deviations.h"
#include "inference/Verdicts.h"
#include "report/Summary.h"

namespace velmora {

/// One fitted parameter: its value with the digits that its deviation leaves certain, and with all.
struct EstimateLine {
  std::string text;    // "Ks = 16.1 ± 1.2 g/L: determined"
  std::string number;  // "16.1 ± 1.2", a part of the text
  std::string all;     // "16.104999999999997 ± 1.2231..."
};

/// One line for each of the problem's variables. `model` tells the units; null where the conditions
/// name none. `verdicts` is null where these are not found yet.
std::vector<EstimateLine> EstimateLines(const FitProblem& problem, const SearchResult& result,
                                        const Deviations& deviations, const Model* model,
                                        const ParameterVerdicts* verdicts, TextStyle style);

}  // namespace velmora
